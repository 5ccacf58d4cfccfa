#ifndef LXCOLOR_H
#define LXCOLOR_H

#include "ColorUtils.h"
#include "LXColorExport.h"

#include <QColor>
#include <QRgb>
#include <QString>
#include <QVector>

#include <cstring>

class QDataStream;
class QDebug;
class QLinearGradient;
class QMimeData;

namespace lxcolor {
struct RgbWords;
}

/// The MIME type of one colour, whose data are the value string in Latin-1.
inline constexpr char LXCOLOR_MIME_TYPE[] = "data/x-lxcolor";

/// Reads "#" and 6, 8, 12 or 16 hexadecimal digits (RRGGBB, AARRGGBB, RRRRGGGGBBBB, AAAARRRRGGGGBBBB) into \a out as
/// alpha, red, green, blue of 16 bits. False when \a s is null or does not begin with "#". With any other number of
/// digits, or with a character that is no hexadecimal digit, the result is true and components are 65536 or more, which
/// callers refuse as out of range.
LXCOLOR_EXPORT bool get_hex_rgb16(const char* s, uint* out);
/// The same for \a len characters; false for more than 17. A character above U+00FF ends the text there.
LXCOLOR_EXPORT bool get_hex_rgb16(const QChar* s, int len, uint* out);
/// A place for a table of colour names; there is none, names are resolved through QColor. Always false.
LXCOLOR_EXPORT bool get_named_rgb(const char* name, uint* out);

/**
 * A colour for lighting fixtures: one value in one of four faces (RGB, HSV, CIE xyY, or a level for each emitter),
 * together with the fixture profile and the channel configuration that say what light the values mean.
 *
 * Every face can be read in three widths: 8-bit integers 0..255, 16-bit integers 0..65535 and doubles 0..1. Values are
 * stored in 32 bits (8-bit v as v x 0x01010101, 16-bit v as v x 0x10001, a double f as f x 4294967295 + 0.5 truncated)
 * and read from the high bits, so that 8-bit and 16-bit values come back exactly. A getter of another face than the
 * stored one converts a temporary copy on each call; who needs several values converts once and reads the result.
 *
 * A setter that refuses its arguments leaves the colour invalid; a factory that does so returns an invalid colour.
 * Those that say so log a warning. NaN is out of every range. Nothing throws.
 */
class LXCOLOR_EXPORT LXColor
{
public:
    /// The fixture profile that gives the values their meaning.
    using TonematchProfileID = ColorUtils::TonematchProfileID;
    /// The channel layout that the values stand for.
    using ChannelConfiguration = ColorUtils::ChannelConfiguration;

    /// The face that is stored.
    enum Spec : qint32 { Invalid = 0, Rgb = 1, Hsv = 2, Yxy = 3, NChannel = 4 };
    /// Whether the levels of an N-channel colour are output as they are, or rendered anew through xyY.
    enum NChannelRenderType : qint32 { NChannelDirect = 0, NChannelColorimetric = 1 };

    // ---- Construction and assignment ----

    /// An invalid colour: opaque, all values 0, configuration RGB, profile 0.
    LXColor() = default;
    /// An RGB colour of profile 0 from 16-bit values; refused, with a warning, when one is above 65535.
    LXColor(uint r, uint g, uint b, uint a);
    /// An opaque Yxy colour of profile 0 with Y = 1.0. The chromaticity is not range-checked.
    LXColor(double x, double y);
    /// Copies share the levels of the N-channel face until one of them changes. What a moved-from colour holds is
    /// unspecified; it can be read and set.
    ///@{
    LXColor(const LXColor& other) = default;
    LXColor(LXColor&& other) noexcept = default;
    ///@}
    /// An RGB colour of profile 0 from the 8-bit channels of \a color.
    LXColor(const QColor& color);
    /// setNamedColor() of Latin-1 text; a null pointer counts as the empty text.
    LXColor(const char* name);
    /// setNamedColor() of \a name.
    LXColor(const QString& name);
    /// An RGB colour of profile 0; an invalid colour for a number that is no Qt::GlobalColor.
    LXColor(Qt::GlobalColor color);
    /// An opaque RGB colour of profile 0; the top byte of \a rgb is ignored.
    LXColor(QRgb rgb);
    ~LXColor() = default;

    /// As the constructor from the same type; setQColor() in the case of a QColor.
    ///@{
    LXColor& operator=(const LXColor& other) = default;
    LXColor& operator=(LXColor&& other) noexcept = default;
    LXColor& operator=(const QColor& color);
    LXColor& operator=(Qt::GlobalColor color);
    ///@}

    // ---- State and identity ----

    /// Makes the colour invalid: opaque, values 0 (x of the Yxy face stays), configuration RGB, profile 0, no levels.
    void invalidate();
    /// Whether a face is stored: false for a new colour, and after a refusal.
    bool isValid() const { return m_spec != Invalid; }
    /// The stored face; reading another one converts.
    Spec spec() const { return m_spec; }
    /// Labels the colour with another profile, unchecked. The values stay, so the light that they mean changes.
    void setTonematchProfileID(TonematchProfileID profile) { m_profileID = profile; }
    /// The profile the values were made for, as it was given.
    TonematchProfileID getTonematchProfileID() const { return m_profileID; }
    /// The channel layout: RGB for the RGB and HSV faces, that of the levels for the N-channel face. A Yxy colour has
    /// the one that it was converted with, or that of the face it replaced.
    ChannelConfiguration getChannelConfiguration() const { return m_channelConfiguration; }
    /// Writes the render type whatever the face. It shares its storage with red and hue.
    void setNChannelRenderType(NChannelRenderType type);
    /// Reads the render type whatever the face; meaningful for N-channel colours alone.
    NChannelRenderType getNChannelRenderType() const;

    /// Exact equality of face, alpha, values, profile and configuration. Hues compare modulo 360 degrees; two invalid
    /// colours are never equal.
    bool operator==(const LXColor& other) const;
    /// The opposite of ==, so that an invalid colour differs from itself.
    bool operator!=(const LXColor& other) const;

    // ---- Alpha: read and set in any face, without conversion. Refusals are silent. ----

    /// Opacity from transparent to opaque: 0..65535, 0..255 or 0.0..1.0.
    ///@{
    uint alpha16() const { return high16(m_alpha); }
    int alpha8() const { return high8(m_alpha); }
    double alphaF() const { return ratio(m_alpha); }
    ///@}
    /// 0..65535, 0..255 or 0.0..1.0; anything else makes the colour invalid. The 8-bit form then warns.
    ///@{
    void setAlpha16(uint alpha);
    void setAlpha8(int alpha);
    void setAlphaF(double alpha);
    ///@}

    // ---- RGB face. Whole-colour setters refuse with a warning, one-channel setters silently. ----

    /// 0..65535 each; refused with a warning when one is outside.
    void setRgb16(uint r, uint g, uint b, uint a, TonematchProfileID profile);
    /// An opaque colour from an array of red, green, blue. A null array is refused as out of range.
    void setRgb16(uint* rgb, TonematchProfileID profile);
    /// 0..255 each; refused with a warning when one is outside.
    void setRgb8(int r, int g, int b, int a, TonematchProfileID profile);
    /// 0.0..1.0 each; refused with a warning when one is outside.
    void setRgbF(double r, double g, double b, double a, TonematchProfileID profile);
    /// The RGB face, 0..65535 or 0.0..1.0 each. Does nothing unless \a r, \a g and \a b are given; \a a may be null.
    ///@{
    void getRgb16(uint* r, uint* g, uint* b, uint* a) const;
    void getRgbF(double* r, double* g, double* b, double* a) const;
    ///@}
    /// The colour in the RGB face. xyY and N-channel colours are matched to the emitters of the generic RGB fixture;
    /// with \a clampToGamut a chromaticity outside its gamut is moved to the nearest one inside, without it becomes
    /// black.
    LXColor toRgb16(bool clampToGamut) const;

    /// One channel of toRgb16(true): 0..65535, 0..255 or 0.0..1.0.
    ///@{
    uint red16() const { return high16(rgbWord(0)); }
    uint green16() const { return high16(rgbWord(1)); }
    uint blue16() const { return high16(rgbWord(2)); }
    int red8() const { return high8(rgbWord(0)); }
    int green8() const { return high8(rgbWord(1)); }
    int blue8() const { return high8(rgbWord(2)); }
    double redF() const { return ratio(rgbWord(0)); }
    double greenF() const { return ratio(rgbWord(1)); }
    double blueF() const { return ratio(rgbWord(2)); }
    ///@}
    /// One channel: 0..65535, 0..255 or 0.0..1.0, anything else makes the colour invalid. A colour of another face is
    /// rebuilt as RGB in the width of the call, alpha included.
    ///@{
    void setRed16(uint red);
    void setGreen16(uint green);
    void setBlue16(uint blue);
    void setRed8(int red);
    void setGreen8(int green);
    void setBlue8(int blue);
    void setRedF(double red);
    void setGreenF(double green);
    void setBlueF(double blue);
    ///@}

    static LXColor fromRgb(QRgb rgb);   ///< Opaque, profile 0.
    static LXColor fromRgba(QRgb rgba); ///< With the alpha of the top byte, profile 0.
    /// 0..255, 0..65535 or 0.0..1.0 each; an invalid colour and a warning when one is outside.
    ///@{
    static LXColor fromRgb8(int r, int g, int b, int a, TonematchProfileID profile);
    static LXColor fromRgb16(uint r, uint g, uint b, uint a, TonematchProfileID profile);
    static LXColor fromRgbF(double r, double g, double b, double a, TonematchProfileID profile);
    ///@}

    // ---- Interplay with Qt's colours ----

    /// The 8-bit RGB reading, always a valid QColor. \a clampToGamut as for toRgb16().
    QColor getQColor(bool clampToGamut) const;
    /// The 8-bit channels of \a color, with profile 0. An invalid QColor counts as opaque black.
    void setQColor(const QColor& color);
    QRgb rgb() const;                        ///< 0xffrrggbb, whatever the alpha.
    QRgb rgba() const;                       ///< 0xaarrggbb.
    static QRgb toRgb(const LXColor& color); ///< rgba() of \a color.

    // ---- HSV face. Hue in whole degrees (8 and 16 bit) or as a fraction of the circle; -1 for an achromatic colour.
    //      Refusals log a warning. ----

    void setHsv8(int h, int s, int v, int a, TonematchProfileID profile);     ///< Hue -1 or 0..360.
    void setHsv16(int h, uint s, uint v, uint a, TonematchProfileID profile); ///< Hue -1 or 0..65535, modulo 360.
    void setHsvF(double h, double s, double v, double a, TonematchProfileID profile);    ///< Hue -1.0 or 0.0..1.0.
    static LXColor fromHsv8(int h, int s, int v, int a, TonematchProfileID profile);     ///< Hue -1 or 0..359.
    static LXColor fromHsv16(int h, uint s, uint v, uint a, TonematchProfileID profile); ///< Hue -1 or 0..359.
    /// Hue -1.0 or 0.0..1.0.
    static LXColor fromHsvF(double h, double s, double v, double a, TonematchProfileID profile);
    /// Does nothing unless \a h, \a s and \a v are given; \a a may be null. Hue truncated to whole degrees, 0..360.
    void getHsv16(int* h, uint* s, uint* v, uint* a) const;
    /// The same as fractions 0.0..1.0; hue -1.0 for an achromatic colour.
    void getHsvF(double* h, double* s, double* v, double* a) const;
    int hue8() const;    ///< Degrees 0..359, rounded half up; -1 for an achromatic colour.
    int hue16() const;   ///< The same as hue8().
    double hueF() const; ///< 0.0..1.0; -1.0 for an achromatic colour.
    /// One value of toHsv16(): 0..255, 0..65535 or 0.0..1.0.
    ///@{
    int saturation8() const;
    int value8() const;
    uint saturation16() const;
    uint value16() const;
    double saturationF() const;
    double valueF() const;
    ///@}
    /// The colour in the HSV face; xyY and N-channel colours by way of toRgb16(true).
    LXColor toHsv16() const;

    // ---- Yxy face: intensity Y and CIE 1931 chromaticity x, y. Refusals are silent except in fromxyY(). ----

    /// Y, x and y are stored unchecked, the configuration stays as it is. An alpha out of range (0..255, 0..65535 or
    /// 0.0..1.0) is refused.
    ///@{
    void setYxy8(double Y, double x, double y, int a, TonematchProfileID profile);
    void setYxy16(double Y, double x, double y, uint a, TonematchProfileID profile);
    void setYxyF(double Y, double x, double y, double a, TonematchProfileID profile);
    ///@}
    /// Y, x and y are written only when all three are given. The alpha (0..255, 0..65535 or 0.0..1.0) is written when
    /// it is given, in the 16-bit form only together with the others.
    ///@{
    void getYxy8(double* Y, double* x, double* y, int* a) const;
    void getYxy16(double* Y, double* x, double* y, uint* a) const;
    void getYxyF(double* Y, double* x, double* y, double* a) const;
    ///@}
    /// One value of toYxy() with the colour's own configuration, profile and curve.
    ///@{
    double getY() const;
    double getx() const;
    double gety() const;
    ///@}
    /// 0.0..1.0, anything else makes the colour invalid. A colour of another face is converted to Yxy first; the alpha
    /// then keeps 16 bits.
    ///@{
    void setY(double Y);
    void setx(double x);
    void sety(double y);
    ///@}
    /**
     * The colour in the Yxy face: the light it means on a fixture of \a profile laid out in \a configuration with the
     * onboard curve \a curveType. Configuration 0 stands for the colour's own, profile -1 for the colour's own, curve
     * -1 for the default of that profile. The result carries that configuration and the colour's own profile.
     */
    LXColor toYxy(ChannelConfiguration configuration, TonematchProfileID profile, int curveType) const;
    /// An opaque Yxy colour; refused with a warning when x, y or Y is outside 0.0..1.0. Mind the order.
    static LXColor fromxyY(double x, double y, double Y, TonematchProfileID profile);

    // ---- N-channel face. Vectors carry the alpha first and then a level for each emitter. ----

    /// Values are 0..255, 0..65535 or 0.0..1.0. An empty vector and a 16-bit or F alpha out of range are refused
    /// silently. Levels, and the 8-bit alpha, that are out of range saturate; NaN gives 0. The number of levels is not
    /// checked against the configuration.
    ///@{
    void setNChannel8(QVector<int> v, ChannelConfiguration configuration, TonematchProfileID profile);
    void setNChannel16(QVector<uint> v, ChannelConfiguration configuration, TonematchProfileID profile);
    void setNChannelF(QVector<double> v, ChannelConfiguration configuration, TonematchProfileID profile);
    ///@}
    /// The stored alpha and levels, 0..255, 0..65535 or 0.0..1.0 each, without conversion: a colour of another face
    /// gives its alpha (and the levels that an earlier N-channel face left behind). Does nothing without an \a out;
    /// \a configuration and \a profile may be null.
    ///@{
    void getNChannel8(QVector<int>* out, ChannelConfiguration* configuration, TonematchProfileID* profile) const;
    void getNChannel16(QVector<uint>* out, ChannelConfiguration* configuration, TonematchProfileID* profile) const;
    void getNChannelF(QVector<double>* out, ChannelConfiguration* configuration, TonematchProfileID* profile) const;
    ///@}
    /// As the setter of the same width; an invalid colour where that refuses.
    ///@{
    static LXColor fromNChannel8(QVector<int> v, ChannelConfiguration configuration, TonematchProfileID profile);
    static LXColor fromNChannel16(QVector<uint> v, ChannelConfiguration configuration, TonematchProfileID profile);
    static LXColor fromNChannelF(QVector<double> v, ChannelConfiguration configuration, TonematchProfileID profile);
    ///@}
    /**
     * The colour as levels for a fixture of \a profile (-1: the colour's own) laid out in \a configuration, compensated
     * for the onboard curve \a curveType (-1: the default of that profile). Colours that are invalid, or N-channel of
     * that very configuration and profile, are returned as they are. A configuration without channels, 0 included,
     * gives the alpha alone.
     */
    LXColor toNChannel16(ChannelConfiguration configuration, TonematchProfileID profile, int curveType) const;
    /// The colour in another face, through the default curve of the profile. Invalid gives an invalid colour.
    LXColor convertTo(Spec spec, ChannelConfiguration configuration, TonematchProfileID profile) const;
    /// Whether the colour gives no light; the alpha plays no part. False for an invalid colour.
    bool isBlack() const;
    /// Whether every stored level is 0, also when there is none; the face plays no part.
    bool allNChannelsBlack() const;

    // ---- Text forms ----

    /**
     * Reads a value string ("aRgb;...", "aYxy;...", "aNchannel;..."), a hexadecimal name ("#rrggbb", "#aarrggbb",
     * "#rrrrggggbbbb", "#aaaarrrrggggbbbb") or a colour name that QColor knows. Text that cannot be read makes the
     * colour invalid, with a warning where digits are out of range or a name is unknown. Numbers in a value string that
     * do not parse count as 0; levels above 65535 saturate; an "aNchannel" without an alpha is refused.
     */
    void setNamedColor(const QString& name);
    QString name() const;  ///< "#rrrrggggbbbb".
    QString name8() const; ///< "#rrggbb".
    /// The 8-bit alpha and the stored 8-bit levels, joined by ",". Does not convert: a colour of another face gives its
    /// alpha, and the levels that an earlier N-channel face left behind.
    QString nameFull8() const;
    /// The value string; HSV colours are written in the RGB face, an invalid colour as the empty text.
    QString aName() const;

    // ---- Mixing, in floating point from the RGB readings unless a face is named. Results carry profile 0; one that
    //      leaves 0..1 is refused with the warning of fromRgbF() or fromxyY(). A colour is colorimetric when it is Yxy,
    //      or N-channel of the render type NChannelColorimetric. ----

    /**
     * t x a + (1 - t) x b, each weighted with its alpha; the sum is not divided by the resulting alpha.
     *
     * \a t is 0.0..1.0; 0.0 gives \a b and 1.0 gives \a a as they are, with a debug message. When one of the colours is
     * colorimetric the result is converted to Yxy, with the configuration of that colour (of \a a when both are) and
     * through the emitters of its profile, and a debug line gives its Y, x and y.
     */
    static LXColor blend(const LXColor& a, const LXColor& b, double t);
    /**
     * \a a composed over \a b by the alpha of \a a: \a a itself when it is opaque, \a b itself when \a a is
     * transparent, mixColorsxy() when one of them is colorimetric and mixColorsRGB() otherwise.
     */
    static LXColor mix(const LXColor& a, const LXColor& b);
    /// \a a composed over \a b, as an RGB colour.
    static LXColor mixColorsRGB(const LXColor& a, const LXColor& b);
    /// mixColorsRGB() as a Yxy colour of the configuration of \a a, converted through the emitters of its profile.
    static LXColor mixColorsxy(const LXColor& a, const LXColor& b);
    /// The channels multiplied by the alpha: the levels of an N-channel colour (which keeps its configuration, profile
    /// and render type), x, y and Y of a Yxy colour, the RGB reading of any other.
    static LXColor premultiply(const LXColor& c);
    /// The channels divided by the alpha, with faces as in premultiply(); \a c itself when it is transparent. Levels of
    /// an N-channel colour that exceed 1.0 are limited to it; in any other face a channel above the alpha is refused.
    static LXColor unpremultiply(const LXColor& c);
    /// The colour of a gradient at a position, blended between its two neighbouring stops; outside the stops, and for
    /// NaN, that of the last stop. An invalid colour without stops.
    static LXColor colorFromGradient(const QLinearGradient& g, double pos);

    // ---- Clipboard and streams ----

    /// New MIME data with the value string under LXCOLOR_MIME_TYPE; empty for an invalid colour. The caller owns it.
    QMimeData* mimeData() const;

    friend LXCOLOR_EXPORT QDataStream& operator<<(QDataStream& stream, const LXColor& color);
    friend LXCOLOR_EXPORT QDataStream& operator>>(QDataStream& stream, LXColor& color);

    // ---- Range checks: accept, or invalidate the colour without a message. The name is the caller's; it is not used.
    // ----

    bool rangeCheck16(QString name, uint v);     ///< 0..65535.
    bool rangeCheckInt(QString name, int v);     ///< 0..255.
    bool rangeCheckReal(QString name, double v); ///< 0.0..1.0.

private:
    friend class ColorUtils; // reads the channel words without a copy

    LXColor(Spec spec, quint32 word0, quint32 word1, quint32 word2, quint32 alpha, TonematchProfileID profile,
            ChannelConfiguration configuration)
        : m_channelConfiguration(configuration)
        , m_profileID(profile)
        , m_spec(spec)
        , m_alpha(alpha)
        , m_words{word0, word1, word2}
    {
    }

    bool accept(bool inRange);
    template <typename T>
    void setRgbChannel(int channel, T value);
    template <typename T>
    void storeNChannel(const QVector<T>& v, ChannelConfiguration configuration, TonematchProfileID profile);
    template <typename T>
    void readNChannel(QVector<T>* out, ChannelConfiguration* configuration, TonematchProfileID* profile) const;
    void storeWords(Spec spec, quint32 word0, quint32 word1, quint32 word2);
    void storeFace(Spec spec, quint32 word0, quint32 word1, quint32 word2, quint32 alpha, TonematchProfileID profile);
    void storeY(double Y);
    double storedY() const
    {
        const quint64 bits = m_words[1] | (static_cast<quint64>(m_words[2]) << 32);
        double Y;
        std::memcpy(&Y, &bits, sizeof Y);
        return Y;
    }
    void storeYxy(double Y, double x, double y);
    void rebuildAsYxy(double Y, double x, double y);
    quint32 rgbWord(int word) const
    {
        return m_spec == Rgb || m_spec == Invalid ? m_words[word] : convertedRgbWord(word);
    }
    quint32 convertedRgbWord(int word) const;
    lxcolor::RgbWords rgbWords() const;
    LXColor matchedRgb(bool clampToGamut) const;
    quint32 hsvWord(int word) const;
    static uint high16(quint32 word) { return word >> 16; }
    static int high8(quint32 word) { return static_cast<int>(word >> 24); }
    static double ratio(quint32 word) { return word / 4294967295.0; }
    bool readValueString(const QString& text);
    bool readRgb24(const QChar* digits);
    void readHex(const QChar* chars, int size);
    bool readName(const QString& text);

    ChannelConfiguration m_channelConfiguration = ColorUtils::ConfigRGB;
    TonematchProfileID m_profileID = ColorUtils::ProfileGenericRGB;
    Spec m_spec = Invalid;
    quint32 m_alpha = 0xffffffffu;
    /// Red, green, blue; or hue, saturation, value; or the render type of the N-channel face in the first; or Y of the
    /// Yxy face in the second (its low half) and third (its high half).
    quint32 m_words[3] = {0, 0, 0};
    double m_x = 0.0;
    double m_y = 0.0;
    QVector<quint32> m_nChannels;
};

Q_DECLARE_TYPEINFO(LXColor, Q_MOVABLE_TYPE);

/**
 * Writes 17 bytes: the face in 8 bits and four words of 32 bits, in the byte order of the stream: the alpha, then red,
 * green and blue, or hue, saturation and value, or (Yxy) an unused word and the low and the high half of Y, or
 * (N-channel) the render type and two unused words.
 */
LXCOLOR_EXPORT QDataStream& operator<<(QDataStream& stream, const LXColor& color);
/**
 * Reads those 17 bytes and leaves everything else of \a color as it was: configuration, profile, x and y, levels.
 * What is missing from a stream that ends early reads as 0. A face that is no Spec makes a colour that converts to
 * black, is equal to none and can be set to something else.
 */
LXCOLOR_EXPORT QDataStream& operator>>(QDataStream& stream, LXColor& color);
/// Writes "LXColor(ARGB 65535, 0, 0, 0)", "LXColor(AYxy 65535, 1, 0.3127, 0.329)" or "LXColor(Invalid)", with 16-bit
/// values and HSV colours in the RGB face; nothing for an N-channel colour.
LXCOLOR_EXPORT QDebug operator<<(QDebug debug, const LXColor& color);

#endif
