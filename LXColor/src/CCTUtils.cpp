#include "CCTUtils.h"

#include "CCTRegionGeometry_p.h"
#include "GamutGeometry_p.h"
#include "IsoLineSearch_p.h"
#include "Rounding_p.h"
#include "TintLineTable_p.h"

#include <cmath>
#include <iterator>

using namespace lxcolor;

namespace {

constexpr int kCCTStep = 10;
constexpr int kFullTint = 32767;
constexpr int kLastRegion = static_cast<int>(std::size(CCTUtils::m_cctRegionTable)) - 1;
constexpr double kVPrimePerV = 1.5; // v' of CIE 1976 in v of CIE 1960

bool isWithin(double value, double low, double high) { return value >= low && value <= high; }

const CCTRegion& regionAt(int index) { return CCTUtils::m_cctRegionTable[qBound(0, index, kLastRegion)]; }

double ratioOfFullTint(int tint) { return tint / static_cast<double>(kFullTint); }

} // namespace

// ---- Ranges and tests ----

int CCTUtils::getMinCCT() { return kMinValidCCT; }
int CCTUtils::getMaxCCT() { return kMaxValidCCT; }
int CCTUtils::getMinTint() { return -kFullTint; }
int CCTUtils::getMaxTint() { return kFullTint; }
int CCTUtils::getCCTStepSize() { return kCCTStep; }

bool CCTUtils::isValidCCT(int cct) { return cct >= kMinValidCCT && cct <= kMaxValidCCT; }

bool CCTUtils::isMaxCCTRegionIndex(int regionIndex) { return regionIndex == kLastRegion; }

bool CCTUtils::cctIsInRegion(int cct, int regionIndex) { return covers(regionAt(regionIndex), cct); }

bool CCTUtils::xyAreValid(double x, double y) { return isWithin(x, 0.0, 0.8) && isWithin(y, 0.0, 0.9); }

bool CCTUtils::uvPrimeAreValid(double u, double v) { return isWithin(u, 0.0, 0.6) && isWithin(v, 0.0, 0.6); }

// ---- Between CIE 1931 x, y and CIE 1976 u', v' ----

double CCTUtils::getuPrimeFromxy(double x, double y) { return 4.0 * x / (-2.0 * x + 12.0 * y + 3.0); }
double CCTUtils::getvPrimeFromxy(double x, double y) { return 9.0 * y / (-2.0 * x + 12.0 * y + 3.0); }
double CCTUtils::getxFromuvPrime(double u, double v) { return 9.0 * u / (6.0 * u - 16.0 * v + 12.0); }
double CCTUtils::getyFromuvPrime(double u, double v) { return 4.0 * v / (6.0 * u - 16.0 * v + 12.0); }

// ---- CCT and tint to chromaticity ----

bool CCTUtils::getuvPrimeFromCCT(int cct, double& u, double& v) { return getuvPrimeFromCCTAndTint(cct, 0, u, v); }

bool CCTUtils::getuvPrimeFromCCTAndTint(int cct, int tint, double& u, double& v)
{
    if (!isValidCCT(cct)) {
        u = v = 0.0;
        return false;
    }
    getuvPrimeFromValidCCTAndTint(cct, tint, u, v);
    return true;
}

bool CCTUtils::getxyFromCCT(int cct, double& x, double& y) { return getxyFromCCTAndTint(cct, 0, x, y); }

bool CCTUtils::getxyFromCCTAndTint(int cct, int tint, double& x, double& y)
{
    double u = 0.0;
    double v = 0.0;
    if (!getuvPrimeFromCCTAndTint(cct, tint, u, v)) {
        x = y = 0.0;
        return false;
    }
    x = getxFromuvPrime(u, v);
    y = getyFromuvPrime(u, v);
    return true;
}

void CCTUtils::getuvPrimeFromValidCCTAndTint(int cct, int tint, double& u, double& v)
{
    if (!isValidCCT(cct)) {
        getxyFromCCTRegion(regionIndexOf(cct), cct, tint, u, v);
        return;
    }
    const QPointF point = tintLineOfValidCCT(cct).pointAt(ratioOfFullTint(tint));
    u = point.x();
    v = point.y();
}

void CCTUtils::tintuvPrime(int regionIndex, int tint, double& u, double& v)
{
    if (tint == 0)
        return;
    const QPointF point = tintLineThrough(regionAt(regionIndex), QPointF(u, v)).pointAt(ratioOfFullTint(tint));
    u = point.x();
    v = point.y();
}

// ---- Chromaticity to CCT and tint ----

bool CCTUtils::getCCTAndTintFromxy(double x, double y, int& cct, int& tint)
{
    return xyAreValid(x, y) && getCCTAndTintFromuvPrime(getuPrimeFromxy(x, y), getvPrimeFromxy(x, y), cct, tint);
}

bool CCTUtils::getCCTAndTintFromuvPrime(double u, double v, int& cct, int& tint)
{
    if (!uvPrimeAreValid(u, v))
        return false;
    getCCTAndTintFromValiduvPrime(u, v, cct, tint);
    return true;
}

void CCTUtils::getCCTAndTintFromValiduvPrime(double u, double v, int& cct, int& tint)
{
    QPointF onLocus;
    const int regionIndex = regionOfIsoLineThrough(QPointF(u, v), onLocus);
    cct = getCCTFromuvAndCCTRegion(onLocus.x(), onLocus.y(), regionIndex);
    tint = getTintFromuvAndIntersectionPoint(u, v, regionIndex, onLocus);
}

// ---- Within a region: iso-temperature lines ----

QLineF CCTUtils::getCCTRegionLine(int regionIndex) { return locusLine(regionAt(regionIndex)); }

QLineF CCTUtils::getPivotLine(int regionIndex, double u, double v)
{
    return {regionAt(regionIndex).pivot, QPointF(u, v)};
}

QLineF CCTUtils::getStandardLengthPivotLine(int regionIndex, double u, double v)
{
    return isoLineTowards(regionAt(regionIndex), QPointF(u, v));
}

bool CCTUtils::lineIntersectsRegion(QLineF line, int regionIndex, QPointF* point)
{
    return line.intersects(getCCTRegionLine(regionIndex), point) == QLineF::BoundedIntersection;
}

bool CCTUtils::linesIntersect(QLineF a, QLineF b, QPointF* point)
{
    return a.intersects(b, point) != QLineF::NoIntersection;
}

// ---- Within a region: positions ----

double CCTUtils::getRegionPositionFromuvPrimeAndRegion(double u, double v, int regionIndex)
{
    return positionOf(regionAt(regionIndex), QPointF(u, v));
}

int CCTUtils::getCCTFromCCTRegionAndRegionPosition(int regionIndex, double position)
{
    const CCTRegion& region = regionAt(regionIndex);
    const double nearestStep = std::floor(stepCount(region) * position + 0.5);
    return truncateToInt(nearestStep * region.stepCCT + region.minCCT);
}

int CCTUtils::getCCTFromuvAndCCTRegion(double u, double v, int regionIndex)
{
    return getCCTFromCCTRegionAndRegionPosition(regionIndex, getRegionPositionFromuvPrimeAndRegion(u, v, regionIndex));
}

int CCTUtils::getNumCCTStepsFromCCT(int regionIndex, int cct) { return stepIndexOf(regionAt(regionIndex), cct); }

int CCTUtils::getuvPrimeFromCCTRegion(int regionIndex, int cct, double& u, double& v)
{
    const int stepIndex = getNumCCTStepsFromCCT(regionIndex, cct);
    getuvPrimeFromCCTRegionWithNumSteps(regionIndex, stepIndex, u, v);
    return stepIndex;
}

void CCTUtils::getxyFromCCTRegion(int regionIndex, int cct, int tint, double& u, double& v)
{
    getuvPrimeFromCCTRegion(regionIndex, cct, u, v);
    tintuvPrime(regionIndex, tint, u, v);
}

int CCTUtils::getuvPrimeFromCCTRegionWithNumSteps(int regionIndex, int stepIndex, double& u, double& v)
{
    const CCTRegion& region = regionAt(regionIndex);
    const QPointF point = locusPointOfStep(region, stepIndex);
    u = point.x();
    v = point.y();
    return stepCount(region);
}

// ---- Within a region: tints ----

int CCTUtils::getTintEnd(double u, double v, int regionIndex, QPointF locusPoint)
{
    const QPointF pivot = regionAt(regionIndex).pivot;
    const bool isBeyondLocus = distanceBetween(QPointF(u, v), pivot) > distanceBetween(locusPoint, pivot);
    return isBeyondLocus ? kFullTint : -kFullTint;
}

int CCTUtils::getTintFromuvAndIntersectionPoint(double u, double v, int regionIndex, QPointF locusPoint)
{
    const int fullTint = getTintEnd(u, v, regionIndex, locusPoint);
    const QPointF tintEnd = tintLineThrough(regionAt(regionIndex), locusPoint).pointAt(ratioOfFullTint(fullTint));
    const double ratio = distanceBetween(locusPoint, QPointF(u, v)) / distanceBetween(locusPoint, tintEnd);
    return truncateToInt(ratio * fullTint);
}

double CCTUtils::getIsoLineDuvPrime(int regionIndex, double u, double v)
{
    const CCTRegion& region = regionAt(regionIndex);
    return fullTintSpanAt(region, positionOf(region, QPointF(u, v)));
}

double CCTUtils::getIsoDuvPrimeFromCCTRegionAndRegionPosition(int regionIndex, double position)
{
    return fullTintSpanAt(regionAt(regionIndex), position);
}

// ---- Distances ----

double CCTUtils::getDistanceBetweenPoints(QPointF a, QPointF b) { return distanceBetween(a, b); }

double CCTUtils::getDuvPrimeFromuvPrime(double uA, double vA, double uB, double vB)
{
    return distanceBetween(QPointF(uA, vA), QPointF(uB, vB));
}

double CCTUtils::getDuvFromuvPrime(double uA, double vA, double uB, double vB)
{
    return distanceBetween(QPointF(uA, vA / kVPrimePerV), QPointF(uB, vB / kVPrimePerV));
}

double CCTUtils::getDuvFromxy(double xA, double yA, double xB, double yB)
{
    return getDuvFromuvPrime(getuPrimeFromxy(xA, yA), getvPrimeFromxy(xA, yA), getuPrimeFromxy(xB, yB),
                             getvPrimeFromxy(xB, yB));
}

QLineF::IntersectType CCTUtils::calculateuvPivotPoints()
{
    constexpr int kRuns[][2] = {{2100, 2700}, {2700, 2850}, {2850, 3500}, {3500, 4000},
                                {4000, 5000}, {5000, 6500}, {6500, 8000}, {8000, 10000}};
    constexpr double kIsoLineLength = 3.0;

    const auto isoLine = [](int cct) {
        double green[2];
        double magenta[2];
        getuvPrimeFromValidCCTAndTint(cct, getMaxTint(), green[0], green[1]);
        getuvPrimeFromValidCCTAndTint(cct, getMinTint(), magenta[0], magenta[1]);
        QLineF line(green[0], green[1], magenta[0], magenta[1]);
        line.setLength(kIsoLineLength);
        return line;
    };
    QLineF::IntersectType kind = QLineF::NoIntersection;
    QPointF pivot;
    for (const auto& run : kRuns)
        kind = isoLine(run[0]).intersects(isoLine(run[1]), &pivot);
    return kind;
}
