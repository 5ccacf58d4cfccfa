#include "ChromaticityDiagram.h"

#include "DiagramGeometry_p.h"
#include "DiagramPainter_p.h"
#include "DisplayColor_p.h"
#include "MatchReport.h"
#include "StandardObserver.h"
#include "Tristimulus.h"
#include "TristimulusFactory.h"

#include <QPaintEngine>
#include <QPainter>
#include <QPolygonF>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kMaxInteriorSide = 4096; // pixels; larger pictures get it enlarged

lxcolor::DiagramGeometry geometryOf(const ChromaticityDiagram& diagram, const QRect& rect)
{
    return lxcolor::DiagramGeometry(diagram.plane(), diagram.shownRange(), rect,
                                    diagram.elements().testFlag(ChromaticityDiagram::Axes), !diagram.title().isEmpty());
}

/// The pixels that a device has for a length of 1 of the painter.
double devicePixelsAcross(const QPainter& painter)
{
    const double scale = std::sqrt(std::abs(painter.deviceTransform().determinant()));
    const QPaintEngine* engine = painter.paintEngine();
    const bool isRaster = engine && (engine->type() == QPaintEngine::Raster || engine->type() == QPaintEngine::OpenGL2);
    return isRaster ? scale : std::max(scale, 2.0); // documents are looked at more closely than their own pixels
}

QSize interiorSize(const QRect& plot, double scale)
{
    const double longest = std::max(plot.width(), plot.height()) * scale;
    if (!(longest > 0.0))
        return {};
    const double used = std::min(scale, scale * kMaxInteriorSide / longest);
    return {std::max(qRound(plot.width() * used), 1), std::max(qRound(plot.height() * used), 1)};
}

} // namespace

QRectF ChromaticityDiagram::shownRange() const
{
    const QRectF range = m_range.normalized();
    return lxcolor::isRange(range) ? range : lxcolor::wholeRange(m_plane);
}

void ChromaticityDiagram::addFixture(ColorUtils::TonematchProfileID profile, const QColor& color)
{
    Tristimulus* record = TristimulusFactory::getInstance()->getTristimulus(
        profile, ColorUtils::nChannelConfigurationForTonematchProfileID(profile));
    const QStringList names = record->getChannelNames();
    const QVector<double>& X = record->getX();
    const QVector<double>& Y = record->getY();
    const QVector<double>& Z = record->getZ();
    Fixture fixture{ColorUtils::tonematchProfileIDName(profile), {}, color};
    for (int i = 0; i < std::min({X.size(), Y.size(), Z.size()}); ++i)
        fixture.emitters.append({names.value(i), StandardObserver::XYZ{X.at(i), Y.at(i), Z.at(i)}.xy()});
    addFixture(fixture);
}

void ChromaticityDiagram::addPoint(const MatchReport& report, const QString& name)
{
    addPoint({report.requested.xy(), report.achieved.xy(), name});
}

void ChromaticityDiagram::paint(QPainter& painter, const QRect& rect) const
{
    if (rect.isEmpty() || !painter.isActive())
        return;
    const lxcolor::DiagramGeometry geometry = geometryOf(*this, rect);
    if (m_elements.testFlag(Interior) && !geometry.plot().isEmpty()) {
        const QSize size = interiorSize(geometry.plot(), devicePixelsAcross(painter));
        const int value = lxcolor::diagramColors(m_palette).interiorValue;
        const QRectF& range = geometry.range();
        const QString key = QStringLiteral("%1 %2 %3 %4 %5 %6")
                                .arg(int(m_plane))
                                .arg(value)
                                .arg(range.x(), 0, 'g', 17)
                                .arg(range.y(), 0, 'g', 17)
                                .arg(range.width(), 0, 'g', 17)
                                .arg(range.height(), 0, 'g', 17);
        if (m_interiorKey != key || m_interior.size() != size) {
            m_interior = lxcolor::interiorImage(geometry, size, value);
            m_interiorKey = key;
        }
    }
    painter.save();
    lxcolor::DiagramPainter(*this, geometry, painter, rect).paint(m_interior);
    painter.restore();
}

QRect ChromaticityDiagram::plotArea(const QRect& rect) const { return geometryOf(*this, rect).plot(); }

QPointF ChromaticityDiagram::positionOf(QPointF xy, const QRect& rect) const
{
    return geometryOf(*this, rect).positionOf(xy);
}

QPointF ChromaticityDiagram::chromaticityAt(QPointF position, const QRect& rect) const
{
    const lxcolor::DiagramGeometry geometry = geometryOf(*this, rect);
    return geometry.fromPlane(geometry.planePointAt(position));
}

bool ChromaticityDiagram::isReal(QPointF xy)
{
    static const QPolygonF locus(lxcolor::spectralLocusPoints());
    return std::isfinite(xy.x()) && std::isfinite(xy.y()) && locus.containsPoint(xy, Qt::OddEvenFill);
}

QColor ChromaticityDiagram::displayColor(QPointF xy) { return QColor(lxcolor::displayColor(xy.x(), xy.y())); }
