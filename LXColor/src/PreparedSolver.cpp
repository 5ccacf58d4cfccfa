#include "EmitterMix_p.h"
#include "MixBounds_p.h"
#include "PreparedSolver_p.h"

#include <algorithm>
#include <cmath>
#include <cstring>

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
    : m_count(std::min({count, emitters.count, kMaxEmitters}))
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
    m_terms = mixTermsOf(view());
    m_levels = mixLevelsOf(m_count).data();
    m_evaluate = evaluateMixesHere();
    m_hasCorners = true;
    const auto areModerate = [this](const double* values) { return std::all_of(values, values + m_count, isModerate); };
    if (!areModerate(m_X) || !areModerate(m_Y) || !areModerate(m_Z))
        return;
    m_origin = low;
    m_cellSize = {(high.x - low.x) / kCellsPerSide, (high.y - low.y) / kCellsPerSide};
    m_cellsPerUnit = {kCellsPerSide / (high.x - low.x), kCellsPerSide / (high.y - low.y)};
    m_cells = std::make_unique<Cell[]>(kCellsPerSide * kCellsPerSide);
}

bool PreparedSolver::isFor(const EmitterView& emitters) const
{
    if (emitters.count < m_count)
        return false;
    // All numbers without a look at how the last one came out, and with a count that is known beforehand.
    switch (m_count) {
    case 3:
        return isForFirst<3>(emitters);
    case 4:
        return isForFirst<4>(emitters);
    case 5:
        return isForFirst<5>(emitters);
    default: // which have no mix, whatever their emitters are
        return true;
    }
}

template <int Count>
bool PreparedSolver::isForFirst(const EmitterView& emitters) const
{
    quint64 difference = 0;
    for (int k = 0; k < Count; ++k)
        difference |= (bitsOf(emitters.X[k]) ^ bitsOf(m_X[k])) | (bitsOf(emitters.Y[k]) ^ bitsOf(m_Y[k])) |
                      (bitsOf(emitters.Z[k]) ^ bitsOf(m_Z[k]));
    return difference == 0;
}

EmitterView PreparedSolver::view() const { return {m_X, m_Y, m_Z, m_count}; }

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
    MixBounds bounds[kMostMixes]; // not of the heap: frames come here
    const MixBounds* const end = bounds + mixes.size();
    double certainLuminance = 0.0;
    for (size_t number = 0; number < mixes.size(); ++number) {
        const MixBounds& mix = bounds[number] = bounder.boundsOf(mixes[number]);
        if (mix.alwaysValid)
            certainLuminance = std::max(certainLuminance, mix.lowestLuminance);
    }

    const auto isOutshone = [&bounds, end](const MixBounds& mix) {
        return std::any_of(static_cast<const MixBounds*>(bounds), end,
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
