#include "CCTUtils.h"
#include "Chromaticity.h"
#include "ChromaticityDiagram.h"
#include "ColorInput.h"
#include "CommandError.h"
#include "FixtureLookup.h"
#include "Kelvin.h"
#include "MatchReport.h"
#include "Output.h"
#include "PictureFile.h"
#include "ProfilesOption.h"
#include "SubcommandLine.h"
#include "Subcommands.h"
#include "TargetOptions.h"

#include <QJsonArray>
#include <QPainter>
#include <QRegularExpression>

#include <cmath>
#include <optional>

namespace {

using Diagram = ChromaticityDiagram;

constexpr int kLeastSide = 64; // pixels
constexpr int kGreatestSide = 8192;

/// A picture that is asked for, with what the user called its colours.
struct Plot
{
    Diagram diagram;
    QVector<GivenColor> colors; ///< Of the diagram's points.
    QSize size;

    QRect rect() const { return {QPoint(0, 0), size}; }
};

QSize sizeOf(const QString& text)
{
    static const QRegularExpression form(QStringLiteral("\\A([0-9]{1,5})x([0-9]{1,5})\\z"));
    const QRegularExpressionMatch match = form.match(text);
    const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
    if (std::min(size.width(), size.height()) >= kLeastSide && std::max(size.width(), size.height()) <= kGreatestSide)
        return size;
    throw CommandError(QStringLiteral("--size cannot be %1; accepted: WIDTHxHEIGHT, each from %2 to %3 pixels")
                           .arg(quoted(text), QString::number(kLeastSide), QString::number(kGreatestSide)));
}

QRectF rangeOf(const QString& text)
{
    QVector<double> edges;
    bool isNumber = true;
    for (const QString& part : text.split(QLatin1Char(',')))
        edges.append(isNumber ? part.toDouble(&isNumber) : 0.0);
    if (isNumber && edges.size() == 4) {
        const QRectF range(QPointF(edges[0], edges[1]), QPointF(edges[2], edges[3]));
        Diagram probe;
        probe.setShownRange(range);
        if (range.isValid() && probe.shownRange() == range)
            return range;
    }
    throw CommandError(QStringLiteral("--range cannot be %1; accepted: LEFT,BOTTOM,RIGHT,TOP from -4 to 4, with sides "
                                      "of 0.001 or more")
                           .arg(quoted(text)));
}

/// A white point "3200" or "3200,1500": CCT and tint.
GivenColor whiteOf(const QString& text)
{
    const int comma = text.indexOf(QLatin1Char(','));
    const int kelvin = kelvinOf(text.left(comma));
    bool isNumber = true;
    const int tint = comma < 0 ? 0 : text.mid(comma + 1).toInt(&isNumber);
    if (!isNumber || tint < CCTUtils::getMinTint() || tint > CCTUtils::getMaxTint())
        throw CommandError(
            QStringLiteral("%1 is no white point; accepted: KELVIN or KELVIN,TINT with a tint from "
                           "%2 to %3")
                .arg(quoted(text), QString::number(CCTUtils::getMinTint()), QString::number(CCTUtils::getMaxTint())));
    double x = 0.0;
    double y = 0.0;
    CCTUtils::getxyFromCCTAndTint(kelvin, tint, x, y);
    QString name = QStringLiteral("%1 K").arg(kelvin);
    if (tint != 0)
        name += QStringLiteral(", tint %1").arg(tint);
    return {text, name, LXColor(x, y)};
}

void addColor(Plot& plot, const GivenColor& given, const std::optional<MatchReport::Target>& target)
{
    const Chromaticity chromaticity = Chromaticity::of(given.color);
    if (!chromaticity.isKnown())
        throw CommandError(
            QStringLiteral("%1 gives no light, so it has no place in the diagram").arg(quoted(given.shown())));
    Diagram::Point point;
    point.requested = {chromaticity.x, chromaticity.y};
    point.name = given.shown();
    if (target)
        point.achieved = MatchReport::make(given.color, *target).achieved.xy();
    plot.diagram.addPoint(point);
    plot.colors.append(given);
}

void addFixtures(Diagram& diagram, const SubcommandLine& line)
{
    const QString match = QStringLiteral("match");
    QList<ColorUtils::TonematchProfileID> fixtures;
    for (const QString& name : line.values(QStringLiteral("fixture")) + line.values(match)) {
        const auto fixture = fixtureWithGamutNamed(name);
        if (!fixtures.contains(fixture))
            diagram.addFixture(fixture);
        fixtures.append(fixture);
    }
}

void refuseDriveWithoutMatch(const SubcommandLine& line)
{
    for (const char* name : {"io-mode", "bits", "direct-curve", "onboard-curve", "allow-rgb-pass-through"})
        if (line.isSet(QLatin1String(name)) && !line.isSet(QStringLiteral("match")))
            throw CommandError(QStringLiteral("--%1 has no meaning without --match").arg(QLatin1String(name)));
}

void addColors(Plot& plot, const SubcommandLine& line, const QStringList& colors)
{
    std::optional<MatchReport::Target> target;
    if (line.isSet(QStringLiteral("match"))) {
        const OutputTarget output = targetOf(line, line.value(QStringLiteral("match")));
        target = MatchReport::Target{output.fixture,     output.ioMode,       output.bytesPerChannel,
                                     output.directCurve, output.onboardCurve, output.allowRgbPassThrough};
    }
    for (const QString& white : line.values(QStringLiteral("white")))
        addColor(plot, whiteOf(white), target);
    if (!colors.isEmpty())
        ColorInput(colors).forEach([&](const GivenColor& given) { addColor(plot, given, target); });
}

Plot plotOf(const SubcommandLine& line, const QStringList& colors)
{
    refuseDriveWithoutMatch(line);
    Plot plot;
    plot.size = sizeOf(line.value(QStringLiteral("size")));
    if (line.value(QStringLiteral("plane")) == QLatin1String("uv"))
        plot.diagram.setPlane(Diagram::Plane::CIE1976uvPrime);
    if (line.value(QStringLiteral("palette")) == QLatin1String("dark"))
        plot.diagram.setPalette(Diagram::Palette::Dark);
    if (line.isSet(QStringLiteral("range")))
        plot.diagram.setShownRange(rangeOf(line.value(QStringLiteral("range"))));
    plot.diagram.setElement(Diagram::TintLines, line.isSet(QStringLiteral("tint-lines")));
    plot.diagram.setTitle(printable(line.value(QStringLiteral("title"))));
    addFixtures(plot.diagram, line);
    addColors(plot, line, colors);
    return plot;
}

/// A chromaticity and where it is in the picture; null for none.
QJsonValue placeOf(QPointF xy, const Plot& plot)
{
    if (!std::isfinite(xy.x()) || !std::isfinite(xy.y()))
        return {};
    const QPointF at = plot.diagram.positionOf(xy, plot.rect());
    QJsonObject object = Chromaticity{xy.x(), xy.y()}.members();
    object.insert(QStringLiteral("left"), at.x());
    object.insert(QStringLiteral("top"), at.y());
    return object;
}

QJsonObject toJson(const Plot& plot, const SubcommandLine& line, const QString& file)
{
    QJsonArray fixtures;
    for (const Diagram::Fixture& fixture : plot.diagram.fixtures()) {
        QJsonArray emitters;
        for (const Diagram::Emitter& emitter : fixture.emitters)
            emitters.append(QJsonObject{{QStringLiteral("name"), emitter.name},
                                        {QStringLiteral("place"), placeOf(emitter.xy, plot)}});
        fixtures.append(QJsonObject{{QStringLiteral("name"), fixture.name}, {QStringLiteral("emitters"), emitters}});
    }
    QJsonArray points;
    for (int i = 0; i < plot.colors.size(); ++i) {
        const Diagram::Point& point = plot.diagram.points().at(i);
        points.append(QJsonObject{{QStringLiteral("color"), plot.colors[i].text},
                                  {QStringLiteral("name"), point.name},
                                  {QStringLiteral("requested"), placeOf(point.requested, plot)},
                                  {QStringLiteral("achieved"), placeOf(point.achieved, plot)}});
    }
    const QRect area = plot.diagram.plotArea(plot.rect());
    return {{QStringLiteral("file"), file},
            {QStringLiteral("plane"), line.value(QStringLiteral("plane"))},
            {QStringLiteral("width"), plot.size.width()},
            {QStringLiteral("height"), plot.size.height()},
            {QStringLiteral("plot"), QJsonObject{{QStringLiteral("left"), area.left()},
                                                 {QStringLiteral("top"), area.top()},
                                                 {QStringLiteral("width"), area.width()},
                                                 {QStringLiteral("height"), area.height()}}},
            {QStringLiteral("fixtures"), fixtures},
            {QStringLiteral("points"), points}};
}

void addOptions(SubcommandLine& line)
{
    line.addChoice(
        QStringLiteral("plane"), {QStringLiteral("xy"), QStringLiteral("uv")},
        QStringLiteral("CIE 1931 x, y, or CIE 1976 u', v', where equal distances look about equally large."));
    line.addValues(QStringLiteral("fixture"), QStringLiteral("NAME|ID"),
                   QStringLiteral("A fixture, as its emitters and the triangle of red, green and blue. May be given "
                                  "several times. lxcolor fixtures lists them."));
    line.addValues(QStringLiteral("white"), QStringLiteral("KELVIN[,TINT]"),
                   QStringLiteral("A white point by its CCT and tint. May be given several times."));
    line.addValue(QStringLiteral("match"), QStringLiteral("NAME|ID"),
                  QStringLiteral("A fixture that is to show the colours and white points: what it makes of each is "
                                 "joined to what was asked for."));
    addDriveOptions(line);
    addProfilesOption(line);
    line.addFlag(QStringLiteral("tint-lines"),
                 QStringLiteral("Lines of equal CCT, between the greatest tints towards green and magenta."));
    line.addValue(QStringLiteral("range"), QStringLiteral("LEFT,BOTTOM,RIGHT,TOP"),
                  QStringLiteral("The part of the plane that is shown, in its coordinates; by default all of it."));
    line.addChoice(QStringLiteral("palette"), {QStringLiteral("light"), QStringLiteral("dark")},
                   QStringLiteral("The colours of background and texts."));
    line.addValue(QStringLiteral("title"), QStringLiteral("TEXT"), QStringLiteral("A title above the picture."));
    line.addValue(QStringLiteral("size"), QStringLiteral("WIDTHxHEIGHT"),
                  QStringLiteral("The picture's size in pixels."), QStringLiteral("1000x1000"));
    line.addFormats({QStringLiteral("none"), QStringLiteral("json")},
                    QStringLiteral("What to print. json: an object with every place in the picture; none: nothing."));
}

} // namespace

void runPlot(const QStringList& arguments)
{
    SubcommandLine line(
        QStringLiteral("plot [options] OUT.png|OUT.svg [COLOR...]"),
        QStringLiteral(
            "Draws the chromaticity diagram: white light, gamuts of fixtures, and colours as they were "
            "asked for and,\nwith --match, as a fixture shows them. The file is replaced when the picture "
            "is complete. It needs no display.\n\n%1\n\n"
            "Examples:\n"
            "  lxcolor plot gamuts.png --fixture \"Generic RGB\" --fixture \"Flare/Flash QVS\"\n"
            "  lxcolor plot match.svg 'deep blue=0.16,0.015' --match \"WashLine QP6 RGBW\" --plane uv\n"
            "  lxcolor plot whites.png --white 3200 --white 5600,2000 --tint-lines --range 0.25,0.25,0.5,0.5")
            .arg(colorFormsHelp()));
    addOptions(line);
    if (!line.parse(arguments))
        return;
    const QStringList positional = line.positionalArguments();
    if (positional.isEmpty())
        throw CommandError(QStringLiteral("no picture file given; accepted: names that end in .png or .svg"));
    const PictureFile file(positional.first());
    const bool asJson = line.format() == QLatin1String("json");
    readProfiles(line);
    const Plot plot = plotOf(line, positional.mid(1));
    file.write(plot.diagram.title(), plot.size, [&](QPainter& painter) {
        painter.setFont(QFont(QStringLiteral("sans-serif"))); // one that every viewer of an SVG has
        plot.diagram.paint(painter, plot.rect());
    });
    if (asJson)
        writeJsonLine(toJson(plot, line, file.path()));
}
