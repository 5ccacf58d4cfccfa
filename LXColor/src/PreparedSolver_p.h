#ifndef PREPAREDSOLVER_P_H
#define PREPAREDSOLVER_P_H

#include "CornerSolver_p.h"
#include "MixShortlist_p.h"

#include <atomic>
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

    /// Whether it was made for these very emitters.
    bool isFor(const EmitterView& emitters) const;
    LevelSet solve(Chromaticity xy) const;
    /// The same for \a count requests, which takes less time for each than one by one.
    void solve(const Chromaticity* requests, int count, LevelSet* results) const;

private:
    static constexpr int kCellsPerSide = 128;
    static constexpr int kGamutCorners = 3;

    struct Cell
    {
        std::atomic<quint64> first; ///< 0 before the cell is worked out; set last.
        std::atomic<quint64> second;
    };

    void solveBlock(const Chromaticity* requests, int count, LevelSet* results) const;
    /// The levels at xy when it is a corner of the gamut, else null.
    const LevelSet* atCorner(Chromaticity xy) const;
    /// The mixes that can win at xy. Those of a cell are worked out when they are first asked for.
    MixShortlist shortlistAt(Chromaticity xy) const;
    MixShortlist shortlistOf(int cellNumber) const;
    EmitterView view() const;

    int m_count;
    double m_X[kMaxEmitters] = {};
    double m_Y[kMaxEmitters] = {};
    double m_Z[kMaxEmitters] = {};
    Chromaticity m_origin;
    Chromaticity m_cellSize;
    Chromaticity m_cellsPerUnit;
    Chromaticity m_corners[kGamutCorners];
    LevelSet m_atCorners[kGamutCorners]; ///< Requests beyond a corner of the gamut are moved onto it.
    std::unique_ptr<Cell[]> m_cells;
};

} // namespace lxcolor

#endif
