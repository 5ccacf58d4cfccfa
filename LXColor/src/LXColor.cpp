#include "LXColor.h"

#include "ColorWords_p.h"
#include "HsvArithmetic_p.h"

#include <algorithm>
#include <cstring>

using namespace lxcolor;

namespace {

// The alpha, red, green and blue of Qt::GlobalColor, by number.
const QRgb global_colors[] = {
    0xffffffff, // color0
    0xff000000, // color1
    0xff000000, // black
    0xffffffff, // white
    0xff808080, // darkGray
    0xffa0a0a4, // gray
    0xffc0c0c0, // lightGray
    0xffff0000, // red
    0xff00ff00, // green
    0xff0000ff, // blue
    0xff00ffff, // cyan
    0xffff00ff, // magenta
    0xffffff00, // yellow
    0xff800000, // darkRed
    0xff008000, // darkGreen
    0xff000080, // darkBlue
    0xff008080, // darkCyan
    0xff800080, // darkMagenta
    0xff808000, // darkYellow
    0x00000000, // transparent
};
static_assert(sizeof global_colors / sizeof *global_colors == Qt::transparent + 1, "an entry for each global colour");

} // namespace

// ---- Construction and assignment ----

LXColor::LXColor(uint r, uint g, uint b, uint a) { setRgb16(r, g, b, a, ColorUtils::ProfileGenericRGB); }

LXColor::LXColor(double x, double y) { storeYxy(1.0, x, y); }

LXColor::LXColor(const QColor& color) { setQColor(color); }

LXColor::LXColor(const char* name) { setNamedColor(QString::fromLatin1(name)); }

LXColor::LXColor(const QString& name) { setNamedColor(name); }

LXColor::LXColor(Qt::GlobalColor color)
{
    if (color >= Qt::color0 && color <= Qt::transparent)
        *this = fromRgba(global_colors[color]);
}

LXColor::LXColor(QRgb rgb)
    : LXColor(Rgb, word(qRed(rgb)), word(qGreen(rgb)), word(qBlue(rgb)), kWordMax, ColorUtils::ProfileGenericRGB,
              ColorUtils::ConfigRGB)
{
}

LXColor& LXColor::operator=(const QColor& color)
{
    setQColor(color);
    return *this;
}

LXColor& LXColor::operator=(Qt::GlobalColor color) { return *this = LXColor(color); }

// ---- State and identity ----

void LXColor::invalidate()
{
    m_channelConfiguration = ColorUtils::ConfigRGB;
    m_profileID = ColorUtils::ProfileGenericRGB;
    m_alpha = kWordMax;
    storeWords(Invalid, 0, 0, 0);
    m_y = 0.0;
    m_nChannels.clear();
}

void LXColor::setNChannelRenderType(NChannelRenderType type) { m_words[0] = static_cast<quint32>(type); }

LXColor::NChannelRenderType LXColor::getNChannelRenderType() const
{
    return static_cast<NChannelRenderType>(static_cast<qint32>(m_words[0]));
}

bool LXColor::operator==(const LXColor& other) const
{
    if (m_spec != other.m_spec || m_alpha != other.m_alpha)
        return false;
    const bool lastWordsEqual = m_words[1] == other.m_words[1] && m_words[2] == other.m_words[2];
    bool faceEqual = false;
    switch (m_spec) {
    case Rgb:
        faceEqual = m_words[0] == other.m_words[0] && lastWordsEqual;
        break;
    case Hsv:
        faceEqual = m_words[0] % kHueCircle == other.m_words[0] % kHueCircle && lastWordsEqual;
        break;
    case Yxy:
        faceEqual = storedY() == other.storedY() && m_x == other.m_x && m_y == other.m_y;
        break;
    case NChannel:
        faceEqual = m_nChannels == other.m_nChannels && m_words[0] == other.m_words[0];
        break;
    default:
        break;
    }
    return faceEqual && m_profileID == other.m_profileID && m_channelConfiguration == other.m_channelConfiguration;
}

bool LXColor::operator!=(const LXColor& other) const { return !(*this == other); }

// ---- Storage ----

bool LXColor::accept(bool inRange)
{
    if (!inRange)
        invalidate();
    return inRange;
}

void LXColor::storeWords(Spec spec, quint32 word0, quint32 word1, quint32 word2)
{
    m_spec = spec;
    m_words[0] = word0;
    m_words[1] = word1;
    m_words[2] = word2;
}

void LXColor::storeFace(Spec spec, quint32 word0, quint32 word1, quint32 word2, quint32 alpha,
                        TonematchProfileID profile)
{
    storeWords(spec, word0, word1, word2);
    m_channelConfiguration = ColorUtils::ConfigRGB;
    m_profileID = profile;
    m_alpha = alpha;
}

/// One channel of the RGB face, in the width of T. A colour of another face becomes one of the RGB face whose other
/// channels, and whose alpha, keep no more than that width.
template <typename T>
void LXColor::setRgbChannel(int channel, T value)
{
    if (!accept(inRange(value)))
        return;
    if (m_spec != Rgb) {
        const LXColor rgb = toRgb16(true);
        storeFace(Rgb, narrowed<T>(rgb.m_words[0]), narrowed<T>(rgb.m_words[1]), narrowed<T>(rgb.m_words[2]),
                  narrowed<T>(m_alpha), m_profileID);
    }
    m_words[channel] = word(value);
}

void LXColor::storeY(double Y)
{
    quint64 bits;
    std::memcpy(&bits, &Y, sizeof bits);
    m_words[1] = static_cast<quint32>(bits);
    m_words[2] = static_cast<quint32>(bits >> 32);
}

void LXColor::storeYxy(double Y, double x, double y)
{
    m_spec = Yxy;
    storeY(Y);
    m_x = x;
    m_y = y;
}

// ---- Alpha ----

void LXColor::setAlpha16(uint alpha)
{
    if (accept(is16(alpha)))
        m_alpha = word(alpha);
}

void LXColor::setAlpha8(int alpha)
{
    if (!is8(alpha)) {
        qWarning("LXColor::setAlpha8: alpha parameter out of range");
        invalidate();
        return;
    }
    m_alpha = word(alpha);
}

void LXColor::setAlphaF(double alpha)
{
    if (accept(isRatio(alpha)))
        m_alpha = word(alpha);
}

// ---- RGB face ----

void LXColor::setRgb16(uint r, uint g, uint b, uint a, TonematchProfileID profile)
{
    if (!are16(r, g, b, a)) {
        qWarning("LXColor::setRgb16: RGB parameters out of range");
        invalidate();
        return;
    }
    storeFace(Rgb, word(r), word(g), word(b), word(a), profile);
}

void LXColor::setRgb16(uint* rgb, TonematchProfileID profile)
{
    if (!rgb || !are16(rgb[0], rgb[1], rgb[2], 0)) {
        qWarning("LXColor::setRgb16: RGB parameters out of range");
        invalidate();
        return;
    }
    storeFace(Rgb, word(rgb[0]), word(rgb[1]), word(rgb[2]), kWordMax, profile);
}

void LXColor::setRgb8(int r, int g, int b, int a, TonematchProfileID profile)
{
    if (!are8(r, g, b, a)) {
        qWarning("LXColor::setRgb8: RGB parameters out of range");
        invalidate();
        return;
    }
    storeFace(Rgb, word(r), word(g), word(b), word(a), profile);
}

void LXColor::setRgbF(double r, double g, double b, double a, TonematchProfileID profile)
{
    if (!areRatios(r, g, b, a)) {
        qWarning("LXColor::setRgbF: RGB parameters out of range");
        invalidate();
        return;
    }
    storeFace(Rgb, word(r), word(g), word(b), word(a), profile);
}

void LXColor::getRgb16(uint* r, uint* g, uint* b, uint* a) const
{
    if (!r || !g || !b)
        return;
    const RgbWords words = rgbWords();
    *r = to16(words.red);
    *g = to16(words.green);
    *b = to16(words.blue);
    assign(a, alpha16());
}

void LXColor::getRgbF(double* r, double* g, double* b, double* a) const
{
    if (!r || !g || !b)
        return;
    const RgbWords words = rgbWords();
    *r = toRatio(words.red);
    *g = toRatio(words.green);
    *b = toRatio(words.blue);
    assign(a, alphaF());
}

/// Those of toRgb16(true), without a temporary colour where the face needs none.
RgbWords LXColor::rgbWords() const
{
    if (m_spec == Rgb || m_spec == Invalid)
        return {m_words[0], m_words[1], m_words[2]};
    if (m_spec == Hsv)
        return rgbFromHsv({m_words[0], m_words[1], m_words[2]});
    const LXColor rgb = matchedRgb(true);
    return {rgb.m_words[0], rgb.m_words[1], rgb.m_words[2]};
}

LXColor LXColor::toRgb16(bool clampToGamut) const
{
    if (m_spec == Invalid || m_spec == Rgb)
        return *this;
    if (m_spec != Hsv)
        return matchedRgb(clampToGamut);
    const RgbWords words = rgbFromHsv({m_words[0], m_words[1], m_words[2]});
    return {Rgb, words.red, words.green, words.blue, m_alpha, m_profileID, ColorUtils::ConfigRGB};
}

/// The RGB face of an Yxy or N-channel colour, matched to the generic RGB fixture; black for a face that is none.
LXColor LXColor::matchedRgb(bool clampToGamut) const
{
    quint16 levels[3] = {};
    if (m_spec == Yxy || m_spec == NChannel) {
        double light[3] = {storedY(), m_x, m_y};
        if (m_spec == NChannel)
            ColorUtils::convertLXColorToYxy(*this, light);
        ColorUtils::convertYxyToNChannelAndApplyCurve(light, levels, ColorUtils::ConfigRGB,
                                                      ColorUtils::ProfileGenericRGB, 0, clampToGamut);
    }
    return {Rgb,     wordFrom16(levels[0]), wordFrom16(levels[1]), wordFrom16(levels[2]),
            m_alpha, m_profileID,           ColorUtils::ConfigRGB};
}

quint32 LXColor::convertedRgbWord(int word) const { return toRgb16(true).m_words[word]; }

void LXColor::setRed16(uint red) { setRgbChannel(0, red); }

void LXColor::setGreen16(uint green) { setRgbChannel(1, green); }

void LXColor::setBlue16(uint blue) { setRgbChannel(2, blue); }

void LXColor::setRed8(int red) { setRgbChannel(0, red); }

void LXColor::setGreen8(int green) { setRgbChannel(1, green); }

void LXColor::setBlue8(int blue) { setRgbChannel(2, blue); }

void LXColor::setRedF(double red) { setRgbChannel(0, red); }

void LXColor::setGreenF(double green) { setRgbChannel(1, green); }

void LXColor::setBlueF(double blue) { setRgbChannel(2, blue); }

LXColor LXColor::fromRgb(QRgb rgb) { return LXColor(rgb); }

LXColor LXColor::fromRgba(QRgb rgba)
{
    return fromRgb8(qRed(rgba), qGreen(rgba), qBlue(rgba), qAlpha(rgba), ColorUtils::ProfileGenericRGB);
}

LXColor LXColor::fromRgb8(int r, int g, int b, int a, TonematchProfileID profile)
{
    if (!are8(r, g, b, a)) {
        qWarning("LXColor::fromRgb: RGB parameters out of range");
        return {};
    }
    return {Rgb, word(r), word(g), word(b), word(a), profile, ColorUtils::ConfigRGB};
}

LXColor LXColor::fromRgb16(uint r, uint g, uint b, uint a, TonematchProfileID profile)
{
    if (!are16(r, g, b, a)) {
        qWarning("LXColor::fromRgb16: RGB parameters out of range");
        return {};
    }
    return {Rgb, word(r), word(g), word(b), word(a), profile, ColorUtils::ConfigRGB};
}

LXColor LXColor::fromRgbF(double r, double g, double b, double a, TonematchProfileID profile)
{
    if (!areRatios(r, g, b, a)) {
        qWarning("LXColor::fromRgbF: RGB parameters out of range");
        return {};
    }
    return {Rgb, word(r), word(g), word(b), word(a), profile, ColorUtils::ConfigRGB};
}

// ---- Interplay with Qt's colours ----

QColor LXColor::getQColor(bool clampToGamut) const
{
    const LXColor rgb = toRgb16(clampToGamut);
    return QColor(rgb.red8(), rgb.green8(), rgb.blue8(), rgb.alpha8());
}

void LXColor::setQColor(const QColor& color)
{
    setRgb8(color.red(), color.green(), color.blue(), color.alpha(), ColorUtils::ProfileGenericRGB);
}

QRgb LXColor::rgb() const
{
    const LXColor face = toRgb16(true);
    return qRgb(face.red8(), face.green8(), face.blue8());
}

QRgb LXColor::rgba() const
{
    const LXColor face = toRgb16(true);
    return qRgba(face.red8(), face.green8(), face.blue8(), alpha8());
}

QRgb LXColor::toRgb(const LXColor& color) { return color.rgba(); }

// ---- Range checks ----

bool LXColor::rangeCheck16(QString /*name*/, uint v) { return accept(is16(v)); }

bool LXColor::rangeCheckInt(QString /*name*/, int v) { return accept(is8(v)); }

bool LXColor::rangeCheckReal(QString /*name*/, double v) { return accept(isRatio(v)); }

// ---- Faces in general ----

LXColor LXColor::convertTo(Spec spec, ChannelConfiguration configuration, TonematchProfileID profile) const
{
    if (spec == m_spec && spec != NChannel)
        return *this;
    switch (spec) {
    case Rgb:
        return toRgb16(true);
    case Hsv:
        return toHsv16();
    case Yxy:
        return toYxy(configuration, profile, -1);
    case NChannel:
        return toNChannel16(configuration, profile, -1);
    default:
        return {};
    }
}

bool LXColor::isBlack() const
{
    switch (m_spec) {
    case Rgb:
        return m_words[0] == 0 && m_words[1] == 0 && m_words[2] == 0;
    case Hsv:
        return m_words[2] == 0;
    case Yxy:
        return storedY() == 0.0;
    case NChannel:
        return allNChannelsBlack();
    default:
        return false;
    }
}

bool LXColor::allNChannelsBlack() const
{
    return std::all_of(m_nChannels.constBegin(), m_nChannels.constEnd(), [](quint32 level) { return level == 0; });
}
