#ifndef SWATCHTREE_P_H
#define SWATCHTREE_P_H

#include <QTreeView>

namespace lxcolor {

/// The tree of lists and colours. Its drags carry a picture of what is dragged, and never take away what was dropped
/// elsewhere.
class SwatchTree : public QTreeView
{
    Q_OBJECT

public:
    explicit SwatchTree(QWidget* parent = nullptr);

    /// What is said in the middle while there is nothing to show.
    void setEmptyText(const QString& text);

protected:
    void startDrag(Qt::DropActions supportedActions) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QPixmap pictureOf(const QModelIndexList& indexes) const;

    QString m_emptyText;
};

} // namespace lxcolor

#endif
