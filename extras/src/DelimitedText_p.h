#ifndef DELIMITEDTEXT_P_H
#define DELIMITEDTEXT_P_H

#include "InputFault_p.h"

#include <QString>
#include <QVector>

// Tables as text: a line a row, cells between separators, as RFC 4180 has them.
namespace lxcolor {

struct DelimitedCell
{
    QString text; ///< Without quotes, and without white space at its ends unless it was quoted.
    TextPlace place;
};

class DelimitedReader
{
public:
    /// \a text has to outlive it.
    DelimitedReader(const QString& text, QChar separator, int firstOffset = 0);

    /// The next row that has anything in it; false at the end. Throws an InputFault for quotes that do not match.
    bool next(QVector<DelimitedCell>& row);

private:
    void readRow(QVector<DelimitedCell>& row);
    QString readQuoted();
    QString readPlain();
    bool isAt(char c) const { return m_offset < m_text.size() && m_text.at(m_offset) == QLatin1Char(c); }
    bool isAtLineEnd() const { return m_offset >= m_text.size() || isAt('\n') || isAt('\r'); }
    TextPlace place() const { return {m_line, m_offset - m_lineStart + 1}; }

    const QString& m_text;
    QChar m_separator;
    int m_offset;
    int m_lineStart;
    qint64 m_line;
};

/// The separator of a table by its line of heads: a tabulator where there is one, else a semicolon, else a comma.
QChar separatorOf(const QString& heads);

/// \a text as a cell.
QString delimitedCell(const QString& text, QChar separator);

} // namespace lxcolor

#endif
