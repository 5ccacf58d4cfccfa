#ifndef SWATCHCOMMANDS_P_H
#define SWATCHCOMMANDS_P_H

#include "LXColor.h"

#include <QModelIndex>
#include <QPointer>
#include <QString>
#include <QUndoCommand>
#include <QVector>

class LXColorLibrary;

// What the user does to a swatch library, as steps that can be taken back. A list is known by its name and a colour by
// its list and uid, so a step whose list or colour is gone meanwhile does nothing.
namespace lxcolor {

/// All that an entry of a list holds.
struct Swatch
{
    QString uid, name;
    LXColor color;
    QString originatingPreset, vendorId;
};

/// An entry and its place.
struct PlacedSwatch
{
    QString list;
    int row = 0;
    Swatch swatch;
};

/// A user list and its place among the lists.
struct PlacedList
{
    QString name;
    int row = 0;
    QVector<Swatch> swatches;
};

/// The entry of \a index.
Swatch swatchOf(const QModelIndex& index);
/// The index of the entry of that uid in a list; one in \a row is preferred. Invalid without one.
QModelIndex indexOfSwatch(const LXColorLibrary& library, const QString& list, const QString& uid, int row = -1);

/// Entries that come or go.
class SwatchesCommand : public QUndoCommand
{
public:
    enum Kind { Insertion, Removal };
    /// \a places in ascending order of rows in each list.
    SwatchesCommand(LXColorLibrary* library, Kind kind, const QVector<PlacedSwatch>& places);
    void undo() override { apply(m_kind == Removal); }
    void redo() override { apply(m_kind == Insertion); }

private:
    void apply(bool insert);

    QPointer<LXColorLibrary> m_library;
    Kind m_kind;
    QVector<PlacedSwatch> m_places;
};

/// A user list that comes or goes, with all its entries.
class ListCommand : public QUndoCommand
{
public:
    using Kind = SwatchesCommand::Kind;
    ListCommand(LXColorLibrary* library, Kind kind, const PlacedList& list);
    void undo() override { apply(m_kind == SwatchesCommand::Removal); }
    void redo() override { apply(m_kind == SwatchesCommand::Insertion); }

private:
    void apply(bool insert);

    QPointer<LXColorLibrary> m_library;
    Kind m_kind;
    PlacedList m_list;
};

/// A list that gets another name.
class ListNameCommand : public QUndoCommand
{
public:
    ListNameCommand(LXColorLibrary* library, const QString& from, const QString& to);
    void undo() override { apply(m_to, m_from); }
    void redo() override { apply(m_from, m_to); }

private:
    void apply(const QString& from, const QString& to);

    QPointer<LXColorLibrary> m_library;
    QString m_from, m_to;
};

/// An entry whose name or colour changes; renaming forgets where the colour came from, and undoing brings that back.
class SwatchCommand : public QUndoCommand
{
public:
    SwatchCommand(LXColorLibrary* library, const QString& list, const Swatch& before, const Swatch& after);
    void undo() override { apply(m_before); }
    void redo() override { apply(m_after); }

private:
    void apply(const Swatch& swatch);

    QPointer<LXColorLibrary> m_library;
    QString m_list;
    Swatch m_before, m_after;
};

} // namespace lxcolor

#endif
