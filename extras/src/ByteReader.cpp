#include "ByteReader_p.h"
#include "InputFault_p.h"
#include "PaletteFormat.h"

#include <QtEndian>

#include <cmath>

namespace lxcolor {

const char* ByteReader::take(quint32 size)
{
    if (size > static_cast<quint32>(left()))
        throw InputFault{
            PaletteFormat::tr("The file ends, or a part of it, where %1 more bytes are expected").arg(size),
            {},
            m_offset};
    const char* const data = m_bytes.constData() + m_offset;
    m_offset += static_cast<int>(size);
    return data;
}

ByteReader ByteReader::part(quint32 size)
{
    ByteReader reader = *this;
    take(size);
    reader.m_end = m_offset;
    return reader;
}

quint16 ByteReader::u16() { return qFromBigEndian<quint16>(take(2)); }

quint32 ByteReader::u32() { return qFromBigEndian<quint32>(take(4)); }

double ByteReader::number()
{
    const int at = m_offset;
    const auto value = static_cast<double>(qFromBigEndian<float>(take(4)));
    if (!std::isfinite(value))
        throw InputFault{PaletteFormat::tr("A number is infinite or not a number"), {}, at};
    return value;
}

QByteArray ByteReader::bytes(int size) { return {take(static_cast<quint32>(size)), size}; }

QString ByteReader::text(quint32 units)
{
    const auto available = static_cast<quint32>(left()) / 2;
    if (units > available)
        throw InputFault{
            PaletteFormat::tr("A name is longer than what is left of the file, or of its part"), {}, m_offset};
    QString result;
    for (quint32 i = 0; i < units; ++i)
        result += QChar(u16());
    if (result.endsWith(QChar(QChar::Null)))
        result.chop(1);
    return result;
}

QByteArray bigEndianText(const QString& text, int longest, bool& isChanged)
{
    QString written = text.left(longest - 1);
    if (written.size() < text.size() && written.at(written.size() - 1).isHighSurrogate())
        written.chop(1);
    written.replace(QChar(QChar::Null), QChar(QChar::ReplacementCharacter));
    isChanged = written != text;
    written += QChar(QChar::Null);
    QByteArray bytes(2 * written.size(), Qt::Uninitialized);
    for (int i = 0; i < written.size(); ++i)
        qToBigEndian(written.at(i).unicode(), bytes.data() + 2 * i);
    return bytes;
}

} // namespace lxcolor
