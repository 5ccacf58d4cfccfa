#ifndef TINTLINETABLE_P_H
#define TINTLINETABLE_P_H

#include "CCTRegionGeometry_p.h"

namespace lxcolor {

/// The tint line at the step of a valid CCT, as tintLineThrough() makes it, from a table that is filled on first use.
const TintLine& tintLineOfValidCCT(int cct);

} // namespace lxcolor

#endif
