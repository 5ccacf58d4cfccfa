#include "CCTRegionGeometry_p.h"
#include "GamutGeometry_p.h"
#include "Rounding_p.h"

#include <cmath>
#include <iterator>

namespace lxcolor {

namespace {

constexpr double kIsoLineLength = 0.7;
constexpr double kLocusLineStretch = 1.5;

QPointF pointBetween(QPointF start, QPointF end, double position)
{
    return {start.x() + (end.x() - start.x()) * position, start.y() + (end.y() - start.y()) * position};
}

} // namespace

bool covers(const CCTRegion& region, int cct) { return cct >= region.minCCT && cct < region.maxCCT; }

int regionIndexOf(int cct)
{
    const int last = static_cast<int>(std::size(CCTUtils::m_cctRegionTable)) - 1;
    int index = 0;
    while (index < last && !covers(CCTUtils::m_cctRegionTable[index], cct))
        ++index;
    return index;
}

int stepCount(const CCTRegion& region) { return (region.maxCCT - region.minCCT) / region.stepCCT; }

int stepIndexOf(const CCTRegion& region, int cct)
{
    // In this order some multiples of the step come out just below their own index and fall to the step before.
    const double fraction = (static_cast<double>(cct) - region.minCCT) / (region.maxCCT - region.minCCT);
    return truncateToInt(std::floor(fraction * stepCount(region)));
}

QPointF locusPointOfStep(const CCTRegion& region, int stepIndex)
{
    const int steps = stepCount(region);
    return {region.locusStart.x() + (region.locusEnd.x() - region.locusStart.x()) / steps * stepIndex,
            region.locusStart.y() + (region.locusEnd.y() - region.locusStart.y()) / steps * stepIndex};
}

double positionOf(const CCTRegion& region, QPointF point)
{
    const double fromStart = distanceBetween(point, region.locusStart);
    const double fromEnd = distanceBetween(point, region.locusEnd);
    return fromStart / (fromStart + fromEnd);
}

double fullTintSpanAt(const CCTRegion& region, double position)
{
    return distanceBetween(pointBetween(region.tintStart, region.tintEnd, position),
                           pointBetween(region.locusStart, region.locusEnd, position));
}

TintLine tintLineThrough(const CCTRegion& region, QPointF locusPoint)
{
    // Pivots lie to the right of the locus and below it, where the plain arctangent leads away from the locus.
    const double slope = (region.pivot.y() - locusPoint.y()) / (region.pivot.x() - locusPoint.x());
    const double angle = std::atan(slope);
    return {locusPoint, fullTintSpanAt(region, positionOf(region, locusPoint)), std::cos(angle), std::sin(angle)};
}

QLineF locusLine(const CCTRegion& region)
{
    QLineF line(region.locusEnd, region.locusStart);
    line.setLength(line.length() * kLocusLineStretch);
    return line;
}

QLineF isoLineTowards(const CCTRegion& region, QPointF point)
{
    QLineF line(region.pivot, point);
    line.setLength(kIsoLineLength);
    return line;
}

} // namespace lxcolor
