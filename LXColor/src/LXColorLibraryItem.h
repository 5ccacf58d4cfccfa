#ifndef LXCOLORLIBRARYITEM_H
#define LXCOLORLIBRARYITEM_H

#include "LXColor.h"
#include "LXColorExport.h"

#include <QDomDocument>
#include <QList>
#include <QObject>
#include <QPixmap>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <memory>

class QDataStream;

namespace lxcolor {
enum class SwatchText;
class SwatchIndex;
struct TreeOrder;
} // namespace lxcolor

/**
 * A node of the swatch library: its root, a colour list, or an entry of a list (a named colour, an explicit colour that
 * is known by its value, or the marker of an old preset).
 *
 * A node owns its children. Those that leave the tree through removeChildren() live until control returns to the event
 * loop. An application reads nodes through the model (LXColorLibrary) and changes them through it as well, because the
 * operations here tell no view. Look-ups are by text and do not depend on the number of nodes.
 */
class LXCOLOR_EXPORT LXColorLibraryItem : public QObject
{
    Q_OBJECT

public:
    /// The kind of a node; a consequence of the last of setUid(), setExplicitColorString() and setOldPreset().
    enum ItemType : qint32 {
        ListItem = 0,          ///< The root, a list or a blank node.
        ColorItem = 1,         ///< A colour with a uid.
        ExplicitColorItem = 2, ///< A colour that is known by its value.
        OldPresetItem = 3      ///< A marker that an old project referred to a preset of that name.
    };

    /// What data() gives and setData() takes besides Qt's own roles.
    enum Role : int {
        ColorRole = Qt::UserRole + 1,         ///< A void* to the node's LXColor; setting copies the colour pointed to.
        UidRole = Qt::UserRole + 2,           ///< QString; setting makes the node a ColorItem.
        ExplicitColorRole = Qt::UserRole + 3, ///< QString; setting makes the node an ExplicitColorItem.
        OldPresetRole = Qt::UserRole + 4,     ///< QString; setting makes the node an OldPresetItem.
        CanBeModifiedRole = Qt::UserRole + 5, ///< bool: whether the user may edit the node.
        ItemTypeRole = Qt::UserRole + 6,      ///< int, an ItemType; cannot be set.
        ListFlagRole = Qt::UserRole + 7,      ///< int, 0 or 1; set as a bool. 0 marks the list of explicit colours.
        OriginatingPresetRole = Qt::UserRole + 8, ///< QString, "list/name" of what a colour was copied from.
        VendorIdRole = Qt::UserRole + 9           ///< QString, the vendor's own name of a colour.
    };

    /// A blank node of type ListItem that may be edited if \a parent may. It is no child of \a parent until appended.
    explicit LXColorLibraryItem(LXColorLibraryItem* parent);
    /// Deletes the children.
    ~LXColorLibraryItem() override;

    /// The value for \a role in \a column (0 the name, 1 the vendor id); invalid for anything else.
    virtual QVariant data(int role, int column) const;
    /**
     * Sets the value of \a role; \a column plays no part. False for a role that cannot be set, and for a ColorRole
     * without a colour. The name roles set the display name and say true also for an empty text, which changes nothing.
     */
    virtual bool setData(const QVariant& value, int role, int column);
    /// The formats of mimeData(): one for a node with a uid, an explicit colour or an old preset, none for others.
    virtual QStringList mimeTypes();
    /// Writes uid and value string as two Latin-1 byte arrays (other characters become "?"). False for any other format
    /// than LXCOLOR_MIME_TYPE.
    virtual bool mimeData(const QString& format, QDataStream& stream);

    // ---- Tree ----

    /**
     * Makes \a item the last child, and editable if this node is. It belongs to this node from now on: it is taken out
     * of the list of another parent. Null, a child that is here already and an ancestor are ignored.
     */
    void appendChild(LXColorLibraryItem* item);
    /// The child at \a row; null outside 0..childCount() - 1.
    LXColorLibraryItem* child(int row) const;
    /// The number of children.
    int childCount() const { return m_childItems.size(); }
    /// 2 for lists and colours, 0 for the other kinds.
    int columnCount() const;
    /// The position among the parent's children; 0 without a parent, -1 when the parent does not list this node.
    int row() const;
    /// Null for the root; not owned.
    LXColorLibraryItem* parent() const { return m_parentItem; }
    /// Adds \a count blank children before the one at \a position, which is brought into 0..childCount(). Nothing
    /// happens for a \a count below 1.
    void insertChildren(int position, int count);
    /// Takes out up to \a count children from \a position on and deletes them when control returns to the event loop. A
    /// position outside 0..childCount() - 1 removes nothing.
    void removeChildren(int position, int count);

    // ---- Values ----

    /// The uid of a colour, in braces when the library made it; empty for other nodes.
    QString getUid() const { return m_uid; }
    /// The key of an explicit colour, a value string.
    QString getExplicitColorString() const { return m_explicitColorString; }
    /// The name that an old-preset marker stands for.
    QString getOldPreset() const { return m_oldPreset; }
    /// The id of a list, the name of a colour.
    QString displayName() const { return m_displayName; }
    /// Where a colour was copied from, "list/name"; empty when it was not, or was renamed since.
    QString orignatingPreset() const { return m_originatingPreset; }
    /// The vendor's own name of the colour, shown in column 1.
    QString vendorID() const { return m_vendorID; }
    /// A copy of the colour; invalid for a list.
    LXColor getLXColor() const { return m_color; }
    /// The thumbnail; a null pixmap when there is none.
    QPixmap getIcon() const;
    /// Whether the user may edit the node.
    bool canBeModified() const { return m_canBeModified; }

    /// Makes the node a ColorItem.
    void setUid(QString uid);
    /// Makes the node an ExplicitColorItem.
    void setExplicitColorString(QString key);
    /// Makes the node an OldPresetItem.
    void setOldPreset(QString name);
    /// Also clears originating preset and vendor id. An empty \a name is ignored.
    void setDisplayName(const QString& name);
    /// "list/name" of what the colour was copied from.
    void setOriginatingPreset(QString path);
    /// The vendor's own name of the colour.
    void setVendorID(QString vendorID);
    /// Also renews the thumbnail of a ColorItem when the library can make one.
    void setLXColor(LXColor color);
    /// The thumbnail, until the next setLXColor() renews it.
    void setIcon(QPixmap icon);
    /// Does not reach children that are there already.
    void setCanBeModified(bool canBeModified);

    // ---- Colours of a list ----

    /// The child that createColor(), createExplicitColor() or set() entered under that uid or key, the last if there
    /// were several; null when there is none. Uids and keys that were set later do not count, nor does an empty text.
    ///@{
    LXColorLibraryItem* childWithUid(const QString& uid) const;
    LXColorLibraryItem* childWithExplicitColor(const QString& key) const;
    ///@}
    /**
     * Appends a colour named "Color", or with the first number from 2 on that makes the name new to \a existingNames.
     * \return its uid: \a uid, or a fresh one in braces when that is empty.
     */
    QString createColor(const LXColor& color, QString uid, QStringList existingNames, const QString& originatingPreset,
                        const QString& vendorID);
    /// Appends an explicit colour. \return \a key.
    QString createExplicitColor(const LXColor& color, QString key);
    /**
     * Gives the first child with that uid the colour, or appends a nameless child. An empty \a uid is no child's.
     * False, and nothing happens, for an invalid colour.
     */
    bool set(const QString& uid, const LXColor& color);

    // ---- Project documents ----

    /// The list as a "ColorLibrary" element, which the caller appends. A null element, and \a ok as it was, unless
    /// \a applicationId is ORBIS_APPLICATION_ID. Characters that XML cannot hold are written as U+FFFD.
    QDomElement createElement(QDomDocument& document, bool& ok, QString applicationId, bool isUserLibrary);
    /**
     * Replaces the children by the colours of all "ColorLibrary" elements of \a document, which is of format \a
     * version. Always true; nothing happens unless \a applicationId is ORBIS_APPLICATION_ID. \a error tells of the last
     * list without colours.
     */
    bool loadDocument(QDomDocument& document, QString& error, double version, QString applicationId);

public Q_SLOTS:
    /**
     * set() with the colour of \a valueString, after which the first child with that uid takes the name (unless it is
     * empty), the originating preset and the vendor id as they are. A value that is no colour adds nothing; a colour
     * without a uid gets a fresh one.
     */
    void handleInsertColor(QString uid, QString name, QString valueString, const QString& originatingPreset,
                           const QString& listId, const QString& vendorID);

private:
    class ReleasedChildren;
    friend class LXColorLibrary;
    friend class lxcolor::SwatchIndex;
    friend struct lxcolor::TreeOrder;

    /// Whether \a node points to a node, of whatever tree.
    static bool isAlive(const void* node);
    static QString placeholderName();
    static QString uidOrFreshOne(const QString& uid);

    bool isBelow(const LXColorLibraryItem* ancestor) const;
    int depth() const;
    int rowOf(const LXColorLibraryItem* child) const;
    void numberChildren(int position, int count);
    const LXColorLibraryItem* top() const;
    lxcolor::SwatchIndex& index() const;
    const QString& text(lxcolor::SwatchText kind) const;
    void setText(lxcolor::SwatchText kind, QString& field, const QString& text);

    void list(const QList<LXColorLibraryItem*>& children, int position);
    QList<LXColorLibraryItem*> takeOut(int position, int count);
    void deleteChildren();
    void bringToFront(const QList<LXColorLibraryItem*>& nodes);

    /// These two make a child and append it, complete.
    LXColorLibraryItem* addColor(const LXColor& color, const QString& uid, const QString& name,
                                 const QString& originatingPreset, const QString& vendorID);
    LXColorLibraryItem* put(const QString& uid, const LXColor& color);
    void enter(LXColorLibraryItem* child, const QString& key);

    QList<LXColorLibraryItem*> m_childItems;
    /// The texts of all nodes below, kept by the top of a tree from the first look-up on.
    mutable std::unique_ptr<lxcolor::SwatchIndex> m_index;
    LXColorLibraryItem* m_parentItem;
    ReleasedChildren* m_released = nullptr; ///< Those that wait to be deleted; deletes itself.
    bool m_isListed = false;                ///< Whether the parent counts this node among its children.
    bool m_isReleased = false;              ///< Whether this node waits to be deleted.
    bool m_hasSilentChanges = false;        ///< Whether children came or went that no view was told of.
    mutable int m_seenRow = -1;             ///< Where this node was found last.
    qint64 m_order = 0;                     ///< Grows along the children of a parent.
    QString m_key;                          ///< What this node was entered under; empty when it was not.
    QString m_displayName;
    QString m_oldPreset;
    LXColor m_color;
    QString m_uid;
    QString m_explicitColorString;
    std::unique_ptr<QPixmap> m_icon;
    QString m_vendorID;
    ItemType m_itemType = ListItem;
    qint32 m_listFlag = 1;
    bool m_canBeModified = false;
    QString m_originatingPreset;
};

#endif
