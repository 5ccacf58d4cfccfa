#include "OutputRoute_p.h"

namespace lxcolor {

namespace {

using Face = OutputRequest::Face;

/// The colour was made for this very fixture in this layout.
bool fitsTarget(const OutputRequest& request, const IOModeRow& mode)
{
    return mode.inputConfiguration == request.configuration && request.profile == request.targetProfile &&
           (mode.id == ColorUtils::IOModeRGB || (mode.isNtoN && request.face != Face::Yxy));
}

/// The colour is a plain generic RGB one and the mode makes do with that.
bool isPassedThrough(const OutputRequest& request, const IOModeRow& mode)
{
    return request.profile == ColorUtils::ProfileGenericRGB && request.configuration == ColorUtils::ConfigRGB &&
           request.face != Face::Yxy && !(request.face == Face::NChannel && request.colorimetric) &&
           (mode.is3toN || (mode.isNtoN && request.allowRgbPassThrough));
}

bool isGenericRgb(const OutputRequest& request, const IOModeRow& mode)
{
    return request.profile == ColorUtils::ProfileGenericRGB &&
           (mode.inputConfiguration == ColorUtils::ConfigRGB ||
            (request.configuration == ColorUtils::ConfigRGB && mode.isNtoN));
}

} // namespace

OutputRoute chooseOutputRoute(const OutputRequest& request, const IOModeRow& mode)
{
    if (!fitsTarget(request, mode) && !isPassedThrough(request, mode))
        return OutputRoute::Matched;
    if (isGenericRgb(request, mode))
        return OutputRoute::RgbFace;
    switch (request.face) {
    case Face::NChannel:
        return OutputRoute::OwnLevels;
    case Face::Yxy:
        return OutputRoute::Matched;
    case Face::RgbOrHsv:
        return OutputRoute::RgbFace;
    default:
        return OutputRoute::Dark;
    }
}

} // namespace lxcolor
