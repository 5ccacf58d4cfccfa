// The same for a colour that was picked in a view on the swatch library.
#include <QApplication>

#include <LXColorLibrary.h>
#include <SwatchView.h>
#include <cstdio>

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    LXColorLibrary::Instance()->init(true, true, true);
    SwatchView view;
    view.addColor(LXColor("#ff8000"));
    for (int byte : ColorUtils::updateBuffer(0, 1, view.currentColor(), false, 4, 1, ColorUtils::IOModeRGBW,
                                             ColorUtils::ProfileWashLineQP6RGBW))
        std::printf("%d ", byte);
    std::printf("\n");
    return 0;
}
