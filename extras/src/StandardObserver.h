#ifndef STANDARDOBSERVER_H
#define STANDARDOBSERVER_H

#include "LXColorExtrasExport.h"

#include <QPointF>
#include <QVector>

/**
 * The CIE 1931 2-degree standard colorimetric observer: from wavelengths and spectra to tristimulus values. All
 * operations are static.
 *
 * The colour-matching functions are those of CIE 15:2018 every 5 nm from 360 to 830 nm, in between by third-order
 * Lagrange interpolation as CIE 167:2005 has it; they are 0 outside.
 */
class LXCOLOR_EXTRAS_EXPORT StandardObserver
{
public:
    /// CIE 1931 tristimulus values.
    struct LXCOLOR_EXTRAS_EXPORT XYZ
    {
        double X = 0.0; ///< On the scale of the spectrum, as are Y and Z.
        double Y = 0.0; ///< Proportional to luminance.
        double Z = 0.0; ///< Mostly the short wavelengths.

        /// CIE 1931 x, y; NaN where the values have none.
        QPointF xy() const;
    };

    static constexpr double firstWavelength = 360.0; ///< Nanometres.
    static constexpr double lastWavelength = 830.0;  ///< Nanometres.

    /// The colour-matching functions at a wavelength in nanometres; 0 outside the range above and for NaN.
    static XYZ at(double nm);
    /// The point of the spectral locus at a wavelength in nanometres, CIE 1931 x, y; NaN outside the range above.
    static QPointF locusPoint(double nm);

    /**
     * The tristimulus values of a measured spectrum: the integral over the wavelength in nanometres of power times
     * colour-matching function. With power in W/nm, 683 Y is the luminous flux in lumens.
     *
     * x() of a sample is its wavelength in nanometres, y() its power. Samples ascend, in steps of any size; between
     * them the spectrum is a straight line, before the first and after the last it is 0. What lies outside 360 to 830
     * nm does not count. \a ok (may be null) becomes false, and the result 0, when there are fewer than two samples,
     * when wavelengths do not strictly ascend, or when a number is not finite.
     */
    static XYZ ofSpectrum(const QVector<QPointF>& spectrum, bool* ok = nullptr);
};

#endif
