#include "Color.h"

#include <cmath>
#include <cstring>

namespace reference {

namespace {

const quint32 kAchromatic = 4294967295u;

/// A word read in a width and stored again.
quint32 narrowed(quint32 word, int width)
{
    return width == 8 ? Word(to8(word)).bits : width == 16 ? Word(to16(word)).bits : Word(toF(word)).bits;
}

} // namespace

QStringList& warnings()
{
    static QStringList list;
    return list;
}

// ---- State ----

void Color::invalidate()
{
    const double oldX = x;
    *this = Color();
    x = oldX;
}

void Color::refuse(const QString& warning)
{
    warnings() << warning;
    invalidate();
}

void Color::store(LXColor::Spec newFace, quint32 w0, quint32 w1, quint32 w2, quint32 a, ProfileId id)
{
    face = newFace;
    configuration = ColorUtils::ConfigRGB;
    profileId = id;
    alpha = a;
    words[0] = w0;
    words[1] = w1;
    words[2] = w2;
}

bool Color::operator==(const Color& other) const
{
    if (face != other.face || alpha != other.alpha)
        return false;
    const auto sameWord = [&](int i) { return words[i] == other.words[i]; };
    bool same = false;
    if (face == LXColor::Rgb)
        same = sameWord(0) && sameWord(1) && sameWord(2);
    else if (face == LXColor::Hsv)
        same = words[0] % 36000 == other.words[0] % 36000 && sameWord(1) && sameWord(2);
    else if (face == LXColor::Yxy)
        same = storedY() == other.storedY() && x == other.x && y == other.y;
    else if (face == LXColor::NChannel)
        same = levels == other.levels && sameWord(0);
    return same && profileId == other.profileId && configuration == other.configuration;
}

void Color::setAlpha(Word a, Text warning)
{
    if (a.fits)
        alpha = a.bits;
    else if (warning)
        refuse(warning);
    else
        invalidate();
}

// ---- RGB ----

Color& Color::setRgb(Text caller, Word r, Word g, Word b, Word a, ProfileId id)
{
    if (r.fits && g.fits && b.fits && a.fits)
        store(LXColor::Rgb, r.bits, g.bits, b.bits, a.bits, id);
    else
        refuse(QString("LXColor::%1: RGB parameters out of range").arg(caller));
    return *this;
}

void Color::setOne(int i, Word v, int width)
{
    if (!v.fits)
        return invalidate();
    if (face != LXColor::Rgb) {
        const Color rgb = toRgb16(true);
        store(LXColor::Rgb, narrowed(rgb.words[0], width), narrowed(rgb.words[1], width), narrowed(rgb.words[2], width),
              narrowed(alpha, width), profileId);
    }
    words[i] = v.bits;
}

quint32 Color::rgbWord(int i) const
{
    return face == LXColor::Invalid || face == LXColor::Rgb ? words[i] : toRgb16(true).words[i];
}

Color Color::toRgb16(bool clampToGamut) const
{
    if (face == LXColor::Invalid || face == LXColor::Rgb)
        return *this;
    Color result;
    result.face = LXColor::Rgb;
    result.alpha = alpha;
    result.profileId = profileId;
    quint32* rgb = result.words;
    if (face != LXColor::Hsv) {
        const Yxy light = face == LXColor::Yxy ? yxy() : toLight(*this);
        const auto drive = drive16(light, ColorUtils::ConfigRGB, ColorUtils::ProfileGenericRGB, 0, clampToGamut);
        for (int i = 0; i < 3; ++i)
            rgb[i] = Word(static_cast<uint>(drive[i])).bits;
        return result;
    }
    if (words[1] == 0) {
        rgb[0] = rgb[1] = rgb[2] = words[2];
        return result;
    }
    const double h = words[0] == 36000 || words[0] == kAchromatic ? 0 : words[0] / 6000.0;
    const int i = static_cast<int>(h);
    const double f = h - i;
    const double v = toF(words[2]);
    const double s = toF(words[1]);
    const double p = v * (1 - s);
    const double q = v * (1 - s * f);
    const double t = v * (1 - s * (1 - f));
    const double triples[6][3] = {{v, t, p}, {q, v, p}, {p, v, t}, {p, q, v}, {t, p, v}, {v, p, q}};
    for (int k = 0; k < 3; ++k)
        rgb[k] = Word(triples[i][k]).bits;
    return result;
}

QColor Color::getQColor(bool clampToGamut) const
{
    const Color c = face == LXColor::Hsv ? *this : toRgb16(clampToGamut);
    return QColor(c.red8(), c.green8(), c.blue8(), c.alpha8());
}

// ---- HSV ----

Color& Color::setHsv(Text caller, int last, int h, Word s, Word v, Word a, ProfileId id)
{
    if (h >= -1 && h <= last && s.fits && v.fits && a.fits)
        store(LXColor::Hsv, h == -1 ? kAchromatic : static_cast<quint32>(h % 360) * 100, s.bits, v.bits, a.bits, id);
    else
        refuse(QString("LXColor::%1: HSV parameters out of range").arg(caller));
    return *this;
}

Color& Color::setHsv(Text caller, double h, Word s, Word v, Word a, ProfileId id)
{
    const bool accepted = (h == -1.0 || (h >= 0.0 && h <= 1.0)) && s.fits && v.fits && a.fits;
    setHsv(caller, accepted ? 0 : -2, -1, s, v, a, id);
    if (accepted && h != -1.0)
        words[0] = static_cast<quint32>(h * 36000.0 + 0.5);
    return *this;
}

Color Color::toHsv16() const
{
    if (face == LXColor::Invalid || face == LXColor::Hsv)
        return *this;
    if (face != LXColor::Rgb)
        return toRgb16(true).toHsv16();
    Color result;
    result.configuration = configuration;
    result.profileId = profileId;
    result.alpha = alpha;
    result.face = LXColor::Hsv;
    const double r = toF(words[0]);
    const double g = toF(words[1]);
    const double b = toF(words[2]);
    const double max = r > g && r > b ? r : std::max(g, b);
    const double min = g > r && b > r ? r : std::min(g, b);
    const double delta = max - min;
    result.words[2] = Word(max).bits;
    if (qFuzzyCompare(1 + delta, 1.0)) {
        result.words[0] = kAchromatic;
        result.words[1] = 0;
        return result;
    }
    result.words[1] = Word(delta / max).bits;
    double hue = 0;
    if (qFuzzyCompare(r, max))
        hue = (g - b) / delta;
    else if (qFuzzyCompare(g, max))
        hue = 2 + (b - r) / delta;
    else
        hue = 4 + (r - g) / delta;
    hue *= 60;
    if (hue < 0)
        hue += 360;
    result.words[0] = static_cast<quint32>(hue * 100 + 0.5);
    return result;
}

quint32 Color::hsvWord(int i) const
{
    return face == LXColor::Invalid || face == LXColor::Hsv ? words[i] : toHsv16().words[i];
}

int Color::hue8() const
{
    return hsvWord(0) == kAchromatic ? -1 : std::min(359, static_cast<int>(std::floor(hsvWord(0) / 100.0 + 0.5)));
}

double Color::hueF() const { return hsvWord(0) == kAchromatic ? -1.0 : hsvWord(0) / 36000.0; }

void Color::getHsv16(int* h, uint* s, uint* v, uint* a) const
{
    *h = hsvWord(0) == kAchromatic ? -1 : static_cast<int>(hsvWord(0) / 100);
    *s = saturation16();
    *v = value16();
    *a = alpha16();
}

// ---- Yxy ----

double Color::storedY() const
{
    double stored;
    std::memcpy(&stored, words + 1, sizeof stored);
    return stored;
}

void Color::storeYxy(Yxy light, ProfileId id)
{
    face = LXColor::Yxy;
    profileId = id;
    std::memcpy(words + 1, &light.Y, sizeof light.Y);
    x = light.x;
    y = light.y;
}

void Color::setYxy(Yxy light, Word a, ProfileId id)
{
    if (!a.fits)
        return invalidate();
    alpha = a.bits;
    storeYxy(light, id);
}

Color Color::fromxyY(double cx, double cy, double Y, ProfileId id)
{
    Color color;
    if (Word(cx).fits && Word(cy).fits && Word(Y).fits)
        color.setYxy({Y, cx, cy}, 1.0, id);
    else
        color.refuse("LXColor::fromxyY: xyY parameters out of range");
    return color;
}

Yxy Color::yxy() const
{
    if (face == LXColor::Yxy || face == LXColor::Invalid)
        return {storedY(), x, y};
    return toYxy(ColorUtils::ConfigUnknown, ColorUtils::ProfileNone, -1).yxy();
}

void Color::setMember(double Yxy::*member, double v)
{
    if (!Word(v).fits)
        return invalidate();
    Yxy light = yxy();
    light.*member = v;
    if (face != LXColor::Yxy)
        alpha = narrowed(alpha, 16);
    storeYxy(light, profileId);
}

Color Color::toYxy(Configuration cc, ProfileId id, int curveType) const
{
    if (face == LXColor::Invalid || face == LXColor::Yxy)
        return *this;
    const Configuration resolvedCc = cc == 0 ? configuration : cc;
    const ProfileId resolvedId = id == -1 ? profileId : id;
    const int curve = curveType == -1 ? profile(resolvedId).curve : curveType;
    const Yxy light = toLight(face == LXColor::Hsv ? toRgb16(true) : *this, record(resolvedId, resolvedCc), curve);
    Color result;
    result.configuration = resolvedCc;
    result.alpha = alpha;
    result.storeYxy(light, profileId);
    return result;
}

// ---- N-channel ----

void Color::setLevels(const QVector<Word>& v, Configuration cc, ProfileId id)
{
    if (v.isEmpty() || !v[0].fits)
        return invalidate();
    face = LXColor::NChannel;
    alpha = v[0].bits;
    levels.clear();
    for (int i = 1; i < v.size(); ++i)
        levels << v[i].bits;
    configuration = cc;
    profileId = id;
}

void Color::setNChannel8(QVector<int> v, Configuration cc, ProfileId id)
{
    QVector<Word> saturated;
    for (int level : v)
        saturated << Word(qBound(0, level, 255));
    setLevels(saturated, cc, id);
}

void Color::setNChannel16(QVector<uint> v, Configuration cc, ProfileId id)
{
    QVector<Word> saturated;
    for (uint level : v)
        saturated << Word(saturated.isEmpty() ? level : std::min(level, 65535u));
    setLevels(saturated, cc, id);
}

void Color::setNChannelF(QVector<double> v, Configuration cc, ProfileId id)
{
    QVector<Word> saturated;
    for (double level : v)
        saturated << Word(saturated.isEmpty() ? level : level > 1 ? 1.0 : level > 0 ? level : 0.0);
    setLevels(saturated, cc, id);
}

void Color::getNChannel16(QVector<uint>* out, Configuration*, ProfileId*) const
{
    *out = {alpha16()};
    for (quint32 level : levels)
        *out << to16(level);
}

void Color::getNChannelF(QVector<double>* out, Configuration*, ProfileId*) const
{
    *out = {alphaF()};
    for (quint32 level : levels)
        *out << toF(level);
}

Color Color::toNChannel16(Configuration cc, ProfileId id, int curveType) const
{
    if (face == LXColor::Invalid || (face == LXColor::NChannel && configuration == cc && profileId == id))
        return *this;
    const ProfileId resolvedId = id == -1 ? profileId : id;
    const int curve = curveType == -1 ? profile(resolvedId).curve : curveType;
    const Yxy light = face == LXColor::Yxy ? yxy() : toLight(face == LXColor::Hsv ? toRgb16(true) : *this);
    QVector<uint> v{alpha16()};
    for (quint16 level : drive16(light, cc, resolvedId, curve, true))
        v << level;
    Color result;
    result.setNChannel16(v, cc, resolvedId);
    if (face == LXColor::Yxy)
        result.setNChannelRenderType(LXColor::NChannelColorimetric);
    else if (face == LXColor::NChannel)
        result.setNChannelRenderType(getNChannelRenderType());
    return result;
}

Color Color::convertTo(LXColor::Spec to, Configuration cc, ProfileId id) const
{
    if (to == LXColor::NChannel)
        return toNChannel16(cc, id, -1);
    if (to == face)
        return *this;
    return to == LXColor::Rgb   ? toRgb16(true)
           : to == LXColor::Hsv ? toHsv16()
           : to == LXColor::Yxy ? toYxy(cc, id, -1)
                                : Color();
}

bool Color::isBlack() const
{
    return face == LXColor::Rgb        ? words[0] == 0 && words[1] == 0 && words[2] == 0
           : face == LXColor::Hsv      ? words[2] == 0
           : face == LXColor::Yxy      ? storedY() == 0.0
           : face == LXColor::NChannel ? allNChannelsBlack()
                                       : false;
}

// ---- Text ----

void Color::setHexName(const QString& text)
{
    QString digits;
    bool good = true;
    for (QChar c : text.mid(1)) {
        if (c > QChar(255))
            break; // a zero byte
        good = good && QString("0123456789abcdefABCDEF").contains(c);
        digits += c;
    }
    const int size = digits.size();
    const int width = size == 12 || size == 16 ? 4 : 2;
    if (!good || (size != 6 && size != 8 && size != 12 && size != 16))
        return refuse("LXColor::setRgb16: RGB parameters out of range");
    QVector<uint> argb;
    for (int i = 0; i < size; i += width)
        argb << digits.mid(i, width).toUInt(nullptr, 16) * (width == 2 ? 257 : 1);
    if (argb.size() == 3)
        argb.prepend(0xffff);
    setRgb16(argb[1], argb[2], argb[3], argb[0], ColorUtils::ProfileGenericRGB);
}

void Color::setNamedColor(const QString& text)
{
    if (text.isEmpty())
        return invalidate();
    const QStringList fields = text.split(';');
    if (fields.size() > 1) {
        if (fields.size() < 4)
            return invalidate();
        configuration = static_cast<Configuration>(fields[1].toInt());
        profileId = static_cast<ProfileId>(fields[2].toInt());
        if (fields[0] == "aRgb" && fields.size() != 4)
            return invalidate();
        if (fields[0] == "aRgb" && fields[3].startsWith('#'))
            return fields[3].size() > 17 ? invalidate() : setHexName(fields[3]);
        if (fields[0] == "aYxy") {
            if (fields.size() != 7)
                return invalidate();
            return setYxy16(fields[4].toDouble(), fields[5].toDouble(), fields[6].toDouble(), fields[3].toUInt(),
                            ColorUtils::ProfileGenericRGB);
        }
        if (fields[0] == "aNchannel") {
            QVector<uint> v;
            for (int i = 3; i < fields.size() - 1; ++i)
                v << fields[i].toUInt();
            setNChannel16(v, configuration, profileId);
            if (isValid())
                words[0] = fields.last().toUInt();
            return;
        }
    }
    if (text.startsWith('#'))
        return text.size() >= 18 ? invalidate() : setHexName(text);
    QColor named;
    named.setNamedColor(text);
    if (!named.isValid())
        return refuse("LXColor::setNamedColor: Unknown color name '" + text + "'");
    setRgb8(named.red(), named.green(), named.blue(), named.alpha(), ColorUtils::ProfileGenericRGB);
}

QString Color::nameFull8() const
{
    QStringList numbers{QString::number(alpha8())};
    for (quint32 level : levels)
        numbers << QString::number(level >> 24);
    return numbers.join(',');
}

QString Color::aName() const
{
    const QString head = QString::asprintf(";%d;%d;", configuration, profileId);
    if (face == LXColor::Invalid)
        return QString();
    if (face == LXColor::Yxy)
        return "aYxy" + head + QString::asprintf("%u;%f;%f;%f", alpha16(), storedY(), x, y);
    if (face != LXColor::NChannel) {
        const Color rgb = toRgb16(true);
        return "aRgb" + QString::asprintf(";%d;%d;", rgb.configuration, rgb.profileId) +
               QString::asprintf("#%04x%04x%04x%04x", alpha16(), rgb.red16(), rgb.green16(), rgb.blue16());
    }
    QStringList numbers{QString::number(alpha16())};
    for (quint32 level : levels)
        numbers << QString::number(level >> 16);
    numbers << QString::number(words[0]);
    return "aNchannel" + head + numbers.join(';');
}

// ---- Output ----

Yxy toLight(const Color& color, const Record& record, int curveType)
{
    QVector<double> levels;
    if (color.face == LXColor::Rgb || color.face == LXColor::Hsv)
        levels = {color.redF(), color.greenF(), color.blueF()};
    else if (color.face == LXColor::NChannel) {
        color.getNChannelF(&levels, nullptr, nullptr);
        levels.removeFirst();
    }
    if (color.isBlack())
        return {0, 0, 0};
    return mix(levels, record, curveType);
}

Yxy toLight(const Color& color)
{
    return toLight(color, record(color.profileId, color.configuration), profile(color.profileId).curve);
}

QVector<quint16> drive16(Yxy light, Configuration configuration, ProfileId id, int curveType, bool clampToGamut)
{
    return applyCurve16(solve(light, configuration, id, clampToGamut), curveType, 3);
}

QVector<double> outputLevels(bool& converted, const Color& color, bool allowRgbPassThrough, int count, ProfileId target,
                             int mode, bool clampToGamut)
{
    mode = mode >= 0 && mode <= 9 ? mode : 0;
    const IoMode& io = ioMode(mode);
    const bool yxyFace = color.face == LXColor::Yxy;
    const bool generic = color.profileId == ColorUtils::ProfileGenericRGB;
    const bool rgbLayout = color.configuration == ColorUtils::ConfigRGB;
    const bool colorimetric =
        color.face == LXColor::NChannel && color.getNChannelRenderType() == LXColor::NChannelColorimetric;
    const bool fits =
        io.input == color.configuration && color.profileId == target && (mode == 0 || (io.isNtoN && !yxyFace));
    const bool genericRgb =
        generic && rgbLayout && !yxyFace && !colorimetric && (io.is3toN || (io.isNtoN && allowRgbPassThrough));
    QVector<double> levels;
    if (!fits && !genericRgb) {
        converted = converted || !yxyFace;
        levels = solve(yxyFace ? color.yxy() : toLight(color), io.input, target, clampToGamut);
    } else if (generic && (io.input == ColorUtils::ConfigRGB || (rgbLayout && io.isNtoN))) {
        levels = {color.redF(), color.greenF(), color.blueF()};
    } else if (color.face == LXColor::NChannel) {
        color.getNChannelF(&levels, nullptr, nullptr);
        levels.removeFirst();
    } else if (yxyFace) {
        levels = solve(color.yxy(), io.input, target, clampToGamut);
    } else if (color.isValid()) {
        levels = {color.redF(), color.greenF(), color.blueF()};
    }
    levels.resize(std::max(0, count));
    return levels;
}

QList<quint8> updateBuffer(int directCurve, int onboardCurve, const Color& color, bool allowRgbPassThrough, int count,
                           int resolution, int mode, ProfileId target)
{
    if (count <= 0 || resolution <= 0)
        return {};
    bool converted = false;
    const QVector<double> levels = outputLevels(converted, color, allowRgbPassThrough, count, target, mode, true);
    const bool solved = converted || color.face == LXColor::Yxy;
    QVector<quint8> bytes = applyCurve(resolution, levels, solved ? onboardCurve : directCurve, solved ? 3 : 1);
    bytes.resize(count * resolution);
    return bytes.toList();
}

void updateColor(Color& current, const Color& incoming)
{
    if (current.isBlack() || incoming.alpha8() > 254) {
        current = incoming;
        return;
    }
    if (current.configuration != incoming.configuration || current.profileId != incoming.profileId ||
        current.face != incoming.face)
        current = current.convertTo(incoming.face, incoming.configuration, incoming.profileId);
    const double a = incoming.alphaF();
    const auto blend = [a](double before, double after) { return before * (1 - a) + after * a; };
    const auto blend16 = [&](uint before, uint after) { return static_cast<uint>(blend(before, after)); };
    if (incoming.face == LXColor::Yxy) {
        const Yxy before = current.yxy();
        const Yxy after = incoming.yxy();
        current.setYxyF(blend(before.Y, after.Y), blend(before.x, after.x), blend(before.y, after.y), 1.0,
                        ColorUtils::ProfileGenericRGB);
    } else if (incoming.configuration == ColorUtils::ConfigRGB) {
        current.setRgb16(blend16(current.red16(), incoming.red16()), blend16(current.green16(), incoming.green16()),
                         blend16(current.blue16(), incoming.blue16()), 65535, ColorUtils::ProfileGenericRGB);
    } else {
        QVector<uint> before, after;
        current.getNChannel16(&before, nullptr, nullptr);
        incoming.getNChannel16(&after, nullptr, nullptr);
        for (int i = 1; i < std::min(before.size(), after.size()); ++i)
            before[i] = blend16(before[i], after[i]);
        current.setNChannel16(before, current.configuration, ColorUtils::ProfileGenericRGB);
    }
}

} // namespace reference
