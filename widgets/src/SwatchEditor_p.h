#ifndef SWATCHEDITOR_P_H
#define SWATCHEDITOR_P_H

#include "SwatchCommands_p.h"

#include <QObject>
#include <QPair>
#include <QStringList>
#include <QUndoStack>

class QMimeData;

namespace lxcolor {

/// Edits a swatch library for a user: keeps to what may be changed, and makes each edit a step that can be undone.
/// Indexes are those of the library.
class SwatchEditor : public QObject
{
    Q_OBJECT

public:
    explicit SwatchEditor(LXColorLibrary* library, QObject* parent = nullptr);

    LXColorLibrary* library() const { return m_library; }
    QUndoStack* undoStack() { return &m_undoStack; }

    /// Whether colours may come into a list, change and go: user lists and the project's.
    bool canEdit(const QModelIndex& list) const;
    /// Whether a list or colour may be removed.
    bool canRemove(const QModelIndex& index) const;

    /// What of \a indexes may be removed, as one step; a list with all its colours.
    void remove(const QModelIndexList& indexes);
    /// False, with refused(), when the name is taken or the node keeps its own.
    bool rename(const QModelIndex& index, const QString& name);
    /// A user list under a free name. \return the name.
    QString addList(const QString& name);
    /// The row of the user list before (\a by -1) or behind (1) another one; -1 where there is none.
    int rowBeside(const QModelIndex& list, int by) const;
    /// Moves a user list to the place of the one beside it. \return its name; empty where there is none.
    QString moveList(const QModelIndex& list, int by);
    /// Colours before \a row (-1: at the end); those without a name get that of their value. \return their uids.
    QStringList insert(const QModelIndex& list, int row, QVector<Swatch> swatches, const QString& stepName);
    /// Another colour for an entry.
    bool setColor(const QModelIndex& index, const LXColor& color);

    /// Takes what is dropped or pasted. With \a move, entries of lists that may be changed leave their place.
    /// \return the uids of what came.
    QStringList take(const QMimeData& data, const QModelIndex& list, int row, bool move);

Q_SIGNALS:
    /// Why nothing came of an edit.
    void refused(const QString& reason);

private:
    using Entries = QVector<QPair<QString, QString>>;

    void push(QUndoCommand* command, const QString& stepName);
    void removeEntries(const QModelIndexList& entries);
    void removeList(const QModelIndex& list);
    PlacedList placed(const QModelIndex& list) const;
    QStringList moveEntries(const Entries& entries, const QModelIndex& list, int row);

    QPointer<LXColorLibrary> m_library;
    QUndoStack m_undoStack;
};

} // namespace lxcolor

#endif
