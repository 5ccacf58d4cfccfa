#include "PaletteFormat.h"

#include "PaletteCodecs_p.h"

#include <algorithm>

namespace {

using Id = PaletteFormat::Id;
using Code = PaletteFormat::Code;

struct Codec
{
    Id id;
    const char* name;
    const char* suffixes; ///< Separated by spaces.
    void (*read)(const QByteArray& content, lxcolor::PaletteBuilder& builder);
    QByteArray (*write)(const Palette& palette, lxcolor::PaletteRemarks& remarks);
};

// clang-format off
const Codec kCodecs[] = {
    {Id::Gpl,      "gpl",      "gpl",          lxcolor::readGpl,      lxcolor::writeGpl},
    {Id::Ase,      "ase",      "ase",          lxcolor::readAse,      lxcolor::writeAse},
    {Id::Aco,      "aco",      "aco",          lxcolor::readAco,      lxcolor::writeAco},
    {Id::Csv,      "csv",      "csv tsv",      lxcolor::readCsv,      lxcolor::writeCsv},
    {Id::Css,      "css",      "css",          lxcolor::readCss,      lxcolor::writeCss},
    {Id::Document, "document", "xml lxcolors", lxcolor::readDocument, lxcolor::writeDocument},
};
// clang-format on

const Codec& codecOf(Id format) { return kCodecs[static_cast<int>(format)]; }

/// The words of each code, in the order of the codes.
const char* const kCodeNames[] = {
    "alpha", "face",      "profile",       "uid",       "origin",           "vendor-id", "name",
    "lists", "list-name", "empty-list",    "user-list", "unreadable-value", "cmyk",      "lab",
    "cut",   "spot",      "unknown-space", "edited",    "comment",          "other",     "encoding",
};
static_assert(sizeof kCodeNames / sizeof *kCodeNames == static_cast<std::size_t>(Code::Encoding) + 1,
              "a name for each code");

/// Text that every encoding of Unicode can hold.
void makeEncodable(QString& text, lxcolor::PaletteRemarks& remarks)
{
    const QByteArray bytes = text.toUtf8();
    const QString encodable = QString::fromUtf8(bytes.constData(), bytes.size());
    remarks.add(Code::Name, encodable == text ? 0 : 1);
    text = encodable;
}

/// The palette without the entries that are no colours, and without halves of characters.
Palette writable(const Palette& palette, lxcolor::PaletteRemarks& remarks)
{
    Palette result = palette;
    for (Palette::List& list : result.lists) {
        makeEncodable(list.name, remarks);
        for (Palette::Entry& entry : list.entries)
            for (QString* text : {&entry.name, &entry.value, &entry.uid, &entry.originatingPreset, &entry.vendorId})
                makeEncodable(*text, remarks);
        const auto isUnreadable = [](const Palette::Entry& entry) { return !entry.color().isValid(); };
        const auto end = std::remove_if(list.entries.begin(), list.entries.end(), isUnreadable);
        remarks.add(Code::UnreadableValue, static_cast<int>(list.entries.end() - end));
        list.entries.erase(end, list.entries.end());
    }
    return result;
}

} // namespace

const QVector<PaletteFormat::Id>& PaletteFormat::all()
{
    static const QVector<Id> formats = {Id::Gpl, Id::Ase, Id::Aco, Id::Csv, Id::Css, Id::Document};
    return formats;
}

QString PaletteFormat::name(Id format) { return QLatin1String(codecOf(format).name); }

QString PaletteFormat::name(Code code) { return QLatin1String(kCodeNames[static_cast<int>(code)]); }

bool PaletteFormat::fromName(const QString& name, Id* format)
{
    const auto* const found = std::find_if(std::begin(kCodecs), std::end(kCodecs),
                                           [&](const Codec& codec) { return name == QLatin1String(codec.name); });
    if (found == std::end(kCodecs))
        return false;
    if (format)
        *format = found->id;
    return true;
}

bool PaletteFormat::fromFileName(const QString& fileName, Id* format)
{
    const int dot = fileName.lastIndexOf(QLatin1Char('.'));
    const QString suffix = dot < 0 ? QString() : fileName.mid(dot + 1).toLower();
    const auto* const found = std::find_if(std::begin(kCodecs), std::end(kCodecs), [&](const Codec& codec) {
        return QString::fromLatin1(codec.suffixes).split(QLatin1Char(' ')).contains(suffix);
    });
    if (found == std::end(kCodecs))
        return false;
    if (format)
        *format = found->id;
    return true;
}

PaletteFormat::Reading PaletteFormat::read(const QByteArray& content, Id format, const QString& listName)
{
    Reading reading;
    lxcolor::PaletteRemarks remarks;
    lxcolor::PaletteBuilder builder(listName, remarks);
    try {
        if (content.size() > largestFile)
            throw lxcolor::InputFault{tr("The file is larger than %1 MiB").arg(largestFile >> 20)};
        codecOf(format).read(content, builder);
        reading.palette = builder.palette();
        reading.isRead = true;
    } catch (const lxcolor::InputFault& fault) {
        reading.error = {fault.text, fault.place.line, fault.place.column, fault.offset};
    }
    reading.remarks = remarks.list();
    return reading;
}

PaletteFormat::Writing PaletteFormat::write(const Palette& palette, Id format)
{
    Writing writing;
    lxcolor::PaletteRemarks remarks;
    try {
        writing.bytes = codecOf(format).write(writable(palette, remarks), remarks);
        writing.isWritten = true;
    } catch (const lxcolor::InputFault& fault) {
        writing.error = fault.text;
    }
    writing.remarks = remarks.list();
    return writing;
}
