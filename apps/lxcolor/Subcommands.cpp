#include "Subcommands.h"

#include <algorithm>

const QVector<Subcommand>& subcommands()
{
    static const QVector<Subcommand> all = {
        {QStringLiteral("fixtures"), QStringLiteral("list the fixtures that colours can be made for"), runFixtures},
        {QStringLiteral("dmx"), QStringLiteral("turn colours into the DMX bytes of a fixture"), runDmx},
        {QStringLiteral("convert"), QStringLiteral("show colours in another colour space"), runConvert},
        {QStringLiteral("cct"), QStringLiteral("turn CCT and tint into a chromaticity, and back"), runCct},
        {QStringLiteral("mix"), QStringLiteral("lay one colour over another, or blend them"), runMix},
        {QStringLiteral("match"), QStringLiteral("say what becomes of colours on a fixture, and why"), runMatch},
        {QStringLiteral("render"), QStringLiteral("turn frames of colours into the universes of a patch"), runRender},
        {QStringLiteral("gamut"), QStringLiteral("say which chromaticities fixtures can show"), runGamut},
        {QStringLiteral("plot"), QStringLiteral("draw the chromaticity diagram"), runPlot, true},
        {QStringLiteral("swatches"), QStringLiteral("list the colours of swatch files and documents"), runSwatches},
        {QStringLiteral("check"), QStringLiteral("find what is wrong with databases, swatch files and documents"),
         runCheck},
        {QStringLiteral("palette"), QStringLiteral("read and write the palettes of other programs"), runPalette},
        {QStringLiteral("import"), QStringLiteral("bring measured emitters of a fixture into a database"), runImport},
    };
    return all;
}

QString summaryOf(const QString& name)
{
    const QVector<Subcommand>& all = subcommands();
    const auto found = std::find_if(all.begin(), all.end(), [&](const Subcommand& one) { return one.name == name; });
    return found == all.end() ? QString() : found->summary;
}
