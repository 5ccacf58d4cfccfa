// Many threads that convert, match, render and print, racing for first uses: all get what one thread gets, and the
// thread sanitizer has nothing to say. First uses happen once a process, so the operation to begin with is an argument.
// Without QtTest, whose own thread the sanitizer objects to.
#include "FrameRenderer.h"
#include "Hash.h"
#include "LXColor.h"

#include <QCoreApplication>
#include <QLoggingCategory>
#include <QVector>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <thread>

#if defined(__SANITIZE_THREAD__)
#    define LXCOLOR_THREAD_SANITIZED
#elif defined(__has_feature)
#    if __has_feature(thread_sanitizer)
#        define LXCOLOR_THREAD_SANITIZED
#    endif
#endif

namespace {

constexpr int kThreads = 8;

void renderFrames(Hash& hash, Random& random)
{
    QVector<FrameRenderer::Fixture> patch;
    for (int i = 0; i < 50; ++i)
        patch.append(FrameRenderer::Fixture::contiguous(static_cast<ColorUtils::TonematchProfileID>(i % 10), i % 10, 1,
                                                        1 + 10 * i, 1 + i % 2));
    FrameRenderer renderer;
#ifdef LXCOLOR_THREAD_SANITIZED
    // The sanitizer sees nothing of the semaphore in Qt on which further threads are waited for.
    renderer.setThreadCount(1);
#else
    renderer.setThreadCount(1 + random.below(2));
#endif
    QString error;
    if (!renderer.setPatch(patch, &error))
        return;
    for (int frame = 0; frame < 20; ++frame) {
        QVector<LXColor> colors;
        for (int i = 0; i < patch.size(); ++i)
            colors.append(LXColor::fromxyY(0.2 + 0.3 * random.ratio(), 0.3, 1.0, ColorUtils::ProfileGenericRGB));
        renderer.render(colors);
        for (int slot = 0; slot < FrameRenderer::kSlotsPerUniverse; ++slot)
            hash.add(unsigned(renderer.universeSlots(0)[slot]));
    }
}

std::vector<Operation> operations()
{
    std::vector<Operation> all = libraryOperations();
    all.push_back({"frames", renderFrames});
    return all;
}

/// Runs all operations on all threads at once, beginning with other ones on each pair of threads. How many results
/// differ.
int run(unsigned firstOperation)
{
    QLoggingCategory::setFilterRules(QStringLiteral("*=false"));
    const std::vector<Operation> all = operations();
    std::vector<std::vector<std::uint64_t>> hashes(kThreads, std::vector<std::uint64_t>(all.size()));
    std::atomic<int> waiting{kThreads};
    std::vector<std::thread> threads;
    for (unsigned number = 0; number < kThreads; ++number) {
        threads.emplace_back([&, number] {
            --waiting;
            while (waiting > 0)
                std::this_thread::yield();
            for (std::size_t i = 0; i < all.size(); ++i) {
                const std::size_t operation = (i + firstOperation + number / 2) % all.size();
                hashes[number][operation] = hashOf(all[operation], 7);
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    int differences = 0;
    for (std::size_t operation = 0; operation < all.size(); ++operation) {
        for (const auto& ofThread : hashes)
            differences += ofThread[operation] == hashOf(all[operation], 7) ? 0 : 1;
    }
    return differences;
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const int differences = run(argc > 1 ? static_cast<unsigned>(std::atoi(argv[1])) : 0);
    if (differences > 0)
        std::printf("%d results differ from those of one thread\n", differences);
    return differences > 0 ? 1 : 0;
}
