#include "DiagramPainter_p.h"

#include <QPainter>

#include <algorithm>

namespace lxcolor {

namespace {

using Element = ChromaticityDiagram;

// In ems.
constexpr double kLegendText = 0.88;
constexpr double kLineHeight = 1.45;
constexpr double kSample = 2.2;
constexpr double kPadding = 0.6;

} // namespace

struct DiagramPainter::LegendEntry
{
    enum Kind { FixtureLine, BlackbodyLine, DaylightLine, TintLine, RequestedMark, AchievedMark };
    Kind kind;
    int fixture;
    QString text;
};

QVector<DiagramPainter::LegendEntry> DiagramPainter::legendEntries() const
{
    QVector<LegendEntry> entries;
    if (shows(Element::Fixtures))
        for (int i = 0; i < m_diagram.fixtures().size(); ++i)
            if (!m_diagram.fixtures().at(i).name.isEmpty())
                entries.append({LegendEntry::FixtureLine, i, m_diagram.fixtures().at(i).name});
    const auto anyPoint = [this](QPointF ChromaticityDiagram::Point::*which) {
        return shows(Element::Points) && std::any_of(m_diagram.points().begin(), m_diagram.points().end(),
                                                     [&](const auto& p) { return m_geometry.isDrawable(p.*which); });
    };
    if (anyPoint(&ChromaticityDiagram::Point::requested))
        entries.append({LegendEntry::RequestedMark, 0, ChromaticityDiagram::tr("Requested")});
    if (anyPoint(&ChromaticityDiagram::Point::achieved))
        entries.append({LegendEntry::AchievedMark, 0, ChromaticityDiagram::tr("Achieved")});
    if (shows(Element::BlackbodyLocus))
        entries.append({LegendEntry::BlackbodyLine, 0, ChromaticityDiagram::tr("Blackbody")});
    if (shows(Element::DaylightLocus))
        entries.append({LegendEntry::DaylightLine, 0, ChromaticityDiagram::tr("Daylight")});
    if (shows(Element::TintLines))
        entries.append({LegendEntry::TintLine, 0, ChromaticityDiagram::tr("CCT and tint")});
    return entries;
}

QRectF DiagramPainter::legendPanel(const QVector<LegendEntry>& entries) const
{
    const QFont used = font(kLegendText);
    if (entries.isEmpty() || used.pixelSize() < kLeastText)
        return {};
    double widest = 0.0;
    for (const LegendEntry& entry : entries)
        widest = std::max(widest, textSize(entry.text, used).width());
    const double padding = kPadding * m_em;
    const QSizeF size(kSample * m_em + widest + 2.6 * padding, kLineHeight * m_em * entries.size() + padding);
    const QRectF plot = QRectF(m_geometry.plot()).adjusted(padding, padding, -padding, -padding);
    // Where the diagram is empty.
    const bool atTop = m_diagram.plane() == ChromaticityDiagram::Plane::CIE1931xy;
    return {QPointF(plot.right() - size.width(), atTop ? plot.top() : plot.bottom() - size.height()), size};
}

void DiagramPainter::reserveLegend() { m_labels.reserve(legendPanel(legendEntries())); }

void DiagramPainter::paintLegend()
{
    const QVector<LegendEntry> entries = legendEntries();
    const QRectF panel = legendPanel(entries);
    if (panel.isNull())
        return;
    m_painter.setPen(pen(m_colors.grid, Weight::Thin));
    m_painter.setBrush(m_colors.legendPanel);
    m_painter.drawRoundedRect(panel, 0.35 * m_em, 0.35 * m_em);
    m_painter.setBrush(Qt::NoBrush);

    const double padding = kPadding * m_em;
    const double lineHeight = kLineHeight * m_em;
    const double textLeft = panel.left() + kSample * m_em + 1.7 * padding;
    double y = panel.top() + padding / 2.0;
    for (const LegendEntry& entry : entries) {
        paintLegendSample(entry, QRectF(panel.left() + padding, y, kSample * m_em, lineHeight));
        m_painter.setFont(font(kLegendText));
        m_painter.setPen(m_colors.text);
        m_painter.drawText(QRectF(textLeft, y, panel.right() - textLeft, lineHeight),
                           Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip, entry.text);
        y += lineHeight;
    }
}

void DiagramPainter::paintLegendSample(const LegendEntry& entry, const QRectF& room)
{
    // On the panel the lines are of the text's colour, which a dark panel shows as well.
    const QPointF left(room.left(), room.center().y());
    const QPointF right(room.right(), room.center().y());
    const double radius = kMarkRadius * m_em;
    switch (entry.kind) {
    case LegendEntry::FixtureLine:
        strokeWithHalo(QPolygonF(QVector<QPointF>{left, right}),
                       pen(colorOf(entry.fixture), Weight::Bold, styleOf(entry.fixture)));
        break;
    case LegendEntry::BlackbodyLine:
        m_painter.setPen(pen(m_colors.text, Weight::Normal));
        m_painter.drawLine(left, right);
        break;
    case LegendEntry::DaylightLine:
        m_painter.setPen(pen(m_colors.text, Weight::Thin, Qt::DashLine));
        m_painter.drawLine(left, right);
        break;
    case LegendEntry::TintLine:
        m_painter.setPen(pen(m_colors.text, Weight::Hair));
        m_painter.drawRect(QRectF(room.left(), room.center().y() - 0.35 * m_em, room.width(), 0.7 * m_em));
        for (double part : {0.25, 0.5, 0.75})
            m_painter.drawLine(QPointF(room.left() + part * room.width(), room.center().y() - 0.35 * m_em),
                               QPointF(room.left() + part * room.width(), room.center().y() + 0.35 * m_em));
        break;
    case LegendEntry::RequestedMark:
        m_painter.setPen(pen(m_colors.text, Weight::Bold));
        m_painter.drawEllipse(room.center(), 1.35 * radius, 1.35 * radius);
        break;
    case LegendEntry::AchievedMark:
        paintMark(room.center(), radius, m_colors.text, m_colors.text);
        break;
    }
}

} // namespace lxcolor
