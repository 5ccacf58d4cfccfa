// Candidates four at a time with AVX2, else two. See MixArithmetic_p.h for what holds here, too.
#ifndef MIXLANESKERNEL_P_H
#define MIXLANESKERNEL_P_H

#include "MixArithmetic_p.h"

namespace lxcolor {

#ifdef __AVX2__
constexpr int kWidth = 4;
#else
constexpr int kWidth = 2;
#endif
static_assert(Candidates::kMostLanes >= kWidth);

using Lanes = double __attribute__((vector_size(kWidth * sizeof(double))));
using SingleLanes = float __attribute__((vector_size(kWidth * sizeof(float))));

template <>
inline void roundToSingle(Lanes& lanes)
{
#if defined(__i386__) && !defined(__AVX2__)
    // One by one: for two single values there is no register that g++ could keep them in.
    for (int i = 0; i < kWidth; ++i) {
        double lane = lanes[i];
        roundToSingle(lane);
        lanes[i] = lane;
    }
#else
    SingleLanes single = __builtin_convertvector(lanes, SingleLanes);
    LXCOLOR_KEEP_ROUNDED(single);
    lanes = __builtin_convertvector(single, Lanes);
#endif
}

/// Lanes as they may lie over an array of doubles.
using StoredLanes = Lanes __attribute__((may_alias));

static inline const StoredLanes* lanesOf(const MixTerms& row) { return reinterpret_cast<const StoredLanes*>(&row); }

/// Four numbers of each row, which begin at \a group: the first of all rows, the second, ...
static inline void readGroup(const MixTerms* const* rows, int group, Lanes* turned)
{
#ifndef __has_builtin
#    define __has_builtin(name) 0
#endif
#if !__has_builtin(__builtin_shufflevector)
    for (int i = 0; i < 4; ++i)
        for (int row = 0; row < kWidth; ++row)
            turned[i][row] = lanesOf(*rows[row])[(4 * group + i) / kWidth][(4 * group + i) % kWidth];
#elif defined(__AVX2__)
    const Lanes r[4] = {lanesOf(*rows[0])[group], lanesOf(*rows[1])[group], lanesOf(*rows[2])[group],
                        lanesOf(*rows[3])[group]};
    const Lanes even01 = __builtin_shufflevector(r[0], r[1], 0, 4, 2, 6);
    const Lanes even23 = __builtin_shufflevector(r[2], r[3], 0, 4, 2, 6);
    const Lanes odd01 = __builtin_shufflevector(r[0], r[1], 1, 5, 3, 7);
    const Lanes odd23 = __builtin_shufflevector(r[2], r[3], 1, 5, 3, 7);
    turned[0] = __builtin_shufflevector(even01, even23, 0, 1, 4, 5);
    turned[1] = __builtin_shufflevector(odd01, odd23, 0, 1, 4, 5);
    turned[2] = __builtin_shufflevector(even01, even23, 2, 3, 6, 7);
    turned[3] = __builtin_shufflevector(odd01, odd23, 2, 3, 6, 7);
#else
    for (int half = 0; half < 2; ++half) {
        const Lanes r0 = lanesOf(*rows[0])[2 * group + half];
        const Lanes r1 = lanesOf(*rows[1])[2 * group + half];
        turned[2 * half] = __builtin_shufflevector(r0, r1, 0, 2);
        turned[2 * half + 1] = __builtin_shufflevector(r0, r1, 1, 3);
    }
#endif
}

/// The numbers of the requests.
static inline void readFor(const quint8* requests, const double* numbers, Lanes& lanes)
{
    for (int i = 0; i < kWidth; ++i)
        lanes[i] = numbers[requests[i]];
}

static void evaluateLanes(const MixTerms* terms, const double* yOverX, const double* yOverZ, Candidates& candidates,
                          int first)
{
    const MixTerms* rows[kWidth];
    for (int i = 0; i < kWidth; ++i)
        rows[i] = terms + candidates.mix[first + i];
    MixNumbers<Lanes> mixes;
    static_assert(sizeof mixes == kWidth * sizeof(MixTerms));
    for (int group = 0; group < MixTerms::kGroups; ++group)
        readGroup(rows, group, reinterpret_cast<Lanes*>(&mixes) + 4 * group);

    Lanes ratioX;
    Lanes ratioZ;
    readFor(candidates.request + first, yOverX, ratioX);
    readFor(candidates.request + first, yOverZ, ratioZ);
    MixResult<Lanes> result;
    evaluateMix(mixes, ratioX, ratioZ, result);
    __builtin_memcpy(candidates.a + first, &result.a, sizeof result.a);
    __builtin_memcpy(candidates.b + first, &result.b, sizeof result.b);
    __builtin_memcpy(candidates.luminance + first, &result.luminance, sizeof result.luminance);
}

static void evaluateCandidates(const MixTerms* terms, const double* yOverX, const double* yOverZ,
                               Candidates& candidates)
{
    for (int first = 0; first < candidates.count; first += kWidth)
        evaluateLanes(terms, yOverX, yOverZ, candidates, first);
}

} // namespace lxcolor

#endif
