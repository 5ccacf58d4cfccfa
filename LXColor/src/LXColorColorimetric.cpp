// The Yxy and N-channel faces of LXColor.
#include "ColorWords_p.h"
#include "LXColor.h"
#include "Tristimulus.h"
#include "TristimulusFactory.h"

#include <algorithm>

using namespace lxcolor;

// ---- Yxy face ----

void LXColor::setYxy8(double Y, double x, double y, int a, TonematchProfileID profile)
{
    if (accept(is8(a)))
        setYxy16(Y, x, y, static_cast<uint>(a) * 257u, profile);
}

void LXColor::setYxy16(double Y, double x, double y, uint a, TonematchProfileID profile)
{
    if (!accept(is16(a)))
        return;
    m_alpha = word(a);
    m_profileID = profile;
    storeYxy(Y, x, y);
}

void LXColor::setYxyF(double Y, double x, double y, double a, TonematchProfileID profile)
{
    if (!accept(isRatio(a)))
        return;
    m_alpha = word(a);
    m_profileID = profile;
    storeYxy(Y, x, y);
}

void LXColor::getYxy16(double* Y, double* x, double* y, uint* a) const
{
    if (!Y || !x || !y)
        return;
    const LXColor yxy = toYxy(ColorUtils::ConfigUnknown, ColorUtils::ProfileNone, -1);
    *Y = yxy.storedY();
    *x = yxy.m_x;
    *y = yxy.m_y;
    assign(a, alpha16());
}

void LXColor::getYxy8(double* Y, double* x, double* y, int* a) const
{
    getYxy16(Y, x, y, nullptr);
    assign(a, alpha8());
}

void LXColor::getYxyF(double* Y, double* x, double* y, double* a) const
{
    getYxy16(Y, x, y, nullptr);
    assign(a, alphaF());
}

double LXColor::getY() const { return toYxy(ColorUtils::ConfigUnknown, ColorUtils::ProfileNone, -1).storedY(); }

double LXColor::getx() const { return toYxy(ColorUtils::ConfigUnknown, ColorUtils::ProfileNone, -1).m_x; }

double LXColor::gety() const { return toYxy(ColorUtils::ConfigUnknown, ColorUtils::ProfileNone, -1).m_y; }

void LXColor::rebuildAsYxy(double Y, double x, double y)
{
    m_alpha = wordFrom16(alpha16());
    storeYxy(Y, x, y);
}

void LXColor::setY(double Y)
{
    if (!accept(isRatio(Y)))
        return;
    if (m_spec == Yxy)
        storeY(Y);
    else
        rebuildAsYxy(Y, getx(), gety());
}

void LXColor::setx(double x)
{
    if (!accept(isRatio(x)))
        return;
    if (m_spec == Yxy)
        m_x = x;
    else
        rebuildAsYxy(getY(), x, gety());
}

void LXColor::sety(double y)
{
    if (!accept(isRatio(y)))
        return;
    if (m_spec == Yxy)
        m_y = y;
    else
        rebuildAsYxy(getY(), getx(), y);
}

LXColor LXColor::toYxy(ChannelConfiguration configuration, TonematchProfileID profile, int curveType) const
{
    if (m_spec == Invalid || m_spec == Yxy)
        return *this;
    if (configuration == ColorUtils::ConfigUnknown)
        configuration = m_channelConfiguration;
    if (profile == ColorUtils::ProfileNone)
        profile = m_profileID;
    if (curveType == -1)
        curveType = ColorUtils::defaultCurveTypeForTonematchProfileID(profile);

    Tristimulus* emitters = TristimulusFactory::getInstance()->getTristimulus(profile, configuration);
    double light[3];
    ColorUtils::convertLXColorToYxy(m_spec == Hsv ? toRgb16(true) : *this, emitters, light, curveType);

    LXColor yxy;
    yxy.m_channelConfiguration = configuration;
    yxy.m_profileID = m_profileID;
    yxy.m_alpha = m_alpha;
    yxy.storeYxy(light[0], light[1], light[2]);
    return yxy;
}

LXColor LXColor::fromxyY(double x, double y, double Y, TonematchProfileID profile)
{
    LXColor color;
    if (areRatios(x, y, Y, 0.0))
        color.setYxy16(Y, x, y, 65535, profile);
    else
        qWarning("LXColor::fromxyY: xyY parameters out of range");
    return color;
}

// ---- N-channel face ----

/// The whole N-channel face: the alpha first and then the levels, in the width of T.
template <typename T>
void LXColor::storeNChannel(const QVector<T>& v, ChannelConfiguration configuration, TonematchProfileID profile)
{
    m_alpha = saturatedWord(v.constFirst());
    m_nChannels.resize(v.size() - 1);
    std::transform(v.constBegin() + 1, v.constEnd(), m_nChannels.begin(), [](T level) { return saturatedWord(level); });
    m_spec = NChannel;
    m_channelConfiguration = configuration;
    m_profileID = profile;
}

template <typename T>
void LXColor::readNChannel(QVector<T>* out, ChannelConfiguration* configuration, TonematchProfileID* profile) const
{
    if (!out)
        return;
    out->resize(m_nChannels.size() + 1);
    out->first() = reading<T>(m_alpha);
    std::transform(m_nChannels.constBegin(), m_nChannels.constEnd(), out->begin() + 1, reading<T>);
    assign(configuration, m_channelConfiguration);
    assign(profile, m_profileID);
}

void LXColor::setNChannel8(QVector<int> v, ChannelConfiguration configuration, TonematchProfileID profile)
{
    if (accept(!v.isEmpty()))
        storeNChannel(v, configuration, profile);
}

void LXColor::setNChannel16(QVector<uint> v, ChannelConfiguration configuration, TonematchProfileID profile)
{
    if (accept(!v.isEmpty() && is16(v.constFirst())))
        storeNChannel(v, configuration, profile);
}

void LXColor::setNChannelF(QVector<double> v, ChannelConfiguration configuration, TonematchProfileID profile)
{
    if (accept(!v.isEmpty() && isRatio(v.constFirst())))
        storeNChannel(v, configuration, profile);
}

void LXColor::getNChannel8(QVector<int>* out, ChannelConfiguration* configuration, TonematchProfileID* profile) const
{
    readNChannel(out, configuration, profile);
}

void LXColor::getNChannel16(QVector<uint>* out, ChannelConfiguration* configuration, TonematchProfileID* profile) const
{
    readNChannel(out, configuration, profile);
}

void LXColor::getNChannelF(QVector<double>* out, ChannelConfiguration* configuration, TonematchProfileID* profile) const
{
    readNChannel(out, configuration, profile);
}

LXColor LXColor::fromNChannel8(QVector<int> v, ChannelConfiguration configuration, TonematchProfileID profile)
{
    LXColor color;
    color.setNChannel8(v, configuration, profile);
    return color;
}

LXColor LXColor::fromNChannel16(QVector<uint> v, ChannelConfiguration configuration, TonematchProfileID profile)
{
    LXColor color;
    color.setNChannel16(v, configuration, profile);
    return color;
}

LXColor LXColor::fromNChannelF(QVector<double> v, ChannelConfiguration configuration, TonematchProfileID profile)
{
    LXColor color;
    color.setNChannelF(v, configuration, profile);
    return color;
}

LXColor LXColor::toNChannel16(ChannelConfiguration configuration, TonematchProfileID profile, int curveType) const
{
    if (m_spec == Invalid)
        return *this;
    if (m_spec == NChannel && m_channelConfiguration == configuration && m_profileID == profile)
        return *this;
    if (profile == ColorUtils::ProfileNone)
        profile = m_profileID;
    if (curveType == -1)
        curveType = ColorUtils::defaultCurveTypeForTonematchProfileID(profile);

    double light[3] = {storedY(), m_x, m_y};
    if (m_spec != Yxy)
        ColorUtils::convertLXColorToYxy(m_spec == Hsv ? toRgb16(true) : *this, light);

    const int count = ColorUtils::configChannelCount(configuration);
    QVector<quint16> levels(count);
    ColorUtils::convertYxyToNChannelAndApplyCurve(light, levels.data(), configuration, profile, curveType, true);

    LXColor nChannel;
    nChannel.m_spec = NChannel;
    nChannel.m_alpha = wordFrom16(alpha16());
    nChannel.m_channelConfiguration = configuration;
    nChannel.m_profileID = profile;
    nChannel.m_nChannels.resize(count);
    std::transform(levels.constBegin(), levels.constEnd(), nChannel.m_nChannels.begin(),
                   [](quint16 level) { return wordFrom16(level); });
    if (m_spec == Yxy)
        nChannel.setNChannelRenderType(NChannelColorimetric);
    else if (m_spec == NChannel)
        nChannel.setNChannelRenderType(getNChannelRenderType());
    return nChannel;
}
