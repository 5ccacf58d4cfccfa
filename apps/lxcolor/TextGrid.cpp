#include "TextGrid.h"

#include "Output.h"

#include <algorithm>

void writeGrid(const QVector<QStringList>& rows, int leftAligned, const QString& indent)
{
    QVector<int> widths;
    for (const QStringList& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (int i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], row[i].size());
    }
    for (const QStringList& row : rows) {
        QStringList cells;
        for (int i = 0; i < row.size(); ++i)
            cells << (i < leftAligned ? row[i].leftJustified(widths[i]) : row[i].rightJustified(widths[i]));
        QString line = indent + cells.join(QStringLiteral("  "));
        while (line.endsWith(QLatin1Char(' ')))
            line.chop(1);
        writeLine(line);
    }
}
