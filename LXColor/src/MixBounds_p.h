#ifndef MIXBOUNDS_P_H
#define MIXBOUNDS_P_H

#include "CornerSolver_p.h"

namespace lxcolor {

/// A rectangle of chromaticities.
struct ChromaticityBox
{
    Chromaticity low;
    Chromaticity high;
};

/// A quotient of two functions that are linear in b and in a each, by their values at the corners of a rectangle, and
/// how far those values may be off.
struct BilinearQuotient
{
    double numerator[2][2]; ///< At low and high b, low and high a.
    double denominator[2][2];
    double numeratorError;
    double denominatorError;
};

/// What is certain of the results that the search computes for one mix at the chromaticities of a box.
struct MixBounds
{
    bool isCertain;             ///< Whether there is more to say than that everything is possible.
    bool neverValid;            ///< At none of them are its levels accepted.
    bool alwaysValid;           ///< At all of them they are.
    double highestLuminance;    ///< It is never brighter, where it is valid.
    double lowestLuminance;     ///< It is never darker; meaningful when it is always valid.
    BilinearQuotient luminance; ///< The exact luminance.
    double luminanceError;      ///< How far the computed one may be from it, where the mix is valid.

    /// Whether this mix, which has to be always valid, is brighter than the other wherever that is valid.
    bool surelyOutshines(const MixBounds& other) const;
};

/**
 * Bounds what the search computes, rounding included, for the mixes of a fixture in a box of chromaticities.
 *
 * Written in b = y/x and a = y/z, the coefficients q of an emitter are linear in b and p in a. The exact levels and the
 * exact luminance of a mix are quotients of functions that are linear in each of b and a, so in a rectangle of (b, a)
 * in which the determinant keeps its sign they are extreme at its four corners. The computed levels differ from the
 * exact ones by the rounding of the elimination, which is bounded from the largest magnitudes in the rectangle. Where
 * the elimination is ill-conditioned nothing is certain, and the bounds say so.
 */
class MixBounder
{
public:
    MixBounder(const EmitterView& emitters, int count, const ChromaticityBox& box);

    MixBounds boundsOf(const Mix& mix) const;

private:
    /// Coefficients of a sum of emitters at the corners of the rectangle: q at low and high b, p at low and high a.
    struct Coefficients
    {
        double q[2];
        double p[2];
        double qError; ///< Bound on the rounding of q, and so on.
        double pError;

        double largestQ() const;
        double largestP() const;
        double smallestQ() const;
    };

    Coefficients coefficientsOf(double X, double Y, double Z) const;

    const EmitterView& m_emitters;
    double m_b[2];
    double m_a[2];
    bool m_usable;
    Coefficients m_coefficients[kMaxEmitters];
};

} // namespace lxcolor

#endif
