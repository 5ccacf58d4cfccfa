#include "ColorInput.h"
#include "IOModeFactory.h"
#include "Output.h"
#include "ProfilesOption.h"
#include "SubcommandLine.h"
#include "Subcommands.h"
#include "Table.h"
#include "TargetOptions.h"

#include <QJsonArray>
#include <QJsonObject>

namespace {

using DmxBytes = QList<unsigned char>;

DmxBytes bytesFor(const LXColor& color, const OutputTarget& target)
{
    return ColorUtils::updateBuffer(target.directCurve, target.onboardCurve, color, target.allowRgbPassThrough,
                                    target.channels.size(), target.bytesPerChannel, target.ioMode, target.fixture);
}

/// One number a channel, of 8 or 16 bits.
QVector<int> valuesOf(const DmxBytes& bytes, int bytesPerChannel)
{
    QVector<int> values;
    for (int i = 0; i < bytes.size(); i += bytesPerChannel)
        values.append(bytesPerChannel == 1 ? bytes[i] : bytes[i] << 8 | bytes[i + 1]);
    return values;
}

template <typename Numbers>
QStringList printed(const Numbers& numbers, int width, int base)
{
    QStringList texts;
    for (const int number : numbers)
        texts << QString::number(number, base).rightJustified(width, QLatin1Char('0'));
    return texts;
}

QJsonObject toJson(const GivenColor& given, const DmxBytes& bytes, const OutputTarget& target)
{
    QJsonArray byteArray;
    for (const unsigned char byte : bytes)
        byteArray.append(byte);
    QJsonArray valueArray;
    for (const int value : valuesOf(bytes, target.bytesPerChannel))
        valueArray.append(value);
    QJsonObject object{{QStringLiteral("color"), given.text},
                       {QStringLiteral("fixture"), target.fixture},
                       {QStringLiteral("ioMode"), target.ioMode},
                       {QStringLiteral("bits"), 8 * target.bytesPerChannel},
                       {QStringLiteral("channels"), QJsonArray::fromStringList(target.channels)},
                       {QStringLiteral("values"), valueArray},
                       {QStringLiteral("bytes"), byteArray}};
    if (!given.label.isEmpty())
        object.insert(QStringLiteral("label"), given.label);
    return object;
}

void writeTable(const ColorInput& colors, const OutputTarget& target, bool swatches)
{
    const int width = target.bytesPerChannel == 1 ? 3 : 5;
    const Table table(target.channels, width, swatches);
    table.writeHeads(QStringLiteral("%1, %2, %3 bit")
                         .arg(ColorUtils::tonematchProfileIDName(target.fixture),
                              IOModeFactory::instance()->nameForIOModeID(target.ioMode))
                         .arg(8 * target.bytesPerChannel));
    colors.forEach([&](const GivenColor& given) {
        table.writeRow(printed(valuesOf(bytesFor(given.color, target), target.bytesPerChannel), 1, 10), given);
    });
}

void writeColors(const ColorInput& colors, const OutputTarget& target, const QString& format)
{
    colors.forEach([&](const GivenColor& given) {
        const DmxBytes bytes = bytesFor(given.color, target);
        if (format == QLatin1String("json"))
            writeJsonLine(toJson(given, bytes, target));
        else if (format == QLatin1String("hex"))
            writeLine(printed(bytes, 2, 16).join(QLatin1Char(' ')));
        else
            writeLine(printed(bytes, 1, 10).join(QLatin1Char(',')));
    });
}

void addOptions(SubcommandLine& line)
{
    addTargetOptions(line, Fixtures::One);
    addProfilesOption(line);
    line.addFormats({QStringLiteral("table"), QStringLiteral("dec"), QStringLiteral("hex"), QStringLiteral("json")},
                    QStringLiteral("dec: the bytes as 1,2,3; hex: as 01 02 03; json: an object; each on one line a "
                                   "colour. table: the channels by name, for people."));
    addSwatchesOption(line);
}

} // namespace

void runDmx(const QStringList& arguments)
{
    SubcommandLine line(QStringLiteral("dmx [options] COLOR..."),
                        QStringLiteral("Turns colours into the DMX bytes that make a fixture show them. The alpha of a "
                                       "colour plays no part.\n\n%1\n\n"
                                       "Example:\n  lxcolor dmx steelblue 'amber=aYxy;1;0;65535;1;0.57;0.42' --fixture "
                                       "\"WashLine QP6 RGBW\" --format dec")
                            .arg(colorFormsHelp()));
    addOptions(line);
    if (!line.parse(arguments))
        return;
    readProfiles(line);
    const OutputTarget target = targetOf(line, line.value(QStringLiteral("fixture")));
    const ColorInput colors(line.positionalArguments());
    const QString format = line.format();
    if (format == QLatin1String("table"))
        writeTable(colors, target, wantsSwatches(line));
    else
        writeColors(colors, target, format);
}
