#include "CCTImageUtils.h"
#include "CCTUtils.h"
#include "DiagramGeometry_p.h"
#include "StandardObserver.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace lxcolor {

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kEmsAcross = 46.0;     // text sizes along the shorter side of the rectangle
constexpr double kSmallEm = 8.0;        // pixels; small pictures keep this much while they are
constexpr double kFewestEms = 24.0;     // text sizes across
constexpr int kRaster = 64;             // positions a pixel
constexpr int kMaxFineSide = 1 << 24;   // up to here the finer raster stays within int
constexpr double kFirstShownNm = 380.0; // beyond these the locus runs back into itself
constexpr double kLastShownNm = 700.0;

bool isFinite(QPointF p) { return std::isfinite(p.x()) && std::isfinite(p.y()); }

double emOf(int side) { return std::max({side / kEmsAcross, std::min(kSmallEm, side / kFewestEms), 1.0}); }

struct Margins
{
    double left;
    double top;
    double right;
    double bottom;
};

Margins marginsFor(bool withAxes, bool withTitle)
{
    const double title = withTitle ? 2.4 : 0.0;
    return withAxes ? Margins{4.2, 1.2 + title, 1.2, 3.6} : Margins{0.0, title, 0.0, 0.0};
}

} // namespace

DiagramGeometry::DiagramGeometry(Plane plane, const QRectF& range, const QRect& rect, bool withAxes, bool withTitle)
    : m_plane(plane), m_range(range), m_em(emOf(std::min(rect.width(), rect.height())))
{
    const Margins margins = marginsFor(withAxes, withTitle);
    const QRect free = rect.adjusted(qRound(margins.left * m_em), qRound(margins.top * m_em),
                                     -qRound(margins.right * m_em), -qRound(margins.bottom * m_em));
    const double scale = std::min(free.width() / range.width(), free.height() / range.height());
    const QSize size(static_cast<int>(std::min(range.width() * scale, double(free.width()))),
                     static_cast<int>(std::min(range.height() * scale, double(free.height()))));
    if (size.width() > 0 && size.height() > 0) {
        m_plot = QRect(QPoint(0, 0), size);
        m_plot.moveCenter(free.center());
    } else {
        m_plot = QRect(rect.topLeft(), QSize(0, 0));
    }
}

QPointF DiagramGeometry::toPlane(QPointF xy) const
{
    if (m_plane == Plane::CIE1931xy)
        return xy;
    return {CCTUtils::getuPrimeFromxy(xy.x(), xy.y()), CCTUtils::getvPrimeFromxy(xy.x(), xy.y())};
}

QPointF DiagramGeometry::fromPlane(QPointF point) const
{
    if (m_plane == Plane::CIE1931xy)
        return point;
    return {CCTUtils::getxFromuvPrime(point.x(), point.y()), CCTUtils::getyFromuvPrime(point.x(), point.y())};
}

QRectF DiagramGeometry::xyRect() const
{
    return {m_range.left(), m_range.top() + m_range.height(), m_range.width(), -m_range.height()};
}

QRect DiagramGeometry::fineRaster() const
{
    const bool fits = std::max(m_plot.width(), m_plot.height()) < kMaxFineSide;
    return {QPoint(0, 0), fits ? m_plot.size() * kRaster : m_plot.size()};
}

QPointF DiagramGeometry::positionInPlane(QPointF point) const
{
    if (!isFinite(point) || m_plot.isEmpty())
        return {kNaN, kNaN};
    const QRect raster = fineRaster();
    const QPoint fine = CCTImageUtils::getPointFromxy(point.x(), point.y(), xyRect(), raster);
    const double steps = double(raster.width()) / m_plot.width();
    return QPointF(m_plot.topLeft()) + QPointF(fine.x() / steps, fine.y() / steps);
}

QPointF DiagramGeometry::planePointAt(QPointF position) const
{
    if (!isFinite(position) || m_plot.isEmpty())
        return {kNaN, kNaN};
    const QRect raster = fineRaster();
    const double steps = double(raster.width()) / m_plot.width();
    const QPoint fine = CCTImageUtils::roundPoint((position - m_plot.topLeft()) * steps);
    double x = kNaN;
    double y = kNaN;
    CCTImageUtils::getxyFromPoint(x, y, xyRect(), fine, raster);
    return {x, y};
}

QPolygonF DiagramGeometry::positionsOf(const QVector<QPointF>& chromaticities) const
{
    QPolygonF positions;
    for (const QPointF& xy : chromaticities)
        if (isDrawable(xy))
            positions.append(positionOf(xy));
    return positions;
}

bool DiagramGeometry::isDrawable(QPointF xy) const
{
    const QPointF point = toPlane(xy);
    return std::abs(point.x()) <= kFarthest && std::abs(point.y()) <= kFarthest && !m_plot.isEmpty();
}

bool isRange(const QRectF& range)
{
    return std::min(range.width(), range.height()) >= kLeastRange && std::abs(range.left()) <= kFarthest &&
           std::abs(range.right()) <= kFarthest && std::abs(range.top()) <= kFarthest &&
           std::abs(range.bottom()) <= kFarthest;
}

QRectF wholeRange(ChromaticityDiagram::Plane plane)
{
    return plane == ChromaticityDiagram::Plane::CIE1931xy ? QRectF(-0.09, -0.05, 0.93, 0.94)
                                                          : QRectF(-0.06, -0.04, 0.75, 0.68);
}

const QVector<QPointF>& spectralLocusPoints()
{
    static const QVector<QPointF> points = [] {
        QVector<QPointF> made;
        for (double nm = kFirstShownNm; nm <= kLastShownNm; nm += 1.0)
            made.append(StandardObserver::locusPoint(nm));
        return made;
    }();
    return points;
}

} // namespace lxcolor
