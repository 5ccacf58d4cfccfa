#ifndef MIXTABLES_P_H
#define MIXTABLES_P_H

#include "CornerSolver_p.h"
#include "MixLanes_p.h"

#include <vector>

// The mixes of the search in rows. A table begins with rows for no mix, all of whose numbers are 0; see MixShortlist.
namespace lxcolor {

/// The levels of a mix: those of i and j are solved for.
struct MixLevels
{
    int i;
    int j;
    LevelSet full; ///< 1 for each emitter that is full.
};

/// They live as long as the process.
const std::vector<MixLevels>& mixLevelsOf(int emitterCount);

std::vector<MixTerms> mixTermsOf(const EmitterView& emitters);

} // namespace lxcolor

#endif
