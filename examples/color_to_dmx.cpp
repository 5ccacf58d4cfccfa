#include "ColorUtils.h"
#include "LXColor.h"

#include <QDebug>

int main()
{
    // Tungsten light of 3200 K at 80 %, by its CIE 1931 chromaticity.
    const LXColor tungsten = LXColor::fromxyY(0.4234, 0.3990, 0.8, ColorUtils::ProfileGenericRGB);

    // The DMX bytes with which a fixture shows it: here 4 channels of 8 bits.
    const auto fixture = ColorUtils::ProfileWashLineQP6RGBW;
    const int ioMode = ColorUtils::defaultIOModeIDForTonematchProfileID(fixture);
    const int onboardCurve = ColorUtils::defaultCurveTypeForTonematchProfileID(fixture);
    const int directCurve = 0;
    qInfo() << ColorUtils::updateBuffer(directCurve, onboardCurve, tungsten, false, 4, 1, ioMode, fixture);

    // The same light as levels of another fixture's emitters, in the text form that documents store.
    qInfo() << tungsten.toNChannel16(ColorUtils::ConfigRGBA, ColorUtils::ProfileFloodBarZN2RGBA, -1).aName();
}
