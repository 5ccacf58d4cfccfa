#ifndef COLORUTILS_P_H
#define COLORUTILS_P_H

#include "Chromaticity_p.h"
#include "ColorUtils.h"
#include "Tristimulus.h"
#include "TristimulusFactory.h"

#include <algorithm>

// What the sources of ColorUtils share: the way to the emitter data, and lights in the form that its interface has.
namespace lxcolor {

inline Tristimulus* emitterRecord(ColorUtils::TonematchProfileID profile,
                                  ColorUtils::ChannelConfiguration configuration)
{
    return TristimulusFactory::getInstance()->getTristimulus(profile, configuration);
}

inline EmitterView emittersOf(Tristimulus& record)
{
    const QVector<double>& X = record.getX();
    const QVector<double>& Y = record.getY();
    const QVector<double>& Z = record.getZ();
    return {X.constData(), Y.constData(), Z.constData(), std::min({X.size(), Y.size(), Z.size()})};
}

inline void store(const Yxy& light, double* Yxy)
{
    Yxy[0] = light.Y;
    Yxy[1] = light.xy.x;
    Yxy[2] = light.xy.y;
}

} // namespace lxcolor

#endif
