#include "SwatchDelegate_p.h"
#include "SwatchPayload_p.h"
#include "SwatchThumbnail_p.h"
#include "SwatchTree_p.h"

#include <QDrag>
#include <QDragMoveEvent>
#include <QMimeData>
#include <QPainter>

#include <algorithm>

namespace lxcolor {

namespace {

constexpr int MostPictured = 5;

/// Our own colours move, unless a copy is asked for; all others are copied.
void chooseAction(QDropEvent* event)
{
    const bool isOurs = event->mimeData() && !entriesOfPayload(*event->mimeData()).isEmpty();
    const bool isCopyAskedFor = event->keyboardModifiers().testFlag(Qt::ControlModifier);
    const bool moves = isOurs && !isCopyAskedFor && event->possibleActions().testFlag(Qt::MoveAction);
    event->setDropAction(moves ? Qt::MoveAction : Qt::CopyAction);
}

} // namespace

SwatchTree::SwatchTree(QWidget* parent) : QTreeView(parent)
{
    setItemDelegate(new SwatchDelegate(this));
    setHeaderHidden(true);
    setUniformRowHeights(false);
    setSelectionMode(ExtendedSelection);
    setSelectionBehavior(SelectRows);
    setEditTriggers(EditKeyPressed | SelectedClicked);
    setDragEnabled(true);
    setAcceptDrops(true);
    setDropIndicatorShown(true);
    setDragDropMode(DragDrop);
    setIndentation(14);
    setExpandsOnDoubleClick(false);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameShape(QFrame::NoFrame);
    setMouseTracking(true);
}

void SwatchTree::setEmptyText(const QString& text)
{
    m_emptyText = text;
    viewport()->update();
}

QPixmap SwatchTree::pictureOf(const QModelIndexList& indexes) const
{
    constexpr int Step = ThumbnailSide / 2;
    const int count = std::min(indexes.size(), MostPictured);
    const double ratio = devicePixelRatioF();
    const int side = ThumbnailSide + Step * (count - 1);
    QPixmap picture(QSize(side, ThumbnailSide) * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    for (int i = 0; i < count; ++i)
        painter.drawPixmap(QRect(i * Step, 0, ThumbnailSide, ThumbnailSide),
                           indexes.at(i).data(Qt::DecorationRole).value<QPixmap>());
    return picture;
}

void SwatchTree::startDrag(Qt::DropActions supportedActions)
{
    QModelIndexList dragged;
    for (const QModelIndex& index : selectedIndexes()) {
        if (index.parent().isValid())
            dragged << index;
    }
    QMimeData* payload = model()->mimeData(dragged);
    if (!payload)
        return;
    auto* drag = new QDrag(this);
    drag->setMimeData(payload);
    drag->setPixmap(pictureOf(dragged));
    drag->setHotSpot({-4, -4});
    drag->exec(supportedActions, Qt::CopyAction); // Who takes them as a move has moved them.
}

void SwatchTree::dragMoveEvent(QDragMoveEvent* event)
{
    chooseAction(event);
    const Qt::DropAction action = event->dropAction();
    QTreeView::dragMoveEvent(event);
    if (!event->isAccepted())
        return;
    event->setDropAction(action);
    event->accept();
}

void SwatchTree::dropEvent(QDropEvent* event)
{
    chooseAction(event);
    QTreeView::dropEvent(event);
}

void SwatchTree::paintEvent(QPaintEvent* event)
{
    QTreeView::paintEvent(event);
    if (m_emptyText.isEmpty() || !model() || model()->rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::Text));
    painter.setOpacity(0.68);
    painter.drawText(viewport()->rect().adjusted(16, 32, -16, -16), Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap,
                     m_emptyText);
}

} // namespace lxcolor
