#include "Chromaticity.h"
#include "ColorInput.h"
#include "CommandError.h"
#include "Output.h"
#include "ProfilesOption.h"
#include "SubcommandLine.h"
#include "Subcommands.h"
#include "Table.h"

#include <QJsonObject>

namespace {

LXColor asRgb(const LXColor& color)
{
    return color.convertTo(LXColor::Rgb, ColorUtils::ConfigUnknown, ColorUtils::ProfileNone);
}

double intensityOf(const LXColor& color)
{
    return color.toYxy(ColorUtils::ConfigUnknown, ColorUtils::ProfileNone, -1).getY();
}

/// Two colours, and what becomes of them.
struct Mixture
{
    GivenColor a;
    GivenColor b;
    bool isBlend;
    double ratio; ///< Of a blend.
    LXColor result;
};

Mixture mixtureOf(const SubcommandLine& line)
{
    QVector<GivenColor> colors;
    ColorInput(line.positionalArguments()).forEach([&](const GivenColor& given) {
        colors.append(given);
        if (colors.size() > 2)
            throw CommandError(QStringLiteral("more than two colours to mix"));
    });
    if (colors.size() < 2)
        throw CommandError(QStringLiteral("two colours are needed to mix"));
    Mixture mixture{colors[0], colors[1], line.isSet(QStringLiteral("ratio")), 0.0, LXColor()};
    if (mixture.isBlend) {
        mixture.ratio = line.number(QStringLiteral("ratio"), 0.0, 1.0);
        mixture.result = LXColor::blend(mixture.a.color, mixture.b.color, mixture.ratio);
    } else {
        mixture.result = LXColor::mix(mixture.a.color, mixture.b.color);
    }
    if (!mixture.result.isValid())
        throw CommandError(QStringLiteral("%1 and %2 cannot be mixed: the values of their mix are out of range")
                               .arg(quoted(mixture.a.shown()), quoted(mixture.b.shown())));
    return mixture;
}

void writeTable(const Mixture& mixture, bool swatches)
{
    const Table table(QStringList{QStringLiteral("Alpha"), QStringLiteral("Red"), QStringLiteral("Green"),
                                  QStringLiteral("Blue"), QStringLiteral("Y")} +
                          Chromaticity::heads(),
                      6, swatches);
    table.writeHeads();
    for (const GivenColor& given :
         {mixture.a, mixture.b, GivenColor{QString(), QStringLiteral("mix"), mixture.result}}) {
        const LXColor rgb = asRgb(given.color);
        QStringList cells;
        for (const uint value : {rgb.alpha16(), rgb.red16(), rgb.green16(), rgb.blue16()})
            cells << QString::number(value);
        cells << QString::number(intensityOf(given.color), 'f', 4);
        cells << Chromaticity::of(given.color).cells();
        table.writeRow(cells, given);
    }
}

QJsonObject toJson(const GivenColor& given)
{
    QJsonObject object{{QStringLiteral("color"), given.text}, {QStringLiteral("valueString"), given.color.aName()}};
    if (!given.label.isEmpty())
        object.insert(QStringLiteral("label"), given.label);
    return object;
}

QJsonObject toJson(const Mixture& mixture)
{
    const LXColor rgb = asRgb(mixture.result);
    QJsonObject object = Chromaticity::of(mixture.result).members();
    object.insert(QStringLiteral("Y"), intensityOf(mixture.result));
    object.insert(QStringLiteral("operation"), mixture.isBlend ? QStringLiteral("blend") : QStringLiteral("over"));
    object.insert(QStringLiteral("ratio"), mixture.isBlend ? QJsonValue(mixture.ratio) : QJsonValue());
    object.insert(QStringLiteral("a"), toJson(mixture.a));
    object.insert(QStringLiteral("b"), toJson(mixture.b));
    object.insert(QStringLiteral("valueString"), mixture.result.aName());
    object.insert(QStringLiteral("alpha16"), static_cast<int>(rgb.alpha16()));
    object.insert(QStringLiteral("red16"), static_cast<int>(rgb.red16()));
    object.insert(QStringLiteral("green16"), static_cast<int>(rgb.green16()));
    object.insert(QStringLiteral("blue16"), static_cast<int>(rgb.blue16()));
    return object;
}

void addOptions(SubcommandLine& line)
{
    line.addValue(
        QStringLiteral("ratio"), QStringLiteral("T"),
        QStringLiteral("Blend: T parts of A, from 0 to 1, and 1 - T parts of B, each weighted with its alpha. "
                       "Without it A is laid over B."));
    addProfilesOption(line);
    line.addFormats({QStringLiteral("value"), QStringLiteral("table"), QStringLiteral("json")},
                    QStringLiteral("value: the value string of the mix; table: the colours and their mix, for people; "
                                   "json: an object on one line."));
    addSwatchesOption(line);
}

} // namespace

void runMix(const QStringList& arguments)
{
    SubcommandLine line(
        QStringLiteral("mix [options] A B"),
        QStringLiteral("Mixes two colours: lays A over B by the alpha of A, or with --ratio blends them. An opaque A "
                       "that is laid\nover something hides it.\n\n"
                       "Red, green and blue are mixed. Where one of the colours is a chromaticity, or levels that are "
                       "to be matched,\nthe mix is one too. In tables red, green, blue and alpha are 16 bit, and Y is "
                       "the intensity.\n\n%1\n\nExamples:\n"
                       "  lxcolor mix '#80ff0000' steelblue\n  lxcolor mix 2700K 6500K --ratio 0.25 --format table")
            .arg(colorFormsHelp()));
    addOptions(line);
    if (!line.parse(arguments))
        return;
    readProfiles(line);
    const QString format = line.format();
    const Mixture mixture = mixtureOf(line);
    if (format == QLatin1String("json"))
        writeJsonLine(toJson(mixture));
    else if (format == QLatin1String("table"))
        writeTable(mixture, wantsSwatches(line));
    else
        writeLine(mixture.result.aName());
}
