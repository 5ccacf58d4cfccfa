#include "LXColorLibrary.h"
#include "SwatchEditor_p.h"
#include "SwatchPayload_p.h"

#include <QMimeData>
#include <QUuid>

#include <algorithm>

namespace lxcolor {

namespace {

using Role = LXColorLibraryItem::Role;

const QLatin1String ProjectList("Project Swatches");
constexpr int MostSteps = 200;

QString nameOf(const QModelIndex& index) { return index.data(Qt::EditRole).toString(); }

} // namespace

SwatchEditor::SwatchEditor(LXColorLibrary* library, QObject* parent) : QObject(parent), m_library(library)
{
    m_undoStack.setUndoLimit(MostSteps);
}

bool SwatchEditor::canEdit(const QModelIndex& list) const
{
    return m_library && m_library->isListIndex(list) && list.data(Role::CanBeModifiedRole).toBool();
}

bool SwatchEditor::canRemove(const QModelIndex& index) const
{
    if (!m_library || !index.isValid())
        return false;
    if (m_library->isListIndex(index))
        return canEdit(index) && nameOf(index) != ProjectList;
    return canEdit(index.parent()) && !index.data(Role::UidRole).toString().isEmpty();
}

void SwatchEditor::push(QUndoCommand* command, const QString& stepName)
{
    command->setText(stepName);
    m_undoStack.push(command);
}

// ---- Removing ----

void SwatchEditor::remove(const QModelIndexList& indexes)
{
    QModelIndexList lists;
    QModelIndexList entries;
    for (const QModelIndex& index : indexes) {
        if (index.column() == 0 && canRemove(index))
            (m_library->isListIndex(index) ? lists : entries).append(index);
    }
    const auto goesWithItsList = [&](const QModelIndex& entry) { return lists.contains(entry.parent()); };
    entries.erase(std::remove_if(entries.begin(), entries.end(), goesWithItsList), entries.end());
    if (lists.isEmpty() && entries.isEmpty()) {
        if (!indexes.isEmpty())
            Q_EMIT refused(tr("Preset lists and the project's list stay as they are."));
        return;
    }

    m_undoStack.beginMacro(tr("Delete swatches"));
    removeEntries(entries);
    std::sort(lists.begin(), lists.end(), [](const auto& a, const auto& b) { return a.row() > b.row(); });
    QVector<QPersistentModelIndex> remaining(lists.cbegin(), lists.cend());
    for (const QPersistentModelIndex& list : qAsConst(remaining))
        removeList(list);
    m_undoStack.endMacro();
}

void SwatchEditor::removeEntries(const QModelIndexList& entries)
{
    QModelIndexList ordered = entries;
    std::sort(ordered.begin(), ordered.end(), [](const QModelIndex& a, const QModelIndex& b) {
        return a.parent() == b.parent() ? a.row() < b.row() : a.parent().row() < b.parent().row();
    });
    QVector<PlacedSwatch> places;
    for (const QModelIndex& index : qAsConst(ordered))
        places.append({nameOf(index.parent()), index.row(), swatchOf(index)});
    if (!places.isEmpty())
        m_undoStack.push(new SwatchesCommand(m_library, SwatchesCommand::Removal, places));
}

void SwatchEditor::removeList(const QModelIndex& list)
{
    m_undoStack.push(new ListCommand(m_library, SwatchesCommand::Removal, placed(list)));
}

PlacedList SwatchEditor::placed(const QModelIndex& list) const
{
    PlacedList placed{nameOf(list), list.row(), {}};
    for (int row = 0; row < m_library->rowCount(list); ++row) {
        const Swatch swatch = swatchOf(m_library->index(row, 0, list));
        if (!swatch.uid.isEmpty())
            placed.swatches.append(swatch);
    }
    return placed;
}

// ---- The order of lists ----

int SwatchEditor::rowBeside(const QModelIndex& list, int by) const
{
    if (!m_library || !m_library->isListIndex(list) || !canRemove(list))
        return -1;
    int row = list.row() + by;
    while (list.sibling(row, 0).isValid() && !canRemove(list.sibling(row, 0)))
        row += by;
    return list.sibling(row, 0).isValid() ? row : -1;
}

QString SwatchEditor::moveList(const QModelIndex& list, int by)
{
    const int row = rowBeside(list, by);
    if (row < 0)
        return {};
    PlacedList moved = placed(list);
    m_undoStack.beginMacro(tr("Move list"));
    removeList(list);
    moved.row = row;
    m_undoStack.push(new ListCommand(m_library, SwatchesCommand::Insertion, moved));
    m_undoStack.endMacro();
    return moved.name;
}

// ---- Names and colours ----

bool SwatchEditor::rename(const QModelIndex& index, const QString& name)
{
    const QString before = nameOf(index);
    const QString after = name.simplified();
    if (!m_library || after.isEmpty() || after == before)
        return false;
    const bool isList = m_library->isListIndex(index);
    if (!m_library->flags(index).testFlag(Qt::ItemIsEditable)) {
        Q_EMIT refused(tr("“%1” keeps its name.").arg(before));
        return false;
    }
    if (m_library->getIndexOfName(after, isList ? QModelIndex() : index.parent()).isValid() ||
        (isList && m_library->getIndexOfListId(after).isValid())) {
        Q_EMIT refused(tr("There is a “%1” already.").arg(after));
        return false;
    }
    if (isList) {
        push(new ListNameCommand(m_library, before, after), tr("Rename"));
    } else {
        const Swatch swatch = swatchOf(index);
        const Swatch renamed{swatch.uid, after, swatch.color, QString(), QString()};
        push(new SwatchCommand(m_library, nameOf(index.parent()), swatch, renamed), tr("Rename"));
    }
    return true;
}

bool SwatchEditor::setColor(const QModelIndex& index, const LXColor& color)
{
    if (!color.isValid() || !canEdit(index.parent()))
        return false;
    const Swatch before = swatchOf(index);
    Swatch after = before;
    after.color = color;
    push(new SwatchCommand(m_library, nameOf(index.parent()), before, after), tr("Change colour"));
    return true;
}

// ---- Adding ----

QString SwatchEditor::addList(const QString& name)
{
    if (!m_library)
        return {};
    QString freeName = m_library->getNewColorListName(name);
    auto* command = new ListCommand(m_library, SwatchesCommand::Insertion,
                                    {freeName, m_library->rowCount(m_library->rootIndex()), {}});
    push(command, tr("New list"));
    return freeName;
}

QStringList SwatchEditor::insert(const QModelIndex& list, int row, QVector<Swatch> swatches, const QString& stepName)
{
    if (!canEdit(list)) {
        Q_EMIT refused(tr("“%1” cannot be changed.").arg(nameOf(list)));
        return {};
    }
    const int first = row < 0 ? m_library->rowCount(list) : row;
    QStringList uids;
    QVector<PlacedSwatch> places;
    for (Swatch& swatch : swatches) {
        swatch.uid = swatch.uid.isEmpty() ? QUuid::createUuid().toString() : swatch.uid;
        swatch.name = swatch.name.isEmpty() ? swatch.color.name8() : swatch.name;
        uids << swatch.uid;
        places.append({nameOf(list), first + places.size(), swatch});
    }
    if (!places.isEmpty()) {
        auto* command = new SwatchesCommand(m_library, SwatchesCommand::Insertion, places);
        push(command, stepName);
    }
    return uids;
}

QStringList SwatchEditor::take(const QMimeData& data, const QModelIndex& list, int row, bool move)
{
    if (!m_library)
        return {};
    const Entries entries = entriesOfPayload(data);
    if (move && !entries.isEmpty() && canEdit(list)) {
        const bool canLeave = std::all_of(entries.cbegin(), entries.cend(), [this](const auto& entry) {
            return canRemove(indexOfSwatch(*m_library, entry.first, entry.second));
        });
        if (canLeave)
            return moveEntries(entries, list, row);
    }
    return insert(list, row, swatchesOfPayload(data, *m_library), tr("Add swatches"));
}

QStringList SwatchEditor::moveEntries(const Entries& entries, const QModelIndex& list, int row)
{
    const QPersistentModelIndex target = list;
    int place = row < 0 ? m_library->rowCount(list) : row;
    QModelIndexList leaving;
    QVector<Swatch> swatches;
    for (const auto& entry : entries) {
        const QModelIndex index = indexOfSwatch(*m_library, entry.first, entry.second);
        leaving << index;
        swatches.append(swatchOf(index));
    }
    for (const QModelIndex& index : qAsConst(leaving))
        place -= index.parent() == list && index.row() < place ? 1 : 0;

    m_undoStack.beginMacro(tr("Move swatches"));
    removeEntries(leaving);
    QStringList uids = insert(target, place, swatches, QString());
    m_undoStack.endMacro();
    return uids;
}

} // namespace lxcolor
