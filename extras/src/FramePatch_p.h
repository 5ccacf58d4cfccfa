#ifndef FRAMEPATCH_P_H
#define FRAMEPATCH_P_H

#include "FrameRenderer.h"

#include <vector>

namespace lxcolor {

/// A fixture of a patch that has been checked, without its channels.
struct PatchedFixture
{
    ColorUtils::TonematchProfileID profile;
    int ioMode;
    int directCurve;
    int onboardCurve;
    bool allowRgbPassThrough;
    bool has8Bit;
    bool has16Bit;
    int channelCount;
    size_t firstChannel;
    int kind;    ///< Of fixtures of one kind the same colour gives the same bytes.
    int runSlot; ///< Of channels of one width whose slots are in a row the first slot, else -1.

    bool rendersLike(const PatchedFixture& other) const;
};

/// The fixtures of a patch laid out for rendering: flat, with slots as offsets into the slots of all universes.
class FramePatch
{
public:
    /// More channels than any profile has emitters, for fixtures with channels that colours leave dark.
    static constexpr int kMostChannels = 64;

    struct Channel
    {
        int coarse;
        int fine; ///< -1 for an 8-bit channel.
    };

    /// Checks and takes over the fixtures. The sentence that says what is wrong, or an empty one.
    QString build(const QVector<FrameRenderer::Fixture>& fixtures);

    int fixtureCount() const { return static_cast<int>(m_fixtures.size()); }
    const PatchedFixture& fixture(int number) const { return m_fixtures[static_cast<size_t>(number)]; }
    /// The fixture that is rendered at a place: those of one kind stand together, in the order of the patch.
    int renderedAt(int place) const { return m_order[static_cast<size_t>(place)]; }
    const Channel* channelsOf(const PatchedFixture& fixture) const { return m_channels.data() + fixture.firstChannel; }
    const QVector<int>& universes() const { return m_universes; }

    /// The number of channels that a fixture gives out in an IO mode.
    static int outputChannelCount(ColorUtils::TonematchProfileID profile, int ioMode);

private:
    int runSlotOf(const PatchedFixture& fixture) const;
    void orderByKind();

    std::vector<PatchedFixture> m_fixtures;
    std::vector<int> m_order;
    std::vector<Channel> m_channels;
    QVector<int> m_universes;
};

} // namespace lxcolor

#endif
