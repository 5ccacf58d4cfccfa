#include "ByteReader_p.h"
#include "PaletteCodecs_p.h"
#include "PaletteSpaces_p.h"

#include <QDataStream>

// Colour swatch files: a section of version 1, of colours, and then one of version 2, of the same colours with names;
// all big-endian. Either may stand alone.

namespace lxcolor {

namespace {

using Code = PaletteFormat::Code;

enum Space : quint16 { Rgb = 0, Hsb = 1, Cmyk = 2, Lab = 7, Gray = 8, WideCmyk = 9 };
constexpr int kMostColors = 65535;
constexpr int kLongestName = 1 << 20; // units; the format itself has no limit to speak of

[[noreturn]] void refuse(const QString& text, int offset) { throw InputFault{text, {}, offset}; }

/// A colour of four numbers; an invalid one where the space is not known.
LXColor readColor(ByteReader& file, PaletteRemarks& remarks)
{
    const quint16 space = file.u16();
    quint16 w[4];
    for (quint16& word : w)
        word = file.u16();
    const auto level = [&](int i) { return w[i] / 65535.0; };
    const auto signedHundredths = [&](int i) { return static_cast<qint16>(w[i]) / 100.0; };
    switch (space) {
    case Rgb:
        return fromRgb(level(0), level(1), level(2), remarks);
    case Hsb:
        return fromHsb(level(0), level(1), level(2), remarks);
    case Cmyk: // 0 is all of the ink.
        return fromCmyk(1.0 - level(0), 1.0 - level(1), 1.0 - level(2), 1.0 - level(3), remarks);
    case WideCmyk:
        return fromCmyk(w[0] / 1e4, w[1] / 1e4, w[2] / 1e4, w[3] / 1e4, remarks);
    case Lab:
        return fromLab(w[0] / 100.0, signedHundredths(1), signedHundredths(2), remarks);
    case Gray:
        return fromGray(w[0] / 1e4, remarks);
    default:
        remarks.add(Code::UnknownSpace);
        return {};
    }
}

void readSection(ByteReader& file, int version, PaletteBuilder& builder)
{
    const int count = file.u16();
    for (int i = 0; i < count; ++i) {
        const LXColor color = readColor(file, builder.remarks());
        const QString name = version == 2 ? file.text(file.u32()) : QString();
        if (color.isValid())
            builder.add(name, color);
    }
}

void writeSection(QDataStream& stream, const Palette& palette, int version, PaletteRemarks& remarks)
{
    stream << static_cast<quint16>(version) << static_cast<quint16>(palette.size());
    for (const Palette::List& list : palette.lists) {
        for (const Palette::Entry& entry : list.entries) {
            const LXColor rgb = rgbOf(entry);
            stream << static_cast<quint16>(Rgb);
            for (const uint level : {rgb.red16(), rgb.green16(), rgb.blue16(), 0U})
                stream << static_cast<quint16>(level);
            if (version == 1)
                continue;
            bool isChanged = false;
            const QByteArray text = bigEndianText(entry.name, kLongestName, isChanged);
            remarks.add(Code::Name, isChanged ? 1 : 0);
            stream << static_cast<quint32>(text.size() / 2);
            stream.writeRawData(text.constData(), text.size());
        }
    }
}

} // namespace

void readAco(const QByteArray& content, PaletteBuilder& builder)
{
    ByteReader file(content);
    int version = file.u16();
    if (version != 1 && version != 2)
        refuse(PaletteFormat::tr("This is no such palette: it begins with neither version 1 nor 2"), 0);
    if (version == 1) {
        // The second section tells the same and the names, so that the first counts where it stands alone.
        ByteReader first = file;
        const auto size = static_cast<quint32>(file.u16()) * 10;
        file.part(size);
        if (file.left() == 0)
            return readSection(first, 1, builder);
        const int at = file.offset();
        version = file.u16();
        if (version != 2)
            refuse(PaletteFormat::tr("A section of version 2 is expected here"), at);
    }
    readSection(file, 2, builder);
    builder.remarks().add(Code::Other, file.left() > 0 ? 1 : 0);
}

QByteArray writeAco(const Palette& palette, PaletteRemarks& remarks)
{
    if (palette.size() > kMostColors)
        throw InputFault{PaletteFormat::tr("There are %1 colours, but this format holds %2 at most")
                             .arg(palette.size())
                             .arg(kMostColors)};
    countLosses(palette, {false, false}, remarks);
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    writeSection(stream, palette, 1, remarks);
    writeSection(stream, palette, 2, remarks);
    return bytes;
}

} // namespace lxcolor
