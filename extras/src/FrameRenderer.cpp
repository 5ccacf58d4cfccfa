#include "FrameRenderer.h"

#include "FramePatch_p.h"
#include "LXColor.h"

#include <QRunnable>
#include <QSemaphore>
#include <QThreadPool>

#include <algorithm>
#include <vector>

using lxcolor::FramePatch;
using lxcolor::PatchedFixture;

namespace {

constexpr int kMostThreads = 256;

using Bytes = unsigned char[2 * FramePatch::kMostChannels];

/// The bytes of one fixture at one resolution. They are kept, because neighbours often show the same colour.
class FixtureBytes
{
public:
    explicit FixtureBytes(int resolution) : m_resolution(resolution) {}

    const unsigned char* of(const LXColor& color, const PatchedFixture& fixture)
    {
        if (!m_fixture || !fixture.rendersLike(*m_fixture) || !isSameColor(color)) {
            m_color = color;
            m_fixture = &fixture;
            ColorUtils::convertLXColorToDMX(m_color, fixture.allowRgbPassThrough, fixture.channelCount, m_resolution,
                                            m_bytes, fixture.directCurve, fixture.onboardCurve, fixture.profile,
                                            fixture.ioMode);
        }
        return m_bytes;
    }

private:
    /// HSV colours that compare equal may have different hues: the achromatic one counts as a place on the circle.
    bool isSameColor(const LXColor& color) const { return color.spec() != LXColor::Hsv && color == m_color; }

    int m_resolution;
    LXColor m_color;
    const PatchedFixture* m_fixture = nullptr;
    Bytes m_bytes = {};
};

void renderRange(const FramePatch& patch, const LXColor* colors, int begin, int end, unsigned char* slots)
{
    FixtureBytes coarse(1);
    FixtureBytes fine(2);
    for (int i = begin; i < end; ++i) {
        const PatchedFixture& fixture = patch.fixture(i);
        const FramePatch::Channel* channel = patch.channelsOf(fixture);
        const unsigned char* bytes8 = fixture.has8Bit ? coarse.of(colors[i], fixture) : nullptr;
        const unsigned char* bytes16 = fixture.has16Bit ? fine.of(colors[i], fixture) : nullptr;
        for (int k = 0; k < fixture.channelCount; ++k, ++channel) {
            if (channel->fine < 0) {
                slots[channel->coarse] = bytes8[k];
            } else {
                slots[channel->coarse] = bytes16[2 * k];
                slots[channel->fine] = bytes16[2 * k + 1];
            }
        }
    }
}

} // namespace

class FrameRenderer::Private
{
public:
    /// One part of a frame, on a thread of the pool.
    class Part : public QRunnable
    {
    public:
        explicit Part(Private& renderer) : m_renderer(renderer) { setAutoDelete(false); }
        void set(const LXColor* colors, int begin, int end)
        {
            m_colors = colors;
            m_begin = begin;
            m_end = end;
        }
        void run() override
        {
            renderRange(m_renderer.patch, m_colors, m_begin, m_end, m_renderer.slots.data());
            m_renderer.finished.release();
        }

    private:
        Private& m_renderer;
        const LXColor* m_colors = nullptr;
        int m_begin = 0;
        int m_end = 0;
    };

    Private() { pool.setExpiryTimeout(-1); } // the threads stay between frames

    FramePatch patch;
    std::vector<unsigned char> slots;
    QThreadPool pool;
    QSemaphore finished;
    std::vector<std::unique_ptr<Part>> parts; ///< Those beside the caller's own.
};

FrameRenderer::Fixture FrameRenderer::Fixture::contiguous(ColorUtils::TonematchProfileID profile, int ioMode,
                                                          int universe, int startSlot, int resolution)
{
    Fixture fixture;
    fixture.profile = profile;
    fixture.ioMode = ioMode;
    fixture.onboardCurve = ColorUtils::defaultCurveTypeForTonematchProfileID(profile);
    fixture.universe = universe;
    const int step = resolution == 2 ? 2 : 1;
    const int first = std::min(std::max(startSlot, 0), kSlotsPerUniverse + 1); // out of range either way
    for (int k = 0; k < FramePatch::outputChannelCount(profile, ioMode); ++k) {
        const int slot = first + k * step;
        fixture.channels.append({slot, step == 2 ? slot + 1 : 0});
    }
    return fixture;
}

FrameRenderer::FrameRenderer() : d(std::make_unique<Private>()) {}

FrameRenderer::~FrameRenderer() = default;

bool FrameRenderer::setPatch(const QVector<Fixture>& fixtures, QString* error)
{
    FramePatch patch;
    const QString refusal = patch.build(fixtures);
    if (!refusal.isEmpty()) {
        if (error)
            *error = refusal;
        return false;
    }
    d->patch = std::move(patch);
    d->slots.assign(static_cast<size_t>(d->patch.universes().size()) * kSlotsPerUniverse, 0);
    return true;
}

void FrameRenderer::setThreadCount(int count)
{
    const int others = std::min(std::max(count, 1), kMostThreads) - 1;
    d->pool.setMaxThreadCount(std::max(others, 1));
    d->parts.clear();
    for (int i = 0; i < others; ++i)
        d->parts.push_back(std::make_unique<Private::Part>(*d));
}

int FrameRenderer::threadCount() const { return static_cast<int>(d->parts.size()) + 1; }

int FrameRenderer::fixtureCount() const { return d->patch.fixtureCount(); }

QVector<int> FrameRenderer::universes() const { return d->patch.universes(); }

void FrameRenderer::render(const LXColor* colors, int count)
{
    count = std::min(count, fixtureCount());
    if (!colors || count <= 0)
        return;
    // Fixtures share no slot, so parts of a frame write to different bytes.
    const int parts = std::min(threadCount(), count);
    const auto beginOf = [&](int part) { return static_cast<int>(static_cast<qint64>(count) * part / parts); };
    for (int part = 1; part < parts; ++part) {
        Private::Part& other = *d->parts[static_cast<size_t>(part) - 1];
        other.set(colors, beginOf(part), beginOf(part + 1));
        d->pool.start(&other);
    }
    renderRange(d->patch, colors, 0, beginOf(1), d->slots.data());
    d->finished.acquire(parts - 1);
}

void FrameRenderer::render(const QVector<LXColor>& colors) { render(colors.constData(), colors.size()); }

const unsigned char* FrameRenderer::universeSlots(int position) const
{
    if (position < 0 || position >= d->patch.universes().size())
        return nullptr;
    return d->slots.data() + static_cast<size_t>(position) * kSlotsPerUniverse;
}
