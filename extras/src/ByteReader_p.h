#ifndef BYTEREADER_P_H
#define BYTEREADER_P_H

#include <QByteArray>
#include <QString>

namespace lxcolor {

/// Reads big-endian numbers and texts one after the other. Whatever is not there throws an InputFault.
class ByteReader
{
public:
    explicit ByteReader(const QByteArray& bytes) : m_bytes(bytes), m_end(bytes.size()) {}

    int offset() const { return m_offset; }
    int left() const { return m_end - m_offset; }

    /// Reads the next \a size bytes alone.
    ByteReader part(quint32 size);

    quint16 u16();
    qint16 i16() { return static_cast<qint16>(u16()); }
    quint32 u32();
    /// A number of single precision; one that is not finite is refused.
    double number();
    QByteArray bytes(int size);
    /// UTF-16 of \a units units, with or without a zero at the end.
    QString text(quint32 units);

private:
    const char* take(quint32 size);

    QByteArray m_bytes; ///< Shared, not copied.
    int m_offset = 0;
    int m_end;
};

/// \a text in UTF-16 with a zero at the end, for a \a longest number of units with it; what does not fit is cut, and
/// zeros are replaced. \a isChanged tells of both.
QByteArray bigEndianText(const QString& text, int longest, bool& isChanged);

} // namespace lxcolor

#endif
