#ifndef SCREENCOLOR_H
#define SCREENCOLOR_H

#include "LXColorExtrasExport.h"

#include <QColor>
#include <QPointF>

class LXColor;

/**
 * sRGB colours (IEC 61966-2-1) that stand on a screen for colours and lights. All operations are static.
 *
 * A screen shows a chromaticity nearly as bright as it can, and less saturated where sRGB does not reach it. Lights of
 * one intensity are not equally bright to the eye.
 */
class LXCOLOR_EXTRAS_EXPORT ScreenColor
{
public:
    /// A light of CIE 1931 chromaticity \a xy at \a intensity, which is limited to 0..1. Black where one of them is not
    /// a number.
    static QColor ofLight(QPointF xy, double intensity);
    /// Red, green and blue of an RGB or HSV colour as they are; of any other the light that it means through its own
    /// fixture's emitters. With its alpha. An invalid QColor for an invalid colour.
    static QColor ofColor(const LXColor& color);
};

#endif
