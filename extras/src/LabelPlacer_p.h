#ifndef LABELPLACER_P_H
#define LABELPLACER_P_H

#include <QPointF>
#include <QRectF>
#include <QVector>

namespace lxcolor {

/// Finds room for labels beside the things they name, so that none covers another. First come, first served.
class LabelPlacer
{
public:
    explicit LabelPlacer(const QRectF& bounds) : m_bounds(bounds) {}

    /// Keeps labels out of a rectangle.
    void reserve(const QRectF& rect) { m_taken.append(rect); }
    /// Keeps labels off a mark.
    void reserve(QPointF center, double radius);

    /**
     * Room for a label of \a size whose edge is \a distance from \a anchor, in the direction \a preferred or, where
     * that is taken, the free one nearest to it, up to \a swing degrees away. The room is taken then. A null rectangle
     * when there is none.
     */
    QRectF place(QSizeF size, QPointF anchor, QPointF preferred, double distance, double swing);

private:
    bool isFree(const QRectF& rect) const;

    QRectF m_bounds;
    QVector<QRectF> m_taken;
};

} // namespace lxcolor

#endif
