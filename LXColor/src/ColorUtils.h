#ifndef COLORUTILS_H
#define COLORUTILS_H

#include "LXColorExport.h"

#include <QList>
#include <QMap>
#include <QPointF>
#include <QString>
#include <QStringList>
#include <QVector>

class LXColor;
class Tristimulus;

/**
 * Identifiers of fixture profiles, channel layouts and IO modes, and the static operations that lead a colour through a
 * fixture's emitters to DMX bytes.
 *
 * The class has no state; every operation is static. Unless an operation says otherwise, arrays are caller-owned, a
 * null array makes the operation do nothing, and nothing throws.
 *
 * Terms used throughout:
 * - *Yxy*: an array of three doubles Y, x, y. Y in 0..1 is the output ratio of the brightest emitter (not a luminance),
 *   x and y are CIE 1931 chromaticity coordinates.
 * - *level*: linear light output of one emitter, 0..1.
 * - *curve type*: 0 linear, 1 normal (square law), 2 tungsten; any other number acts as linear.
 * - *DMX byte run*: `count` channels of `resolution` bytes each (1 for 8-bit, 2 for 16-bit, high byte first).
 */
class LXCOLOR_EXPORT ColorUtils
{
public:
    // ---- Identifiers. The numbers are stored in documents and must never change. ----

    /// The fixture colour profile whose measured emitters interpret a colour.
    enum TonematchProfileID : qint32 {
        ProfileNone = -1, ///< No profile; as an argument of a conversion, the colour's own.
        ProfileGenericRGB = 0,
        ProfileFlareFlashQVS = 1,
        ProfilePrismaFlowCoveStrip = 2,
        ProfileGenericRGBW = 3,
        ProfileSingleChannel = 4,
        ProfileWashLineQP6RGBA = 5,
        ProfileWashLineQP6RGBW = 6,
        ProfilePixelNodeRGB = 7,
        ProfileFloodBarZN2RGBA = 8,
        ProfileFloodBarZN2RGBW = 9
    };

    /// The emitter channels of a fixture or of a colour's levels, in channel order.
    enum ChannelConfiguration : qint32 {
        ConfigUnknown = 0, ///< No channels; as an argument of LXColor::toYxy(), the colour's own configuration.
        ConfigRGB = 1,
        ConfigRGBAW = 2,
        ConfigRGBW = 3,
        ConfigSingleChannel = 4,
        ConfigRGBWW = 5,
        ConfigRGBA = 6
    };

    /// How a fixture is driven: one-to-one in a layout (0 to 4, 9) or with three RGB channels made into more (5 to 8).
    enum IOModeID : qint32 {
        IOModeRGB = 0,
        IOModeRGBA = 1,
        IOModeRGBW = 2,
        IOModeRGBAW = 3,
        IOModeRGBWW = 4,
        IOModeRGBToRGBA = 5,
        IOModeRGBToRGBW = 6,
        IOModeRGBToRGBAW = 7,
        IOModeRGBToRGBWW = 8,
        IOModeSingleChannel = 9
    };

    /// Whether colours are matched through the measured emitters of the fixture.
    enum ToneMatchMode : qint32 { ToneMatchDisabled = 0, ToneMatchEnabled = 1 };

    /// The one (empty) object of this class; created on first use, never destroyed.
    static ColorUtils* getInstance();

    // ---- Channel configurations and the list of profiles. No registry is needed for these. ----

    /// The plain, untranslated name of a configuration, such as "RGBAW"; "Unknown" for a number outside 1..6.
    static QString nameForChannelConfiguration(ChannelConfiguration configuration);
    /// The number of channels of a configuration, 1..5; 0 for a number outside 1..6.
    static int configChannelCount(ChannelConfiguration configuration);
    /// The profile ids 0..9, ascending; without the generic RGBW and single-channel ones (3 and 4) unless \a all.
    static QList<TonematchProfileID> tonematchProfileIDList(bool all);

    // ---- Look-ups in the profile registry. An id without a profile answers for profile 0. ----

    /// The translated display name of a profile.
    static QString tonematchProfileIDName(TonematchProfileID profile);
    /// The profile's own channel layout.
    static ChannelConfiguration nChannelConfigurationForTonematchProfileID(TonematchProfileID profile);
    /// The IO mode in which a new fixture of this profile starts.
    static IOModeID defaultIOModeIDForTonematchProfileID(TonematchProfileID profile);
    /// The IO mode for a fixture of this profile that is fed three RGB channels.
    static IOModeID defaultIOModeIDForTonematchProfileID3toN(TonematchProfileID profile);
    /// Whether colour matching is on by default in \a ioMode (an IOModeID); false where the profile says nothing.
    static bool defaultToneMatchEnabled(TonematchProfileID profile, int ioMode);
    /// The IO modes that the fixture supports, in the order in which they are offered.
    static QList<IOModeID> ioModesForTonematchProfileID(TonematchProfileID profile);
    /// The display names of tonematchProfileIDList(\a all), in that order.
    static QStringList tonematchProfileIDNameList(bool all);
    /// Profile id to display name for all ten profiles. Names are those of the first call.
    static QMap<int, QString> tonematchProfileIDNameMap();
    /// The curve type of the dimming curve built into the fixture.
    static int defaultCurveTypeForTonematchProfileID(TonematchProfileID profile);

    // ---- Colour to chromaticity and intensity. ----

    /**
     * Tristimulus values to Y, x, y: Y is the largest of X, Y and Z; x = X/(X+Y+Z), y = Y/(X+Y+Z) (CIE 1931).
     * All zero when none of \a XYZ is above 0; x = y = 0 when the quotients are not finite.
     */
    static void convertXYZtoYxy(const double* XYZ, double* Yxy);
    /**
     * The light that emitters \a tristimulus give when driven with the levels of \a color through the onboard dimming
     * curve \a curveType: Y is the largest output ratio, x and y the chromaticity of the additive mix.
     *
     * RGB and HSV colours drive the first three emitters, N-channel colours one emitter a level. A level without an
     * emitter is ignored. A black colour gives 0, 0, 0; where no emitter gives light (also for an invalid or Yxy
     * colour, which has no levels, and for a null \a tristimulus) x = y = 0.
     */
    static void convertLXColorToYxy(const LXColor& color, Tristimulus* tristimulus, double* Yxy, int curveType);
    /// The same with the emitters and the onboard curve of the colour's own profile and configuration.
    static void convertLXColorToYxy(const LXColor& color, double* Yxy);
    /// Output ratio 0..1 of the square-law response at a 16-bit drive level, a fitted polynomial; 65535 gives 1.0.
    static double dmx16ToSquareLawDimRatio(unsigned short level);
    /// Output ratio 0..1 of the tungsten response at a 16-bit drive level; 0 below 11,084, 1.0 at 65535.
    static double dmx16ToTungstenDimRatio(unsigned short level);

    // ---- Chromaticity and intensity to levels. ----

    /**
     * The levels with which the emitters of a fixture give the chromaticity of \a Yxy as brightly as they can, scaled
     * by Y. Found by an exhaustive search over mixes of two solved emitters with the others off or full.
     *
     * Writes configChannelCount(\a configuration) levels: 0..1 for Y in 0..1, not clamped beyond, and not a number
     * where a non-finite Y makes the product so. Channels for which the profile has no emitter get 0, as do all
     * channels when no mix has the chromaticity. With \a clampToGamut a chromaticity outside the red-green-blue
     * triangle is first moved to the nearest point of it.
     */
    static void convertYxyToNChannel(double* Yxy, double* levels, ChannelConfiguration configuration,
                                     TonematchProfileID profile, bool clampToGamut);
    /**
     * Solves m[0][0] a + m[0][1] b = m[0][2], m[1][0] a + m[1][1] b = m[1][2] with the single-precision roundings of
     * the colour solver. A singular matrix gives values that are not finite.
     */
    static void gaussianEliminationTwoByThree(const double m[2][3], double& a, double& b);
    /// True when no ratio is below 0 or above 1. An empty vector is valid; a NaN fails neither test.
    static bool validateDimmingRatio(const QVector<double>& ratios);
    /// Distance from \a p to the segment \a v - \a w; \a closest receives the segment's point nearest to \a p.
    static double minDistance(QPointF v, QPointF w, QPointF p, QPointF& closest);

    // ---- Dimming curves: inverses of the curves built into fixtures. ----

    /**
     * The drive level whose light value a d^2 + b d + c equals \a target, a whole number in 0..\a max. 0 when the
     * equation has no positive root.
     */
    static float quadraticSolver(float a, float b, float c, float target, float max);
    /// 16-bit light value to 8-bit level, linear: p / 257 rounded half up.
    static unsigned char pwm16ToMNormDLinearRes8(unsigned short pwm);
    /// 16-bit light value to 8-bit level of a fixture with the normal onboard curve.
    static unsigned char pwm16ToMNormDNormRes8(unsigned short pwm);
    /// 16-bit light value to 16-bit level of a fixture with the normal onboard curve.
    static unsigned short pwm16ToMNormDNormRes16(unsigned short pwm);
    /// 16-bit light value to 8-bit level of a fixture with the tungsten onboard curve.
    static unsigned char pwm16ToMNormDTungstenRes8(unsigned short pwm);
    /// 16-bit light value to 16-bit level of a fixture with the tungsten onboard curve.
    static unsigned short pwm16ToMNormDTungstenRes16(unsigned short pwm);
    /// The function of the like name, for \a count values: 16-bit light values to levels of a fixture with the linear,
    /// normal or tungsten onboard curve (linear to 16 bits copies). Nothing is written for a count of 0 or less.
    ///@{
    static void pwmToMNormDLinearRes8(unsigned short* pwm, unsigned char* out, int count);
    static void pwmToMNormDLinearRes16(unsigned short* pwm, unsigned short* out, int count);
    static void pwmToMNormDNormRes8(unsigned short* pwm, unsigned char* out, int count);
    static void pwmToMNormDNormRes16(unsigned short* pwm, unsigned short* out, int count);
    static void pwmToMNormDTungstenRes8(unsigned short* pwm, unsigned char* out, int count);
    static void pwmToMNormDTungstenRes16(unsigned short* pwm, unsigned short* out, int count);
    ///@}
    /// Levels 0..1 to 16-bit light values, rounded half up. Levels outside 0..1 saturate; NaN gives 0.
    static void nChannelFToPWM(double* levels, unsigned short* pwm, int count);
    /// 16-bit light value to 8-bit level by the inverse of 0.9412 d^2 + 16.937 d, truncated.
    static unsigned char lut16BitToBit(unsigned short value);

    // ---- Dimming curves: levels to output values. ----

    /**
     * \a count levels 0..1 to DMX bytes, through the inverse of the onboard curve \a curveType when \a mode is 3, and
     * through the software curve of that type in any other mode.
     *
     * In mode 3, \a resolution 2 writes two bytes a channel and every other resolution one. In the other modes
     * resolution 1 writes one byte a channel, 2 writes two, and any other writes nothing. Levels outside 0..1 saturate;
     * NaN gives 0.
     */
    static void applyCurve(int count, int resolution, double* levels, unsigned char* out, int curveType, int mode);
    /// The same to 16-bit values.
    static void applyCurve16(int count, double* levels, unsigned short* out, int curveType, int mode);

    // ---- Output to fixtures. `ioMode` is an IOModeID; a number that names no IO mode acts as IOModeRGB. ----

    /**
     * The levels of \a color for a fixture of \a targetProfile driven in \a ioMode: its own levels where they fit the
     * fixture, or those solved for its emitters.
     *
     * Returns a new array of \a count levels (none for a negative count) that the caller releases with delete[]. Levels
     * beyond the channels that the mode takes in, or beyond those of the colour, are 0. \a converted is set to true
     * when the colour's own levels were converted through its emitters, and is otherwise left as it is.
     *
     * An RGB or HSV colour that fits a fixture of a profile other than 0 gives its red, green and blue; an invalid
     * colour gives zeros.
     */
    static double* convertLXColorToNChannelF(bool& converted, LXColor& color, bool allowRgbPassThrough, int count,
                                             TonematchProfileID targetProfile, int ioMode, bool clampToGamut,
                                             int unused = 0);
    /**
     * \a color as DMX bytes for a fixture. Levels that were passed through get the software curve \a directCurve;
     * solved levels are compensated for the fixture's \a onboardCurve.
     *
     * Writes exactly \a count x \a resolution bytes to \a out, all of them defined; nothing when either is 0 or less.
     * Bytes that a resolution above 2 leaves without a value are 0.
     */
    static void convertLXColorToDMX(LXColor& color, bool allowRgbPassThrough, int count, int resolution,
                                    unsigned char* out, int directCurve, int onboardCurve,
                                    TonematchProfileID targetProfile, int ioMode);
    /**
     * The same for \a colorCount colours at once and fixtures of one kind, which takes less time for each than one by
     * one. Writes \a colorCount x \a count x \a resolution bytes to \a out, those of the first colour first.
     */
    static void convertLXColorsToDMX(const LXColor* const* colors, int colorCount, bool allowRgbPassThrough, int count,
                                     int resolution, unsigned char* out, int directCurve, int onboardCurve,
                                     TonematchProfileID targetProfile, int ioMode);
    /// convertLXColorToDMX() as a list. Mind the order of the last two arguments.
    static QList<unsigned char> updateBuffer(int directCurve, int onboardCurve, const LXColor& color,
                                             bool allowRgbPassThrough, int count, int resolution, int ioMode,
                                             TonematchProfileID targetProfile);
    /**
     * 16-bit drive values of a fixture for \a Yxy, compensated for its onboard curve \a curveType. Writes
     * configChannelCount(\a configuration) values.
     */
    static void convertYxyToNChannelAndApplyCurve(double* Yxy, unsigned short* out, ChannelConfiguration configuration,
                                                  TonematchProfileID profile, int curveType, bool clampToGamut);
    /**
     * Composites \a incoming over \a current by the alpha of \a incoming. A black \a current or an opaque \a incoming
     * makes it a plain assignment; a blended colour carries profile 0.
     */
    static void updateColor(LXColor& current, const LXColor& incoming);
    /// A run of 3 or 6 bytes (three channels) with its first two channels repeated as channels 4 and 5; else empty.
    static QList<unsigned char> expandFor5Channels(QList<unsigned char>& bytes);

private:
    class Output;
    class OutputBlock;
};

#endif
