// The arithmetic of MixEvaluation without branches, for one mix in doubles or for several side by side in vectors. It
// is compiled once for each kind of processor, so all of it has internal linkage, and it uses no inline function of
// another header: the linker would keep one of them for all.
#ifndef MIXARITHMETIC_P_H
#define MIXARITHMETIC_P_H

#include "MixLanes_p.h"
#include "Rounding_p.h"
#include "Select_p.h"

namespace lxcolor {

/// toSingle() in place.
template <typename Number>
static void roundToSingle(Number& v);

template <>
inline void roundToSingle(double& v)
{
    float single = static_cast<float>(v);
    LXCOLOR_KEEP_ROUNDED(single);
    v = static_cast<double>(single);
}

template <typename Number>
static void clampRatio(Number& ratio)
{
    const Number zero = {};
    const Number one = zero + 1.0;
    select(ratio < zero, zero, ratio, ratio); // -0 stays
    select(ratio > one, one, ratio, ratio);
}

/// \a yOverX and \a yOverZ are those of the requests. By reference, because how vectors are passed by value depends on
/// the processor.
template <typename Number>
static void evaluateMix(const MixNumbers<Number>& mix, const Number& yOverX, const Number& yOverZ,
                        MixResult<Number>& result)
{
    const Number zero = {};
    const Number qi = mix.Xi * yOverX - mix.Yi;
    const Number qj = mix.Xj * yOverX - mix.Yj;
    const Number pi = mix.Zi * yOverZ - mix.Yi;
    const Number pj = mix.Zj * yOverZ - mix.Yj;
    Number r0 = zero;
    Number r1 = zero;
    for (int t = 0; t < 3; ++t) {
        r0 = r0 - (mix.X[t] * yOverX - mix.Y[t]);
        r1 = r1 - (mix.Z[t] * yOverZ - mix.Y[t]);
    }

    // PairElimination
    Number rowFactor = pi / qi;
    roundToSingle(rowFactor);
    const Number pivot = pj - rowFactor * qj;
    Number columnFactor = qj / pivot;
    roundToSingle(columnFactor);
    Number reciprocalB = 1.0 / pivot;
    roundToSingle(reciprocalB);
    Number reciprocalA = 1.0 / (qi - (pi - rowFactor * qi) * columnFactor);
    roundToSingle(reciprocalA);
    const Number remainder = r1 - rowFactor * r0;
    Number b = reciprocalB * remainder;
    Number a = reciprocalA * (r0 - columnFactor * remainder);

    // A NaN is not valid here. MixEvaluation lets it pass, but it never wins.
    const decltype(a > b) valid = (a > kSnapFrom) & (a < kSnapTo) & (b > kSnapFrom) & (b < kSnapTo);
    clampRatio(a);
    clampRatio(b);
    // In the order of the emitters; adding 0 changes nothing.
    Number luminance = mix.Ybelow + a * mix.Yi;
    luminance = luminance + mix.Ybetween[0] + mix.Ybetween[1] + mix.Ybetween[2];
    luminance = luminance + b * mix.Yj;
    luminance = luminance + mix.Yabove[0] + mix.Yabove[1] + mix.Yabove[2];
    result.a = a;
    result.b = b;
    select(valid, luminance, zero - 1.0, result.luminance);
}

} // namespace lxcolor

#endif
