// The HSV face of LXColor.
#include "ColorWords_p.h"
#include "HsvArithmetic_p.h"
#include "LXColor.h"

#include <algorithm>
#include <cmath>

using namespace lxcolor;

namespace {

/// Hue words: whole degrees modulo the circle, or a fraction of it; a negative hue is the achromatic marker.
quint32 hueWord(int degrees) { return degrees < 0 ? kAchromaticHue : static_cast<quint32>(degrees % 360) * 100; }
quint32 hueWord(double circle)
{
    return circle < 0.0 ? kAchromaticHue : static_cast<quint32>(circle * kHueCircle + 0.5);
}

bool isHueFraction(double h) { return h == -1.0 || isRatio(h); }

} // namespace

void LXColor::setHsv8(int h, int s, int v, int a, TonematchProfileID profile)
{
    if (h < -1 || h > 360 || !are8(s, v, a, 0)) {
        qWarning("LXColor::setHsv8: HSV parameters out of range");
        invalidate();
        return;
    }
    storeFace(Hsv, hueWord(h), word(s), word(v), word(a), profile);
}

void LXColor::setHsv16(int h, uint s, uint v, uint a, TonematchProfileID profile)
{
    if (h < -1 || h > 65535 || !are16(s, v, a, 0)) {
        qWarning("LXColor::setHsv16: HSV parameters out of range");
        invalidate();
        return;
    }
    storeFace(Hsv, hueWord(h), word(s), word(v), word(a), profile);
}

void LXColor::setHsvF(double h, double s, double v, double a, TonematchProfileID profile)
{
    if (!isHueFraction(h) || !areRatios(s, v, a, 0.0)) {
        qWarning("LXColor::setHsvF: HSV parameters out of range");
        invalidate();
        return;
    }
    storeFace(Hsv, hueWord(h), word(s), word(v), word(a), profile);
}

LXColor LXColor::fromHsv8(int h, int s, int v, int a, TonematchProfileID profile)
{
    if (h < -1 || h >= 360 || !are8(s, v, a, 0)) {
        qWarning("LXColor::fromHsv: HSV parameters out of range");
        return {};
    }
    return {Hsv, hueWord(h), word(s), word(v), word(a), profile, ColorUtils::ConfigRGB};
}

LXColor LXColor::fromHsv16(int h, uint s, uint v, uint a, TonematchProfileID profile)
{
    if (h < -1 || h >= 360 || !are16(s, v, a, 0)) {
        qWarning("LXColor::fromHsv: HSV parameters out of range");
        return {};
    }
    return {Hsv, hueWord(h), word(s), word(v), word(a), profile, ColorUtils::ConfigRGB};
}

LXColor LXColor::fromHsvF(double h, double s, double v, double a, TonematchProfileID profile)
{
    if (!isHueFraction(h) || !areRatios(s, v, a, 0.0)) {
        qWarning("LXColor::fromHsvF: HSV parameters out of range");
        return {};
    }
    return {Hsv, hueWord(h), word(s), word(v), word(a), profile, ColorUtils::ConfigRGB};
}

void LXColor::getHsv16(int* h, uint* s, uint* v, uint* a) const
{
    if (!h || !s || !v)
        return;
    const LXColor hsv = toHsv16();
    *h = hsv.m_words[0] == kAchromaticHue ? -1 : static_cast<int>(hsv.m_words[0] / 100);
    *s = to16(hsv.m_words[1]);
    *v = to16(hsv.m_words[2]);
    assign(a, alpha16());
}

void LXColor::getHsvF(double* h, double* s, double* v, double* a) const
{
    if (!h || !s || !v)
        return;
    const LXColor hsv = toHsv16();
    *h = hsv.hueF();
    *s = toRatio(hsv.m_words[1]);
    *v = toRatio(hsv.m_words[2]);
    assign(a, alphaF());
}

LXColor LXColor::toHsv16() const
{
    if (m_spec == Invalid || m_spec == Hsv)
        return *this;
    if (m_spec != Rgb)
        return toRgb16(true).toHsv16();

    const HsvWords words = hsvFromRgb({m_words[0], m_words[1], m_words[2]});
    return {Hsv, words.hue, words.saturation, words.value, m_alpha, m_profileID, m_channelConfiguration};
}

quint32 LXColor::hsvWord(int word) const
{
    return m_spec == Invalid || m_spec == Hsv ? m_words[word] : toHsv16().m_words[word];
}

int LXColor::hue8() const { return hue16(); }

int LXColor::hue16() const
{
    const quint32 hue = hsvWord(0);
    if (hue == kAchromaticHue)
        return -1;
    return static_cast<int>(std::min(359.0, std::floor(hue / 100.0 + 0.5)));
}

double LXColor::hueF() const
{
    const quint32 hue = hsvWord(0);
    return hue == kAchromaticHue ? -1.0 : hue / 36000.0;
}

int LXColor::saturation8() const { return to8(hsvWord(1)); }

int LXColor::value8() const { return to8(hsvWord(2)); }

uint LXColor::saturation16() const { return to16(hsvWord(1)); }

uint LXColor::value16() const { return to16(hsvWord(2)); }

double LXColor::saturationF() const { return toRatio(hsvWord(1)); }

double LXColor::valueF() const { return toRatio(hsvWord(2)); }
