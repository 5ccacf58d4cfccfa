#include "Icons.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

namespace {

constexpr double kGrid = 24.0; // the drawings are made for a square of this side

QPainterPath plus(double x, double y, double half)
{
    QPainterPath path;
    path.moveTo(x - half, y);
    path.lineTo(x + half, y);
    path.moveTo(x, y - half);
    path.lineTo(x, y + half);
    return path;
}

QPainterPath lines(std::initializer_list<QPointF> points)
{
    QPainterPath path;
    path.addPolygon(QPolygonF(QVector<QPointF>(points)));
    return path;
}

/// An arrow that turns back to the left.
QPainterPath turn()
{
    QPainterPath path;
    path.moveTo(5, 9);
    path.lineTo(14, 9);
    path.cubicTo(21, 9, 21, 19, 14, 19);
    path.lineTo(9, 19);
    path.addPath(lines({{9, 5}, {5, 9}, {9, 13}}));
    return path;
}

QPainterPath pathOf(Drawing drawing)
{
    QPainterPath path;
    switch (drawing) {
    case Drawing::Open:
        path = lines({{3, 19}, {3, 5}, {9, 5}, {11, 8}, {19, 8}, {19, 11}});
        path.addPath(lines({{3, 19}, {6.5, 11}, {22, 11}, {18.5, 19}, {3, 19}}));
        break;
    case Drawing::Save:
        path = lines({{4, 4}, {16, 4}, {20, 8}, {20, 20}, {4, 20}, {4, 4}});
        path.addPath(lines({{8, 20}, {8, 13}, {16, 13}, {16, 20}}));
        path.addPath(lines({{8, 4}, {8, 8}, {14, 8}, {14, 4}}));
        break;
    case Drawing::NewList:
        for (double y : {6.0, 12.0, 18.0})
            path.addPath(lines({{4, y}, {y > 7 ? 12.0 : 20.0, y}}));
        path.addPath(plus(18, 15, 4));
        break;
    case Drawing::AddSwatch:
        path.addRoundedRect(QRectF(3, 7, 13, 13), 3, 3);
        path.addPath(plus(19, 6, 3.5));
        break;
    case Drawing::ReplaceSwatch:
        path.addRoundedRect(QRectF(3, 10, 11, 11), 3, 3);
        path.moveTo(10, 5);
        path.cubicTo(15, 2, 20, 5, 20, 12);
        path.addPath(lines({{16.5, 9.5}, {20, 13}, {23, 9.5}}));
        break;
    case Drawing::Delete:
        path = lines({{4, 7}, {20, 7}});
        path.addPath(lines({{9, 7}, {9, 4}, {15, 4}, {15, 7}}));
        path.addPath(lines({{6, 7}, {7, 20}, {17, 20}, {18, 7}}));
        path.addPath(lines({{10.2, 11}, {10.2, 16.5}}));
        path.addPath(lines({{13.8, 11}, {13.8, 16.5}}));
        break;
    case Drawing::Undo:
        path = turn();
        break;
    case Drawing::Redo:
        path = QTransform(-1, 0, 0, 1, kGrid, 0).map(turn());
        break;
    case Drawing::Find:
        path.addEllipse(QPointF(10.5, 10.5), 6, 6);
        path.addPath(lines({{15, 15}, {20.5, 20.5}}));
        break;
    }
    return path;
}

class LineIcon : public QIconEngine
{
public:
    explicit LineIcon(Drawing drawing) : m_drawing(drawing) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override
    {
        Q_UNUSED(state)
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const auto role = mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::WindowText;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / kGrid, rect.height() / kGrid);
        painter->setPen(
            QPen(QApplication::palette().color(group, role), 1.7, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->drawPath(pathOf(m_drawing));
        painter->restore();
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return pixmap;
    }
    QIconEngine* clone() const override { return new LineIcon(m_drawing); }

private:
    Drawing m_drawing;
};

} // namespace

QIcon icon(Drawing drawing) { return QIcon(new LineIcon(drawing)); }
