#include "CommandError.h"
#include "FileBytes.h"
#include "Output.h"
#include "PaletteFormat.h"
#include "ProfilesOption.h"
#include "SubcommandLine.h"
#include "Subcommands.h"
#include "SwatchListing.h"
#include "Table.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

#include <cstdio>

namespace {

using Format = PaletteFormat::Id;
using Remarks = QVector<PaletteFormat::Remark>;

QStringList formatNames()
{
    QStringList names;
    for (const Format format : PaletteFormat::all())
        names << PaletteFormat::name(format);
    return names;
}

/// The format that an option names, or the suffix of a file name.
Format formatOf(const SubcommandLine& line, const char* option, const QString& fileName)
{
    Format format = Format::Gpl;
    const QString name = QLatin1String(option);
    const QString accepted = formatNames().join(QStringLiteral(", "));
    if (line.isSet(name) && !PaletteFormat::fromName(line.value(name), &format))
        throw CommandError(
            QStringLiteral("--%1 cannot be %2; accepted: %3").arg(name, quoted(line.value(name)), accepted));
    if (!line.isSet(name) && isStandardStream(fileName))
        throw CommandError(
            QStringLiteral("--%1 is missing: - has no suffix that says its format; accepted: %2").arg(name, accepted));
    if (!line.isSet(name) && !PaletteFormat::fromFileName(fileName, &format))
        throw CommandError(QStringLiteral("cannot tell the format of %1 by its suffix; --%2 says it: %3")
                               .arg(quoted(fileName), name, accepted));
    return format;
}

QString placeOf(const PaletteFormat::Error& error)
{
    if (error.offset >= 0)
        return QStringLiteral(": byte %1").arg(error.offset);
    return error.line > 0 ? QStringLiteral(":%1:%2").arg(error.line).arg(error.column) : QString();
}

PaletteFormat::Reading readPalette(const QString& fileName, Format format)
{
    const QString listName =
        isStandardStream(fileName) ? QStringLiteral("Palette") : QFileInfo(fileName).completeBaseName();
    PaletteFormat::Reading reading =
        PaletteFormat::read(readInput(fileName, PaletteFormat::largestFile), format, listName);
    if (!reading.isRead)
        throw CommandError(
            QStringLiteral("%1%2: %3")
                .arg(printable(inputName(fileName)), placeOf(reading.error), printable(reading.error.text)));
    return reading;
}

void warn(const QString& fileName, const Remarks& remarks)
{
    for (const PaletteFormat::Remark& remark : remarks)
        std::fprintf(stderr, "lxcolor: warning: %s: %s\n", qUtf8Printable(printable(fileName)),
                     qUtf8Printable(remark.text));
}

QJsonArray toJson(const Remarks& remarks)
{
    QJsonArray array;
    for (const PaletteFormat::Remark& remark : remarks)
        array.append(QJsonObject{{QStringLiteral("code"), PaletteFormat::name(remark.code)},
                                 {QStringLiteral("count"), remark.count},
                                 {QStringLiteral("sentence"), remark.text}});
    return array;
}

void convert(const SubcommandLine& line, const QString& in, const QString& out)
{
    const Format from = formatOf(line, "from", in);
    const Format to = formatOf(line, "to", out);
    const bool isReported = line.format() == QLatin1String("json");
    if (isReported && isStandardStream(out))
        throw CommandError(QStringLiteral("--json reports on standard output, so OUT cannot be -"));
    const PaletteFormat::Reading reading = readPalette(in, from);
    const PaletteFormat::Writing writing = PaletteFormat::write(reading.palette, to);
    if (!writing.isWritten)
        throw CommandError(QStringLiteral("cannot write %1: %2").arg(quoted(outputName(out)), writing.error));
    writeOutput(out, writing.bytes);
    if (isReported)
        return writeJsonLine({{QStringLiteral("in"), inputName(in)},
                              {QStringLiteral("from"), PaletteFormat::name(from)},
                              {QStringLiteral("out"), out},
                              {QStringLiteral("to"), PaletteFormat::name(to)},
                              {QStringLiteral("lists"), reading.palette.lists.size()},
                              {QStringLiteral("colors"), reading.palette.size()},
                              {QStringLiteral("readRemarks"), toJson(reading.remarks)},
                              {QStringLiteral("writeRemarks"), toJson(writing.remarks)}});
    warn(inputName(in), reading.remarks);
    warn(outputName(out), writing.remarks);
}

void show(const SubcommandLine& line, const QString& in)
{
    const PaletteFormat::Reading reading = readPalette(in, formatOf(line, "from", in));
    warn(inputName(in), reading.remarks);
    if (reading.palette.lists.isEmpty() && line.format() != QLatin1String("json"))
        writeLine(QStringLiteral("%1: no colours").arg(printable(inputName(in))));
    for (const Palette::List& list : reading.palette.lists) {
        SwatchList listed{list.name, list.isUserList, {}};
        for (const Palette::Entry& entry : list.entries)
            listed.colors.append(
                {entry.name, entry.uid, entry.value, entry.originatingPreset, entry.vendorId, entry.color()});
        if (line.format() == QLatin1String("json"))
            writeJsonLine(toJson(inputName(in), listed));
        else
            writeTable(inputName(in), listed, wantsSwatches(line));
    }
}

} // namespace

void runPalette(const QStringList& arguments)
{
    SubcommandLine line(
        QStringLiteral("palette [options] convert FILE OUT\n       lxcolor palette [options] show FILE"),
        QStringLiteral(
            "Reads and writes palettes: .gpl, .ase, .aco, .csv, .css, and the library's own documents "
            "(.xml, .lxcolors).\nThe suffix of a file says its format, or an option does. FILE may be -, standard "
            "input, and OUT -, standard output:\nthen the option is needed.\n\n"
            "What the format of OUT cannot hold is kept in comments or columns where it has them, and "
            "otherwise told on\nstandard error, each kind of loss once. A file that has a fault is not "
            "read at all. OUT is replaced in one step.\n\n"
            "Examples:\n  lxcolor palette convert Presets/ColorWheel.lxcolors wheel.gpl\n"
            "  lxcolor palette convert from-the-designer.ase show.lxcolors\n"
            "  lxcolor palette show wheel.gpl\n"
            "  lxcolor palette convert logo.ase - --to css | less"));
    const QString formats = formatNames().join(QLatin1Char('|'));
    line.addValue(QStringLiteral("from"), formats,
                  QStringLiteral("The format of FILE; by default what its suffix says."));
    line.addValue(QStringLiteral("to"), formats, QStringLiteral("The format of OUT; by default what its suffix says."));
    addProfilesOption(line);
    line.addFormats({QStringLiteral("table"), QStringLiteral("json")},
                    QStringLiteral("convert: nothing but warnings, or with json an object that tells what was lost; "
                                   "show: a table for people, or an object a list, as lxcolor swatches prints them."));
    addSwatchesOption(line);
    if (!line.parse(arguments))
        return;
    const QStringList words = line.positionalArguments();
    const QString action = words.value(0);
    if (action != QLatin1String("convert") && action != QLatin1String("show"))
        throw CommandError(QStringLiteral("%1; accepted: convert, show")
                               .arg(words.isEmpty() ? QStringLiteral("palette does not know what to do")
                                                    : QStringLiteral("palette cannot %1").arg(quoted(action))));
    const bool isConversion = action == QLatin1String("convert");
    if (words.size() != (isConversion ? 3 : 2))
        throw CommandError(isConversion ? QStringLiteral("convert needs two files: FILE and OUT")
                                        : QStringLiteral("show needs one file"));
    line.format(); // refuses what excludes each other before anything is written
    readProfiles(line);
    if (isConversion)
        convert(line, words.at(1), words.at(2));
    else
        show(line, words.at(1));
}
