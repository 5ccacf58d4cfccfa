#ifndef NUMBEREDNAMES_P_H
#define NUMBEREDNAMES_P_H

#include <QString>

#include <set>

// Names made unique by a number: "Red", "Red 2", "Red 3", ...
namespace lxcolor {

constexpr int FirstNameNumber = 2;

/// \a base, one space, \a number. The base is taken as it is, also when it looks like a format.
QString numberedName(const QString& base, int number);

struct NameAndNumber
{
    QString base;
    int number = 0; ///< 0 when the name does not end in a number that numberedName() would write.
};

/// The inverse of numberedName(), for numbers of at most nine digits from FirstNameNumber on.
NameAndNumber splitNumberedName(const QString& name);

/// \a name, or the first numbered form of it, that isTaken(name) denies.
template <typename IsTaken>
QString firstFreeName(const QString& name, IsTaken isTaken)
{
    if (!isTaken(name))
        return name;
    int number = FirstNameNumber;
    while (isTaken(numberedName(name, number)))
        ++number;
    return numberedName(name, number);
}

/**
 * The numbers in use behind one name, so that the first free one is found without trying all from 2 on each time.
 *
 * Every number from 2 to below the mark is in use unless it is among the gaps; nothing is known from the mark on.
 */
class FreeNumbers
{
public:
    /// The first number that is free; isTaken(number) is asked about those that are not known yet.
    template <typename IsTaken>
    int first(IsTaken isTaken)
    {
        if (!m_gaps.empty())
            return *m_gaps.begin();
        while (isTaken(m_mark))
            ++m_mark;
        return m_mark;
    }

    /// To be told of each number that comes into use, and of each that nothing uses any more.
    void take(int number);
    void release(int number);

    bool knowsNothing() const { return m_mark == FirstNameNumber; }

private:
    std::set<int> m_gaps;
    int m_mark = FirstNameNumber;
};

} // namespace lxcolor

#endif
