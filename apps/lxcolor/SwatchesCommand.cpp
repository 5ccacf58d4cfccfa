#include "CommandError.h"
#include "FileBytes.h"
#include "NameLookup.h"
#include "Output.h"
#include "SubcommandLine.h"
#include "Subcommands.h"
#include "SwatchFile.h"
#include "SwatchListing.h"
#include "Table.h"

#include <algorithm>

namespace {

void exportList(const QVector<SwatchList>& lists, const QString& name)
{
    const auto found = std::find_if(lists.begin(), lists.end(), [&](const SwatchList& l) { return l.name == name; });
    if (found != lists.end())
        return writeOutput(QStringLiteral("-"), standAloneDocument(*found));
    QStringList names;
    for (const SwatchList& list : lists)
        names << quoted(list.name);
    throw CommandError(
        QStringLiteral("no list %1; there are: %2")
            .arg(quoted(name), names.isEmpty() ? QStringLiteral("none") : names.join(QStringLiteral(", "))));
}

} // namespace

void runSwatches(const QStringList& arguments)
{
    SubcommandLine line(
        QStringLiteral("swatches [options] FILE..."),
        QStringLiteral("Lists the colour lists of user colour files, preset files and project documents, "
                       "as the library reads them.\nFILE may be -, standard input.\n\n"
                       "Example:\n  lxcolor swatches Presets/ColorWheel.lxcolors\n"
                       "  lxcolor swatches show.xml --export \"Project Swatches\" > ours.lxcolors"));
    line.addFormats({QStringLiteral("table"), QStringLiteral("json")},
                    QStringLiteral("json: an object a list, each on a line of its own. table: for people."));
    line.addValue(QStringLiteral("export"), QStringLiteral("LIST"),
                  QStringLiteral("Write the list of that name as a document of its own, which loads as a user list."));
    addSwatchesOption(line);
    if (!line.parse(arguments))
        return;
    if (line.positionalArguments().isEmpty())
        throw CommandError(QStringLiteral("no file given"));
    if (line.positionalArguments().count(QStringLiteral("-")) > 1)
        throw CommandError(QStringLiteral("standard input is given more than once"));
    const bool isTable = line.format() == QLatin1String("table");
    if (line.isSet(QStringLiteral("export")) && (!isTable || line.isSet(QStringLiteral("format"))))
        throw CommandError(QStringLiteral("--export has a form of its own, so it takes no --format and no --json"));

    // All files are read before anything is printed.
    QVector<QPair<QString, QVector<SwatchList>>> files;
    QVector<SwatchList> all;
    for (const QString& fileName : line.positionalArguments()) {
        files.append({inputName(fileName), readSwatchFile(fileName)});
        all += files.last().second;
    }
    if (line.isSet(QStringLiteral("export")))
        return exportList(all, line.value(QStringLiteral("export")));
    for (const auto& file : files) {
        if (isTable && file.second.isEmpty())
            writeLine(QStringLiteral("%1: no colours").arg(printable(file.first)));
        for (const SwatchList& list : file.second) {
            if (isTable)
                writeTable(file.first, list, wantsSwatches(line));
            else
                writeJsonLine(toJson(file.first, list));
        }
    }
}
