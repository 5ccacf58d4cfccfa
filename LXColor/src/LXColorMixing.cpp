#include "DebugOutput_p.h"
#include "LXColor.h"

#include <QDebug>
#include <QLinearGradient>

namespace {

/// The RGB reading of a colour of any face.
struct Reading
{
    double red = 0.0;
    double green = 0.0;
    double blue = 0.0;
    double alpha = 0.0;

    explicit Reading(const LXColor& color) { color.getRgbF(&red, &green, &blue, &alpha); }
};

/// Whether a colour means a chromaticity, which a mix with it has to keep.
bool isColorimetric(const LXColor& color)
{
    return color.spec() == LXColor::Yxy ||
           (color.spec() == LXColor::NChannel && color.getNChannelRenderType() == LXColor::NChannelColorimetric);
}

/// The Yxy face for the fixture that \a reference belongs to.
LXColor toYxyAs(const LXColor& reference, const LXColor& color)
{
    return color.toYxy(reference.getChannelConfiguration(), reference.getTonematchProfileID(), -1);
}

LXColor withAlpha(LXColor color, double alpha)
{
    color.setAlphaF(alpha);
    return color;
}

/// An N-channel colour with its levels mapped.
template <typename Map>
LXColor withLevels(const LXColor& color, Map map)
{
    QVector<double> alphaAndLevels;
    color.getNChannelF(&alphaAndLevels, nullptr, nullptr);
    for (int i = 1; i < alphaAndLevels.size(); ++i)
        alphaAndLevels[i] = map(alphaAndLevels[i]);
    LXColor result =
        LXColor::fromNChannelF(alphaAndLevels, color.getChannelConfiguration(), color.getTonematchProfileID());
    result.setNChannelRenderType(color.getNChannelRenderType());
    return result;
}

} // namespace

LXColor LXColor::blend(const LXColor& a, const LXColor& b, double t)
{
    if (t == 0.0 || t == 1.0) {
        if (lxcolor::isDebugOutputOn())
            qDebug("not doing blend \n");
        return t == 0.0 ? b : a;
    }
    const Reading ra(a);
    const Reading rb(b);
    const double u = 1 - t;
    LXColor rgb = fromRgbF(
        rb.red * u * rb.alpha + ra.red * t * ra.alpha, rb.green * u * rb.alpha + ra.green * t * ra.alpha,
        rb.blue * u * rb.alpha + ra.blue * t * ra.alpha, u * rb.alpha + ra.alpha * t, ColorUtils::ProfileGenericRGB);
    if (!isColorimetric(a) && !isColorimetric(b))
        return rgb;

    LXColor mixed = toYxyAs(isColorimetric(a) ? a : b, rgb);
    if (lxcolor::isDebugOutputOn())
        qDebug() << "LXColor::blend: Yxy" << mixed.getY() << mixed.getx() << mixed.gety();
    return mixed;
}

LXColor LXColor::mix(const LXColor& a, const LXColor& b)
{
    const double alpha = a.alphaF();
    if (alpha == 1.0)
        return a;
    if (alpha == 0.0)
        return b;
    return isColorimetric(a) || isColorimetric(b) ? mixColorsxy(a, b) : mixColorsRGB(a, b);
}

LXColor LXColor::mixColorsRGB(const LXColor& a, const LXColor& b)
{
    const Reading ra(a);
    const Reading rb(b);
    const double alpha = ra.alpha;
    return fromRgbF(ra.red * alpha + rb.red * (1 - alpha), ra.green * alpha + rb.green * (1 - alpha),
                    ra.blue * alpha + rb.blue * (1 - alpha), alpha + (1 - alpha) * rb.alpha,
                    ColorUtils::ProfileGenericRGB);
}

LXColor LXColor::mixColorsxy(const LXColor& a, const LXColor& b) { return toYxyAs(a, mixColorsRGB(a, b)); }

LXColor LXColor::premultiply(const LXColor& c)
{
    const double alpha = c.alphaF();
    if (c.spec() == NChannel)
        return withLevels(c, [alpha](double level) { return level * alpha; });
    if (c.spec() == Yxy)
        return withAlpha(fromxyY(alpha * c.getx(), alpha * c.gety(), alpha * c.getY(), ColorUtils::ProfileGenericRGB),
                         alpha);
    const Reading r(c);
    return fromRgbF(alpha * r.red, alpha * r.green, alpha * r.blue, alpha, ColorUtils::ProfileGenericRGB);
}

LXColor LXColor::unpremultiply(const LXColor& c)
{
    const double alpha = c.alphaF();
    if (alpha == 0.0)
        return c;
    if (c.spec() == NChannel)
        return withLevels(c, [alpha](double level) { return level / alpha; });
    if (c.spec() == Yxy)
        return withAlpha(fromxyY(c.getx() / alpha, c.gety() / alpha, c.getY() / alpha, ColorUtils::ProfileGenericRGB),
                         alpha);
    const Reading r(c);
    return fromRgbF(r.red / alpha, r.green / alpha, r.blue / alpha, alpha, ColorUtils::ProfileGenericRGB);
}

LXColor LXColor::colorFromGradient(const QLinearGradient& g, double pos)
{
    const QGradientStops stops = g.stops();
    for (int i = 0; i + 1 < stops.size(); ++i) {
        const QGradientStop& from = stops.at(i);
        const QGradientStop& to = stops.at(i + 1);
        if (!(from.first <= pos && pos <= to.first))
            continue;
        LXColor first(from.second);
        const LXColor second(to.second);
        if (first == second)
            return first;
        return blend(first, second, 1 - (pos - from.first) / (to.first - from.first));
    }
    return stops.isEmpty() ? LXColor() : LXColor(stops.constLast().second);
}
