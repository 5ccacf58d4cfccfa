#ifndef SWATCHTHUMBNAIL_P_H
#define SWATCHTHUMBNAIL_P_H

#include "SwatchCommands_p.h"

#include <QPixmap>
#include <QSize>

class QPainter;
class QRectF;

// How a colour looks in a list, and how it is told.
namespace lxcolor {

constexpr int ThumbnailSide = 22; ///< Pixels that do not depend on the device.

/// Fills a rounded rectangle with a colour as it looks on a screen, over a chequerboard where it is translucent.
void paintSwatch(QPainter& painter, const QRectF& rect, const QColor& color, double radius = 4.0);

/// For the finest of the screens.
QPixmap swatchThumbnail(const LXColor& color);

/// What tells a colour apart without its name: digits, a chromaticity or levels.
QString shortValue(const LXColor& color);
/// "red 255, green 128, blue 0", with the chromaticity of colours that are stored by it.
QString valueInWords(const LXColor& color);
/// Name and value.
QString swatchInWords(const Swatch& swatch);
/// A list and how many colours it has.
QString listInWords(const QString& name, int count);
/// The same as rich text, with the vendor's name of the colour and where it came from.
QString swatchTip(const Swatch& swatch);

} // namespace lxcolor

#endif
