#include "EmitterMix_p.h"
#include "MixBounds_p.h"
#include "PreparedSolver_p.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace lxcolor {

namespace {

quint64 bitsOf(double value)
{
    quint64 bits;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

} // namespace

PreparedSolver::PreparedSolver(const EmitterView& emitters, int count)
    : m_count(std::min({count, emitters.count, kMaxEmitters})), m_origin{0.0, 0.0}, m_cellSize{0.0, 0.0}
{
    std::copy_n(emitters.X, m_count, m_X);
    std::copy_n(emitters.Y, m_count, m_Y);
    std::copy_n(emitters.Z, m_count, m_Z);
    if (m_count < kGamutCorners)
        return;

    Chromaticity low = {1.0, 1.0};
    Chromaticity high = {0.0, 0.0};
    for (int k = 0; k < kGamutCorners; ++k) {
        const Chromaticity corner = chromaticityOf(m_X[k], m_Y[k], m_Z[k]);
        m_corners[k] = corner;
        m_atCorners[k] = solveBrightestMix(view(), corner);
        low = {std::min(low.x, corner.x), std::min(low.y, corner.y)};
        high = {std::max(high.x, corner.x), std::max(high.y, corner.y)};
    }
    m_origin = low;
    m_cellSize = {(high.x - low.x) / kCellsPerSide, (high.y - low.y) / kCellsPerSide};
    m_cellsPerUnit = {kCellsPerSide / (high.x - low.x), kCellsPerSide / (high.y - low.y)};
    m_cells = std::make_unique<Cell[]>(kCellsPerSide * kCellsPerSide);
}

bool PreparedSolver::isFor(const EmitterView& emitters) const
{
    if (emitters.count < m_count)
        return false;
    quint64 difference = 0;
    for (int k = 0; k < m_count; ++k)
        difference |= (bitsOf(emitters.X[k]) ^ bitsOf(m_X[k])) | (bitsOf(emitters.Y[k]) ^ bitsOf(m_Y[k])) |
                      (bitsOf(emitters.Z[k]) ^ bitsOf(m_Z[k]));
    return difference == 0;
}

EmitterView PreparedSolver::view() const { return {m_X, m_Y, m_Z, m_count}; }

const LevelSet* PreparedSolver::atCorner(Chromaticity xy) const
{
    if (!m_cells)
        return nullptr;
    for (int k = 0; k < kGamutCorners; ++k)
        if (xy.x == m_corners[k].x && xy.y == m_corners[k].y)
            return &m_atCorners[k];
    return nullptr;
}

MixShortlist PreparedSolver::shortlistAt(Chromaticity xy) const
{
    const double column = (xy.x - m_origin.x) * m_cellsPerUnit.x;
    const double row = (xy.y - m_origin.y) * m_cellsPerUnit.y;
    if (!m_cells || !(column >= 0.0 && column < kCellsPerSide && row >= 0.0 && row < kCellsPerSide))
        return MixShortlist::tooMany();
    const int number = static_cast<int>(row) * kCellsPerSide + static_cast<int>(column);
    Cell& cell = m_cells[static_cast<size_t>(number)];
    const quint64 first = cell.first.load(std::memory_order_acquire);
    if (first != 0)
        return {first, cell.second.load(std::memory_order_relaxed)};
    const MixShortlist shortlist = shortlistOf(number);
    cell.second.store(shortlist.second(), std::memory_order_relaxed);
    cell.first.store(shortlist.first(), std::memory_order_release);
    return shortlist;
}

LevelSet PreparedSolver::solve(Chromaticity xy) const
{
    if (const LevelSet* const levels = atCorner(xy))
        return *levels;
    const MixShortlist shortlist = shortlistAt(xy);
    if (shortlist.hasTooMany())
        return solveBrightestMix(view(), xy);

    const EmitterView emitters = view();
    const std::vector<Mix>& mixes = mixesOf(m_count);
    MixEvaluation evaluation(emitters, m_count, xy);
    const Mix* previous = nullptr;
    PairElimination elimination;
    shortlist.forEach([&](int number) {
        const Mix& mix = mixes[static_cast<size_t>(number)];
        if (!previous || mix.i != previous->i || mix.j != previous->j)
            elimination = evaluation.eliminationOf(mix.i, mix.j);
        evaluation.consider(mix, elimination);
        previous = &mix;
    });
    return evaluation.best();
}

MixShortlist PreparedSolver::shortlistOf(int cellNumber) const
{
    // A little wider than the cell, for the rounding in which a request finds its cell.
    constexpr double kMargin = 1e-9;
    const int cellRow = cellNumber / kCellsPerSide;
    const double column = cellNumber % kCellsPerSide;
    const double row = cellRow;
    const ChromaticityBox box = {
        {m_origin.x + m_cellSize.x * (column - kMargin), m_origin.y + m_cellSize.y * (row - kMargin)},
        {m_origin.x + m_cellSize.x * (column + 1.0 + kMargin), m_origin.y + m_cellSize.y * (row + 1.0 + kMargin)}};
    const EmitterView emitters = view();
    const MixBounder bounder(emitters, m_count, box);

    const std::vector<Mix>& mixes = mixesOf(m_count);
    std::vector<MixBounds> bounds;
    double certainLuminance = 0.0;
    for (const Mix& mix : mixes) {
        bounds.push_back(bounder.boundsOf(mix));
        if (bounds.back().alwaysValid)
            certainLuminance = std::max(certainLuminance, bounds.back().lowestLuminance);
    }

    const auto isOutshone = [&bounds](const MixBounds& mix) {
        return std::any_of(bounds.cbegin(), bounds.cend(),
                           [&mix](const MixBounds& rival) { return rival.alwaysValid && rival.surelyOutshines(mix); });
    };

    MixShortlist shortlist;
    for (size_t number = 0; number < mixes.size(); ++number) {
        const MixBounds& mix = bounds[number];
        if (!mix.neverValid && !(mix.highestLuminance < certainLuminance) && !isOutshone(mix))
            shortlist.append(static_cast<int>(number));
    }
    return shortlist;
}

} // namespace lxcolor
