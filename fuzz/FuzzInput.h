#ifndef FUZZ_FUZZINPUT_H
#define FUZZ_FUZZINPUT_H

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <cstring>
#include <limits>

/// Takes values from the bytes of an input, front to back. Beyond their end every byte is 0.
class FuzzInput
{
public:
    FuzzInput(const uint8_t* data, size_t size)
        : m_bytes(QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<int>(size)))
    {
    }

    bool isAtEnd() const { return m_position >= m_bytes.size(); }
    uint8_t byte() { return isAtEnd() ? uint8_t(0) : static_cast<uint8_t>(m_bytes.at(m_position++)); }
    bool flag() { return (byte() & 1) != 0; }
    /// \a first..\a last, both included; one byte while that is enough.
    int integer(int first, int last)
    {
        const auto range = static_cast<uint32_t>(last) - static_cast<uint32_t>(first);
        uint32_t value = byte();
        if (range > 255)
            value |= static_cast<uint32_t>(byte()) << 8;
        if (range > 65535)
            value |= static_cast<uint32_t>(byte()) << 16 | static_cast<uint32_t>(byte()) << 24;
        if (range != std::numeric_limits<uint32_t>::max())
            value %= range + 1;
        return static_cast<int>(static_cast<uint32_t>(first) + value);
    }
    int anyInt() { return integer(std::numeric_limits<int>::min(), std::numeric_limits<int>::max()); }
    /// 0..1.
    double ratio() { return integer(0, 65535) / 65535.0; }
    /// Any number at all, infinities and NaN included; every other one is from 0 to 1.
    double number()
    {
        if (!flag())
            return ratio();
        uint64_t bits = 0;
        for (int shift = 0; shift < 64; shift += 8)
            bits |= static_cast<uint64_t>(byte()) << shift;
        double value = 0.0;
        std::memcpy(&value, &bits, sizeof value);
        return value;
    }
    QByteArray bytes(int longest)
    {
        const int length = qMin(integer(0, longest), m_bytes.size() - m_position);
        m_position += length;
        return m_bytes.mid(m_position - length, length);
    }
    QByteArray rest() const { return m_bytes.mid(m_position); }

    template <typename T, size_t N>
    T oneOf(const T (&values)[N])
    {
        return values[integer(0, static_cast<int>(N) - 1)];
    }

private:
    QByteArray m_bytes;
    int m_position = 0;
};

#endif
