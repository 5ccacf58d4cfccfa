// White points of any numbers: nothing is undefined, results are within their ranges, and what was made is read.
#include "CCTImageUtils.h"
#include "CCTUtils.h"
#include "FuzzSupport.h"
#include "WhitePoint.h"

#include <cmath>
#include <limits>

namespace {

QPointF anyPoint(FuzzInput& input)
{
    const double x = input.number();
    return {x, input.number()};
}

QLineF anyLine(FuzzInput& input)
{
    const QPointF first = anyPoint(input);
    return {first, anyPoint(input)};
}

/// A picture of any width and height that QRect can tell.
QRect anyPicture(FuzzInput& input)
{
    const int smallest = std::numeric_limits<int>::min() + 1;
    const int largest = std::numeric_limits<int>::max();
    const int width = input.integer(smallest, largest);
    return {0, 0, width, input.integer(smallest, largest)};
}

/// How near it comes back, tst_cct says for every CCT.
void makeAndReadBack(FuzzInput& input)
{
    const int cct = input.integer(1900, 11100);
    const int tint = input.integer(-32767, 32767);
    double u = 0.0, v = 0.0;
    const bool isMade = CCTUtils::getuvPrimeFromCCTAndTint(cct, tint, u, v);
    require(isMade == (cct >= 1950 && cct <= 11000), "the range of CCTs decides");
    int backCct = 0, backTint = 0;
    require(!isMade || CCTUtils::getCCTAndTintFromuvPrime(u, v, backCct, backTint), "what was made is read");
}

void readAnyChromaticity(FuzzInput& input)
{
    const QPointF point = anyPoint(input);
    int cct = -1, tint = -1;
    if (CCTUtils::getCCTAndTintFromxy(point.x(), point.y(), cct, tint))
        require(CCTUtils::xyAreValid(point.x(), point.y()) && cct >= 1900 && cct <= 12500, "a CCT read is of the table",
                QString::number(cct));
    else
        require(cct == -1 && tint == -1, "what is not read changes nothing");
    CCTUtils::getCCTAndTintFromuvPrime(point.x(), point.y(), cct, tint);
    CCTUtils::getCCTAndTintFromValiduvPrime(point.x(), point.y(), cct, tint);
}

void measureWithinRegions(FuzzInput& input)
{
    const int region = input.flag() ? input.integer(-2, 24) : input.anyInt();
    const int cct = input.anyInt();
    const int tint = input.anyInt();
    const QPointF uv = anyPoint(input);
    double u = uv.x(), v = uv.y();
    CCTUtils::tintuvPrime(region, tint, u, v);
    CCTUtils::getuvPrimeFromValidCCTAndTint(cct, tint, u, v);
    CCTUtils::getuvPrimeFromCCTRegion(region, cct, u, v);
    CCTUtils::getxyFromCCTRegion(region, cct, tint, u, v);
    CCTUtils::getuvPrimeFromCCTRegionWithNumSteps(region, cct, u, v);
    CCTUtils::getNumCCTStepsFromCCT(region, cct);
    CCTUtils::getCCTFromCCTRegionAndRegionPosition(region, uv.x());
    CCTUtils::getCCTFromuvAndCCTRegion(uv.x(), uv.y(), region);
    CCTUtils::getRegionPositionFromuvPrimeAndRegion(uv.x(), uv.y(), region);
    CCTUtils::getTintEnd(uv.x(), uv.y(), region, anyPoint(input));
    CCTUtils::getTintFromuvAndIntersectionPoint(uv.x(), uv.y(), region, anyPoint(input));
    CCTUtils::getIsoLineDuvPrime(region, uv.x(), uv.y());
    CCTUtils::getIsoDuvPrimeFromCCTRegionAndRegionPosition(region, uv.x());
    CCTUtils::getStandardLengthPivotLine(region, uv.x(), uv.y());
    CCTUtils::cctIsInRegion(cct, region);
    QPointF crossing;
    CCTUtils::lineIntersectsRegion(anyLine(input), region, &crossing);
    CCTUtils::linesIntersect(anyLine(input), anyLine(input), input.flag() ? &crossing : nullptr);
    CCTUtils::getDuvFromxy(uv.x(), uv.y(), input.number(), input.number());
}

void placeOnPictures(FuzzInput& input)
{
    const double left = input.number(), top = input.number(), width = input.number();
    const QRectF xyRect(left, top, width, input.number());
    const QRect picture = anyPicture(input);
    const int cct = input.anyInt(), tint = input.anyInt();
    CCTImageUtils::getPointFromxy(input.number(), input.number(), xyRect, picture);
    CCTImageUtils::getPointFromCCT(cct, xyRect, picture);
    CCTImageUtils::getPointFromCCTAndTint(cct, tint, xyRect, picture);
    CCTImageUtils::getPointFromCCTAndUnboundedTint(cct, tint, xyRect, picture);
    CCTImageUtils::roundPoint(anyPoint(input));
    double x = 0.0, y = 0.0;
    CCTImageUtils::getxyFromPoint(x, y, xyRect, QPoint(cct, tint), picture);
}

void requireSound(const WhitePoint& white)
{
    int cct = -1, tint = -1;
    white.getCctAndTint(cct, tint);
    white.uvPrime();
    white.uv1960();
    white.isNearLocus();
    if (white.isValid())
        require(std::isfinite(white.xy().x()) && std::isfinite(white.xy().y()), "a white point has a chromaticity");
    if (white.hasCct())
        require(white.cctKelvin() >= WhitePoint::minCct * (1.0 - 1e-9) && white.mired() >= 0.0 &&
                    white.mired() <= WhitePoint::maxMired && std::isfinite(white.duv()),
                "a CCT is within its range",
                QString::number(white.mired(), 'g', 17) + ' ' + QString::number(white.duv()));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    FuzzInput input(data, size);
    makeAndReadBack(input);
    readAnyChromaticity(input);
    measureWithinRegions(input);
    placeOnPictures(input);
    const double a = input.number(), b = input.number();
    requireSound(WhitePoint::fromxy(a, b));
    requireSound(WhitePoint::fromCctAndDuv(a * 10000.0, b));
    requireSound(WhitePoint::fromMiredAndDuv(a * 1000.0, b));
    requireSound(WhitePoint::fromCctAndTint(input.anyInt(), input.anyInt()));
    requireSound(WhitePoint::daylight(b * 30000.0));
    return 0;
}
