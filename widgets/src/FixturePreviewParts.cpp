#include "ChromaticityDiagram.h"
#include "FixturePreview.h"
#include "FixturePreviewParts_p.h"
#include "ScreenColor.h"

#include <QFontDatabase>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace lxcolor {

namespace {

constexpr int Spacing = 10;
constexpr double Radius = 6.0;
constexpr double Muted = 0.72;

QString percentOf(double ratio)
{
    return std::isfinite(ratio) ? QStringLiteral("%1 %").arg(100.0 * ratio, 0, 'f', 1) : QStringLiteral("–");
}

int widest(const QFontMetrics& metrics, const QStringList& texts)
{
    int width = 0;
    for (const QString& text : texts)
        width = std::max(width, metrics.horizontalAdvance(text));
    return width;
}

} // namespace

// ---- LightPair ----

LightPair::LightPair(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("lightPair"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAccessibleName(FixturePreview::tr("Requested and achieved light"));
}

LightPair::Side LightPair::sideOf(const QString& name, const MatchReport::Light& light)
{
    if (!light.hasChromaticity())
        return {name, FixturePreview::tr("no light"), Qt::black};
    return {name,
            QStringLiteral("x %1  y %2  %3")
                .arg(light.x, 0, 'f', 3)
                .arg(light.y, 0, 'f', 3)
                .arg(percentOf(light.intensity)),
            ScreenColor::ofLight(light.xy(), light.intensity)};
}

void LightPair::setReport(const MatchReport& report)
{
    m_requested = sideOf(FixturePreview::tr("Requested"), report.requested);
    m_achieved = sideOf(FixturePreview::tr("Achieved"), report.achieved);
    setAccessibleDescription(QStringLiteral("%1: %2. %3: %4")
                                 .arg(m_requested.name, m_requested.numbers, m_achieved.name, m_achieved.numbers));
    update();
}

void LightPair::paintSide(QPainter& painter, const QRect& rect, const Side& side, bool isLeft) const
{
    const int textHeight = fontMetrics().height() * 2 + 6;
    const int align = isLeft ? Qt::AlignLeft : Qt::AlignRight;
    const QRect texts(rect.left(), rect.bottom() + 7 - textHeight, rect.width(), textHeight);
    QFont bold = font();
    bold.setWeight(QFont::DemiBold);
    painter.setFont(bold);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(texts, align | Qt::AlignTop, side.name);
    painter.setFont(font());
    painter.setOpacity(Muted);
    painter.drawText(texts.adjusted(0, fontMetrics().height(), 0, 0), align | Qt::AlignTop, side.numbers);
    painter.setOpacity(1.0);
}

void LightPair::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const int textHeight = fontMetrics().height() * 2 + 6;
    const QRect patches = rect().adjusted(0, 0, 0, -textHeight);
    QPainterPath outline;
    outline.addRoundedRect(patches, Radius, Radius);
    const QRect left(0, 0, width() / 2, height());
    const QRect right(left.right() + 1, 0, width() - left.width(), height());
    painter.save();
    painter.setClipPath(outline);
    painter.fillRect(patches, m_requested.color); // Without a seam, whatever the scale.
    painter.fillRect(patches & right, m_achieved.color);
    painter.restore();
    painter.setPen(QColor(128, 128, 128, 120));
    painter.drawRoundedRect(QRectF(patches).adjusted(0.5, 0.5, -0.5, -0.5), Radius, Radius);
    paintSide(painter, left, m_requested, true);
    paintSide(painter, right, m_achieved, false);
}

// ---- EmitterBars ----

EmitterBars::EmitterBars(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("emitterBars"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAccessibleName(FixturePreview::tr("Emitter levels and DMX bytes"));
}

void EmitterBars::setReport(const MatchReport& report)
{
    ChromaticityDiagram diagram; // It knows where the emitters are.
    diagram.addFixture(report.target.profile);
    const QVector<ChromaticityDiagram::Emitter> emitters = diagram.fixtures().first().emitters;
    const int bytesEach = report.target.resolution == 2 ? 2 : 1;
    m_bars.clear();
    QStringList told;
    for (int i = 0; i < report.emitters.size(); ++i) {
        const MatchReport::Emitter& emitter = report.emitters.at(i);
        Bar bar;
        bar.name = emitter.name;
        bar.level = qBound(0.0, emitter.level, 1.0);
        bar.percent = percentOf(emitter.level);
        bar.color = ScreenColor::ofLight(emitters.value(i).xy, 1.0);
        QStringList bytes;
        for (int byte = i * bytesEach; byte < (i + 1) * bytesEach && byte < report.bytes.size(); ++byte)
            bytes << QString::number(report.bytes.at(byte));
        bar.bytes = bytes.join(QLatin1Char(' '));
        told << QStringLiteral("%1 %2, DMX %3").arg(bar.name, bar.percent, bar.bytes);
        m_bars.append(bar);
    }
    setAccessibleDescription(told.join(QStringLiteral("; ")));
    updateGeometry();
    update();
}

int EmitterBars::rowHeight() const { return fontMetrics().height() + 9; }

QSize EmitterBars::sizeHint() const { return {320, rowHeight() * std::max(m_bars.size(), 1)}; }

void EmitterBars::paintEvent(QPaintEvent*)
{
    QStringList names;
    QStringList bytes;
    for (const Bar& bar : qAsConst(m_bars)) {
        names << bar.name;
        bytes << bar.bytes;
    }
    const QFontMetrics metrics = fontMetrics();
    QFont numbers = font();
    numbers.setWeight(QFont::DemiBold);
    const int nameWidth = widest(metrics, names) + Spacing;
    const int percentWidth = metrics.horizontalAdvance(QStringLiteral("100.0 %")) + Spacing;
    const int byteWidth = widest(QFontMetrics(numbers), bytes + QStringList(QStringLiteral("255"))) + Spacing;

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int i = 0; i < m_bars.size(); ++i) {
        const Bar& bar = m_bars.at(i);
        const QRect row(0, i * rowHeight(), width(), rowHeight());
        painter.setPen(palette().color(QPalette::WindowText));
        painter.setFont(font());
        painter.drawText(row, Qt::AlignLeft | Qt::AlignVCenter, bar.name);
        painter.setOpacity(Muted);
        painter.drawText(row.adjusted(0, 0, -byteWidth, 0), Qt::AlignRight | Qt::AlignVCenter, bar.percent);
        painter.setOpacity(1.0);
        painter.setFont(numbers);
        painter.drawText(row, Qt::AlignRight | Qt::AlignVCenter, bar.bytes);

        QRectF track = row.adjusted(nameWidth, 0, -byteWidth - percentWidth, 0);
        track = QRectF(track.left(), track.center().y() - 5, track.width(), 10);
        QPainterPath outline;
        outline.addRoundedRect(track, 5, 5);
        QColor groove = palette().color(QPalette::WindowText);
        groove.setAlpha(28);
        painter.fillPath(outline, groove);
        painter.save();
        painter.setClipPath(outline);
        painter.fillRect(QRectF(track.topLeft(), QSizeF(track.width() * bar.level, track.height())), bar.color);
        painter.restore();
        painter.setPen(QColor(128, 128, 128, 110));
        painter.drawRoundedRect(track.adjusted(0.5, 0.5, -0.5, -0.5), 4.5, 4.5);
    }
}

} // namespace lxcolor
