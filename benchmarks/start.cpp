// Programs that are started and end, for what a start costs: START_QT links Qt, START_ONE_COLOR and so on use the
// library once.
#if defined(START_ONE_COLOR)
#    include "ColorUtils.h"
#    include "LXColor.h"
#elif defined(START_ONE_WHITE)
#    include "CCTUtils.h"
#elif defined(START_SWATCHES)
#    include "LXColorLibrary.h"

#    include <QLoggingCategory>
#elif defined(START_QT)
#    include <QColor>
#    include <QDomDocument>
#endif

int main()
{
#if defined(START_ONE_COLOR)
    const LXColor color = LXColor::fromxyY(0.4234, 0.3990, 0.8, ColorUtils::ProfileGenericRGB);
    return ColorUtils::updateBuffer(0, 1, color, false, 4, 1, ColorUtils::IOModeRGBW,
                                    ColorUtils::ProfileWashLineQP6RGBW)
               .size() -
           4;
#elif defined(START_ONE_WHITE)
    double x = 0.0;
    double y = 0.0;
    return CCTUtils::getxyFromCCT(3200, x, y) ? 0 : 1;
#elif defined(START_SWATCHES)
    QLoggingCategory::setFilterRules("default.debug=false");
    LXColorLibrary::Instance()->init(true, true, true);
    return LXColorLibrary::Instance()->createColor(LXColor(Qt::red), "", "Gels", "", "").isEmpty() ? 1 : 0;
#elif defined(START_QT)
    return QColor(Qt::red).isValid() && QDomDocument().isNull() ? 0 : 1;
#endif
}
