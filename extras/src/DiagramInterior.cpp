#include "DiagramPainter_p.h"
#include "DisplayColor_p.h"

#include <QPainter>

#include <algorithm>

namespace lxcolor {

namespace {

constexpr int kPixelsASample = 4; // the colours change slowly; in between they are interpolated
constexpr int kBorder = 1;        // samples around the range, so that its edges are interpolated as well

QSize samplesAcross(QSize size)
{
    return {std::max(size.width() / kPixelsASample, 1), std::max(size.height() / kPixelsASample, 1)};
}

/// The colours of the range and a border of samples around it, inside the locus or not.
QImage colorSamples(const DiagramGeometry& geometry, QSize across, int value)
{
    QImage samples(across + QSize(2 * kBorder, 2 * kBorder), QImage::Format_RGB32);
    const QRectF& range = geometry.range();
    const double right = range.width() / across.width();
    const double down = range.height() / across.height();
    for (int row = 0; row < samples.height(); ++row) {
        auto* line = reinterpret_cast<QRgb*>(samples.scanLine(row));
        // bottom() is the greatest coordinate, the picture's top.
        const double y = range.bottom() - (row - kBorder + 0.5) * down;
        for (int column = 0; column < samples.width(); ++column) {
            const QPointF xy = geometry.fromPlane({range.left() + (column - kBorder + 0.5) * right, y});
            const QRgb color = displayColor(xy.x(), xy.y());
            line[column] = qRgb(qRed(color) * value / 255, qGreen(color) * value / 255, qBlue(color) * value / 255);
        }
    }
    return samples;
}

} // namespace

QImage interiorImage(const DiagramGeometry& geometry, QSize size, int value)
{
    const QSize across = samplesAcross(size);
    const QImage samples = colorSamples(geometry, across, value);
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setPen(Qt::NoPen);

    QBrush brush(samples);
    brush.setTransform(
        QTransform::fromScale(double(size.width()) / across.width(), double(size.height()) / across.height())
            .translate(-kBorder, -kBorder));
    painter.setBrush(brush);
    QPolygonF locus = geometry.positionsOf(spectralLocusPoints());
    locus.translate(-geometry.plot().topLeft());
    painter.drawPolygon(QTransform::fromScale(double(size.width()) / geometry.plot().width(),
                                              double(size.height()) / geometry.plot().height())
                            .map(locus));
    return image;
}

} // namespace lxcolor
