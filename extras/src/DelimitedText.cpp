#include "DelimitedText_p.h"
#include "PaletteFormat.h"

#include <algorithm>

namespace lxcolor {

namespace {

constexpr int kMostColumns = 4096;

} // namespace

DelimitedReader::DelimitedReader(const QString& text, QChar separator, int firstOffset)
    : m_text(text), m_separator(separator), m_offset(firstOffset)
{
    m_line = placeAt(text, firstOffset).line;
    m_lineStart = firstOffset - static_cast<int>(placeAt(text, firstOffset).column) + 1;
}

bool DelimitedReader::next(QVector<DelimitedCell>& row)
{
    while (m_offset < m_text.size()) {
        readRow(row);
        const bool isBlank =
            std::all_of(row.cbegin(), row.cend(), [](const DelimitedCell& cell) { return cell.text.isEmpty(); });
        if (!isBlank)
            return true;
    }
    return false;
}

void DelimitedReader::readRow(QVector<DelimitedCell>& row)
{
    row.clear();
    while (true) {
        if (row.size() == kMostColumns)
            throw InputFault{PaletteFormat::tr("The row has more than %1 cells").arg(kMostColumns), place()};
        while (isAt(' ') && m_separator != QLatin1Char(' '))
            ++m_offset;
        const TextPlace start = place();
        const QString text = isAt('"') ? readQuoted() : readPlain();
        row.append({text, start});
        if (isAtLineEnd())
            break;
        ++m_offset; // the separator
    }
    if (isAt('\r'))
        ++m_offset;
    if (isAt('\n'))
        ++m_offset;
    ++m_line;
    m_lineStart = m_offset;
}

QString DelimitedReader::readQuoted()
{
    const TextPlace start = place();
    QString text;
    ++m_offset;
    while (true) {
        if (m_offset >= m_text.size())
            throw InputFault{PaletteFormat::tr("The quotation mark that opens here is not closed"), start};
        const QChar c = m_text.at(m_offset++);
        if (c == QLatin1Char('\n')) {
            ++m_line;
            m_lineStart = m_offset;
        }
        if (c == QLatin1Char('"')) {
            if (!isAt('"'))
                break;
            ++m_offset;
        }
        text += c;
    }
    while (isAt(' '))
        ++m_offset;
    if (!isAtLineEnd() && m_text.at(m_offset) != m_separator)
        throw InputFault{PaletteFormat::tr("There is text behind the closing quotation mark"), place()};
    return text;
}

QString DelimitedReader::readPlain()
{
    const int start = m_offset;
    while (!isAtLineEnd() && m_text.at(m_offset) != m_separator)
        ++m_offset;
    return m_text.mid(start, m_offset - start).trimmed();
}

QChar separatorOf(const QString& heads)
{
    for (const char c : {'\t', ';'})
        if (heads.contains(QLatin1Char(c)))
            return QLatin1Char(c);
    return QLatin1Char(',');
}

QString delimitedCell(const QString& text, QChar separator)
{
    const bool isPlain = text == text.trimmed() && !text.contains(separator) && !text.contains(QLatin1Char('"')) &&
                         !text.contains(QLatin1Char('\n')) && !text.contains(QLatin1Char('\r'));
    QString quoted = text;
    return isPlain ? text
                   : QLatin1Char('"') + quoted.replace(QLatin1Char('"'), QLatin1String("\"\"")) + QLatin1Char('"');
}

} // namespace lxcolor
