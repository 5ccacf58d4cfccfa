#include "GamutGeometry_p.h"

#include <cmath>

namespace lxcolor {

double lengthSquared(QPointF a, QPointF b)
{
    const double dx = a.x() - b.x();
    const double dy = a.y() - b.y();
    return std::fabs(dx * dx + dy * dy);
}

double distanceBetween(QPointF a, QPointF b) { return std::sqrt(lengthSquared(a, b)); }

double dotProduct(QPointF a, QPointF b) { return a.x() * b.x() + a.y() * b.y(); }

double distanceToSegment(QPointF v, QPointF w, QPointF p, QPointF& closest)
{
    const double l2 = lengthSquared(v, w);
    if (l2 == 0.0) {
        closest = v;
        return distanceBetween(p, v);
    }
    const double t = dotProduct(p - v, w - v) / l2;
    if (t < 0.0)
        closest = v;
    else if (t > 1.0)
        closest = w;
    else
        closest = v + t * (w - v);
    return distanceBetween(p, closest);
}

} // namespace lxcolor
