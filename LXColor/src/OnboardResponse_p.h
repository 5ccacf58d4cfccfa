#ifndef ONBOARDRESPONSE_P_H
#define ONBOARDRESPONSE_P_H

#include <QtGlobal>

// The dimming curves built into fixtures, forward: from drive level to light.
namespace lxcolor {

// The numbers of the dimming curves; any other number acts as linear.
constexpr int kCurveLinear = 0;
constexpr int kCurveNormal = 1;
constexpr int kCurveTungsten = 2;

/// Output ratio 0..1 of the square-law response at a 16-bit drive level; a polynomial fit.
double squareLawRatio(quint16 drive);
/// Output ratio 0..1 of the tungsten response at a 16-bit drive level; a polynomial fit.
double tungstenRatio(quint16 drive);
/// Output ratio of a channel driven with a level 0..1 through the onboard curve of a type.
double onboardOutputRatio(int curveType, double level);

} // namespace lxcolor

#endif
