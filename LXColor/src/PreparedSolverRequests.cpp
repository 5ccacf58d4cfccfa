// Requests on their way through the lanes: all mixes that can win, of one request or of several, side by side. What
// takes long in a single mix is that each division waits for the one before it, and that nobody can foresee which of
// them win; so nothing here branches on that.
#include "MixArithmetic_p.h"
#include "PreparedSolver_p.h"

#include <QtEndian>

#include <algorithm>

namespace lxcolor {

namespace {

constexpr int kMostAtOnce = Candidates::kMost / MixShortlist::kMostMixes;

/// Adds the mixes of a request after \a count others; their new number. A word of the list is written whole: what of it
/// is no mix is overwritten by the next.
int append(MixShortlist shortlist, int request, int count, Candidates& candidates)
{
    constexpr quint64 kEachByte = 0x0101010101010101u;
    const quint64 requests = static_cast<quint64>(request) * kEachByte;
    qToLittleEndian(shortlist.first(), candidates.mix + count);
    qToLittleEndian(requests, candidates.request + count);
    count += shortlist.firstCount();
    if (shortlist.second() == 0)
        return count;
    qToLittleEndian(shortlist.second(), candidates.mix + count);
    qToLittleEndian(requests, candidates.request + count);
    return count + shortlist.secondCount();
}

/// Level by level into the place where they are read: who joins them before has the processor wait for the joint.
void write(const MixLevels& mix, double a, double b, double Y, int emitterCount, double* levels)
{
    writeScaled(mix.full, Y, emitterCount, levels);
    levels[mix.i] = a * Y;
    levels[mix.j] = b * Y;
}

/// Finds the brightest mix of each request; of those without one it is that for no mix. Of equals the first wins, and
/// NaN never does.
void findWinners(const Candidates& candidates, int requestCount, int* winners)
{
    double brightest[kMostAtOnce];
    std::fill_n(brightest, requestCount, 0.0);
    std::fill_n(winners, requestCount, candidates.count);
    for (int c = 0; c < candidates.count; ++c) {
        const int r = candidates.request[c];
        const int wins = -static_cast<int>(candidates.luminance[c] > brightest[r]); // all bits, or none
        brightest[r] = candidates.luminance[c] > brightest[r] ? candidates.luminance[c] : brightest[r];
        winners[r] = (winners[r] & ~wins) | (c & wins);
    }
}

} // namespace

// Everything is worked out for any request, so that there is nothing to decide but the last step.
int PreparedSolver::cellAt(Chromaticity xy, double yOverX, double yOverZ) const
{
    const double column = (xy.x - m_origin.x) * m_cellsPerUnit.x;
    const double row = (xy.y - m_origin.y) * m_cellsPerUnit.y;
    bool isThere = (column >= 0.0) & (column < kCellsPerSide) & (row >= 0.0) & (row < kCellsPerSide);
    isThere &= isModerate(yOverX);
    isThere &= isModerate(yOverZ);
    for (const Chromaticity corner : m_corners)
        isThere &= (xy.x != corner.x) | (xy.y != corner.y);
    return isThere ? static_cast<int>(row) * kCellsPerSide + static_cast<int>(column) : kNoCell;
}

MixShortlist PreparedSolver::shortlistAt(int cellNumber) const
{
    Cell& cell = m_cells[static_cast<size_t>(cellNumber)];
    const quint64 first = cell.first.load(std::memory_order_acquire);
    if (Q_LIKELY(first != 0))
        return {first, cell.second.load(std::memory_order_relaxed)};
    const MixShortlist shortlist = shortlistOf(cellNumber);
    cell.second.store(shortlist.second(), std::memory_order_relaxed);
    cell.first.store(shortlist.first(), std::memory_order_release);
    return shortlist;
}

void PreparedSolver::solveWithoutList(const Yxy& light, double* levels) const
{
    for (int k = 0; k < kGamutCorners && m_hasCorners; ++k) {
        if (light.xy.x != m_corners[k].x || light.xy.y != m_corners[k].y)
            continue;
        writeScaled(m_atCorners[k], light.Y, m_count, levels);
        return;
    }
    writeScaled(solveBrightestMix(view(), light.xy), light.Y, m_count, levels);
}

void PreparedSolver::solveBlock(const Yxy* lights, int count, double* levels, int stride) const
{
    double yOverX[kMostAtOnce] = {};
    double yOverZ[kMostAtOnce] = {};
    int cells[kMostAtOnce];
    for (int r = 0; r < count; ++r) {
        const Chromaticity xy = lights[r].xy;
        yOverX[r] = xy.y / xy.x;
        yOverZ[r] = xy.y / ((1.0 - xy.x) - xy.y);
        cells[r] = cellAt(xy, yOverX[r], yOverZ[r]);
    }

    Candidates candidates;
    int candidateCount = 0;
    int left[kMostAtOnce];
    int leftCount = 0;
    for (int r = 0; r < count; ++r) {
        const MixShortlist shortlist = cells[r] != kNoCell ? shortlistAt(cells[r]) : MixShortlist::tooMany();
        if (shortlist.hasTooMany())
            left[leftCount++] = r;
        else
            candidateCount = append(shortlist, r, candidateCount, candidates);
    }
    candidates.count = candidateCount;
    evaluate(yOverX, yOverZ, candidates);

    int winners[kMostAtOnce];
    findWinners(candidates, count, winners);
    for (int r = 0; r < count; ++r)
        writeWinner(candidates, winners[r], lights[r].Y, levels + r * stride);
    for (int i = 0; i < leftCount; ++i)
        solveWithoutList(lights[left[i]], levels + left[i] * stride);
}

/// Beside the candidates there is then one more, for no mix.
void PreparedSolver::evaluate(const double* yOverX, const double* yOverZ, Candidates& candidates) const
{
    const int none = candidates.count;
    qToLittleEndian(quint64(0), candidates.mix + none); // no mix in the lanes that are left
    qToLittleEndian(quint64(0), candidates.request + none);
    m_evaluate(m_terms.data(), yOverX, yOverZ, candidates);
    candidates.a[none] = candidates.b[none] = 0.0;
}

void PreparedSolver::writeWinner(const Candidates& candidates, int winner, double Y, double* levels) const
{
    write(m_levels[candidates.mix[winner]], candidates.a[winner], candidates.b[winner], Y, m_count, levels);
}

void PreparedSolver::solve(const Yxy& light, double* levels) const
{
    const Chromaticity xy = light.xy;
    const double yOverX = xy.y / xy.x;
    const double yOverZ = xy.y / ((1.0 - xy.x) - xy.y);
    const int cell = cellAt(xy, yOverX, yOverZ);
    const MixShortlist shortlist = cell != kNoCell ? shortlistAt(cell) : MixShortlist::tooMany();
    if (shortlist.hasTooMany()) {
        solveWithoutList(light, levels);
        return;
    }
    if (shortlist.hasMoreThanTwo()) {
        solveList(shortlist, yOverX, yOverZ, light.Y, levels);
        return;
    }
    int place = shortlist.place(0);
    MixResult<double> best;
    evaluateMix<double>(m_terms[static_cast<size_t>(place)], yOverX, yOverZ, best);
    if (const int second = shortlist.place(1); second != 0) {
        MixResult<double> other;
        evaluateMix<double>(m_terms[static_cast<size_t>(second)], yOverX, yOverZ, other);
        if (other.luminance > best.luminance) {
            best = other;
            place = second;
        }
    }
    if (best.luminance > 0.0)
        write(m_levels[place], best.a, best.b, light.Y, m_count, levels);
    else
        writeScaled(LevelSet(), light.Y, m_count, levels);
}

void PreparedSolver::solveList(MixShortlist shortlist, double yOverX, double yOverZ, double Y, double* levels) const
{
    Candidates candidates;
    candidates.count = append(shortlist, 0, 0, candidates);
    evaluate(&yOverX, &yOverZ, candidates);
    int winner;
    findWinners(candidates, 1, &winner);
    writeWinner(candidates, winner, Y, levels);
}

void PreparedSolver::solve(const Yxy* lights, int count, double* levels, int stride) const
{
    if (m_count < kGamutCorners) {
        for (int r = 0; r < count; ++r)
            solve(lights[r], levels + r * stride);
        return;
    }
    for (int begin = 0; begin < count; begin += kMostAtOnce)
        solveBlock(lights + begin, std::min(kMostAtOnce, count - begin), levels + begin * stride, stride);
}

} // namespace lxcolor
