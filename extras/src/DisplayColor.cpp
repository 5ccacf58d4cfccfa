#include "DisplayColor_p.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace lxcolor {

namespace {

// From CIE XYZ to linear red, green and blue of sRGB.
constexpr double kFromXYZ[3][3] = {
    {3.2404542, -1.5371385, -0.4985314},
    {-0.9692660, 1.8760108, 0.0415560},
    {0.0556434, -0.2040259, 1.0572252},
};

// What sRGB has too little of goes to 0 and what it has most of to 1, but not abruptly: the eye sees every kink of a
// gradient as a line. The least component bends off below this, and the sixth root of the sum of sixth powers stands in
// for the greatest one.
constexpr double kSoftness = 0.07;

constexpr int kEncodedSteps = 4096;

/// The sRGB transfer curve, to 8 bits.
const std::array<unsigned char, kEncodedSteps + 1>& encodedSteps()
{
    static const auto table = [] {
        std::array<unsigned char, kEncodedSteps + 1> made{};
        for (int i = 0; i <= kEncodedSteps; ++i) {
            const double linear = double(i) / kEncodedSteps;
            const double encoded = linear <= 0.0031308 ? 12.92 * linear : 1.055 * std::pow(linear, 1.0 / 2.4) - 0.055;
            made[static_cast<size_t>(i)] = static_cast<unsigned char>(std::lround(255.0 * encoded));
        }
        return made;
    }();
    return table;
}

} // namespace

QRgb displayColor(double x, double y)
{
    const double XYZ[3] = {x, y, 1.0 - x - y};
    double rgb[3];
    double sixthPowers = 0.0;
    for (int i = 0; i < 3; ++i) {
        const double linear = kFromXYZ[i][0] * XYZ[0] + kFromXYZ[i][1] * XYZ[1] + kFromXYZ[i][2] * XYZ[2];
        rgb[i] = 0.5 * (linear + std::sqrt(linear * linear + kSoftness * kSoftness));
        const double square = rgb[i] * rgb[i];
        sixthPowers += square * square * square;
    }
    if (!(sixthPowers > 0.0) || !std::isfinite(sixthPowers))
        return qRgb(0, 0, 0);

    const double norm = std::sqrt(std::cbrt(sixthPowers));
    const auto& encoded = encodedSteps();
    int bytes[3];
    for (int i = 0; i < 3; ++i)
        bytes[i] = encoded[static_cast<size_t>(std::min(rgb[i] / norm, 1.0) * kEncodedSteps + 0.5)];
    return qRgb(bytes[0], bytes[1], bytes[2]);
}

} // namespace lxcolor
