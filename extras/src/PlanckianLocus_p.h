#ifndef PLANCKIANLOCUS_P_H
#define PLANCKIANLOCUS_P_H

// The blackbody locus in CIE 1960 u, v, over the reciprocal temperature in mired (1e6 K / T). Equal steps of it look
// about equally large, and infinite temperature is an ordinary point, at 0.
namespace lxcolor {

constexpr double kMaxMired = 1000.0; ///< 1000 K.

struct LocusPoint
{
    double u;
    double v;
    double du; ///< Change of u a mired.
    double dv; ///< Change of v a mired.
};

/// The locus point at 0..kMaxMired, integrated from Planck's law.
LocusPoint planckianPoint(double mired);

/// The point of the locus nearest to a chromaticity.
struct NearestOnLocus
{
    bool found;   ///< False when it is an end of the locus.
    double mired; ///< 0..kMaxMired.
    double duv;   ///< Distance in CIE 1960 u, v; positive above the locus.
};

NearestOnLocus nearestOnLocus(double u, double v);

/// The chromaticity at a distance from a point of the locus, along its normal.
void moveOffLocus(const LocusPoint& point, double duv, double& u, double& v);

} // namespace lxcolor

#endif
