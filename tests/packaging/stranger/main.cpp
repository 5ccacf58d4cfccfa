// Somebody else's program: prints the DMX bytes that show orange on a fixture with red, green, blue and white emitters.
#include <LXColor.h>
#include <cstdio>

int main()
{
    const LXColor orange("#ff8000");
    for (int byte : ColorUtils::updateBuffer(0, 1, orange, false, 4, 1, ColorUtils::IOModeRGBW,
                                             ColorUtils::ProfileWashLineQP6RGBW))
        std::printf("%d ", byte);
    std::printf("\n");
    return 0;
}
