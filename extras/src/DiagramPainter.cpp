#include "CCTUtils.h"
#include "DiagramPainter_p.h"
#include "StandardObserver.h"
#include "WhitePoint.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace lxcolor {

namespace {

using Element = ChromaticityDiagram;

constexpr double kSmall = 0.82; // text sizes in ems
constexpr double kTitle = 1.25;
constexpr double kTickLength = 0.45; // in ems

QPointF directionOf(QPointF from, QPointF to)
{
    const QPointF along = to - from;
    const double length = std::hypot(along.x(), along.y());
    return length > 0.0 ? along / length : QPointF(1.0, 0.0);
}

/// The step of 1, 2 or 5 times a power of ten that is nearest above \a least.
double niceStep(double least)
{
    const double decade = std::pow(10.0, std::floor(std::log10(least)));
    for (double factor : {1.0, 2.0, 5.0})
        if (decade * factor >= least * (1.0 - 1e-9))
            return decade * factor;
    return decade * 10.0;
}

/// Where wavelengths are marked.
constexpr int kFirstNm = 380;
constexpr int kLastNm = 700;

/// What the kelvin ticks and the tint lines stand at.
constexpr int kTickKelvins[] = {1500, 2000, 2500, 3000, 4000, 5000, 6500, 10000};
constexpr int kTintLineKelvins[] = {2000, 2250, 2500, 2750, 3000, 3500, 4000, 4500, 5000, 5500, 6500, 8000, 10000};

const QVector<QPointF>& blackbodyPoints()
{
    static const QVector<QPointF> points = [] {
        QVector<QPointF> made;
        for (double mired = 0.0; mired <= WhitePoint::maxMired; mired += 5.0)
            made.append(WhitePoint::fromMiredAndDuv(mired).xy());
        return made;
    }();
    return points;
}

const QVector<QPointF>& daylightPoints()
{
    static const QVector<QPointF> points = [] {
        QVector<QPointF> made;
        for (double mired = 40.0; mired <= 250.0; mired += 2.5)
            made.append(WhitePoint::daylight(1e6 / mired).xy());
        return made;
    }();
    return points;
}

} // namespace

DiagramPainter::DiagramPainter(const ChromaticityDiagram& diagram, const DiagramGeometry& geometry, QPainter& painter,
                               const QRect& rect)
    : m_diagram(diagram)
    , m_geometry(geometry)
    , m_painter(painter)
    , m_colors(diagramColors(diagram.palette()))
    , m_rect(rect)
    , m_font(painter.font())
    , m_em(geometry.em())
    , m_labels(QRectF(geometry.plot()))
{
}

void DiagramPainter::paint(const QImage& interior)
{
    m_painter.setClipRect(m_rect, Qt::IntersectClip);
    m_painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
    m_painter.setBrush(Qt::NoBrush);
    paintBackground();
    paintTitle();
    if (m_geometry.plot().isEmpty())
        return;
    if (shows(Element::Axes))
        paintAxes();

    m_painter.setClipRect(m_geometry.plot(), Qt::IntersectClip);
    if (shows(Element::Interior))
        m_painter.drawImage(QRectF(m_geometry.plot()), interior);
    if (shows(Element::Legend))
        reserveLegend();
    if (shows(Element::SpectralLocus))
        paintSpectralLocus();
    if (shows(Element::TintLines))
        paintTintLines();
    if (shows(Element::DaylightLocus))
        paintDaylightLocus();
    if (shows(Element::BlackbodyLocus))
        paintBlackbodyLocus();

    const int fixtureCount = shows(Element::Fixtures) ? m_diagram.fixtures().size() : 0;
    for (int i = 0; i < fixtureCount; ++i)
        paintFixture(i);
    if (shows(Element::Points))
        for (const ChromaticityDiagram::Point& point : m_diagram.points())
            paintPoint(point);

    // Names last, above all lines, and the more wanted ones first.
    if (shows(Element::Names)) {
        if (shows(Element::Points))
            for (const ChromaticityDiagram::Point& point : m_diagram.points())
                namePoint(point);
        for (int i = 0; i < fixtureCount; ++i)
            nameEmitters(i);
    }
    if (shows(Element::BlackbodyLocus))
        for (int kelvin : kTickKelvins)
            paintKelvinTick(1e6 / kelvin, ChromaticityDiagram::tr("%1 K").arg(kelvin), false);
    if (shows(Element::BlackbodyLocus))
        paintKelvinTick(0.0, QStringLiteral("\u221e"), false);
    if (shows(Element::Wavelengths))
        paintWavelengths();
    if (shows(Element::Legend))
        paintLegend();
}

double DiagramPainter::width(Weight weight) const
{
    switch (weight) {
    case Weight::Hair:
        return 0.045 * m_em;
    case Weight::Thin:
        return 0.075 * m_em;
    case Weight::Normal:
        return 0.115 * m_em;
    default:
        return 0.16 * m_em;
    }
}

QPen DiagramPainter::pen(const QColor& color, Weight weight, Qt::PenStyle style) const
{
    QPen made(color, width(weight), style, Qt::FlatCap, Qt::RoundJoin);
    if (style == Qt::DashLine)
        made.setDashPattern({4.0, 2.5});
    return made;
}

QFont DiagramPainter::font(double ems, bool italic) const
{
    QFont made = m_font;
    made.setPixelSize(std::max(qRound(ems * m_em), 1));
    made.setItalic(italic);
    return made;
}

QSizeF DiagramPainter::textSize(const QString& text, const QFont& used) const
{
    const QFontMetricsF metrics(used);
    return {metrics.horizontalAdvance(text) + 0.15 * m_em, metrics.ascent() * 0.95};
}

// ---- Background, title, axes ----

void DiagramPainter::paintBackground()
{
    if (!shows(Element::Background))
        return;
    m_painter.fillRect(m_rect, m_colors.background);
    m_painter.fillRect(m_geometry.plot(), m_colors.plot);
}

void DiagramPainter::paintTitle()
{
    if (m_diagram.title().isEmpty())
        return;
    QFont used = font(kTitle);
    used.setBold(true);
    paintPlainText(m_diagram.title(), used, {m_rect.x() + m_rect.width() / 2.0, m_rect.y() + 1.7 * m_em},
                   m_colors.text);
}

void DiagramPainter::paintAxes()
{
    paintAxis(Qt::Horizontal);
    paintAxis(Qt::Vertical);
    m_painter.setPen(pen(m_colors.faint, Weight::Thin));
    m_painter.drawRect(QRectF(m_geometry.plot()));
}

void DiagramPainter::paintAxis(Qt::Orientation orientation)
{
    const bool across = orientation == Qt::Horizontal;
    const QRectF range = m_geometry.range();
    const QRectF plot(m_geometry.plot());
    const double first = across ? range.left() : range.top();
    const double last = across ? range.right() : range.bottom();
    const double pixels = across ? plot.width() : plot.height();
    const double step = niceStep(3.2 * m_em * (last - first) / pixels);
    const int digits = std::max(0, static_cast<int>(std::ceil(-std::log10(step) - 1e-9)));
    const QFont numbers = font(kSmall);
    const double tick = 0.35 * m_em;

    const int firstTick = static_cast<int>(std::ceil(first / step));
    const int lastTick = static_cast<int>(std::floor(last / step + 1e-9));
    for (int i = firstTick; i <= lastTick; ++i) {
        const double value = i * step;
        const QPointF at =
            m_geometry.positionInPlane(across ? QPointF(value, range.top()) : QPointF(range.left(), value));
        if (shows(Element::Grid)) {
            m_painter.setPen(pen(m_colors.grid, Weight::Thin));
            m_painter.drawLine(at, across ? QPointF(at.x(), plot.top()) : QPointF(plot.right(), at.y()));
        }
        m_painter.setPen(pen(m_colors.faint, Weight::Thin));
        m_painter.drawLine(at, at + (across ? QPointF(0.0, tick) : QPointF(-tick, 0.0)));
        const QString text = QString::number(value, 'f', digits);
        const double half = textSize(text, numbers).width() / 2.0;
        paintPlainText(text, numbers, at + (across ? QPointF(0.0, 1.0 * m_em) : QPointF(-0.55 * m_em - half, 0.0)),
                       m_colors.text);
    }

    const bool is1931 = m_diagram.plane() == ChromaticityDiagram::Plane::CIE1931xy;
    const QString name = across ? (is1931 ? QStringLiteral("x") : QStringLiteral("u\u2032"))
                                : (is1931 ? QStringLiteral("y") : QStringLiteral("v\u2032"));
    const QPointF center = across ? QPointF(plot.center().x(), plot.bottom() + 2.4 * m_em)
                                  : QPointF(plot.left() - 3.2 * m_em, plot.center().y());
    paintPlainText(name, font(1.15, true), center, m_colors.text);
}

// ---- The spectral locus ----

void DiagramPainter::paintSpectralLocus()
{
    m_painter.setPen(pen(m_colors.locus, Weight::Normal));
    m_painter.drawPolygon(m_geometry.positionsOf(spectralLocusPoints()));
}

void DiagramPainter::paintWavelengths()
{
    // The round numbers first, where there is not room for all.
    const QFont used = font(kSmall);
    const auto outwards = [this](int nm) {
        const auto at = [this](int near) {
            return m_geometry.positionOf(StandardObserver::locusPoint(std::clamp(near, kFirstNm, kLastNm)));
        };
        const QPointF along = directionOf(at(nm - 5), at(nm + 5));
        return QPointF(along.y(), -along.x());
    };
    m_painter.setPen(pen(m_colors.locus, Weight::Thin));
    QPointF before(-1e9, -1e9);
    for (int nm = kFirstNm; nm <= kLastNm; nm += 5) {
        const QPointF at = m_geometry.positionOf(StandardObserver::locusPoint(nm));
        const QPointF gap = at - before;
        if (std::hypot(gap.x(), gap.y()) < 0.35 * m_em)
            continue;
        before = at;
        const double length = nm % 10 == 0 ? kTickLength : 0.55 * kTickLength;
        m_painter.drawLine(at, at + outwards(nm) * (length * m_em));
    }
    for (int step : {100, 20, 10}) {
        for (int nm = step == 100 ? 500 : kFirstNm; nm <= kLastNm; nm += step) {
            if ((step < 100 && nm % 100 == 0 && nm >= 500) || (step == 10 && nm % 20 == 0))
                continue;
            const QPointF at = m_geometry.positionOf(StandardObserver::locusPoint(nm));
            const QString text = nm == kLastNm ? ChromaticityDiagram::tr("%1 nm").arg(nm) : QString::number(nm);
            const QRectF room =
                m_labels.place(textSize(text, used), at, outwards(nm), (kTickLength + 0.3) * m_em, 22.5);
            if (!room.isNull())
                paintPlainText(text, used, room.center(), m_colors.text);
        }
    }
}

// ---- White light ----

void DiagramPainter::paintDaylightLocus()
{
    m_painter.setPen(pen(m_colors.ink, Weight::Thin, Qt::DashLine));
    m_painter.drawPolyline(m_geometry.positionsOf(daylightPoints()));
}

void DiagramPainter::paintTintLines()
{
    QVector<QPointF> ends[2];
    m_painter.setPen(pen(m_colors.ink, Weight::Hair));
    for (int kelvin = CCTUtils::getMinCCT(); kelvin <= CCTUtils::getMaxCCT(); kelvin += 50) {
        QPointF xy[2];
        for (int side = 0; side < 2; ++side) {
            CCTUtils::getxyFromCCTAndTint(kelvin, side == 0 ? CCTUtils::getMaxTint() : CCTUtils::getMinTint(),
                                          xy[side].rx(), xy[side].ry());
            ends[side].append(xy[side]);
        }
        if (std::find(std::begin(kTintLineKelvins), std::end(kTintLineKelvins), kelvin) != std::end(kTintLineKelvins))
            m_painter.drawLine(m_geometry.positionOf(xy[0]), m_geometry.positionOf(xy[1]));
    }
    for (const QVector<QPointF>& side : ends)
        m_painter.drawPolyline(m_geometry.positionsOf(side));
}

void DiagramPainter::paintBlackbodyLocus()
{
    m_painter.setPen(pen(m_colors.ink, Weight::Normal));
    m_painter.drawPolyline(m_geometry.positionsOf(blackbodyPoints()));
    for (int kelvin : kTickKelvins)
        paintKelvinTick(1e6 / kelvin, QString(), true);
}

void DiagramPainter::paintKelvinTick(double mired, const QString& label, bool withTick)
{
    const QPointF at = m_geometry.positionOf(WhitePoint::fromMiredAndDuv(mired).xy());
    const QPointF up = directionOf(at, m_geometry.positionOf(WhitePoint::fromMiredAndDuv(mired, 0.002).xy()));
    const double half = 0.5 * kTickLength * m_em;
    if (withTick) {
        m_painter.setPen(pen(m_colors.ink, Weight::Thin));
        m_painter.drawLine(at - up * half, at + up * half);
        return;
    }
    const QFont used = font(0.72);
    const bool aboveTints = shows(Element::TintLines) && mired > 90.0 && mired < 513.0;
    const double away =
        aboveTints ? QLineF(at, m_geometry.positionOf(WhitePoint::fromMiredAndDuv(mired, 0.02).xy())).length() : half;
    const QPointF preferred = aboveTints ? up : -up;
    QRectF room = m_labels.place(textSize(label, used), at, preferred, away + 0.35 * m_em, 0.0);
    if (room.isNull())
        room = m_labels.place(textSize(label, used), at, -preferred, half + 0.35 * m_em, 0.0);
    paintName(label, used, room, m_colors.ink);
}

// ---- Fixtures and points ----

QColor DiagramPainter::colorOf(int fixture) const
{
    const QColor& own = m_diagram.fixtures().at(fixture).color;
    return own.isValid() ? own : fixtureColor(m_diagram.palette(), fixture);
}

Qt::PenStyle DiagramPainter::styleOf(int fixture) const { return fixture % 2 == 0 ? Qt::SolidLine : Qt::DashLine; }

void DiagramPainter::paintFixture(int index)
{
    const ChromaticityDiagram::Fixture& fixture = m_diagram.fixtures().at(index);
    QVector<QPointF> corners;
    for (int i = 0; i < std::min(fixture.emitters.size(), 3); ++i)
        corners.append(fixture.emitters.at(i).xy);
    const QPolygonF triangle = m_geometry.positionsOf(corners);
    if (triangle.size() == 3)
        strokeWithHalo(triangle, pen(colorOf(index), Weight::Bold, styleOf(index)), true);
    for (const ChromaticityDiagram::Emitter& emitter : fixture.emitters) {
        if (!m_geometry.isDrawable(emitter.xy))
            continue;
        const QPointF at = m_geometry.positionOf(emitter.xy);
        paintMark(at, kMarkRadius * m_em, ChromaticityDiagram::displayColor(emitter.xy), colorOf(index));
        m_labels.reserve(at, kMarkRadius * m_em);
    }
}

void DiagramPainter::nameEmitters(int index)
{
    const ChromaticityDiagram::Fixture& fixture = m_diagram.fixtures().at(index);
    QPointF middle;
    const int corners = std::min(fixture.emitters.size(), 3);
    for (int i = 0; i < corners; ++i)
        middle += m_geometry.positionOf(fixture.emitters.at(i).xy) / corners;
    const QFont used = font(kSmall);
    for (const ChromaticityDiagram::Emitter& emitter : fixture.emitters) {
        if (!m_geometry.isDrawable(emitter.xy) || emitter.name.isEmpty() || isNamedBefore(index, emitter))
            continue;
        const QPointF at = m_geometry.positionOf(emitter.xy);
        paintName(emitter.name, used,
                  m_labels.place(textSize(emitter.name, used), at, at - middle, (kMarkRadius + 0.25) * m_em, 180.0),
                  colorOf(index));
    }
}

bool DiagramPainter::isNamedBefore(int index, const ChromaticityDiagram::Emitter& emitter) const
{
    const QPointF at = m_geometry.positionOf(emitter.xy);
    const auto isSame = [&](const ChromaticityDiagram::Emitter& other) {
        return other.name == emitter.name && m_geometry.isDrawable(other.xy) &&
               QLineF(at, m_geometry.positionOf(other.xy)).length() < 0.25 * m_em;
    };
    const auto begin = m_diagram.fixtures().begin();
    return std::any_of(begin, begin + index, [&](const ChromaticityDiagram::Fixture& fixture) {
        return std::any_of(fixture.emitters.begin(), fixture.emitters.end(), isSame);
    });
}

void DiagramPainter::paintPoint(const ChromaticityDiagram::Point& point)
{
    const bool hasRequested = m_geometry.isDrawable(point.requested);
    const bool hasAchieved = m_geometry.isDrawable(point.achieved);
    const QPointF requested = m_geometry.positionOf(point.requested);
    const QPointF achieved = m_geometry.positionOf(point.achieved);
    const double radius = kMarkRadius * m_em;
    if (hasRequested && hasAchieved && QLineF(requested, achieved).length() > 2.0 * radius) {
        const QPointF along = directionOf(requested, achieved);
        strokeWithHalo(QPolygonF(QVector<QPointF>{requested + along * radius, achieved - along * radius}),
                       pen(m_colors.ink, Weight::Normal));
    }
    if (hasAchieved) {
        paintMark(achieved, radius, m_colors.ink, m_colors.ink);
        m_labels.reserve(achieved, radius);
    }
    if (hasRequested) {
        m_painter.setBrush(Qt::NoBrush);
        for (bool halo : {true, false}) {
            m_painter.setPen(QPen(halo ? m_colors.halo : m_colors.ink, width(Weight::Bold) * (halo ? 2.6 : 1.0)));
            m_painter.drawEllipse(requested, 1.35 * radius, 1.35 * radius);
        }
        m_labels.reserve(requested, 1.35 * radius);
    }
}

void DiagramPainter::namePoint(const ChromaticityDiagram::Point& point)
{
    const bool hasRequested = m_geometry.isDrawable(point.requested);
    if (point.name.isEmpty() || (!hasRequested && !m_geometry.isDrawable(point.achieved)))
        return;
    const QPointF at = m_geometry.positionOf(hasRequested ? point.requested : point.achieved);
    QFont used = font(0.9);
    used.setBold(true);
    paintName(point.name, used, m_labels.place(textSize(point.name, used), at, {1.0, -0.6}, 0.85 * m_em, 180.0),
              m_colors.ink);
}

// ---- Strokes, marks and text ----

void DiagramPainter::strokeWithHalo(const QPolygonF& line, const QPen& pen, bool closed)
{
    QPen halo(m_colors.halo, pen.widthF() * 2.6, Qt::SolidLine, pen.capStyle(), pen.joinStyle());
    for (const QPen& used : {halo, pen}) {
        m_painter.setPen(used);
        m_painter.setBrush(Qt::NoBrush);
        if (closed)
            m_painter.drawPolygon(line);
        else
            m_painter.drawPolyline(line);
    }
}

void DiagramPainter::paintMark(QPointF at, double radius, const QColor& fill, const QColor& edge)
{
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(m_colors.halo);
    m_painter.drawEllipse(at, 1.35 * radius, 1.35 * radius);
    m_painter.setPen(pen(edge, Weight::Normal));
    m_painter.setBrush(fill);
    m_painter.drawEllipse(at, radius, radius);
    m_painter.setBrush(Qt::NoBrush);
}

void DiagramPainter::paintName(const QString& text, const QFont& used, const QRectF& room, const QColor& color)
{
    if (room.isNull() || used.pixelSize() < kLeastText)
        return;
    const QFontMetricsF metrics(used);
    const QPointF baseline(room.center().x() - metrics.horizontalAdvance(text) / 2.0,
                           room.center().y() + metrics.capHeight() / 2.0);
    QPainterPath outline;
    outline.addText(baseline, used, text);
    m_painter.strokePath(outline, QPen(m_colors.halo, 0.28 * m_em, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    m_painter.setFont(used);
    m_painter.setPen(color);
    m_painter.drawText(baseline, text);
}

void DiagramPainter::paintPlainText(const QString& text, const QFont& used, QPointF center, const QColor& color)
{
    if (used.pixelSize() < kLeastText)
        return;
    const QFontMetricsF metrics(used);
    m_painter.setFont(used);
    m_painter.setPen(color);
    m_painter.drawText(
        QPointF(center.x() - metrics.horizontalAdvance(text) / 2.0, center.y() + metrics.capHeight() / 2.0), text);
}

} // namespace lxcolor
