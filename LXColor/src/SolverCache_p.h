#ifndef SOLVERCACHE_P_H
#define SOLVERCACHE_P_H

#include "CornerSolver_p.h"

namespace lxcolor {

/**
 * Writes the levels with which the first \a count emitters of a registered record give each light: those of
 * solveBrightestMix() for its chromaticity, times its Y. They are \a count for each light, those of the next one begin
 * \a stride after those of one. Records of the ten profiles are prepared when they are first solved for, and again when
 * their emitters have changed; after a few changes, and for other records, the full search is made.
 *
 * Safe to use from many threads.
 */
void solveForRecord(int recordId, const EmitterView& emitters, int count, const Yxy* lights, int lightCount,
                    double* levels, int stride);

} // namespace lxcolor

#endif
