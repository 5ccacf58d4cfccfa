#ifndef DISPLAYCOLOR_P_H
#define DISPLAYCOLOR_P_H

#include <QRgb>

// Chromaticities on a screen: sRGB (IEC 61966-2-1) as the display is taken to have it.
namespace lxcolor {

/// An opaque sRGB colour for a chromaticity, nearly as bright as sRGB shows it and less saturated where it must be;
/// smooth across the diagram. Black for one that is not finite.
QRgb displayColor(double x, double y);

} // namespace lxcolor

#endif
