#include "FramePatch_p.h"
#include "IOMode.h"
#include "IOModeFactory.h"

#include <algorithm>
#include <numeric>
#include <set>

namespace lxcolor {

namespace {

using Fixture = FrameRenderer::Fixture;
using ChannelSlots = FrameRenderer::ChannelSlots;

constexpr int kSlots = FrameRenderer::kSlotsPerUniverse;

IOMode* ioModeRecord(int ioMode)
{
    return IOModeFactory::instance()->ioMode(static_cast<ColorUtils::IOModeID>(ioMode));
}

bool isSlot(int slot) { return slot >= 1 && slot <= kSlots; }

/// What is wrong with a fixture by itself; empty when nothing is.
QString refusalOf(const Fixture& fixture, int number)
{
    if (!ColorUtils::tonematchProfileIDList(true).contains(fixture.profile))
        return FrameRenderer::tr("Fixture %1: there is no profile %2.").arg(number).arg(fixture.profile);
    if (!ioModeRecord(fixture.ioMode))
        return FrameRenderer::tr("Fixture %1: there is no IO mode %2.").arg(number).arg(fixture.ioMode);
    if (fixture.universe < 1 || fixture.universe > FrameRenderer::kLastUniverse)
        return FrameRenderer::tr("Fixture %1: universe %2 is not in 1 to %3.")
            .arg(number)
            .arg(fixture.universe)
            .arg(FrameRenderer::kLastUniverse);
    if (fixture.channels.isEmpty() || fixture.channels.size() > FramePatch::kMostChannels)
        return FrameRenderer::tr("Fixture %1 has %2 channels; 1 to %3 are possible.")
            .arg(number)
            .arg(fixture.channels.size())
            .arg(FramePatch::kMostChannels);
    for (const ChannelSlots& channel : fixture.channels) {
        const int wrong = !isSlot(channel.slot) ? channel.slot : channel.fineSlot;
        if (!isSlot(channel.slot) || (channel.fineSlot != 0 && !isSlot(channel.fineSlot)))
            return FrameRenderer::tr("Fixture %1: slot %2 of universe %3 is not in 1 to %4.")
                .arg(number)
                .arg(wrong)
                .arg(fixture.universe)
                .arg(kSlots);
    }
    return {};
}

/// Notes which fixture each slot belongs to. The sentence that says what is wrong, or an empty one.
class SlotOwners
{
public:
    explicit SlotOwners(int universeCount) : m_owners(static_cast<size_t>(universeCount) * kSlots, 0) {}

    QString claim(int offset, int universe, int number)
    {
        int& owner = m_owners[static_cast<size_t>(offset)];
        if (owner != 0)
            return FrameRenderer::tr("Fixture %1: slot %2 of universe %3 is taken by fixture %4.")
                .arg(number)
                .arg(offset % kSlots + 1)
                .arg(universe)
                .arg(owner);
        owner = number;
        return {};
    }

private:
    std::vector<int> m_owners; // 0 for a free slot
};

} // namespace

bool PatchedFixture::rendersLike(const PatchedFixture& other) const
{
    return profile == other.profile && ioMode == other.ioMode && directCurve == other.directCurve &&
           onboardCurve == other.onboardCurve && allowRgbPassThrough == other.allowRgbPassThrough &&
           channelCount == other.channelCount;
}

int FramePatch::outputChannelCount(ColorUtils::TonematchProfileID profile, int ioMode)
{
    const IOMode* mode = ioModeRecord(ioMode);
    if (!mode)
        return 0;
    const bool widens = mode->is3toN() && !mode->isNtoN();
    return ColorUtils::configChannelCount(widens ? ColorUtils::nChannelConfigurationForTonematchProfileID(profile)
                                                 : mode->inputChannelConfiguration());
}

QString FramePatch::build(const QVector<Fixture>& fixtures)
{
    std::set<int> universes;
    for (int i = 0; i < fixtures.size(); ++i) {
        QString refusal = refusalOf(fixtures[i], i + 1);
        if (!refusal.isEmpty())
            return refusal;
        universes.insert(fixtures[i].universe);
    }
    for (int universe : universes)
        m_universes.append(universe);

    SlotOwners owners(m_universes.size());
    for (int i = 0; i < fixtures.size(); ++i) {
        const Fixture& fixture = fixtures[i];
        const auto position = std::lower_bound(m_universes.constBegin(), m_universes.constEnd(), fixture.universe);
        const int base = static_cast<int>(position - m_universes.constBegin()) * kSlots - 1; // slots count from 1
        PatchedFixture patched = {fixture.profile,
                                  fixture.ioMode,
                                  fixture.directCurve,
                                  fixture.onboardCurve,
                                  fixture.allowRgbPassThrough,
                                  false,
                                  false,
                                  fixture.channels.size(),
                                  m_channels.size(),
                                  0,
                                  -1};
        for (const ChannelSlots& channel : fixture.channels) {
            const bool wide = channel.fineSlot != 0;
            QString refusal = owners.claim(base + channel.slot, fixture.universe, i + 1);
            if (refusal.isEmpty() && wide)
                refusal = owners.claim(base + channel.fineSlot, fixture.universe, i + 1);
            if (!refusal.isEmpty())
                return refusal;
            m_channels.push_back({base + channel.slot, wide ? base + channel.fineSlot : -1});
            (wide ? patched.has16Bit : patched.has8Bit) = true;
        }
        patched.runSlot = runSlotOf(patched);
        m_fixtures.push_back(patched);
    }
    orderByKind();
    return {};
}

int FramePatch::runSlotOf(const PatchedFixture& fixture) const
{
    if (fixture.channelCount == 0 || fixture.has8Bit == fixture.has16Bit)
        return -1;
    const Channel* const channels = channelsOf(fixture);
    const int width = fixture.has16Bit ? 2 : 1;
    const int first = channels[0].coarse;
    for (int k = 0; k < fixture.channelCount; ++k) {
        const int slot = first + k * width;
        if (channels[k].coarse != slot || (width == 2 && channels[k].fine != slot + 1))
            return -1;
    }
    return first;
}

void FramePatch::orderByKind()
{
    std::vector<const PatchedFixture*> kinds; // the first of each
    for (PatchedFixture& fixture : m_fixtures) {
        const auto first = std::find_if(kinds.cbegin(), kinds.cend(),
                                        [&fixture](const PatchedFixture* kind) { return fixture.rendersLike(*kind); });
        fixture.kind = static_cast<int>(first - kinds.cbegin());
        if (first == kinds.cend())
            kinds.push_back(&fixture);
    }
    m_order.resize(m_fixtures.size());
    std::iota(m_order.begin(), m_order.end(), 0);
    std::stable_sort(m_order.begin(), m_order.end(),
                     [this](int a, int b) { return fixture(a).kind < fixture(b).kind; });
}

} // namespace lxcolor
