#include "CommandError.h"
#include "FileBytes.h"
#include "FixtureImport.h"
#include "FixtureLookup.h"
#include "Output.h"
#include "SubcommandLine.h"
#include "Subcommands.h"
#include "TextGrid.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

#include <cstdio>

namespace {

using Emitter = FixtureImport::Emitter;

struct Import
{
    QString file;
    QString out;
    ColorUtils::TonematchProfileID profile;
    FixtureImport::Reading reading;
    FixtureImport::Assignment assignment;
    FixtureImport::Database database;
};

FixtureImport::Reading readMeasurement(const QString& fileName, const QString& unit)
{
    FixtureImport::Reading reading = FixtureImport::read(readInput(fileName, FixtureImport::largestFile), unit);
    const FixtureImport::Error& error = reading.error;
    const QString place = error.line > 0 ? QStringLiteral(":%1:%2").arg(error.line).arg(error.column) : QString();
    if (!reading.isRead)
        throw CommandError(
            QStringLiteral("%1%2: %3").arg(printable(inputName(fileName)), place, printable(error.text)));
    return reading;
}

Import importOf(const SubcommandLine& line, const QString& file)
{
    Import import;
    import.file = file;
    import.out = line.value(QStringLiteral("output"));
    if (import.out.isEmpty())
        throw CommandError(QStringLiteral("--output is missing: the fixture profile database to write"));
    if (!line.isSet(QStringLiteral("profile")))
        throw CommandError(QStringLiteral("--profile is missing: the fixture that was measured"));
    if (isStandardStream(import.out) && line.format() == QLatin1String("json"))
        throw CommandError(QStringLiteral("--json reports on standard output, so OUT cannot be -"));
    import.profile = fixtureWithGamutNamed(line.value(QStringLiteral("profile")));
    import.reading = readMeasurement(file, line.value(QStringLiteral("unit")));
    const QStringList channels = line.value(QStringLiteral("channels")).split(QLatin1Char(','), Qt::SkipEmptyParts);
    import.assignment = FixtureImport::assign(import.reading.emitters, import.profile, channels);
    if (!import.assignment.isComplete) {
        const QString leftOut = import.reading.remarks.join(QLatin1Char(' '));
        throw CommandError(
            QStringLiteral("%1: %2%3%4")
                .arg(printable(inputName(file)), printable(import.assignment.error),
                     channels.isEmpty() ? QStringLiteral("; --channels says which emitter is which") : QString(),
                     leftOut.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(printable(leftOut))));
    }
    const QByteArray earlier = !isStandardStream(import.out) && QFileInfo::exists(import.out)
                                   ? readFile(import.out, FixtureImport::largestFile)
                                   : QByteArray();
    import.database =
        FixtureImport::writeProfile(earlier, import.profile, import.assignment.channels,
                                    QFileInfo(inputName(file)).fileName(), line.isSet(QStringLiteral("replace")));
    if (!import.database.isWritten)
        throw CommandError(QStringLiteral("cannot add to %1: %2")
                               .arg(quoted(outputName(import.out)), printable(import.database.error)));
    return import;
}

QJsonObject toJson(const Import& import)
{
    QJsonArray channels;
    for (const Emitter& channel : import.assignment.channels) {
        const QPointF xy = channel.light.xy();
        channels.append(QJsonObject{{QStringLiteral("name"), channel.name},
                                    {QStringLiteral("X"), channel.light.X},
                                    {QStringLiteral("Y"), channel.light.Y},
                                    {QStringLiteral("Z"), channel.light.Z},
                                    {QStringLiteral("x"), xy.x()},
                                    {QStringLiteral("y"), xy.y()},
                                    {QStringLiteral("origin"), channel.origin}});
    }
    return {
        {QStringLiteral("in"), inputName(import.file)},
        {QStringLiteral("source"), FixtureImport::name(import.reading.source)},
        {QStringLiteral("unit"), import.reading.unit},
        {QStringLiteral("out"), import.out},
        {QStringLiteral("fixture"), import.profile},
        {QStringLiteral("name"), ColorUtils::tonematchProfileIDName(import.profile)},
        {QStringLiteral("replaced"), import.database.isReplacing},
        {QStringLiteral("channels"), channels},
        {QStringLiteral("remarks"), QJsonArray::fromStringList(import.reading.remarks + import.assignment.remarks)}};
}

void writeText(const Import& import)
{
    for (const QString& remark : import.reading.remarks + import.assignment.remarks)
        std::fprintf(stderr, "lxcolor: warning: %s: %s\n", qUtf8Printable(printable(inputName(import.file))),
                     qUtf8Printable(printable(remark)));
    if (isStandardStream(import.out)) // the database has it all in comments
        return;
    const QString unit = import.reading.unit;
    const bool isOfSpectra = unit.contains(QLatin1Char('W'));
    QVector<QStringList> rows{{QStringLiteral("Channel"), QStringLiteral("x"), QStringLiteral("y"),
                               isOfSpectra ? QStringLiteral("Y") : QStringLiteral("Y, ") + unit}};
    for (const Emitter& channel : import.assignment.channels) {
        const QPointF xy = channel.light.xy();
        rows.append({printable(channel.name), QString::number(xy.x(), 'f', 4), QString::number(xy.y(), 'f', 4),
                     QString::number(channel.light.Y, 'g', 5)});
    }
    writeLine(
        QStringLiteral("%1 %2 %3 %4")
            .arg(printable(import.out),
                 import.database.isReplacing ? QStringLiteral("has new data of") : QStringLiteral("has the data of"),
                 QString::number(import.profile), ColorUtils::tonematchProfileIDName(import.profile)));
    writeGrid(rows, 1, QStringLiteral("    "));
}

} // namespace

void runImport(const QStringList& arguments)
{
    SubcommandLine line(
        QStringLiteral("import [options] FILE --profile NAME|ID -o OUT"),
        QStringLiteral(
            "Brings the measured emitters of a fixture into a fixture profile database (FixtureProfiles.xml), "
            "with the origin of\neach number in comments. Other profiles of OUT stay as they are.\n\n"
            "FILE is a GDTF description (description.xml, or a .gdtf archive), or a table of a spectrometer as "
            "CSV or CGATS text:\na row an emitter with x, y, Y or X, Y, Z or a spectrum, or a row a wavelength "
            "with a column an emitter. The unit\nhas to be stated, as in \"Y (cd/m2)\" or by --unit; decimal "
            "commas are read.\nFILE may be -, standard input, and OUT -, standard output: then a new database alone is "
            "printed.\n\n"
            "Examples:\n  lxcolor import bench.csv --profile \"WashLine QP6 RGBW\" -o FixtureProfiles.xml\n"
            "  lxcolor import fixture.gdtf --profile 8 --channels \"Red,Green,Blue,PC Amber\" -o "
            "FixtureProfiles.xml"));
    line.addValue(QStringLiteral("profile"), QStringLiteral("NAME|ID"),
                  QStringLiteral("The fixture that was measured. lxcolor fixtures lists them."));
    line.addOutput(QStringLiteral("The fixture profile database to write, or to add to."));
    line.addValue(
        QStringLiteral("channels"), QStringLiteral("A,B,C..."),
        QStringLiteral("The emitter of each channel of the fixture in their order, by its name in FILE or its "
                       "number from 1, what is left out not counted. By default found by names and colours."));
    line.addValue(
        QStringLiteral("unit"), QStringLiteral("UNIT"),
        QStringLiteral("The unit of a table that does not state it: cd, cd/m2, lx, lm or relative; of spectra "
                       "such as W/m2/nm."));
    line.addFlag(QStringLiteral("replace"), QStringLiteral("Replace an earlier profile of the fixture in OUT."));
    line.addFormats({QStringLiteral("text"), QStringLiteral("json")},
                    QStringLiteral("text: what was written, for people; json: an object with the channels."));
    if (!line.parse(arguments))
        return;
    const QString format = line.format();
    if (line.positionalArguments().size() != 1)
        throw CommandError(QStringLiteral("one file to import is needed"));
    const Import import = importOf(line, line.positionalArguments().first());
    writeOutput(import.out, import.database.content);
    if (format == QLatin1String("json"))
        writeJsonLine(toJson(import));
    else
        writeText(import);
}
