// What the library's work costs, beside the plain form of it and beside what a user would take instead.
//
//   bench                     Google Benchmark, with its options: --benchmark_filter=matching, --benchmark_list_tests
//   bench --paired [FILTER]   the contenders of each case in turns, and the medians of their ratios, as Markdown; of
//   the
//                             cases whose "group/work" contains FILTER
//   bench --memory            what tables take of the heap
//   bench --start-up          how long a process of one colour takes
//   bench --document          all of it: docs/performance.md
//
// Times are those of this machine at this moment. Ratios taken in turns hold on a busy machine, too.

#include "Suite.h"

#include <QFile>
#include <QGuiApplication>
#include <QLoggingCategory>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>

namespace {

Cases allCases(const QString& filter)
{
    Cases cases;
    addColorCases(cases);
    addTextCases(cases);
    addMatchingCases(cases);
    addCurveCases(cases);
    addOutputCases(cases);
    addFrameCases(cases);
    addWhitePointCases(cases);
    addSwatchCases(cases);
    cases.erase(std::remove_if(cases.begin(), cases.end(),
                               [&](const Case& c) {
                                   return !(c.group + QLatin1Char('/') + c.work).contains(filter, Qt::CaseInsensitive);
                               }),
                cases.end());
    return cases;
}

void runOne(benchmark::State& state, const Contender& contender, qint64 items)
{
    constexpr qint64 kBatch = 1000;
    const Work work = contender.make();
    if (work.prepare) {
        while (state.KeepRunning()) {
            state.PauseTiming();
            work.prepare();
            state.ResumeTiming();
            work.run(1);
        }
    } else {
        const qint64 batch = items > 1 ? 1 : kBatch;
        while (state.KeepRunningBatch(batch))
            work.run(batch);
    }
    state.SetItemsProcessed(state.iterations() * items);
}

int runGoogleBenchmark(int argc, char* argv[], const Cases& cases)
{
    for (const Case& c : cases) {
        for (const Contender& contender : c.contenders) {
            const QString name = QStringList{c.group, c.work, contender.name}.join(QLatin1Char('/'));
            benchmark::RegisterBenchmark(qUtf8Printable(name), [contender, items = c.items](benchmark::State& state) {
                runOne(state, contender, items);
            });
        }
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

const char* const kIntroduction = R"(# Performance

This page is what `bench --document` printed on one core of a shared virtual machine. To repeat it:

```
scripts/setup --bench
cmake --preset release -DLXCOLOR_BUILD_BENCHMARKS=ON -DLXCOLOR_BUILD_TESTS=OFF
cmake --build build/release --target bench
build/release/benchmarks/bench --document             # this page, in a few minutes
build/release/benchmarks/bench --paired matching      # the tables of some cases
build/release/benchmarks/bench --benchmark_filter=frames    # the same cases under Google Benchmark
```

How to read it: the contenders of a row take turns of a millisecond in one process, each round beginning with another one. Times are
processor time, medians of 41 rounds; "3.2 x" says that this contender takes 3.2 times as long as the library, as the median of the ratios
within a round; below 1 x it is the quicker one. So the ratios hold where the times do not, on another or a busy machine. "Spread" is the distance between the quartiles of
the library's own times; where it is large, believe the row less.

- **Plain form**: the operation written down step by step with Qt's containers, as in `tests/reference`. It gives the same bits.
- **Peers** are what a user would take instead, and do not always do the same: QColor and OLA's buffer match no colours, lcms2's matrix solves three
  emitters without a gamut, GLPK finds the same mix as a linear program. The CCT formulas are those of their papers. What is not
  installed is left out; OLA joins with libola-dev, which scripts/setup leaves to you because it brings OLA's daemon along.

Built with %1 and Qt %2, run on %3.

Results are the same bits at any speed; [numerics.md](numerics.md) says why. Nothing in the tests asserts a time.

## Times
)";

const char* const kGrowth = R"(### How cost grows

Calls do not depend on what else is there. A fixture costs the same in a frame of one universe and of ten thousand, and a swatch the same in
a library of a thousand and of a hundred thousand, but for what the caches of the processor no longer hold: "growth" above is
the time of a part over that of the smallest size. Random look-ups show that most, here as in the hash alone. Matching grows with
the emitters, from three to five, by the mixes that can be the brightest near a chromaticity, not by all 70 of them. Where the processor
has AVX2, four of them are worked out side by side, else two, with which frames of matched colours take about a fifth longer; set
`LXCOLOR_NO_AVX2` in the environment to see it here.

A universe holds 51 fixtures of five 16-bit channels, so at 44 frames a second one core carries 446,000 universes divided by the
nanoseconds that such a fixture takes above: with 45 ns, 9,900. The first frames of a process take longer (a millisecond for 20
universes), because each part of a model's gamut is worked out when a colour first falls into it.
)";

/// The processor's name, as Linux tells it.
QString processorName()
{
    QFile file(QStringLiteral("/proc/cpuinfo"));
    file.open(QIODevice::ReadOnly);
    const QString text = QString::fromLatin1(file.readAll());
    const QString name =
        text.section(QLatin1String("model name"), 1, 1).section(QLatin1Char('\n'), 0, 0).section(QLatin1Char(':'), 1);
    return name.isEmpty() ? QStringLiteral("an unknown processor") : name.trimmed();
}

/// What this program prints in another mode, in a process of its own: memory is looked at where nothing has been used
/// yet, and small processes start others sooner.
QByteArray printedBy(const QString& mode)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(), {mode});
    process.waitForFinished(-1);
    return process.readAllStandardOutput();
}

void printDocument()
{
    const QByteArray memory = printedBy(QStringLiteral("--memory"));
    const QByteArray startUp = printedBy(QStringLiteral("--start-up"));
    std::puts(qUtf8Printable(QString::fromLatin1(kIntroduction)
                                 .arg(QStringLiteral(LXCOLOR_COMPILER), QLatin1String(qVersion()), processorName())));
    printPaired(allCases(QString()), PairedOptions());
    std::puts(kGrowth);
    std::fputs(memory.constData(), stdout);
    std::fputs(startUp.constData(), stdout);
}

} // namespace

int main(int argc, char* argv[])
{
    // The swatch library saves into a folder that goes when the program ends.
    const QTemporaryDir folder;
    qputenv("XDG_DATA_HOME", folder.path().toUtf8());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));

    const QString mode = QString::fromLocal8Bit(argc > 1 ? argv[1] : "");
    if (mode == QLatin1String("--paired")) {
        printPaired(allCases(QString::fromLocal8Bit(argc > 2 ? argv[2] : "")), PairedOptions());
    } else if (mode == QLatin1String("--memory")) {
        printMemory();
    } else if (mode == QLatin1String("--start-up")) {
        printStartUp(QCoreApplication::applicationDirPath());
    } else if (mode == QLatin1String("--document")) {
        printDocument();
    } else {
        return runGoogleBenchmark(argc, argv, allCases(QString()));
    }
    return 0;
}
