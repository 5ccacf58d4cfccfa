#include "MixLanesKernel_p.h"

namespace lxcolor {

void evaluateMixes(const MixTerms* terms, const double* yOverX, const double* yOverZ, Candidates& candidates)
{
    evaluateCandidates(terms, yOverX, yOverZ, candidates);
}

EvaluateMixes evaluateMixesHere()
{
#ifdef LXCOLOR_HAS_AVX2_LANES
    static const bool hasAvx2 = __builtin_cpu_supports("avx2") && !qEnvironmentVariableIsSet("LXCOLOR_NO_AVX2");
    if (hasAvx2)
        return evaluateMixesAvx2;
#endif
    return evaluateMixes;
}

} // namespace lxcolor
