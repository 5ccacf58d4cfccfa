#include "FixtureGamut.h"

#include "CCTUtils.h"
#include "GamutSide_p.h"
#include "StandardObserver.h"
#include "Tristimulus.h"
#include "TristimulusFactory.h"

#include <QJsonArray>

#include <algorithm>
#include <cmath>

namespace {

using Corner = FixtureGamut::Corner;

bool isFinite(QPointF p) { return std::isfinite(p.x()) && std::isfinite(p.y()); }

QPointF toUvPrime(QPointF xy)
{
    return {CCTUtils::getuPrimeFromxy(xy.x(), xy.y()), CCTUtils::getvPrimeFromxy(xy.x(), xy.y())};
}

/// Null for what is not a number.
QJsonValue numberOrNull(double number) { return std::isfinite(number) ? QJsonValue(number) : QJsonValue(); }

QJsonObject chromaticityMembers(QPointF xy)
{
    const QPointF uv = toUvPrime(xy);
    return {{QStringLiteral("x"), numberOrNull(xy.x())},
            {QStringLiteral("y"), numberOrNull(xy.y())},
            {QStringLiteral("uPrime"), numberOrNull(uv.x())},
            {QStringLiteral("vPrime"), numberOrNull(uv.y())}};
}

/// Twice the area of a triangle, above 0 when it turns counter-clockwise.
double turn(QPointF a, QPointF b, QPointF c)
{
    return (b.x() - a.x()) * (c.y() - a.y()) - (b.y() - a.y()) * (c.x() - a.x());
}

/// Whether the middle one of three points lies to the right of the straight line, by more than rounding.
bool bulges(QPointF a, QPointF middle, QPointF c)
{
    return turn(a, middle, c) > lxcolor::kGamutTolerance * std::hypot(c.x() - a.x(), c.y() - a.y());
}

bool isSame(const Corner& a, const Corner& b) { return a.name == b.name && a.xy == b.xy; }

/// By the shoelace formula, in u'v'.
double areaOf(const QVector<Corner>& corners)
{
    double twice = 0.0;
    for (int i = 0; i < corners.size(); ++i) {
        const QPointF a = corners[i].uvPrime();
        const QPointF b = corners[(i + 1) % corners.size()].uvPrime();
        twice += a.x() * b.y() - a.y() * b.x();
    }
    return std::abs(twice) / 2.0;
}

/// The convex hull by Andrew's monotone chain, counter-clockwise. Lines stay straight from x, y to u', v', so it is
/// that of either plane.
QVector<Corner> convexHullOf(QVector<Corner> corners)
{
    corners.erase(std::remove_if(corners.begin(), corners.end(), [](const Corner& c) { return !isFinite(c.xy); }),
                  corners.end());
    if (corners.isEmpty())
        return {};
    const QVector<Corner> inChannelOrder = corners;
    std::stable_sort(corners.begin(), corners.end(), [](const Corner& a, const Corner& b) {
        return a.xy.x() < b.xy.x() || (a.xy.x() == b.xy.x() && a.xy.y() < b.xy.y());
    });
    const auto isTogether = [](const Corner& a, const Corner& b) {
        return a.xy.x() == b.xy.x() && a.xy.y() == b.xy.y();
    };
    corners.erase(std::unique(corners.begin(), corners.end(), isTogether), corners.end());
    const auto chain = [](const QVector<Corner>& sorted) {
        QVector<Corner> kept;
        for (const Corner& corner : sorted) {
            while (kept.size() >= 2 && !bulges(kept[kept.size() - 2].xy, kept.last().xy, corner.xy))
                kept.removeLast();
            kept.append(corner);
        }
        return kept;
    };
    QVector<Corner> hull = chain(corners);
    std::reverse(corners.begin(), corners.end());
    const QVector<Corner> upper = chain(corners);
    hull.removeLast();
    hull += upper.mid(0, upper.size() - 1);
    const auto start =
        std::find_first_of(inChannelOrder.begin(), inChannelOrder.end(), hull.begin(), hull.end(), isSame);
    std::rotate(hull.begin(),
                std::find_if(hull.begin(), hull.end(), [&](const Corner& c) { return isSame(c, *start); }), hull.end());
    return hull;
}

/// Whether a point lies in a convex polygon that turns counter-clockwise, or within the tolerance of its boundary.
bool isWithin(const QVector<Corner>& hull, QPointF xy)
{
    if (hull.size() < 3)
        return false;
    for (int i = 0; i < hull.size(); ++i) {
        const QPointF from = hull[i].xy;
        const QPointF to = hull[(i + 1) % hull.size()].xy;
        const double length = std::hypot(to.x() - from.x(), to.y() - from.y());
        if (!(turn(from, to, xy) >= -lxcolor::kGamutTolerance * length))
            return false;
    }
    return true;
}

QVector<Corner> emittersOf(ColorUtils::TonematchProfileID profile)
{
    const auto layout = ColorUtils::nChannelConfigurationForTonematchProfileID(profile);
    if (ColorUtils::configChannelCount(layout) < 3)
        return {};
    Tristimulus* record = TristimulusFactory::getInstance()->getTristimulus(profile, layout);
    const QStringList names = record->getChannelNames();
    const QVector<double>& X = record->getX();
    const QVector<double>& Y = record->getY();
    const QVector<double>& Z = record->getZ();
    QVector<Corner> emitters;
    for (int i = 0; i < std::min({X.size(), Y.size(), Z.size()}); ++i)
        emitters.append({names.value(i), StandardObserver::XYZ{X.at(i), Y.at(i), Z.at(i)}.xy()});
    return emitters;
}

} // namespace

QPointF FixtureGamut::Corner::uvPrime() const { return toUvPrime(xy); }

QJsonObject FixtureGamut::Corner::toJson() const
{
    QJsonObject object = chromaticityMembers(xy);
    object.insert(QStringLiteral("name"), name);
    return object;
}

QString FixtureGamut::Place::sideInWords() const { return lxcolor::sideInWords(side); }

QJsonObject FixtureGamut::Place::toJson() const
{
    return {{QStringLiteral("inside"), inside},
            {QStringLiteral("insideHull"), insideHull},
            {QStringLiteral("side"), lxcolor::sideKey(side)},
            {QStringLiteral("distance"), numberOrNull(distance)},
            {QStringLiteral("nearest"), chromaticityMembers(nearest)}};
}

FixtureGamut::FixtureGamut(ColorUtils::TonematchProfileID profile)
{
    const QVector<Corner> emitters = emittersOf(profile);
    if (emitters.size() < 3)
        return;
    m_triangle = emitters.mid(0, 3);
    m_hull = convexHullOf(emitters);
}

bool FixtureGamut::reachesBeyondTriangle() const
{
    const QVector<Corner> triangle = convexHullOf(m_triangle);
    return std::any_of(m_hull.begin(), m_hull.end(),
                       [&](const Corner& corner) { return !isWithin(triangle, corner.xy); });
}

double FixtureGamut::triangleArea() const { return areaOf(m_triangle); }

double FixtureGamut::hullArea() const { return areaOf(m_hull); }

double FixtureGamut::srgbArea()
{
    return areaOf({{QString(), {0.64, 0.33}}, {QString(), {0.30, 0.60}}, {QString(), {0.15, 0.06}}});
}

FixtureGamut::Place FixtureGamut::placeOf(QPointF xy) const
{
    Place place;
    place.nearest = {MatchReport::none, MatchReport::none};
    if (isEmpty() || !isFinite(xy))
        return place;
    place.insideHull = isWithin(m_hull, xy);
    place.inside = isWithin(convexHullOf(m_triangle), xy);
    if (place.inside) {
        place.nearest = xy;
        place.distance = 0.0;
        return place;
    }
    double least = 0.0;
    for (int i = 0; i < 3; ++i) {
        QPointF closest;
        const double away = ColorUtils::minDistance(m_triangle[i].xy, m_triangle[(i + 1) % 3].xy, xy, closest);
        if (i > 0 && !(away < least))
            continue;
        least = away;
        place.nearest = closest;
    }
    place.distance = lxcolor::uvPrimeDistance(xy, place.nearest);
    place.side = lxcolor::nearestSide({m_triangle[0].xy, m_triangle[1].xy, m_triangle[2].xy}, xy);
    return place;
}
