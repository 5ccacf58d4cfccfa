#ifndef MIXSHORTLIST_P_H
#define MIXSHORTLIST_P_H

#include <QtGlobal>

namespace lxcolor {

/// The mixes that can win in a part of the gamut, by their numbers in the order of the search: up to sixteen, or more
/// than fit. Two words, so that one can be put into place while others read.
class MixShortlist
{
public:
    MixShortlist() = default;
    /// One that was stored by its words. The first is never 0.
    MixShortlist(quint64 first, quint64 second) : m_first(first), m_second(second) {}
    quint64 first() const { return m_first; }
    quint64 second() const { return m_second; }

    static MixShortlist tooMany() { return {kTooMany, 0}; }
    bool hasTooMany() const { return m_first == kTooMany; }

    /// Takes the mix with a \a number of up to 250; once the list is full it has too many.
    void append(int number)
    {
        if (m_second >> (kBitsPerWord - kBitsPerEntry) != 0)
            *this = tooMany();
        if (hasTooMany())
            return;
        const auto entry = static_cast<quint64>(number) + 1;
        if (m_first == kNone)
            m_first = entry;
        else if (m_first >> (kBitsPerWord - kBitsPerEntry) == 0)
            m_first |= entry << shiftOfNext(m_first);
        else
            m_second |= entry << shiftOfNext(m_second);
    }

    /// visit(number) for each mix, in the order in which they were taken. Not for a list that has too many.
    template <typename Visit>
    void forEach(Visit visit) const
    {
        if (m_first == kNone)
            return;
        for (quint64 entries : {m_first, m_second})
            for (; entries != 0; entries >>= kBitsPerEntry)
                visit(static_cast<int>(entries & kEntryMask) - 1);
    }

private:
    // A byte an entry, from the low end on: the number plus one. These two are no numbers.
    static constexpr quint64 kNone = 0xfe;
    static constexpr quint64 kTooMany = 0xff;
    static constexpr quint64 kEntryMask = 0xff;
    static constexpr int kBitsPerEntry = 8;
    static constexpr int kBitsPerWord = 64;

    static int shiftOfNext(quint64 word)
    {
        int shift = 0;
        while (word >> shift != 0)
            shift += kBitsPerEntry;
        return shift;
    }

    quint64 m_first = kNone;
    quint64 m_second = 0;
};

} // namespace lxcolor

#endif
