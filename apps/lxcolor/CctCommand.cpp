#include "CCTUtils.h"
#include "Chromaticity.h"
#include "ColorInput.h"
#include "CommandError.h"
#include "Kelvin.h"
#include "Output.h"
#include "ProfilesOption.h"
#include "SubcommandLine.h"
#include "Subcommands.h"
#include "Table.h"

namespace {

/// A white light, and what the user gave for it.
struct WhiteLight
{
    GivenColor given;
    int kelvin;
    int step; ///< Of the 10 K grid.
    int tint;
    Chromaticity chromaticity;

    /// Whether it can be given back as a CCT and a tint.
    bool isInRange() const
    {
        return CCTUtils::isValidCCT(kelvin) && tint >= CCTUtils::getMinTint() && tint <= CCTUtils::getMaxTint();
    }
};

WhiteLight fromKelvin(const QString& text, int tint)
{
    const int kelvin = kelvinOf(text);
    WhiteLight light{{text, QString(), LXColor()}, kelvin, gridKelvin(kelvin), tint, {0.0, 0.0}};
    CCTUtils::getxyFromCCTAndTint(light.kelvin, tint, light.chromaticity.x, light.chromaticity.y);
    light.given.color = LXColor(light.chromaticity.x, light.chromaticity.y);
    return light;
}

WhiteLight fromColor(const GivenColor& given)
{
    WhiteLight light{given, 0, 0, 0, Chromaticity::of(given.color)};
    const Chromaticity& chromaticity = light.chromaticity;
    if (!chromaticity.isKnown())
        throw CommandError(QStringLiteral("%1 gives no light, so it has no CCT").arg(quoted(given.shown())));
    if (!CCTUtils::getCCTAndTintFromxy(chromaticity.x, chromaticity.y, light.kelvin, light.tint))
        throw CommandError(
            QStringLiteral("%1 has no CCT: x %2, y %3 is beyond x 0 to 0.8, y 0 to 0.9 or u', v' 0 to 0.6")
                .arg(quoted(given.shown()), QString::number(chromaticity.x), QString::number(chromaticity.y)));
    light.step = light.kelvin;
    return light;
}

QString valueString(const WhiteLight& light) { return LXColor(light.chromaticity.x, light.chromaticity.y).aName(); }

QJsonObject toJson(const WhiteLight& light, bool isFromColor)
{
    QJsonObject object = light.chromaticity.members();
    object.insert(QStringLiteral("kelvin"), light.kelvin);
    object.insert(QStringLiteral("gridKelvin"), light.step);
    object.insert(QStringLiteral("tint"), light.tint);
    object.insert(QStringLiteral("inRange"), light.isInRange());
    object.insert(QStringLiteral("valueString"), valueString(light));
    if (isFromColor)
        object.insert(QStringLiteral("color"), light.given.text);
    if (!light.given.label.isEmpty())
        object.insert(QStringLiteral("label"), light.given.label);
    return object;
}

/// Prints white lights as they come.
class Printer
{
public:
    explicit Printer(const SubcommandLine& line)
        : m_format(line.format())
        , m_isFromColor(line.isSet(QStringLiteral("from")))
        , m_table(QStringList{QStringLiteral("Kelvin"), QStringLiteral("Tint")} + Chromaticity::heads(), 6,
                  wantsSwatches(line))
    {
    }

    void begin() const
    {
        if (m_format == QLatin1String("table"))
            m_table.writeHeads();
    }

    void print(const WhiteLight& light) const
    {
        if (m_format == QLatin1String("json"))
            writeJsonLine(toJson(light, m_isFromColor));
        else if (m_format == QLatin1String("value"))
            writeLine(valueString(light));
        else
            m_table.writeRow(QStringList{QString::number(light.step), QString::number(light.tint)} +
                                 light.chromaticity.cells(),
                             light.given);
    }

private:
    QString m_format;
    bool m_isFromColor;
    Table m_table;
};

void addOptions(SubcommandLine& line)
{
    line.addValue(QStringLiteral("tint"), QStringLiteral("N"),
                  QStringLiteral("The tint of the CCTs, from -32767 (towards magenta) to 32767 (towards green)."),
                  QStringLiteral("0"));
    line.addValues(QStringLiteral("from"), QStringLiteral("COLOR"),
                   QStringLiteral("The other way: the CCT and tint of a colour, or of those on standard input (-). May "
                                  "be given several times."));
    addProfilesOption(line);
    line.addFormats({QStringLiteral("table"), QStringLiteral("value"), QStringLiteral("json")},
                    QStringLiteral("table: the numbers, for people; value: the value string of the light at full "
                                   "intensity; json: an object; each on one line a light."));
    addSwatchesOption(line);
}

void printFromKelvin(const SubcommandLine& line, const Printer& printer)
{
    const int tint = line.wholeNumber(QStringLiteral("tint"), CCTUtils::getMinTint(), CCTUtils::getMaxTint());
    QVector<WhiteLight> lights;
    for (const QString& text : line.positionalArguments())
        lights.append(fromKelvin(text, tint));
    if (lights.isEmpty())
        throw CommandError(QStringLiteral("no CCT given; give one or more in kelvin, or a colour with --from"));
    printer.begin();
    for (const WhiteLight& light : qAsConst(lights))
        printer.print(light);
}

void printFromColors(const SubcommandLine& line, const Printer& printer)
{
    line.refusePositionalArguments();
    if (line.isSet(QStringLiteral("tint")))
        throw CommandError(QStringLiteral("--tint and --from exclude each other: the tint is part of the answer"));
    const ColorInput colors(line.values(QStringLiteral("from")));
    colors.forEachArgument([](const GivenColor& given) { fromColor(given); });
    printer.begin();
    colors.forEach([&](const GivenColor& given) { printer.print(fromColor(given)); });
}

} // namespace

void runCct(const QStringList& arguments)
{
    SubcommandLine line(
        QStringLiteral("cct [options] KELVIN...\n       lxcolor cct [options] --from COLOR [--from COLOR]..."),
        QStringLiteral("White light: from a correlated colour temperature (CCT, %1 to %2 K) and a tint to its CIE 1931 "
                       "x, y and\nCIE 1976 u', v', or with --from back.\n\n"
                       "CCTs lie on a grid of 10 K. One between two steps counts as the lower one, and sixteen of the "
                       "steps (4290,\n4790, 5290, 6290, 7050, 7290, 7470, 7600, 7730, 8290, 8570, 8580, 9130, 9140, "
                       "9150 and 9160 K) count as\nthe step below them. Tables show the step that was counted.\n\n"
                       "A colour whose CCT or tint comes out beyond what can be asked for is not a white.\n\n"
                       "%3\n\nExamples:\n"
                       "  lxcolor cct 2700 3200 5600 --tint 1500\n"
                       "  lxcolor cct --from 0.4234,0.3990 --from 'aNchannel;3;6;65535;0;0;0;65535;0'")
            .arg(CCTUtils::getMinCCT())
            .arg(CCTUtils::getMaxCCT())
            .arg(colorFormsHelp()));
    addOptions(line);
    if (!line.parse(arguments))
        return;
    readProfiles(line);
    const Printer printer(line);
    if (line.isSet(QStringLiteral("from")))
        printFromColors(line, printer);
    else
        printFromKelvin(line, printer);
}
