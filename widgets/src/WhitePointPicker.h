#ifndef WHITEPOINTPICKER_H
#define WHITEPOINTPICKER_H

#include "ColorUtils.h"
#include "LXColor.h"
#include "LXColorWidgetsExport.h"

#include <QPointF>
#include <QWidget>

#include <memory>

/**
 * White light, picked by correlated colour temperature and tint: on the chromaticity diagram by mouse or arrow keys, or
 * as numbers. The gamut of a fixture is drawn with it, and a sentence says whether the white point lies in it.
 *
 * CCT and tint are those of CCTUtils: kelvin, 1950 to 11000 in steps of 10, and -32767 (towards magenta) to 32767
 * (towards green), which the field shows in percent.
 *
 * Keys on the diagram: Left and Right by 50 K (the picture's right is warmer), Up and Down by 1 % of tint; with Shift a
 * fifth and a tenth of that, with Page Up and Page Down ten times that of CCT; Home takes the tint away.
 */
class LXCOLOR_WIDGETS_EXPORT WhitePointPicker : public QWidget
{
    Q_OBJECT
    /// Kelvin.
    Q_PROPERTY(int cct READ cct NOTIFY whitePointChanged)
    /// CCTUtils::getMinTint()..getMaxTint().
    Q_PROPERTY(int tint READ tint NOTIFY whitePointChanged)

public:
    /// 3200 K without tint, at full intensity, on generic RGB.
    explicit WhitePointPicker(QWidget* parent = nullptr);
    ~WhitePointPicker() override;

    /// Kelvin, a step of CCTUtils.
    int cct() const;
    /// CCTUtils::getMinTint()..getMaxTint().
    int tint() const;
    /// 0..1.
    double intensity() const;
    /// CIE 1931 x, y of the white point.
    QPointF xy() const;
    /// The white point as an xyY colour of the intensity, of the generic RGB profile.
    LXColor color() const;

    /// The fixture whose gamut is shown.
    ColorUtils::TonematchProfileID fixture() const;
    /// Whether the white point lies in the gamut of the fixture.
    bool isInGamut() const;

    /// Whether the part of the diagram around white light is shown, rather than the whole.
    bool isZoomed() const;

public Q_SLOTS:
    /// Limited to what CCTUtils has; a CCT between two steps counts as the lower one.
    void setWhitePoint(int cct, int tint);
    /// Limited to 0..1; NaN counts as 0.
    void setIntensity(double intensity);
    /// The nearest white point of a colour, and its intensity. Nothing happens for a colour that is black or no colour,
    /// or that has no CCT within the range, and for one whose tint is beyond the range.
    void setColor(const LXColor& color);
    /// An id without a profile counts as generic RGB.
    void setFixture(ColorUtils::TonematchProfileID fixture);
    void setZoomed(bool zoomed); ///< Shows the part of the diagram around white light.

Q_SIGNALS:
    /// CCT or tint changed.
    void whitePointChanged(int cct, int tint);
    /// CCT, tint or intensity changed; \a color is color().
    void colorChanged(const LXColor& color);

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
