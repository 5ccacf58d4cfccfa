#ifndef CHROMATICITY_P_H
#define CHROMATICITY_P_H

namespace lxcolor {

/// CIE 1931 chromaticity.
struct Chromaticity
{
    double x;
    double y;
};

/// A light: the output ratio 0..1 of its brightest emitter, and its chromaticity.
struct Yxy
{
    double Y;
    Chromaticity xy;
};

/// Emitters by reference: CIE 1931 XYZ of each at full level, in channel order.
struct EmitterView
{
    const double* X;
    const double* Y;
    const double* Z;
    int count;
};

} // namespace lxcolor

#endif
