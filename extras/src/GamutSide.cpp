#include "CCTUtils.h"
#include "ColorUtils.h"
#include "GamutSide_p.h"

#include <cmath>

namespace lxcolor {

using Side = MatchReport::GamutSide;

namespace {

constexpr std::array<Side, 3> kCorners = {Side::RedCorner, Side::GreenCorner, Side::BlueCorner};
constexpr std::array<Side, 3> kEdges = {Side::RedGreen, Side::GreenBlue, Side::BlueRed}; // each from its own corner

bool areTogether(QPointF a, QPointF b) { return std::hypot(a.x() - b.x(), a.y() - b.y()) <= kGamutTolerance; }

} // namespace

Side nearestSide(const std::array<QPointF, 3>& corners, QPointF xy)
{
    Side side = Side::None;
    double least = 0.0;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const std::size_t next = (i + 1) % corners.size();
        QPointF closest;
        const double away = ColorUtils::minDistance(corners[i], corners[next], xy, closest);
        if (i > 0 && !(away < least))
            continue;
        least = away;
        if (areTogether(closest, corners[i]))
            side = kCorners[i];
        else if (areTogether(closest, corners[next]))
            side = kCorners[next];
        else
            side = kEdges[i];
    }
    return side;
}

QString sideKey(Side side)
{
    switch (side) {
    case Side::RedGreen:
        return QStringLiteral("redGreen");
    case Side::GreenBlue:
        return QStringLiteral("greenBlue");
    case Side::BlueRed:
        return QStringLiteral("blueRed");
    case Side::RedCorner:
        return QStringLiteral("red");
    case Side::GreenCorner:
        return QStringLiteral("green");
    case Side::BlueCorner:
        return QStringLiteral("blue");
    default:
        return QStringLiteral("none");
    }
}

QString sideInWords(Side side)
{
    switch (side) {
    case Side::RedGreen:
        return MatchReport::tr("the red-green edge");
    case Side::GreenBlue:
        return MatchReport::tr("the green-blue edge");
    case Side::BlueRed:
        return MatchReport::tr("the blue-red edge");
    case Side::RedCorner:
        return MatchReport::tr("the red corner");
    case Side::GreenCorner:
        return MatchReport::tr("the green corner");
    case Side::BlueCorner:
        return MatchReport::tr("the blue corner");
    default:
        return MatchReport::tr("the gamut");
    }
}

double uvPrimeDistance(QPointF xyA, QPointF xyB)
{
    const bool areFinite =
        std::isfinite(xyA.x()) && std::isfinite(xyA.y()) && std::isfinite(xyB.x()) && std::isfinite(xyB.y());
    if (!areFinite)
        return MatchReport::none;
    return CCTUtils::getDuvPrimeFromuvPrime(
        CCTUtils::getuPrimeFromxy(xyA.x(), xyA.y()), CCTUtils::getvPrimeFromxy(xyA.x(), xyA.y()),
        CCTUtils::getuPrimeFromxy(xyB.x(), xyB.y()), CCTUtils::getvPrimeFromxy(xyB.x(), xyB.y()));
}

} // namespace lxcolor
