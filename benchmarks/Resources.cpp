// What the library takes besides time in a call: memory, and the start of a process.
#include "CCTUtils.h"
#include "CurveFactory.h"
#include "FrameRenderer.h"
#include "IOModeFactory.h"
#include "LXColor.h"
#include "LXColorLibrary.h"
#include "MarkdownTable.h"
#include "Suite.h"
#include "TonematchProfileFactory.h"
#include "TristimulusFactory.h"

#include <QProcess>

#include <algorithm>
#include <sys/resource.h>

#ifdef __GLIBC__
#    include <malloc.h>
#endif

namespace {

/// Bytes of the heap in use; 0 where that cannot be told.
qint64 heapInUse()
{
#if defined(__GLIBC__) && (__GLIBC__ > 2 || __GLIBC_MINOR__ >= 33)
    const struct mallinfo2 info = mallinfo2();
    return static_cast<qint64>(info.uordblks) + static_cast<qint64>(info.hblkhd);
#else
    return 0;
#endif
}

QString kilobytes(double bytes) { return QString::number(bytes / 1024.0, 'f', 1) + QLatin1String(" KiB"); }

/// Looks up a grid of chromaticities, so that all that a fixture's solver prepares on first use is there.
void solveEverywhere(ColorUtils::TonematchProfileID profile)
{
    const auto layout = ColorUtils::nChannelConfigurationForTonematchProfileID(profile);
    constexpr int kSteps = 200;
    for (int i = 0; i < kSteps; ++i) {
        for (int k = 0; k < kSteps; ++k) {
            double Yxy[3] = {1.0, 0.05 + 0.7 * i / kSteps, 0.02 + 0.8 * k / kSteps};
            double levels[5];
            ColorUtils::convertYxyToNChannel(Yxy, levels, layout, profile, true);
        }
    }
}

void sendMatched(ColorUtils::TonematchProfileID profile, int onboardCurve, int resolution)
{
    const LXColor color = LXColor::fromxyY(0.32, 0.33, 0.5, ColorUtils::ProfileGenericRGB);
    // Often enough that a table of the inverse is worth while.
    for (int i = 0; i < 1000; ++i)
        ColorUtils::updateBuffer(0, onboardCurve, color, false, 3, resolution, ColorUtils::IOModeRGB, profile);
}

void readWhitePoint()
{
    double x = 0.0;
    double y = 0.0;
    int cct = 0;
    int tint = 0;
    CCTUtils::getxyFromCCTAndTint(3200, 100, x, y);
    CCTUtils::getCCTAndTintFromxy(x, y, cct, tint);
}

/// Processor time of the child processes that have ended.
double childrensMilliseconds()
{
    rusage usage;
    getrusage(RUSAGE_CHILDREN, &usage);
    const auto milliseconds = [](const timeval& time) {
        return 1e3 * double(time.tv_sec) + 1e-3 * double(time.tv_usec);
    };
    return milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime);
}

struct FirstUse
{
    const char* what;
    std::function<void()> use;
};

/// Swatches of the library, which stay until the process ends.
void addSwatches(int count)
{
    LXColorLibrary* library = LXColorLibrary::Instance();
    library->setEditingMultipleColors(true);
    for (int i = 0; i < count; ++i)
        library->createColorWithName(LXColor(QRgb(i)), QStringLiteral("Gel %1").arg(i), QString(),
                                     QStringLiteral("Gels"), QString());
}

} // namespace

void printMemory()
{
    std::puts(
        "## Memory\n\nOf the heap, by what is first used, in this order. What is made for a process is made "
        "once, whatever the number of\n"
        "colours, threads and fixtures of that model; a model whose emitters change is prepared again, up to four "
        "times.\n");
    // Qt's own first-time allocations are not the library's.
    QString::number(1.5).toDouble();
    const FirstUse uses[] = {
        {"emitters, profiles, IO modes",
         [] {
             TristimulusFactory::getInstance();
             TonematchProfileFactory::instance();
             IOModeFactory::instance();
         }},
        {"software curves (two of 65,536 values)", [] { CurveFactory::Instance(); }},
        {"a fixture model of 3 emitters, all of its gamut", [] { solveEverywhere(ColorUtils::ProfilePixelNodeRGB); }},
        {"a fixture model of 4 emitters, all of its gamut",
         [] { solveEverywhere(ColorUtils::ProfileWashLineQP6RGBW); }},
        {"a fixture model of 5 emitters, all of its gamut", [] { solveEverywhere(ColorUtils::ProfileFlareFlashQVS); }},
        {"inverse of the normal onboard curve, 8 bit", [] { sendMatched(ColorUtils::ProfilePixelNodeRGB, 1, 1); }},
        {"inverse of the normal onboard curve, 16 bit", [] { sendMatched(ColorUtils::ProfilePixelNodeRGB, 1, 2); }},
        {"inverse of the tungsten onboard curve, 16 bit", [] { sendMatched(ColorUtils::ProfilePixelNodeRGB, 2, 2); }},
        {"white points", readWhitePoint},
    };
    MarkdownTable table({"First use", "Heap"});
    for (const FirstUse& first : uses) {
        const qint64 before = heapInUse();
        first.use();
        table.add({first.what, kilobytes(static_cast<double>(heapInUse() - before))});
    }
    table.print();

    MarkdownTable each({"For each", "Bytes"});
    each.add({"LXColor, without the levels of an N-channel colour", QString::number(sizeof(LXColor))});
    for (const int universes : {10, 1000}) {
        constexpr int kFixtures = 51;
        QVector<FrameRenderer::Fixture> patch;
        for (int i = 0; i < universes * kFixtures; ++i)
            patch.append(FrameRenderer::Fixture::contiguous(ColorUtils::ProfileFlareFlashQVS, ColorUtils::IOModeRGBAW,
                                                            1 + i / kFixtures, 1 + i % kFixtures * 10, 2));
        FrameRenderer renderer;
        const qint64 before = heapInUse();
        renderer.setPatch(patch, nullptr);
        each.add({QStringLiteral("universe of a FrameRenderer, 51 fixtures of five 16-bit channels, %1 universes")
                      .arg(universes),
                  QString::number((heapInUse() - before) / universes)});
    }
    for (const int swatches : {1000, 100000}) {
        const qint64 before = heapInUse();
        addSwatches(swatches);
        each.add({QStringLiteral("swatch of the library, %1 more").arg(swatches),
                  QString::number((heapInUse() - before) / swatches)});
    }
    LXColorLibrary::cleanup();
    each.print();
}

void printStartUp(const QString& folder)
{
    const struct
    {
        const char* program;
        const char* what;
    } rows[] = {
        {"start_nothing", "an empty program"},
        {"start_qt", "one that is linked with Qt Gui and Xml"},
        {"start_one_color", "one that matches a colour to DMX bytes"},
        {"start_one_white", "one that reads a white point"},
        {"start_swatches", "one that makes a swatch library with a colour"},
    };
    constexpr int kRounds = 41;
    std::vector<std::vector<double>> milliseconds(std::size(rows));
    for (int round = 0; round < kRounds; ++round) {
        for (std::size_t k = 0; k < std::size(rows); ++k) {
            const double before = childrensMilliseconds();
            if (QProcess::execute(folder + QLatin1Char('/') + QLatin1String(rows[k].program), {}) != 0) {
                std::fprintf(stderr, "bench: %s does not run\n", rows[k].program);
                return;
            }
            milliseconds[k].push_back(childrensMilliseconds() - before);
        }
    }
    std::puts("## Start-up\n\nProcessor time from the start of a process to its end, medians of 41 starts in turns. "
              "Nearly all of it is the\n"
              "loading of Qt.\n");
    MarkdownTable table({"Process", "Time"});
    for (std::size_t k = 0; k < std::size(rows); ++k) {
        std::sort(milliseconds[k].begin(), milliseconds[k].end());
        table.add({rows[k].what, QString::number(milliseconds[k][kRounds / 2], 'f', 2) + QLatin1String(" ms")});
    }
    table.print();
}
