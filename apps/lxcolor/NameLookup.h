#ifndef NAMELOOKUP_H
#define NAMELOOKUP_H

#include <QString>
#include <QStringList>
#include <QVector>

/// Something that a user picks by number or by name, such as a fixture.
struct NamedEntry
{
    int id;
    QString name;      ///< As it is shown.
    QString shortName; ///< Accepted as well; may be empty.
};

/**
 * The id of the entry that \a text means: its number, its name or short name in any case, or the beginning of exactly
 * one name. Anything else throws a CommandError that says what is accepted; \a kind is the word for the entries,
 * "fixture".
 */
int idOf(const QString& text, const QVector<NamedEntry>& entries, const QString& kind);

/// ", did you mean ...?" with the name of \a names nearest to \a text, or nothing where none is near.
QString suggestion(const QString& text, const QStringList& names);

#endif
