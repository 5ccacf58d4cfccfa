#include "CornerSolver_p.h"

#include <algorithm>
#include <array>

namespace lxcolor {

bool areRatios(const double* levels, int count)
{
    return std::none_of(levels, levels + count, [](double level) { return level < 0.0 || level > 1.0; });
}

const std::vector<Mix>& mixesOf(int emitterCount)
{
    using Lists = std::array<std::vector<Mix>, kMaxEmitters + 1>;
    static const Lists* const all = [] {
        auto* lists = new Lists;
        for (int count = 0; count <= kMaxEmitters; ++count)
            forEachMix(count, [&](const Mix& mix) { (*lists)[static_cast<size_t>(count)].push_back(mix); });
        return lists;
    }();
    return (*all)[static_cast<size_t>(emitterCount)];
}

LevelSet solveBrightestMix(const EmitterView& emitters, Chromaticity xy)
{
    const int count = std::min(emitters.count, kMaxEmitters);
    MixEvaluation evaluation(emitters, count, xy);
    PairElimination elimination = evaluation.eliminationOf(0, 0);
    forEachMix(count, [&](const Mix& mix) {
        if (mix.corner == 1)
            elimination = evaluation.eliminationOf(mix.i, mix.j);
        evaluation.consider(mix, elimination);
    });
    return evaluation.best();
}

} // namespace lxcolor
