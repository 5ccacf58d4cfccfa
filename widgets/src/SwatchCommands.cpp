#include "LXColorLibrary.h"
#include "SwatchCommands_p.h"

#include <algorithm>
#include <utility>

namespace lxcolor {

namespace {

using Role = LXColorLibraryItem::Role;

/// Many edits as one: saved once, and views look once.
class Batch
{
public:
    explicit Batch(LXColorLibrary* library) : m_library(library) { m_library->setEditingMultipleColors(true); }
    ~Batch()
    {
        m_library->setEditingMultipleColors(false);
        for (const QPersistentModelIndex& list : std::as_const(m_lists))
            announce(list);
    }
    Q_DISABLE_COPY(Batch)

    void changed(const QModelIndex& list)
    {
        if (!m_lists.contains(list))
            m_lists.append(list);
    }

private:
    // No dataChanged() followed the single edits.
    void announce(const QModelIndex& list) const
    {
        const int count = m_library->rowCount(list);
        if (list.isValid() && count > 0)
            Q_EMIT m_library->dataChanged(m_library->index(0, 0, list), m_library->index(count - 1, 0, list));
        if (list.isValid())
            Q_EMIT m_library->dataChanged(list, list);
    }

    LXColorLibrary* m_library;
    QVector<QPersistentModelIndex> m_lists;
};

/// Gives a node a name that is free, numbered if need be. \return the name.
QString setFreeName(LXColorLibrary* library, const QModelIndex& index, const QString& wanted)
{
    QString name = wanted;
    for (int number = 2; !name.isEmpty() && !library->setData(index, name, Qt::EditRole); ++number)
        name = wanted + QLatin1Char(' ') + QString::number(number);
    return name;
}

void insertSwatch(LXColorLibrary* library, const QModelIndex& list, int row, Swatch& swatch)
{
    const int place = qBound(0, row, library->rowCount(list));
    library->insertRows(place, 1, list);
    const QPersistentModelIndex index = library->index(place, 0, list);
    library->setData(index, swatch.uid, Role::UidRole);
    // Enters the colour under its uid, by which references find it.
    static_cast<LXColorLibraryItem*>(list.internalPointer())->set(swatch.uid, swatch.color);
    swatch.name = setFreeName(library, index, swatch.name);
    library->setData(index, swatch.originatingPreset, Role::OriginatingPresetRole);
    library->setData(index, swatch.vendorId, Role::VendorIdRole);
}

} // namespace

Swatch swatchOf(const QModelIndex& index)
{
    Swatch swatch;
    swatch.uid = index.data(Role::UidRole).toString();
    swatch.name = index.data(Qt::EditRole).toString();
    if (const auto* color = static_cast<const LXColor*>(index.data(Role::ColorRole).value<void*>()))
        swatch.color = *color;
    swatch.originatingPreset = index.data(Role::OriginatingPresetRole).toString();
    swatch.vendorId = index.data(Role::VendorIdRole).toString();
    return swatch;
}

QModelIndex indexOfSwatch(const LXColorLibrary& library, const QString& list, const QString& uid, int row)
{
    const QModelIndex parent = library.getIndexOfListId(list);
    const QModelIndex preferred = library.index(row, 0, parent);
    if (preferred.isValid() && preferred.data(Role::UidRole).toString() == uid)
        return preferred;
    for (int i = 0; i < library.rowCount(parent); ++i) {
        const QModelIndex index = library.index(i, 0, parent);
        if (index.data(Role::UidRole).toString() == uid)
            return index;
    }
    return {};
}

// ---- Entries ----

SwatchesCommand::SwatchesCommand(LXColorLibrary* library, Kind kind, const QVector<PlacedSwatch>& places)
    : m_library(library), m_kind(kind), m_places(places)
{
}

void SwatchesCommand::apply(bool insert)
{
    if (!m_library)
        return;
    Batch batch(m_library);
    if (insert) {
        for (PlacedSwatch& place : m_places) {
            const QPersistentModelIndex list = m_library->getIndexOfListId(place.list);
            if (!list.isValid())
                continue;
            insertSwatch(m_library, list, place.row, place.swatch);
            batch.changed(list);
        }
        return;
    }
    for (auto place = m_places.crbegin(); place != m_places.crend(); ++place) {
        const QModelIndex index = indexOfSwatch(*m_library, place->list, place->swatch.uid, place->row);
        if (index.isValid())
            m_library->removeRows(index.row(), 1, index.parent());
    }
}

// ---- Lists ----

ListCommand::ListCommand(LXColorLibrary* library, Kind kind, const PlacedList& list)
    : m_library(library), m_kind(kind), m_list(list)
{
}

void ListCommand::apply(bool insert)
{
    if (!m_library)
        return;
    if (!insert) {
        const QModelIndex list = m_library->getIndexOfListId(m_list.name);
        if (list.isValid())
            m_library->removeRows(list.row(), 1, m_library->rootIndex());
        return;
    }
    {
        Batch batch(m_library);
        const QModelIndex root = m_library->rootIndex();
        const int row = qBound(0, m_list.row, m_library->rowCount(root));
        m_library->insertRows(row, 1, root);
        const QPersistentModelIndex list = m_library->index(row, 0, root);
        m_list.name = setFreeName(m_library, list, m_list.name);
        m_library->setData(list, true, Role::CanBeModifiedRole);
        for (int i = 0; i < m_list.swatches.size(); ++i)
            insertSwatch(m_library, list, i, m_list.swatches[i]);
        batch.changed(list);
    }
    Q_EMIT m_library->listsChanged(m_library->getModifiableLists());
}

ListNameCommand::ListNameCommand(LXColorLibrary* library, const QString& from, const QString& to)
    : m_library(library), m_from(from), m_to(to)
{
}

void ListNameCommand::apply(const QString& from, const QString& to)
{
    if (m_library)
        m_library->setData(m_library->getIndexOfListId(from), to, Qt::EditRole);
}

// ---- One entry ----

SwatchCommand::SwatchCommand(LXColorLibrary* library, const QString& list, const Swatch& before, const Swatch& after)
    : m_library(library), m_list(list), m_before(before), m_after(after)
{
}

void SwatchCommand::apply(const Swatch& swatch)
{
    const QPersistentModelIndex index = m_library ? indexOfSwatch(*m_library, m_list, swatch.uid) : QModelIndex();
    if (!index.isValid())
        return;
    Batch batch(m_library);
    LXColor color = swatch.color;
    m_library->setData(index, QVariant::fromValue(static_cast<void*>(&color)), Role::ColorRole);
    m_library->setData(index, swatch.name, Qt::EditRole); // Refused when it is the same.
    m_library->setData(index, swatch.originatingPreset, Role::OriginatingPresetRole);
    m_library->setData(index, swatch.vendorId, Role::VendorIdRole);
    batch.changed(index.parent());
}

} // namespace lxcolor
