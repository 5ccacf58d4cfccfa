#include "EmitterMix_p.h"

#include <cmath>

namespace lxcolor {

EmitterMix::EmitterMix(const EmitterView& emitters) : m_emitters(emitters) {}

void EmitterMix::add(double outputRatio)
{
    if (m_next >= m_emitters.count)
        return;
    m_X += m_emitters.X[m_next] * outputRatio;
    m_Y += m_emitters.Y[m_next] * outputRatio;
    m_Z += m_emitters.Z[m_next] * outputRatio;
    ++m_next;
    if (outputRatio > m_brightest)
        m_brightest = outputRatio;
}

Yxy EmitterMix::result() const { return {m_brightest, chromaticityOf(m_X, m_Y, m_Z)}; }

Chromaticity chromaticityOf(double X, double Y, double Z)
{
    const double sum = X + Y + Z;
    const Chromaticity xy = {X / sum, Y / sum};
    if (std::isfinite(xy.x) && std::isfinite(xy.y))
        return xy;
    return {0.0, 0.0};
}

} // namespace lxcolor
