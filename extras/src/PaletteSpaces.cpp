#include "PaletteSpaces_p.h"

#include <QColor>

#include <algorithm>
#include <cmath>

namespace lxcolor {

namespace {

using Code = PaletteFormat::Code;

// From CIE XYZ under D50 to linear red, green and blue of sRGB: IEC 61966-2-1 after the Bradford adaptation to D65.
constexpr double kFromXYZ[3][3] = {
    {3.1338561, -1.6168667, -0.4906146},
    {-0.9787684, 1.9161415, 0.0334540},
    {0.0719453, -0.2289914, 1.4052427},
};

constexpr double kWhite[3] = {0.96422, 1.0, 0.82521}; // D50

/// Cuts a number to 0..1. What rounding leaves beyond is no cut.
double bounded(double value, bool& isCut)
{
    constexpr double rounding = 1e-3;
    isCut = isCut || !(value >= -rounding && value <= 1.0 + rounding);
    return value > 0.0 ? std::min(value, 1.0) : 0.0;
}

LXColor colorOf(const double (&rgb)[3], bool isCut, PaletteRemarks& remarks)
{
    uint levels[3];
    for (int i = 0; i < 3; ++i)
        levels[i] = static_cast<uint>(std::lround(65535.0 * bounded(rgb[i], isCut)));
    remarks.add(Code::Cut, isCut ? 1 : 0);
    return LXColor(levels[0], levels[1], levels[2], 65535);
}

/// The inverse of the function of CIE 15 from tristimulus ratios to L*a*b*.
double ratioOf(double f) { return f > 6.0 / 29.0 ? f * f * f : 108.0 / 841.0 * (f - 4.0 / 29.0); }

double encoded(double linear)
{
    return linear <= 0.0031308 ? 12.92 * linear : 1.055 * std::pow(linear, 1.0 / 2.4) - 0.055;
}

} // namespace

LXColor fromRgb(double red, double green, double blue, PaletteRemarks& remarks)
{
    return colorOf({red, green, blue}, false, remarks);
}

LXColor fromHsb(double hue, double saturation, double brightness, PaletteRemarks& remarks)
{
    bool isCut = false;
    const double s = bounded(saturation, isCut);
    const double v = bounded(brightness, isCut);
    const double h = bounded(hue, isCut);
    const QColor color = QColor::fromHsvF(h < 1.0 ? h : 0.0, s, v).toRgb();
    return colorOf({color.redF(), color.greenF(), color.blueF()}, isCut, remarks);
}

LXColor fromCmyk(double cyan, double magenta, double yellow, double black, PaletteRemarks& remarks)
{
    bool isCut = false;
    const double paper = 1.0 - bounded(black, isCut);
    const double c = bounded(cyan, isCut);
    const double m = bounded(magenta, isCut);
    const double y = bounded(yellow, isCut);
    remarks.add(Code::Cmyk);
    return colorOf({(1.0 - c) * paper, (1.0 - m) * paper, (1.0 - y) * paper}, isCut, remarks);
}

LXColor fromLab(double L, double a, double b, PaletteRemarks& remarks)
{
    const double fy = (L + 16.0) / 116.0;
    const double XYZ[3] = {kWhite[0] * ratioOf(fy + a / 500.0), kWhite[1] * ratioOf(fy),
                           kWhite[2] * ratioOf(fy - b / 200.0)};
    double rgb[3];
    for (int i = 0; i < 3; ++i)
        rgb[i] = encoded(kFromXYZ[i][0] * XYZ[0] + kFromXYZ[i][1] * XYZ[1] + kFromXYZ[i][2] * XYZ[2]);
    remarks.add(Code::Lab);
    return colorOf(rgb, false, remarks);
}

LXColor fromGray(double gray, PaletteRemarks& remarks) { return colorOf({gray, gray, gray}, false, remarks); }

} // namespace lxcolor
