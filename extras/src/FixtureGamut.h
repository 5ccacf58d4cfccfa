#ifndef FIXTUREGAMUT_H
#define FIXTUREGAMUT_H

#include "ColorUtils.h"
#include "LXColorExtrasExport.h"
#include "MatchReport.h"

#include <QJsonObject>
#include <QPointF>
#include <QString>
#include <QVector>

/**
 * The chromaticities that a fixture can show.
 *
 * The *triangle* of its red, green and blue emitters is the gamut of colour matching: what lies outside is moved to the
 * nearest point of it. The *hull* around all emitters is what the fixture could show with levels of its own; further
 * emitters, such as amber, may reach beyond the triangle.
 *
 * Chromaticities are CIE 1931 x, y, areas and distances in CIE 1976 u'v'. Taken from the profile's record when it is
 * made; later changes of the record are not seen. Numbers that do not exist are NaN here and null in JSON.
 */
class LXCOLOR_EXTRAS_EXPORT FixtureGamut
{
public:
    /// An emitter at a corner.
    struct LXCOLOR_EXTRAS_EXPORT Corner
    {
        QString name;               ///< As the fixture's record has it.
        QPointF xy;                 ///< CIE 1931 x, y; NaN for an emitter that has none.
        QPointF uvPrime() const;    ///< CIE 1976 u', v'.
        QJsonObject toJson() const; ///< name, x, y, uPrime, vPrime.
    };

    /// How a chromaticity lies to the gamut.
    struct LXCOLOR_EXTRAS_EXPORT Place
    {
        bool inside = false;     ///< Whether it lies in the triangle; its boundary counts as in it.
        bool insideHull = false; ///< Whether it lies in the hull or on its boundary.
        QPointF nearest;         ///< The nearest point of the triangle by distance in x, y: itself when inside.
        double distance = MatchReport::none;                        ///< From there to the nearest point; 0 when inside.
        MatchReport::GamutSide side = MatchReport::GamutSide::None; ///< Where that is; None when inside.

        QString sideInWords() const; ///< "the blue corner", translated; "the gamut" for none.
        QJsonObject
        toJson() const; ///< inside, insideHull, side (as MatchReport has it), distance, nearest (x, y, uPrime, vPrime).
    };

    /// The gamut of a profile's emitters in the profile's own layout. A single-channel profile has none.
    explicit FixtureGamut(ColorUtils::TonematchProfileID profile);

    bool isEmpty() const { return m_triangle.isEmpty(); } ///< Whether there is no gamut.
    /// Red, green and blue; nothing where there is no gamut.
    const QVector<Corner>& triangle() const { return m_triangle; }
    /// The emitters at the corners of the hull, counter-clockwise, from the first in channel order.
    const QVector<Corner>& hull() const { return m_hull; }
    /// Whether an emitter reaches beyond the triangle.
    bool reachesBeyondTriangle() const;

    /// In u'v'; 0 where there is no gamut.
    ///@{
    double triangleArea() const;
    double hullArea() const;
    ///@}
    /// That of the primaries of ITU-R BT.709 and sRGB, in u'v'.
    static double srgbArea();

    /// How a CIE 1931 chromaticity lies to the gamut; nothing is inside where there is none.
    Place placeOf(QPointF xy) const;

private:
    QVector<Corner> m_triangle;
    QVector<Corner> m_hull;
};

#endif
