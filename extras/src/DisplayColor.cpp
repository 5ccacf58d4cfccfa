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

/// The light of an encoded component, 0..1: the curve above, backwards.
double linearOf(int encoded)
{
    const double value = encoded / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

int encodedOf(double linear) { return encodedSteps()[static_cast<size_t>(linear * kEncodedSteps + 0.5)]; }

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
    int bytes[3];
    for (int i = 0; i < 3; ++i)
        bytes[i] = encodedOf(std::min(rgb[i] / norm, 1.0));
    return qRgb(bytes[0], bytes[1], bytes[2]);
}

QRgb dimmed(QRgb color, double ratio)
{
    if (!(ratio > 0.0))
        return qRgb(0, 0, 0);
    if (ratio >= 1.0)
        return color | 0xff000000u;
    const auto dim = [=](int encoded) { return encodedOf(linearOf(encoded) * ratio); };
    return qRgb(dim(qRed(color)), dim(qGreen(color)), dim(qBlue(color)));
}

} // namespace lxcolor
