#ifndef CURVELOOKUP_P_H
#define CURVELOOKUP_P_H

#include "Curve.h"

namespace lxcolor {

/// What Curve::applyCurve() looks up, without a call: it is done for each channel of each fixture.
struct CurveLookup
{
    static unsigned char value8(const Curve& curve, int value)
    {
        return curve.lut8 ? curve.lut8[qBound(0, value, 255)] : static_cast<unsigned char>(value);
    }
    static unsigned short value16(const Curve& curve, int value)
    {
        return curve.lut16 ? curve.lut16[qBound(0, value, 65535)] : static_cast<unsigned short>(value);
    }
};

} // namespace lxcolor

#endif
