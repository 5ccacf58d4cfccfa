#ifndef REFERENCE_COLOR_H
#define REFERENCE_COLOR_H

#include "LXColor.h"
#include "Matching.h"

#include <QStringList>

namespace reference {

/// The warnings that the model has given so far.
QStringList& warnings();

/// A channel value of any width: whether it is in range, and the 32 bits it is stored in.
struct Word
{
    bool fits;
    quint32 bits;
    Word(int v8) : fits(v8 >= 0 && v8 <= 255), bits(static_cast<quint32>(v8) * 16843009u) {}
    Word(uint v16) : fits(v16 < 65536), bits(v16 * 65537u) {}
    Word(double v) : fits(v >= 0.0 && v <= 1.0), bits(fits ? static_cast<quint32>(v * 4294967295.0 + 0.5) : 0) {}
};

inline int to8(quint32 word) { return static_cast<int>(word >> 24); }
inline uint to16(quint32 word) { return word >> 16; }
inline double toF(quint32 word) { return word / 4294967295.0; }

/// The colour value with the operations of LXColor under the same names, so that one lambda drives both.
struct Color
{
    using Text = const char*;
    using RenderType = LXColor::NChannelRenderType;

    Configuration configuration = ColorUtils::ConfigRGB;
    ProfileId profileId = ColorUtils::ProfileGenericRGB;
    LXColor::Spec face = LXColor::Invalid;
    quint32 alpha = 0xffffffff;
    quint32 words[3] = {0, 0, 0}; // red green blue, hue saturation value, render type; Y in the last two
    double x = 0.0;
    double y = 0.0;
    QVector<quint32> levels;

    void invalidate();
    bool isValid() const { return face != LXColor::Invalid; }
    LXColor::Spec spec() const { return face; }
    void setTonematchProfileID(ProfileId id) { profileId = id; }
    ProfileId getTonematchProfileID() const { return profileId; }
    Configuration getChannelConfiguration() const { return configuration; }
    void setNChannelRenderType(RenderType type) { words[0] = static_cast<quint32>(type); }
    RenderType getNChannelRenderType() const { return static_cast<RenderType>(words[0]); }
    bool operator==(const Color& other) const;

    int alpha8() const { return to8(alpha); }
    uint alpha16() const { return to16(alpha); }
    double alphaF() const { return toF(alpha); }
    void setAlpha8(int v) { setAlpha(v, "LXColor::setAlpha8: alpha parameter out of range"); }
    void setAlpha16(uint v) { setAlpha(v, nullptr); }
    void setAlphaF(double v) { setAlpha(v, nullptr); }

    void setRgb8(int r, int g, int b, int a, ProfileId id) { setRgb("setRgb8", r, g, b, a, id); }
    void setRgb16(uint r, uint g, uint b, uint a, ProfileId id) { setRgb("setRgb16", r, g, b, a, id); }
    void setRgbF(double r, double g, double b, double a, ProfileId id) { setRgb("setRgbF", r, g, b, a, id); }
    static Color fromRgb8(int r, int g, int b, int a, ProfileId id)
    {
        return Color().setRgb("fromRgb", r, g, b, a, id);
    }
    static Color fromRgb16(uint r, uint g, uint b, uint a, ProfileId id)
    {
        return Color().setRgb("fromRgb16", r, g, b, a, id);
    }
    static Color fromRgbF(double r, double g, double b, double a, ProfileId id)
    {
        return Color().setRgb("fromRgbF", r, g, b, a, id);
    }
    Color toRgb16(bool clampToGamut) const;
    quint32 rgbWord(int i) const;
    int red8() const { return to8(rgbWord(0)); }
    int green8() const { return to8(rgbWord(1)); }
    int blue8() const { return to8(rgbWord(2)); }
    uint red16() const { return to16(rgbWord(0)); }
    uint green16() const { return to16(rgbWord(1)); }
    uint blue16() const { return to16(rgbWord(2)); }
    double redF() const { return toF(rgbWord(0)); }
    double greenF() const { return toF(rgbWord(1)); }
    double blueF() const { return toF(rgbWord(2)); }
    void setRed8(int v) { setOne(0, v, 8); }
    void setGreen8(int v) { setOne(1, v, 8); }
    void setBlue8(int v) { setOne(2, v, 8); }
    void setRed16(uint v) { setOne(0, v, 16); }
    void setGreen16(uint v) { setOne(1, v, 16); }
    void setBlue16(uint v) { setOne(2, v, 16); }
    void setRedF(double v) { setOne(0, v, 32); }
    void setGreenF(double v) { setOne(1, v, 32); }
    void setBlueF(double v) { setOne(2, v, 32); }
    QColor getQColor(bool clampToGamut) const;
    QRgb rgb() const { return qRgb(red8(), green8(), blue8()); }
    QRgb rgba() const { return qRgba(red8(), green8(), blue8(), alpha8()); }

    void setHsv8(int h, int s, int v, int a, ProfileId id) { setHsv("setHsv8", 360, h, s, v, a, id); }
    void setHsv16(int h, uint s, uint v, uint a, ProfileId id) { setHsv("setHsv16", 65535, h, s, v, a, id); }
    void setHsvF(double h, double s, double v, double a, ProfileId id) { setHsv("setHsvF", h, s, v, a, id); }
    static Color fromHsv8(int h, int s, int v, int a, ProfileId id)
    {
        return Color().setHsv("fromHsv", 359, h, s, v, a, id);
    }
    static Color fromHsv16(int h, uint s, uint v, uint a, ProfileId id)
    {
        return Color().setHsv("fromHsv", 359, h, s, v, a, id);
    }
    static Color fromHsvF(double h, double s, double v, double a, ProfileId id)
    {
        return Color().setHsv("fromHsvF", h, s, v, a, id);
    }
    Color toHsv16() const;
    quint32 hsvWord(int i) const;
    int hue8() const;
    int hue16() const { return hue8(); }
    double hueF() const;
    int saturation8() const { return to8(hsvWord(1)); }
    int value8() const { return to8(hsvWord(2)); }
    uint saturation16() const { return to16(hsvWord(1)); }
    uint value16() const { return to16(hsvWord(2)); }
    double saturationF() const { return toF(hsvWord(1)); }
    double valueF() const { return toF(hsvWord(2)); }
    void getHsv16(int* h, uint* s, uint* v, uint* a) const;

    void setYxy8(double Y, double cx, double cy, int a, ProfileId id) { setYxy({Y, cx, cy}, a, id); }
    void setYxy16(double Y, double cx, double cy, uint a, ProfileId id) { setYxy({Y, cx, cy}, a, id); }
    void setYxyF(double Y, double cx, double cy, double a, ProfileId id) { setYxy({Y, cx, cy}, a, id); }
    static Color fromxyY(double cx, double cy, double Y, ProfileId id);
    Yxy yxy() const;
    double getY() const { return yxy().Y; }
    double getx() const { return yxy().x; }
    double gety() const { return yxy().y; }
    void setY(double v) { setMember(&Yxy::Y, v); }
    void setx(double v) { setMember(&Yxy::x, v); }
    void sety(double v) { setMember(&Yxy::y, v); }
    Color toYxy(Configuration cc, ProfileId id, int curveType) const;

    void setNChannel8(QVector<int> v, Configuration cc, ProfileId id);
    void setNChannel16(QVector<uint> v, Configuration cc, ProfileId id);
    void setNChannelF(QVector<double> v, Configuration cc, ProfileId id);
    void getNChannel16(QVector<uint>* out, Configuration*, ProfileId*) const;
    void getNChannelF(QVector<double>* out, Configuration*, ProfileId*) const;
    Color toNChannel16(Configuration cc, ProfileId id, int curveType) const;
    Color convertTo(LXColor::Spec to, Configuration cc, ProfileId id) const;
    bool isBlack() const;
    bool allNChannelsBlack() const { return levels.count(0) == levels.size(); }

    void setNamedColor(const QString& text);
    QString name() const { return QString::asprintf("#%04x%04x%04x", red16(), green16(), blue16()); }
    QString name8() const { return QString::asprintf("#%02x%02x%02x", red8(), green8(), blue8()); }
    QString nameFull8() const;
    QString aName() const;

private:
    void refuse(const QString& warning);
    void store(LXColor::Spec newFace, quint32 w0, quint32 w1, quint32 w2, quint32 a, ProfileId id);
    void setAlpha(Word a, Text warning);
    Color& setRgb(Text caller, Word r, Word g, Word b, Word a, ProfileId id);
    void setOne(int i, Word v, int width);
    Color& setHsv(Text caller, int last, int h, Word s, Word v, Word a, ProfileId id);
    Color& setHsv(Text caller, double h, Word s, Word v, Word a, ProfileId id);
    double storedY() const;
    void storeYxy(Yxy light, ProfileId id);
    void setYxy(Yxy light, Word a, ProfileId id);
    void setMember(double Yxy::*member, double v);
    void setLevels(const QVector<Word>& v, Configuration cc, ProfileId id);
    void setHexName(const QString& text);
};

/// The light of a colour on given emitters, and on those of its own profile.
Yxy toLight(const Color& color, const Record& record, int curveType);
Yxy toLight(const Color& color);
QVector<quint16> drive16(Yxy light, Configuration configuration, ProfileId id, int curveType, bool clampToGamut);

QVector<double> outputLevels(bool& converted, const Color& color, bool allowRgbPassThrough, int count, ProfileId target,
                             int mode, bool clampToGamut);
QList<quint8> updateBuffer(int directCurve, int onboardCurve, const Color& color, bool allowRgbPassThrough, int count,
                           int resolution, int mode, ProfileId target);
void updateColor(Color& current, const Color& incoming);

} // namespace reference

#endif
