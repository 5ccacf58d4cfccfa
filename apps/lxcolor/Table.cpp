#include "Table.h"

#include "Output.h"
#include "SubcommandLine.h"

#include <algorithm>

QString swatch(const LXColor& color)
{
    const QColor shown = color.getQColor(true);
    return QStringLiteral("\x1b[48;2;%1;%2;%3m    \x1b[0m ").arg(shown.red()).arg(shown.green()).arg(shown.blue());
}

Table::Table(const QStringList& heads, int numberWidth, bool swatches) : m_heads(heads), m_swatches(swatches)
{
    for (const QString& head : heads)
        m_widths.append(std::max(head.size(), numberWidth) + 2);
}

void Table::writeHeads(const QString& title) const
{
    const QString overSwatch = m_swatches ? QString(5, QLatin1Char(' ')) : QString();
    if (!title.isNull())
        m_aboveFirstRow << title;
    m_aboveFirstRow << aligned(m_heads) + QStringLiteral("  ") + overSwatch + QStringLiteral("Colour");
}

void Table::writeRow(const QStringList& numbers, const GivenColor& given) const
{
    for (const QString& line : qAsConst(m_aboveFirstRow))
        writeLine(line);
    m_aboveFirstRow.clear();
    writeLine(aligned(numbers) + QStringLiteral("  ") + (m_swatches ? swatch(given.color) : QString()) + given.shown());
}

QString Table::aligned(const QStringList& cells) const
{
    // A colour may carry more levels than there are heads; none is hidden.
    QString line;
    for (int i = 0; i < std::max(cells.size(), m_widths.size()); ++i)
        line += cells.value(i).rightJustified(m_widths.value(i, m_widths.last()));
    return line;
}

void addSwatchesOption(SubcommandLine& line)
{
    line.addChoice(QStringLiteral("swatches"),
                   {QStringLiteral("auto"), QStringLiteral("always"), QStringLiteral("never")},
                   QStringLiteral("Whether tables show the colours; auto: on a terminal, unless NO_COLOR is set."));
}

bool wantsSwatches(const SubcommandLine& line)
{
    const QString wish = line.value(QStringLiteral("swatches"));
    return wish == QLatin1String("always") || (wish == QLatin1String("auto") && outputShowsColors());
}
