#include "MeasurementTable_p.h"

#include <QHash>

// CGATS text (ISO 28178): keywords with values, the names of fields, and sets of data between words that begin and end
// them. Words stand between white space, quoted where they hold some; "#" begins a comment.

namespace lxcolor {

namespace {

constexpr int kMostFields = 4096;

class WordReader
{
public:
    explicit WordReader(const QString& text) : m_text(text) {}

    /// The next word; false at the end.
    bool next(DelimitedCell& word)
    {
        skip();
        if (m_offset >= m_text.size())
            return false;
        word.place = place();
        if (m_text.at(m_offset) == QLatin1Char('"')) {
            word.text = readQuoted();
            return true;
        }
        const int start = m_offset;
        while (m_offset < m_text.size() && !m_text.at(m_offset).isSpace())
            ++m_offset;
        word.text = m_text.mid(start, m_offset - start);
        return true;
    }
    TextPlace place() const { return {m_line, m_offset - m_lineStart + 1}; }

private:
    void skip()
    {
        while (m_offset < m_text.size()) {
            const QChar c = m_text.at(m_offset);
            if (c == QLatin1Char('#')) {
                const int end = m_text.indexOf(QLatin1Char('\n'), m_offset);
                m_offset = end < 0 ? m_text.size() : end;
                continue;
            }
            if (!c.isSpace())
                return;
            ++m_offset;
            if (c == QLatin1Char('\n')) {
                ++m_line;
                m_lineStart = m_offset;
            }
        }
    }

    QString readQuoted()
    {
        const TextPlace start = place();
        const int end = m_text.indexOf(QLatin1Char('"'), m_offset + 1);
        const int lineEnd = m_text.indexOf(QLatin1Char('\n'), m_offset);
        if (end < 0 || (lineEnd >= 0 && lineEnd < end))
            throw InputFault{FixtureImport::tr("The quotation mark that opens here is not closed"), start};
        QString text = m_text.mid(m_offset + 1, end - m_offset - 1);
        m_offset = end + 1;
        return text;
    }

    const QString& m_text;
    int m_offset = 0;
    qint64 m_line = 1;
    int m_lineStart = 0;
};

class CgatsReader
{
public:
    CgatsReader(const QString& text, FixtureImport::Reading& reading) : m_words(text), m_reading(reading) {}

    MeasurementTable read()
    {
        readKeywords("BEGIN_DATA_FORMAT");
        m_table.heads = readUntil("END_DATA_FORMAT");
        if (m_table.heads.isEmpty())
            throw InputFault{FixtureImport::tr("There are no fields"), m_words.place()};
        if (m_table.heads.size() > kMostFields)
            throw InputFault{FixtureImport::tr("There are more than %1 fields").arg(kMostFields), m_words.place()};
        readKeywords("BEGIN_DATA");
        const TextPlace place = m_words.place();
        const MeasurementTable::Row cells = readUntil("END_DATA");
        const int fields = m_table.heads.size();
        if (cells.size() % fields != 0)
            throw InputFault{FixtureImport::tr("There are %1 values, which is no multiple of the %2 fields")
                                 .arg(cells.size())
                                 .arg(fields),
                             place};
        for (int i = 0; i < cells.size(); i += fields)
            m_table.rows.append(cells.mid(i, fields));
        checkCount(QStringLiteral("NUMBER_OF_FIELDS"), fields);
        checkCount(QStringLiteral("NUMBER_OF_SETS"), m_table.rows.size());
        DelimitedCell word;
        while (m_words.next(word))
            if (word.text == QLatin1String("BEGIN_DATA"))
                m_reading.remarks << FixtureImport::tr("Only the first table of the file is read.");
        return m_table;
    }

private:
    /// Keywords and their values up to a word.
    void readKeywords(const char* last)
    {
        DelimitedCell word;
        DelimitedCell keyword;
        while (m_words.next(word)) {
            if (word.text == QLatin1String(last))
                return;
            if (keyword.place.line == word.place.line) {
                m_values.insert(keyword.text, word);
                if (keyword.text == QLatin1String("UNIT")) {
                    m_table.unit = word.text;
                    m_table.unitPlace = word.place;
                }
            } else {
                keyword = word;
            }
        }
        throw InputFault{FixtureImport::tr("The file ends before \"%1\"").arg(QLatin1String(last)), m_words.place()};
    }

    MeasurementTable::Row readUntil(const char* last)
    {
        MeasurementTable::Row words;
        DelimitedCell word;
        while (m_words.next(word)) {
            if (word.text == QLatin1String(last))
                return words;
            words.append(word);
        }
        throw InputFault{FixtureImport::tr("The file ends before \"%1\"").arg(QLatin1String(last)), m_words.place()};
    }

    void checkCount(const QString& keyword, int count) const
    {
        const DelimitedCell value = m_values.value(keyword);
        if (!value.text.isEmpty() && value.text != QString::number(count))
            throw InputFault{
                FixtureImport::tr("%1 is %2, but there are %3").arg(keyword, value.text, QString::number(count)),
                value.place};
    }

    WordReader m_words;
    FixtureImport::Reading& m_reading;
    MeasurementTable m_table;
    QHash<QString, DelimitedCell> m_values;
};

} // namespace

void readCgatsMeasurement(const QString& text, const QString& unit, FixtureImport::Reading& reading)
{
    readTable(CgatsReader(text, reading).read(), unit, reading);
}

} // namespace lxcolor
