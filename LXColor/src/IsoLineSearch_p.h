#ifndef ISOLINESEARCH_P_H
#define ISOLINESEARCH_P_H

#include <QPointF>

namespace lxcolor {

/**
 * Finds the first region whose locus line is crossed, between the ends of both, by the iso-temperature line of the
 * region through a point; the last region when there is none. \a onLocus receives the crossing with that region's line
 * or with its extension, and (0, 0) when the two are parallel.
 */
int regionOfIsoLineThrough(QPointF point, QPointF& onLocus);

} // namespace lxcolor

#endif
