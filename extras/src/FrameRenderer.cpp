#include "FrameRenderer.h"

#include "FramePatch_p.h"
#include "LXColor.h"

#include <algorithm>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

using lxcolor::FramePatch;
using lxcolor::PatchedFixture;

namespace {

constexpr int kMostThreads = 256;

/// Fixtures of one kind on their way to their slots. Neighbours often show the same colour, which is converted once.
class FixtureBatch
{
public:
    FixtureBatch(const FramePatch& patch, const LXColor* colors, int count)
        : m_patch(patch), m_colors(colors), m_count(count)
    {
    }

    /// Takes fixtures of one kind from \a begin on; where the next ones begin.
    int take(int begin, int end)
    {
        m_kind = &m_patch.fixture(m_patch.renderedAt(begin));
        m_has8Bit = m_has16Bit = false;
        m_fixtureCount = m_colorCount = 0;
        for (; begin < end && m_fixtureCount < kMostFixtures; ++begin) {
            const int number = m_patch.renderedAt(begin);
            if (number >= m_count)
                continue;
            const PatchedFixture& fixture = m_patch.fixture(number);
            if (fixture.kind != m_kind->kind || !takeColor(m_colors[number]))
                break;
            m_has8Bit |= fixture.has8Bit;
            m_has16Bit |= fixture.has16Bit;
            m_fixtures[m_fixtureCount] = &fixture;
            m_colorOf[m_fixtureCount++] = m_colorCount - 1;
        }
        return begin;
    }

    void render(unsigned char* slots)
    {
        if (m_has8Bit)
            convert(1, m_bytes8);
        if (m_has16Bit)
            convert(2, m_bytes16);
        for (int i = 0; i < m_fixtureCount; ++i) {
            const size_t first = static_cast<size_t>(m_colorOf[i]) * static_cast<size_t>(m_kind->channelCount);
            write(*m_fixtures[i], m_bytes8 + first, m_bytes16 + 2 * first, slots);
        }
    }

private:
    static constexpr int kMostFixtures = 64;
    static constexpr int kMostColors = 32;

    /// Whether there is room for it.
    bool takeColor(const LXColor& color)
    {
        if (m_colorCount > 0 && isSame(color, *m_taken[m_colorCount - 1]))
            return true;
        if (m_colorCount == kMostColors)
            return false;
        m_taken[m_colorCount++] = &color;
        return true;
    }

    /// HSV colours that compare equal may have different hues: the achromatic one counts as a place on the circle.
    static bool isSame(const LXColor& color, const LXColor& other)
    {
        return color.spec() != LXColor::Hsv && color == other;
    }

    void convert(int resolution, unsigned char* bytes) const
    {
        ColorUtils::convertLXColorsToDMX(m_taken, m_colorCount, m_kind->allowRgbPassThrough, m_kind->channelCount,
                                         resolution, bytes, m_kind->directCurve, m_kind->onboardCurve, m_kind->profile,
                                         m_kind->ioMode);
    }

    void write(const PatchedFixture& fixture, const unsigned char* bytes8, const unsigned char* bytes16,
               unsigned char* slots) const
    {
        if (fixture.runSlot >= 0) {
            if (fixture.has16Bit)
                std::copy_n(bytes16, 2 * fixture.channelCount, slots + fixture.runSlot);
            else
                std::copy_n(bytes8, fixture.channelCount, slots + fixture.runSlot);
            return;
        }
        const FramePatch::Channel* channel = m_patch.channelsOf(fixture);
        for (int k = 0; k < fixture.channelCount; ++k, ++channel) {
            if (channel->fine < 0) {
                slots[channel->coarse] = bytes8[k];
            } else {
                slots[channel->coarse] = bytes16[2 * k];
                slots[channel->fine] = bytes16[2 * k + 1];
            }
        }
    }

    const FramePatch& m_patch;
    const LXColor* m_colors;
    int m_count;                            ///< How many fixtures there are colours for.
    const PatchedFixture* m_kind = nullptr; ///< One of them.
    bool m_has8Bit = false;
    bool m_has16Bit = false;
    int m_fixtureCount = 0;
    const PatchedFixture* m_fixtures[kMostFixtures];
    int m_colorOf[kMostFixtures];
    int m_colorCount = 0;
    const LXColor* m_taken[kMostColors];
    unsigned char m_bytes8[kMostColors * FramePatch::kMostChannels];
    unsigned char m_bytes16[kMostColors * FramePatch::kMostChannels * 2];
};

/// Renders the fixtures at the places \a begin to \a end in the order of rendering.
void renderRange(const FramePatch& patch, const LXColor* colors, int count, int begin, int end, unsigned char* slots)
{
    FixtureBatch batch(patch, colors, count);
    while (begin < end) {
        begin = batch.take(begin, end);
        batch.render(slots);
    }
}

} // namespace

class FrameRenderer::Private
{
public:
    /// A part of the fixtures in the order of rendering.
    struct Part
    {
        const LXColor* colors;
        int count;
        int begin;
        int end;
    };

    /// A thread that renders a part of each frame and waits in between.
    class Worker
    {
    public:
        explicit Worker(Private& renderer) : m_renderer(renderer), m_thread(&Worker::run, this) {}
        ~Worker()
        {
            changeTo(State::Leaving);
            m_thread.join();
        }
        Worker(const Worker&) = delete;
        Worker& operator=(const Worker&) = delete;

        void begin(const Part& part)
        {
            m_part = part;
            changeTo(State::Rendering);
        }
        void waitForEnd() { waitWhile(State::Rendering); }

    private:
        enum class State { Waiting, Rendering, Leaving };

        void run()
        {
            while (waitWhile(State::Waiting) == State::Rendering) {
                m_renderer.render(m_part);
                changeTo(State::Waiting);
            }
        }

        void changeTo(State state)
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_state = state;
            m_changed.notify_one(); // of the two sides one changes the state while the other waits
        }
        State waitWhile(State state)
        {
            std::unique_lock<std::mutex> lock(m_mutex);
            m_changed.wait(lock, [&] { return m_state != state; });
            return m_state;
        }

        Private& m_renderer;
        Part m_part = {};
        std::mutex m_mutex;
        std::condition_variable m_changed;
        State m_state = State::Waiting; ///< Guarded by the mutex.
        std::thread m_thread;           // last: it uses the others
    };

    void render(const Part& part) { renderRange(patch, part.colors, part.count, part.begin, part.end, slots.data()); }

    FramePatch patch;
    std::vector<unsigned char> slots;
    std::vector<std::unique_ptr<Worker>> workers; ///< Those beside the caller's own thread; they leave first.
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
    d->workers.clear();
    try {
        for (int others = std::min(std::max(count, 1), kMostThreads) - 1; others > 0; --others)
            d->workers.push_back(std::make_unique<Private::Worker>(*d));
    } catch (const std::system_error&) {
        // The system gives no more; those that there are do.
    }
}

int FrameRenderer::threadCount() const { return static_cast<int>(d->workers.size()) + 1; }

int FrameRenderer::fixtureCount() const { return d->patch.fixtureCount(); }

QVector<int> FrameRenderer::universes() const { return d->patch.universes(); }

void FrameRenderer::render(const LXColor* colors, int count)
{
    count = std::min(count, fixtureCount());
    if (!colors || count <= 0)
        return;
    // Fixtures share no slot, so parts of a frame write to different bytes.
    const int parts = std::min(threadCount(), count);
    const auto beginOf = [&](int part) { return static_cast<int>(static_cast<qint64>(fixtureCount()) * part / parts); };
    for (int part = 1; part < parts; ++part)
        d->workers[static_cast<size_t>(part) - 1]->begin({colors, count, beginOf(part), beginOf(part + 1)});
    d->render({colors, count, 0, beginOf(1)});
    for (int part = 1; part < parts; ++part)
        d->workers[static_cast<size_t>(part) - 1]->waitForEnd();
}

void FrameRenderer::render(const QVector<LXColor>& colors) { render(colors.constData(), colors.size()); }

const unsigned char* FrameRenderer::universeSlots(int position) const
{
    if (position < 0 || position >= d->patch.universes().size())
        return nullptr;
    return d->slots.data() + static_cast<size_t>(position) * kSlotsPerUniverse;
}
