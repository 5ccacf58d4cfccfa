#ifndef TESTS_EXPECTEDSLOTS_H
#define TESTS_EXPECTEDSLOTS_H

#include "ColorUtils.h"
#include "FrameRenderer.h"

/// Writes what ColorUtils::updateBuffer() gives for a fixture into the 512 slots of its universe.
inline void writeExpected(const FrameRenderer::Fixture& fixture, const LXColor& color, unsigned char* slots)
{
    const int count = fixture.channels.size();
    const auto run = [&](int resolution) {
        return ColorUtils::updateBuffer(fixture.directCurve, fixture.onboardCurve, color, fixture.allowRgbPassThrough,
                                        count, resolution, fixture.ioMode, fixture.profile);
    };
    const QList<unsigned char> coarse = run(1);
    const QList<unsigned char> fine = run(2);
    for (int k = 0; k < count; ++k) {
        const auto& channel = fixture.channels[k];
        slots[channel.slot - 1] = channel.fineSlot ? fine[2 * k] : coarse[k];
        if (channel.fineSlot)
            slots[channel.fineSlot - 1] = fine[2 * k + 1];
    }
}

#endif
