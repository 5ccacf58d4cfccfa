#include "DelimitedText_p.h"
#include "PaletteCodecs_p.h"

#include <algorithm>

// A table with a line of heads and a line a colour.

namespace lxcolor {

namespace {

using Code = PaletteFormat::Code;

enum Column { ListColumn, Name, Red, Green, Blue, Alpha, Value, Uid, Origin, VendorId, UserList, ColumnCount };
const char* const kHeads[ColumnCount] = {
    "list", "name", "red", "green", "blue", "alpha", "value", "uid", "originatingPreset", "vendorId", "userList"};

using Row = QVector<DelimitedCell>;

class CsvReader
{
public:
    explicit CsvReader(PaletteBuilder& builder) : m_builder(builder)
    {
        std::fill(std::begin(m_columns), std::end(m_columns), -1);
    }

    void read(const QString& text)
    {
        const int lineEnd = std::max(0, text.indexOf(QLatin1Char('\n')));
        DelimitedReader table(text, separatorOf(lineEnd > 0 ? text.left(lineEnd) : text));
        Row row;
        if (!table.next(row))
            throw InputFault{PaletteFormat::tr("The file is empty"), {1, 1}};
        readHeads(row);
        while (table.next(row))
            readRow(row);
    }

private:
    void readHeads(const Row& row)
    {
        m_cellCount = row.size();
        for (int i = 0; i < row.size(); ++i) {
            const QString& head = row.at(i).text;
            const auto* const found = std::find_if(std::begin(kHeads), std::end(kHeads), [&](const char* known) {
                return head.compare(QLatin1String(known), Qt::CaseInsensitive) == 0;
            });
            if (found == std::end(kHeads)) {
                m_builder.remarks().add(Code::Other);
                continue;
            }
            int& column = m_columns[found - std::begin(kHeads)];
            if (column >= 0)
                throw InputFault{PaletteFormat::tr("There is a second column \"%1\"").arg(head), row.at(i).place};
            column = i;
        }
        m_hasNumbers = m_columns[Red] >= 0 && m_columns[Green] >= 0 && m_columns[Blue] >= 0;
        if (m_columns[Value] < 0 && !m_hasNumbers)
            throw InputFault{
                PaletteFormat::tr("The line of heads has neither \"value\" nor \"red\", \"green\" and \"blue\""),
                row.first().place};
    }

    void readRow(const Row& row)
    {
        if (row.size() != m_cellCount)
            throw InputFault{PaletteFormat::tr("The number of cells in the row is %1, that of heads %2")
                                 .arg(row.size())
                                 .arg(m_cellCount),
                             row.first().place};
        const Palette::Entry entry{textOf(row, Name), valueOf(row), textOf(row, Uid), textOf(row, Origin),
                                   textOf(row, VendorId)};
        if (m_columns[ListColumn] >= 0)
            m_builder.goToList(textOf(row, ListColumn), textOf(row, UserList) != QLatin1String("0"));
        m_builder.add(entry);
    }

    QString textOf(const Row& row, Column column) const
    {
        return m_columns[column] < 0 ? QString() : row.at(m_columns[column]).text;
    }

    int levelOf(const Row& row, Column column, int otherwise = -1) const
    {
        const QString text = textOf(row, column);
        bool isNumber = false;
        const int level = text.toInt(&isNumber);
        if (text.isEmpty() && otherwise >= 0)
            return otherwise;
        if (!isNumber || level < 0 || level > 255)
            throw InputFault{PaletteFormat::tr("A number from 0 to 255 is expected"), row.at(m_columns[column]).place};
        return level;
    }

    /// The value string of a row, or that of its numbers.
    QString valueOf(const Row& row)
    {
        QString value = textOf(row, Value);
        const bool hasNumbers = m_hasNumbers && !(textOf(row, Red).isEmpty() && textOf(row, Green).isEmpty() &&
                                                  textOf(row, Blue).isEmpty() && !value.isEmpty());
        if (!hasNumbers) {
            if (textOf(row, Alpha).isEmpty())
                return value;
            const LXColor color = LXColor(value);
            m_builder.remarks().add(Code::Edited, color.isValid() && color.alpha8() != levelOf(row, Alpha) ? 1 : 0);
            return value;
        }
        const LXColor numbers = LXColor::fromRgb8(levelOf(row, Red), levelOf(row, Green), levelOf(row, Blue),
                                                  levelOf(row, Alpha, 255), ColorUtils::ProfileGenericRGB);
        if (value.isEmpty())
            return numbers.aName();
        const LXColor rgb = LXColor(value).toRgb16(true);
        const bool isSame = rgb.rgba() == numbers.rgba();
        m_builder.remarks().add(Code::Edited, isSame || !rgb.isValid() ? 0 : 1);
        return value;
    }

    PaletteBuilder& m_builder;
    int m_columns[ColumnCount]; ///< Where each is; -1 for nowhere.
    int m_cellCount = 0;
    bool m_hasNumbers = false;
};

} // namespace

void readCsv(const QByteArray& content, PaletteBuilder& builder)
{
    CsvReader(builder).read(decodedText(content, builder.remarks()));
}

QByteArray writeCsv(const Palette& palette, PaletteRemarks& remarks)
{
    const QChar comma = QLatin1Char(',');
    QStringList heads;
    for (const char* head : kHeads)
        heads << QLatin1String(head);
    QString text = heads.join(comma) + QLatin1String("\r\n");
    QHash<QString, int> listsByName;
    for (const Palette::List& list : palette.lists) {
        remarks.add(list.entries.isEmpty() ? Code::EmptyList : Code::Lists,
                    list.entries.isEmpty() || listsByName[list.name]++ > 0 ? 1 : 0);
        for (const Palette::Entry& entry : list.entries) {
            const LXColor rgb = rgbOf(entry);
            QStringList cells{list.name, entry.name};
            for (const int level : {rgb.red8(), rgb.green8(), rgb.blue8(), rgb.alpha8()})
                cells << QString::number(level);
            cells << entry.value << entry.uid << entry.originatingPreset << entry.vendorId
                  << QString::number(list.isUserList ? 1 : 0);
            for (QString& cell : cells)
                cell = delimitedCell(cell, comma);
            text += cells.join(comma) + QLatin1String("\r\n");
        }
    }
    return text.toUtf8();
}

} // namespace lxcolor
