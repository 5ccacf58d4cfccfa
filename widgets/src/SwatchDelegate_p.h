#ifndef SWATCHDELEGATE_P_H
#define SWATCHDELEGATE_P_H

#include <QStyledItemDelegate>

namespace lxcolor {

/// Paints lists as headings with the number of their colours, and colours with thumbnail, name and value.
class SwatchDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
};

} // namespace lxcolor

#endif
