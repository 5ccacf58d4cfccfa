#ifndef CCTIMAGEUTILS_H
#define CCTIMAGEUTILS_H

#include "LXColorExport.h"

#include <QLineF>
#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QRectF>

/**
 * Places chromaticities and white points on a picture of the CIE 1931 chromaticity diagram. All operations are static
 * and have no state.
 *
 * - *xy rectangle*: the part of the diagram that the picture shows, left() the x of the picture's left edge and top()
 * the y of its top edge. Chromaticity y runs upwards, so it is given from (xMin, yMax) to (xMax, yMin), its height
 * negative.
 * - *picture*: the picture in pixels, of which width and height alone count. Pixel positions are measured from its own
 * top left corner.
 *
 * Pixel positions saturate at the range of int, and are 0 where an empty rectangle or an argument that is not finite
 * gives no number.
 */
class LXCOLOR_EXPORT CCTImageUtils
{
public:
    static double getxyRectWidth(QRectF xyRect);  ///< The absolute width.
    static double getxyRectHeight(QRectF xyRect); ///< The absolute height.

    /// The pixel of a chromaticity, rounded half up.
    static QPoint getPointFromxy(double x, double y, QRectF xyRect, QRect picture);
    /// The chromaticity of a pixel: the inverse of getPointFromxy() up to the rounding, for an xy rectangle of negative
    /// height. Not finite for an empty picture.
    static void getxyFromPoint(double& x, double& y, QRectF xyRect, QPoint point, QRect picture);

    /// The pixel of a CCT, limited to CCTUtils::getMinCCT()..getMaxCCT(), on the locus.
    static QPoint getPointFromCCT(int cct, QRectF xyRect, QRect picture);
    /// The pixel of a CCT and a tint, limited to CCTUtils::getMinTint()..getMaxTint().
    static QPoint getPointFromCCTAndTint(int cct, int tint, QRectF xyRect, QRect picture);
    /// The pixel of a CCT, limited as above, and a tint that is not.
    static QPoint getPointFromCCTAndUnboundedTint(int cct, int tint, QRectF xyRect, QRect picture);

    /// Each coordinate rounded half up.
    static QPoint roundPoint(QPointF point);
    /// Whether the lines cross between the ends of both. \a point (may be null) receives the crossing of the lines or
    /// of their extensions, unless they are parallel. CCTUtils::linesIntersect() also counts crossings of the
    /// extensions.
    static bool linesIntersect(QLineF a, QLineF b, QPointF* point);
};

#endif
