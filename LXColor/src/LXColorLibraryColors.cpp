// Looking colours up in the library, making, changing and removing them.

#include "LXColorLibrary.h"
#include "LXColorLibrary_p.h"
#include "SwatchIndex_p.h"

#include <QDebug>
#include <QPointer>

using lxcolor::SwatchText;

// ---- Look-ups ----

lxcolor::SwatchIndex& LXColorLibrary::texts() const { return m_rootItem->index(); }

QModelIndex LXColorLibrary::firstEntry(SwatchText kind, const QString& text) const
{
    return text.isEmpty() ? QModelIndex() : indexOf(texts().firstEntry(kind, text, m_rootItem));
}

LXColorLibraryItem* LXColorLibrary::listNamed(const QString& listId) const
{
    return texts().firstChild(SwatchText::Name, listId, m_rootItem);
}

bool LXColorLibrary::isListIndex(const QModelIndex& index) const { return parent(index) == rootIndex(); }

bool LXColorLibrary::isUserListIndex(const QModelIndex& index) const
{
    return isListIndex(index) && flags(index).testFlag(Qt::ItemIsEditable);
}

QModelIndex LXColorLibrary::getIndexOfListId(const QString& listId) const { return indexOf(listNamed(listId)); }

QModelIndex LXColorLibrary::getIndexOfUid(const QString& uid) const { return firstEntry(SwatchText::Uid, uid); }

QModelIndex LXColorLibrary::getIndexOfExplicitColor(const QString& key) const
{
    return firstEntry(SwatchText::ExplicitColor, key);
}

QModelIndex LXColorLibrary::getIndexOfOldPreset(const QString& name) const
{
    return firstEntry(SwatchText::OldPreset, name);
}

QModelIndex LXColorLibrary::getIndexOfOriginatingPreset(const QString& path) const
{
    return firstEntry(SwatchText::OriginatingPreset, path);
}

QModelIndex LXColorLibrary::getIndexOfName(const QString& name, const QModelIndex& parent) const
{
    const LXColorLibraryItem* node = nodeOf(parent);
    if (node == m_rootItem)
        return firstEntry(SwatchText::Name, name);
    if (!node || name.isEmpty())
        return {};
    return indexOf(texts().firstChild(SwatchText::Name, name, node));
}

bool LXColorLibrary::nameExists(const QString& name) const { return getIndexOfName(name, rootIndex()).isValid(); }

bool LXColorLibrary::nameExists(const QString& name, const QString& listId) const
{
    return getIndexOfName(name, getIndexOfListId(listId)).isValid();
}

bool LXColorLibrary::containsUid(const QString& uid) const { return getIndexOfUid(uid).isValid(); }

QStringList LXColorLibrary::getModifiableLists() const
{
    QStringList names;
    for (const LXColorLibraryItem* list : qAsConst(m_rootItem->m_childItems)) {
        if (list->canBeModified())
            names.append(list->displayName());
    }
    return names;
}

QList<LXColor*> LXColorLibrary::getColors(const QString& listId) const
{
    QList<LXColor*> colors;
    const LXColorLibraryItem* list = listNamed(listId);
    if (!list)
        return colors;
    for (LXColorLibraryItem* entry : list->m_childItems) {
        if (!entry->m_uid.isEmpty())
            colors.append(&entry->m_color);
    }
    return colors;
}

QStringList LXColorLibrary::getColorUids(const QString& listId) const
{
    QStringList uids;
    const LXColorLibraryItem* list = listNamed(listId);
    if (!list)
        return uids;
    for (const LXColorLibraryItem* entry : list->m_childItems) {
        if (!entry->m_uid.isEmpty() && lookUp(entry->m_uid).isValid())
            uids.append(entry->m_uid);
    }
    return uids;
}

// ---- Reading colours ----

const LXColorLibraryItem* LXColorLibrary::explicitColor(const QString& value) const
{
    const LXColorLibraryItem* list = listNamed(lxcolor::ExplicitColorsId);
    return list ? list->childWithExplicitColor(value) : nullptr;
}

LXColor LXColorLibrary::lookUp(const QString& uidOrValue) const
{
    const QString uid = UidAndValueToUid(uidOrValue);
    const QString value = UidAndValueToValue(uidOrValue);
    const LXColorLibraryItem* entry =
        uid.isEmpty() ? explicitColor(value) : texts().firstEntry(SwatchText::Key, uid, m_rootItem);
    if (entry)
        return entry->m_color;
    return value.isEmpty() ? m_defaultColor : LXColor(value);
}

LXColor LXColorLibrary::get(const QString& uidOrValue)
{
    LXColor color = lookUp(uidOrValue);
    const bool isValueAlone = !uidOrValue.isEmpty() && UidAndValueToUid(uidOrValue).isEmpty();
    if (isValueAlone && !explicitColor(uidOrValue))
        createExplicitColor(color, uidOrValue);
    return color;
}

QColor LXColorLibrary::getQColor(const QString& uidOrValue) { return get(uidOrValue).getQColor(true); }

QString LXColorLibrary::color2Text(const LXColor& color) const { return color.aName(); }

// ---- Lists ----

QModelIndex LXColorLibrary::createNewLibraryIfNecessary(const QString& listId, bool isFixedList)
{
    if (lxcolor::isDebugOutputOn())
        qDebug() << listId;
    if (const LXColorLibraryItem* list = listNamed(listId))
        return indexOf(list);

    catchUp(rootIndex());
    const LXColorLibraryItem* node = insertBlankRows(rootIndex(), m_rootItem->childCount(), 1);
    announceRoot();
    setData(indexIfListed(node), listId, Qt::EditRole);
    if (isFixedList)
        setData(indexIfListed(node), false, LXColorLibraryItem::ListFlagRole);
    const QModelIndex list = indexIfListed(node);
    if (list.isValid())
        Q_EMIT dataChanged(rootIndex(), list);
    return indexIfListed(node);
}

void LXColorLibrary::createColorList(QString colorListName, bool isUserList)
{
    {
        const OneSave oneSave(this);
        const QModelIndex list = createNewLibraryIfNecessary(getNewColorListName(colorListName), false);
        setData(list, isUserList, LXColorLibraryItem::CanBeModifiedRole);
        if (!isUserList || !m_userColorsLoaded)
            return;
        requestSave();
    }
    Q_EMIT listsChanged(getModifiableLists());
}

void LXColorLibrary::clear(const QString& listId)
{
    const QModelIndex list = getIndexOfListId(listId);
    removeRows(0, rowCount(list), list);
}

void LXColorLibrary::eventLibraryChanged(const QString& listId)
{
    if (listNamed(listId))
        Q_EMIT changed(listId);
}

void LXColorLibrary::onColorLibraryListChanged(QString listId) { Q_EMIT changed(listId); }

// ---- Making colours ----

LXColorLibraryItem* LXColorLibrary::addColor(const LXColor& color, const QString& uid, const QString& listId,
                                             const QString& originatingPreset, const QString& vendorID)
{
    const LXColorLibraryItem* node = nodeOf(createNewLibraryIfNecessary(listId, false));
    catchUp(indexIfListed(node));
    const QModelIndex list = indexIfListed(node);
    if (!list.isValid())
        return nullptr;
    LXColorLibraryItem* entry = appendColorRow(list, color, uid, originatingPreset, vendorID);
    if (isUserListIndex(indexIfListed(node)))
        requestSave();
    if (!m_editingMultipleColors)
        announce(node);
    QModelIndex changedList = indexIfListed(node);
    if (changedList.isValid())
        Q_EMIT addedColorToList(changedList);
    return entry;
}

QString LXColorLibrary::createColor(const LXColor& color, QString uid, const QString& listId,
                                    const QString& originatingPreset, const QString& vendorID)
{
    QString newUid = LXColorLibraryItem::uidOrFreshOne(uid);
    addColor(color, newUid, listId, originatingPreset, vendorID);
    return newUid;
}

QString LXColorLibrary::createNamedColor(const LXColor& color, const QString& name, const QString& uid,
                                         const QString& listId, const QString& originatingPreset,
                                         const QString& vendorID)
{
    const OneSave oneSave(this);
    const LXColorLibraryItem* list = listNamed(listId);
    const QString uniqueName = list && !name.isEmpty() ? texts().freeName(name, list) : name;
    QString newUid = LXColorLibraryItem::uidOrFreshOne(uid);
    renameEntry(addColor(color, newUid, listId, originatingPreset, vendorID), uniqueName, true);
    return newUid;
}

QString LXColorLibrary::createColorWithName(const LXColor& color, const QString& name, QString uid,
                                            const QString& listId, const QString& vendorID)
{
    return createNamedColor(color, name, uid, listId, QString(), vendorID);
}

QString LXColorLibrary::createExplicitColor(const LXColor& color, QString key)
{
    if (LXColorLibraryItem* list = nodeOf(createNewLibraryIfNecessary(lxcolor::ExplicitColorsId, true)))
        list->createExplicitColor(color, key);
    return key;
}

void LXColorLibrary::handleInsertColor(QString uid, QString name, QString valueString, QString, QString listId,
                                       QString vendorID)
{
    const LXColor color(valueString);
    if (color.isValid())
        createColorWithName(color, name, uid, listId, vendorID);
    else
        ++m_unreadableColors;
}

// ---- Changing and removing colours ----

bool LXColorLibrary::set(const QString& uid, const LXColor& color)
{
    const OneSave oneSave(this);
    LXColor copy = color; // It may be that of an entry.
    const QVariant value = QVariant::fromValue(static_cast<void*>(&copy));
    bool isSet = false;
    for (const QPointer<LXColorLibraryItem>& entry : firstEntries(uid))
        isSet = setData(indexOf(entry), value, LXColorLibraryItem::ColorRole);
    return isSet;
}

void LXColorLibrary::renameEntry(const LXColorLibraryItem* entry, const QString& newName, bool keepPresetInfo)
{
    if (!indexIfListed(entry).isValid()) // Whoever was told of a new colour may have removed it.
        return;
    const OneSave oneSave(this);
    const QString originatingPreset = entry->orignatingPreset();
    const QString vendorID = entry->vendorID();
    const bool isSaved = isEntryOfUserList(entry);
    setData(indexIfListed(entry), newName, Qt::EditRole);
    if (keepPresetInfo) {
        setData(indexIfListed(entry), originatingPreset, LXColorLibraryItem::OriginatingPresetRole);
        setData(indexIfListed(entry), vendorID, LXColorLibraryItem::VendorIdRole);
    }
    if (!m_editingMultipleColors)
        announce(entry);
    if (isSaved && m_userColorsLoaded && !m_inDestructor)
        requestSave();
}

QString LXColorLibrary::rename(const QString& uid, const QString& newName, bool keepPresetInfo)
{
    const LXColorLibraryItem* entry = nodeOf(getIndexOfUid(uid));
    if (!entry)
        return {};
    renameEntry(entry, newName, keepPresetInfo);
    return newName;
}

void LXColorLibrary::remove(const QString& uid)
{
    const QVector<QPointer<LXColorLibraryItem>> entries = firstEntries(uid);
    if (entries.isEmpty())
        return;
    const OneSave oneSave(this);
    for (const QPointer<LXColorLibraryItem>& entry : entries) {
        if (entry)
            removeRows(entry->row(), 1, indexOf(entry->parent()));
    }
    announceRoot();
}

QVector<QPointer<LXColorLibraryItem>> LXColorLibrary::firstEntries(const QString& uid) const
{
    QVector<QPointer<LXColorLibraryItem>> entries;
    if (!uid.isEmpty()) {
        for (LXColorLibraryItem* entry : texts().firstEntries(SwatchText::Uid, uid, m_rootItem))
            entries.append(entry);
    }
    return entries;
}
