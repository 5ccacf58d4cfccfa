#ifndef CURVETABLES_P_H
#define CURVETABLES_P_H

// The software dimming curves: 16-bit output at the 256 points of an 8-bit input, strictly increasing from 0.
namespace lxcolor {

constexpr int kCurvePointCount = 256;

extern const unsigned short kNormalCurvePoints[kCurvePointCount];
extern const unsigned short kTungstenCurvePoints[kCurvePointCount];

} // namespace lxcolor

#endif
