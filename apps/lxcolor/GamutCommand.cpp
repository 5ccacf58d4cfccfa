#include "Chromaticity.h"
#include "ColorInput.h"
#include "CommandError.h"
#include "FixtureGamut.h"
#include "FixtureLookup.h"
#include "Output.h"
#include "ProfilesOption.h"
#include "SubcommandLine.h"
#include "Subcommands.h"
#include "Table.h"
#include "TextGrid.h"

#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>
#include <optional>

namespace {

/// A fixture that was asked for.
struct Fixture
{
    ColorUtils::TonematchProfileID id;
    QString name;
    FixtureGamut gamut;
};

Fixture fixtureOf(ColorUtils::TonematchProfileID id)
{
    return {id, ColorUtils::tonematchProfileIDName(id), FixtureGamut(id)};
}

/// The fixtures that are named, or all that have a gamut.
QVector<Fixture> fixturesOf(const QStringList& names)
{
    QVector<Fixture> fixtures;
    for (const QString& name : names)
        fixtures.append(fixtureOf(fixtureWithGamutNamed(name)));
    if (!names.isEmpty())
        return fixtures;
    for (const auto id : ColorUtils::tonematchProfileIDList(true)) {
        const Fixture fixture = fixtureOf(id);
        if (!fixture.gamut.isEmpty())
            fixtures.append(fixture);
    }
    return fixtures;
}

Chromaticity chromaticityOf(QPointF xy) { return {xy.x(), xy.y()}; }

Chromaticity chromaticityOf(const GivenColor& given)
{
    const Chromaticity chromaticity = Chromaticity::of(given.color);
    if (!chromaticity.isKnown())
        throw CommandError(
            QStringLiteral("%1 gives no light, so it lies nowhere in a gamut").arg(quoted(given.shown())));
    return chromaticity;
}

QString areaText(double area)
{
    return QStringLiteral("%1 u'v', %2 % of sRGB's")
        .arg(QString::number(area, 'f', 5), QString::number(100.0 * area / FixtureGamut::srgbArea(), 'f', 1));
}

void writeText(const Fixture& fixture)
{
    const FixtureGamut& gamut = fixture.gamut;
    QVector<QStringList> rows{QStringList(QString()) + Chromaticity::heads()};
    for (const FixtureGamut::Corner& corner : gamut.triangle())
        rows.append(QStringList(corner.name) + chromaticityOf(corner.xy).cells());
    const int triangleRows = rows.size();
    const auto isListed = [&](const FixtureGamut::Corner& corner) { // nothing is inside of a triangle without an area
        return std::any_of(gamut.triangle().begin(), gamut.triangle().end(),
                           [&](const FixtureGamut::Corner& listed) { return listed.xy == corner.xy; });
    };
    if (gamut.reachesBeyondTriangle())
        for (const FixtureGamut::Corner& corner : gamut.hull())
            if (!gamut.placeOf(corner.xy).inside && !isListed(corner))
                rows.append(QStringList(corner.name) + chromaticityOf(corner.xy).cells());
    writeLine(QStringLiteral("%1 %2").arg(QString::number(fixture.id), fixture.name));
    writeGrid(rows, 1, QStringLiteral("    "));
    writeLine(QStringLiteral("    area: ") + areaText(gamut.triangleArea()));
    if (rows.size() > triangleRows)
        writeLine(QStringLiteral("    with all emitters: ") + areaText(gamut.hullArea()));
}

QJsonArray cornersOf(const QVector<FixtureGamut::Corner>& corners)
{
    QJsonArray array;
    for (const FixtureGamut::Corner& corner : corners)
        array.append(corner.toJson());
    return array;
}

QJsonObject areaMembers(const QVector<FixtureGamut::Corner>& corners, double area)
{
    return {{QStringLiteral("corners"), cornersOf(corners)},
            {QStringLiteral("area"), area},
            {QStringLiteral("areaOfSrgb"), area / FixtureGamut::srgbArea()}};
}

QJsonObject toJson(const Fixture& fixture)
{
    const FixtureGamut& gamut = fixture.gamut;
    return {{QStringLiteral("fixture"), fixture.id},
            {QStringLiteral("name"), fixture.name},
            {QStringLiteral("triangle"), areaMembers(gamut.triangle(), gamut.triangleArea())},
            {QStringLiteral("hull"), areaMembers(gamut.hull(), gamut.hullArea())}};
}

QJsonObject toJson(const GivenColor& given, const Fixture& fixture)
{
    const Chromaticity chromaticity = chromaticityOf(given);
    QJsonObject object = fixture.gamut.placeOf({chromaticity.x, chromaticity.y}).toJson();
    object.insert(QStringLiteral("requested"), chromaticity.members());
    object.insert(QStringLiteral("fixture"), fixture.id);
    object.insert(QStringLiteral("name"), fixture.name);
    object.insert(QStringLiteral("color"), given.text);
    if (!given.label.isEmpty())
        object.insert(QStringLiteral("label"), given.label);
    return object;
}

void writeRow(const Table& table, const GivenColor& given, const Fixture& fixture)
{
    const Chromaticity chromaticity = chromaticityOf(given);
    const FixtureGamut::Place place = fixture.gamut.placeOf({chromaticity.x, chromaticity.y});
    QStringList cells(place.inside ? QStringLiteral("yes") : QStringLiteral("no"));
    cells += chromaticityOf(place.nearest).cells();
    cells += QString::number(place.distance, 'f', 4);
    QString text = given.shown() + QStringLiteral(", ") + fixture.name;
    if (!place.inside)
        text += QStringLiteral(": ") + place.sideInWords();
    if (!place.inside && place.insideHull)
        text += QStringLiteral(", though its other emitters reach it");
    table.writeRow(cells, GivenColor{text, QString(), given.color});
}

void writeTable(const QVector<Fixture>& fixtures, const ColorInput* colors, bool swatches)
{
    for (const Fixture& fixture : fixtures)
        writeText(fixture);
    if (!colors)
        return;
    const Table table(QStringList(QStringLiteral("Inside")) + Chromaticity::heads() +
                          QStringList(QStringLiteral("Off")),
                      6, swatches);
    table.writeHeads(QStringLiteral("")); // a blank line after the fixtures
    colors->forEach([&](const GivenColor& given) {
        for (const Fixture& fixture : fixtures)
            writeRow(table, given, fixture);
    });
}

void writeJson(const QVector<Fixture>& fixtures, const ColorInput* colors)
{
    for (const Fixture& fixture : fixtures)
        writeJsonLine(toJson(fixture));
    if (!colors)
        return;
    colors->forEach([&](const GivenColor& given) {
        for (const Fixture& fixture : fixtures)
            writeJsonLine(toJson(given, fixture));
    });
}

} // namespace

void runGamut(const QStringList& arguments)
{
    SubcommandLine line(
        QStringLiteral("gamut [options] [COLOR...]"),
        QStringLiteral(
            "Shows which chromaticities fixtures can show: the corners of the triangle of red, green and "
            "blue, and of what\nreaches beyond it, in CIE 1931 x, y and CIE 1976 u', v', and its area in u', "
            "v' beside that of sRGB.\n\n"
            "Of colours it says whether they lie in the triangle, and what their nearest point of it is, "
            "which is where\nmatching moves them; \"off\" is the distance in u', v'. Beyond the triangle, "
            "emitters such as amber can be\nlit by levels of their own, but not by matching.\n\n%1\n\n"
            "Examples:\n  lxcolor gamut\n"
            "  lxcolor gamut 'deep blue=0.16,0.015' 3200K --fixture \"Flare/Flash QVS\" --fixture 6")
            .arg(colorFormsHelp()));
    line.addValues(QStringLiteral("fixture"), QStringLiteral("NAME|ID"),
                   QStringLiteral("A fixture; by default all. May be given several times. lxcolor fixtures lists "
                                  "them."));
    addProfilesOption(line);
    line.addFormats({QStringLiteral("table"), QStringLiteral("json")},
                    QStringLiteral("table: for people; json: an object a fixture, then one a colour and fixture, each "
                                   "on one line."));
    addSwatchesOption(line);
    if (!line.parse(arguments))
        return;
    const QString format = line.format();
    readProfiles(line);
    const QVector<Fixture> fixtures = fixturesOf(line.values(QStringLiteral("fixture")));
    std::optional<ColorInput> colors;
    if (!line.positionalArguments().isEmpty())
        colors.emplace(line.positionalArguments());
    if (colors)
        colors->forEachArgument([](const GivenColor& given) { chromaticityOf(given); });
    if (format == QLatin1String("json"))
        writeJson(fixtures, colors ? &*colors : nullptr);
    else
        writeTable(fixtures, colors ? &*colors : nullptr, wantsSwatches(line));
}
