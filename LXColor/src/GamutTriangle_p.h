#ifndef GAMUTTRIANGLE_P_H
#define GAMUTTRIANGLE_P_H

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

private:
    /// An edge as a ray towards smaller x meets it.
    struct Crossing
    {
        QPointF low;
        double highY;
        double slope; ///< Of x over y.
    };
    /// An edge as a segment that points are projected onto.
    struct Segment
    {
        QPointF from;
        QPointF to;
        QPointF direction;
        double lengthSquared;
    };

    void addCrossing(QPointF from, QPointF to);

    std::array<Crossing, 3> m_crossings;
    int m_crossingCount = 0;
    std::array<Segment, 3> m_segments;
};

} // namespace lxcolor

#endif
