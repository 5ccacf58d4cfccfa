// Several requests at once. What takes long in a single one is that each division waits for the one before it, and that
// nobody can foresee which of its mixes win. Here all candidates of all requests are worked out in one loop without
// branches, so that the processor has several under way at any time.
#include "PreparedSolver_p.h"

#include <algorithm>
#include <array>

namespace lxcolor {

namespace {

constexpr int kBlock = 16;
constexpr int kMostCandidates = 256;

/// A mix of the search as the loop reads it.
struct MixRow
{
    int i;
    int j;
    double full[kMaxEmitters]; ///< 1 for each emitter that is full.
};

using MixRows = std::vector<MixRow>;

MixRows rowsOf(int emitterCount)
{
    MixRows rows;
    for (const Mix& mix : mixesOf(emitterCount)) {
        MixRow row = {mix.i, mix.j, {}};
        for (int t = 0; t < mix.otherCount; ++t)
            if (mix.corner & (1 << t))
                row.full[mix.others[t]] = 1.0;
        rows.push_back(row);
    }
    return rows;
}

/// They live as long as the process.
const MixRows& mixRowsOf(int emitterCount)
{
    using Tables = std::array<MixRows, kMaxEmitters + 1>;
    static const Tables* const all = [] {
        auto* tables = new Tables;
        for (int count = 0; count <= kMaxEmitters; ++count)
            (*tables)[static_cast<size_t>(count)] = rowsOf(count);
        return tables;
    }();
    return (*all)[static_cast<size_t>(emitterCount)];
}

/// What a request makes of the emitters; see MixEvaluation. Emitters that there are not give nothing.
struct Coefficients
{
    double q[kMaxEmitters];
    double p[kMaxEmitters];
};

/// Whether all of them are finite. Those of emitters that are off must not count, and 0 times infinity would.
bool makeCoefficients(const double* X, const double* Y, const double* Z, Chromaticity xy, Coefficients& made)
{
    const double yOverZ = xy.y / ((1.0 - xy.x) - xy.y);
    const double yOverX = xy.y / xy.x;
    double zeroWhenFinite = 0.0;
    for (int k = 0; k < kMaxEmitters; ++k) {
        made.q[k] = X[k] * yOverX - Y[k];
        made.p[k] = Z[k] * yOverZ - Y[k];
        zeroWhenFinite += made.q[k] * 0.0 + made.p[k] * 0.0;
    }
    return zeroWhenFinite == 0.0;
}

/// A mix that may win for a request, and what comes of it.
struct Candidate
{
    const MixRow* mix;
    int request;
    double a;
    double b;
    double luminance; ///< Negative when the mix is not valid.
};

/// Whether snapToRange() makes levels of 0..1 of both. NaN is refused here; MixEvaluation lets it pass, but it never
/// wins.
bool areSnapped(double a, double b) { return (a > kSnapFrom) & (a < kSnapTo) & (b > kSnapFrom) & (b < kSnapTo); }

/// What it makes of such a level; -0 stays.
double clamped(double level)
{
    level = level < 0.0 ? 0.0 : level;
    return level > 1.0 ? 1.0 : level;
}

/// MixEvaluation::consider() without branches.
void evaluate(Candidate& candidate, const Coefficients& request, const double* Y)
{
    const MixRow& mix = *candidate.mix;
    const PairElimination elimination(request.q[mix.i], request.q[mix.j], request.p[mix.i], request.p[mix.j]);
    double r0 = 0.0;
    double r1 = 0.0;
    double levels[kMaxEmitters];
    for (int k = 0; k < kMaxEmitters; ++k) {
        r0 -= mix.full[k] * request.q[k];
        r1 -= mix.full[k] * request.p[k];
        levels[k] = mix.full[k];
    }
    double a;
    double b;
    elimination.solve(r0, r1, a, b);
    const bool isValid = areSnapped(a, b);
    candidate.a = a = clamped(a);
    candidate.b = b = clamped(b);
    levels[mix.i] = a;
    levels[mix.j] = b;
    double luminance = 0.0;
    for (int k = 0; k < kMaxEmitters; ++k)
        luminance += levels[k] * Y[k];
    candidate.luminance = isValid ? luminance : -1.0;
}

LevelSet levelsOf(const Candidate& candidate)
{
    LevelSet levels;
    std::copy_n(candidate.mix->full, kMaxEmitters, levels.level);
    levels.level[candidate.mix->i] = candidate.a;
    levels.level[candidate.mix->j] = candidate.b;
    return levels;
}

} // namespace

void PreparedSolver::solveBlock(const Chromaticity* requests, int count, LevelSet* results) const
{
    Coefficients coefficients[kBlock];
    Candidate candidates[kMostCandidates];
    int candidateCount = 0;
    const MixRows& rows = mixRowsOf(m_count);
    for (int r = 0; r < count; ++r) {
        results[r] = {};
        const LevelSet* const corner = atCorner(requests[r]);
        const MixShortlist shortlist = corner ? MixShortlist() : shortlistAt(requests[r]);
        if (corner)
            results[r] = *corner;
        else if (shortlist.hasTooMany() || !makeCoefficients(m_X, m_Y, m_Z, requests[r], coefficients[r]))
            results[r] = solveBrightestMix(view(), requests[r]);
        else
            shortlist.forEach([&](int number) {
                candidates[candidateCount].mix = &rows[static_cast<size_t>(number)];
                candidates[candidateCount].request = r;
                ++candidateCount;
            });
    }

    for (int c = 0; c < candidateCount; ++c)
        evaluate(candidates[c], coefficients[candidates[c].request], m_Y);

    // Of equals the first stays, and NaN never wins.
    double brightest[kBlock] = {};
    const Candidate* winners[kBlock] = {};
    for (int c = 0; c < candidateCount; ++c) {
        const auto r = static_cast<size_t>(candidates[c].request);
        const bool wins = candidates[c].luminance > brightest[r];
        brightest[r] = wins ? candidates[c].luminance : brightest[r];
        winners[r] = wins ? &candidates[c] : winners[r];
    }
    for (int r = 0; r < count; ++r)
        if (winners[r])
            results[r] = levelsOf(*winners[r]);
}

void PreparedSolver::solve(const Chromaticity* requests, int count, LevelSet* results) const
{
    for (int begin = 0; begin < count; begin += kBlock)
        solveBlock(requests + begin, std::min(kBlock, count - begin), results + begin);
}

} // namespace lxcolor
