#include "ColorText_p.h"
#include "ColorWords_p.h"

#include <QVarLengthArray>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

namespace lxcolor {

namespace {

constexpr std::array<uint, 256> makeHexDigitValues()
{
    std::array<uint, 256> values{};
    for (uint& value : values)
        value = ~0u;
    for (uint i = 0; i < 10; ++i)
        values['0' + i] = i;
    for (uint i = 0; i < 6; ++i) {
        values['a' + i] = 10 + i;
        values['A' + i] = 10 + i;
    }
    return values;
}

constexpr std::array<uint, 256> kHexDigitValues = makeHexDigitValues();

/// A character that is no digit puts its component out of range.
uint digitValue(char c) { return kHexDigitValues[static_cast<unsigned char>(c)]; }
uint digitValue(QChar c) { return c.unicode() < 256 ? kHexDigitValues[c.unicode()] : ~0u; }

/// A run of decimal digits, few enough not to overflow.
struct Digits
{
    quint64 value = 0;
    int count = 0;
};

Digits digitsAt(const QChar* chars, const QChar* end)
{
    constexpr int kMost = 15; // a double holds as many exactly
    Digits digits;
    for (; chars + digits.count != end && digits.count < kMost; ++digits.count) {
        const uint digit = chars[digits.count].unicode() - uint('0');
        if (digit > 9)
            break;
        digits.value = digits.value * 10 + digit;
    }
    return digits;
}

/// Two digits, widened to 16 bits by repeating them.
uint component2(const char* digits)
{
    const uint byte = (digitValue(digits[0]) << 4) | digitValue(digits[1]);
    return (byte << 8) | byte;
}

uint component4(const char* digits)
{
    return (digitValue(digits[0]) << 12) | (digitValue(digits[1]) << 8) | (digitValue(digits[2]) << 4) |
           digitValue(digits[3]);
}

/// Collects ASCII text of a colour on the stack.
class AsciiText
{
public:
    AsciiText& text(const char* s)
    {
        while (*s)
            append(*s++);
        return *this;
    }

    AsciiText& hex(uint value, int digits)
    {
        for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4)
            append("0123456789abcdef"[(value >> shift) & 0xf]);
        return *this;
    }

    AsciiText& unsignedNumber(uint value)
    {
        char reversed[10];
        int count = 0;
        do {
            reversed[count++] = static_cast<char>('0' + value % 10);
            value /= 10;
        } while (value != 0);
        while (count > 0)
            append(reversed[--count]);
        return *this;
    }

    AsciiText& number(int value)
    {
        if (value < 0)
            append('-');
        return unsignedNumber(value < 0 ? 0u - static_cast<uint>(value) : static_cast<uint>(value));
    }

    /// As "%f" prints it. Where six decimals are certain without exact arithmetic they are written here.
    AsciiText& sixDecimals(double value)
    {
        constexpr double kUncertain = 1e-6;
        const double millionths = value * 1e6;
        if (value >= 0.0 && value < 1000.0) {
            const double whole = std::floor(millionths);
            const double rest = millionths - whole;
            if (std::fabs(rest - 0.5) > kUncertain) {
                const uint rounded = static_cast<uint>(whole) + (rest > 0.5 ? 1u : 0u);
                unsignedNumber(rounded / 1000000u).text(".");
                for (uint unit = 100000u; unit != 0; unit /= 10)
                    append(static_cast<char>('0' + rounded / unit % 10));
                return *this;
            }
        }
        return text(QString::asprintf("%f", value).toLatin1().constData());
    }

    QString toString() const { return QString(m_chars.constData(), m_chars.size()); }

private:
    void append(char c) { m_chars.append(QLatin1Char(c)); }

    QVarLengthArray<QChar, 128> m_chars;
};

AsciiText& numbers(AsciiText& out, const ValueStringHead& head)
{
    return out.number(head.configuration).text(";").number(head.profile).text(";");
}

} // namespace

bool readHexBytes(const QChar* digits, uint (&bytes)[3])
{
    uint bits = 0;
    for (uint& byte : bytes) {
        const uint high = digitValue(digits[0]);
        const uint low = digitValue(digits[1]);
        byte = high << 4 | low;
        bits |= high | low;
        digits += 2;
    }
    return bits < 16;
}

FieldReader::FieldReader(const QString& text)
    : m_next(text.constData()), m_end(text.constData() + text.size()), m_fieldCount(1 + text.count(QLatin1Char(';')))
{
}

Field FieldReader::next()
{
    const QChar* begin = m_next;
    const QChar* end = std::find(begin, m_end, QLatin1Char(';'));
    m_next = end == m_end ? end : end + 1;
    return {begin, static_cast<int>(end - begin)};
}

int Field::toInt() const
{
    const Digits digits = digitsAt(m_chars, m_chars + m_size);
    if (digits.count == m_size && digits.count <= 9)
        return static_cast<int>(digits.value);
    return QString::fromRawData(m_chars, m_size).toInt();
}

uint Field::toUInt() const
{
    const Digits digits = digitsAt(m_chars, m_chars + m_size);
    if (digits.count == m_size && digits.count <= 9)
        return static_cast<uint>(digits.value);
    return QString::fromRawData(m_chars, m_size).toUInt();
}

double Field::toDouble() const
{
    // Up to 15 digits and a power of ten are exact, so that their quotient is the nearest double.
    static constexpr double kPowersOfTen[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                              1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    const QChar* const end = m_chars + m_size;
    const Digits whole = digitsAt(m_chars, end);
    const QChar* const point = m_chars + whole.count;
    if (whole.count > 0 && point != end && *point == QLatin1Char('.')) {
        const Digits decimals = digitsAt(point + 1, end);
        if (decimals.count > 0 && point + 1 + decimals.count == end && whole.count + decimals.count <= 15) {
            const double scale = kPowersOfTen[decimals.count];
            return (static_cast<double>(whole.value) * scale + static_cast<double>(decimals.value)) / scale;
        }
    }
    return QString::fromRawData(m_chars, m_size).toDouble();
}

void readHexDigits(const char* digits, uint* argb)
{
    argb[0] = 0xffff;
    switch (std::strlen(digits)) {
    case 8:
        argb[0] = component2(digits);
        digits += 2;
        Q_FALLTHROUGH();
    case 6:
        for (int i = 0; i < 3; ++i)
            argb[1 + i] = component2(digits + 2 * i);
        break;
    case 16:
        argb[0] = component4(digits);
        digits += 4;
        Q_FALLTHROUGH();
    case 12:
        for (int i = 0; i < 3; ++i)
            argb[1 + i] = component4(digits + 4 * i);
        break;
    default:
        argb[1] = argb[2] = argb[3] = kWordMax;
    }
}

QString hexName16(uint r, uint g, uint b) { return AsciiText().text("#").hex(r, 4).hex(g, 4).hex(b, 4).toString(); }

QString hexName8(int r, int g, int b)
{
    AsciiText out;
    out.text("#");
    for (int component : {r, g, b})
        out.hex(static_cast<uint>(component), 2);
    return out.toString();
}

QString rgbValueString(const ValueStringHead& head, uint r, uint g, uint b)
{
    AsciiText out;
    return numbers(out.text("aRgb;"), head).text("#").hex(head.alpha, 4).hex(r, 4).hex(g, 4).hex(b, 4).toString();
}

QString yxyValueString(const ValueStringHead& head, double Y, double x, double y)
{
    AsciiText out;
    numbers(out.text("aYxy;"), head).unsignedNumber(head.alpha);
    for (double value : {Y, x, y})
        out.text(";").sixDecimals(value);
    return out.toString();
}

QString nChannelValueString(const ValueStringHead& head, const quint32* levels, int count, uint renderType)
{
    AsciiText out;
    numbers(out.text("aNchannel;"), head).unsignedNumber(head.alpha);
    for (int k = 0; k < count; ++k)
        out.text(";").unsignedNumber(to16(levels[k]));
    return out.text(";").unsignedNumber(renderType).toString();
}

QString decimalList8(quint32 alpha, const quint32* levels, int count)
{
    AsciiText out;
    out.number(to8(alpha));
    for (int k = 0; k < count; ++k)
        out.text(",").number(to8(levels[k]));
    return out.toString();
}

} // namespace lxcolor
