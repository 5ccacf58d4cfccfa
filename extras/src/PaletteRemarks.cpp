#include "PaletteRemarks_p.h"

#include <algorithm>

namespace lxcolor {

namespace {

using Code = PaletteFormat::Code;

/// What is said of one, and of several.
struct Sentences
{
    const char* one;
    const char* many;
};

// In the order of the codes.
const Sentences kSentences[] = {
    {QT_TRANSLATE_NOOP("PaletteFormat", "1 colour loses its alpha."),
     QT_TRANSLATE_NOOP("PaletteFormat", "%1 colours lose their alpha.")},
    {QT_TRANSLATE_NOOP("PaletteFormat", "1 colour that is not red, green and blue becomes so."),
     QT_TRANSLATE_NOOP("PaletteFormat", "%1 colours that are not red, green and blue become so.")},
    {QT_TRANSLATE_NOOP("PaletteFormat", "1 colour loses its fixture profile."),
     QT_TRANSLATE_NOOP("PaletteFormat", "%1 colours lose their fixture profile.")},
    {QT_TRANSLATE_NOOP("PaletteFormat", "1 colour loses its uid."),
     QT_TRANSLATE_NOOP("PaletteFormat", "%1 colours lose their uid.")},
    {QT_TRANSLATE_NOOP("PaletteFormat", "1 colour loses the preset that it came from."),
     QT_TRANSLATE_NOOP("PaletteFormat", "%1 colours lose the preset that they came from.")},
    {QT_TRANSLATE_NOOP("PaletteFormat", "1 colour loses its vendor's name."),
     QT_TRANSLATE_NOOP("PaletteFormat", "%1 colours lose their vendor's name.")},
    {QT_TRANSLATE_NOOP("PaletteFormat", "1 name has what the format cannot hold, and is changed."),
     QT_TRANSLATE_NOOP("PaletteFormat", "%1 names have what the format cannot hold, and are changed.")},
    {QT_TRANSLATE_NOOP("PaletteFormat", "1 list is joined to another one."),
     QT_TRANSLATE_NOOP("PaletteFormat", "%1 lists are joined to others.")},
    {QT_TRANSLATE_NOOP("PaletteFormat", "1 list loses its name."),
     QT_TRANSLATE_NOOP("PaletteFormat", "%1 lists lose their name.")},
    {QT_TRANSLATE_NOOP("PaletteFormat", "1 list without colours is left out."),
     QT_TRANSLATE_NOOP("PaletteFormat", "%1 lists without colours are left out.")},
    {QT_TRANSLATE_NOOP("PaletteFormat", "1 read-only list becomes one that users may edit."),
     QT_TRANSLATE_NOOP("PaletteFormat", "%1 read-only lists become lists that users may edit.")},
    {QT_TRANSLATE_NOOP("PaletteFormat", "1 entry is left out: its value is no colour."),
     QT_TRANSLATE_NOOP("PaletteFormat", "%1 entries are left out: their values are no colours.")},
    {QT_TRANSLATE_NOOP("PaletteFormat", "1 colour is made of inks (CMYK) and read without an ink profile."),
     QT_TRANSLATE_NOOP("PaletteFormat", "%1 colours are made of inks (CMYK) and read without an ink profile.")},
    {QT_TRANSLATE_NOOP("PaletteFormat", "1 Lab colour becomes red, green and blue of sRGB."),
     QT_TRANSLATE_NOOP("PaletteFormat", "%1 Lab colours become red, green and blue of sRGB.")},
    {QT_TRANSLATE_NOOP("PaletteFormat", "1 colour is beyond sRGB or its range, and is cut."),
     QT_TRANSLATE_NOOP("PaletteFormat", "%1 colours are beyond sRGB or their range, and are cut.")},
    {QT_TRANSLATE_NOOP("PaletteFormat", "1 spot colour becomes an ordinary one."),
     QT_TRANSLATE_NOOP("PaletteFormat", "%1 spot colours become ordinary ones.")},
    {QT_TRANSLATE_NOOP("PaletteFormat", "1 colour is left out: its colour space is not known."),
     QT_TRANSLATE_NOOP("PaletteFormat", "%1 colours are left out: their colour space is not known.")},
    {QT_TRANSLATE_NOOP("PaletteFormat",
                       "1 colour was edited beside what is kept of it; docs/palettes.md says what counts."),
     QT_TRANSLATE_NOOP("PaletteFormat",
                       "%1 colours were edited beside what is kept of them; docs/palettes.md says what counts.")},
    {QT_TRANSLATE_NOOP("PaletteFormat", "1 comment of this program fits no colour or list, and is ignored."),
     QT_TRANSLATE_NOOP("PaletteFormat", "%1 comments of this program fit no colour or list, and are ignored.")},
    {QT_TRANSLATE_NOOP("PaletteFormat", "1 part of the file is no colour, and is left out."),
     QT_TRANSLATE_NOOP("PaletteFormat", "%1 parts of the file are no colours, and are left out.")},
    {QT_TRANSLATE_NOOP("PaletteFormat", "The text is not UTF-8, and is read as Windows-1252."),
     QT_TRANSLATE_NOOP("PaletteFormat", "The text is not UTF-8, and is read as Windows-1252.")},
};
static_assert(sizeof kSentences / sizeof *kSentences == static_cast<std::size_t>(Code::Encoding) + 1,
              "sentences for each code");

void countLosses(const Palette::Entry& entry, PaletteRemarks& remarks)
{
    const LXColor color = entry.color();
    // A colour that is read may go by another profile than its text.
    const bool hasProfile = entry.value.section(QLatin1Char(';'), 2, 2).toInt() != ColorUtils::ProfileGenericRGB;
    const struct
    {
        Code code;
        bool isLost;
    } losses[] = {
        {Code::Alpha, color.alpha16() != 0xffff},
        {Code::Face, color.spec() != LXColor::Rgb},
        {Code::Profile, hasProfile},
        {Code::Uid, !entry.uid.isEmpty()},
        {Code::Origin, !entry.originatingPreset.isEmpty()},
        {Code::VendorId, !entry.vendorId.isEmpty()},
    };
    for (const auto& loss : losses)
        remarks.add(loss.code, loss.isLost ? 1 : 0);
}

} // namespace

QVector<PaletteFormat::Remark> PaletteRemarks::list() const
{
    QVector<PaletteFormat::Remark> remarks;
    for (std::size_t i = 0; i < sizeof kSentences / sizeof *kSentences; ++i) {
        const int count = m_counts[i];
        const Sentences& sentences = kSentences[i];
        const QString many = PaletteFormat::tr(sentences.many);
        if (count > 0)
            remarks.append({static_cast<Code>(i), count,
                            count == 1                           ? PaletteFormat::tr(sentences.one)
                            : many.contains(QLatin1String("%1")) ? many.arg(count)
                                                                 : many});
    }
    return remarks;
}

void countLosses(const Palette& palette, PaletteRoom room, PaletteRemarks& remarks)
{
    for (const Palette::List& list : palette.lists) {
        if (!room.holdsLists)
            remarks.add(list.entries.isEmpty() ? Code::EmptyList : Code::ListName);
        if (room.holdsValues)
            continue;
        remarks.add(Code::UserList, list.isUserList || (list.entries.isEmpty() && !room.holdsLists) ? 0 : 1);
        for (const Palette::Entry& entry : list.entries)
            countLosses(entry, remarks);
    }
    const auto isFilled = [](const Palette::List& list) { return !list.entries.isEmpty(); };
    const auto filled = static_cast<int>(std::count_if(palette.lists.begin(), palette.lists.end(), isFilled));
    if (!room.holdsLists)
        remarks.add(Code::Lists, std::max(0, filled - 1));
}

} // namespace lxcolor
