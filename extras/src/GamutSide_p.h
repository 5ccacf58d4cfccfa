#ifndef GAMUTSIDE_P_H
#define GAMUTSIDE_P_H

#include "MatchReport.h"

#include <array>

namespace lxcolor {

/// A chromaticity this near to the gamut counts as in it: far below a step of 16 bits, above the rounding of the
/// computation, which puts the corners themselves outside.
constexpr double kGamutTolerance = 1e-7;

/// The part of a triangle's boundary that is nearest to a chromaticity; \a corners are red, green and blue.
MatchReport::GamutSide nearestSide(const std::array<QPointF, 3>& corners, QPointF xy);
/// The side as JSON has it, and in words that follow "to".
///@{
QString sideKey(MatchReport::GamutSide side);
QString sideInWords(MatchReport::GamutSide side);
///@}
/// In CIE 1976 u'v'; NaN where one of the chromaticities is not finite.
double uvPrimeDistance(QPointF xyA, QPointF xyB);

} // namespace lxcolor

#endif
