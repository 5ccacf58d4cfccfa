#include "GamutGeometry_p.h"
#include "GamutTriangle_p.h"
#include "Select_p.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace lxcolor {

GamutTriangle::GamutTriangle(const Corners& corners)
{
    m_crossings[0] = crossingOf(corners[0], corners[1]);
    m_crossings[1] = crossingOf(corners[1], corners[2]);
    if (corners[2] != corners[0])
        m_crossings[2] = crossingOf(corners[2], corners[0]);

    for (size_t i = 0; i < corners.size(); ++i) {
        // Corners that coincide share the successor of the first of them, so the successor is looked up by value.
        size_t next = 0;
        if (corners[i] != corners.back()) {
            const auto* const first = std::find(corners.begin(), corners.end(), corners[i]);
            next = static_cast<size_t>(first - corners.begin() + 1) % corners.size();
        }
        const double l2 = lengthSquared(corners[i], corners[next]);
        const QPointF direction = corners[next] - corners[i];
        m_segments[i].from = Pair{corners[i].x(), corners[i].y()};
        m_segments[i].to = Pair{corners[next].x(), corners[next].y()};
        m_segments[i].direction = Pair{direction.x(), direction.y()};
        m_segments[i].isPoint = l2 == 0.0 ? PairMask{-1, -1} : PairMask{};
        m_segments[i].lengthSquared = l2;
    }
}

// Horizontal edges count as never crossed; of the two ends of an edge only the lower belongs to it.
GamutTriangle::Crossing GamutTriangle::crossingOf(QPointF from, QPointF to)
{
    if (qFuzzyCompare(from.y(), to.y()))
        return {};
    if (to.y() < from.y())
        std::swap(from, to);
    return {from, to.y(), (to.x() - from.x()) / (to.y() - from.y())};
}

// Both are for requests of which nobody can foresee where they lie, so they decide without branches.

bool GamutTriangle::contains(QPointF p) const
{
    bool inside = false;
    for (const Crossing& edge : m_crossings) {
        const bool isAbove = p.y() >= edge.low.y();
        const bool isBelow = p.y() < edge.highY;
        const bool isLeft = edge.low.x() + edge.slope * (p.y() - edge.low.y()) <= p.x();
        inside ^= isAbove & isBelow & isLeft;
    }
    return inside;
}

QPointF GamutTriangle::closestOnBoundary(QPointF point) const
{
    const Pair p = {point.x(), point.y()};
    Pair closest[3] = {};
    double distance[3] = {};
    for (size_t i = 0; i < m_segments.size(); ++i) {
        const Segment& edge = m_segments[i];
        const Pair along = (p - edge.from) * edge.direction;
        const double t = (along[0] + along[1]) / edge.lengthSquared;
        const Pair ts = {t, t};
        const auto isBefore = (ts < 0.0) | edge.isPoint;
        const auto isBeyond = (ts > 1.0) & ~edge.isPoint;
        const Pair foot = edge.from + ts * edge.direction;
        select(isBefore, edge.from, foot, closest[i]);
        select(isBeyond, edge.to, closest[i], closest[i]);
        const Pair d = (p - closest[i]) * (p - closest[i]);
        distance[i] = std::sqrt(d[0] + d[1]);
    }
    size_t best = distance[0] > distance[1] ? 1 : 0;
    best = distance[best] > distance[2] ? 2 : best;
    return {closest[best][0], closest[best][1]};
}

void GamutTriangle::moveInside(Yxy* lights, int count) const
{
    for (int i = 0; i < count; ++i) {
        const QPointF p(lights[i].xy.x, lights[i].xy.y);
        if (contains(p))
            continue;
        const QPointF closest = closestOnBoundary(p);
        lights[i].xy = {closest.x(), closest.y()};
    }
}

} // namespace lxcolor
