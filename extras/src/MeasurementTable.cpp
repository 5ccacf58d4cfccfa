#include "MeasurementTable_p.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>

namespace lxcolor {

namespace {

using Row = MeasurementTable::Row;

/// What a head says: "Y (cd/m2)" is Y in cd/m2.
struct Head
{
    QString name;
    QString unit;
    TextPlace place;
    double nm = 0.0; ///< Of a column of one wavelength; 0 for others.
};

// Of all units only the ratios count, so that a unit is to be known, and the same everywhere.
const QStringList& photometricUnits()
{
    static const QStringList units = {QStringLiteral("cd"), QStringLiteral("cd/m2"), QStringLiteral("lx"),
                                      QStringLiteral("lm"), QStringLiteral("relative")};
    return units;
}

const QStringList& radiometricUnits()
{
    static const QStringList units = [] {
        QStringList made{QStringLiteral("relative")};
        for (const char* power : {"W", "mW", "uW"})
            for (const char* per : {"/nm", "/m2/nm", "/cm2/nm", "/sr/nm", "/m2/sr/nm", "/sr/m2/nm"})
                made << QLatin1String(power) + QLatin1String(per);
        return made;
    }();
    return units;
}

/// One way of writing a unit: "W·m⁻²·nm⁻¹" is not known, "W/(m² nm)" is "W/m2/nm".
QString canonicalUnit(const QString& unit)
{
    QString text = unit.trimmed();
    text.replace(QChar(0xb2), QLatin1String("2"))
        .replace(QChar(0xb5), QLatin1String("u"))
        .replace(QChar(0x3bc), QLatin1String("u"));
    text.replace(QLatin1String("^2"), QLatin1String("2"));
    static const QRegularExpression denominator(QStringLiteral("/\\(([^()]*)\\)"));
    static const QRegularExpression between(QStringLiteral("[\\s*\\x{b7}]+"));
    const QRegularExpressionMatch match = denominator.match(text);
    if (match.hasMatch()) {
        QString parts = match.captured(1).trimmed();
        text.replace(match.capturedStart(), match.capturedLength(),
                     QLatin1Char('/') + parts.replace(between, QStringLiteral("/")));
    }
    text.remove(between);
    if (text == QLatin1String("nit") || text == QLatin1String("nits"))
        return QStringLiteral("cd/m2");
    if (text == QLatin1String("lux"))
        return QStringLiteral("lx");
    return text == QLatin1String("%") || text.startsWith(QLatin1String("rel")) ? QStringLiteral("relative") : text;
}

Head headOf(const DelimitedCell& cell)
{
    static const QRegularExpression withUnit(QStringLiteral("\\A(.*?)\\s*(?:\\((.*)\\)|\\[(.*)\\])\\z"));
    static const QRegularExpression wavelength(
        QStringLiteral("\\A(?:SPECTRAL_NM_?|SPECTRAL_|SPEC_|NM_?)?([0-9]{3,4}(?:[.,][0-9]+)?)\\s*(?:nm)?\\z"),
        QRegularExpression::CaseInsensitiveOption);
    Head head{cell.text, {}, cell.place};
    if (const QRegularExpressionMatch match = withUnit.match(cell.text); match.hasMatch()) {
        head.name = match.captured(1);
        head.unit = match.captured(2) + match.captured(3);
    }
    if (const QRegularExpressionMatch match = wavelength.match(head.name); match.hasMatch())
        head.nm = match.captured(1).replace(QLatin1Char(','), QLatin1Char('.')).toDouble();
    return head;
}

class TableReader
{
public:
    TableReader(const MeasurementTable& table, const QString& unit, FixtureImport::Reading& reading)
        : m_table(table), m_reading(reading), m_unitOfCaller(unit)
    {
        for (const DelimitedCell& cell : table.heads)
            m_heads.append(headOf(cell));
    }

    void read()
    {
        const QVector<int> XYZ = columns({"X", "Y", "Z"}, {"XYZ_X", "XYZ_Y", "XYZ_Z"});
        const QVector<int> xyY = columns({"x", "y", "Y"}, {"XYY_X", "XYY_Y", "XYY_CAPY"});
        QVector<int> bands;
        for (int i = 0; i < m_heads.size(); ++i)
            if (m_heads.at(i).nm > 0.0)
                bands.append(i);
        if (isWavelength(m_heads.first()))
            return readColumns();
        if (!XYZ.isEmpty())
            return readRows(XYZ, &TableReader::readXYZ, photometricUnits(), unitIn({XYZ.at(1)}));
        if (bands.size() > 1)
            return readRows(bands, &TableReader::readBands, radiometricUnits(), unitIn(bands));
        if (!xyY.isEmpty())
            return readRows(xyY, &TableReader::readxyY, photometricUnits(), unitIn({xyY.at(2)}));
        throw InputFault{
            FixtureImport::tr("There are no columns x, y, Y, nor X, Y, Z, nor of wavelengths such as \"380 nm\""),
            m_heads.first().place};
    }

private:
    using Reader = FixtureImport::Emitter (TableReader::*)(const Row& row, const QVector<int>& columns,
                                                           const QString& name);

    /// Where the columns of these names are, each under one of two; nothing when one is missing.
    QVector<int> columns(const QStringList& names, const QStringList& others) const
    {
        QVector<int> found;
        for (int i = 0; i < names.size(); ++i) {
            const auto isIt = [&](const Head& head) { return head.name == names.at(i) || head.name == others.at(i); };
            const auto place = std::find_if(m_heads.begin(), m_heads.end(), isIt);
            if (place == m_heads.end())
                return {};
            found.append(static_cast<int>(place - m_heads.begin()));
        }
        return found;
    }

    static bool isWavelength(const Head& head)
    {
        const QString name = head.name.toLower();
        return name == QLatin1String("nm") || name.startsWith(QLatin1String("wavelength")) ||
               name == QLatin1String("lambda") || name == QString(QChar(0x3bb)) ||
               name == QString::fromUtf8("wellenl\xc3\xa4nge");
    }

    /// The unit that the heads state, which have to agree; empty for none.
    Head unitIn(const QVector<int>& columns) const
    {
        Head stated;
        for (const int column : columns) {
            const Head& head = m_heads.at(column);
            if (head.unit.isEmpty())
                continue;
            if (!stated.unit.isEmpty() && canonicalUnit(head.unit) != canonicalUnit(stated.unit))
                throw InputFault{
                    FixtureImport::tr("The unit is \"%1\", but \"%2\" before it").arg(head.unit, stated.unit),
                    head.place};
            stated = head;
        }
        return stated;
    }

    /// Settles the unit, by what heads, file and caller state.
    void setUnit(const QStringList& known, const Head& stated)
    {
        const struct
        {
            const QString& unit;
            TextPlace place;
        } statements[] = {
            {stated.unit, stated.place}, {m_table.unit, m_table.unitPlace}, {m_unitOfCaller, m_heads.first().place}};
        for (const auto& statement : statements) {
            const QString unit = canonicalUnit(statement.unit);
            if (unit.isEmpty())
                continue;
            if (!known.contains(unit))
                throw InputFault{FixtureImport::tr("The unit \"%1\" does not fit; accepted: %2")
                                     .arg(statement.unit, known.join(QStringLiteral(", "))),
                                 statement.place};
            if (!m_reading.unit.isEmpty() && unit != m_reading.unit)
                throw InputFault{
                    FixtureImport::tr("The unit is \"%1\" here, but \"%2\" elsewhere").arg(unit, m_reading.unit),
                    statement.place};
            m_reading.unit = unit;
        }
        if (m_reading.unit.isEmpty())
            throw InputFault{
                FixtureImport::tr("The unit is not stated; accepted: %1").arg(known.join(QStringLiteral(", "))),
                m_heads.first().place};
    }

    /// A number with a decimal point or comma, whichever the file has.
    double number(const DelimitedCell& cell)
    {
        const bool hasComma = cell.text.contains(QLatin1Char(','));
        const bool hasPoint = cell.text.contains(QLatin1Char('.'));
        if ((hasComma && hasPoint) || (hasComma && m_hasPoints) || (hasPoint && m_hasCommas))
            throw InputFault{FixtureImport::tr("\"%1\": decimal points and decimal commas are mixed").arg(cell.text),
                             cell.place};
        m_hasCommas = m_hasCommas || hasComma;
        m_hasPoints = m_hasPoints || hasPoint;
        QString text = cell.text;
        bool isNumber = false;
        const double value = text.replace(QLatin1Char(','), QLatin1Char('.')).toDouble(&isNumber);
        if (!isNumber || !std::isfinite(value))
            throw InputFault{FixtureImport::tr("\"%1\" is no number").arg(cell.text), cell.place};
        return value;
    }

    /// The column with the names of the emitters.
    int nameColumn() const
    {
        const QStringList names{QStringLiteral("sample_name"), QStringLiteral("name"),   QStringLiteral("emitter"),
                                QStringLiteral("channel"),     QStringLiteral("colour"), QStringLiteral("color"),
                                QStringLiteral("led"),         QStringLiteral("kanal"),  QStringLiteral("farbe"),
                                QStringLiteral("sample_id")};
        for (const QString& name : names)
            for (int i = 0; i < m_heads.size(); ++i)
                if (m_heads.at(i).name.toLower() == name)
                    return i;
        throw InputFault{FixtureImport::tr("There is no column with the names of emitters; accepted: %1")
                             .arg(names.join(QStringLiteral(", "))),
                         m_heads.first().place};
    }

    void add(const FixtureImport::Emitter& emitter, TextPlace place)
    {
        const auto isTaken = [&](const FixtureImport::Emitter& other) { return other.name == emitter.name; };
        if (std::any_of(m_reading.emitters.begin(), m_reading.emitters.end(), isTaken))
            throw InputFault{FixtureImport::tr("There is a second \"%1\"").arg(emitter.name), place};
        m_reading.emitters.append(emitter);
    }

    /// Measurements that stand beside those that count.
    void tellUnused(const QVector<int>& used)
    {
        static const QStringList known{QStringLiteral("x"),     QStringLiteral("y"),       QStringLiteral("X"),
                                       QStringLiteral("Y"),     QStringLiteral("Z"),       QStringLiteral("XYZ_X"),
                                       QStringLiteral("XYZ_Y"), QStringLiteral("XYZ_Z"),   QStringLiteral("XYY_X"),
                                       QStringLiteral("XYY_Y"), QStringLiteral("XYY_CAPY")};
        QStringList unused;
        QStringList bands;
        for (int i = 0; i < m_heads.size(); ++i) {
            const Head& head = m_heads.at(i);
            if (!used.contains(i) && (head.nm > 0.0 || known.contains(head.name)))
                (head.nm > 0.0 ? bands : unused) << head.name;
        }
        if (!bands.isEmpty())
            unused << (bands.size() > 1 ? bands.first() + QChar(0x2026) + bands.last() : bands.first());
        if (!unused.isEmpty())
            m_reading.remarks
                << FixtureImport::tr("Columns that are not used: %1.").arg(unused.join(QStringLiteral(", ")));
    }

    void readRows(const QVector<int>& columns, Reader reader, const QStringList& units, const Head& stated)
    {
        const int name = nameColumn();
        setUnit(units, stated);
        tellUnused(columns);
        for (const Row& row : m_table.rows)
            add((this->*reader)(row, columns, row.at(name).text), row.at(name).place);
    }

    FixtureImport::Emitter readXYZ(const Row& row, const QVector<int>& columns, const QString& name)
    {
        const StandardObserver::XYZ light{number(row.at(columns.at(0))), number(row.at(columns.at(1))),
                                          number(row.at(columns.at(2)))};
        const TextPlace place = row.at(columns.at(0)).place;
        return {name, checkedLight(light, name, place, m_reading.remarks),
                QStringLiteral("line %1: X %2, Y %3, Z %4 in %5; %6")
                    .arg(place.line)
                    .arg(light.X)
                    .arg(light.Y)
                    .arg(light.Z)
                    .arg(m_reading.unit)
                    .arg(describedChromaticity(light))};
    }

    FixtureImport::Emitter readxyY(const Row& row, const QVector<int>& columns, const QString& name)
    {
        const double x = number(row.at(columns.at(0)));
        const double y = number(row.at(columns.at(1)));
        const double Y = number(row.at(columns.at(2)));
        const TextPlace place = row.at(columns.at(0)).place;
        return {name, lightOf(x, y, Y, place),
                QStringLiteral("line %1: x %2, y %3, Y %4 %5; X = x / y * Y, Z = (1 - x - y) / y * Y")
                    .arg(place.line)
                    .arg(x)
                    .arg(y)
                    .arg(Y)
                    .arg(m_reading.unit)};
    }

    FixtureImport::Emitter spectral(const QVector<QPointF>& spectrum, const QString& name, TextPlace place,
                                    const QString& origin)
    {
        const StandardObserver::XYZ light = checkedLight(lightOf(spectrum, place), name, place, m_reading.remarks);
        return {name, light,
                QStringLiteral("%1: %2, in %3; %4")
                    .arg(origin, describedSpectrum(spectrum), m_reading.unit, describedChromaticity(light))};
    }

    FixtureImport::Emitter readBands(const Row& row, const QVector<int>& columns, const QString& name)
    {
        QVector<QPointF> spectrum;
        for (const int column : columns)
            spectrum.append({m_heads.at(column).nm, number(row.at(column))});
        const TextPlace place = row.at(columns.first()).place;
        return spectral(spectrum, name, place, QStringLiteral("line %1").arg(place.line));
    }

    /// A row a wavelength, a column an emitter.
    void readColumns()
    {
        const Head& first = m_heads.first();
        const QString unit =
            first.unit.isEmpty() && first.name.toLower() == QLatin1String("nm") ? QStringLiteral("nm") : first.unit;
        if (unit != QLatin1String("nm"))
            throw InputFault{
                FixtureImport::tr("The wavelengths have to be in nanometres, and say so: \"wavelength (nm)\""),
                first.place};
        QVector<int> columns;
        for (int i = 1; i < m_heads.size(); ++i)
            if (!m_heads.at(i).name.isEmpty())
                columns.append(i);
        setUnit(radiometricUnits(), unitIn(columns));
        QVector<double> wavelengths;
        for (const Row& row : m_table.rows)
            wavelengths.append(number(row.first()));
        for (const int column : qAsConst(columns)) {
            QVector<QPointF> spectrum;
            for (int i = 0; i < wavelengths.size(); ++i)
                spectrum.append({wavelengths.at(i), number(m_table.rows.at(i).at(column))});
            const Head& head = m_heads.at(column);
            add(spectral(spectrum, head.name, head.place, QStringLiteral("column %1").arg(column + 1)), head.place);
        }
    }

    const MeasurementTable& m_table;
    FixtureImport::Reading& m_reading;
    QString m_unitOfCaller;
    QVector<Head> m_heads;
    bool m_hasCommas = false;
    bool m_hasPoints = false;
};

} // namespace

void readTable(const MeasurementTable& table, const QString& unit, FixtureImport::Reading& reading)
{
    if (table.rows.isEmpty())
        throw InputFault{FixtureImport::tr("There are no measurements below the line of heads"),
                         table.heads.first().place};
    TableReader(table, unit, reading).read();
}

void readCsvMeasurement(const QString& text, const QString& unit, FixtureImport::Reading& reading)
{
    MeasurementTable table;
    // Lines of comments, one of which may state the unit.
    int offset = 0;
    while (offset < text.size() && (text.at(offset) == QLatin1Char('#') || text.at(offset).isSpace())) {
        int end = text.indexOf(QLatin1Char('\n'), offset);
        end = end < 0 ? text.size() : end;
        static const QRegularExpression statement(QStringLiteral("\\A#\\s*unit\\s*:\\s*(.*)\\z"),
                                                  QRegularExpression::CaseInsensitiveOption);
        const QRegularExpressionMatch match = statement.match(text.mid(offset, end - offset).trimmed());
        if (match.hasMatch()) {
            table.unit = match.captured(1);
            table.unitPlace = placeAt(text, offset);
        }
        offset = std::min(end + 1, text.size());
    }
    const int end = text.indexOf(QLatin1Char('\n'), offset);
    DelimitedReader lines(text, separatorOf(text.mid(offset, end < 0 ? -1 : end - offset)), offset);
    if (!lines.next(table.heads))
        throw InputFault{FixtureImport::tr("The file is empty"), {1, 1}};
    Row row;
    while (lines.next(row)) {
        if (row.size() != table.heads.size())
            throw InputFault{
                FixtureImport::tr(
                    "The number of cells in the row is %1, that of heads %2 (numbers with decimal commas need "
                    "quotation marks, or semicolons between the cells)")
                    .arg(row.size())
                    .arg(table.heads.size()),
                row.first().place};
        table.rows.append(row);
    }
    readTable(table, unit, reading);
}

} // namespace lxcolor
