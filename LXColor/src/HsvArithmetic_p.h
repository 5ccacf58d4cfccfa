#ifndef HSVARITHMETIC_P_H
#define HSVARITHMETIC_P_H

#include "ColorWords_p.h"

#include <QtGlobal>

#include <algorithm>

// RGB to HSV and back on 32-bit words. Which channel is the greatest, and in which sextant a hue lies, is as good as
// random, so what depends on it is looked up instead of branched on; inline, so that no words travel through memory.
namespace lxcolor {

struct RgbWords
{
    quint32 red;
    quint32 green;
    quint32 blue;
};

struct HsvWords
{
    quint32 hue; ///< Hundredths of a degree, 0..36000, or kAchromaticHue.
    quint32 saturation;
    quint32 value;
};

constexpr quint32 kAchromaticHue = 0xffffffffu;
constexpr quint32 kHueCircle = 36000;
constexpr quint32 kHueSextant = kHueCircle / 6;

/// The hue word of a place on the circle in sextants, -1..5.
inline quint32 hueWordFromSextant(double sextant)
{
    static constexpr double kWrap[2] = {0.0, 360.0};
    const double degrees = sextant * 60.0;
    return static_cast<quint32>(static_cast<qint64>((degrees + kWrap[degrees < 0.0]) * 100.0 + 0.5));
}

/// Of equal channels red wins over green over blue.
inline HsvWords hsvFromRgb(const RgbWords& rgb)
{
    // Ratios compare as their words do: neighbouring words differ by far more than a relative comparison forgives.
    const double r = toRatio(rgb.red);
    const double g = toRatio(rgb.green);
    const double b = toRatio(rgb.blue);
    const double max = std::max(std::max(r, g), b);
    const double min = std::min(std::min(r, g), b);
    static constexpr int kTop[4] = {0, 1, 0, 2};
    const int top = kTop[int(r < max) | int(g < max) << 1];
    // A word made of a word's ratio is that word, so the greatest one is the value.
    const quint32 words[3] = {rgb.red, rgb.green, rgb.blue};
    const quint32 value = words[top];
    if (max == min)
        return {kAchromaticHue, 0, value};

    static constexpr double kFirstSextant[3] = {0.0, 2.0, 4.0};
    const double channels[5] = {r, g, b, r, g};
    const double delta = max - min;
    const double sextant = kFirstSextant[top] + (channels[top + 1] - channels[top + 2]) / delta;
    return {hueWordFromSextant(sextant), wordFromUnit(delta / max), value};
}

/// Hue words beyond the circle that are not the achromatic marker count modulo the circle.
inline RgbWords rgbFromHsv(const HsvWords& hsv)
{
    if (hsv.saturation == 0)
        return {hsv.value, hsv.value, hsv.value};

    enum Part { Value, Low, Ramp };
    static constexpr Part kParts[6][3] = {
        // red, green, blue
        {Value, Ramp, Low}, {Ramp, Value, Low}, {Low, Value, Ramp},
        {Low, Ramp, Value}, {Ramp, Low, Value}, {Value, Low, Ramp},
    };
    const quint32 hue = hsv.hue == kAchromaticHue ? 0 : hsv.hue % kHueCircle;
    const quint32 sextant = hue / kHueSextant;
    const double f = hue / 6000.0 - sextant;
    const double fall[2] = {1.0 - f, f}; // in even sextants a channel rises, in odd ones it falls
    const double v = toRatio(hsv.value);
    const double s = toRatio(hsv.saturation);
    const quint32 words[3] = {hsv.value, wordFromUnit(v * (1.0 - s)), wordFromUnit(v * (1.0 - s * fall[sextant % 2]))};
    const Part* const part = kParts[sextant];
    return {words[part[0]], words[part[1]], words[part[2]]};
}

} // namespace lxcolor

#endif
