#include "LabelPlacer_p.h"

#include <QLineF>

#include <algorithm>
#include <cmath>

namespace lxcolor {

namespace {

constexpr double kStep = 22.5; // degrees between the directions that are tried

/// The rectangle of \a size in the direction of an angle (counter-clockwise, 0 to the right) from an anchor.
QRectF besideAnchor(QSizeF size, QPointF anchor, double angle, double distance)
{
    const QPointF direction = QLineF::fromPolar(1.0, angle).p2();
    const QPointF reach(size.width() / 2.0 * direction.x(), size.height() / 2.0 * direction.y());
    QRectF rect(QPointF(), size);
    rect.moveCenter(anchor + direction * distance + reach);
    return rect;
}

} // namespace

void LabelPlacer::reserve(QPointF center, double radius)
{
    m_taken.append(QRectF(center - QPointF(radius, radius), QSizeF(2.0 * radius, 2.0 * radius)));
}

QRectF LabelPlacer::place(QSizeF size, QPointF anchor, QPointF preferred, double distance, double swing)
{
    const double angle = QLineF(QPointF(0.0, 0.0), preferred).angle();
    const int turns = static_cast<int>(swing / kStep);
    for (int turn = 0; turn <= turns; ++turn) {
        for (int sign : {1, -1}) {
            const QRectF rect = besideAnchor(size, anchor, angle + sign * turn * kStep, distance);
            if (isFree(rect)) {
                m_taken.append(rect);
                return rect;
            }
        }
    }
    return {};
}

bool LabelPlacer::isFree(const QRectF& rect) const
{
    return m_bounds.contains(rect) &&
           std::none_of(m_taken.begin(), m_taken.end(), [&](const QRectF& taken) { return taken.intersects(rect); });
}

} // namespace lxcolor
