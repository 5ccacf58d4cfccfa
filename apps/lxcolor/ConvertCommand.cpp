#include "ColorInput.h"
#include "CommandError.h"
#include "FixtureLookup.h"
#include "Output.h"
#include "ProfilesOption.h"
#include "SubcommandLine.h"
#include "Subcommands.h"
#include "Table.h"

#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>
#include <array>

namespace {

QString decimals(double number, int count) { return QString::number(number, 'f', count); }

QVector<uint> levels16(const LXColor& color)
{
    QVector<uint> alphaAndLevels;
    color.getNChannel16(&alphaAndLevels, nullptr, nullptr);
    return alphaAndLevels;
}

// The numbers of a colour that has been converted to one face, as table cells and as JSON members. The alpha is first.

QStringList rgbCells(const LXColor& color)
{
    return {QString::number(color.alpha16()), QString::number(color.red16()), QString::number(color.green16()),
            QString::number(color.blue16())};
}

QJsonObject rgbMembers(const LXColor& color)
{
    return {{QStringLiteral("alpha16"), static_cast<int>(color.alpha16())},
            {QStringLiteral("red16"), static_cast<int>(color.red16())},
            {QStringLiteral("green16"), static_cast<int>(color.green16())},
            {QStringLiteral("blue16"), static_cast<int>(color.blue16())},
            {QStringLiteral("name"), color.name8()}};
}

bool isAchromatic(const LXColor& color) { return color.hue16() < 0; }

double hueDegrees(const LXColor& color) { return color.hueF() * 360.0; }

QStringList hsvCells(const LXColor& color)
{
    return {decimals(color.alphaF(), 4), isAchromatic(color) ? QStringLiteral("-") : decimals(hueDegrees(color), 2),
            decimals(color.saturationF(), 4), decimals(color.valueF(), 4)};
}

QJsonObject hsvMembers(const LXColor& color)
{
    return {{QStringLiteral("alpha"), color.alphaF()},
            {QStringLiteral("hueDegrees"), isAchromatic(color) ? QJsonValue() : QJsonValue(hueDegrees(color))},
            {QStringLiteral("saturation"), color.saturationF()},
            {QStringLiteral("value"), color.valueF()}};
}

QStringList yxyCells(const LXColor& color)
{
    return {decimals(color.alphaF(), 4), decimals(color.getY(), 6), decimals(color.getx(), 6),
            decimals(color.gety(), 6)};
}

QJsonObject yxyMembers(const LXColor& color)
{
    return {{QStringLiteral("alpha"), color.alphaF()},
            {QStringLiteral("Y"), color.getY()},
            {QStringLiteral("x"), color.getx()},
            {QStringLiteral("y"), color.gety()}};
}

QStringList nChannelCells(const LXColor& color)
{
    QStringList cells;
    for (const uint level : levels16(color))
        cells << QString::number(level);
    return cells;
}

QJsonObject nChannelMembers(const LXColor& color)
{
    QJsonArray levels;
    for (const uint level : levels16(color).mid(1))
        levels.append(static_cast<int>(level));
    const bool isDirect = color.getNChannelRenderType() == LXColor::NChannelDirect;
    return {{QStringLiteral("alpha16"), static_cast<int>(color.alpha16())},
            {QStringLiteral("levels16"), levels},
            {QStringLiteral("renderType"), isDirect ? QStringLiteral("direct") : QStringLiteral("colorimetric")}};
}

/// What a colour can be converted to.
struct Face
{
    const char* name;
    LXColor::Spec spec;
    const char* heads; ///< Separated by spaces; empty where the fixture's channels are the heads.
    bool takesFixture;
    QStringList (*cells)(const LXColor&);
    QJsonObject (*members)(const LXColor&);
};

constexpr std::array<Face, 4> kFaces = {{
    {"rgb", LXColor::Rgb, "Red Green Blue", false, rgbCells, rgbMembers},
    {"hsv", LXColor::Hsv, "Hue Saturation Value", false, hsvCells, hsvMembers},
    {"yxy", LXColor::Yxy, "Y x y", true, yxyCells, yxyMembers},
    {"nchannel", LXColor::NChannel, "", true, nChannelCells, nChannelMembers},
}};

QStringList faceNames()
{
    QStringList names;
    for (const Face& face : kFaces)
        names << QLatin1String(face.name);
    return names;
}

const Face& faceNamed(const QString& name)
{
    const auto hasName = [&](const Face& face) { return name == QLatin1String(face.name); };
    return *std::find_if(kFaces.begin(), kFaces.end() - 1, hasName);
}

/// What is asked for: a face, and the fixture in whose light it is meant.
struct Request
{
    Face face;
    ColorUtils::TonematchProfileID fixture = ColorUtils::ProfileNone;    // the colour's own
    ColorUtils::ChannelConfiguration layout = ColorUtils::ConfigUnknown; // the colour's own

    LXColor converted(const LXColor& color) const { return color.convertTo(face.spec, layout, fixture); }
    QStringList channels() const { return channelNames(fixture, layout); }
};

Request requestOf(const SubcommandLine& line)
{
    Request request{faceNamed(line.value(QStringLiteral("to")))};
    const bool isSet = line.isSet(QStringLiteral("fixture"));
    if (isSet && !request.face.takesFixture)
        throw CommandError(QStringLiteral("--fixture has no meaning for --to %1: it is the fixture of yxy and nchannel")
                               .arg(QLatin1String(request.face.name)));
    if (isSet || request.face.spec == LXColor::NChannel) {
        request.fixture = fixtureNamed(line.value(QStringLiteral("fixture")));
        request.layout = ColorUtils::nChannelConfigurationForTonematchProfileID(request.fixture);
    }
    return request;
}

void writeTable(const ColorInput& colors, const Request& request, bool swatches)
{
    const QString heads = QLatin1String(request.face.heads);
    const Table table(QStringList(QStringLiteral("Alpha")) +
                          (heads.isEmpty() ? request.channels() : heads.split(QLatin1Char(' '))),
                      8, swatches);
    table.writeHeads();
    colors.forEach(
        [&](const GivenColor& given) { table.writeRow(request.face.cells(request.converted(given.color)), given); });
}

QJsonObject toJson(const GivenColor& given, const Request& request)
{
    const LXColor color = request.converted(given.color);
    QJsonObject object = request.face.members(color);
    object.insert(QStringLiteral("color"), given.text);
    object.insert(QStringLiteral("to"), QLatin1String(request.face.name));
    object.insert(QStringLiteral("valueString"), color.aName());
    if (!given.label.isEmpty())
        object.insert(QStringLiteral("label"), given.label);
    if (request.face.spec == LXColor::NChannel)
        object.insert(QStringLiteral("channels"), QJsonArray::fromStringList(request.channels()));
    return object;
}

void addOptions(SubcommandLine& line)
{
    line.addChoice(QStringLiteral("to"), faceNames(), QStringLiteral("What to convert to; needed."), true);
    line.addValue(QStringLiteral("fixture"), QStringLiteral("NAME|ID"),
                  QStringLiteral("The fixture whose emitters give the light (yxy; by default the one the colour was "
                                 "made for) or are to show it (nchannel; needed)."));
    addProfilesOption(line);
    line.addFormats(
        {QStringLiteral("value"), QStringLiteral("table"), QStringLiteral("json")},
        QStringLiteral("value: the value string, in which an HSV colour is written as RGB; json: an object; "
                       "each on one line a colour. table: the numbers, for people."));
    addSwatchesOption(line);
}

} // namespace

void runConvert(const QStringList& arguments)
{
    SubcommandLine line(
        QStringLiteral("convert [options] COLOR..."),
        QStringLiteral("Shows colours in another colour space: red, green and blue; hue, saturation and "
                       "value; intensity\nand CIE 1931 chromaticity; or levels for the emitters of a "
                       "fixture. Integers are 16 bit, other numbers\nratios 0 to 1, hues degrees.\n\n"
                       "%1\n\nExample:\n  lxcolor convert steelblue '#80ff0000' --to yxy --format table")
            .arg(colorFormsHelp()));
    addOptions(line);
    if (!line.parse(arguments))
        return;
    readProfiles(line);
    const Request request = requestOf(line);
    const ColorInput colors(line.positionalArguments());
    const QString format = line.format();
    if (format == QLatin1String("table"))
        return writeTable(colors, request, wantsSwatches(line));
    colors.forEach([&](const GivenColor& given) {
        if (format == QLatin1String("json"))
            writeJsonLine(toJson(given, request));
        else
            writeLine(request.converted(given.color).aName());
    });
}
