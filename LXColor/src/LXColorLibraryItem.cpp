#include "LXColorLibraryItem.h"

#include "ColorSection_p.h"
#include "LibraryServices_p.h"
#include "NumberedNames_p.h"
#include "OrbisProjectHelper.h"
#include "SwatchIndex_p.h"

#include <QDataStream>
#include <QSet>
#include <QUuid>

#include <algorithm>
#include <iterator>

using lxcolor::SwatchText;

namespace {

/// All nodes that exist. Never destroyed, because nodes may outlive every static object.
QSet<const void*>& livingNodes()
{
    static auto* nodes = new QSet<const void*>;
    return *nodes;
}

} // namespace

/**
 * Children of a node that have left the tree, to be deleted when control returns to the event loop.
 *
 * All of them wait for one event. QObject looks for each in the list of its parent's children, and for one with an
 * event of its own in the list of all events as well, which takes very long when many go.
 */
class LXColorLibraryItem::ReleasedChildren : public QObject
{
public:
    explicit ReleasedChildren(LXColorLibraryItem* parent) : m_parent(parent) { deleteLater(); }
    ~ReleasedChildren() override
    {
        m_parent->m_released = nullptr;
        const QList<LXColorLibraryItem*> nodes = waiting();
        m_parent->bringToFront(nodes);
        for (LXColorLibraryItem* node : nodes) {
            if (isWaiting(node))
                delete node;
        }
    }
    Q_DISABLE_COPY(ReleasedChildren)

    void add(LXColorLibraryItem* node)
    {
        node->m_isReleased = true;
        m_nodes.append(node);
    }
    QList<LXColorLibraryItem*> waiting() const
    {
        QList<LXColorLibraryItem*> nodes;
        std::copy_if(m_nodes.cbegin(), m_nodes.cend(), std::back_inserter(nodes),
                     [this](const LXColorLibraryItem* node) { return isWaiting(node); });
        return nodes;
    }

private:
    // A node may have been deleted meanwhile, or have become another parent's child.
    bool isWaiting(const LXColorLibraryItem* node) const
    {
        return isAlive(node) && node->m_isReleased && node->m_parentItem == m_parent;
    }

    LXColorLibraryItem* m_parent;
    QList<LXColorLibraryItem*> m_nodes;
};

LXColorLibraryItem::LXColorLibraryItem(LXColorLibraryItem* parent)
    : QObject(parent), m_parentItem(parent), m_canBeModified(parent && parent->m_canBeModified)
{
    livingNodes().insert(this);
}

LXColorLibraryItem::~LXColorLibraryItem()
{
    if (m_isListed)
        m_parentItem->takeOut(row(), 1);
    m_index.reset();
    delete m_released;

    // Children must not turn to this node any more. QObject deletes them front to back in one go, except those that
    // were given another QObject parent.
    for (LXColorLibraryItem* child : qAsConst(m_childItems)) {
        child->m_isListed = false;
        if (child->QObject::parent() != this)
            delete child;
    }
    const QObjectList& objects = children();
    for (QObject* object : objects) {
        if (auto* child = qobject_cast<LXColorLibraryItem*>(object))
            child->m_parentItem = nullptr;
    }
    livingNodes().remove(this);
}

bool LXColorLibraryItem::isAlive(const void* node) { return livingNodes().contains(node); }

QString LXColorLibraryItem::placeholderName() { return QStringLiteral("Color"); }

QString LXColorLibraryItem::uidOrFreshOne(const QString& uid)
{
    return uid.isEmpty() ? QUuid::createUuid().toString() : uid;
}

// ---- Tree ----

void LXColorLibraryItem::appendChild(LXColorLibraryItem* item)
{
    if (!item || item == this || isBelow(item) || (item->m_isListed && item->m_parentItem == this))
        return;
    if (item->m_isListed)
        item->m_parentItem->takeOut(item->row(), 1);
    item->setParent(this);
    item->m_parentItem = this;
    item->m_canBeModified = m_canBeModified;
    list({item}, childCount());
}

LXColorLibraryItem* LXColorLibraryItem::child(int row) const { return m_childItems.value(row, nullptr); }

int LXColorLibraryItem::columnCount() const { return m_itemType == ListItem || m_itemType == ColorItem ? 2 : 0; }

int LXColorLibraryItem::row() const
{
    if (!m_parentItem)
        return 0;
    return m_isListed ? m_parentItem->rowOf(this) : -1;
}

void LXColorLibraryItem::insertChildren(int position, int count)
{
    if (count < 1)
        return;
    QList<LXColorLibraryItem*> blanks;
    blanks.reserve(count);
    for (int i = 0; i < count; ++i)
        blanks.append(new LXColorLibraryItem(this));
    list(blanks, qBound(0, position, childCount()));
}

void LXColorLibraryItem::removeChildren(int position, int count)
{
    if (position < 0 || position >= childCount() || count < 1)
        return;
    const QList<LXColorLibraryItem*> removed = takeOut(position, qMin(count, childCount() - position));
    if (!m_released)
        m_released = new ReleasedChildren(this);
    for (LXColorLibraryItem* child : removed)
        m_released->add(child);
}

bool LXColorLibraryItem::isBelow(const LXColorLibraryItem* ancestor) const
{
    const LXColorLibraryItem* node = m_parentItem;
    while (node && node != ancestor)
        node = node->m_parentItem;
    return node;
}

int LXColorLibraryItem::depth() const
{
    int depth = 0;
    for (const LXColorLibraryItem* node = this; node->m_isListed; node = node->m_parentItem)
        ++depth;
    return depth;
}

// A child is often still in the row where it was seen last.
int LXColorLibraryItem::rowOf(const LXColorLibraryItem* child) const
{
    if (m_childItems.value(child->m_seenRow) != child) {
        const auto isBefore = [](const LXColorLibraryItem* node, qint64 order) { return node->m_order < order; };
        const auto place = std::lower_bound(m_childItems.cbegin(), m_childItems.cend(), child->m_order, isBefore);
        child->m_seenRow = static_cast<int>(place - m_childItems.cbegin());
    }
    return child->m_seenRow;
}

// Places new children between their neighbours. When there is no room left, all children get new places.
void LXColorLibraryItem::numberChildren(int position, int count)
{
    constexpr qint64 Gap = qint64(1) << 24;
    constexpr qint64 Bound = qint64(1) << 62;
    const qint64 room = Gap * (qint64(count) + 1);
    const int end = position + count;
    const bool hasNext = end < childCount();
    qint64 before = hasNext ? m_childItems.at(end)->m_order - room : 0;
    if (position > 0)
        before = m_childItems.at(position - 1)->m_order;
    const qint64 after = hasNext ? m_childItems.at(end)->m_order : before + room;

    const qint64 step = (after - before) / (qint64(count) + 1);
    const bool fits = step > 0 && before > -Bound && after < Bound;
    for (int row = fits ? position : 0; row < (fits ? end : childCount()); ++row)
        m_childItems.at(row)->m_order = fits ? before + step * (row - position + 1) : Gap * row;
}

const LXColorLibraryItem* LXColorLibraryItem::top() const
{
    const LXColorLibraryItem* node = this;
    while (node->m_isListed)
        node = node->m_parentItem;
    return node;
}

// The one door through which children come into the tree ...
void LXColorLibraryItem::list(const QList<LXColorLibraryItem*>& children, int position)
{
    if (position == childCount()) {
        m_childItems += children;
    } else if (children.size() == 1) {
        m_childItems.insert(position, children.first());
    } else {
        const QList<LXColorLibraryItem*> behind = m_childItems.mid(position);
        m_childItems.erase(m_childItems.begin() + position, m_childItems.end());
        m_childItems += children;
        m_childItems += behind;
    }
    numberChildren(position, children.size());
    m_hasSilentChanges = true;

    lxcolor::SwatchIndex* index = top()->m_index.get();
    for (LXColorLibraryItem* child : children) {
        child->m_index.reset();
        child->m_isListed = true;
        child->m_isReleased = false;
        child->m_seenRow = position++;
        if (index)
            index->addTree(child);
    }
}

// ... and the one through which they go.
QList<LXColorLibraryItem*> LXColorLibraryItem::takeOut(int position, int count)
{
    const QList<LXColorLibraryItem*> children = m_childItems.mid(position, count);
    if (lxcolor::SwatchIndex* index = top()->m_index.get()) {
        for (LXColorLibraryItem* child : children)
            index->removeTree(child);
    }
    for (LXColorLibraryItem* child : children)
        child->m_isListed = false;
    m_childItems.erase(m_childItems.begin() + position, m_childItems.begin() + position + children.size());
    m_hasSilentChanges = true;
    return children;
}

void LXColorLibraryItem::deleteChildren()
{
    const QList<LXColorLibraryItem*> nodes = takeOut(0, childCount());
    bringToFront(nodes);
    qDeleteAll(nodes);
}

// QObject looks for a child that is deleted from the front of the list of all children. A few may be looked for.
void LXColorLibraryItem::bringToFront(const QList<LXColorLibraryItem*>& nodes)
{
    constexpr int Few = 16;
    if (nodes.size() <= Few)
        return;
    QSet<const QObject*> moved;
    QObjectList ordered;
    for (LXColorLibraryItem* node : nodes) {
        if (node->QObject::parent() == this && !moved.contains(node)) {
            moved.insert(node);
            ordered.append(node);
        }
    }
    auto& objects = const_cast<QObjectList&>(children());
    for (QObject* object : qAsConst(objects)) {
        if (!moved.contains(object))
            ordered.append(object);
    }
    objects.swap(ordered);
}

// ---- Roles ----

QVariant LXColorLibraryItem::data(int role, int column) const
{
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        if (column == 0)
            return m_displayName;
        return column == 1 ? m_vendorID : QVariant();
    case Qt::EditRole:
        return m_displayName;
    case Qt::DecorationRole:
        return column == 0 ? QVariant(getIcon()) : QVariant();
    case ColorRole:
        return QVariant::fromValue(static_cast<void*>(const_cast<LXColor*>(&m_color)));
    case UidRole:
        return m_uid;
    case ExplicitColorRole:
        return m_explicitColorString;
    case OldPresetRole:
        return m_oldPreset;
    case CanBeModifiedRole:
        return m_canBeModified;
    case ItemTypeRole:
        return static_cast<int>(m_itemType);
    case ListFlagRole:
        return static_cast<int>(m_listFlag);
    case OriginatingPresetRole:
        return m_originatingPreset;
    case VendorIdRole:
        return m_vendorID;
    default:
        return {};
    }
}

bool LXColorLibraryItem::setData(const QVariant& value, int role, int)
{
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
    case Qt::ToolTipRole:
        setDisplayName(value.toString());
        return true;
    case ColorRole: {
        const auto* color = static_cast<const LXColor*>(value.value<void*>());
        if (color)
            setLXColor(*color);
        return color;
    }
    case UidRole:
        setUid(value.toString());
        return true;
    case ExplicitColorRole:
        setExplicitColorString(value.toString());
        return true;
    case OldPresetRole:
        setOldPreset(value.toString());
        return true;
    case CanBeModifiedRole:
        setCanBeModified(value.toBool());
        return true;
    case ListFlagRole:
        m_listFlag = value.toBool() ? 1 : 0;
        return true;
    case OriginatingPresetRole:
        setOriginatingPreset(value.toString());
        return true;
    case VendorIdRole:
        setVendorID(value.toString());
        return true;
    default:
        return false;
    }
}

// ---- Values ----

QPixmap LXColorLibraryItem::getIcon() const { return m_icon ? *m_icon : QPixmap(); }

void LXColorLibraryItem::setUid(QString uid)
{
    setText(SwatchText::Uid, m_uid, uid);
    m_itemType = ColorItem;
}

void LXColorLibraryItem::setExplicitColorString(QString key)
{
    setText(SwatchText::ExplicitColor, m_explicitColorString, key);
    m_itemType = ExplicitColorItem;
}

void LXColorLibraryItem::setOldPreset(QString name)
{
    setText(SwatchText::OldPreset, m_oldPreset, name);
    m_itemType = OldPresetItem;
}

void LXColorLibraryItem::setDisplayName(const QString& name)
{
    if (name.isEmpty())
        return;
    setText(SwatchText::Name, m_displayName, name);
    setOriginatingPreset(QString());
    setVendorID(QString());
}

void LXColorLibraryItem::setOriginatingPreset(QString path)
{
    setText(SwatchText::OriginatingPreset, m_originatingPreset, path);
}

void LXColorLibraryItem::setVendorID(QString vendorID) { m_vendorID = vendorID; }

void LXColorLibraryItem::setLXColor(LXColor color)
{
    m_color = std::move(color);
    const auto generateThumbnail = lxcolor::libraryServices().generateThumbnail;
    if (m_itemType == ColorItem && generateThumbnail)
        setIcon(generateThumbnail(m_color));
}

void LXColorLibraryItem::setIcon(QPixmap icon) { m_icon = std::make_unique<QPixmap>(std::move(icon)); }

void LXColorLibraryItem::setCanBeModified(bool canBeModified) { m_canBeModified = canBeModified; }

// ---- Texts and their index ----

lxcolor::SwatchIndex& LXColorLibraryItem::index() const
{
    const LXColorLibraryItem* treeTop = top();
    if (!treeTop->m_index) {
        treeTop->m_index = std::make_unique<lxcolor::SwatchIndex>();
        for (LXColorLibraryItem* child : treeTop->m_childItems)
            treeTop->m_index->addTree(child);
    }
    return *treeTop->m_index;
}

const QString& LXColorLibraryItem::text(SwatchText kind) const
{
    switch (kind) {
    case SwatchText::Key:
        return m_key;
    case SwatchText::Uid:
        return m_uid;
    case SwatchText::ExplicitColor:
        return m_explicitColorString;
    case SwatchText::OldPreset:
        return m_oldPreset;
    case SwatchText::OriginatingPreset:
        return m_originatingPreset;
    case SwatchText::Name:
        break;
    }
    return m_displayName;
}

void LXColorLibraryItem::setText(SwatchText kind, QString& field, const QString& text)
{
    if (field == text)
        return;
    lxcolor::SwatchIndex* index = m_isListed ? top()->m_index.get() : nullptr;
    if (index)
        index->erase(kind, field, this);
    field = text;
    if (index)
        index->insert(kind, field, this);
}

// ---- Colours of a list ----

LXColorLibraryItem* LXColorLibraryItem::childWithUid(const QString& uid) const
{
    return uid.isEmpty() ? nullptr : index().firstChild(SwatchText::Key, uid, this);
}

LXColorLibraryItem* LXColorLibraryItem::childWithExplicitColor(const QString& key) const { return childWithUid(key); }

void LXColorLibraryItem::enter(LXColorLibraryItem* child, const QString& key)
{
    if (LXColorLibraryItem* earlier = childWithUid(key))
        earlier->setText(SwatchText::Key, earlier->m_key, QString());
    child->setText(SwatchText::Key, child->m_key, key);
}

LXColorLibraryItem* LXColorLibraryItem::addColor(const LXColor& color, const QString& uid, const QString& name,
                                                 const QString& originatingPreset, const QString& vendorID)
{
    auto* child = new LXColorLibraryItem(this);
    child->setUid(uid);
    child->setLXColor(color);
    child->setDisplayName(name);
    child->setOriginatingPreset(originatingPreset);
    child->setVendorID(vendorID);
    appendChild(child);
    enter(child, child->m_uid);
    return child;
}

QString LXColorLibraryItem::createColor(const LXColor& color, QString uid, QStringList existingNames,
                                        const QString& originatingPreset, const QString& vendorID)
{
    QString name = placeholderName();
    if (existingNames.contains(name)) {
        const QSet<QString> taken(existingNames.cbegin(), existingNames.cend());
        name = lxcolor::firstFreeName(name, [&](const QString& candidate) { return taken.contains(candidate); });
    }
    return addColor(color, uidOrFreshOne(uid), name, originatingPreset, vendorID)->m_uid;
}

QString LXColorLibraryItem::createExplicitColor(const LXColor& color, QString key)
{
    auto* child = new LXColorLibraryItem(this);
    child->setExplicitColorString(key);
    child->setLXColor(color);
    appendChild(child);
    enter(child, key);
    return key;
}

LXColorLibraryItem* LXColorLibraryItem::put(const QString& uid, const LXColor& color)
{
    LXColorLibraryItem* child = uid.isEmpty() ? nullptr : index().firstChild(SwatchText::Uid, uid, this);
    const bool isNew = !child;
    if (isNew)
        child = new LXColorLibraryItem(this);
    child->setUid(uid);
    child->setLXColor(color);
    if (isNew)
        appendChild(child);
    if (!childWithUid(uid))
        enter(child, uid);
    return child;
}

bool LXColorLibraryItem::set(const QString& uid, const LXColor& color) { return color.isValid() && put(uid, color); }

void LXColorLibraryItem::handleInsertColor(QString uid, QString name, QString valueString,
                                           const QString& originatingPreset, const QString&, const QString& vendorID)
{
    const LXColor color(valueString);
    LXColorLibraryItem* child = nullptr;
    if (color.isValid())
        child = put(uidOrFreshOne(uid), color); // without a uid it would not be saved
    else if (!uid.isEmpty())
        child = index().firstChild(SwatchText::Uid, uid, this);
    if (!child)
        return;
    child->setDisplayName(name);
    child->setOriginatingPreset(originatingPreset);
    child->setVendorID(vendorID);
}

// ---- Drag and drop ----

QStringList LXColorLibraryItem::mimeTypes()
{
    if (m_uid.isEmpty() && m_explicitColorString.isEmpty() && m_oldPreset.isEmpty())
        return {};
    return {LXCOLOR_MIME_TYPE};
}

bool LXColorLibraryItem::mimeData(const QString& format, QDataStream& stream)
{
    if (format != LXCOLOR_MIME_TYPE)
        return false;
    stream << m_uid.toLatin1() << m_color.aName().toLatin1();
    return true;
}

// ---- Project documents ----

QDomElement LXColorLibraryItem::createElement(QDomDocument& document, bool& ok, QString applicationId,
                                              bool isUserLibrary)
{
    if (applicationId != ORBIS_APPLICATION_ID)
        return {};

    QStringList uids, names, values, originatingPresets, vendorIDs;
    for (const LXColorLibraryItem* child : qAsConst(m_childItems)) {
        if (child->m_uid.isEmpty())
            continue;
        uids << child->m_uid;
        names << child->m_displayName;
        values << child->m_color.aName();
        originatingPresets << child->m_originatingPreset;
        vendorIDs << child->m_vendorID;
    }
    OrbisProjectHelper helper;
    QDomElement element = helper.createElement(document, ok, uids, names, values, originatingPresets, vendorIDs);
    lxcolor::setListAttributes(element, m_displayName, isUserLibrary);
    ok = true;
    return element;
}

bool LXColorLibraryItem::loadDocument(QDomDocument& document, QString& error, double version, QString applicationId)
{
    if (applicationId != ORBIS_APPLICATION_ID)
        return true;

    deleteChildren();
    const bool wereBlocked = blockSignals(true);
    OrbisProjectHelper helper;
    connect(&helper, &OrbisProjectHelper::insertColor, this, &LXColorLibraryItem::handleInsertColor);
    QStringList oldPresets;
    if (helper.loadDocument(document, error, version, oldPresets)) {
        for (const QString& name : qAsConst(oldPresets)) {
            auto* marker = new LXColorLibraryItem(this);
            marker->setOldPreset(name);
            appendChild(marker);
        }
    }
    blockSignals(wereBlocked);
    return true;
}
