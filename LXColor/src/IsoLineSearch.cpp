#include "CCTRegionGeometry_p.h"
#include "IsoLineSearch_p.h"

#include <array>
#include <cmath>
#include <iterator>

namespace lxcolor {

namespace {

constexpr std::size_t kRegionCount = std::size(CCTUtils::m_cctRegionTable);

/// A region's locus line as seen from its pivot.
struct SightedLine
{
    QLineF line;
    QPointF pivot;
    QPointF toFirstEnd;
    QPointF toSecondEnd;

    /// Whether both ends of the line lie well to one side of the straight through the pivot and \a point. The margin is
    /// a thousand times what rounding can take from these products and from those of QLineF::intersects(), so that no
    /// bounded intersection is left out.
    bool isBesideStraightThrough(QPointF point) const
    {
        const QPointF d = point - pivot;
        const double margin = 1e-12 * (std::fabs(d.x()) + std::fabs(d.y()));
        const double first = d.x() * toFirstEnd.y() - d.y() * toFirstEnd.x();
        const double second = d.x() * toSecondEnd.y() - d.y() * toSecondEnd.x();
        return (first > margin && second > margin) || (first < -margin && second < -margin);
    }
};

using SightedLines = std::array<SightedLine, kRegionCount>;

SightedLines sightLines()
{
    SightedLines lines;
    for (std::size_t i = 0; i < kRegionCount; ++i) {
        const CCTRegion& region = CCTUtils::m_cctRegionTable[i];
        const QLineF line = locusLine(region);
        lines[i] = {line, region.pivot, line.p1() - region.pivot, line.p2() - region.pivot};
    }
    return lines;
}

} // namespace

int regionOfIsoLineThrough(QPointF point, QPointF& onLocus)
{
    static const SightedLines lines = sightLines();
    const std::size_t last = kRegionCount - 1;
    for (std::size_t i = 0;; ++i) {
        if (i < last && lines[i].isBesideStraightThrough(point))
            continue;
        onLocus = QPointF();
        const QLineF isoLine = isoLineTowards(CCTUtils::m_cctRegionTable[i], point);
        if (isoLine.intersects(lines[i].line, &onLocus) == QLineF::BoundedIntersection || i == last)
            return static_cast<int>(i);
    }
}

} // namespace lxcolor
