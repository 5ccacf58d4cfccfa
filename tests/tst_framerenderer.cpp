// A frame is, fixture by fixture, what ColorUtils::updateBuffer() gives; patches that cannot be are refused.
#include "ExpectedSlots.h"
#include "FrameRenderer.h"
#include "LXColor.h"
#include "Rows.h"

#include <QtTest>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <new>
#include <random>

// Counts what is taken of the heap.
static std::atomic<int> s_allocations{0};

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept
{
    ++s_allocations;
    return std::malloc(size);
}
void* operator new(std::size_t size)
{
    if (void* memory = operator new(size, std::nothrow))
        return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

using Fixture = FrameRenderer::Fixture;

namespace {

using Random = std::mt19937;

LXColor anyColor(Random& random)
{
    const auto profile = static_cast<ColorUtils::TonematchProfileID>(random() % 10);
    const auto ratio = [&] { return static_cast<int>(random() % 1001) / 1000.0; };
    switch (random() % 6) {
    case 0:
        return LXColor::fromHsvF(ratio(), ratio(), ratio(), 1.0, profile);
    case 1:
        return LXColor::fromxyY(0.8 * ratio(), 0.9 * ratio(), ratio(), profile);
    case 2:
        return LXColor::fromNChannelF({1.0, ratio(), ratio(), ratio(), ratio()}, ColorUtils::ConfigRGBW,
                                      ColorUtils::ProfileWashLineQP6RGBW);
    case 3:
        return {};
    case 4: // a hue that compares equal to the achromatic one
        return random() % 2 ? LXColor::fromHsv8(-1, 200, 200, 255, profile)
                            : LXColor::fromHsvF(23295.0 / 36000.0, 200.0 / 255.0, 200.0 / 255.0, 1.0, profile);
    default:
        return LXColor::fromRgbF(ratio(), ratio(), ratio(), 1.0, profile);
    }
}

/// Fixtures of all kinds over three universes: side by side, with fine bytes apart, and of mixed widths.
QVector<Fixture> anyPatch(Random& random)
{
    QVector<Fixture> fixtures;
    for (int universe : {7, 1, 40000}) {
        for (int slot = 1; slot + 40 < 512; slot += 40) {
            const auto profile = static_cast<ColorUtils::TonematchProfileID>(random() % 10);
            Fixture fixture = Fixture::contiguous(profile, static_cast<int>(random() % 10), universe, slot,
                                                  1 + static_cast<int>(random() % 2));
            fixture.directCurve = static_cast<int>(random() % 3);
            fixture.allowRgbPassThrough = random() % 2;
            for (int k = 0; k < fixture.channels.size() && random() % 2; ++k)
                fixture.channels[k] = {slot + k * 3, random() % 2 ? slot + 30 + k : 0};
            fixtures.append(fixture);
        }
    }
    return fixtures;
}

bool overlaps(const Fixture& fixture)
{
    QVector<int> used;
    for (const auto& channel : fixture.channels)
        for (int slot : {channel.slot, channel.fineSlot})
            if (slot != 0)
                used.append(slot);
    std::sort(used.begin(), used.end());
    return std::adjacent_find(used.begin(), used.end()) != used.end();
}

} // namespace

class TestFrameRenderer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rendersWhatUpdateBufferGives_data()
    {
        QTest::addColumn<int>("threads");
        QTest::newRow("one thread") << 1;
        QTest::newRow("three threads") << 3;
        QTest::newRow("more threads than fixtures") << 200;
    }

    void rendersWhatUpdateBufferGives()
    {
        QFETCH(int, threads);
        Random random(5);
        QVector<Fixture> fixtures = anyPatch(random);
        fixtures.erase(std::remove_if(fixtures.begin(), fixtures.end(), overlaps), fixtures.end());
        FrameRenderer renderer;
        QString error;
        QVERIFY2(renderer.setPatch(fixtures, &error), qPrintable(error));
        renderer.setThreadCount(threads);
        QCOMPARE(renderer.universes(), (QVector<int>{1, 7, 40000}));
        QVERIFY(fixtures.size() > 20);

        for (int frame = 0; frame < 50; ++frame) {
            QVector<LXColor> colors;
            for (int i = 0; i < fixtures.size(); ++i)
                colors.append(i > 0 && random() % 3 == 0 ? colors.constLast() : anyColor(random));
            renderer.render(colors);
            for (int position = 0; position < 3; ++position) {
                QByteArray expected(FrameRenderer::kSlotsPerUniverse, '\0');
                for (int i = 0; i < fixtures.size(); ++i)
                    if (fixtures[i].universe == renderer.universes()[position])
                        writeExpected(fixtures[i], colors[i], reinterpret_cast<unsigned char*>(expected.data()));
                const auto* got = reinterpret_cast<const char*>(renderer.universeSlots(position));
                QCOMPARE(QByteArray(got, FrameRenderer::kSlotsPerUniverse).toHex(), expected.toHex());
            }
        }
    }

    // Once each model and curve has been used.
    void allocatesNothing()
    {
        Random random(6);
        QVector<Fixture> fixtures = anyPatch(random);
        fixtures.erase(std::remove_if(fixtures.begin(), fixtures.end(), overlaps), fixtures.end());
        FrameRenderer renderer;
        QVERIFY(renderer.setPatch(fixtures, nullptr));
        renderer.setThreadCount(3);
        int allocations = 0;
        for (int frame = 0; frame < 2300; ++frame) {
            QVector<LXColor> colors;
            for (int i = 0; i < fixtures.size(); ++i)
                colors.append(anyColor(random));
            const int before = s_allocations;
            renderer.render(colors);
            if (frame >= 2000)
                allocations += s_allocations - before;
        }
        QCOMPARE(allocations, 0);
    }

    void fixturesWithoutAColourKeepTheirs()
    {
        FrameRenderer renderer;
        QVERIFY(renderer.setPatch({Fixture::contiguous(ColorUtils::ProfileGenericRGB, ColorUtils::IOModeRGB, 1, 1, 1),
                                   Fixture::contiguous(ColorUtils::ProfileGenericRGB, ColorUtils::IOModeRGB, 1, 4, 1)},
                                  nullptr));
        renderer.render({LXColor(Qt::red), LXColor(Qt::white), LXColor(Qt::blue)});
        renderer.render({LXColor(Qt::green)});
        renderer.render(nullptr, 2);
        QCOMPARE(QByteArray(reinterpret_cast<const char*>(renderer.universeSlots(0)), 7).toHex(),
                 QByteArray("00ff00ffffff00"));
        QVERIFY(!renderer.universeSlots(1) && !renderer.universeSlots(-1));
    }

    void refusesPatches_data()
    {
        const Rows<int, int, int, int, QString> row;
        row("no such profile", 10, 0, 1, 1, "no profile 10");
        row("no such mode", 0, 10, 1, 1, "no IO mode 10");
        row("universe 0", 0, 0, 0, 1, "universe 0");
        row("universe beyond the last", 0, 0, 64000, 1, "universe 64000");
        row("slot 0", 0, 0, 1, 0, "slot 0");
        row("beyond the universe", 0, 0, 1, 511, "slot 513");
        row("taken", 0, 0, 1, 101, "slot 102 of universe 1 is taken by fixture 1");
    }

    void refusesPatches()
    {
        const auto [profile, ioMode, universe, slot, says] = fetched<int, int, int, int, QString>();
        FrameRenderer renderer;
        const Fixture good = Fixture::contiguous(ColorUtils::ProfileGenericRGBW, ColorUtils::IOModeRGBW, 1, 102, 1);
        QVERIFY(renderer.setPatch({good}, nullptr));
        Fixture bad = Fixture::contiguous(ColorUtils::ProfileGenericRGB, ColorUtils::IOModeRGB, universe, slot, 1);
        bad.profile = static_cast<ColorUtils::TonematchProfileID>(profile);
        bad.ioMode = ioMode;
        QString error;
        QVERIFY(!renderer.setPatch({good, bad}, &error));
        QVERIFY2(error.startsWith(QLatin1String("Fixture 2")) && error.contains(says), qPrintable(error));
        QCOMPARE(renderer.fixtureCount(), 1);
        bad.channels.clear();
        QVERIFY(!renderer.setPatch({bad}, nullptr));
    }
};

QTEST_APPLESS_MAIN(TestFrameRenderer)
#include "tst_framerenderer.moc"
