// Any sequence of operations on the swatch library: no model test objects, every announced change takes place, look-ups
// find what a walk through the lists finds, and the user's lists are loaded as they were saved.
#include "FuzzLibrary.h"
#include "FuzzSupport.h"
#include "ModelWatch.h"
#include "OrbisProjectHelper.h"
#include "Support.h"

#include <QAbstractItemModelTester>
#include <QPersistentModelIndex>

#include <memory>

using Item = LXColorLibraryItem;

namespace {

/// The model testers and watches of a library, and what they said.
class Watched
{
public:
    explicit Watched(LXColorLibrary* library)
        : m_watch(library)
        , m_rooted(library)
        , m_tester(library, QAbstractItemModelTester::FailureReportingMode::Warning)
        , m_rootedTester(&m_rooted, QAbstractItemModelTester::FailureReportingMode::Warning)
    {
    }
    void requireSilence() const
    {
        require(m_watch.faults().isEmpty(), "announced changes take place", m_watch.faults().join('\n'));
        QStringList objections;
        for (const QString& text : withoutExpectedObjections(Messages::takeTexts())) {
            if (text.contains(QLatin1String("modeltester")))
                objections << text;
        }
        require(objections.isEmpty(), "the model testers have no objection", objections.join('\n'));
    }

private:
    Messages m_messages;
    ChangeWatch m_watch;
    RootedLibrary m_rooted;
    QAbstractItemModelTester m_tester, m_rootedTester;
};

void loadProject(FuzzInput& input, LXColorLibrary& library)
{
    QDomDocument document;
    QDomElement root = document.createElement(QStringLiteral("Project"));
    document.appendChild(root);
    for (int list = input.integer(0, 2); list > 0; --list) {
        QDomElement element = document.createElement(QStringLiteral("ColorLibrary"));
        if (input.flag())
            element.setAttribute(QStringLiteral("name"), anyText(input));
        for (int i = input.integer(0, 3); i > 0; --i) {
            QDomElement color = document.createElement(QStringLiteral("Color"));
            color.setAttribute(QStringLiteral("name"), anyText(input));
            color.setAttribute(QStringLiteral("uid"), anyText(input));
            color.setAttribute(QStringLiteral("value"), anyColor(input).aName());
            element.appendChild(color);
        }
        root.appendChild(element);
    }
    QString error;
    library.loadDocument(document, error, input.flag() ? 0.95 : 1.0, ORBIS_APPLICATION_ID);
}

void changeColors(FuzzInput& input, LXColorLibrary& library)
{
    const QString uid = anyText(input);
    switch (input.integer(0, 9)) {
    case 0:
        library.createColor(anyColor(input), uid, anyText(input), anyText(input), anyText(input));
        break;
    case 1:
    case 2:
        library.createColorWithName(anyColor(input), anyText(input), uid, anyText(input), anyText(input));
        break;
    case 3:
        library.createExplicitColor(anyColor(input), uid);
        break;
    case 4:
        library.get(uid);
        break;
    case 5:
        library.set(uid, anyColor(input));
        break;
    case 6:
        library.rename(uid, anyText(input), input.flag());
        break;
    case 7:
        library.remove(uid);
        break;
    case 8:
        library.createNewSwatchUidFromUid(uid, anyText(input));
        break;
    default:
        library.getExposableUidFromUid(uid);
    }
}

void changeLists(FuzzInput& input, LXColorLibrary& library)
{
    switch (input.integer(0, 6)) {
    case 0:
        library.createColorList(anyText(input), input.flag());
        break;
    case 1:
        library.createNewLibraryIfNecessary(anyText(input), input.flag());
        break;
    case 2:
        library.clear(anyText(input));
        break;
    case 3:
        library.clearOldPresets();
        break;
    case 4:
        loadProject(input, library);
        break;
    case 5:
        library.setEditingMultipleColors(input.flag());
        break;
    default:
        library.saveUserColors();
    }
}

void changeRows(FuzzInput& input, LXColorLibrary& library)
{
    const QModelIndex index = anyIndex(input, library);
    LXColor color = anyColor(input);
    const int row = input.integer(-1, 6), count = input.integer(-1, 4);
    switch (input.integer(0, 5)) {
    case 0:
        if (!isEntry(index, library))
            library.insertRows(row, count, index);
        break;
    case 1:
        library.removeRows(row, count, index);
        break;
    case 2:
        library.setData(index, anyText(input));
        break;
    case 3:
        library.setData(index, QVariant::fromValue<void*>(&color), Item::ColorRole);
        break;
    default: {
        const int firstRole = isEntry(index, library) ? Item::UidRole : Item::CanBeModifiedRole;
        library.setData(index, anyText(input), input.integer(firstRole, Item::VendorIdRole));
    }
    }
}

/// The index of the first entry for which \a fits, in the order of the lists.
template <typename Fits>
QModelIndex walkFor(const LXColorLibrary& library, const Fits& fits)
{
    const QModelIndex root = library.rootIndex();
    for (int list = 0; list < library.rowCount(root); ++list) {
        const QModelIndex parent = library.index(list, 0, root);
        for (int row = 0; row < library.rowCount(parent); ++row) {
            const QModelIndex index = library.index(row, 0, parent);
            const auto* node = static_cast<Item*>(index.internalPointer());
            require(node->row() == row && library.parent(index) == parent, "an entry knows its place");
            if (fits(index))
                return index;
        }
    }
    return {};
}

void compareLookUps(const QString& text, LXColorLibrary& library)
{
    if (text.isEmpty())
        return;
    const auto found = [&](int role) {
        return walkFor(library, [&](const QModelIndex& index) { return index.data(role).toString() == text; });
    };
    require(library.getIndexOfUid(text) == found(Item::UidRole), "a uid finds its first entry", text);
    require(library.containsUid(text) == found(Item::UidRole).isValid(), "a uid is known", text);
    require(library.getIndexOfExplicitColor(text) == found(Item::ExplicitColorRole), "a key finds its entry", text);
    require(library.getIndexOfOldPreset(text) == found(Item::OldPresetRole), "an old preset finds its marker", text);
    require(library.getIndexOfOriginatingPreset(text) == found(Item::OriginatingPresetRole),
            "an originating preset finds its first entry", text);
    require(library.nameExists(text) == found(Qt::DisplayRole).isValid(), "a name is known", text);
    const QModelIndex root = library.rootIndex();
    require(library.getIndexOfName(text, root) == found(Qt::EditRole), "a name finds its first entry", text);
    const auto listOf = [&](const QString& name) {
        int row = 0;
        while (row < library.rowCount(root) && library.index(row, 0, root).data().toString() != name)
            ++row;
        return library.index(row, 0, root);
    };
    require(library.getIndexOfListId(text) == listOf(text), "a name finds its list", text);
    QString free = text;
    for (int number = 2; listOf(free).isValid(); ++number)
        free = text + ' ' + QString::number(number);
    require(library.getNewColorListName(text) == free, "a new list gets the first free name", text);
    library.getColors(text);
    library.getColorUids(text);
    library.pathOfUid(text);
    library.getName(text, LXColorLibrary::DescriptorValueName);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    FuzzInput input(data, size);
    forgetUserColors();
    const bool isSaved = input.flag();
    LXColorLibrary* library = freshLibrary(isSaved);
    {
        const Watched watched(library);
        for (int i = 0; i < 30 && !input.isAtEnd(); ++i) {
            const QPersistentModelIndex kept = anyIndex(input, *library);
            switch (input.integer(0, 2)) {
            case 0:
                changeColors(input, *library);
                break;
            case 1:
                changeLists(input, *library);
                break;
            default:
                changeRows(input, *library);
            }
            watched.requireSilence();
            if (kept.isValid())
                library->data(kept);
            for (const char* text : {"{1}", "Red", "Red 2", "A", "A/Red"})
                compareLookUps(QString::fromLatin1(text), *library);
        }
        compareLookUps(anyText(input), *library);
        watched.requireSilence();
    }
    if (isSaved) {
        library->setEditingMultipleColors(false);
        library->saveUserColors();
        const QVector<List> first = userListsOf(*freshLibrary(true));
        LXColorLibrary::Instance()->createColorList(QStringLiteral("Later"), true);
        const QVector<List> saved = userListsOf(*LXColorLibrary::Instance());
        const QVector<List> second = userListsOf(*freshLibrary(true));
        require(areSame(second, saved) && second.size() == first.size() + 1, "saved lists are loaded",
                textOf(saved) + textOf(second));
    }
    LXColorLibrary::cleanup();
    return 0;
}
