#include "CornerSolver_p.h"

#include <algorithm>

namespace lxcolor {

bool areRatios(const double* levels, int count)
{
    return std::none_of(levels, levels + count, [](double level) { return level < 0.0 || level > 1.0; });
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
