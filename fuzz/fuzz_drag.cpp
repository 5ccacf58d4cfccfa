// What is dragged out of the library, and what odd drags bring: payloads list what was selected, an exported selection
// loads again, and no bytes in any format do harm.
#include "FuzzLibrary.h"
#include "FuzzSupport.h"

#include <QDataStream>
#include <QMimeData>
#include <QVariant>

#include <algorithm>
#include <memory>

using Item = LXColorLibraryItem;

namespace {

const char* const kFormats[] = {"data/x-lxcolor",
                                "data/x-lxcolor-name",
                                "data/x-lxcolor-originatingPreset",
                                "data/x-lxcolor-vendorid",
                                "x-orbis/color",
                                "application/x-qabstractitemmodeldatalist",
                                "text/plain"};

void fill(FuzzInput& input, LXColorLibrary& library)
{
    library.createColorList(QStringLiteral("A"), true);
    for (int i = input.integer(0, 6); i > 0; --i) {
        const LXColor color = anyColor(input);
        const QString uid = anyText(input), list = anyText(input), preset = anyText(input);
        library.createColor(color, uid, list, preset, anyText(input));
        library.rename(uid, anyText(input), true);
        library.createExplicitColor(color, anyText(input));
    }
}

/// The texts of \a rows joined by ",", as a drag carries them.
template <typename TextOf>
QByteArray joined(const QModelIndexList& rows, const TextOf& textOf)
{
    QStringList texts;
    for (const QModelIndex& index : rows)
        texts << textOf(entryOf(index));
    return texts.join(',').toLatin1();
}

void dragOut(FuzzInput& input, LXColorLibrary& library)
{
    QModelIndexList selection;
    for (int i = input.integer(0, 8); i > 0; --i)
        selection << anyIndex(input, library);
    const std::unique_ptr<QMimeData> data(library.mimeData(selection));
    require(data != nullptr, "there is always a drag");
    const bool areRows = std::all_of(selection.cbegin(), selection.cend(),
                                     [](const QModelIndex& index) { return index.isValid() && index.column() == 0; });
    if (areRows) {
        require(data->data(kFormats[0]) == joined(selection, [](const Entry& e) { return e.uid + e.value; }) &&
                    data->data(kFormats[1]) == joined(selection, [](const Entry& e) { return e.name; }) &&
                    data->data(kFormats[2]) == joined(selection, [](const Entry& e) { return e.originatingPreset; }) &&
                    data->data(kFormats[3]) == joined(selection, [](const Entry& e) { return e.vendorID; }),
                "a drag carries what was selected");
    }

    const QString name = anyText(input);
    QDomDocument document = library.createColorDoc(selection, name);
    const int exported = document.documentElement().childNodes().size();
    const QString path = scratchFolder() + QStringLiteral("/selection.lxcolors");
    writeFile(path, document.toByteArray());
    const int listsBefore = listsOf(library).size();
    library.loadUserColors(path);
    const QVector<List> lists = listsOf(library);
    int loadable = 0;
    for (int i = 0; i < exported; ++i) {
        const QDomElement element = document.documentElement().childNodes().at(i).toElement();
        loadable += LXColor(element.attribute(QStringLiteral("value"))).isValid() ? 1 : 0;
    }
    require(lists.size() == listsBefore + 1 && lists.constLast().entries.size() == loadable,
            "an exported selection is loaded", document.toString() + textOf(lists));
}

/// A mime type for a single entry, and a stream that only one of them is written to.
void streamItem(FuzzInput& input, const QModelIndex& index)
{
    auto* item = static_cast<Item*>(index.internalPointer());
    if (!item)
        return;
    item->mimeTypes();
    const QString format = input.flag() ? QString::fromLatin1(input.oneOf(kFormats)) : anyText(input);
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    require(item->mimeData(format, stream) == (format == kFormats[0]), "one format is streamed");
    QDataStream written(bytes);
    QByteArray uid, value;
    if (!bytes.isEmpty())
        written >> uid >> value;
    require(written.atEnd() && written.status() == QDataStream::Ok, "two texts are streamed");
}

void dropIn(FuzzInput& input, LXColorLibrary& library)
{
    QMimeData data;
    QByteArray presets;
    for (int i = input.integer(0, 6); i > 0; --i) {
        const QString format = QString::fromLatin1(input.oneOf(kFormats));
        const QByteArray bytes = input.bytes(40);
        data.setData(format, bytes);
    }
    const QString preset = LXColorLibrary::getOriginatingPresetFromMimeData(&data);
    require(data.hasFormat(kFormats[4]) || preset.isEmpty(), "only marked drags tell where they come from");
    require(!preset.contains(',') && !preset.contains(QChar::Null), "it is the first one");
    const QModelIndex target = anyIndex(input, library);
    const Qt::DropAction action = input.flag() ? Qt::CopyAction : Qt::MoveAction;
    const QVector<List> before = listsOf(library);
    const int row = input.integer(-1, 5), column = input.integer(-1, 2);
    library.canDropMimeData(&data, action, row, column, target);
    require(!library.dropMimeData(&data, action, row, column, target) && areSame(listsOf(library), before),
            "the library takes no drop by itself");
}

/// Editors hand in values of any type.
void setOddData(FuzzInput& input, LXColorLibrary& library)
{
    LXColor color = anyColor(input);
    const QVariant values[] = {QVariant(),
                               QVariant(anyText(input)),
                               QVariant(input.bytes(8)),
                               QVariant(input.anyInt()),
                               QVariant::fromValue<void*>(nullptr),
                               QVariant::fromValue<void*>(&color),
                               QVariant(QStringList{anyText(input)}),
                               QVariant(input.number())};
    const QModelIndex index = anyIndex(input, library);
    const int role = input.flag() ? input.integer(Qt::UserRole, Qt::UserRole + 12) : input.integer(0, 14);
    if (isEntry(index, library) || role < Item::UidRole || role > Item::OldPresetRole)
        library.setData(index, input.oneOf(values), role);
    for (int asked = 0; asked <= Qt::UserRole + 12; asked = asked == 14 ? Qt::UserRole : asked + 1)
        library.data(index, asked);
    library.flags(index);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    FuzzInput input(data, size);
    LXColorLibrary* library = freshLibrary(false);
    fill(input, *library);
    for (int i = 0; i < 12 && !input.isAtEnd(); ++i) {
        switch (input.integer(0, 3)) {
        case 0:
            dragOut(input, *library);
            break;
        case 1:
            streamItem(input, anyIndex(input, *library));
            break;
        case 2:
            dropIn(input, *library);
            break;
        default:
            setOddData(input, *library);
        }
    }
    LXColorLibrary::cleanup();
    return 0;
}
