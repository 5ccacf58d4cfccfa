#ifndef MIXSHORTLIST_P_H
#define MIXSHORTLIST_P_H

#include <QtAlgorithms>

namespace lxcolor {

/// The mixes that can win in a part of the gamut, in the order of the search: up to sixteen, or more than fit. Two
/// words, so that one can be put into place while others read. A byte is a mix, from the low end of the first word on:
/// its place in tables of mixes that begin with two rows for no mix.
class MixShortlist
{
public:
    static constexpr int kMostMixes = 16;
    static constexpr int kRowsForNoMix = 2;

    MixShortlist() = default;
    /// One that was stored by its words. The first is never 0.
    MixShortlist(quint64 first, quint64 second) : m_first(first), m_second(second) {}
    quint64 first() const { return m_first; }
    quint64 second() const { return m_second; }
    /// How many places there are in each; at least one, be it that of no mix. Not for a list that has too many.
    ///@{
    int firstCount() const { return usedBytes(m_first); }
    int secondCount() const { return m_second == 0 ? 0 : usedBytes(m_second); }
    ///@}

    static MixShortlist tooMany() { return {kTooMany, 0}; }
    bool hasTooMany() const { return m_first == kTooMany; }
    bool hasMoreThanTwo() const { return m_first >> (2 * kBitsPerByte) != 0; }
    /// The place of one of the first eight mixes; 0 after the last.
    int place(int index) const { return static_cast<int>(m_first >> (index * kBitsPerByte) & kByteMask); }

    /// Takes the mix with a \a number in the order of the search, of up to 250; once the list is full it has too many.
    void append(int number)
    {
        const auto place = static_cast<quint64>(number) + kRowsForNoMix;
        if (hasTooMany() || usedBytes(m_second | 1) == kBytesPerWord)
            *this = tooMany();
        else if (m_first == kNoMix)
            m_first = place;
        else if (firstCount() < kBytesPerWord)
            m_first |= place << kBitsPerByte * firstCount();
        else
            m_second |= place << kBitsPerByte * secondCount();
    }

private:
    static constexpr quint64 kNoMix = 1; // 0 would be the end
    static constexpr quint64 kTooMany = 0xff;
    static constexpr quint64 kByteMask = 0xff;
    static constexpr int kBytesPerWord = 8;
    static constexpr int kBitsPerByte = 8;

    /// Of a word that is not 0.
    static int usedBytes(quint64 word)
    {
        return kBytesPerWord - static_cast<int>(qCountLeadingZeroBits(word)) / kBitsPerByte;
    }

    quint64 m_first = kNoMix;
    quint64 m_second = 0;
};

} // namespace lxcolor

#endif
