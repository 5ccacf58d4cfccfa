#ifndef EMITTERMIX_P_H
#define EMITTERMIX_P_H

#include "Chromaticity_p.h"

namespace lxcolor {

/// Adds up the light of a fixture's emitters, one channel after the other.
class EmitterMix
{
public:
    explicit EmitterMix(const EmitterView& emitters);

    /// The next emitter at an output ratio 0..1. Ratios beyond the fixture's emitters are ignored.
    void add(double outputRatio);
    /// Y is the largest ratio, x and y the chromaticity of the mix; x = y = 0 when it has none that is finite.
    Yxy result() const;

private:
    const EmitterView& m_emitters;
    int m_next = 0;
    double m_brightest = 0.0;
    double m_X = 0.0;
    double m_Y = 0.0;
    double m_Z = 0.0;
};

/// The chromaticity of tristimulus values (CIE 1931); 0, 0 when it is not finite.
Chromaticity chromaticityOf(double X, double Y, double Z);

} // namespace lxcolor

#endif
