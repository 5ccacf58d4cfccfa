#include "MixLanesKernel_p.h"

namespace lxcolor {

void evaluateMixesAvx2(const MixTerms* terms, const double* yOverX, const double* yOverZ, Candidates& candidates)
{
    evaluateCandidates(terms, yOverX, yOverZ, candidates);
}

} // namespace lxcolor
