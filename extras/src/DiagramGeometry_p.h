#ifndef DIAGRAMGEOMETRY_P_H
#define DIAGRAMGEOMETRY_P_H

#include "ChromaticityDiagram.h"

#include <QPolygonF>
#include <QRectF>

namespace lxcolor {

constexpr double kFarthest = 4.0;     ///< Coordinates beyond this, of either sign, are not painted.
constexpr double kLeastRange = 0.001; ///< The least side of a range.

/// Where things lie in a picture of the chromaticity diagram.
class DiagramGeometry
{
public:
    using Plane = ChromaticityDiagram::Plane;

    /// \a range as ChromaticityDiagram::shownRange() has it.
    DiagramGeometry(Plane plane, const QRectF& range, const QRect& rect, bool withAxes, bool withTitle);

    const QRect& plot() const { return m_plot; }
    const QRectF& range() const { return m_range; }
    /// The size of text in pixels, of which everything else is a multiple.
    double em() const { return m_em; }

    /// The plane's coordinates of a CIE 1931 chromaticity, and back.
    QPointF toPlane(QPointF xy) const;
    QPointF fromPlane(QPointF point) const;

    QPointF positionOf(QPointF xy) const { return positionInPlane(toPlane(xy)); }
    QPointF positionInPlane(QPointF point) const;
    QPointF planePointAt(QPointF position) const;
    QPolygonF positionsOf(const QVector<QPointF>& chromaticities) const;

    /// Whether a chromaticity is finite and near enough to the diagram to be painted.
    bool isDrawable(QPointF xy) const;

private:
    QRectF xyRect() const;
    QRect fineRaster() const;

    Plane m_plane;
    QRectF m_range;
    QRect m_plot;
    double m_em;
};

/// Whether a rectangle is one that a diagram can show: finite, not too small and not too far away.
bool isRange(const QRectF& range);

/// The whole diagram with some air around it.
QRectF wholeRange(ChromaticityDiagram::Plane plane);

/// The visible spectral locus, from violet to red; the line of purples closes it.
const QVector<QPointF>& spectralLocusPoints();

} // namespace lxcolor

#endif
