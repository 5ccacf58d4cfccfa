#ifndef GAMUTTRIANGLE_P_H
#define GAMUTTRIANGLE_P_H

#include "Chromaticity_p.h"

#include <QPointF>

#include <array>

namespace lxcolor {

/// The triangle of a fixture's red, green and blue in the chromaticity diagram, with all that does not depend on a
/// request worked out beforehand. The corners may have any values.
class GamutTriangle
{
public:
    using Corners = std::array<QPointF, 3>;

    explicit GamutTriangle(const Corners& corners);

    /// The answer is that of QPolygonF::containsPoint() with Qt::OddEvenFill, on and beside edges and corners too.
    bool contains(QPointF p) const;
    /// The point of the boundary nearest to \a p; of equally near edges the first.
    QPointF closestOnBoundary(QPointF p) const;
    /// Moves the chromaticities that it does not contain to the nearest ones of the boundary.
    void moveInside(Yxy* lights, int count) const;

private:
    /// An edge as a ray towards smaller x meets it; as it is by default, no ray does.
    struct Crossing
    {
        QPointF low;
        double highY = 0.0;
        double slope = 0.0; ///< Of x over y.
    };
    /// x and y side by side, and a decision for both.
    using Pair = double __attribute__((vector_size(16)));
    using PairMask = decltype(Pair() < Pair());
    /// An edge as a segment that points are projected onto.
    struct Segment
    {
        Pair from;
        Pair to;
        Pair direction;
        PairMask isPoint; ///< Without length.
        double lengthSquared;
    };

    static Crossing crossingOf(QPointF from, QPointF to);

    std::array<Crossing, 3> m_crossings;
    std::array<Segment, 3> m_segments;
};

} // namespace lxcolor

#endif
