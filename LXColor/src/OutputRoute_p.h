#ifndef OUTPUTROUTE_P_H
#define OUTPUTROUTE_P_H

#include "FixtureTables_p.h"

namespace lxcolor {

/// How a colour becomes levels for a fixture.
enum class OutputRoute {
    Matched,   ///< Solved for the emitters of the fixture: its own chromaticity, or that of its levels.
    RgbFace,   ///< Its red, green and blue as they are.
    OwnLevels, ///< Its channel levels as they are.
    Dark       ///< It has no levels.
};

/// What the choice depends on.
struct OutputRequest
{
    enum class Face { None, RgbOrHsv, Yxy, NChannel };

    Face face;
    bool colorimetric; ///< N-channel levels that are to be rendered anew through xyY.
    int profile;
    int configuration;
    int targetProfile;
    bool allowRgbPassThrough;
};

OutputRoute chooseOutputRoute(const OutputRequest& request, const IOModeRow& mode);

} // namespace lxcolor

#endif
