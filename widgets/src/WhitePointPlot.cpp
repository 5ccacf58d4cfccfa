#include "CCTImageUtils.h"
#include "CCTUtils.h"
#include "WhitePointPlot_p.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QWheelEvent>

#include <functional>

namespace lxcolor {

namespace {

const QRectF WhiteLight(0.20, 0.20, 0.38, 0.32); // CIE 1931 x, y
const QRectF WholeDiagram(-0.04, -0.04, 0.82, 0.92);
constexpr double CornerRadius = 6.0;
constexpr double Enlargement = 1.35; // of what is written and drawn on the diagram
constexpr double RingRadius = 7.0;
constexpr int NotchOfWheel = 120;

bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

/// A line that is seen on every colour.
void strokeTwice(QPainter& painter, double width, const std::function<void()>& draw)
{
    painter.setPen(QPen(QColor(0, 0, 0, 200), width + 2.0));
    draw();
    painter.setPen(QPen(Qt::white, width));
    draw();
}

} // namespace

WhitePointPlot::WhitePointPlot(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("whitePointPlot"));
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::CrossCursor);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setFixture(m_fixture);
}

// ---- State ----

QPointF WhitePointPlot::xy() const
{
    double x = 0.0;
    double y = 0.0;
    CCTUtils::getxyFromCCTAndTint(m_cct, m_tint, x, y);
    return {x, y};
}

FixtureGamut::Place WhitePointPlot::place() const { return m_gamut.placeOf(xy()); }

bool WhitePointPlot::setWhitePoint(int cct, int tint)
{
    const int step = CCTUtils::getCCTStepSize();
    const int limitedCct = qBound(CCTUtils::getMinCCT(), cct, CCTUtils::getMaxCCT()) / step * step;
    const int limitedTint = qBound(CCTUtils::getMinTint(), tint, CCTUtils::getMaxTint());
    if (limitedCct == m_cct && limitedTint == m_tint)
        return false;
    m_cct = limitedCct;
    m_tint = limitedTint;
    update();
    return true;
}

void WhitePointPlot::setFixture(ColorUtils::TonematchProfileID fixture)
{
    m_fixture = fixture;
    m_gamut = FixtureGamut(fixture);
    updateDiagram();
}

void WhitePointPlot::setZoomed(bool zoomed)
{
    m_isZoomed = zoomed;
    updateDiagram();
}

// As much of the diagram more as fills the widget.
QRectF WhitePointPlot::shownRange() const
{
    QRectF range = m_isZoomed ? WhiteLight : WholeDiagram;
    const double missing = range.height() * width() / qMax(1, height()) - range.width();
    if (missing > 0.0)
        return range.adjusted(-missing / 2, 0, missing / 2, 0);
    const double missingHeight = range.width() * height() / qMax(1, width()) - range.height();
    return range.adjusted(0, -missingHeight / 2, 0, missingHeight / 2);
}

void WhitePointPlot::updateDiagram()
{
    using Diagram = ChromaticityDiagram;
    Diagram::Elements elements =
        Diagram::Background | Diagram::Interior | Diagram::SpectralLocus | Diagram::BlackbodyLocus | Diagram::Fixtures;
    elements.setFlag(Diagram::TintLines, m_isZoomed);
    m_diagram.setElements(elements);
    m_diagram.setPalette(isDark(palette()) ? Diagram::Palette::Dark : Diagram::Palette::Light);
    m_diagram.setShownRange(shownRange());
    m_diagram.clearFixtures();
    m_diagram.addFixture(m_fixture);
    m_painted = QPixmap();
    update();
}

// ---- Between pixels and white points ----

QRect WhitePointPlot::diagramRect() const { return {QPoint(0, 0), (QSizeF(size()) / Enlargement).toSize()}; }

QRectF WhitePointPlot::xyRect() const
{
    const QRectF range = m_diagram.shownRange();
    return {QPointF(range.left(), range.bottom()), QPointF(range.right(), range.top())};
}

QPointF WhitePointPlot::pixelOf(QPointF xy) const { return m_diagram.positionOf(xy, diagramRect()) * Enlargement; }

void WhitePointPlot::moveTo(QPoint pixel)
{
    double x = 0.0;
    double y = 0.0;
    CCTImageUtils::getxyFromPoint(x, y, xyRect(), pixel, rect()); // The diagram fills the widget.
    int cct = 0;
    int tint = 0;
    if (CCTUtils::getCCTAndTintFromxy(x, y, cct, tint) && setWhitePoint(cct, tint))
        Q_EMIT moved();
}

void WhitePointPlot::moveBy(int cct, int tint)
{
    if (setWhitePoint(m_cct + cct, m_tint + tint))
        Q_EMIT moved();
}

// ---- Events ----

void WhitePointPlot::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        moveTo(event->pos());
}

void WhitePointPlot::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons().testFlag(Qt::LeftButton))
        moveTo(event->pos());
}

void WhitePointPlot::wheelEvent(QWheelEvent* event)
{
    if (!hasFocus()) { // Who scrolls past does not mean it.
        event->ignore();
        return;
    }
    m_wheelDelta += event->angleDelta().y();
    const int notches = m_wheelDelta / NotchOfWheel;
    m_wheelDelta -= notches * NotchOfWheel;
    moveBy(notches * 50, 0);
}

void WhitePointPlot::keyPressEvent(QKeyEvent* event)
{
    const bool isFine = event->modifiers().testFlag(Qt::ShiftModifier);
    const int kelvin = isFine ? CCTUtils::getCCTStepSize() : 50;
    const int tint = CCTUtils::getMaxTint() / (isFine ? 1000 : 100);
    switch (event->key()) {
    case Qt::Key_Left:
        return moveBy(kelvin, 0);
    case Qt::Key_Right:
        return moveBy(-kelvin, 0);
    case Qt::Key_PageUp:
        return moveBy(500, 0);
    case Qt::Key_PageDown:
        return moveBy(-500, 0);
    case Qt::Key_Up:
        return moveBy(0, tint);
    case Qt::Key_Down:
        return moveBy(0, -tint);
    case Qt::Key_Home:
        return moveBy(0, -m_tint);
    default:
        QWidget::keyPressEvent(event);
    }
}

void WhitePointPlot::resizeEvent(QResizeEvent* event)
{
    updateDiagram();
    QWidget::resizeEvent(event);
}

void WhitePointPlot::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::LanguageChange)
        updateDiagram();
    QWidget::changeEvent(event);
}

// ---- Painting ----

void WhitePointPlot::paintEvent(QPaintEvent*)
{
    const double ratio = devicePixelRatioF();
    const QSize wanted = (QSizeF(size()) * ratio).toSize();
    if (m_painted.size() != wanted || !qFuzzyCompare(m_painted.devicePixelRatioF(), ratio)) {
        m_painted = QPixmap(wanted);
        m_painted.setDevicePixelRatio(ratio);
        m_painted.fill(Qt::transparent);
        QPainter painter(&m_painted);
        painter.scale(Enlargement, Enlargement);
        m_diagram.paint(painter, diagramRect());
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath outline;
    outline.addRoundedRect(rect(), CornerRadius, CornerRadius);
    painter.setClipPath(outline);
    painter.drawPixmap(0, 0, m_painted);
    paintMarks(painter);
    painter.setClipping(false);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(hasFocus() ? QPen(palette().color(QPalette::Highlight), 2.0) : QPen(QColor(128, 128, 128, 120)));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), CornerRadius, CornerRadius);
}

void WhitePointPlot::paintMarks(QPainter& painter) const
{
    const QPointF center = pixelOf(xy());
    const FixtureGamut::Place where = place();
    if (hasGamut() && !where.inside) {
        const QPointF nearest = pixelOf(where.nearest);
        strokeTwice(painter, 1.5, [&] { painter.drawLine(center, nearest); });
        painter.setPen(QPen(Qt::black, 1.0));
        painter.setBrush(Qt::white);
        painter.drawEllipse(nearest, 3.0, 3.0);
    }
    painter.setBrush(ChromaticityDiagram::displayColor(xy()));
    strokeTwice(painter, 2.5, [&] { painter.drawEllipse(center, RingRadius, RingRadius); });
}

} // namespace lxcolor
