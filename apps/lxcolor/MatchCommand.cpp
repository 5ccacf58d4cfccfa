#include "ColorInput.h"
#include "CommandError.h"
#include "MatchReport.h"
#include "Output.h"
#include "ProfilesOption.h"
#include "SubcommandLine.h"
#include "Subcommands.h"
#include "Table.h"
#include "TargetOptions.h"
#include "TextGrid.h"

#include <cmath>

namespace {

MatchReport::Target reportTarget(const OutputTarget& target)
{
    return {target.fixture,     target.ioMode,       target.bytesPerChannel,
            target.directCurve, target.onboardCurve, target.allowRgbPassThrough};
}

QVector<MatchReport::Target> targetsOf(const SubcommandLine& line)
{
    QVector<MatchReport::Target> targets;
    for (const QString& name : line.values(QStringLiteral("fixture")))
        targets.append(reportTarget(targetOf(line, name)));
    if (targets.isEmpty())
        targets.append(reportTarget(targetOf(line, QString()))); // says which fixtures there are
    return targets;
}

QString shown(double number, int decimals)
{
    return std::isfinite(number) ? QString::number(number, 'f', decimals) : QStringLiteral("-");
}

QStringList lightRow(const QString& head, const MatchReport::Light& light)
{
    return {head,
            shown(light.intensity, 4),
            shown(light.x, 4),
            shown(light.y, 4),
            shown(light.uvPrime().x(), 4),
            shown(light.uvPrime().y(), 4)};
}

void writeLights(const MatchReport& report)
{
    writeGrid({{QString(), QStringLiteral("Y"), QStringLiteral("x"), QStringLiteral("y"), QStringLiteral("u'"),
                QStringLiteral("v'")},
               lightRow(QStringLiteral("asked for"), report.requested),
               lightRow(QStringLiteral("aimed at"), report.aimed),
               lightRow(QStringLiteral("shown"), report.achieved)});
}

void writeEmitters(const MatchReport& report)
{
    QVector<QStringList> rows{
        {QStringLiteral("channel"), QStringLiteral("level"), QStringLiteral("sent"), QStringLiteral("output")}};
    for (const MatchReport::Emitter& emitter : report.emitters)
        rows.append({emitter.name, shown(emitter.level, 4), QString::number(emitter.drive),
                     emitter.emitting ? shown(emitter.output, 4) : QStringLiteral("no emitter")});
    writeGrid(rows);
}

void writeFigures(const MatchReport& report)
{
    if (std::isfinite(report.deviation))
        writeLine(
            QStringLiteral("  %1 u'v' off; rounding alone: %2 at 8 bits, %3 at 16 bits")
                .arg(shown(report.deviation, 5), shown(report.roundingError8, 5), shown(report.roundingError16, 5)));
    if (std::isfinite(report.luminanceShare))
        writeLine(QStringLiteral("  %1 % of the light that it has in this colour")
                      .arg(shown(report.luminanceShare * 100.0, 1)));
}

void writeTable(const GivenColor& given, const MatchReport& report, bool swatches)
{
    writeLine((swatches ? swatch(given.color) : QString()) + given.shown());
    writeLine(QStringLiteral("  ") + report.sentence());
    writeLine(QString());
    writeLights(report);
    writeLine(QString());
    writeEmitters(report);
    writeLine(QString());
    writeFigures(report);
}

QJsonObject toJson(const GivenColor& given, const MatchReport& report)
{
    QJsonObject object = report.toJson();
    object.insert(QStringLiteral("color"), given.text);
    if (!given.label.isEmpty())
        object.insert(QStringLiteral("label"), given.label);
    return object;
}

void write(const GivenColor& given, const MatchReport& report, const QString& format, bool swatches)
{
    if (format == QLatin1String("json"))
        writeJsonLine(toJson(given, report));
    else if (format == QLatin1String("words"))
        writeLine(QStringLiteral("%1: %2").arg(given.shown(), report.sentence()));
    else
        writeTable(given, report, swatches);
}

void addOptions(SubcommandLine& line)
{
    addTargetOptions(line, Fixtures::Several);
    addProfilesOption(line);
    line.addFormats({QStringLiteral("table"), QStringLiteral("words"), QStringLiteral("json")},
                    QStringLiteral("table: a sentence and the numbers behind it, for people; words: the sentence; "
                                   "json: an object; each on one line a colour and fixture."));
    addSwatchesOption(line);
}

} // namespace

void runMatch(const QStringList& arguments)
{
    SubcommandLine line(
        QStringLiteral("match [options] COLOR..."),
        QStringLiteral(
            "Says what becomes of colours on a fixture, and why: the light asked for, where it was moved "
            "into the gamut,\nthe levels and what is sent, and the light that this makes.\n\n"
            "Y is the output of the brightest emitter, x, y and u', v' are CIE 1931 and CIE 1976 "
            "chromaticity. Distances\nare in u'v', where 0.001 is about the least that can be seen.\n\nWhere no mix of "
            "the emitters is found (unsolved), the fixture stays dark. Profiles 1 and 3 have a red emitter "
            "with\nZ = 0, so pure red, and all that is moved to their red corner, is unsolved there.\n\n%1\n\n"
            "Example:\n  lxcolor match 3200K 'deep blue=0.16,0.015' --fixture \"WashLine QP6 RGBW\"")
            .arg(colorFormsHelp()));
    addOptions(line);
    if (!line.parse(arguments))
        return;
    readProfiles(line);
    const QString format = line.format();
    const bool swatches = wantsSwatches(line);
    const QVector<MatchReport::Target> targets = targetsOf(line);
    const ColorInput colors(line.positionalArguments());
    const bool isTable = format == QLatin1String("table");
    bool isFirst = true;
    colors.forEach([&](const GivenColor& given) {
        for (const MatchReport::Target& target : targets) {
            if (isTable && !isFirst)
                writeLine(QString());
            isFirst = false;
            write(given, MatchReport::make(given.color, target), format, swatches);
        }
    });
}
