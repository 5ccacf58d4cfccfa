#ifndef SOLVERCACHE_P_H
#define SOLVERCACHE_P_H

#include "CornerSolver_p.h"

namespace lxcolor {

/**
 * The brightest mix of the first \a count emitters of a registered record that has a chromaticity: the result of
 * solveBrightestMix(). Records of the ten profiles are prepared when they are first solved for, and again when their
 * emitters have changed; after a few changes, and for other records, the full search is made.
 *
 * Safe to use from many threads.
 */
LevelSet solveForRecord(int recordId, const EmitterView& emitters, int count, Chromaticity xy);
/// The same for \a requestCount requests, which takes less time for each than one by one.
void solveForRecord(int recordId, const EmitterView& emitters, int count, const Chromaticity* requests,
                    int requestCount, LevelSet* results);

} // namespace lxcolor

#endif
