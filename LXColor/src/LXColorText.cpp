// The text forms of LXColor.
#include "ColorText_p.h"
#include "ColorWords_p.h"
#include "LXColor.h"

#include <QLatin1String>

using namespace lxcolor;

void LXColor::setNamedColor(const QString& name)
{
    if (name.isEmpty()) {
        invalidate();
        return;
    }
    if (name.size() == 7 && name.at(0) == QLatin1Char('#') && readRgb24(name.constData() + 1))
        return;
    if (name.contains(QLatin1Char(';')) && readValueString(name))
        return;
    if (!readName(name)) {
        qWarning("LXColor::setNamedColor: Unknown color name '%s'", qUtf8Printable(name));
        invalidate();
    }
}

/// Reads a value string. False, with the colour half set, when the text is no value string and must be read as a name.
bool LXColor::readValueString(const QString& text)
{
    FieldReader fields(text);
    const int count = fields.fieldCount();
    if (!accept(count >= 4))
        return true;
    const Field tag = fields.next();
    m_channelConfiguration = static_cast<ChannelConfiguration>(fields.next().toInt());
    m_profileID = static_cast<TonematchProfileID>(fields.next().toInt());

    if (tag == QLatin1String("aRgb")) {
        if (!accept(count == 4))
            return true;
        const Field digits = fields.next();
        if (!digits.startsWith('#'))
            return false;
        readHex(digits.chars(), digits.size());
        return true;
    }
    if (tag == QLatin1String("aYxy")) {
        if (!accept(count == 7))
            return true;
        const uint alpha = fields.next().toUInt();
        const double Y = fields.next().toDouble();
        const double x = fields.next().toDouble();
        const double y = fields.next().toDouble();
        setYxy16(Y, x, y, alpha, ColorUtils::ProfileGenericRGB);
        return true;
    }
    if (tag == QLatin1String("aNchannel")) {
        QVector<uint> levels(count - 4);
        for (uint& level : levels)
            level = fields.next().toUInt();
        setNChannel16(levels, m_channelConfiguration, m_profileID);
        if (isValid())
            setNChannelRenderType(static_cast<NChannelRenderType>(static_cast<qint32>(fields.next().toUInt())));
        return true;
    }
    return false;
}

/// Reads the most usual name, "#rrggbb", by its digits. False, with the colour as it was, when one of them is no digit.
bool LXColor::readRgb24(const QChar* digits)
{
    uint rgb[3];
    if (!readHexBytes(digits, rgb))
        return false;
    storeFace(Rgb, wordFrom8(rgb[0]), wordFrom8(rgb[1]), wordFrom8(rgb[2]), kWordMax, ColorUtils::ProfileGenericRGB);
    return true;
}

/// Reads "#" and hexadecimal digits as an RGB colour of profile 0.
void LXColor::readHex(const QChar* chars, int size)
{
    uint argb[4] = {};
    if (accept(get_hex_rgb16(chars, size, argb)))
        setRgb16(argb[1], argb[2], argb[3], argb[0], ColorUtils::ProfileGenericRGB);
}

/// Reads a hexadecimal name, or a colour name that QColor knows. False when there is no such name.
bool LXColor::readName(const QString& text)
{
    if (text.startsWith(QLatin1Char('#'))) {
        readHex(text.constData(), text.size());
        return true;
    }
    QColor color;
    color.setNamedColor(text);
    if (color.isValid())
        setQColor(color);
    return color.isValid();
}

QString LXColor::name() const
{
    const LXColor rgb = toRgb16(true);
    return hexName16(rgb.red16(), rgb.green16(), rgb.blue16());
}

QString LXColor::name8() const
{
    const LXColor rgb = toRgb16(true);
    return hexName8(rgb.red8(), rgb.green8(), rgb.blue8());
}

QString LXColor::nameFull8() const { return decimalList8(m_alpha, m_nChannels.constData(), m_nChannels.size()); }

QString LXColor::aName() const
{
    if (m_spec == Hsv)
        return toRgb16(true).aName();
    const ValueStringHead head = {m_channelConfiguration, m_profileID, alpha16()};
    switch (m_spec) {
    case Rgb:
        return rgbValueString(head, red16(), green16(), blue16());
    case Yxy:
        return yxyValueString(head, storedY(), m_x, m_y);
    case NChannel:
        return nChannelValueString(head, m_nChannels.constData(), m_nChannels.size(), m_words[0]);
    default:
        return {};
    }
}

bool get_hex_rgb16(const char* s, uint* out)
{
    if (!s || !out || s[0] != '#')
        return false;
    readHexDigits(s + 1, out);
    return true;
}

bool get_hex_rgb16(const QChar* s, int len, uint* out)
{
    constexpr int kLongest = 17; // "#" and 16 digits
    if (!s || len > kLongest)
        return false;
    char text[kLongest + 1] = {};
    for (int i = 0; i < len; ++i)
        text[i] = s[i].toLatin1(); // a zero byte, which ends the text, above U+00FF
    return get_hex_rgb16(text, out);
}

bool get_named_rgb(const char* /*name*/, uint* /*out*/) { return false; }
