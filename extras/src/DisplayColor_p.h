#ifndef DISPLAYCOLOR_P_H
#define DISPLAYCOLOR_P_H

#include <QRgb>

// Chromaticities on a screen: sRGB (IEC 61966-2-1) as the display is taken to have it.
namespace lxcolor {

/// An opaque sRGB colour for a chromaticity, nearly as bright as sRGB shows it and less saturated where it must be;
/// smooth across the diagram. Black for one that is not finite.
QRgb displayColor(double x, double y);

/// \a color with its light reduced to \a ratio, which is limited to 0..1; black for NaN. Opaque.
QRgb dimmed(QRgb color, double ratio);

} // namespace lxcolor

#endif
