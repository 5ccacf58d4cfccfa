#ifndef WHITEPOINT_H
#define WHITEPOINT_H

#include "LXColorExtrasExport.h"

#include <QPointF>

#include <limits>

/**
 * A white light: its chromaticity, with the figures that lighting data sheets give for it beside the CCT and tint of
 * CCTUtils.
 *
 * - *CCT*: the temperature of the blackbody that is nearest in CIE 1960 u, v (CIE 15:2018), in kelvin, 1000 to
 *   infinity.
 * - *Duv*: that distance in CIE 1960 u, v, positive above the locus (greenish), negative below (pinkish), as in ANSI
 *   C78.377.
 * - *mired*: 1e6 / CCT, 0 to 1000; equal steps of it look about equally large.
 *
 * The locus is integrated from Planck's law (c2 = 1.4388e-2 m K) and the CIE 1931 2-degree observer at 5 nm. The
 * nearest point is looked up in a dense table of it, as in Y. Ohno, "Practical use and calculation of CCT and Duv",
 * LEUKOS 10 (2014), with steps of 1 mired and the remainder solved on a cubic instead of fitted. From 1000 to 25000 K
 * and within 0.05 Duv the result is that of the definition to 1e-5 mired (0.0004 K at 6500 K) and 1e-9 Duv.
 *
 * The scales of CCTUtils run beside these: its locus is a chain of straight lines, its iso-temperature lines meet in
 * pivots. On its locus the CCT here is lower by at most 5 K up to 4000 K, 24 K up to 6500 K, 88 K up to 8000 K and 140
 * K up to 11000 K, and Duv is -0.00014 to 0. A full tint of 32767 is a Duv of 0.0200 +- 0.0002 and moves the CCT by at
 * most 7.1 mired.
 *
 * Where there is no number it is NaN. Nothing is refused with a message.
 */
class LXCOLOR_EXTRAS_EXPORT WhitePoint
{
public:
    static constexpr double minCct = 1000.0;         ///< Kelvin.
    static constexpr double maxMired = 1000.0;       ///< At minCct.
    static constexpr double maxMeaningfulDuv = 0.05; ///< Beyond this a CCT says little about a light (CIE 15:2018).

    /// No white point: everything is NaN.
    WhitePoint() = default;

    /// The white point of a CIE 1931 chromaticity; none unless both are finite and y is above 0.
    static WhitePoint fromxy(double x, double y);
    /// None for a CCT below minCct or a Duv that is not finite. An infinite CCT is a valid one.
    static WhitePoint fromCctAndDuv(double cctKelvin, double duv = 0.0);
    /// The same by mired, 0..maxMired.
    static WhitePoint fromMiredAndDuv(double mired, double duv = 0.0);
    /// The chromaticity that CCTUtils gives for a CCT (1950..11000 K) and a tint; none for a CCT out of range.
    static WhitePoint fromCctAndTint(int cctKelvin, int tint = 0);
    /// Daylight by the CIE D-series formula (CIE 15:2018), 4000..25000 K. For a nominal CCT multiply by 1.4388
    /// / 1.4380: D50 is at 5003 K, D65 at 6504 K.
    static WhitePoint daylight(double cctKelvin);

    /// Whether there is a chromaticity.
    bool isValid() const;
    QPointF xy() const;      ///< CIE 1931 x, y.
    QPointF uvPrime() const; ///< CIE 1976 u', v'.
    QPointF uv1960() const;  ///< CIE 1960 u, v.

    /// Whether there is a CCT: false for chromaticities that no blackbody of 1000 K or more is nearest to.
    bool hasCct() const;
    /// Whether there is one that says something: Duv within maxMeaningfulDuv.
    bool isNearLocus() const;
    double cctKelvin() const; ///< minCct to infinity.
    double mired() const;     ///< 0..maxMired.
    double duv() const;       ///< Distance from the locus in CIE 1960 uv, positive above it (towards green).

    /// CCT and tint on the scales of CCTUtils. False, and nothing written, where CCTUtils::getCCTAndTintFromxy() is.
    bool getCctAndTint(int& cctKelvin, int& tint) const;

    /// Reciprocal megakelvin of a temperature, and back. Infinite for 0.
    ///@{
    static double miredFromKelvin(double kelvin) { return 1e6 / kelvin; }
    static double kelvinFromMired(double mired) { return 1e6 / mired; }
    ///@}

private:
    static constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

    double m_x = kNone;
    double m_y = kNone;
    double m_mired = kNone;
    double m_duv = kNone;
};

#endif
