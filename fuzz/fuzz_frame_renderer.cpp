// A patch is taken exactly when it can be, and a frame is, fixture by fixture, what ColorUtils::updateBuffer() gives.
#include "ExpectedSlots.h"
#include "FuzzSupport.h"

#include <QMap>
#include <QSet>

#include <algorithm>

using Fixture = FrameRenderer::Fixture;
using Taken = QMap<int, QSet<int>>; ///< The slots in use of each universe.

namespace {

Fixture anyFixture(FuzzInput& input)
{
    const auto profile = static_cast<ColorUtils::TonematchProfileID>(input.integer(0, 31) % 11);
    const int ioMode = input.integer(0, 31) % 11;
    const int universes[] = {1, 2, 7, 512, 63999, 0, 64000};
    const int universe = universes[qMax(0, input.integer(0, 63) - 57)];
    Fixture fixture = Fixture::contiguous(profile, ioMode, universe, input.integer(0, 513), input.integer(1, 2));
    fixture.directCurve = input.integer(-1, 4);
    fixture.onboardCurve = input.integer(-1, 4);
    fixture.allowRgbPassThrough = input.flag();
    if (input.integer(0, 3) == 0) {
        fixture.channels.resize(input.integer(0, 12));
        for (auto& channel : fixture.channels)
            channel = {input.integer(-1, 513), input.flag() ? input.integer(-1, 513) : 0};
    }
    return fixture;
}

bool isSlot(int slot) { return slot >= 1 && slot <= FrameRenderer::kSlotsPerUniverse; }

/// Whether a fixture can be, and its slots are none of \a taken, among which they are entered.
bool fits(const Fixture& fixture, Taken& taken)
{
    const bool exists = fixture.profile >= 0 && fixture.profile <= 9 && fixture.ioMode >= 0 && fixture.ioMode <= 9;
    if (!exists || fixture.channels.isEmpty() || fixture.universe < 1 ||
        fixture.universe > FrameRenderer::kLastUniverse)
        return false;
    for (const auto& channel : fixture.channels) {
        QVector<int> used{channel.slot};
        if (channel.fineSlot != 0)
            used.append(channel.fineSlot);
        for (const int slot : used) {
            if (!isSlot(slot) || taken[fixture.universe].contains(slot))
                return false;
            taken[fixture.universe].insert(slot);
        }
    }
    return true;
}

void renderAndCompare(FrameRenderer& renderer, const QVector<Fixture>& fixtures, FuzzInput& input)
{
    QVector<LXColor> colors;
    for (int i = 0; i < fixtures.size(); ++i)
        colors.append(i > 0 && input.flag() ? colors.constLast() : anyColor(input));
    renderer.render(colors);
    const QVector<int> universes = renderer.universes();
    for (int position = 0; position < universes.size(); ++position) {
        QByteArray expected(FrameRenderer::kSlotsPerUniverse, '\0');
        for (int i = 0; i < fixtures.size(); ++i) {
            if (fixtures[i].universe == universes[position])
                writeExpected(fixtures[i], colors[i], reinterpret_cast<unsigned char*>(expected.data()));
        }
        require(std::equal(expected.cbegin(), expected.cend(), renderer.universeSlots(position),
                           [](char a, unsigned char b) { return static_cast<unsigned char>(a) == b; }),
                "a frame is what single fixtures get");
    }
    require(!renderer.universeSlots(universes.size()), "there are no more universes");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    FuzzInput input(data, size);
    FrameRenderer renderer;
    renderer.setThreadCount(input.integer(0, 15) == 0 ? 3 : 1);
    QVector<Fixture> patched;
    for (int patch = input.integer(1, 3); patch > 0; --patch) {
        const bool onlyFitting = input.flag();
        QVector<Fixture> fixtures;
        Taken taken;
        bool isGood = true;
        for (int i = input.integer(0, 7); i > 0; --i) {
            const Fixture fixture = anyFixture(input);
            const Taken before = taken;
            const bool isFitting = fits(fixture, taken);
            if (!isFitting && onlyFitting) {
                taken = before;
                continue;
            }
            isGood = isGood && isFitting;
            fixtures.append(fixture);
        }
        QString error;
        require(renderer.setPatch(fixtures, &error) == isGood, "a patch is taken exactly when it can be", error);
        require(error.isEmpty() == isGood, "a refusal says why");
        if (isGood)
            patched = fixtures;
        require(renderer.fixtureCount() == patched.size(), "a refused patch leaves the earlier one");
        for (int frame = input.integer(0, 3); frame > 0; --frame)
            renderAndCompare(renderer, patched, input);
    }
    return 0;
}
