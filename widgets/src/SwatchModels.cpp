#include "SwatchEditor_p.h"
#include "SwatchModels_p.h"
#include "SwatchPayload_p.h"
#include "SwatchThumbnail_p.h"

#include <QMimeData>
#include <QPixmapCache>

#include <algorithm>

namespace lxcolor {

using Role = LXColorLibraryItem::Role;

// ---- RootedSwatches ----

RootedSwatches::RootedSwatches(LXColorLibrary* library, QObject* parent)
    : QIdentityProxyModel(parent), m_library(library)
{
    setSourceModel(library);
}

void RootedSwatches::lookAgain()
{
    beginResetModel();
    endResetModel();
}

QModelIndex RootedSwatches::mapToSource(const QModelIndex& index) const
{
    if (!m_library)
        return {};
    return index.isValid() ? QIdentityProxyModel::mapToSource(index) : m_library->rootIndex();
}

QModelIndex RootedSwatches::mapFromSource(const QModelIndex& index) const
{
    return !m_library || index == m_library->rootIndex() ? QModelIndex() : QIdentityProxyModel::mapFromSource(index);
}

// Only the first column has children for a view.
int RootedSwatches::rowCount(const QModelIndex& parent) const
{
    return parent.column() > 0 ? 0 : QIdentityProxyModel::rowCount(parent);
}

bool RootedSwatches::hasChildren(const QModelIndex& parent) const { return rowCount(parent) > 0; }

QPixmap RootedSwatches::thumbnailOf(const LXColor& color) const
{
    const bool isOurs = !m_library->canGeneratePixmap();
    const QString key = QStringLiteral("lxcolor-swatch %1 %2").arg(quintptr(m_library.data())).arg(color.aName());
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = isOurs ? swatchThumbnail(color) : m_library->generatePixmap(color);
        QPixmapCache::insert(key, pixmap);
    }
    return pixmap;
}

QVariant RootedSwatches::data(const QModelIndex& index, int role) const
{
    QVariant value = QIdentityProxyModel::data(index, role);
    const auto isColor = [&] {
        return m_library &&
               QIdentityProxyModel::data(index, Role::ItemTypeRole).toInt() != LXColorLibraryItem::ListItem;
    };
    switch (role) {
    case Qt::DecorationRole:
        return isColor() && value.value<QPixmap>().isNull() ? QVariant(thumbnailOf(swatchOf(mapToSource(index)).color))
                                                            : value;
    case Qt::ToolTipRole:
        return isColor() ? swatchTip(swatchOf(mapToSource(index))) : value;
    case Qt::AccessibleTextRole:
        return isColor() ? swatchInWords(swatchOf(mapToSource(index)))
                         : listInWords(value.isValid() ? value.toString() : index.data().toString(), rowCount(index));
    case Qt::AccessibleDescriptionRole:
        return isColor() ? QVariant(valueInWords(swatchOf(mapToSource(index)).color)) : value;
    default:
        return value;
    }
}

Qt::ItemFlags RootedSwatches::flags(const QModelIndex& index) const
{
    Qt::ItemFlags flags = QIdentityProxyModel::flags(index);
    const bool isColor = index.isValid() && index.parent().isValid();
    flags.setFlag(Qt::ItemIsDragEnabled, isColor);
    flags.setFlag(Qt::ItemNeverHasChildren, isColor);
    if (index.isValid() && !isColor)
        flags |= Qt::ItemIsSelectable;
    return flags;
}

// ---- ShownSwatches ----

ShownSwatches::ShownSwatches(RootedSwatches* swatches, SwatchEditor* editor, QObject* parent)
    : QSortFilterProxyModel(parent), m_swatches(swatches), m_editor(editor)
{
    setRecursiveFilteringEnabled(true);
    setSourceModel(swatches);
    // The colours of a list are searched by its name, too.
    connect(swatches, &QAbstractItemModel::dataChanged, this, [this](const QModelIndex& first) {
        if (isSearching() && first.isValid() && !first.parent().isValid())
            invalidateFilter();
    });
}

void ShownSwatches::setSearch(const QString& text)
{
    const QStringList words = text.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (words == m_words)
        return;
    m_words = words;
    invalidateFilter();
}

QModelIndex ShownSwatches::toLibrary(const QModelIndex& index) const
{
    return index.isValid() ? m_swatches->mapToSource(mapToSource(index)) : QModelIndex();
}

QModelIndex ShownSwatches::fromLibrary(const QModelIndex& index) const
{
    return index.isValid() ? mapFromSource(m_swatches->mapFromSource(index)) : QModelIndex();
}

bool ShownSwatches::hasWords(const QModelIndex& index) const
{
    const QString texts =
        index.data(Qt::EditRole).toString() + QLatin1Char(' ') + index.data(Role::VendorIdRole).toString();
    return std::all_of(m_words.cbegin(), m_words.cend(),
                       [&](const QString& word) { return texts.contains(word, Qt::CaseInsensitive); });
}

bool ShownSwatches::filterAcceptsRow(int row, const QModelIndex& parent) const
{
    const QModelIndex index = sourceModel()->index(row, 0, parent);
    const QModelIndex list = parent.isValid() ? parent : index;
    if (!list.data(Role::ListFlagRole).toBool()) // explicit colours
        return false;
    if (parent.isValid() && index.data(Role::ItemTypeRole).toInt() != LXColorLibraryItem::ColorItem)
        return false;
    return m_words.isEmpty() || hasWords(index) || (parent.isValid() && hasWords(parent));
}

bool ShownSwatches::filterAcceptsColumn(int column, const QModelIndex& parent) const
{
    Q_UNUSED(parent)
    return column == 0;
}

bool ShownSwatches::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole)
        return QSortFilterProxyModel::setData(index, value, role);
    return m_editor->rename(toLibrary(index), value.toString());
}

QMimeData* ShownSwatches::mimeData(const QModelIndexList& indexes) const
{
    QModelIndexList entries;
    for (const QModelIndex& index : indexes) {
        if (index.parent().isValid())
            entries << toLibrary(index);
    }
    std::sort(entries.begin(), entries.end(), [](const QModelIndex& a, const QModelIndex& b) {
        return a.parent() == b.parent() ? a.row() < b.row() : a.parent().row() < b.parent().row();
    });
    if (entries.isEmpty() || !m_editor->library())
        return nullptr;
    QMimeData* data = m_editor->library()->mimeData(entries);
    completePayload(data, entries);
    return data;
}

// A place between rows that are shown; in front of a list stands for the end of the one above.
ShownSwatches::Target ShownSwatches::targetOf(int row, const QModelIndex& parent) const
{
    if (parent.isValid() && parent.parent().isValid()) // on a colour: behind it
        return {toLibrary(parent.parent()), toLibrary(parent).row() + 1};
    if (!parent.isValid())
        return {toLibrary(index(row < 0 ? rowCount() - 1 : std::max(row - 1, 0), 0)), -1};
    const QModelIndex next = row < 0 ? QModelIndex() : index(row, 0, parent);
    return {toLibrary(parent), next.isValid() ? toLibrary(next).row() : -1};
}

bool ShownSwatches::canDropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                                    const QModelIndex& parent) const
{
    Q_UNUSED(action)
    Q_UNUSED(column)
    return data && mayHoldSwatches(*data) && m_editor->canEdit(targetOf(row, parent).list);
}

bool ShownSwatches::dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                                 const QModelIndex& parent)
{
    if (!canDropMimeData(data, action, row, column, parent))
        return false;
    const Target target = targetOf(row, parent);
    const QStringList uids = m_editor->take(*data, target.list, target.row, action == Qt::MoveAction);
    if (!uids.isEmpty())
        Q_EMIT dropped(uids);
    return !uids.isEmpty();
}

} // namespace lxcolor
