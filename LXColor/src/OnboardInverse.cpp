#include "OnboardInverse_p.h"
#include "OnboardResponse_p.h"

#include <algorithm>
#include <cmath>

namespace lxcolor {

namespace {

/// Light = a d^2 + b d + c for a drive level d, in single precision.
struct QuadraticModel
{
    float a;
    float b;
    float c;

    float driveFor(quint16 light, float maxDrive) const { return solveQuadratic(a, b, c, light, maxDrive); }
};

// clang-format off
//                                         a            b           c
constexpr QuadraticModel kNormal8       = {0.941203F,   16.936F,    -0.065865F};
constexpr QuadraticModel kNormal16      = {1.425e-5F,   0.065898F,  -0.065865F};
constexpr QuadraticModel kTungstenLow8  = {0.221829F,   -1.002F,    4.339F};
constexpr QuadraticModel kTungsten8     = {1.31F,       -83.603F,   1573.0F};
constexpr QuadraticModel kTungstenLow16 = {3.359e-6F,   -0.0039F,   4.339F};
constexpr QuadraticModel kTungsten16    = {1.9829e-5F,  -0.325303F, 1573.0F};
// clang-format on

constexpr float kMax8 = 255.0F;
constexpr float kMax16 = 65535.0F;

constexpr quint16 kTungstenIdentityMax = 4; // light values that are their own drive level
constexpr quint16 kTungstenLowMax = 321;    // light values on the low piece of the tungsten model

float tungstenDrive(quint16 light, const QuadraticModel& low, const QuadraticModel& high, float maxDrive)
{
    if (light <= kTungstenIdentityMax)
        return light;
    return (light <= kTungstenLowMax ? low : high).driveFor(light, maxDrive);
}

OnboardInverse<quint8> s_normal8([](quint16 light) { return light == 0 ? 0.0F : kNormal8.driveFor(light, kMax8); });
OnboardInverse<quint16> s_normal16([](quint16 light) { return light == 0 ? 0.0F : kNormal16.driveFor(light, kMax16); });
OnboardInverse<quint8> s_tungsten8([](quint16 light) {
    return tungstenDrive(light, kTungstenLow8, kTungsten8, kMax8);
});
OnboardInverse<quint16> s_tungsten16([](quint16 light) {
    return tungstenDrive(light, kTungstenLow16, kTungsten16, kMax16);
});

} // namespace

float solveQuadratic(float a, float b, float c, float target, float max)
{
    const float discriminant = b * b + (-4.0F * a) * (c - target);
    const double root = std::sqrt(static_cast<double>(discriminant));
    const double denominator = 2.0F * a;

    float drive = static_cast<float>((-b + root) / denominator);
    if (!(drive > 0.0F)) {
        drive = static_cast<float>((-b - root) / denominator);
        if (!(drive > 0.0F))
            drive = 0.0F;
    }
    return std::floor(std::max(0.0F, std::min(max, drive)) + 0.5F);
}

quint8 linearDrive8(quint16 light) { return static_cast<quint8>(std::floor(light / 257.0 + 0.5)); }

OnboardInverse<quint8>* onboardInverse8(int curveType)
{
    return curveType == kCurveNormal ? &s_normal8 : curveType == kCurveTungsten ? &s_tungsten8 : nullptr;
}

OnboardInverse<quint16>* onboardInverse16(int curveType)
{
    return curveType == kCurveNormal ? &s_normal16 : curveType == kCurveTungsten ? &s_tungsten16 : nullptr;
}

quint8 normalDrive8(quint16 light) { return s_normal8(light); }

quint16 normalDrive16(quint16 light) { return s_normal16(light); }

quint8 tungstenDrive8(quint16 light) { return s_tungsten8(light); }

quint16 tungstenDrive16(quint16 light) { return s_tungsten16(light); }

quint8 truncatedNormalDrive8(quint16 light)
{
    constexpr double kB = 16.937;
    constexpr double kTwiceA = 1.8824;
    const double root = std::sqrt(light * 3.7648 + 286.861969); // 4 a light + b^2
    double drive = (root - kB) / kTwiceA;
    if (!(drive > 0.0)) {
        drive = (-kB - root) / kTwiceA;
        if (!(drive > 0.0))
            drive = 0.0;
    }
    return drive > 255.0 ? quint8(255) : static_cast<quint8>(drive);
}

} // namespace lxcolor
