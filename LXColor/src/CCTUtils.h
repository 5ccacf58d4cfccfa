#ifndef CCTUTILS_H
#define CCTUTILS_H

#include "LXColorExport.h"

#include <QLineF>
#include <QPointF>

/**
 * One stretch of the blackbody locus, in CIE 1976 u'v' (x() of a point is u', y() is v').
 *
 * Along the stretch the locus and the ends of the full positive tint are straight lines, and every iso-temperature line
 * points towards one pivot.
 */
struct CCTRegion
{
    qint32 minCCT;      ///< Kelvin; the first of the region.
    qint32 maxCCT;      ///< Kelvin; the first beyond the region.
    qint32 stepCCT;     ///< Kelvin a step.
    QPointF locusStart; ///< The locus at minCCT.
    QPointF locusEnd;   ///< The locus at maxCCT; the next region starts there.
    QPointF tintStart;  ///< The full positive tint (towards green) at minCCT.
    QPointF tintEnd;    ///< The full positive tint at maxCCT.
    QPointF pivot;      ///< Where the iso-temperature lines of the region meet.
};

/**
 * White points: correlated colour temperature and tint to chromaticity, and back. All operations are static and have no
 * state beside the table of regions.
 *
 * - *CCT*: kelvin, 1950 to 11000, in steps of 10; a value between two steps counts as the lower one.
 * - *tint*: the offset along the iso-temperature line, -32767 (towards magenta) to 32767 (towards green), where 32767
 * is the distance between locus and tint end of the region table, about 0.03 in u'v'.
 * - *u', v'*: CIE 1976 chromaticity. *x, y*: CIE 1931 chromaticity. *Duv*: distance in CIE 1960 u, v.
 *
 * No argument is undefined. A region index below 0 acts as 0, one above 21 as 21. Results in int saturate and
 * are 0 where the computation gives no number; results in double are then not finite.
 *
 * Made and read back, a white point gives the CCT of its step, and its tint to within one unit. Just above the CCTs at
 * which the pivot changes (2100, 2700, 2850, 3500, 4000, 6500, 8000 K) the lines of two regions cross beside the locus:
 * there the CCT can come back up to 30 K and a full tint up to 305 units lower.
 */
class LXCOLOR_EXPORT CCTUtils
{
public:
    /// The regions, ascending: region r covers minCCT <= CCT < maxCCT. The table reaches beyond the valid CCTs.
    static const CCTRegion m_cctRegionTable[22];

    // ---- Ranges and tests. ----

    static int getMinCCT();      ///< 1950.
    static int getMaxCCT();      ///< 11000.
    static int getMinTint();     ///< -32767.
    static int getMaxTint();     ///< 32767.
    static int getCCTStepSize(); ///< 10.
    /// Whether a CCT is within getMinCCT()..getMaxCCT().
    static bool isValidCCT(int cct);
    /// Whether \a regionIndex is the last of the table.
    static bool isMaxCCTRegionIndex(int regionIndex);
    /// Whether a CCT lies in a region.
    static bool cctIsInRegion(int cct, int regionIndex);
    /// Whether x is in 0..0.8 and y in 0..0.9.
    static bool xyAreValid(double x, double y);
    /// Whether u' and v' are in 0..0.6.
    static bool uvPrimeAreValid(double u, double v);

    // ---- Between CIE 1931 x, y and CIE 1976 u', v'. Not range-checked. ----

    static double getuPrimeFromxy(double x, double y); ///< 4x / (-2x + 12y + 3).
    static double getvPrimeFromxy(double x, double y); ///< 9y / (-2x + 12y + 3).
    static double getxFromuvPrime(double u, double v); ///< 9u' / (6u' - 16v' + 12).
    static double getyFromuvPrime(double u, double v); ///< 4v' / (6u' - 16v' + 12).

    // ---- CCT and tint to chromaticity. For a CCT out of range the outputs are 0 and the result is false; tints are
    //      not limited. ----

    /// The chromaticity, CIE 1976 u', v' or CIE 1931 x, y, of a CCT on the locus or moved by a tint.
    ///@{
    static bool getuvPrimeFromCCT(int cct, double& u, double& v);
    static bool getuvPrimeFromCCTAndTint(int cct, int tint, double& u, double& v);
    static bool getxyFromCCT(int cct, double& x, double& y);
    static bool getxyFromCCTAndTint(int cct, int tint, double& x, double& y);
    ///@}
    /// Without the range check. CCTs below the table's first region are extrapolated from the last, as are those above.
    static void getuvPrimeFromValidCCTAndTint(int cct, int tint, double& u, double& v);
    /// Moves the locus point (u, v) of a region by a tint, away from the pivot for a positive one.
    static void tintuvPrime(int regionIndex, int tint, double& u, double& v);

    // ---- Chromaticity to CCT and tint. The outputs are written when the result is true: the nearest step of the
    //      table, 1900..12500, and the tint truncated toward zero and not limited. ----

    /// False unless xyAreValid() and uvPrimeAreValid() hold for the chromaticity.
    static bool getCCTAndTintFromxy(double x, double y, int& cct, int& tint);
    /// False unless uvPrimeAreValid().
    static bool getCCTAndTintFromuvPrime(double u, double v, int& cct, int& tint);
    /// Without the range check.
    static void getCCTAndTintFromValiduvPrime(double u, double v, int& cct, int& tint);

    // ---- Within a region: iso-temperature lines. ----

    /// The line from the end of the region's locus to its start and half as far beyond.
    static QLineF getCCTRegionLine(int regionIndex);
    /// The line from the region's pivot to (u, v).
    static QLineF getPivotLine(int regionIndex, double u, double v);
    /// getPivotLine() made 0.7 long; as it is when (u, v) is the pivot.
    static QLineF getStandardLengthPivotLine(int regionIndex, double u, double v);
    /// Whether \a line crosses getCCTRegionLine() between the ends of both. \a point (may be null) receives the
    /// crossing of the two lines' extensions, unless they are parallel.
    static bool lineIntersectsRegion(QLineF line, int regionIndex, QPointF* point);
    /// Whether the lines or their extensions cross: false for parallel lines alone. \a point (may be null) receives the
    /// crossing. CCTImageUtils::linesIntersect() is the test for a crossing between the ends.
    static bool linesIntersect(QLineF a, QLineF b, QPointF* point);

    // ---- Within a region: positions. A position is 0 at the start and 1 at the end of the region's locus. ----

    /// d1 / (d1 + d2), from the distances of (u, v) to the start and the end of the region's locus.
    static double getRegionPositionFromuvPrimeAndRegion(double u, double v, int regionIndex);
    /// The CCT of the step nearest to a position.
    static int getCCTFromCCTRegionAndRegionPosition(int regionIndex, double position);
    /// The CCT of the step nearest to the position of (u, v).
    static int getCCTFromuvAndCCTRegion(double u, double v, int regionIndex);
    /**
     * The index of the step at or below a CCT, counted from the region's start.
     *
     * The quotient is rounded before the multiplication, so that sixteen multiples of 10 K (4290, 4790, 5290, 6290,
     * 7050, 7290, 7470, 7600, 7730, 8290, 8570, 8580, 9130, 9140, 9150 and 9160) fall to the step below their own.
     */
    static int getNumCCTStepsFromCCT(int regionIndex, int cct);
    /// The locus point of a CCT's step; returns the step index.
    static int getuvPrimeFromCCTRegion(int regionIndex, int cct, double& u, double& v);
    /// The locus point of a CCT's step, moved by a tint. Gives u' and v', despite its name.
    static void getxyFromCCTRegion(int regionIndex, int cct, int tint, double& u, double& v);
    /// The locus point of a step index; returns the number of steps in the region.
    static int getuvPrimeFromCCTRegionWithNumSteps(int regionIndex, int stepIndex, double& u, double& v);

    // ---- Within a region: tints. ----

    /// The full tint on the side of (u, v): getMaxTint() when it is farther from the pivot than \a locusPoint, else
    /// getMinTint().
    static int getTintEnd(double u, double v, int regionIndex, QPointF locusPoint);
    /// The tint of (u, v), measured from \a locusPoint.
    static int getTintFromuvAndIntersectionPoint(double u, double v, int regionIndex, QPointF locusPoint);
    /// The u'v' distance of the full tint at the position of (u, v).
    static double getIsoLineDuvPrime(int regionIndex, double u, double v);
    /// The u'v' distance of the full tint at a position.
    static double getIsoDuvPrimeFromCCTRegionAndRegionPosition(int regionIndex, double position);

    // ---- Distances. ----

    /// The Euclidean distance, in the coordinates of the points.
    static double getDistanceBetweenPoints(QPointF a, QPointF b);
    /// The distance of two points in u'v'.
    static double getDuvPrimeFromuvPrime(double uA, double vA, double uB, double vB);
    /// The distance of two points in CIE 1960 uv, given as u', v'.
    static double getDuvFromuvPrime(double uA, double vA, double uB, double vB);
    /// The distance of two points in CIE 1960 uv, given as x, y.
    static double getDuvFromxy(double xA, double yA, double xB, double yB);

    /**
     * A derivation aid: for each run of regions that share a pivot within the valid CCTs, crosses the iso-temperature
     * lines of its first and its last CCT. The pivots in use were adjusted since and need not lie there. Stores
     * nothing; returns the kind of the last crossing.
     */
    static QLineF::IntersectType calculateuvPivotPoints();
};

#endif
