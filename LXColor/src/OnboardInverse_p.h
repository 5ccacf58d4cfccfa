#ifndef ONBOARDINVERSE_P_H
#define ONBOARDINVERSE_P_H

#include <QtGlobal>

// The dimming curves built into fixtures, inverse: from the 16-bit light value wanted to the drive level that gives it.
namespace lxcolor {

/// The drive level in 0..max, a whole number, whose model value a d^2 + b d + c equals the target.
float solveQuadratic(float a, float b, float c, float target, float max);

quint8 linearDrive8(quint16 light);
quint8 normalDrive8(quint16 light);
quint16 normalDrive16(quint16 light);
quint8 tungstenDrive8(quint16 light);
quint16 tungstenDrive16(quint16 light);

/// The inverse of a curve type as a table of 65536 drive levels, worked out when it is first asked for. Null for linear
/// curves and for unknown types, which are linear: see linearDrive8(); the 16-bit level is the light value.
const quint8* onboardTable8(int curveType);
const quint16* onboardTable16(int curveType);

/// The inverse of 0.9412 d^2 + 16.937 d, truncated and bounded to 255.
quint8 truncatedNormalDrive8(quint16 light);

} // namespace lxcolor

#endif
