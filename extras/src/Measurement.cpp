#include "Measurement_p.h"

#include <algorithm>
#include <cmath>

namespace lxcolor {

namespace {

// What a database can hold, and matching can work with.
constexpr double kLeastLight = 1e-12;
constexpr double kMostLight = 1e12;

} // namespace

StandardObserver::XYZ inBounds(StandardObserver::XYZ light, TextPlace place)
{
    if (!(light.Y >= kLeastLight && std::max({light.X, light.Y, light.Z}) <= kMostLight))
        throw InputFault{FixtureImport::tr("X, Y and Z have to be from %1 to %2").arg(kLeastLight).arg(kMostLight),
                         place};
    return light;
}

StandardObserver::XYZ lightOf(double x, double y, double Y, TextPlace place)
{
    constexpr double kRounding = 1e-3; // of x + y, each of which may be rounded up
    if (!(x >= 0.0 && y > 0.0 && x + y <= 1.0 + kRounding))
        throw InputFault{FixtureImport::tr("No light has the chromaticity %1, %2").arg(x).arg(y), place};
    if (!(Y > 0.0 && std::isfinite(Y)))
        throw InputFault{FixtureImport::tr("Y has to be above 0, but is %1").arg(Y), place};
    return inBounds({x / y * Y, Y, std::max(0.0, 1.0 - x - y) / y * Y}, place);
}

StandardObserver::XYZ checkedLight(StandardObserver::XYZ light, const QString& name, TextPlace place,
                                   QStringList& remarks)
{
    constexpr double kNoise = 0.005; // as a part of Y
    if (!(light.Y > 0.0 && std::isfinite(light.X + light.Y + light.Z)))
        throw InputFault{FixtureImport::tr("%1 gives no light: Y is %2").arg(name, QString::number(light.Y)), place};
    for (double* value : {&light.X, &light.Z}) {
        if (*value < -kNoise * light.Y)
            throw InputFault{FixtureImport::tr("%1 has a negative X or Z, which no light has").arg(name), place};
        if (*value < 0.0)
            remarks << FixtureImport::tr("%1: X or Z is a little below 0 and becomes 0.").arg(name);
        *value = std::max(*value, 0.0);
    }
    return inBounds(light, place);
}

StandardObserver::XYZ lightOf(QVector<QPointF> spectrum, TextPlace place)
{
    std::sort(spectrum.begin(), spectrum.end(), [](QPointF a, QPointF b) { return a.x() < b.x(); });
    bool isUsable = false;
    const StandardObserver::XYZ light = StandardObserver::ofSpectrum(spectrum, &isUsable);
    if (!isUsable)
        throw InputFault{FixtureImport::tr("A spectrum needs two samples or more, at wavelengths that differ"), place};
    if (spectrum.first().x() >= StandardObserver::lastWavelength ||
        spectrum.last().x() <= StandardObserver::firstWavelength)
        throw InputFault{FixtureImport::tr("The wavelengths %1 to %2 are none of visible light in nanometres")
                             .arg(spectrum.first().x())
                             .arg(spectrum.last().x()),
                         place};
    return light;
}

QString describedSpectrum(const QVector<QPointF>& spectrum)
{
    const auto range =
        std::minmax_element(spectrum.cbegin(), spectrum.cend(), [](QPointF a, QPointF b) { return a.x() < b.x(); });
    return QStringLiteral("%1 samples from %2 to %3 nm, CIE 1931 2-degree observer")
        .arg(spectrum.size())
        .arg(range.first->x())
        .arg(range.second->x());
}

QString describedChromaticity(const StandardObserver::XYZ& light)
{
    const QPointF xy = light.xy();
    return QStringLiteral("x %1, y %2").arg(xy.x(), 0, 'f', 4).arg(xy.y(), 0, 'f', 4);
}

} // namespace lxcolor
