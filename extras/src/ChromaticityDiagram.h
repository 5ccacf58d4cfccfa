#ifndef CHROMATICITYDIAGRAM_H
#define CHROMATICITYDIAGRAM_H

#include "ColorUtils.h"
#include "LXColorExtrasExport.h"

#include <QColor>
#include <QCoreApplication>
#include <QFlags>
#include <QImage>
#include <QPointF>
#include <QRect>
#include <QString>
#include <QVector>

#include <limits>

class QPainter;
struct MatchReport;

/**
 * A picture of the chromaticity diagram: the spectral locus and its colours, white light, the gamuts of fixtures, and
 * colours as they were asked for and as they came out.
 *
 * It paints into any rectangle of any QPainter; text, lines and marks grow with the rectangle. On a QSvgGenerator or a
 * printer text stays text, and the coloured interior is an image.
 *
 * Chromaticities are CIE 1931 x, y in every call, whichever plane is shown. Those that are not finite, or far outside
 * the diagram, are left out. Painting keeps the interior for the next time, so one object serves one thread at a time.
 */
class LXCOLOR_EXTRAS_EXPORT ChromaticityDiagram
{
    Q_DECLARE_TR_FUNCTIONS(ChromaticityDiagram)

public:
    /// The coordinates of the picture.
    enum class Plane {
        CIE1931xy,     ///< x to the right, y upwards.
        CIE1976uvPrime ///< u' to the right, v' upwards; equal distances look about equally large.
    };

    /// The colours of background, axes and texts.
    enum class Palette { Light, Dark };

    /// What is shown.
    enum Element {
        Background = 0x001,     ///< The whole rectangle filled.
        Interior = 0x002,       ///< The colours, as near as sRGB comes to them.
        SpectralLocus = 0x004,  ///< The curve of pure wavelengths and the line of purples.
        Wavelengths = 0x008,    ///< Ticks and nanometres along it.
        Axes = 0x010,           ///< The frame with ticks and numbers; without it the plot fills the rectangle.
        Grid = 0x020,           ///< Lines at the ticks.
        BlackbodyLocus = 0x040, ///< With ticks in kelvin.
        DaylightLocus = 0x080,  ///< CIE D-series, 4000 to 25000 K.
        TintLines = 0x100,      ///< The iso-temperature lines of CCTUtils between the full tints.
        Fixtures = 0x200,       ///< Triangles and emitters.
        Points = 0x400,         ///< Requested and achieved colours.
        Names = 0x800,          ///< Names beside emitters and points.
        Legend = 0x1000
    };
    Q_DECLARE_FLAGS(Elements, Element)
    /// Everything but TintLines.
    static constexpr int defaultElements = 0x1fff & ~TintLines;

    /// The chromaticity of nothing, as members that are not set have it: NaN, so that it is not drawn.
    static constexpr QPointF noChromaticity{std::numeric_limits<double>::quiet_NaN(),
                                            std::numeric_limits<double>::quiet_NaN()};

    /// One emitter of a fixture.
    struct Emitter
    {
        QString name;                ///< Shown beside it.
        QPointF xy = noChromaticity; ///< CIE 1931 chromaticity; one that is not finite is left out.
    };

    /// A fixture: its first three emitters span the triangle.
    struct Fixture
    {
        QString name;              ///< Shown in the legend.
        QVector<Emitter> emitters; ///< In channel order.
        QColor color;              ///< An invalid one takes the next colour of the palette.
    };

    /// A colour. Either chromaticity may be left out.
    struct Point
    {
        QPointF requested = noChromaticity; ///< CIE 1931 chromaticity that was asked for.
        QPointF achieved = noChromaticity;  ///< CIE 1931 chromaticity that the fixture gives.
        QString name;                       ///< Shown beside it.
    };

    /// What the picture looks like: the plane, light or dark, the elements that are shown, and a title above it.
    ///@{
    void setPlane(Plane plane) { m_plane = plane; }
    Plane plane() const { return m_plane; }
    void setPalette(Palette palette) { m_palette = palette; }
    Palette palette() const { return m_palette; }
    void setElements(Elements elements) { m_elements = elements; }
    void setElement(Element element, bool shown = true) { m_elements.setFlag(element, shown); }
    Elements elements() const { return m_elements; }
    void setTitle(const QString& title) { m_title = title; }
    QString title() const { return m_title; }
    ///@}

    /**
     * The part of the plane that is shown, in its own coordinates, from the lower left corner: QRectF(x, y, width,
     * height). A rectangle with a side below 0.001 or an edge outside -4..4, or one that is not finite, stands for the
     * whole diagram.
     */
    void setShownRange(const QRectF& range) { m_range = range; }
    QRectF shownRange() const; ///< The part that is shown, the whole diagram where none was set.

    /// A fixture more; each is drawn over the ones before it.
    void addFixture(const Fixture& fixture) { m_fixtures.append(fixture); }
    /// The fixture of a profile, with the emitters of its record as they are now.
    void addFixture(ColorUtils::TonematchProfileID profile, const QColor& color = QColor());
    /// The fixtures that were added.
    const QVector<Fixture>& fixtures() const { return m_fixtures; }
    void clearFixtures() { m_fixtures.clear(); } ///< Leaves no fixture.

    /// A colour more; its two points are joined by a line.
    void addPoint(const Point& point) { m_points.append(point); }
    /// The requested and the achieved light of a report.
    void addPoint(const MatchReport& report, const QString& name = QString());
    /// The colours that were added.
    const QVector<Point>& points() const { return m_points; }
    void clearPoints() { m_points.clear(); } ///< Leaves no colour.

    /// Paints into \a rect, of which nothing outside is touched. The painter's state stays as it is.
    void paint(QPainter& painter, const QRect& rect) const;

    /// The pixels inside the axes when painted into \a rect; x and y have the same scale.
    QRect plotArea(const QRect& rect) const;
    /// Where a chromaticity is painted, to 1/64 pixel (CCTImageUtils::getPointFromxy() on a finer raster); NaN for one
    /// that is not finite.
    QPointF positionOf(QPointF xy, const QRect& rect) const;
    /// The chromaticity at a position: the inverse of positionOf(). NaN where the plot is empty.
    QPointF chromaticityAt(QPointF position, const QRect& rect) const;

    /// Whether a chromaticity lies within the spectral locus and the line of purples.
    static bool isReal(QPointF xy);
    /// The sRGB colour that stands for a chromaticity in the picture: nearly as bright as sRGB shows it, and less
    /// saturated where sRGB does not reach it. Black for one that is not finite.
    static QColor displayColor(QPointF xy);

private:
    Plane m_plane = Plane::CIE1931xy;
    Palette m_palette = Palette::Light;
    Elements m_elements = Elements(defaultElements);
    QString m_title;
    QRectF m_range;
    QVector<Fixture> m_fixtures;
    QVector<Point> m_points;
    mutable QImage m_interior; ///< As last painted.
    mutable QString m_interiorKey;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(ChromaticityDiagram::Elements)

#endif
