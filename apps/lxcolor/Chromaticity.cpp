#include "Chromaticity.h"

#include "CCTUtils.h"

#include <cmath>

Chromaticity Chromaticity::of(const LXColor& color)
{
    const LXColor light = color.toYxy(ColorUtils::ConfigUnknown, ColorUtils::ProfileNone, -1);
    return {light.getx(), light.gety()};
}

bool Chromaticity::isKnown() const { return std::isfinite(x) && std::isfinite(y) && y > 0.0; }

double Chromaticity::uPrime() const { return CCTUtils::getuPrimeFromxy(x, y); }

double Chromaticity::vPrime() const { return CCTUtils::getvPrimeFromxy(x, y); }

QStringList Chromaticity::heads()
{
    return {QStringLiteral("x"), QStringLiteral("y"), QStringLiteral("u'"), QStringLiteral("v'")};
}

QStringList Chromaticity::cells() const
{
    QStringList cells;
    for (const double number : {x, y, uPrime(), vPrime()})
        cells << (isKnown() && std::isfinite(number) ? QString::number(number, 'f', 4) : QStringLiteral("-"));
    return cells;
}

QJsonObject Chromaticity::members() const
{
    const auto shown = [this](double number) { return isKnown() ? QJsonValue(number) : QJsonValue(); };
    return {{QStringLiteral("x"), shown(x)},
            {QStringLiteral("y"), shown(y)},
            {QStringLiteral("uPrime"), shown(uPrime())},
            {QStringLiteral("vPrime"), shown(vPrime())}};
}
