#include "ByteReader_p.h"
#include "PaletteCodecs_p.h"
#include "PaletteSpaces_p.h"

#include <QDataStream>

// Swatch exchange files: a signature, a version, and blocks of groups and colours, all big-endian.

namespace lxcolor {

namespace {

using Code = PaletteFormat::Code;

const char kSignature[] = "ASEF";
enum Block : quint16 { ColorBlock = 0x0001, GroupBlock = 0xc001, GroupEndBlock = 0xc002 };
enum Kind : quint16 { GlobalColor = 0, SpotColor = 1 };
constexpr int kLongestName = 65535; // units, with the zero at the end

[[noreturn]] void refuse(const QString& text, int offset) { throw InputFault{text, {}, offset}; }

void readColor(ByteReader& block, PaletteBuilder& builder)
{
    const QString name = block.text(block.u16());
    const QByteArray space = block.bytes(4);
    PaletteRemarks& remarks = builder.remarks();
    double v[4] = {};
    const int count = space == "CMYK" ? 4 : space == "Gray" ? 1 : space == "RGB " || space == "LAB " ? 3 : 0;
    for (int i = 0; i < count; ++i)
        v[i] = block.number();
    if (count == 0)
        return remarks.add(Code::UnknownSpace);
    remarks.add(Code::Spot, block.u16() == SpotColor ? 1 : 0);
    builder.add(name, space == "CMYK"   ? fromCmyk(v[0], v[1], v[2], v[3], remarks)
                      : space == "Gray" ? fromGray(v[0], remarks)
                      : space == "LAB " ? fromLab(100.0 * v[0], v[1], v[2], remarks)
                                        : fromRgb(v[0], v[1], v[2], remarks));
}

/// The blocks of a file, which is one level of groups at most.
class BlockReader
{
public:
    explicit BlockReader(PaletteBuilder& builder) : m_builder(builder) {}

    void read(ByteReader& file)
    {
        const int at = file.offset();
        const quint16 type = file.u16();
        ByteReader block = file.part(file.u32());
        switch (type) {
        case GroupBlock:
            if (m_isInGroup)
                refuse(PaletteFormat::tr("A group begins within another one"), at);
            m_isInGroup = true;
            return m_builder.beginList(block.text(block.u16()));
        case GroupEndBlock:
            if (!m_isInGroup)
                refuse(PaletteFormat::tr("A group ends that has not begun"), at);
            m_isInGroup = false;
            return m_builder.endList();
        case ColorBlock:
            return readColor(block, m_builder);
        default:
            return m_builder.remarks().add(Code::Other);
        }
    }
    void finish(const ByteReader& file)
    {
        if (m_isInGroup)
            refuse(PaletteFormat::tr("The last group has no end"), file.offset());
        m_builder.remarks().add(Code::Other, file.left() > 0 ? 1 : 0);
    }

private:
    PaletteBuilder& m_builder;
    bool m_isInGroup = false;
};

class BlockWriter
{
public:
    explicit BlockWriter(PaletteRemarks& remarks) : m_remarks(remarks), m_stream(&m_bytes, QIODevice::WriteOnly)
    {
        m_stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
    }

    void group(const QString& name) { write(GroupBlock, named(name)); }
    void groupEnd() { write(GroupEndBlock, QByteArray()); }
    void color(const QString& name, const LXColor& rgb)
    {
        QByteArray content = named(name) + "RGB ";
        QDataStream stream(&content, QIODevice::WriteOnly | QIODevice::Append);
        stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
        for (const uint level : {rgb.red16(), rgb.green16(), rgb.blue16()})
            stream << level / 65535.0;
        stream << static_cast<quint16>(GlobalColor);
        write(ColorBlock, content);
    }
    QByteArray file() const
    {
        QByteArray head(kSignature);
        QDataStream stream(&head, QIODevice::WriteOnly | QIODevice::Append);
        stream << quint16(1) << quint16(0) << m_count;
        return head + m_bytes;
    }

private:
    QByteArray named(const QString& name)
    {
        bool isChanged = false;
        const QByteArray text = bigEndianText(name, kLongestName, isChanged);
        m_remarks.add(Code::Name, isChanged ? 1 : 0);
        QByteArray length;
        QDataStream(&length, QIODevice::WriteOnly) << static_cast<quint16>(text.size() / 2);
        return length + text;
    }
    void write(Block type, const QByteArray& content)
    {
        m_stream << static_cast<quint16>(type) << static_cast<quint32>(content.size());
        m_stream.writeRawData(content.constData(), content.size());
        ++m_count;
    }

    PaletteRemarks& m_remarks;
    QByteArray m_bytes;
    QDataStream m_stream;
    quint32 m_count = 0;
};

} // namespace

void readAse(const QByteArray& content, PaletteBuilder& builder)
{
    ByteReader file(content);
    if (!content.startsWith(kSignature))
        refuse(
            PaletteFormat::tr("This is no such palette: it does not begin with \"%1\"").arg(QLatin1String(kSignature)),
            0);
    file.bytes(4);
    const quint16 major = file.u16();
    const quint16 minor = file.u16();
    if (major != 1)
        refuse(PaletteFormat::tr("Version %1.%2 is not known").arg(major).arg(minor), 4);
    const quint32 count = file.u32();
    BlockReader blocks(builder);
    for (quint32 i = 0; i < count; ++i)
        blocks.read(file);
    blocks.finish(file);
}

QByteArray writeAse(const Palette& palette, PaletteRemarks& remarks)
{
    countLosses(palette, {false, true}, remarks);
    BlockWriter blocks(remarks);
    for (const Palette::List& list : palette.lists) {
        blocks.group(list.name);
        for (const Palette::Entry& entry : list.entries)
            blocks.color(entry.name, rgbOf(entry));
        blocks.groupEnd();
    }
    return blocks.file();
}

} // namespace lxcolor
