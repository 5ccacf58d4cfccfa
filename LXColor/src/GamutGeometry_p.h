#ifndef GAMUTGEOMETRY_P_H
#define GAMUTGEOMETRY_P_H

#include <QPointF>

// Points and segments in a chromaticity diagram.
namespace lxcolor {

double lengthSquared(QPointF a, QPointF b);
double distanceBetween(QPointF a, QPointF b);
double dotProduct(QPointF a, QPointF b);

/// Distance from \a p to the segment \a v - \a w; \a closest receives the segment's point nearest to \a p.
double distanceToSegment(QPointF v, QPointF w, QPointF p, QPointF& closest);

} // namespace lxcolor

#endif
