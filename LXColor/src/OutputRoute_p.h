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

/// The colour was made for this very fixture in this layout.
inline bool fitsTarget(const OutputRequest& request, const IOModeRow& mode)
{
    return mode.inputConfiguration == request.configuration && request.profile == request.targetProfile &&
           (mode.id == ColorUtils::IOModeRGB || (mode.isNtoN && request.face != OutputRequest::Face::Yxy));
}

/// The colour is a plain generic RGB one and the mode makes do with that.
inline bool isPassedThrough(const OutputRequest& request, const IOModeRow& mode)
{
    return request.profile == ColorUtils::ProfileGenericRGB && request.configuration == ColorUtils::ConfigRGB &&
           request.face != OutputRequest::Face::Yxy &&
           !(request.face == OutputRequest::Face::NChannel && request.colorimetric) &&
           (mode.is3toN || (mode.isNtoN && request.allowRgbPassThrough));
}

inline bool isGenericRgb(const OutputRequest& request, const IOModeRow& mode)
{
    return request.profile == ColorUtils::ProfileGenericRGB &&
           (mode.inputConfiguration == ColorUtils::ConfigRGB ||
            (request.configuration == ColorUtils::ConfigRGB && mode.isNtoN));
}

inline OutputRoute chooseOutputRoute(const OutputRequest& request, const IOModeRow& mode)
{
    if (!fitsTarget(request, mode) && !isPassedThrough(request, mode))
        return OutputRoute::Matched;
    if (isGenericRgb(request, mode))
        return OutputRoute::RgbFace;
    switch (request.face) {
    case OutputRequest::Face::NChannel:
        return OutputRoute::OwnLevels;
    case OutputRequest::Face::Yxy:
        return OutputRoute::Matched;
    case OutputRequest::Face::RgbOrHsv:
        return OutputRoute::RgbFace;
    default:
        return OutputRoute::Dark;
    }
}

} // namespace lxcolor

#endif
