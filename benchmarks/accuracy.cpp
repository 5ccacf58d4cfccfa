// How near the light of a match comes to the light asked for, as the Markdown of docs/accuracy.md.
//
//   accuracy           prints docs/accuracy.md, in a few seconds
//   accuracy --quick   the same for a coarser grid of chromaticities
//
// Either way the exit status is 1, and a line on standard error says why, when a figure is beyond the bound that is
// stated for it. Light is computed forward from what is sent: bytes, through the onboard response and the emitters.

#include "CCTUtils.h"
#include "ColorUtils.h"
#include "IOMode.h"
#include "IOModeFactory.h"
#include "LXColor.h"
#include "LinearProgram.h"
#include "MarkdownTable.h"
#include "MatchReport.h"
#include "Tristimulus.h"
#include "TristimulusFactory.h"

#include <QCoreApplication>
#include <QLoggingCategory>

#include <array>
#include <cmath>
#include <cstring>

namespace {

using Light = MatchReport::Light;

// ---- What is looked at ----

// Steps of the grid of chromaticities along each side of the gamut.
constexpr int kFullGrid = 100;
constexpr int kQuickGrid = 12;

constexpr int kIntensityCount = 3;
constexpr double kIntensities[kIntensityCount] = {1.0, 0.1, 0.01};
const char* const kIntensityNames[kIntensityCount] = {"100 %", "10 %", "1 %"};

/// A fixture driven one to one in a layout.
struct Case
{
    ColorUtils::TonematchProfileID profile;
    ColorUtils::IOModeID ioMode;
    ColorUtils::ChannelConfiguration layout;
    Tristimulus* emitters;

    int channels() const { return ColorUtils::configChannelCount(layout); }
    QString fixture() const { return ColorUtils::tonematchProfileIDName(profile); }
    QString layoutName() const { return ColorUtils::nameForChannelConfiguration(layout); }
    QString name() const { return fixture() + QLatin1String(", ") + layoutName(); }
    bool isLinear() const { return ColorUtils::defaultCurveTypeForTonematchProfileID(profile) == 0; }
    bool hasWhite() const { return layout == ColorUtils::ConfigRGBW || layout == ColorUtils::ConfigRGBAW; }
};

/// Every profile in every layout that it takes in. Modes that make more channels of three take in red, green and blue,
/// as the RGB mode does; the single channel has no chromaticity.
std::vector<Case> allCases()
{
    std::vector<Case> cases;
    for (const auto profile : ColorUtils::tonematchProfileIDList(true)) {
        QVector<ColorUtils::ChannelConfiguration> layouts;
        for (const auto ioMode : ColorUtils::ioModesForTonematchProfileID(profile)) {
            const auto layout = IOModeFactory::instance()->ioMode(ioMode)->inputChannelConfiguration();
            if (layout == ColorUtils::ConfigSingleChannel || layouts.contains(layout))
                continue;
            layouts.append(layout);
            cases.push_back(
                {profile, ioMode, layout, TristimulusFactory::getInstance()->getTristimulus(profile, layout)});
        }
    }
    return cases;
}

QPointF corner(const Case& c, int emitter)
{
    const double XYZ[3] = {c.emitters->getX().at(emitter), c.emitters->getY().at(emitter),
                           c.emitters->getZ().at(emitter)};
    double Yxy[3];
    ColorUtils::convertXYZtoYxy(XYZ, Yxy);
    return {Yxy[1], Yxy[2]};
}

/// Chromaticities x, y spread over the inside of the gamut.
std::vector<QPointF> chromaticities(const Case& c, int steps)
{
    const QPointF corners[] = {corner(c, 0), corner(c, 1), corner(c, 2)};
    std::vector<QPointF> points;
    for (int red = 1; red < steps - 1; ++red)
        for (int green = 1; green < steps - red; ++green)
            points.push_back((red * corners[0] + green * corners[1] + (steps - red - green) * corners[2]) / steps);
    return points;
}

// ---- Light ----

double distanceOf(const Light& a, const Light& b)
{
    return CCTUtils::getDuvPrimeFromuvPrime(a.uvPrime().x(), a.uvPrime().y(), b.uvPrime().x(), b.uvPrime().y());
}

/// The light of a fixture's emitters at these levels of light.
Light lightOf(const Case& c, const QVector<double>& levels)
{
    const LXColor color = LXColor::fromNChannelF(QVector<double>{1.0} + levels, c.layout, c.profile);
    double Yxy[3];
    ColorUtils::convertLXColorToYxy(color, c.emitters, Yxy, 0);
    return {Yxy[0], Yxy[1], Yxy[2]};
}

double luminanceOf(const Case& c, const QVector<double>& levels)
{
    double luminance = 0.0;
    for (int i = 0; i < levels.size(); ++i)
        luminance += levels.at(i) * c.emitters->getY().at(i);
    return luminance;
}

MatchReport match(const Case& c, QPointF xy, double intensity)
{
    MatchReport::Target target;
    target.profile = c.profile;
    target.ioMode = c.ioMode;
    target.resolution = 2;
    return MatchReport::make(LXColor::fromxyY(xy.x(), xy.y(), intensity, ColorUtils::ProfileGenericRGB), target);
}

QVector<double> levelsOf(const MatchReport& report)
{
    QVector<double> levels;
    for (const MatchReport::Emitter& emitter : report.emitters)
        levels.append(emitter.level);
    return levels;
}

QVector<double> solve(const Case& c, ColorUtils::ChannelConfiguration layout, QPointF xy)
{
    double Yxy[3] = {1.0, xy.x(), xy.y()};
    QVector<double> levels(ColorUtils::configChannelCount(layout));
    ColorUtils::convertYxyToNChannel(Yxy, levels.data(), layout, c.profile, true);
    return levels;
}

/// What is often done with a white emitter: what red, green and blue have in common is given to it instead. As bright
/// as that mix can be.
QVector<double> commonPartToWhite(const Case& c, QPointF xy)
{
    const QVector<double> rgb = solve(c, ColorUtils::ConfigRGB, xy);
    const double common = *std::min_element(rgb.begin(), rgb.end());
    QVector<double> levels(c.channels(), 0.0);
    for (int i = 0; i < 3; ++i)
        levels[i] = rgb.at(i) - common;
    levels.last() = common;
    const double greatest = *std::max_element(levels.begin(), levels.end());
    for (double& level : levels)
        level /= greatest;
    return levels;
}

// ---- Figures ----

/// Values of one kind, with the place of the largest.
class Figures
{
public:
    void add(double value, const QString& place)
    {
        // Written so that what is not a number counts as the largest of all.
        if (m_values.empty() || (!(value <= m_largest) && !std::isnan(m_largest))) {
            m_largest = value;
            m_where = place;
        }
        m_values.push_back(value);
    }
    void add(const Figures& other) { add(other.m_largest, other.m_where); }

    bool isEmpty() const { return m_values.empty(); }
    double largest() const { return m_largest; }
    double smallest() const { return *std::min_element(m_values.begin(), m_values.end()); }
    QString where() const { return m_where; }
    double median() const
    {
        std::vector<double> values = m_values;
        const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
        std::nth_element(values.begin(), middle, values.end());
        return *middle;
    }

private:
    std::vector<double> m_values;
    double m_largest = 0.0;
    QString m_where;
};

/// What is found out about one case.
struct Findings
{
    using ByIntensity = std::array<Figures, kIntensityCount>;

    Figures solver;            ///< u'v' of the levels as they are solved, before any byte.
    ByIntensity wide, narrow;  ///< u'v' of what is sent, at 16 and at 8 bits.
    Figures offOptimum;        ///< Of the luminance, as a share of the greatest that is possible.
    Figures gain, recipeError; ///< Luminance over that of commonPartToWhite(), and how far off that is in u'v'.
    /// Of an emitter, from one step of a ramp of white light to the next, 0..1.
    Figures levelStep, fineLevelStep, dmxStep;
};

void lookAtBrightness(const Case& c, LinearProgram& program, QPointF xy, const QVector<double>& levels,
                      const QString& place, Findings& findings)
{
    const double luminance = luminanceOf(c, levels);
    if (canSolveLinearPrograms()) {
        const bool solved = program.solve(xy.x(), xy.y()) && program.refine();
        findings.offOptimum.add(solved ? std::abs(luminance / program.luminance() - 1.0) : MatchReport::none, place);
    }
    if (c.hasWhite()) {
        const QVector<double> recipe = commonPartToWhite(c, xy);
        findings.gain.add(luminance / luminanceOf(c, recipe), place);
        findings.recipeError.add(distanceOf({1.0, xy.x(), xy.y()}, lightOf(c, recipe)), place);
    }
}

void lookAtChromaticities(const Case& c, int steps, Findings& findings)
{
    LinearProgram program(*c.emitters, c.channels());
    for (const QPointF xy : chromaticities(c, steps)) {
        const QString place =
            QStringLiteral("%1, x %2, y %3").arg(c.name()).arg(xy.x(), 0, 'f', 4).arg(xy.y(), 0, 'f', 4);
        for (std::size_t i = 0; i < kIntensityCount; ++i) {
            const MatchReport report = match(c, xy, kIntensities[i]);
            findings.wide[i].add(report.roundingError16, place);
            findings.narrow[i].add(report.roundingError8, place);
            if (i > 0)
                continue;
            const QVector<double> levels = levelsOf(report);
            findings.solver.add(distanceOf(report.requested, lightOf(c, levels)), place);
            lookAtBrightness(c, program, xy, levels, place, findings);
        }
    }
}

/// The largest change of a level on the way from one chromaticity to the next, in ten steps along a straight line.
double largestLevelStep(const Case& c, QPointF from, QPointF to)
{
    constexpr int kSteps = 10;
    double largest = 0.0;
    QVector<double> before;
    for (int i = 0; i <= kSteps; ++i) {
        const QVector<double> now = solve(c, c.layout, from + i * (to - from) / kSteps);
        for (int k = 0; k < before.size(); ++k)
            largest = std::max(largest, std::abs(now.at(k) - before.at(k)));
        before = now;
    }
    return largest;
}

void lookAtRampOfWhite(const Case& c, Findings& findings)
{
    QVector<MatchReport::Emitter> before;
    QPointF xyBefore;
    for (int cct = CCTUtils::getMinCCT(); cct <= CCTUtils::getMaxCCT(); cct += CCTUtils::getCCTStepSize()) {
        QPointF xy;
        CCTUtils::getxyFromCCT(cct, xy.rx(), xy.ry());
        const QVector<MatchReport::Emitter> now = match(c, xy, 1.0).emitters;
        for (int i = 0; i < before.size(); ++i) {
            const QString place = QStringLiteral("%1 to %2 K").arg(now.at(i).name.toLower()).arg(cct);
            findings.levelStep.add(std::abs(now.at(i).level - before.at(i).level), place);
            findings.dmxStep.add(std::abs(now.at(i).drive - before.at(i).drive) / 65535.0, place);
        }
        if (!before.isEmpty())
            findings.fineLevelStep.add(largestLevelStep(c, xyBefore, xy), QStringLiteral("to %1 K").arg(cct));
        before = now;
        xyBefore = xy;
    }
}

// ---- What is stated, and whether it holds ----

// Said instead of a figure that needs a library that was not there.
const QString kNotBuilt = QStringLiteral("not built");

QString number(double value, int decimals) { return QString::number(value, 'f', decimals); }

struct Statement
{
    QString text;
    double limit;
    Figures found;
};

class Statements
{
public:
    /// Adds figures, none included, to the statement of this text.
    void see(const QString& text, double limit, const Figures& figures)
    {
        auto statement = std::find_if(m_statements.begin(), m_statements.end(),
                                      [&](const Statement& known) { return known.text == text; });
        if (statement == m_statements.end())
            statement = m_statements.insert(statement, {text, limit, Figures()});
        if (!figures.isEmpty())
            statement->found.add(figures);
    }

    void print() const
    {
        MarkdownTable table({"Statement", "Bound", "Worst found", "Where"});
        for (const Statement& statement : m_statements)
            table.add({statement.text, number(statement.limit, 5),
                       statement.found.isEmpty() ? kNotBuilt : number(statement.found.largest(), 6),
                       statement.found.where()});
        table.print();
    }

    bool hold() const
    {
        bool all = true;
        for (const Statement& statement : m_statements) {
            if (statement.found.isEmpty() || statement.found.largest() <= statement.limit)
                continue;
            all = false;
            std::fprintf(stderr, "accuracy: %s: %g is beyond the bound %g (%s)\n", qUtf8Printable(statement.text),
                         statement.found.largest(), statement.limit, qUtf8Printable(statement.found.where()));
        }
        return all;
    }

private:
    std::vector<Statement> m_statements;
};

/// The bound of a u'v' error at each intensity.
using Bounds = std::array<double, kIntensityCount>;
constexpr Bounds kWideBounds = {0.0001, 0.0002, 0.002};
constexpr Bounds kNarrowCurvedBounds = {0.002, 0.005, 0.025};
constexpr Bounds kNarrowLinearBounds = {0.003, 0.03, 0.2};

void seeErrors(Statements& statements, const char* text, const Bounds& bounds, const Findings::ByIntensity& figures)
{
    for (std::size_t i = 0; i < kIntensityCount; ++i)
        statements.see(QString::fromLatin1(text).arg(kIntensityNames[i]), bounds[i], figures[i]);
}

void state(Statements& statements, const Case& c, const Findings& findings)
{
    const Findings::ByIntensity none;
    statements.see("Levels as solved, u'v' error", 0.00005, findings.solver);
    seeErrors(statements, "16-bit DMX at %1, u'v' error", kWideBounds, findings.wide);
    seeErrors(statements, "8-bit DMX at %1, fixtures with a dimming curve, u'v' error", kNarrowCurvedBounds,
              c.isLinear() ? none : findings.narrow);
    seeErrors(statements, "8-bit DMX at %1, linear fixtures, u'v' error", kNarrowLinearBounds,
              c.isLinear() ? findings.narrow : none);
    statements.see("Luminance, off the greatest possible", 0.0002, findings.offOptimum);
    statements.see("White light, level step each 10 K", 0.04, findings.levelStep);
    statements.see("White light, level step each 1 K", 0.004, findings.fineLevelStep);
    statements.see("White light, 16-bit DMX step each 10 K", 0.1, findings.dmxStep);
}

// ---- The document ----

const char* const kIntroduction = R"(# Accuracy

This page is what `benchmarks/accuracy` prints. A test fails when it prints something else, another when a bound does not hold.

What the figures do not say:

- **Y is not a luminance.** In this library's Y, x, y, Y is the output ratio of the fixture's brightest emitter. "100 %" below is Y = 1.
- **Accuracy is against the emitter tables, not against a meter.** Light is computed from what is sent, through the model of the onboard
  dimming curve and the emitters of the table. How far a real fixture is from its table, which changes with temperature, age and
  binning, the library cannot know; [data-sources.md](data-sources.md) says what is known of the tables. Emitters that you have
  measured go into a [fixture profile database](../LXColor/resources/FixtureProfiles.xml).
- Chromaticities outside the red-green-blue triangle of a fixture are moved to the nearest point of it. They are not looked at here.

Distances are in CIE 1976 u'v', where 0.001 is about one MacAdam step.

Each fixture is driven one to one in every layout that it takes in, at %1 chromaticities spread evenly over the inside of its
gamut. Modes that make more channels of three take in red, green and blue, as "RGB" does. A single channel has no chromaticity.

## Bounds
)";

const char* const kErrors = R"(## Error of the chromaticity

From the chromaticity asked for to that of the light, in u'v': the worst of the grid, at 8 bits with the median. "Solved" are the levels
before they become bytes. What grows as the light gets dimmer are the steps of DMX. A dimming curve in the fixture puts more of the 8-bit
steps where they are needed; a linear fixture at 1 % has two or three of them left, and needs 16 bits.
)";

const char* const kLuminance = R"(## Luminance

How far the luminance of the match at 100 % is off the greatest that the emitters can give at that chromaticity. That is the optimum of a
linear program, solved by GLPK's simplex and then in its exact arithmetic. What is left are levels within 0.00005 of the ends of
their range, which the solver snaps to them.

Beside it, for fixtures with a white emitter, the usual recipe: mix red, green and blue, give what the three have in common to white
instead, and scale the result until an emitter is full. "Gain" is the luminance of the match over that of the recipe. The recipe
takes white for the sum of red, green and blue, so its light is off the chromaticity asked for, by "its error" in u'v'; where the gain
is below 1, it is brighter in a wrong colour.
)";

const char* const kRamp = R"(## White light, step by step

From 1950 to 11000 K along the blackbody locus at 100 %, in steps of 10 K: the largest change of an emitter's level and of its 16-bit DMX
value from one step to the next, 1 being full. In steps of a tenth of that the levels change by a tenth: the mix does not jump from one set of
emitters to another. Where an emitter comes up from nothing, a dimming curve that is flat at its foot makes DMX steps larger than
those of the light.
)";

void printErrors(const std::vector<Case>& cases, const std::vector<Findings>& findings)
{
    MarkdownTable table({"Fixture, layout", "Solved", "16 bit, 100 %", "10 %", "1 %", "8 bit, 100 %", "10 %", "1 %"});
    for (std::size_t k = 0; k < cases.size(); ++k) {
        QStringList row{cases[k].name(), number(findings[k].solver.largest(), 6)};
        for (const Figures& figures : findings[k].wide)
            row << number(figures.largest(), 6);
        for (const Figures& figures : findings[k].narrow)
            row << number(figures.largest(), 4) + QLatin1String(" (") + number(figures.median(), 4) + QLatin1Char(')');
        table.add(row);
    }
    std::puts(kErrors);
    table.print();
}

void printLuminance(const std::vector<Case>& cases, const std::vector<Findings>& findings)
{
    MarkdownTable table(
        {"Fixture, layout", "Off the optimum", "Gain, median", "least", "most", "Its error, median", "worst"});
    for (std::size_t k = 0; k < cases.size(); ++k) {
        const Figures& off = findings[k].offOptimum;
        const Figures& gain = findings[k].gain;
        const Figures& error = findings[k].recipeError;
        QStringList row{cases[k].name(),
                        off.isEmpty() ? kNotBuilt : number(100.0 * off.largest(), 4) + QLatin1String(" %")};
        if (!gain.isEmpty())
            row << number(gain.median(), 2) << number(gain.smallest(), 2) << number(gain.largest(), 2)
                << number(error.median(), 3) << number(error.largest(), 3);
        table.add(row);
    }
    std::puts(kLuminance);
    table.print();
}

void printRamp(const std::vector<Case>& cases, const std::vector<Findings>& findings)
{
    MarkdownTable table({"Fixture, layout", "Level each 10 K", "at", "Level each 1 K", "DMX each 10 K", "at"});
    for (std::size_t k = 0; k < cases.size(); ++k) {
        const Findings& f = findings[k];
        table.add({cases[k].name(), number(f.levelStep.largest(), 4), f.levelStep.where(),
                   number(f.fineLevelStep.largest(), 4), number(f.dmxStep.largest(), 4), f.dmxStep.where()});
    }
    std::puts(kRamp);
    table.print();
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));
    const int grid = argc > 1 && std::strcmp(argv[1], "--quick") == 0 ? kQuickGrid : kFullGrid;

    const std::vector<Case> cases = allCases();
    std::vector<Findings> findings(cases.size());
    Statements statements;
    for (std::size_t k = 0; k < cases.size(); ++k) {
        lookAtChromaticities(cases[k], grid, findings[k]);
        lookAtRampOfWhite(cases[k], findings[k]);
        state(statements, cases[k], findings[k]);
    }

    std::puts(qUtf8Printable(QString::fromLatin1(kIntroduction).arg((grid - 1) * (grid - 2) / 2)));
    statements.print();
    printErrors(cases, findings);
    printLuminance(cases, findings);
    printRamp(cases, findings);
    return statements.hold() ? 0 : 1;
}
