#ifndef COLORWORDS_P_H
#define COLORWORDS_P_H

#include <QtGlobal>

// The 32-bit words in which a colour holds its channels, and the widths in which they are set and read.
namespace lxcolor {

constexpr quint32 kWordMax = 0xffffffffu;
constexpr double kWordScale = 4294967295.0;

constexpr quint32 wordFrom8(uint v) { return v * 0x01010101u; }
constexpr quint32 wordFrom16(uint v) { return v * 0x00010001u; }

/// A ratio 0..1 as a word, rounded half up. Ratios outside saturate, NaN gives 0.
inline quint32 wordFromRatio(double ratio)
{
    const double scaled = ratio * kWordScale + 0.5;
    if (!(scaled > 0.0))
        return 0;
    return scaled < 4294967296.0 ? static_cast<quint32>(scaled) : kWordMax;
}

/// The same for a ratio known to be in 0..1.
inline quint32 wordFromUnit(double ratio)
{
    return static_cast<quint32>(static_cast<qint64>(ratio * kWordScale + 0.5));
}

constexpr int to8(quint32 word) { return static_cast<int>(word >> 24); }
constexpr uint to16(quint32 word) { return word >> 16; }

/// word / 4294967295.0 without the division: for every word the product and the sum round to the same double.
constexpr double toRatio(quint32 word) { return word * 0x1p-32 + word * (0x1p-64 + 0x1p-96); }

constexpr bool is8(int v) { return static_cast<uint>(v) <= 255u; }
constexpr bool is16(uint v) { return v < 65536u; }
constexpr bool isRatio(double v) { return v >= 0.0 && v <= 1.0; } // NaN is not one

constexpr bool are8(int a, int b, int c, int d) { return is8(a) && is8(b) && is8(c) && is8(d); }
constexpr bool are16(uint a, uint b, uint c, uint d) { return is16(a) && is16(b) && is16(c) && is16(d); }
constexpr bool areRatios(double a, double b, double c, double d)
{
    return isRatio(a) && isRatio(b) && isRatio(c) && isRatio(d);
}

// The three widths by their types: int for 8 bits, uint for 16, double for ratios. A word is made of a value in range.
constexpr bool inRange(int v) { return is8(v); }
constexpr bool inRange(uint v) { return is16(v); }
constexpr bool inRange(double v) { return isRatio(v); }

constexpr quint32 word(int v) { return wordFrom8(static_cast<uint>(v)); }
constexpr quint32 word(uint v) { return wordFrom16(v); }
inline quint32 word(double v) { return wordFromRatio(v); }

constexpr quint32 saturatedWord(int v) { return word(v < 0 ? 0 : v > 255 ? 255 : v); }
constexpr quint32 saturatedWord(uint v) { return word(v < 65535u ? v : 65535u); }
inline quint32 saturatedWord(double v) { return wordFromRatio(v); }

template <typename T>
constexpr T reading(quint32 stored);
template <>
constexpr int reading<int>(quint32 stored)
{
    return to8(stored);
}
template <>
constexpr uint reading<uint>(quint32 stored)
{
    return to16(stored);
}
template <>
constexpr double reading<double>(quint32 stored)
{
    return toRatio(stored);
}

/// A word as it comes back when it is read and set again in the width of T.
template <typename T>
quint32 narrowed(quint32 stored)
{
    return word(reading<T>(stored));
}

/// Fills an output argument that may be left out.
template <typename T>
void assign(T* out, T value)
{
    if (out)
        *out = value;
}

} // namespace lxcolor

#endif
