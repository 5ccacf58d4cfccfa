#ifndef COLORTEXT_P_H
#define COLORTEXT_P_H

#include <QLatin1String>
#include <QString>
#include <QStringView>

// How colours are written as text and read from it. Everything here works on the stack; results alone are allocated.
namespace lxcolor {

/// One field of a value string, by reference.
class Field
{
public:
    Field(const QChar* chars, int size) : m_chars(chars), m_size(size) {}

    const QChar* chars() const { return m_chars; }
    int size() const { return m_size; }
    bool startsWith(char c) const { return m_size > 0 && m_chars[0] == QLatin1Char(c); }
    bool operator==(QLatin1String text) const { return QStringView(m_chars, m_size) == text; }

    // As QString reads numbers (C locale); 0 for what is no number.
    int toInt() const;
    uint toUInt() const;
    double toDouble() const;

private:
    const QChar* m_chars;
    int m_size;
};

/// Hands out the fields between the semicolons of a text, empty ones too. The text must outlive it.
class FieldReader
{
public:
    explicit FieldReader(const QString& text);

    int fieldCount() const { return m_fieldCount; }
    /// The next field; only as many as there are.
    Field next();

private:
    const QChar* m_next;
    const QChar* m_end;
    int m_fieldCount;
};

/// Reads six hexadecimal digits as three bytes. False when one of them is no digit.
bool readHexBytes(const QChar* digits, uint (&bytes)[3]);

/// Reads the digits after the "#" of a hexadecimal name into alpha, red, green, blue of 16 bits. An unsupported number
/// of digits, or a character that is no digit, gives components of 65536 or more.
void readHexDigits(const char* digits, uint* argb);

QString hexName16(uint r, uint g, uint b);
QString hexName8(int r, int g, int b);

/// The fields that every value string has: the numbers of configuration and profile, and the 16-bit alpha.
struct ValueStringHead
{
    int configuration;
    int profile;
    uint alpha;
};

QString rgbValueString(const ValueStringHead& head, uint r, uint g, uint b);
QString yxyValueString(const ValueStringHead& head, double Y, double x, double y);
/// \a levels are 32-bit words, written in 16 bits.
QString nChannelValueString(const ValueStringHead& head, const quint32* levels, int count, uint renderType);
/// The 8-bit alpha and the 8-bit levels of 32-bit words, joined by ",".
QString decimalList8(quint32 alpha, const quint32* levels, int count);

} // namespace lxcolor

#endif
