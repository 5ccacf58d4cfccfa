#ifndef PREPAREDSOLVER_P_H
#define PREPAREDSOLVER_P_H

#include "CornerSolver_p.h"
#include "MixShortlist_p.h"
#include "MixTables_p.h"

#include <atomic>
#include <cmath>
#include <memory>

namespace lxcolor {

/**
 * Solves requests for one fixture with the bits of solveBrightestMix(), sooner.
 *
 * Which mix wins depends on the chromaticity alone. A grid over the gamut holds, for each cell, the mixes that can win
 * there: all but those that bounds on the rounding error prove to lose everywhere in it. A request tries those of its
 * cell, in the order of the search. A cell is worked out when it is first asked for, so nothing is prepared before it
 * is used. Requests outside the grid, and cells in which too many mixes remain, take the full search.
 *
 * Safe to use from many threads.
 */
class PreparedSolver
{
public:
    /// Takes a copy of the emitters; \a count of them, at most kMaxEmitters, are solved for.
    PreparedSolver(const EmitterView& emitters, int count);

    /// Whether its results are those for these emitters.
    bool isFor(const EmitterView& emitters) const;
    /// The number of emitters that it solves for.
    int count() const { return m_count; }
    /// Writes the levels of the brightest mix that has the light's chromaticity, times its Y: count() of them.
    void solve(const Yxy& light, double* levels) const;
    /// The same for \a lightCount lights, which takes less time for each than one by one. The levels of the next light
    /// begin \a stride after those of one.
    void solve(const Yxy* lights, int lightCount, double* levels, int stride) const;

private:
    static constexpr int kCellsPerSide = 128;
    static constexpr int kGamutCorners = 3;
    static constexpr int kNoCell = -1;
    /// Whether the product with another such number is finite.
    static bool isModerate(double v) { return std::fabs(v) <= 1e100; }

    struct Cell
    {
        std::atomic<quint64> first; ///< 0 before the cell is worked out; set last.
        std::atomic<quint64> second;
    };

    template <int Count>
    bool isForFirst(const EmitterView& emitters) const;
    void solveBlock(const Yxy* lights, int lightCount, double* levels, int stride) const;
    void solveList(MixShortlist shortlist, double yOverX, double yOverZ, double Y, double* levels) const;
    void solveWithoutList(const Yxy& light, double* levels) const;
    void evaluate(const double* yOverX, const double* yOverZ, Candidates& candidates) const;
    void writeWinner(const Candidates& candidates, int winner, double Y, double* levels) const;
    /// The cell of a request; none outside the grid, at the corners of the gamut and where a product might not be
    /// finite.
    int cellAt(Chromaticity xy, double yOverX, double yOverZ) const;
    /// The mixes that can win in a cell. They are worked out when they are first asked for.
    MixShortlist shortlistAt(int cellNumber) const;
    MixShortlist shortlistOf(int cellNumber) const;
    EmitterView view() const;

    int m_count;
    double m_X[kMaxEmitters] = {};
    double m_Y[kMaxEmitters] = {};
    double m_Z[kMaxEmitters] = {};
    Chromaticity m_origin = {0.0, 0.0};
    Chromaticity m_cellSize = {0.0, 0.0};
    Chromaticity m_cellsPerUnit = {std::nan(""), std::nan("")}; ///< Without cells, so that no request has one.
    bool m_hasCorners = false;
    Chromaticity m_corners[kGamutCorners] = {};
    LevelSet m_atCorners[kGamutCorners]; ///< Requests beyond a corner of the gamut are moved onto it.
    std::unique_ptr<Cell[]> m_cells;
    std::vector<MixTerms> m_terms;
    const MixLevels* m_levels = nullptr;
    EvaluateMixes m_evaluate = nullptr;
};

} // namespace lxcolor

#endif
