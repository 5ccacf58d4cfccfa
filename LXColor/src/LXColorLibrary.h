#ifndef LXCOLORLIBRARY_H
#define LXCOLORLIBRARY_H

#include "LXColor.h"
#include "LXColorExport.h"
#include "LXColorLibraryItem.h"

#include <QAbstractItemModel>
#include <QByteArray>
#include <QDomDocument>
#include <QModelIndex>
#include <QPixmap>
#include <QPointer>
#include <QString>
#include <QStringList>

class QMimeData;

namespace lxcolor {
struct FileContent;
} // namespace lxcolor

/// The format of the display names in a drag from the library.
inline constexpr char kLXCOLOR_NAME_MIME_TYPE[] = "data/x-lxcolor-name";
/// The format of the vendor ids.
inline constexpr char kLXCOLOR_VENDOR_ID_MIME_TYPE[] = "data/x-lxcolor-vendorid";

/**
 * The swatch library: named lists of colours as one item model, and the operations by which an application finds,
 * creates, changes, saves and drags them.
 *
 * Below the root lie the lists, and in the lists their entries; the name of a list is its id. "Explicit Colors" holds
 * colours that are referred to by their value and is never edited. "Project Swatches" holds the colours of the open
 * project. *User lists* are all other lists that may be edited; they are saved whenever one of them changes, once the
 * default user colour file has been loaded. *Preset lists* are the read-only rest.
 *
 * The root has an index of its own, rootIndex(), which views take as their root; the invalid index stands for nothing.
 * Internal pointers of indexes are the nodes (LXColorLibraryItem). An index whose node is gone counts as invalid.
 *
 * Start-up: Instance(), init(), loadPresetFiles(), loadUserColors(QString()). Shut-down: cleanup(). To be used on the
 * GUI thread alone. Adding explicit colours and loading a project tell views nothing; the application has them look
 * again, or layoutChanged() does before the next announced change of that list.
 */
class LXCOLOR_EXPORT LXColorLibrary : public QAbstractItemModel
{
    Q_OBJECT

public:
    /// What getName() gives for a reference without a name in the library; other numbers stand for the empty text.
    enum ColorDescriptor : qint32 {
        DescriptorReference = 1, ///< The reference itself.
        DescriptorValueName = 2  ///< The hexadecimal name of its colour, or the 8-bit levels of an N-channel colour.
    };

    // ---- The library of the process ----

    /// Made on first use, without any list.
    static LXColorLibrary* Instance();
    /// Deletes the instance, without saving; the next Instance() makes another.
    static void cleanup();

    /// An empty library. Applications share Instance(): thumbnails and the names of loaded lists are those of that one.
    LXColorLibrary();
    /// Takes all lists out, with the signals of removeRows(), and saves nothing.
    ~LXColorLibrary() override;

    /// Makes "Explicit Colors" and, if wanted, "Project Swatches", and stores what the application can use.
    void init(bool withProjectSwatches, bool supportsNChannel, bool supportsOpacity);
    /// Whether the application can use N-channel and translucent colours; true at first. Others are shown, but cannot
    /// be selected.
    ///@{
    void setSupportsNChannel(bool supported) { m_supportsNChannel = supported; }
    void setSupportsOpacity(bool supported) { m_supportsOpacity = supported; }
    bool supportsNChannel() const { return m_supportsNChannel; }
    bool supportsOpacity() const { return m_supportsOpacity; }
    ///@}
    /// What makes the thumbnails of colours from now on; null for none.
    void setThumbnailGenerator(QPixmap (*generator)(const LXColor&));
    /// Whether there is a generator.
    bool canGeneratePixmap() const { return m_thumbnailGenerator; }
    /// The thumbnail of \a color; a null pixmap without a generator.
    QPixmap generatePixmap(const LXColor& color) const;
    /// Brackets many edits: in between nothing is saved, and no dataChanged() follows a single edit. A save that was
    /// asked for meanwhile happens now, whatever \a on is.
    void setEditingMultipleColors(bool on);
    /// A mark that the application sets for itself; the library does not use it.
    ///@{
    bool containsDefaults() const { return m_containsDefaults; }
    void setContainsDefaults() { m_containsDefaults = true; }
    ///@}

    // ---- Item model ----

    /// The index of the root: row 0, column 0.
    QModelIndex rootIndex() const;
    /// The child of \a parent in \a row; \a column is not checked.
    QModelIndex index(int row, int column, const QModelIndex& parent = QModelIndex()) const override;
    /// rootIndex() for a list; invalid for the root and for a node that is gone.
    QModelIndex parent(const QModelIndex& index) const override;
    using QObject::parent;
    /// The number of children, 0 for an invalid index.
    int rowCount(const QModelIndex& index = QModelIndex()) const override;
    /// 2 for lists and colours, else 0.
    int columnCount(const QModelIndex& index = QModelIndex()) const override;
    /// Whether rowCount() is not 0.
    bool hasChildren(const QModelIndex& index = QModelIndex()) const override;
    /// LXColorLibraryItem::data() of the node; an invalid value for an invalid index.
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    /**
     * Sets a value of a node, whatever its column. A name that an entry of the same list bears already (that entry
     * itself included) is refused, as is that of another list for a list, and "Project Swatches" for a user list, which
     * would no longer be saved.
     */
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    /// "Swatches" and "Color ID" as the horizontal headers.
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    /// None: what can be dragged is told by the nodes.
    QStringList mimeTypes() const override;
    /**
     * The colours of \a indexes as a drag, which the caller owns: for each row once its uid and value string, name,
     * originating preset and vendor id, each a text of its own with entries joined by ",". The texts are Latin-1 (other
     * characters become "?"), and a "," inside a name cannot be told from the joint: names are for display, uids count.
     */
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    /// Adds blank nodes before \a row, 0..rowCount(parent). False in every case.
    bool insertRows(int row, int count, const QModelIndex& parent = QModelIndex()) override;
    /// Removes rows that are all there, or else none. False in every case.
    bool removeRows(int row, int count, const QModelIndex& parent = QModelIndex()) override;
    /**
     * Enabled and a place to drop, in any case but an invalid index, which is enabled alone. Selectable if the
     * application can use the colour, draggable without children, and in column 0 editable if the node may be modified
     * and is not "Project Swatches".
     */
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    // ---- Look-ups. What is looked for in vain gives an invalid index, an empty text or list. An empty uid, key or
    // name
    //      is found nowhere. ----

    /// Whether \a index is that of a list, in whatever column.
    bool isListIndex(const QModelIndex& index) const;
    /// Whether \a index is that of a list with the flag Qt::ItemIsEditable.
    bool isUserListIndex(const QModelIndex& index) const;
    /// The first list of that name; an empty \a listId stands for a list without a name.
    QModelIndex getIndexOfListId(const QString& listId) const;
    /// The first entry with that text, in the order of the lists.
    ///@{
    QModelIndex getIndexOfUid(const QString& uid) const;
    QModelIndex getIndexOfExplicitColor(const QString& key) const;
    QModelIndex getIndexOfOldPreset(const QString& name) const;
    QModelIndex getIndexOfOriginatingPreset(const QString& path) const;
    ///@}
    /// The first entry of that name in the list \a parent, or in all lists when that is rootIndex().
    QModelIndex getIndexOfName(const QString& name, const QModelIndex& parent) const;
    /// Whether some list, or the list of that name, has an entry of that name.
    ///@{
    bool nameExists(const QString& name) const;
    bool nameExists(const QString& name, const QString& listId) const;
    ///@}
    /// Whether an entry has that uid.
    bool containsUid(const QString& uid) const;
    /// The names of the lists that may be edited, "Project Swatches" included.
    QStringList getModifiableLists() const;
    /// The colours of a list that have a uid, owned by the library.
    QList<LXColor*> getColors(const QString& listId) const;
    /// The uids of a list by which get() gives a valid colour. The library stays as it is.
    QStringList getColorUids(const QString& listId) const;

    // ---- Colours ----

    /**
     * The colour of a reference: a uid, a value string, or a uid followed by a value string, which counts when the uid
     * is unknown. A mere value becomes an explicit colour. Without uid and value, and for an unknown uid alone,
     * magenta.
     */
    LXColor get(const QString& uidOrValue);
    /// The colour of get() as 8-bit RGB, moved into the gamut.
    QColor getQColor(const QString& uidOrValue);
    /// Sets the colour of the first entry with that uid in each list. False when there is none.
    bool set(const QString& uid, const LXColor& color);
    /// Adds a colour under a placeholder name; makes the list (read-only) when it is missing. \return the uid: \a uid,
    /// or a fresh one when that is empty.
    QString createColor(const LXColor& color, QString uid, const QString& listId, const QString& originatingPreset,
                        const QString& vendorID);
    /// Adds a colour under that name, with the first number from 2 on that makes it new to the list.
    QString createColorWithName(const LXColor& color, const QString& name, QString uid, const QString& listId,
                                const QString& vendorID);
    /// Adds an explicit colour, without telling views. \return \a key.
    QString createExplicitColor(const LXColor& color, QString key);
    /**
     * Gives the first entry with that uid another name, unless its list has that name already. Originating preset and
     * vendor id are lost unless \a keepPresetInfo. \return \a newName, also when it was refused; empty for an unknown
     * uid.
     */
    QString rename(const QString& uid, const QString& newName, bool keepPresetInfo);
    /// Removes the first entry with that uid from each list.
    void remove(const QString& uid);
    /// Removes all entries of a list.
    void clear(const QString& listId);
    /// The value string of \a color.
    QString color2Text(const LXColor& color) const;
    /// Emits changed() if there is such a list.
    void eventLibraryChanged(const QString& listId);
    /// The list of that name; a missing one is made, read-only. A fixed list is marked by its list flag. Invalid when
    /// who was told of the new list has removed it.
    QModelIndex createNewLibraryIfNecessary(const QString& listId, bool isFixedList);

    // ---- References and names ----

    /// \a s up to its first "}"; empty without one.
    static QString UidAndValueToUid(const QString& s);
    /// \a s behind its first "}"; the whole of it without one, or when it begins with one.
    static QString UidAndValueToValue(const QString& s);
    /// "list/name" of the entry with that uid.
    QString pathOfUid(QString uid) const;
    /// The name of the entry, or the key of the explicit colour, that \a reference means; else what \a d asks for.
    QString getName(const QString& reference, ColorDescriptor d) const;
    /// What \a d asks for: \a reference itself, or the name of the colour of its value part.
    QString getAlternativeColorDescriptor(QString reference, ColorDescriptor d) const;
    /// The uid by which others may refer to the colour: for one of "Project Swatches" that of the colour it was copied
    /// from, or of a new copy that remembers it; for any other the uid itself.
    QString getExposableUidFromUid(QString uid);
    /// Copies a colour into a list, under its name or the first numbered form that is free. \return the uid of the
    /// copy, whose originating preset is the path of the colour; empty for an unknown uid.
    QString createNewSwatchUidFromUid(const QString& uid, const QString& listId);
    /// \a name, or the first of "name 2", "name 3", ... that no list bears.
    QString getNewColorListName(const QString& name) const;

    // ---- Drag and drop ----

    /// The first originating preset of a drag that the application has marked with "x-orbis/color", else empty.
    static QString getOriginatingPresetFromMimeData(const QMimeData* data);
    /// The colours of \a indexes that have a uid as a document with one user list. They carry no uid, so that each
    /// loader gives them fresh ones.
    QDomDocument createColorDoc(const QModelIndexList& indexes, const QString& name);

    // ---- Files ----

    /**
     * The platform's per-user application-support folder (on Linux "LXColor" in the user's data folder), made when it
     * is missing, followed by "\Norvale": the backslash is a character of the name. Only "\Norvale" when there is none.
     */
    static QString applicationSupportDir();
    /**
     * Writes the user lists to applicationSupportDir() + "\userColors.xml" in UTF-8, once the default user colour file
     * has been loaded. The file is replaced in one step; until then, and when anything fails, the earlier one stays.
     * What loadUserColors() could not take over whole, and what another process has saved since, is kept beside it
     * first, with ".kept" behind its name.
     */
    void saveUserColors();
    /**
     * Loads the lists of a user colour file; an empty \a path stands for the default one, with which saving begins.
     * A malformed file gives no list, and a colour whose value cannot be read no entry.
     */
    void loadUserColors(const QString& path);
    /// Loads all "*.lxcolors" of "../Resources/Presets" beside the folder of the application.
    void loadPresetFiles();
    /// The names of the old-preset markers that a project has left.
    QStringList oldPresets() const;
    /// Removes those markers.
    void clearOldPresets();

    // ---- Project documents: the list "Project Swatches" as an element ----

    /// A null element, and \a ok as it was, for another \a applicationId than ORBIS_APPLICATION_ID or without the list.
    QDomElement createElement(QDomDocument& document, bool& ok, QString applicationId);
    /// Replaces the project's colours, see LXColorLibraryItem::loadDocument(), without telling views. False without the
    /// list.
    bool loadDocument(QDomDocument& document, QString& error, double version, QString applicationId);

Q_SIGNALS:
    /// The application has said that a list changed.
    void changed(QString listId);
    /// A colour was added; \a listId is the index of the list. For direct connections only: what it refers to is gone
    /// afterwards.
    void addedColorToList(QModelIndex& listId);
    /// User lists came or went; \a currentLists is getModifiableLists().
    void listsChanged(QStringList currentLists);
    /// A user list is about to be renamed.
    void listRenamed(QString oldName, QString newName);

public Q_SLOTS:
    /// Emits changed().
    void onColorLibraryListChanged(QString listId);
    /// Makes a list under getNewColorListName().
    void createColorList(QString colorListName, bool isUserList);
    /// createColorWithName() for a value string; nothing for one that is no colour. The originating preset is not used.
    void handleInsertColor(QString uid, QString name, QString valueString, QString originatingPreset, QString listId,
                           QString vendorID);

private:
    class OneSave;

    LXColorLibraryItem* nodeOf(const QModelIndex& index) const;
    LXColorLibraryItem* listedNodeOf(const QModelIndex& index) const;
    QModelIndex indexOf(const LXColorLibraryItem* node) const;
    QModelIndex indexIfListed(const LXColorLibraryItem* node, int column = 0) const;
    lxcolor::SwatchIndex& texts() const;
    QModelIndex firstEntry(lxcolor::SwatchText kind, const QString& text) const;
    LXColorLibraryItem* listNamed(const QString& listId) const;
    bool isUserList(const LXColorLibraryItem* node) const;
    bool isEntryOfUserList(const LXColorLibraryItem* node) const;

    // The one door for structural changes that views are told of.
    LXColorLibraryItem* insertBlankRows(const QModelIndex& parent, int row, int count);
    LXColorLibraryItem* appendColorRow(const QModelIndex& list, const LXColor& color, const QString& uid,
                                       const QString& originatingPreset, const QString& vendorID);
    void takeOutRows(const QModelIndex& parent, int row, int count);
    void catchUp(const QModelIndex& parent);

    LXColorLibraryItem* addColor(const LXColor& color, const QString& uid, const QString& listId,
                                 const QString& originatingPreset, const QString& vendorID);
    QString createNamedColor(const LXColor& color, const QString& name, const QString& uid, const QString& listId,
                             const QString& originatingPreset, const QString& vendorID);
    void renameEntry(const LXColorLibraryItem* entry, const QString& newName, bool keepPresetInfo);
    const LXColorLibraryItem* explicitColor(const QString& value) const;
    LXColor lookUp(const QString& uidOrValue) const;
    QVector<QPointer<LXColorLibraryItem>> firstEntries(const QString& uid) const;
    QVector<const LXColorLibraryItem*> selectedRows(const QModelIndexList& indexes) const;
    void announce(const LXColorLibraryItem* node, int column = 0);
    void announceRoot();
    void requestSave();

    static QString userColorsPath();
    QString userColorsText() const;
    bool takeOverLists(const lxcolor::FileContent& file, const QString& path);
    void forgetPersistentIndexesBelow(const LXColorLibraryItem* list);

    LXColorLibraryItem* m_rootItem;
    LXColor m_defaultColor;
    QPixmap (*m_thumbnailGenerator)(const LXColor&) = nullptr;
    bool m_containsDefaults = false;
    bool m_inDestructor = false;
    bool m_userColorsLoaded = false;
    bool m_editingMultipleColors = false;
    bool m_saveDeferred = false;
    bool m_supportsNChannel = true;
    bool m_supportsOpacity = true;
    int m_openCalls = 0;            ///< How many calls are under way that save once at their end,
    bool m_saveAtEndOfCall = false; ///< and whether one of them has asked to.
    int m_unreadableColors = 0;     ///< Colours that were not added because of their value.
    QByteArray m_knownUserFile;     ///< What was loaded whole from the user colour file, or saved in it.

    static LXColorLibrary* m_instance;
};

#endif
