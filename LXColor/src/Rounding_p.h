#ifndef ROUNDING_P_H
#define ROUNDING_P_H

#include <QtGlobal>

#include <cmath>
#include <limits>

// Every deliberate loss of precision has its name here, so that a reader sees each where it happens.
namespace lxcolor {

/// Rounds to single precision and widens back.
inline double toSingle(double v)
{
    float single = static_cast<float>(v);
#if defined(__GNUC__) && !defined(__clang__)
    // Where g++ 12 makes vectors of several of these (with AVX) it leaves both conversions out, and with them the
    // rounding.
#    if defined(__SSE2__)
    __asm__("" : "+x"(single));
#    elif defined(__aarch64__)
    __asm__("" : "+w"(single));
#    endif
#endif
    return static_cast<double>(single);
}

/// Like std::clamp to 0..1, but NaN gives 0.
inline double saturate01(double v)
{
    if (!(v > 0.0))
        return 0.0;
    return v < 1.0 ? v : 1.0;
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
