#include "ScreenColor.h"

#include "DisplayColor_p.h"
#include "LXColor.h"

QColor ScreenColor::ofLight(QPointF xy, double intensity)
{
    return QColor(lxcolor::dimmed(lxcolor::displayColor(xy.x(), xy.y()), intensity));
}

QColor ScreenColor::ofColor(const LXColor& color)
{
    if (!color.isValid())
        return {};
    QColor shown = color.getQColor(true);
    if (color.spec() == LXColor::Yxy || color.spec() == LXColor::NChannel) {
        double Y = 0.0;
        double x = 0.0;
        double y = 0.0;
        color.toYxy(ColorUtils::ConfigUnknown, ColorUtils::ProfileNone, -1).getYxyF(&Y, &x, &y, nullptr);
        shown = ofLight({x, y}, Y);
    }
    shown.setAlpha(color.alpha8());
    return shown;
}
