#include "NameLookup.h"

#include "CommandError.h"

#include <algorithm>
#include <numeric>

namespace {

// Levenshtein distance: the least number of characters to insert, remove or replace.
int editDistance(const QString& a, const QString& b)
{
    QVector<int> row(b.size() + 1);
    std::iota(row.begin(), row.end(), 0);
    for (int i = 0; i < a.size(); ++i) {
        int diagonal = row[0];
        row[0] = i + 1;
        for (int j = 0; j < b.size(); ++j) {
            const int replaced = diagonal + (a[i] == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, diagonal + 1});
        }
    }
    return row.last();
}

QVector<NamedEntry> matching(const QString& text, const QVector<NamedEntry>& entries)
{
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    const auto isExact = [&](const NamedEntry& entry) {
        return (isNumber && entry.id == number) || entry.name.compare(text, Qt::CaseInsensitive) == 0 ||
               (!text.isEmpty() && entry.shortName.compare(text, Qt::CaseInsensitive) == 0);
    };
    const auto exact = std::find_if(entries.begin(), entries.end(), isExact);
    if (exact != entries.end())
        return {*exact};
    QVector<NamedEntry> begun;
    if (!text.isEmpty())
        std::copy_if(entries.begin(), entries.end(), std::back_inserter(begun),
                     [&](const NamedEntry& entry) { return entry.name.startsWith(text, Qt::CaseInsensitive); });
    return begun;
}

QString listed(const QVector<NamedEntry>& entries)
{
    QStringList all;
    for (const NamedEntry& entry : entries)
        all << QStringLiteral("%1 %2").arg(QString::number(entry.id), quoted(entry.name));
    return all.join(QStringLiteral(", "));
}

} // namespace

int idOf(const QString& text, const QVector<NamedEntry>& entries, const QString& kind)
{
    const QVector<NamedEntry> found = matching(text, entries);
    if (found.size() == 1)
        return found.first().id;
    if (found.size() > 1)
        throw CommandError(QStringLiteral("%1 %2 is not unique: it may be %3").arg(kind, quoted(text), listed(found)));
    if (text.isEmpty())
        throw CommandError(QStringLiteral("no %1 given; accepted: %2").arg(kind, listed(entries)));
    QStringList names;
    for (const NamedEntry& entry : entries)
        names << entry.name;
    throw CommandError(QStringLiteral("unknown %1 %2%3; accepted: %4")
                           .arg(kind, quoted(text), suggestion(text, names), listed(entries)));
}

QString suggestion(const QString& text, const QStringList& names)
{
    constexpr int longestWorthComparing = 40;
    if (text.isEmpty() || text.size() > longestWorthComparing)
        return QString();
    const QString wanted = text.toLower();
    int nearest = std::max(1, text.size() / 3) + 1;
    QString best;
    for (const QString& name : names) {
        const int distance = editDistance(wanted, name.toLower());
        if (distance < nearest) {
            nearest = distance;
            best = name;
        }
    }
    return best.isEmpty() ? QString() : QStringLiteral(", did you mean %1?").arg(quoted(best));
}
