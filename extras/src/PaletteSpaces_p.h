#ifndef PALETTESPACES_P_H
#define PALETTESPACES_P_H

#include "PaletteRemarks_p.h"

// Colours of palette files in other spaces than RGB, as red, green and blue of sRGB. Numbers beyond their range are cut
// to it, with a remark.
namespace lxcolor {

/// Each 0..1.
LXColor fromRgb(double red, double green, double blue, PaletteRemarks& remarks);
/// Each 0..1; the hue as a part of the circle.
LXColor fromHsb(double hue, double saturation, double brightness, PaletteRemarks& remarks);
/// The share of each ink, 0..1, on white paper: red = (1 - C)(1 - K) and so on.
LXColor fromCmyk(double cyan, double magenta, double yellow, double black, PaletteRemarks& remarks);
/// CIE 1976 L*a*b* with the white of D50 (0.96422, 1, 0.82521), L 0..100. Through X, Y, Z, the Bradford adaptation
/// from D50 to D65, and the transfer curve of IEC 61966-2-1.
LXColor fromLab(double L, double a, double b, PaletteRemarks& remarks);
/// 0 black to 1 white.
LXColor fromGray(double gray, PaletteRemarks& remarks);

} // namespace lxcolor

#endif
