#ifndef TRISTIMULUS_H
#define TRISTIMULUS_H

#include "ColorUtils.h"
#include "LXColorExport.h"

#include <QPointF>
#include <QStringList>
#include <QVector>

#include <memory>

namespace lxcolor {
class GamutTriangle;
struct Yxy;
} // namespace lxcolor

/// Squared distance between two points.
LXCOLOR_EXPORT double length_squared(QPointF a, QPointF b);
/// Distance between two points. Not to be confused with std::distance: call it as ::distance where both are visible.
LXCOLOR_EXPORT double distance(QPointF a, QPointF b);
/// Dot product of two points taken as vectors.
LXCOLOR_EXPORT double dot(QPointF a, QPointF b);

/**
 * The measured emitters of one fixture model: CIE 1931 XYZ tristimulus values of each channel at full level, on a
 * common scale of the record's own, and the gamut that its red, green and blue emitters span.
 *
 * X, Y and Z have one entry a channel, in channel order, red, green and blue first. Where the three differ in length
 * the shortest counts.
 */
class LXCOLOR_EXPORT Tristimulus
{
public:
    /// A record without emitters and with an empty gamut.
    explicit Tristimulus(ColorUtils::TonematchProfileID profile);

    /// The id the record was made for.
    ColorUtils::TonematchProfileID profileID() const;

    /// The values by reference; a change of them is seen by every conversion. The gamut follows on calculatePolygon().
    ///@{
    QVector<double>& getX();
    QVector<double>& getY();
    QVector<double>& getZ();
    ///@}
    /// Replaces the values, unchecked. The gamut follows on calculatePolygon().
    ///@{
    void setX(QVector<double> x);
    void setY(QVector<double> y);
    void setZ(QVector<double> z);
    ///@}

    /// Names the channels, in channel order and already translated. Their number is not compared with the values.
    void setChannelNames(QStringList names);
    /// The names of the channels, in channel order.
    QStringList getChannelNames() const;
    /// The number of channel names.
    int numChannels() const;

    /**
     * Makes the gamut the triangle of the chromaticities of the first three emitters. An emitter that is missing, or
     * that gives no finite chromaticity, counts as (0, 0).
     */
    void calculatePolygon();
    /// Whether a CIE 1931 chromaticity lies in the gamut, as QPolygonF::containsPoint() with Qt::OddEvenFill sees it.
    bool inside(double x, double y);
    /**
     * The chromaticity of the gamut nearest to (x, y): the point itself and true when it is inside, the nearest point
     * of the boundary and false when it is not. Leaves the outputs alone when the gamut is empty; gives what is not a
     * number for a point that is not finite.
     */
    bool closestPtOnGamut(double x, double y, double& outX, double& outY);

private:
    friend class ColorUtils;
    /// Gives each the chromaticity of closestPtOnGamut().
    void moveIntoGamut(lxcolor::Yxy* lights, int count) const;

    QVector<double> m_X;
    QVector<double> m_Y;
    QVector<double> m_Z;
    std::shared_ptr<const lxcolor::GamutTriangle> m_gamut; ///< Null before calculatePolygon().
    ColorUtils::TonematchProfileID m_profileID;
    QStringList m_channelNames;
};

#endif
