#include "GamutGeometry_p.h"
#include "GamutTriangle_p.h"

#include <algorithm>
#include <utility>

namespace lxcolor {

GamutTriangle::GamutTriangle(const Corners& corners)
{
    addCrossing(corners[0], corners[1]);
    addCrossing(corners[1], corners[2]);
    if (corners[2] != corners[0])
        addCrossing(corners[2], corners[0]);

    for (size_t i = 0; i < corners.size(); ++i) {
        // Corners that coincide share the successor of the first of them, so the successor is looked up by value.
        size_t next = 0;
        if (corners[i] != corners.back()) {
            const auto* const first = std::find(corners.begin(), corners.end(), corners[i]);
            next = static_cast<size_t>(first - corners.begin() + 1) % corners.size();
        }
        m_segments[i] = {corners[i], corners[next], corners[next] - corners[i],
                         lengthSquared(corners[i], corners[next])};
    }
}

// Horizontal edges count as never crossed; of the two ends of an edge only the lower belongs to it.
void GamutTriangle::addCrossing(QPointF from, QPointF to)
{
    if (qFuzzyCompare(from.y(), to.y()))
        return;
    if (to.y() < from.y())
        std::swap(from, to);
    m_crossings[static_cast<size_t>(m_crossingCount++)] = {from, to.y(), (to.x() - from.x()) / (to.y() - from.y())};
}

bool GamutTriangle::contains(QPointF p) const
{
    bool inside = false;
    for (int i = 0; i < m_crossingCount; ++i) {
        const Crossing& edge = m_crossings[static_cast<size_t>(i)];
        inside ^=
            p.y() >= edge.low.y() && p.y() < edge.highY && edge.low.x() + edge.slope * (p.y() - edge.low.y()) <= p.x();
    }
    return inside;
}

QPointF GamutTriangle::closestOnBoundary(QPointF p) const
{
    QPointF closest;
    double best = -1.0;
    for (const Segment& edge : m_segments) {
        QPointF candidate = edge.from;
        if (edge.lengthSquared != 0.0) {
            const double t = dotProduct(p - edge.from, edge.direction) / edge.lengthSquared;
            if (t > 1.0)
                candidate = edge.to;
            else if (!(t < 0.0))
                candidate = edge.from + t * edge.direction;
        }
        const double d = distanceBetween(p, candidate);
        if (best == -1.0 || best > d) {
            best = d;
            closest = candidate;
        }
    }
    return closest;
}

} // namespace lxcolor
