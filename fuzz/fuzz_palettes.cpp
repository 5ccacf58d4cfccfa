// Any bytes may be read as a palette of any format. What was read can be written in every format, and comes back from
// those that hold everything to the letter, and from the others as the same red, green and blue.
#include "FuzzSupport.h"
#include "PaletteFormat.h"

using Id = PaletteFormat::Id;

namespace {

bool holdsEverything(Id format) { return format != Id::Ase && format != Id::Aco; }

/// The colours as a format has to give them back.
QStringList colorsOf(const Palette& palette, bool toTheLetter)
{
    QStringList all;
    for (const Palette::List& list : palette.lists)
        for (const Palette::Entry& entry : list.entries)
            all << (toTheLetter ? entry.value + '|' + entry.uid + '|' + entry.name
                                : entry.color().toRgb16(true).name());
    return all;
}

/// Whether names, uids or values had to be changed for the format.
bool hasChangedText(const PaletteFormat::Writing& writing)
{
    for (const PaletteFormat::Remark& remark : writing.remarks)
        if (remark.code == PaletteFormat::Code::Name)
            return true;
    return false;
}

void requireBack(const Palette& palette, Id format)
{
    const PaletteFormat::Writing writing = PaletteFormat::write(palette, format);
    require(writing.isWritten, "a small palette is written");
    const PaletteFormat::Reading back = PaletteFormat::read(writing.bytes, format, QString());
    require(back.isRead, "what was written is read", back.error.text);
    if (format == Id::Csv || hasChangedText(writing)) // lists of one name are joined in tables
        return require(back.palette.size() == palette.size(), "no colour is lost");
    const bool toTheLetter = holdsEverything(format);
    require(colorsOf(back.palette, toTheLetter) == colorsOf(palette, toTheLetter), "colours come back",
            colorsOf(palette, toTheLetter).join('\n') + "\n--\n" + colorsOf(back.palette, toTheLetter).join('\n'));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    FuzzInput input(data, size);
    const Id format = PaletteFormat::all().at(input.byte() % PaletteFormat::all().size());
    const PaletteFormat::Reading reading = PaletteFormat::read(input.rest(), format, QStringLiteral("list"));
    require(reading.isRead == reading.error.text.isEmpty(), "a refusal has a reason");
    require(reading.isRead || reading.palette.lists.isEmpty(), "nothing is read by halves");
    if (!reading.isRead)
        return 0;
    for (const Id other : PaletteFormat::all())
        requireBack(reading.palette, other);
    return 0;
}
