#include "OnboardResponse_p.h"
#include "Rounding_p.h"

namespace lxcolor {

namespace {

/// A fitted 16-bit light value as a ratio of the fit's full scale. The fit is rounded to single precision first.
double ratioOfFit(double fitted, double fullScale)
{
    const double light = toSingle(fitted);
    if (light < 0.0)
        return 0.0;
    return light > fullScale ? 1.0 : light / fullScale;
}

} // namespace

double squareLawRatio(quint16 drive)
{
    constexpr double kFullScale = 65516.0; // the fit reaches 65516.8 at full drive
    const double d = drive;
    const double d2 = d * d;
    const double d3 = d2 * d;
    const double d4 = d3 * d;
    return ratioOfFit(1.674e-18 * d4 - 2.11838e-13 * d3 + 1.4257e-5 * d2 + 0.065828 * d - 4.8488e-5, kFullScale);
}

double tungstenRatio(quint16 drive)
{
    constexpr double kFullScale = 65535.0;
    const double d = drive;
    const double d2 = d * d;
    const double d3 = d2 * d;
    const double d4 = d3 * d;
    const double d5 = d4 * d;
    const double d6 = d5 * d;
    const double d7 = d6 * d;
    return ratioOfFit(3.7684e-29 * d7 - 9.555e-24 * d6 + 1.045e-18 * d5 - 6.1689e-14 * d4 + 2.031e-9 * d3 -
                          1.6217e-5 * d2 - 9.38789e-10 * d - 4.64192e-16,
                      kFullScale);
}

double onboardOutputRatio(int curveType, double level)
{
    switch (curveType) {
    case kCurveNormal:
        return squareLawRatio(truncateTo16(level));
    case kCurveTungsten:
        return tungstenRatio(truncateTo16(level));
    default:
        return level;
    }
}

} // namespace lxcolor
