#include "ScreenColor.h"
#include "SwatchThumbnail_p.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>

#include <algorithm>

namespace lxcolor {

namespace {

constexpr int ChequerSide = 4;

double finestPixelRatio()
{
    double ratio = 1.0;
    for (const QScreen* screen : QGuiApplication::screens())
        ratio = std::max(ratio, screen->devicePixelRatio());
    return ratio;
}

void paintChequers(QPainter& painter, const QRectF& rect)
{
    painter.fillRect(rect, Qt::white);
    for (int row = 0; row * ChequerSide < rect.height(); ++row) {
        for (int column = row % 2; column * ChequerSide < rect.width(); column += 2)
            painter.fillRect(
                QRectF(rect.x() + column * ChequerSide, rect.y() + row * ChequerSide, ChequerSide, ChequerSide),
                QColor(190, 190, 190));
    }
}

QStringList levelsOf(const LXColor& color)
{
    QStringList levels = color.nameFull8().split(QLatin1Char(','));
    levels.removeFirst(); // the alpha
    return levels;
}

} // namespace

void paintSwatch(QPainter& painter, const QRectF& rect, const QColor& color, double radius)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath outline;
    outline.addRoundedRect(rect, radius, radius);
    if (color.alpha() < 255) {
        painter.setClipPath(outline);
        paintChequers(painter, rect);
        painter.setClipping(false);
    }
    painter.fillPath(outline, color);
    QPainterPath edge;
    edge.addRoundedRect(rect.adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    painter.setPen(QColor(128, 128, 128, 120)); // seen on light and on dark
    painter.drawPath(edge);
    painter.restore();
}

QPixmap swatchThumbnail(const LXColor& color)
{
    const double ratio = finestPixelRatio();
    QPixmap pixmap(QSize(ThumbnailSide, ThumbnailSide) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    const QColor shown = ScreenColor::ofColor(color);
    if (shown.isValid())
        paintSwatch(painter, QRectF(0, 0, ThumbnailSide, ThumbnailSide), shown);
    return pixmap;
}

QString shortValue(const LXColor& color)
{
    switch (color.spec()) {
    case LXColor::Yxy:
        return QStringLiteral("%1  %2").arg(color.getx(), 0, 'f', 3).arg(color.gety(), 0, 'f', 3);
    case LXColor::NChannel:
        return levelsOf(color).join(QLatin1Char(' '));
    case LXColor::Invalid:
        return {};
    default:
        return color.name8().toUpper();
    }
}

QString valueInWords(const LXColor& color)
{
    const QColor rgb = color.getQColor(true);
    QString text = QCoreApplication::translate("SwatchView", "red %1, green %2, blue %3")
                       .arg(rgb.red())
                       .arg(rgb.green())
                       .arg(rgb.blue());
    if (color.spec() == LXColor::Yxy)
        return text + QStringLiteral("; x %1, y %2").arg(color.getx(), 0, 'f', 4).arg(color.gety(), 0, 'f', 4);
    if (color.spec() == LXColor::NChannel)
        return text + QStringLiteral("; ") +
               QCoreApplication::translate("SwatchView", "levels %1").arg(levelsOf(color).join(QStringLiteral(", ")));
    return text;
}

QString swatchInWords(const Swatch& swatch) { return swatch.name + QStringLiteral(", ") + valueInWords(swatch.color); }

QString listInWords(const QString& name, int count)
{
    return name + QStringLiteral(", ") + QCoreApplication::translate("SwatchView", "colours: %1").arg(count);
}

QString swatchTip(const Swatch& swatch)
{
    QStringList lines{QStringLiteral("<b>%1</b>").arg(swatch.name.toHtmlEscaped()), valueInWords(swatch.color)};
    if (!swatch.vendorId.isEmpty())
        lines << QCoreApplication::translate("SwatchView", "Colour ID: %1").arg(swatch.vendorId.toHtmlEscaped());
    if (!swatch.originatingPreset.isEmpty())
        lines << QCoreApplication::translate("SwatchView", "From: %1").arg(swatch.originatingPreset.toHtmlEscaped());
    return lines.join(QStringLiteral("<br>"));
}

} // namespace lxcolor
