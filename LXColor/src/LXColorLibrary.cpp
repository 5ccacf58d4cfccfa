#include "LXColorLibrary.h"

#include "LXColorLibrary_p.h"
#include "LibraryServices_p.h"
#include "SwatchIndex_p.h"

#include <limits>

using lxcolor::SwatchText;

// ---- The library of the process ----

LXColorLibrary* LXColorLibrary::m_instance = nullptr;

LXColorLibrary* LXColorLibrary::Instance()
{
    if (!m_instance) {
        m_instance = new LXColorLibrary;
        lxcolor::libraryServices().newColorListName = [](const QString& name) {
            return m_instance->getNewColorListName(name);
        };
    }
    return m_instance;
}

void LXColorLibrary::cleanup()
{
    delete m_instance;
    m_instance = nullptr;
}

LXColorLibrary::LXColorLibrary() : m_rootItem(new LXColorLibraryItem(nullptr)), m_defaultColor(Qt::magenta) {}

LXColorLibrary::~LXColorLibrary()
{
    m_inDestructor = true;
    if (m_instance == this)
        lxcolor::libraryServices() = {};
    LXColorLibrary::removeRows(0, m_rootItem->childCount(), rootIndex());
    announceRoot();

    beginResetModel();
    delete m_rootItem;
    // For whoever looks around once more. NOLINTNEXTLINE(bugprone-unhandled-exception-at-new)
    m_rootItem = new LXColorLibraryItem(nullptr);
    endResetModel();
    delete m_rootItem;
    if (m_instance == this)
        m_instance = nullptr;
}

void LXColorLibrary::init(bool withProjectSwatches, bool supportsNChannel, bool supportsOpacity)
{
    createNewLibraryIfNecessary(lxcolor::ExplicitColorsId, true);
    if (withProjectSwatches)
        setData(createNewLibraryIfNecessary(lxcolor::ProjectSwatchesId, false), true,
                LXColorLibraryItem::CanBeModifiedRole);
    m_supportsNChannel = supportsNChannel;
    m_supportsOpacity = supportsOpacity;
}

void LXColorLibrary::setThumbnailGenerator(QPixmap (*generator)(const LXColor&))
{
    m_thumbnailGenerator = generator;
    if (m_instance == this)
        lxcolor::libraryServices().generateThumbnail = generator;
}

QPixmap LXColorLibrary::generatePixmap(const LXColor& color) const
{
    return m_thumbnailGenerator ? m_thumbnailGenerator(color) : QPixmap();
}

void LXColorLibrary::setEditingMultipleColors(bool on)
{
    m_editingMultipleColors = on;
    if (!m_saveDeferred)
        return;
    m_saveDeferred = false;
    saveUserColors();
}

void LXColorLibrary::requestSave()
{
    if (m_editingMultipleColors)
        m_saveDeferred = true;
    else if (m_openCalls > 0)
        m_saveAtEndOfCall = true;
    else
        saveUserColors();
}

// ---- Nodes and their indexes ----

LXColorLibraryItem* LXColorLibrary::nodeOf(const QModelIndex& index) const
{
    if (!index.isValid() || index.model() != this || !LXColorLibraryItem::isAlive(index.internalPointer()))
        return nullptr;
    return static_cast<LXColorLibraryItem*>(index.internalPointer());
}

QModelIndex LXColorLibrary::indexOf(const LXColorLibraryItem* node) const
{
    return node ? createIndex(node->row(), 0, const_cast<LXColorLibraryItem*>(node)) : QModelIndex();
}

// Whoever is told of a change may make others. A node that was in hand before may be in another row now, wait to be
// deleted, or be gone.
LXColorLibraryItem* LXColorLibrary::listedNodeOf(const QModelIndex& index) const
{
    LXColorLibraryItem* node = nodeOf(index);
    return node && node->top() == m_rootItem ? node : nullptr;
}

QModelIndex LXColorLibrary::indexIfListed(const LXColorLibraryItem* node, int column) const
{
    const bool isListed = LXColorLibraryItem::isAlive(node) && node->top() == m_rootItem;
    return isListed ? createIndex(node->row(), column, const_cast<LXColorLibraryItem*>(node)) : QModelIndex();
}

QModelIndex LXColorLibrary::rootIndex() const { return indexOf(m_rootItem); }

bool LXColorLibrary::isUserList(const LXColorLibraryItem* node) const
{
    return node && node->parent() == m_rootItem && node->canBeModified() &&
           node->displayName() != lxcolor::ProjectSwatchesId;
}

bool LXColorLibrary::isEntryOfUserList(const LXColorLibraryItem* node) const { return isUserList(node->parent()); }

// ---- Item model: structure ----

QModelIndex LXColorLibrary::index(int row, int column, const QModelIndex& parent) const
{
    const LXColorLibraryItem* parentNode = nodeOf(parent);
    LXColorLibraryItem* node = parentNode ? parentNode->child(row) : nullptr;
    return node ? createIndex(row, column, node) : QModelIndex();
}

QModelIndex LXColorLibrary::parent(const QModelIndex& index) const
{
    const LXColorLibraryItem* node = nodeOf(index);
    return node ? indexOf(node->parent()) : QModelIndex();
}

int LXColorLibrary::rowCount(const QModelIndex& index) const
{
    const LXColorLibraryItem* node = nodeOf(index);
    return node ? node->childCount() : 0;
}

int LXColorLibrary::columnCount(const QModelIndex& index) const
{
    const LXColorLibraryItem* node = nodeOf(index);
    return node ? node->columnCount() : 0;
}

bool LXColorLibrary::hasChildren(const QModelIndex& index) const { return rowCount(index) != 0; }

LXColorLibraryItem* LXColorLibrary::insertBlankRows(const QModelIndex& parent, int row, int count)
{
    LXColorLibraryItem* node = nodeOf(parent);
    beginInsertRows(parent, row, row + count - 1);
    node->insertChildren(row, count);
    node->m_hasSilentChanges = false;
    LXColorLibraryItem* first = node->child(row);
    endInsertRows();
    return first;
}

LXColorLibraryItem* LXColorLibrary::appendColorRow(const QModelIndex& list, const LXColor& color, const QString& uid,
                                                   const QString& originatingPreset, const QString& vendorID)
{
    LXColorLibraryItem* node = nodeOf(list);
    const QString placeholder = texts().freeName(LXColorLibraryItem::placeholderName(), node);
    const int row = node->childCount();
    beginInsertRows(list, row, row);
    LXColorLibraryItem* entry = node->addColor(color, uid, placeholder, originatingPreset, vendorID);
    node->m_hasSilentChanges = false;
    endInsertRows();
    return entry;
}

void LXColorLibrary::takeOutRows(const QModelIndex& parent, int row, int count)
{
    LXColorLibraryItem* node = nodeOf(parent);
    beginRemoveRows(parent, row, row + count - 1);
    node->removeChildren(row, count);
    node->m_hasSilentChanges = false;
    endRemoveRows();
}

// Proxy models keep a table of the rows. They would write beyond its end if rows came or went of which they do not
// know.
void LXColorLibrary::catchUp(const QModelIndex& parent)
{
    LXColorLibraryItem* node = listedNodeOf(parent);
    if (!node || !node->m_hasSilentChanges)
        return;
    node->m_hasSilentChanges = false;
    Q_EMIT layoutAboutToBeChanged();
    Q_EMIT layoutChanged();
}

bool LXColorLibrary::insertRows(int row, int count, const QModelIndex& parent)
{
    catchUp(parent);
    const LXColorLibraryItem* node = listedNodeOf(parent);
    if (!node || row < 0 || row > node->childCount() || count < 1 ||
        count > std::numeric_limits<int>::max() - node->childCount())
        return false;
    insertBlankRows(indexOf(node), row, count);
    announce(node);
    return false;
}

bool LXColorLibrary::removeRows(int row, int count, const QModelIndex& parent)
{
    catchUp(parent);
    const LXColorLibraryItem* node = listedNodeOf(parent);
    if (!node || row < 0 || count < 1 || count > node->childCount() - row)
        return false;
    const bool userColorsGo = !m_inDestructor && isUserList(node);
    const bool userListsGo = !m_inDestructor && isUserList(node->child(row));

    takeOutRows(indexOf(node), row, count);
    announce(node);
    if (userListsGo)
        Q_EMIT listsChanged(getModifiableLists());
    if (userColorsGo || userListsGo)
        requestSave();
    return false;
}

void LXColorLibrary::announce(const LXColorLibraryItem* node, int column)
{
    const QModelIndex index = indexIfListed(node, column);
    if (index.isValid())
        Q_EMIT dataChanged(index, index);
}

void LXColorLibrary::announceRoot() { announce(m_rootItem); }

// ---- Item model: values ----

QVariant LXColorLibrary::data(const QModelIndex& index, int role) const
{
    const LXColorLibraryItem* node = nodeOf(index);
    return node ? node->data(role, index.column()) : QVariant();
}

bool LXColorLibrary::setData(const QModelIndex& index, const QVariant& value, int role)
{
    LXColorLibraryItem* node = listedNodeOf(index);
    if (!node)
        return false;
    const QString newName = role == Qt::DisplayRole || role == Qt::EditRole ? value.toString() : QString();
    if (!newName.isEmpty()) {
        if (node->parent() && texts().firstChild(SwatchText::Name, newName, node->parent()))
            return false;
        if (isUserList(node) && newName == lxcolor::ProjectSwatchesId)
            return false;
        if (isUserList(node))
            Q_EMIT listRenamed(node->displayName(), newName);
        if (listedNodeOf(index) != node)
            return false;
    }

    const bool isDone = node->setData(value, role, 0);
    const bool isSaved = isUserList(node) || isEntryOfUserList(node);
    if (!m_editingMultipleColors)
        announce(node, index.column());
    if (isSaved && m_userColorsLoaded && !m_inDestructor)
        requestSave();
    return isDone;
}

QVariant LXColorLibrary::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return {};
    return section == 0 ? tr("Swatches") : tr("Color ID");
}

Qt::ItemFlags LXColorLibrary::flags(const QModelIndex& index) const
{
    const LXColorLibraryItem* node = nodeOf(index);
    if (!node)
        return Qt::ItemIsEnabled;

    const LXColor& color = node->m_color;
    const bool isUsable =
        (m_supportsNChannel || color.spec() != LXColor::NChannel) && (m_supportsOpacity || !(color.alphaF() < 1.0));
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsDropEnabled;
    if (isUsable)
        flags |= Qt::ItemIsSelectable;
    if (node->childCount() == 0)
        flags |= Qt::ItemIsDragEnabled;
    if (index.column() == 0 && node->canBeModified() && node->displayName() != lxcolor::ProjectSwatchesId)
        flags |= Qt::ItemIsEditable;
    return flags;
}
