#include "NumberedNames_p.h"

namespace lxcolor {

QString numberedName(const QString& base, int number) { return base + QLatin1Char(' ') + QString::number(number); }

NameAndNumber splitNumberedName(const QString& name)
{
    constexpr int MaxDigits = 9;
    const int space = name.lastIndexOf(QLatin1Char(' '));
    const int digits = name.size() - space - 1;
    if (space < 0 || digits < 1 || digits > MaxDigits || name.at(space + 1) == QLatin1Char('0'))
        return {};

    int number = 0;
    for (int i = space + 1; i < name.size(); ++i) {
        const ushort c = name.at(i).unicode();
        if (c < '0' || c > '9')
            return {};
        number = number * 10 + (c - '0');
    }
    if (number < FirstNameNumber)
        return {};
    return {name.left(space), number};
}

void FreeNumbers::take(int number)
{
    if (number < m_mark)
        m_gaps.erase(number);
}

void FreeNumbers::release(int number)
{
    if (number >= m_mark)
        return;
    m_gaps.insert(number);
    while (m_mark > FirstNameNumber && m_gaps.erase(m_mark - 1) > 0)
        --m_mark;
}

} // namespace lxcolor
