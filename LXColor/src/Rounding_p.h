#ifndef ROUNDING_P_H
#define ROUNDING_P_H

#include <QtGlobal>

#include <cmath>
#include <limits>

// Every deliberate loss of precision has its name here, so that a reader sees each where it happens.
namespace lxcolor {

/// Where g++ 12 makes vectors of several conversions to single precision and back (with AVX) it leaves both out, and
/// with them the rounding. This keeps the single value, or vector of such, in between.
#if defined(__GNUC__) && !defined(__clang__) && defined(__SSE2__)
#    define LXCOLOR_KEEP_ROUNDED(single) __asm__("" : "+x"(single))
#elif defined(__GNUC__) && !defined(__clang__) && defined(__aarch64__)
#    define LXCOLOR_KEEP_ROUNDED(single) __asm__("" : "+w"(single))
#else
#    define LXCOLOR_KEEP_ROUNDED(single)
#endif

/// Rounds to single precision and widens back.
inline double toSingle(double v)
{
    float single = static_cast<float>(v);
    LXCOLOR_KEEP_ROUNDED(single);
    return static_cast<double>(single);
}

/// Levels between these and 0..1 are taken for such that rounding has put outside.
///@{
constexpr double kSnapFrom = -5e-05;
constexpr double kSnapTo = 1.00005;
///@}

/// Like std::clamp to 0..1, but NaN gives 0.
inline double saturate01(double v)
{
    const double low = v > 0.0 ? v : 0.0;
    return low < 1.0 ? low : 1.0;
}

/// A level 0..1 as a 16-bit value, truncated. Levels outside saturate, NaN gives 0.
inline quint16 truncateTo16(double level) { return static_cast<quint16>(saturate01(level) * 65535.0); }

/// A level 0..1 as a 16-bit value, rounded half up. Levels outside saturate, NaN gives 0.
inline quint16 roundTo16(double level) { return static_cast<quint16>(saturate01(level) * 65535.0 + 0.5); }

/// A level 0..1 as an 8-bit value, rounded half up. Levels outside saturate, NaN gives 0.
inline quint8 roundTo8(double level) { return static_cast<quint8>(saturate01(level) * 255.0 + 0.5); }

/// Like a cast to int, but values out of range saturate and NaN gives 0.
inline int truncateToInt(double v)
{
    if (!(v > -2147483648.0))
        return v <= -2147483648.0 ? std::numeric_limits<int>::min() : 0;
    return v < 2147483647.0 ? static_cast<int>(v) : std::numeric_limits<int>::max();
}

} // namespace lxcolor

#endif
