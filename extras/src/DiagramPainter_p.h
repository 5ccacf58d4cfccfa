#ifndef DIAGRAMPAINTER_P_H
#define DIAGRAMPAINTER_P_H

#include "ChromaticityDiagram.h"
#include "DiagramColors_p.h"
#include "DiagramGeometry_p.h"
#include "LabelPlacer_p.h"

#include <QFont>
#include <QImage>

class QPainter;

namespace lxcolor {

constexpr double kMarkRadius = 0.42; ///< In ems.
constexpr double kLeastText = 5.0;   ///< Pixels; smaller text is left out.

/// One painting of a diagram into one rectangle.
class DiagramPainter
{
public:
    DiagramPainter(const ChromaticityDiagram& diagram, const DiagramGeometry& geometry, QPainter& painter,
                   const QRect& rect);

    /// \a interior as interiorImage() made it; may be null.
    void paint(const QImage& interior);

private:
    enum class Weight { Hair, Thin, Normal, Bold };

    bool shows(ChromaticityDiagram::Element element) const { return m_diagram.elements().testFlag(element); }
    double width(Weight weight) const;
    QFont font(double ems, bool italic = false) const;
    QSizeF textSize(const QString& text, const QFont& font) const;

    void paintBackground();
    void paintTitle();
    void paintAxes();
    void paintAxis(Qt::Orientation orientation);
    void paintSpectralLocus();
    void paintWavelengths();
    void paintDaylightLocus();
    void paintTintLines();
    void paintBlackbodyLocus();
    void paintKelvinTick(double mired, const QString& label, bool withTick);
    void paintFixture(int index);
    void nameEmitters(int index);
    /// Whether a fixture before that one has an emitter of the same name at the same place, as relatives have.
    bool isNamedBefore(int index, const ChromaticityDiagram::Emitter& emitter) const;
    void paintPoint(const ChromaticityDiagram::Point& point);
    void namePoint(const ChromaticityDiagram::Point& point);

    struct LegendEntry;
    QVector<LegendEntry> legendEntries() const;
    QRectF legendPanel(const QVector<LegendEntry>& entries) const;
    void reserveLegend();
    void paintLegend();
    void paintLegendSample(const LegendEntry& entry, const QRectF& room);

    void strokeWithHalo(const QPolygonF& line, const QPen& pen, bool closed = false);
    void paintMark(QPointF at, double radius, const QColor& fill, const QColor& edge);
    /// A text with a halo, centred in the room that was found for it; nothing for no room.
    void paintName(const QString& text, const QFont& font, const QRectF& room, const QColor& color);
    void paintPlainText(const QString& text, const QFont& font, QPointF center, const QColor& color);
    QColor colorOf(int fixture) const;
    Qt::PenStyle styleOf(int fixture) const;
    QPen pen(const QColor& color, Weight weight, Qt::PenStyle style = Qt::SolidLine) const;

    const ChromaticityDiagram& m_diagram;
    const DiagramGeometry& m_geometry;
    QPainter& m_painter;
    const DiagramColors& m_colors;
    QRect m_rect;
    QFont m_font; ///< As the caller has it.
    double m_em;
    LabelPlacer m_labels;
};

/// The coloured interior of the diagram on transparent ground, of \a size pixels.
QImage interiorImage(const DiagramGeometry& geometry, QSize size, int value);

} // namespace lxcolor

#endif
