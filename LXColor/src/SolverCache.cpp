#include "FixtureTables_p.h"
#include "PreparedSolver_p.h"
#include "SolverCache_p.h"

#include <algorithm>
#include <atomic>
#include <memory>
#include <mutex>
#include <vector>

namespace lxcolor {

namespace {

// Other threads may be using a solver while it is replaced, so replaced ones are kept, and only so many are made.
constexpr size_t kMostPreparations = 4;

struct Slot
{
    std::atomic<const PreparedSolver*> current{nullptr};
    std::mutex mutex;
    std::vector<std::unique_ptr<const PreparedSolver>> prepared; ///< Guarded by the mutex.
};

/// The slot's solver for these emitters; null when it has been prepared too often.
const PreparedSolver* prepare(Slot& slot, const EmitterView& emitters, int count)
{
    const std::lock_guard<std::mutex> lock(slot.mutex);
    const PreparedSolver* current = slot.current.load(std::memory_order_acquire);
    if (current && current->isFor(emitters))
        return current;
    if (slot.prepared.size() == kMostPreparations)
        return nullptr;
    slot.prepared.push_back(std::make_unique<const PreparedSolver>(emitters, count));
    slot.current.store(slot.prepared.back().get(), std::memory_order_release);
    return slot.prepared.back().get();
}

/// The record's solver for these emitters; null when it has none.
const PreparedSolver* solverFor(int recordId, const EmitterView& emitters)
{
    static auto* const slots = new Slot[kProfileCount][kMaxEmitters + 1];

    if (recordId < 0 || recordId >= kProfileCount)
        return nullptr;
    Slot& slot = slots[recordId][emitters.count];
    const PreparedSolver* const solver = slot.current.load(std::memory_order_acquire);
    return solver && solver->isFor(emitters) ? solver : prepare(slot, emitters, emitters.count);
}

EmitterView firstOf(const EmitterView& emitters, int count)
{
    return {emitters.X, emitters.Y, emitters.Z, std::min({emitters.count, count, kMaxEmitters})};
}

} // namespace

void solveForRecord(int recordId, const EmitterView& emitters, int count, const Yxy* lights, int lightCount,
                    double* levels, int stride)
{
    const EmitterView used = firstOf(emitters, count);
    const PreparedSolver* const solver = solverFor(recordId, used);
    if (!solver)
        for (int i = 0; i < lightCount; ++i)
            writeScaled(solveBrightestMix(used, lights[i].xy), lights[i].Y, used.count, levels + i * stride);
    else if (lightCount == 1)
        solver->solve(*lights, levels);
    else
        solver->solve(lights, lightCount, levels, stride);
    // Channels without an emitter.
    for (int i = 0; i < lightCount; ++i)
        for (int k = used.count; k < count; ++k)
            levels[i * stride + k] = 0.0 * lights[i].Y;
}

} // namespace lxcolor
