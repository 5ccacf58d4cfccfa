#ifndef MARKDOWNTABLE_H
#define MARKDOWNTABLE_H

#include <QString>
#include <QStringList>

#include <algorithm>
#include <cstdio>
#include <vector>

/// A Markdown table with aligned columns, the first to the left and the rest to the right, on standard output.
class MarkdownTable
{
public:
    explicit MarkdownTable(const QStringList& heads) { add(heads); }

    void add(const QStringList& row) { m_rows.push_back(row); }

    void print() const
    {
        std::vector<int> widths;
        for (int column = 0; column < m_rows.front().size(); ++column) {
            widths.push_back(3);
            for (const QStringList& row : m_rows)
                widths.back() = std::max(widths.back(), row.value(column).size());
        }
        for (std::size_t i = 0; i < m_rows.size(); ++i) {
            printRow(m_rows[i], widths);
            if (i == 0)
                printRule(widths);
        }
        std::puts("");
    }

private:
    static void printRow(const QStringList& row, const std::vector<int>& widths)
    {
        QString line;
        for (std::size_t column = 0; column < widths.size(); ++column) {
            const QString cell = row.value(static_cast<int>(column));
            const int width = widths[column];
            line += QLatin1String("| ") + (column == 0 ? cell.leftJustified(width) : cell.rightJustified(width)) +
                    QLatin1Char(' ');
        }
        std::puts(qUtf8Printable(line + QLatin1Char('|')));
    }

    static void printRule(const std::vector<int>& widths)
    {
        QString line;
        for (std::size_t column = 0; column < widths.size(); ++column) {
            const QString dashes(widths[column], QLatin1Char('-'));
            line += QLatin1String("| ") + (column == 0 ? dashes : dashes.left(widths[column] - 1) + QLatin1Char(':')) +
                    QLatin1Char(' ');
        }
        std::puts(qUtf8Printable(line + QLatin1Char('|')));
    }

    std::vector<QStringList> m_rows;
};

#endif
