#ifndef MATCHREPORT_H
#define MATCHREPORT_H

#include "ColorUtils.h"
#include "LXColorExtrasExport.h"

#include <QCoreApplication>
#include <QJsonObject>
#include <QPointF>
#include <QString>
#include <QVector>

#include <limits>

class LXColor;

/**
 * What becomes of one colour on one fixture, and why: the light asked for, the gamut it was moved into, the bytes that
 * are sent, the light that these bytes make, and one sentence that says it in words.
 *
 * The bytes are those of ColorUtils::updateBuffer() for the channels that the IO mode takes in; the light is computed
 * forward from them, through the fixture's onboard curve and emitters, so that it holds whatever rounding and clipping
 * did. Emitters beyond those channels count as dark. Every input gives a defined report.
 * Numbers that do not exist (the chromaticity of black, say) are NaN here and null in JSON.
 *
 * Distances are in CIE 1976 u'v', where 0.001 is about one MacAdam step.
 */
struct LXCOLOR_EXTRAS_EXPORT MatchReport
{
    Q_DECLARE_TR_FUNCTIONS(MatchReport)

public:
    /// A number that does not exist.
    static constexpr double none = std::numeric_limits<double>::quiet_NaN();

    /// The kind of answer.
    enum class Verdict {
        Invalid,       ///< The colour is invalid; the fixture stays dark.
        Undefined,     ///< Intensity or chromaticity of the colour is not a finite number.
        Black,         ///< The colour gives no light.
        SingleChannel, ///< The IO mode has one channel, which has no chromaticity to match.
        PassedThrough, ///< The colour's own levels were sent, through the software curve.
        Unsolved,      ///< Matched, but no mix of emitters was found; the fixture stays dark.
        InsideGamut,   ///< Matched: the chromaticity is one that the fixture can show.
        MovedIntoGamut ///< Matched, after the chromaticity was moved to the nearest point of the gamut.
    };

    /// The part of the gamut's boundary that a chromaticity was moved to.
    enum class GamutSide { None, RedGreen, GreenBlue, BlueRed, RedCorner, GreenCorner, BlueCorner };

    /// The fixture and the way it is driven.
    struct Target
    {
        /// An id without a profile acts as the library has it: generic RGB.
        ColorUtils::TonematchProfileID profile = ColorUtils::ProfileGenericRGB;
        /// A number that names no IO mode acts as IOModeRGB.
        ColorUtils::IOModeID ioMode = ColorUtils::IOModeRGB;
        /// Bytes a channel: 2, or 1 for every other number.
        int resolution = 1;
        /// Curve type of the software curve that levels passed through get.
        int directCurve = 0;
        /// Curve type of the fixture's onboard curve; -1 for the profile's own.
        int onboardCurve = -1;
        /// Whether generic RGB colours may go to the fixture as they are in a one-to-one mode.
        bool allowRgbPassThrough = true;
    };

    /// A light: the output ratio of its brightest emitter, and its CIE 1931 chromaticity.
    struct LXCOLOR_EXTRAS_EXPORT Light
    {
        double intensity = none; ///< 0..1; what an xyY colour holds is not limited.
        double x = none;         ///< With y, NaN where there is no light.
        double y = none;         ///< With x, NaN where there is no light.

        bool hasChromaticity() const; ///< Whether x and y are finite.
        QPointF xy() const;           ///< CIE 1931 x, y.
        QPointF uvPrime() const;      ///< CIE 1976 u', v'; NaN without a chromaticity.
    };

    /// One channel of the fixture, with the emitter it drives.
    struct Emitter
    {
        QString name;         ///< As the fixture's record has it.
        double level = 0.0;   ///< What was solved (linear light) or passed through, before any curve; 0..1 as a rule.
        int drive = 0;        ///< What is sent: 0..255, or 0..65535 at two bytes a channel.
        double output = 0.0;  ///< The light that makes, 0..1 of the emitter's full output.
        bool emitting = true; ///< False for a channel that the record knows no emitter for.
    };

    /// The report on \a color.
    static MatchReport make(const LXColor& color, const Target& target);

    Target target;      ///< As asked for; IO mode, resolution and onboard curve are those that count.
    QString targetName; ///< The translated name of the profile that counts.
    QString ioModeName; ///< The translated name of the IO mode that counts.

    Verdict verdict = Verdict::Invalid; ///< What kind of answer the rest is.
    Light requested; ///< What the colour means: its own xyY, or its levels through its own fixture's emitters.
    Light aimed; ///< What the levels were solved for: requested, moved into the gamut. As requested if passed through.
    Light achieved; ///< What the bytes make of the fixture.

    bool insideGamut = false;         ///< Whether the requested chromaticity is in the triangle of red, green and blue.
    GamutSide side = GamutSide::None; ///< Where it was moved to.
    double moved = none;              ///< How far, in u'v'; 0 where it was not.
    double deviation = none;          ///< From requested to achieved, in u'v'.

    /**
     * From aimed to achieved, in u'v', at one and at two bytes a channel: what rounding leaves, and at two bytes the
     * fit of the onboard curve and its inverse. Software curves are defined by their 16-bit output, so for levels
     * passed through the two-byte run is what the one-byte run is compared with. NaN where a run is dark.
     */
    ///@{
    double roundingError8 = none;
    double roundingError16 = none;
    ///@}

    QVector<Emitter> emitters;  ///< The channels that the IO mode takes in, in the fixture's order.
    QList<unsigned char> bytes; ///< The DMX byte run of the channels that the IO mode takes in.
    /// CIE 1931 Y of the achieved light as a share of the most that the fixture gives at that chromaticity; of a single
    /// channel, its output.
    double luminanceShare = none;

    /// Whether no emitter gives light.
    bool isDark() const;
    /// Whether levels were found for the fixture's emitters: the last two verdicts.
    bool isMatched() const;

    /// The report in one translated sentence.
    QString sentence() const;

    /**
     * The report as JSON. Every key is always there; numbers that do not exist are null, names are translated, words of
     * `verdict` and `side` are not.
     *
     *     verdict          "invalid" "undefined" "black" "singleChannel" "passedThrough" "unsolved" "insideGamut"
     *                      "movedIntoGamut"
     *     sentence         text
     *     target           profile, profileName, ioMode, ioModeName, resolution, directCurve, onboardCurve,
     *                      allowRgbPassThrough
     *     requested, aimed, achieved    intensity, x, y, uPrime, vPrime
     *     gamut            inside, side ("none" "redGreen" "greenBlue" "blueRed" "red" "green" "blue"), moved
     *     deviation        number
     *     roundingError    bits8, bits16
     *     emitters         array of name, level, drive, output, emitting
     *     bytes            array of numbers
     *     luminanceShare   number
     */
    QJsonObject toJson() const;
};

#endif
