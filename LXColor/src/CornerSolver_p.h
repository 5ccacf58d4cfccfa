#ifndef CORNERSOLVER_P_H
#define CORNERSOLVER_P_H

#include "Chromaticity_p.h"
#include "Rounding_p.h"

#include <vector>

namespace lxcolor {

/// The largest number of emitters that is solved for.
constexpr int kMaxEmitters = 5;
/// The mixes of so many: ten pairs, and seven ways to light the other three.
constexpr int kMostMixes = 70;

/// Levels of a fixture's emitters, linear light 0..1.
struct LevelSet
{
    double level[kMaxEmitters] = {};
};

/// Writes the first \a count levels times Y.
inline void writeScaled(const LevelSet& found, double Y, int count, double* levels)
{
    for (int k = 0; k < count; ++k)
        levels[k] = found.level[k] * Y;
}

/**
 * The brightest mix of a fixture's emitters that has a chromaticity: two emitters solved for, the others off or full
 * and at least one of them full. All zero when no mix has it, and for fewer than three emitters; emitters beyond the
 * fifth are not used.
 *
 * This is the search as it is defined, over all mixes; PreparedSolver gives the same results sooner.
 */
LevelSet solveBrightestMix(const EmitterView& emitters, Chromaticity xy);

/// Whether no level is below 0 or above 1; a NaN is neither.
bool areRatios(const double* levels, int count);

/**
 * The solution of m[0][0] a + m[0][1] b = r0, m[1][0] a + m[1][1] b = r1 by elimination, with single-precision rounding
 * of the factors. The factors do not depend on the right-hand side, so they are made once a pair of emitters.
 */
class PairElimination
{
public:
    PairElimination() = default;
    PairElimination(double m00, double m01, double m10, double m11)
    {
        m_rowFactor = toSingle(m10 / m00);
        const double pivot = m11 - m_rowFactor * m01;
        m_columnFactor = toSingle(m01 / pivot);
        m_reciprocalB = toSingle(1.0 / pivot);
        // The residue of the eliminated element is not exactly 0 and is part of the result.
        m_reciprocalA = toSingle(1.0 / (m00 - (m10 - m_rowFactor * m00) * m_columnFactor));
    }

    void solve(double r0, double r1, double& a, double& b) const
    {
        const double remainder = r1 - m_rowFactor * r0;
        b = m_reciprocalB * remainder;
        a = m_reciprocalA * (r0 - m_columnFactor * remainder);
    }

private:
    double m_rowFactor = 0.0;
    double m_columnFactor = 0.0;
    double m_reciprocalA = 0.0;
    double m_reciprocalB = 0.0;
};

/// One mix of the search: two emitters that are solved for, and those of the others that are full.
struct Mix
{
    int i;
    int j;
    int others[kMaxEmitters];
    int otherCount;
    int corner; ///< Bit t is set when others[t] is full.

    bool isFull(int t) const { return (corner & (1 << t)) != 0; }
};

/// Visits the mixes of a number of emitters in the order of the search: visit(const Mix&).
template <typename Visit>
void forEachMix(int emitterCount, Visit visit)
{
    for (int i = 0; i < emitterCount; ++i) {
        for (int j = i + 1; j < emitterCount; ++j) {
            Mix mix = {i, j, {}, 0, 0};
            for (int k = 0; k < emitterCount; ++k)
                if (k != i && k != j)
                    mix.others[mix.otherCount++] = k;
            for (mix.corner = 1; mix.corner < 1 << mix.otherCount; ++mix.corner)
                visit(static_cast<const Mix&>(mix));
        }
    }
}

/// The mixes of up to kMaxEmitters emitters in the order of the search. They live as long as the process: rendering may
/// go on after main() has returned.
const std::vector<Mix>& mixesOf(int emitterCount);

/// Levels that rounding has put just outside 0..1 are moved onto the end of the range.
inline double snapToRange(double level)
{
    if (level > kSnapFrom && level < 0.0)
        return 0.0;
    if (level > 1.0 && level < kSnapTo)
        return 1.0;
    return level;
}

/// What a request makes of the emitters: levels w have its chromaticity when sum(q w) = 0 and sum(p w) = 0. Inline,
/// because of few mixes the calls would be a good part.
class MixEvaluation
{
public:
    MixEvaluation(const EmitterView& emitters, int count, Chromaticity xy) : m_Y(emitters.Y), m_count(count)
    {
        const double yOverZ = xy.y / ((1.0 - xy.x) - xy.y);
        const double yOverX = xy.y / xy.x;
        for (int k = 0; k < count; ++k) {
            m_q[k] = emitters.X[k] * yOverX - emitters.Y[k];
            m_p[k] = emitters.Z[k] * yOverZ - emitters.Y[k];
        }
    }

    PairElimination eliminationOf(int i, int j) const { return {m_q[i], m_q[j], m_p[i], m_p[j]}; }

    /// Solves a mix and keeps it when it is valid and brighter than the best so far. Of equals the first stays.
    void consider(const Mix& mix, const PairElimination& elimination)
    {
        LevelSet levels;
        double r0 = 0.0;
        double r1 = 0.0;
        for (int t = 0; t < mix.otherCount; ++t) {
            if (!mix.isFull(t))
                continue;
            const int k = mix.others[t];
            levels.level[k] = 1.0;
            r0 -= m_q[k];
            r1 -= m_p[k];
        }
        double a;
        double b;
        elimination.solve(r0, r1, a, b);
        a = snapToRange(a);
        b = snapToRange(b);
        if (a < 0.0 || a > 1.0 || b < 0.0 || b > 1.0)
            return;
        levels.level[mix.i] = a;
        levels.level[mix.j] = b;

        double luminance = 0.0;
        for (int k = 0; k < m_count; ++k)
            luminance += levels.level[k] * m_Y[k];
        if (luminance > m_bestLuminance) { // NaN never wins
            m_bestLuminance = luminance;
            m_best = levels;
        }
    }

    const LevelSet& best() const { return m_best; }

private:
    const double* m_Y;
    int m_count;
    double m_q[kMaxEmitters] = {};
    double m_p[kMaxEmitters] = {};
    LevelSet m_best;
    double m_bestLuminance = 0.0;
};

} // namespace lxcolor

#endif
