#ifndef CCTREGIONGEOMETRY_P_H
#define CCTREGIONGEOMETRY_P_H

#include "CCTUtils.h"

// The arithmetic within one region of the white-point table, in u'v'.
namespace lxcolor {

/// A locus point with the iso-temperature line through it: all that its tints need.
struct TintLine
{
    QPointF locusPoint;
    double fullTintSpan; ///< The distance of the full tint.
    double cosine;       ///< Of the line's angle.
    double sine;

    /// The point of a tint, where a ratio of 1.0 is the full tint towards green.
    QPointF pointAt(double ratioOfFullTint) const
    {
        const double offset = fullTintSpan * ratioOfFullTint;
        return {locusPoint.x() - cosine * offset, locusPoint.y() - sine * offset};
    }
};

constexpr int kMinValidCCT = 1950;
constexpr int kMaxValidCCT = 11000;

bool covers(const CCTRegion& region, int cct);
/// The index of the region of a CCT; the last one also for a CCT that no region covers.
int regionIndexOf(int cct);

int stepCount(const CCTRegion& region);
/// The index of the step at or below a CCT.
int stepIndexOf(const CCTRegion& region, int cct);
QPointF locusPointOfStep(const CCTRegion& region, int stepIndex);

/// 0 at the start and 1 at the end of the region's locus.
double positionOf(const CCTRegion& region, QPointF point);
double fullTintSpanAt(const CCTRegion& region, double position);
TintLine tintLineThrough(const CCTRegion& region, QPointF locusPoint);

/// The locus from its end to its start and half as far beyond.
QLineF locusLine(const CCTRegion& region);
/// From the pivot towards \a point, 0.7 long; as it is when \a point is the pivot.
QLineF isoLineTowards(const CCTRegion& region, QPointF point);

} // namespace lxcolor

#endif
