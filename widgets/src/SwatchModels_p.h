#ifndef SWATCHMODELS_P_H
#define SWATCHMODELS_P_H

#include "LXColorLibrary.h"

#include <QIdentityProxyModel>
#include <QSortFilterProxyModel>

namespace lxcolor {

class SwatchEditor;

/// The library as views of Qt expect a model: its root is the invalid index, thumbnails are there, and what assistive
/// technology reads.
class RootedSwatches : public QIdentityProxyModel
{
    Q_OBJECT

public:
    explicit RootedSwatches(LXColorLibrary* library, QObject* parent = nullptr);

    /// Has views look again, after changes of which the library does not tell.
    void lookAgain();

    QModelIndex mapToSource(const QModelIndex& index) const override;
    QModelIndex mapFromSource(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    bool hasChildren(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    QPixmap thumbnailOf(const LXColor& color) const;

    QPointer<LXColorLibrary> m_library;
};

/// What the view shows: the lists but that of explicit colours, and their colours; of these, when something is searched
/// for, those whose name or list's name has all words of it. Edits go through the editor.
class ShownSwatches : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    ShownSwatches(RootedSwatches* swatches, SwatchEditor* editor, QObject* parent = nullptr);

    void setSearch(const QString& text);
    bool isSearching() const { return !m_words.isEmpty(); }
    QModelIndex toLibrary(const QModelIndex& index) const;
    QModelIndex fromLibrary(const QModelIndex& index) const;

    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                         const QModelIndex& parent) const override;
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;
    Qt::DropActions supportedDropActions() const override { return Qt::CopyAction | Qt::MoveAction; }
    Qt::DropActions supportedDragActions() const override { return Qt::CopyAction | Qt::MoveAction; }

Q_SIGNALS:
    /// Colours were dropped.
    void dropped(const QStringList& uids);

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;
    bool filterAcceptsColumn(int column, const QModelIndex& parent) const override;

private:
    struct Target
    {
        QModelIndex list; ///< Of the library.
        int row;
    };
    Target targetOf(int row, const QModelIndex& parent) const;
    bool hasWords(const QModelIndex& index) const;

    RootedSwatches* m_swatches;
    SwatchEditor* m_editor;
    QStringList m_words;
};

} // namespace lxcolor

#endif
