#include "LXColorLibraryItem.h"
#include "SwatchDelegate_p.h"
#include "SwatchThumbnail_p.h"

#include <QApplication>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace lxcolor {

namespace {

constexpr int Margin = 6;
constexpr double Muted = 0.68; // opacity of what is said beside

bool isList(const QModelIndex& index) { return !index.parent().isValid(); }

QColor textColor(const QStyleOptionViewItem& option)
{
    const bool isActive = option.state.testFlag(QStyle::State_Active);
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    return option.palette.color(isActive ? QPalette::Active : QPalette::Inactive,
                                isSelected ? QPalette::HighlightedText : QPalette::Text);
}

QFont quietFont(QFont font)
{
    if (font.pointSizeF() > 0.0)
        font.setPointSizeF(font.pointSizeF() * 0.88);
    return font;
}

/// A padlock, for lists that stay as they are.
void paintLock(QPainter& painter, const QRectF& rect, const QColor& color)
{
    painter.setRenderHint(QPainter::Antialiasing);
    const double w = rect.width();
    const double h = rect.height();
    QPainterPath body;
    body.addRoundedRect(QRectF(rect.x() + w * 0.12, rect.y() + h * 0.45, w * 0.76, h * 0.5), 1.5, 1.5);
    painter.fillPath(body, color);
    painter.setPen(QPen(color, w * 0.13));
    painter.setBrush(Qt::NoBrush);
    painter.drawArc(QRectF(rect.x() + w * 0.27, rect.y() + h * 0.1, w * 0.46, h * 0.62), 0, 180 * 16);
}

/// Text that is said beside, at the right; what is left of \a rect is for the rest.
void paintAside(QPainter& painter, QRect& rect, const QString& text, const QFont& font)
{
    const QFont own = painter.font();
    painter.setFont(font);
    painter.setOpacity(Muted);
    painter.drawText(rect, Qt::AlignRight | Qt::AlignVCenter, text);
    painter.setOpacity(1.0);
    painter.setFont(own);
    rect.setRight(rect.right() - QFontMetrics(font).horizontalAdvance(text) - 2 * Margin);
}

void paintList(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index, QRect rect)
{
    paintAside(painter, rect, QString::number(index.model()->rowCount(index)), quietFont(option.font));
    if (!index.data(LXColorLibraryItem::CanBeModifiedRole).toBool()) {
        constexpr int LockSide = 12;
        painter.save();
        painter.setOpacity(Muted);
        paintLock(painter, QRectF(rect.right() - LockSide, rect.center().y() - LockSide / 2.0, LockSide, LockSide),
                  textColor(option));
        painter.restore();
        rect.setRight(rect.right() - LockSide - Margin);
    }
    QFont bold = option.font;
    bold.setWeight(QFont::DemiBold);
    painter.setFont(bold);
    painter.drawText(rect, Qt::AlignLeft | Qt::AlignVCenter,
                     QFontMetrics(bold).elidedText(index.data().toString(), Qt::ElideRight, rect.width()));
}

void paintColor(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index, QRect rect)
{
    const auto thumbnail = index.data(Qt::DecorationRole).value<QPixmap>();
    if (!thumbnail.isNull()) {
        const QSizeF own = QSizeF(thumbnail.size()) / thumbnail.devicePixelRatioF();
        const double side = std::min(ThumbnailSide, rect.height());
        const QSizeF size =
            own.width() <= side && own.height() <= side ? own : own.scaled(side, side, Qt::KeepAspectRatio);
        const QPointF corner(rect.x() + (ThumbnailSide - size.width()) / 2,
                             rect.y() + (rect.height() - size.height()) / 2);
        painter.drawPixmap(QRectF(QPointF(qRound(corner.x()), qRound(corner.y())), size), thumbnail,
                           QRectF(thumbnail.rect()));
    }
    rect.setLeft(rect.left() + ThumbnailSide + Margin + 2);

    const QString name = index.data().toString();
    const auto* color = static_cast<const LXColor*>(index.data(LXColorLibraryItem::ColorRole).value<void*>());
    const QString value = color ? shortValue(*color) : QString();
    const QFont quiet = quietFont(option.font);
    const int needed = option.fontMetrics.horizontalAdvance(name) + QFontMetrics(quiet).horizontalAdvance(value);
    const bool isSaidTwice = value.compare(name, Qt::CaseInsensitive) == 0;
    if (!isSaidTwice && needed + 3 * Margin <= rect.width())
        paintAside(painter, rect, value, quiet);
    painter.drawText(rect, Qt::AlignLeft | Qt::AlignVCenter,
                     option.fontMetrics.elidedText(name, Qt::ElideRight, rect.width()));
}

} // namespace

void SwatchDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem shown = option;
    initStyleOption(&shown, index);
    const QStyle* style = shown.widget ? shown.widget->style() : QApplication::style();
    style->drawPrimitive(QStyle::PE_PanelItemViewItem, &shown, painter, shown.widget);

    painter->save();
    painter->setClipRect(shown.rect);
    painter->setFont(shown.font);
    painter->setPen(textColor(shown));
    const QRect rect = shown.rect.adjusted(2, 0, -Margin, 0);
    if (isList(index))
        paintList(*painter, shown, index, rect);
    else
        paintColor(*painter, shown, index, rect);
    painter->restore();

    if (shown.state.testFlag(QStyle::State_HasFocus)) {
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(shown);
        focus.backgroundColor = shown.palette.color(QPalette::Base);
        style->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter, shown.widget);
    }
}

QSize SwatchDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const int height = std::max(option.fontMetrics.height() + Margin, ThumbnailSide + Margin);
    return {ThumbnailSide + 20 * option.fontMetrics.averageCharWidth(), height + (isList(index) ? 2 : 0)};
}

void SwatchDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                          const QModelIndex& index) const
{
    QRect rect = option.rect.adjusted(0, 1, -Margin, -1);
    if (!isList(index))
        rect.setLeft(rect.left() + ThumbnailSide + Margin);
    editor->setGeometry(rect);
}

} // namespace lxcolor
