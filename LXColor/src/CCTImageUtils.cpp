#include "CCTImageUtils.h"

#include "CCTUtils.h"
#include "Rounding_p.h"

#include <cmath>

namespace {

int roundToInt(double v) { return lxcolor::truncateToInt(std::floor(v + 0.5)); }

// QRect computes these in int, which overflows for rectangles wider than its range.
double pixelWidth(const QRect& picture) { return static_cast<double>(picture.right()) - picture.left() + 1.0; }
double pixelHeight(const QRect& picture) { return static_cast<double>(picture.bottom()) - picture.top() + 1.0; }

} // namespace

double CCTImageUtils::getxyRectWidth(QRectF xyRect) { return std::fabs(xyRect.width()); }

double CCTImageUtils::getxyRectHeight(QRectF xyRect) { return std::fabs(xyRect.height()); }

QPoint CCTImageUtils::getPointFromxy(double x, double y, QRectF xyRect, QRect picture)
{
    return roundPoint({(x - xyRect.left()) / getxyRectWidth(xyRect) * pixelWidth(picture),
                       (xyRect.top() - y) / getxyRectHeight(xyRect) * pixelHeight(picture)});
}

void CCTImageUtils::getxyFromPoint(double& x, double& y, QRectF xyRect, QPoint point, QRect picture)
{
    const double height = getxyRectHeight(xyRect);
    x = xyRect.left() + point.x() / pixelWidth(picture) * getxyRectWidth(xyRect);
    y = (xyRect.top() + xyRect.height()) + height - point.y() / pixelHeight(picture) * height;
}

QPoint CCTImageUtils::getPointFromCCT(int cct, QRectF xyRect, QRect picture)
{
    return getPointFromCCTAndUnboundedTint(cct, 0, xyRect, picture);
}

QPoint CCTImageUtils::getPointFromCCTAndTint(int cct, int tint, QRectF xyRect, QRect picture)
{
    const int limitedTint = qBound(CCTUtils::getMinTint(), tint, CCTUtils::getMaxTint());
    return getPointFromCCTAndUnboundedTint(cct, limitedTint, xyRect, picture);
}

QPoint CCTImageUtils::getPointFromCCTAndUnboundedTint(int cct, int tint, QRectF xyRect, QRect picture)
{
    double x = 0.0;
    double y = 0.0;
    CCTUtils::getxyFromCCTAndTint(qBound(CCTUtils::getMinCCT(), cct, CCTUtils::getMaxCCT()), tint, x, y);
    return getPointFromxy(x, y, xyRect, picture);
}

QPoint CCTImageUtils::roundPoint(QPointF point) { return {roundToInt(point.x()), roundToInt(point.y())}; }

bool CCTImageUtils::linesIntersect(QLineF a, QLineF b, QPointF* point)
{
    return a.intersects(b, point) == QLineF::BoundedIntersection;
}
