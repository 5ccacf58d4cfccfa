#include "FuzzLibrary.h"

#include "FuzzSupport.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace {

using Item = LXColorLibraryItem;

constexpr int kOwnLists = 2; // explicit colours and the project's

QString text(const QModelIndex& index, int role) { return index.data(role).toString(); }

} // namespace

bool Entry::operator==(const Entry& other) const
{
    return uid == other.uid && name == other.name && withoutSignOfZero(value) == withoutSignOfZero(other.value) &&
           originatingPreset == other.originatingPreset && vendorID == other.vendorID;
}

LXColor colorOf(const QModelIndex& index)
{
    const void* color = index.data(Item::ColorRole).value<void*>();
    return color ? *static_cast<const LXColor*>(color) : LXColor();
}

Entry entryOf(const QModelIndex& index)
{
    return {text(index, Item::UidRole), text(index, Qt::DisplayRole), colorOf(index).aName(),
            text(index, Item::OriginatingPresetRole), text(index, Item::VendorIdRole)};
}

QVector<List> listsOf(const LXColorLibrary& library)
{
    QVector<List> lists;
    const QModelIndex root = library.rootIndex();
    for (int row = kOwnLists; row < library.rowCount(root); ++row) {
        const QModelIndex index = library.index(row, 0, root);
        List list{text(index, Qt::DisplayRole), library.isUserListIndex(index), {}};
        for (int i = 0; i < library.rowCount(index); ++i) {
            const Entry entry = entryOf(library.index(i, 0, index));
            if (!entry.uid.isEmpty())
                list.entries.append(entry);
        }
        lists.append(list);
    }
    return lists;
}

QVector<List> userListsOf(const LXColorLibrary& library)
{
    QVector<List> lists = listsOf(library);
    lists.erase(std::remove_if(lists.begin(), lists.end(), [](const List& list) { return !list.isUserList; }),
                lists.end());
    return lists;
}

QString textOf(const QVector<List>& lists)
{
    QString all;
    for (const List& list : lists) {
        all += QStringLiteral("\n[%1]%2").arg(list.name, list.isUserList ? QString() : QStringLiteral(" preset"));
        for (const Entry& entry : list.entries)
            all += QStringLiteral("\n  %1 | %2 | %3 | %4 | %5")
                       .arg(entry.uid, entry.name, entry.value, entry.originatingPreset, entry.vendorID);
    }
    return all + '\n';
}

bool areSame(const QVector<List>& a, const QVector<List>& b)
{
    return std::equal(a.cbegin(), a.cend(), b.cbegin(), b.cend(), [](const List& one, const List& other) {
        return one.name == other.name && one.isUserList == other.isUserList && one.entries == other.entries;
    });
}

QString anyText(FuzzInput& input)
{
    static const char* const texts[] = {"",
                                        "A",
                                        "B",
                                        "Red",
                                        "Red 2",
                                        "Color",
                                        "%1 %2",
                                        "{1}",
                                        "{2}",
                                        "{3}",
                                        "A,B",
                                        "{1}aRgb;1;0;#ffffffff00000000",
                                        "aRgb;1;0;#ffffffff00000000",
                                        "Project Swatches",
                                        "Explicit Colors"};
    const int which = input.integer(0, 17);
    return which < 15 ? QString::fromLatin1(texts[which]) : QString::fromUtf8(input.bytes(12));
}

QModelIndex anyIndex(FuzzInput& input, const LXColorLibrary& library)
{
    QModelIndex index = input.integer(0, 15) == 0 ? QModelIndex() : library.rootIndex();
    for (int depth = input.integer(0, 3); depth > 0 && library.rowCount(index) > 0; --depth)
        index = library.index(input.byte() % library.rowCount(index), input.integer(0, 7) == 0 ? 1 : 0, index);
    return index;
}

bool isEntry(const QModelIndex& index, const LXColorLibrary& library)
{
    return index.isValid() && index != library.rootIndex() && library.parent(index) != library.rootIndex();
}

LXColorLibrary* freshLibrary(bool withUserColors)
{
    LXColorLibrary::cleanup();
    LXColorLibrary* library = LXColorLibrary::Instance();
    library->init(true, true, true);
    if (withUserColors)
        library->loadUserColors(QString());
    return library;
}

QString userColorsPath() { return LXColorLibrary::applicationSupportDir() + QStringLiteral("\\userColors.xml"); }

void forgetUserColors()
{
    const QFileInfo file(userColorsPath()); // the backslashes are characters of its name
    QDir folder = file.dir();
    for (const QString& name : folder.entryList(QDir::Files))
        folder.remove(name);
}
