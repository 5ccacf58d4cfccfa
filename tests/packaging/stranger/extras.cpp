// The same through the second library: a frame of a patch with one such fixture.
#include <FrameRenderer.h>
#include <LXColor.h>
#include <cstdio>

int main()
{
    FrameRenderer renderer;
    const auto fixture =
        FrameRenderer::Fixture::contiguous(ColorUtils::ProfileWashLineQP6RGBW, ColorUtils::IOModeRGBW, 1, 1, 1);
    if (!renderer.setPatch({fixture}, nullptr))
        return 1;
    renderer.render(QVector<LXColor>{LXColor("#ff8000")});
    for (int slot = 0; slot < 4; ++slot)
        std::printf("%d ", renderer.universeSlots(0)[slot]);
    std::printf("\n");
    return 0;
}
