#ifndef TESTS_COMPARISON_H
#define TESTS_COMPARISON_H

#include "ColorUtils.h"

#include <QColor>
#include <QDebug>
#include <QStringList>
#include <QVector>

#include <climits>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <random>

/// The same value to the last bit; any NaN is like any other.
inline bool sameBits(double a, double b)
{
    return (std::isnan(a) && std::isnan(b)) || std::memcmp(&a, &b, sizeof a) == 0;
}
template <class T>
bool sameBits(const T& a, const T& b)
{
    return a == b;
}
inline bool sameBits(const QVector<double>& a, const QVector<double>& b)
{
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [](double v, double w) { return sameBits(v, w); });
}

inline QString printed(double v)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.17g", v); // tells -0 from 0
    return QLatin1String(text);
}
inline QString printed(const QString& v) { return '"' + v + '"'; }
template <class T>
QString printed(const T& v)
{
    QString text;
    QDebug(&text).nospace() << v;
    return text;
}
inline QString printed(const QVector<double>& values)
{
    QStringList texts;
    for (double v : values)
        texts << printed(v);
    return '(' + texts.join(", ") + ')';
}

/// The greatest difference of a component.
inline int difference(const QColor& a, const QColor& b)
{
    return qMax(qMax(qAbs(a.red() - b.red()), qAbs(a.green() - b.green())), qAbs(a.blue() - b.blue()));
}

/// Seeded random input that likes the ends of ranges and what lies beyond them.
class Dice
{
public:
    explicit Dice(quint64 seed) : m_engine(seed) {}

    quint64 bits() { return m_engine(); }
    /// A whole number in \a low..\a high.
    int number(int low, int high) { return low + static_cast<int>(bits() % static_cast<quint64>(high - low + 1)); }
    bool chance(int oneIn) { return bits() % static_cast<quint64>(oneIn) == 0; }
    template <class T>
    T pick(std::initializer_list<T> values)
    {
        return values.begin()[bits() % values.size()];
    }
    double uniform() { return static_cast<double>(bits() >> 11) / 9007199254740992.0; }

    /// A ratio 0..1, often an end of it or a neighbour of one.
    double ratio()
    {
        // clang-format off
        switch (number(0, 13)) {
        case 0: return pick({0.0, 1.0, 0.5, -0.0, 0.1});
        case 1: return pick({5e-324, 2.2e-308, 1e-10, 1.0 / 4294967295.0, std::nextafter(1.0, 0.0), 1 - 1e-10});
        case 2: return number(0, 255) / 255.0;
        case 3: return number(0, 65535) / 65535.0;
        case 4: return std::ldexp(uniform(), -number(0, 40));
        case 5: return number(0, 128) / 128.0; // ties of seven decimals
        case 6: return (number(0, 999999) + 0.5) / 1e6;
        default: return uniform();
        }
        // clang-format on
    }
    /// A ratio, or now and then something that is none.
    double anything()
    {
        return chance(40)
                   ? pick({-5e-324, -1.0, -0.1, std::nextafter(1.0, 2.0), 2.0, 1e308, -1e308, qInf(), -qInf(), qQNaN()})
                   : ratio();
    }
    int any8()
    {
        return chance(40)  ? pick({-1, 256, 257, INT_MIN, INT_MAX})
               : chance(3) ? pick({0, 255, 1, 254, 127, 128})
                           : number(0, 255);
    }
    uint any16()
    {
        return chance(40)  ? pick({65536u, 65537u, 0x80000000u, 0xffffffffu})
               : chance(3) ? pick({0u, 65535u, 1u, 65534u, 255u, 256u, 32767u, 32768u})
                           : static_cast<uint>(number(0, 65535));
    }
    ColorUtils::TonematchProfileID profile()
    {
        return static_cast<ColorUtils::TonematchProfileID>(chance(12) ? pick({-1, 10, 12}) : number(0, 9));
    }
    ColorUtils::ChannelConfiguration configuration()
    {
        return static_cast<ColorUtils::ChannelConfiguration>(chance(12) ? pick({0, 7, -1}) : number(1, 6));
    }

private:
    std::mt19937_64 m_engine;
};

#endif
