// The swatch library as an item model, and its operations on colours.

#include "LXColorLibraryItem.h"
#include "LibrarySupport.h"

#include <QDomDocument>
#include <QMimeData>
#include <QSignalSpy>
#include <QStandardItemModel>

#include <functional>
#include <limits>

using Item = LXColorLibraryItem;
using Operation = std::function<void()>;
Q_DECLARE_METATYPE(Operation)

namespace {

const QString Known = QStringLiteral("{12345678-1234-1234-1234-123456789abc}");
const QString Unknown = QStringLiteral("{ffffffff-1234-1234-1234-123456789abc}");

} // namespace

class TestLibraryModel : public LibraryTest
{
    Q_OBJECT

private Q_SLOTS:
    void afterInit()
    {
        QCOMPARE(lib()->rowCount(lib()->rootIndex()), 0);
        lib()->init(true, true, true);
        QCOMPARE(listNames(), QStringList({"Explicit Colors", "Project Swatches"}));
        QCOMPARE(lib()->getModifiableLists(), QStringList("Project Swatches"));
        QCOMPARE(list("Explicit Colors").data(Item::ListFlagRole).toInt(), 0);
        QCOMPARE(list("Project Swatches").data(Item::ListFlagRole).toInt(), 1);
        lib()->init(true, true, true);
        QCOMPARE(listNames().size(), 2);

        const QModelIndex invalid;
        const QModelIndex root = lib()->rootIndex();
        QVERIFY(root.isValid() && !lib()->parent(root).isValid());
        QCOMPARE(lib()->parent(list("Explicit Colors")), root);
        QCOMPARE(lib()->rowCount(invalid), 0);
        QCOMPARE(lib()->columnCount(invalid), 0);
        QCOMPARE(lib()->columnCount(root), 2);
        QVERIFY(!lib()->index(0, 0, invalid).isValid());
        QVERIFY(!lib()->index(2, 0, root).isValid());
        QCOMPARE(lib()->index(1, 17, root).column(), 17);
        QVERIFY(!lib()->data(invalid).isValid());
        QVERIFY(!lib()->setData(invalid, "x"));
        QVERIFY(lib()->mimeTypes().isEmpty());
        QCOMPARE(lib()->headerData(0, Qt::Horizontal), QVariant("Swatches"));
        QCOMPARE(lib()->headerData(7, Qt::Horizontal), QVariant("Color ID"));
        QVERIFY(!lib()->headerData(0, Qt::Vertical).isValid());
        QVERIFY(!lib()->headerData(0, Qt::Horizontal, Qt::EditRole).isValid());
    }

    void flags()
    {
        const Qt::ItemFlags shown = Qt::ItemIsEnabled | Qt::ItemIsDropEnabled;
        const Qt::ItemFlags leaf = shown | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled;
        userList("User");
        lib()->createColor(rgb(1, 2, 3, 254), "glass", "User", "", "");
        lib()->createColor(LXColor("aNchannel;3;6;65535;1;2;3;4;0"), "levels", "Read-only", "", "");
        const QModelIndex glass = lib()->getIndexOfUid("glass");
        const QModelIndex levels = lib()->getIndexOfUid("levels");
        QCOMPARE(lib()->flags(QModelIndex()), Qt::ItemFlags(Qt::ItemIsEnabled));
        QCOMPARE(lib()->flags(list("Explicit Colors")), leaf);
        QCOMPARE(lib()->flags(list("Project Swatches")), leaf);
        QCOMPARE(lib()->flags(list("User")), shown | Qt::ItemIsSelectable | Qt::ItemIsEditable);
        QCOMPARE(lib()->flags(list("Read-only")), shown | Qt::ItemIsSelectable);
        QCOMPARE(lib()->flags(glass), leaf | Qt::ItemIsEditable);
        QCOMPARE(lib()->flags(glass.siblingAtColumn(1)), leaf);
        QCOMPARE(lib()->flags(levels), leaf);
        QVERIFY(lib()->isListIndex(list("Read-only")) && !lib()->isUserListIndex(list("Read-only")));
        QVERIFY(lib()->isUserListIndex(list("User")) && !lib()->isUserListIndex(list("Project Swatches")));
        QVERIFY(!lib()->isListIndex(glass) && !lib()->isListIndex(lib()->rootIndex()));

        lib()->setSupportsOpacity(false);
        QCOMPARE(lib()->flags(glass), shown | Qt::ItemIsDragEnabled | Qt::ItemIsEditable);
        QCOMPARE(lib()->flags(levels), leaf);
        lib()->setSupportsNChannel(false);
        QCOMPARE(lib()->flags(levels), shown | Qt::ItemIsDragEnabled);
        QVERIFY(!lib()->supportsNChannel() && !lib()->supportsOpacity());
    }

    // Which signals an operation emits, in which order, and with what.
    void signalOrder_data()
    {
        const Rows<Operation, QStringList> row;
        const QString added = "rowsInserted U 1..1";
        const LXColor color = rgb(2, 2, 2);
        const auto batch = [](const Operation& operation) {
            return [operation] {
                LXColorLibrary::Instance()->setEditingMultipleColors(true);
                operation();
            };
        };
        const auto create = [=] { lib()->createColor(color, "", "U", "", ""); };
        const auto createNamed = [=] { lib()->createColorWithName(color, "New", "", "U", ""); };
        row("create", create, {added, "data U..U", "added U"});
        row("create, batch", batch(create), {added, "added U"});
        row("create with name", createNamed,
            {added, "data U..U", "added U", "data New..New", "data New..New", "data New..New", "data New..New"});
        row("create with name, batch", batch(createNamed), {added, "added U"});
        row("create in a new list", [=] { lib()->createColor(color, "", "N", "", ""); },
            {"rowsInserted root 3..3", "data root..root", "data N..N", "data root..N", "rowsInserted N 0..0",
             "data N..N", "added N"});
        row("rename", [=] { QCOMPARE(lib()->rename(Known, "Other", false), QString("Other")); },
            {"data Other..Other", "data Other..Other"});
        row("rename to a taken name", [=] { QCOMPARE(lib()->rename(Known, "One", false), QString("One")); },
            {"data One..One"});
        row("set", [=] { QVERIFY(lib()->set(Known, color)); }, {"data One..One"});
        row("set an unknown uid", [=] { QVERIFY(!lib()->set(Unknown, color)); }, {});
        row("remove", [=] { lib()->remove(Known); }, {"rowsRemoved U 0..0", "data U..U", "data root..root"});
        row("remove an unknown uid", [=] { lib()->remove(Unknown); }, {});
        row("rename a user list", [=] { QVERIFY(lib()->setData(list("U"), "V")); }, {"renamed U to V", "data V..V"});
        row("rename the project list", [=] { QVERIFY(lib()->setData(list("Project Swatches"), "P")); }, {"data P..P"});
        row("remove a user list", batch([=] { QVERIFY(!lib()->removeRows(2, 1, lib()->rootIndex())); }),
            {"rowsRemoved root 2..2", "data root..root", "lists Project Swatches"});
        row("remove a fixed list", [=] { QVERIFY(!lib()->removeRows(0, 1, lib()->rootIndex())); },
            {"rowsRemoved root 0..0", "data root..root"});
        row("explicit colour", [=] { lib()->get(Red); }, {});
        row("changed",
            [=] {
                lib()->eventLibraryChanged("U");
                lib()->eventLibraryChanged("nowhere");
                lib()->onColorLibraryListChanged("anything");
            },
            {"changed U", "changed anything"});
        const auto createList = [=] { lib()->createColorList("U", true); };
        row("list before the user file is loaded", createList,
            {"rowsInserted root 3..3", "data root..root", "data U 2..U 2", "data root..U 2", "data U 2..U 2"});
        row("list after the user file is loaded",
            [=] {
                lib()->loadUserColors(QString());
                m_log.clear();
                createList();
            },
            {"rowsInserted root 3..3", "data root..root", "data U 2..U 2", "data root..U 2", "data U 2..U 2",
             "lists Project Swatches U U 2"});
        row("clean up", [=] { stop(); }, {"rowsRemoved root 0..2", "data root..root", "data root..root", "reset"});
    }
    void signalOrder()
    {
        const auto [operation, expected] = fetched<Operation, QStringList>();
        userList("U");
        lib()->createColorWithName(rgb(1, 1, 1), "One", Known, "U", "V1");
        watch();
        operation();
        QCOMPARE(m_log, expected);
    }

    void rowsOutsideAreRefused()
    {
        userList("U");
        lib()->createColor(rgb(1, 1, 1), "a", "U", "", "");
        QSignalSpy spy(lib(), &QAbstractItemModel::dataChanged);
        const int max = std::numeric_limits<int>::max();
        const QModelIndex parents[] = {list("U"), lib()->getIndexOfUid("a"), QModelIndex()};
        for (const QModelIndex& parent : parents) {
            const int rows = lib()->rowCount(parent);
            for (const auto& [row, count] : {std::pair(-1, 1), {rows + 1, 1}, {0, 0}, {0, -1}, {0, max}, {max, max}}) {
                QVERIFY(!lib()->removeRows(row, count, parent));
                if (!parent.isValid() || (row != 0 || count != max))
                    QVERIFY(!lib()->insertRows(row, count, parent));
            }
        }
        QCOMPARE(spy.size(), 0);
        QVERIFY(!lib()->insertRows(0, 2, list("U"))); // Inserted, and still false.
        QCOMPARE(lib()->rowCount(list("U")), 3);
        QCOMPARE(lib()->getIndexOfUid("a").row(), 2);
    }

    void namesAreUniqueInTheirList()
    {
        userList("U");
        const QStringList given = {"Red", "Red", "Color", "Color", "Color 2", "%1", "%1", "Red 2", "", "Red"};
        for (const QString& name : given)
            lib()->createColorWithName(rgb(1, 1, 1), name, "", "U", "");
        QCOMPARE(names("U"), QStringList({"Red", "Red 2", "Color", "Color 2", "Color 2 2", "%1", "%1 2", "Red 2 2",
                                          "Color 3", "Red 3"}));
        lib()->createColorWithName(rgb(1, 1, 1), "Red", "", "Elsewhere", "");
        QCOMPARE(names("Elsewhere"), QStringList("Red"));

        // Two of a list may be given one name past the model; it counts as taken until both are gone.
        for (int i = 0; i < 5; ++i)
            lib()->createColor(rgb(1, 1, 1), "", "Twins", "", "");
        const QModelIndex third = lib()->index(2, 0, list("Twins"));
        static_cast<LXColorLibraryItem*>(third.internalPointer())->setDisplayName("Color 2");
        lib()->removeRows(1, 1, list("Twins"));
        lib()->createColor(rgb(1, 1, 1), "", "Twins", "", "");
        QCOMPARE(names("Twins"), QStringList({"Color", "Color 2", "Color 4", "Color 5", "Color 3"}));

        const QModelIndex first = lib()->index(0, 0, list("U"));
        QVERIFY(!lib()->setData(first, "Red 2"));
        QVERIFY(!lib()->setData(first, "Red", Qt::DisplayRole)); // Also its own.
        QVERIFY(lib()->setData(first, ""));
        QVERIFY(lib()->setData(first, "red"));
        QVERIFY(!lib()->setData(list("U"), "Elsewhere"));
        QCOMPARE(names("U").first(), QString("red"));
        QVERIFY(lib()->nameExists("red") && lib()->nameExists("red", "U"));
        QVERIFY(!lib()->nameExists("red", "Elsewhere") && !lib()->nameExists("red", "nowhere"));
        QVERIFY(!lib()->nameExists(""));
    }

    void duplicateUids()
    {
        for (const char* list : {"U", "V", "W", "X"})
            userList(list);
        lib()->createColorWithName(rgb(1, 0, 0), "First", Known, "U", "");
        lib()->createColorWithName(rgb(2, 0, 0), "Second", Known, "U", "");
        lib()->createColorWithName(rgb(3, 0, 0), "Third", Known, "W", "");
        lib()->createColorWithName(rgb(4, 0, 0), "Fourth", Known, "X", "");
        QCOMPARE(names("U"), QStringList({"First", "Second"})); // Each new entry got its own name.
        QVERIFY(lib()->set(Known, rgb(9, 0, 0)));
        QList<LXColor*> colors = lib()->getColors("U") + lib()->getColors("W");
        QCOMPARE(colors.size(), 3);
        QCOMPARE(*colors[0], rgb(9, 0, 0));
        QCOMPARE(*colors[1], rgb(2, 0, 0));
        QCOMPARE(*colors[2], rgb(9, 0, 0));
        QCOMPARE(*lib()->getColors("X").first(), rgb(9, 0, 0));
        lib()->remove(Known);
        QCOMPARE(names("U"), QStringList("Second"));
        QCOMPARE(names("W") + names("X"), QStringList());
        lib()->remove("");
        lib()->get(Red);
        lib()->remove("");
        QCOMPARE(names("Explicit Colors").size(), 1);
        lib()->clear("U");
        lib()->clear("nowhere");
        QCOMPARE(names("U"), QStringList());
    }

    void presetInfoAndRename()
    {
        userList("U");
        lib()->createColor(rgb(1, 1, 1), Known, "U", "L/N", "R26");
        lib()->rename(Known, "A", true);
        QCOMPARE(presetInfo(Known), QStringList({"A", "L/N", "R26"}));
        lib()->rename(Known, "B", false);
        QCOMPARE(presetInfo(Known), QStringList({"B", "", ""}));
        QCOMPARE(lib()->rename(Unknown, "C", true), QString());
        lib()->createColorWithName(rgb(1, 1, 1), "D", Unknown, "U", "R27");
        QCOMPARE(presetInfo(Unknown), QStringList({"D", "", "R27"}));
    }

    void getResolvesReferences()
    {
        lib()->init(true, true, true);
        lib()->createColor(rgb(1, 2, 3), Known, "L", "", "");
        QCOMPARE(lib()->get(Known), rgb(1, 2, 3));
        QCOMPARE(lib()->get(Known + Red), rgb(1, 2, 3));
        QCOMPARE(lib()->get(Unknown + Red), rgb(255, 0, 0));
        for (const QString& nothing : {Unknown, QString()})
            QCOMPARE(lib()->get(nothing), LXColor(Qt::magenta));
        QCOMPARE(lib()->getQColor(Known), QColor(1, 2, 3));
        QCOMPARE(names("Explicit Colors").size(), 0);

        QCOMPARE(lib()->get(Red), rgb(255, 0, 0));
        QCOMPARE(lib()->get(Red), rgb(255, 0, 0));
        QCOMPARE(lib()->rowCount(list("Explicit Colors")), 1);
        QVERIFY(lib()->getIndexOfExplicitColor(Red).isValid());
        QCOMPARE(lib()->color2Text(rgb(255, 0, 0)), Red);

        // A uid that was set later is found as such, but not by get().
        lib()->setData(lib()->getIndexOfUid(Known), Unknown, Item::UidRole);
        QVERIFY(lib()->containsUid(Unknown) && !lib()->containsUid(Known));
        QCOMPARE(lib()->get(Known), rgb(1, 2, 3));
        QCOMPARE(lib()->get(Unknown), LXColor(Qt::magenta));
    }

    void listingChangesNothing()
    {
        lib()->init(true, true, true);
        lib()->createColor(rgb(1, 1, 1), Known, "L", "", "");
        lib()->createColor(rgb(2, 2, 2), Red, "L", "", ""); // A uid without braces reads as a value.
        lib()->createColor(LXColor(), Unknown, "L", "", "");
        QCOMPARE(lib()->getColorUids("L"), QStringList({Known, Red}));
        QCOMPARE(names("Explicit Colors").size(), 0);
        QCOMPARE(lib()->getColors("L").size(), 3);
        QVERIFY(lib()->getColorUids("nowhere").isEmpty() && lib()->getColors("nowhere").isEmpty());
    }

    void references_data()
    {
        const Rows<QString, QString, QString> row;
        row("uid", Known, Known, "");
        row("value", Red, "", Red);
        row("both", Known + Red, Known, Red);
        row("first brace counts", "a}b}c", "a}", "b}c");
        row("begins with a brace", "}b", "}", "}b");
        row("nothing", "", "", "");
    }
    void references()
    {
        const auto [text, uid, value] = fetched<QString, QString, QString>();
        QCOMPARE(LXColorLibrary::UidAndValueToUid(text), uid);
        QCOMPARE(LXColorLibrary::UidAndValueToValue(text), value);
    }

    void namesOfReferences()
    {
        lib()->init(true, true, true);
        lib()->createColorWithName(rgb(1, 2, 3), "Sky", Known, "L", "");
        const auto name = [&](const QString& reference, int d) {
            return lib()->getName(reference, static_cast<LXColorLibrary::ColorDescriptor>(d));
        };
        QCOMPARE(name(Known + Red, 2), QString("Sky"));
        QCOMPARE(lib()->pathOfUid(Known), QString("L/Sky"));
        QCOMPARE(lib()->pathOfUid(Unknown), QString());
        QCOMPARE(name(Unknown + Red, 1), Unknown + Red);
        QCOMPARE(name(Unknown + Red, 2), QString("#ff0000"));
        QCOMPARE(name(Unknown + Red, 0), QString());
        QCOMPARE(name("aNchannel;1;0;65535;2570;5140;7710;0", 2), QString("255,10,20,30"));
        lib()->get(Red);
        QCOMPARE(name(Unknown + Red, 2), Red);
    }

    void copiesRememberTheirOrigin()
    {
        userList("U");
        lib()->createColorWithName(rgb(1, 2, 3), "Color", Known, "U", "R26");
        const QString copy = lib()->createNewSwatchUidFromUid(Known, "Project Swatches");
        QCOMPARE(presetInfo(copy), QStringList({"Color", "U/Color", "R26"}));
        const QString second = lib()->createNewSwatchUidFromUid(Known, "Project Swatches");
        QCOMPARE(presetInfo(second), QStringList({"Color 2", "U/Color", "R26"}));
        QCOMPARE(lib()->get(second), rgb(1, 2, 3));
        QCOMPARE(lib()->createNewSwatchUidFromUid(Unknown, "N"), QString());
        QVERIFY(!list("N").isValid());

        QCOMPARE(lib()->getExposableUidFromUid(Known), Known);
        QCOMPARE(lib()->getExposableUidFromUid(Unknown), Unknown);
        QCOMPARE(lib()->getExposableUidFromUid(second), copy);
        lib()->createColorWithName(rgb(4, 4, 4), "Own", "{own}", "Project Swatches", "");
        const QString exposed = lib()->getExposableUidFromUid("{own}");
        QCOMPARE(presetInfo(exposed), QStringList({"Own 2", "Project Swatches/Own", ""}));
        QCOMPARE(lib()->getExposableUidFromUid("{own}"), exposed);
    }

    void listNamesAreUnique()
    {
        userList("Presets 2");
        QCOMPARE(lib()->getNewColorListName("Presets"), QString("Presets"));
        userList("Presets");
        QCOMPARE(lib()->getNewColorListName("Presets"), QString("Presets 3"));
        userList("Presets 3");
        QCOMPARE(lib()->getNewColorListName("Presets"), QString("Presets 4"));
        lib()->removeRows(list("Presets 2").row(), 1, lib()->rootIndex());
        userList("Presets 2"); // The number that was given back is taken again.
        QCOMPARE(lib()->getNewColorListName("Presets"), QString("Presets 4"));
        lib()->createColorList("", false);
        lib()->createColorList("", false);
        QCOMPARE(listNames().mid(5), QStringList({"", " 2"}));
        lib()->createColor(rgb(1, 1, 1), "u", "", "", ""); // Into the nameless list, not into a new one.
        QCOMPARE(lib()->getIndexOfUid("u").parent().row(), 5);
    }

    void dragPayload()
    {
        userList("U");
        lib()->createColorWithName(rgb(255, 0, 0), QString::fromUtf8("Röt✓"), "{a}", "U", "R26");
        lib()->createColorWithName(rgb(255, 0, 0), "Two", "{b}", "U", "");
        lib()->get(Red);
        const QModelIndex a = lib()->getIndexOfUid("{a}");
        const QModelIndex b = lib()->getIndexOfUid("{b}");
        const QModelIndex key = lib()->getIndexOfExplicitColor(Red);
        QStandardItemModel foreign(1, 1);

        const auto payload = [&](const QModelIndexList& indexes) {
            const QScopedPointer<QMimeData> data(lib()->mimeData(indexes));
            QStringList texts;
            for (const QString& format : data->formats())
                texts << format + '=' + QString::fromLatin1(data->data(format));
            return texts;
        };
        QCOMPARE(payload({}), QStringList());
        QCOMPARE(payload({a, a.siblingAtColumn(1), QModelIndex(), foreign.index(0, 0)}),
                 QStringList({"data/x-lxcolor={a}" + Red, QString::fromUtf8("data/x-lxcolor-name=Röt?"),
                              "data/x-lxcolor-vendorid=R26"}));
        QCOMPARE(payload({b.siblingAtColumn(1), a, b, key}),
                 QStringList({"data/x-lxcolor={a}" + Red + ",{b}" + Red + "," + Red,
                              QString::fromUtf8("data/x-lxcolor-name=Röt?,Two,"), "data/x-lxcolor-originatingPreset=,,",
                              "data/x-lxcolor-vendorid=R26,,"}));
        QCOMPARE(payload({b.siblingAtColumn(1)}), QStringList({"data/x-lxcolor={b}" + Red, "data/x-lxcolor-name=Two"}));

        QMimeData data;
        data.setData("data/x-lxcolor-originatingPreset", QByteArray("L/N,M/O\0x", 9));
        QCOMPARE(LXColorLibrary::getOriginatingPresetFromMimeData(&data), QString());
        data.setData("x-orbis/color", "1");
        QCOMPARE(LXColorLibrary::getOriginatingPresetFromMimeData(&data), QString("L/N"));
        QCOMPARE(LXColorLibrary::getOriginatingPresetFromMimeData(nullptr), QString());
    }

    void selectionAsDocument()
    {
        userList("U");
        lib()->createColorWithName(rgb(255, 0, 0), "One", "{a}", "U", "R26");
        lib()->get(Red);
        const QModelIndex a = lib()->getIndexOfUid("{a}");
        const QDomDocument document =
            lib()->createColorDoc({a, a.siblingAtColumn(1), lib()->getIndexOfExplicitColor(Red)}, "Export");
        const QDomElement root = document.documentElement();
        QCOMPARE(root.tagName(), QString("ColorLibrary"));
        QCOMPARE(root.attribute("name"), QString("Export"));
        QCOMPARE(root.attribute("isUserLibrary"), QString("1"));
        QCOMPARE(root.childNodes().size(), 1);
        const QDomElement color = root.firstChildElement("Color");
        QVERIFY(color.hasAttribute("uid") && color.attribute("uid").isEmpty());
        QCOMPARE(color.attribute("name"), QString("One"));
        QCOMPARE(color.attribute("value"), Red);
        QCOMPARE(color.attribute("colorId"), QString("R26"));
    }

    void debugLines()
    {
        setDebugOutput(true);
        lib()->createColor(rgb(1, 1, 1), "u", "My \"list\"", "", "");
        lib()->createColor(rgb(1, 1, 1), "v", "My \"list\"", "", "");
        const QVector<Messages::Entry> lines = Messages::take();
        setDebugOutput(false);
        int found = 0;
        for (const Messages::Entry& line : lines) {
            if (line.file.startsWith("LXColor/src/LXColorLibrary")) {
                ++found;
                QCOMPARE(line.text, QString("\"My \\\"list\\\"\""));
            }
        }
        QCOMPARE(found, 2);
    }

    // Indexes whose node is gone, indexes of other models and slots that pull the rug away crash nothing.
    void lostNodes()
    {
        userList("U");
        lib()->createColor(rgb(1, 1, 1), "a", "U", "", "");
        const QModelIndex lost = lib()->getIndexOfUid("a");
        const QPersistentModelIndex kept(lost);
        lib()->remove("a");
        QVERIFY(!kept.isValid());
        QVERIFY(lost.data().isValid()); // Views may look at it until control returns to the event loop.
        QVERIFY(!lib()->setData(lost, "x"));
        userList("V");
        const QModelIndex lostList = list("V");
        lib()->removeRows(lostList.row(), 1, lib()->rootIndex());
        lib()->insertRows(0, 1, lostList);
        lib()->removeRows(0, 1, lostList);
        QCOMPARE(lib()->rowCount(lostList), 0);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QStandardItemModel foreign(2, 2);
        for (const QModelIndex& index : {lost, lost.siblingAtColumn(1), foreign.index(1, 1)}) {
            QVERIFY(!lib()->data(index).isValid());
            QVERIFY(!lib()->setData(index, "x"));
            QVERIFY(!lib()->parent(index).isValid());
            QVERIFY(!lib()->index(0, 0, index).isValid());
            QCOMPARE(lib()->rowCount(index) + lib()->columnCount(index), 0);
            QCOMPARE(lib()->flags(index), Qt::ItemFlags(Qt::ItemIsEnabled));
            lib()->insertRows(0, 1, index);
            lib()->removeRows(0, 1, index);
        }

        connect(lib(), &LXColorLibrary::addedColorToList, this,
                [this](QModelIndex& index) { lib()->clear(index.data().toString()); });
        const QString uid = lib()->createColorWithName(rgb(1, 1, 1), "Gone", "", "U", "");
        QVERIFY(!uid.isEmpty() && !lib()->containsUid(uid));
    }

    // Whoever is told of a change may take everything away at once, before the operation has come to its end.
    void listenersThatRemoveEverything_data()
    {
        const Rows<QString, bool> row;
        for (const char* signal :
             {"rowsInserted", "rowsRemoved", "dataChanged", "listRenamed", "addedColorToList", "listsChanged"}) {
            row(signal, signal, false);
            row(QByteArray(signal) + ", deleted at once", signal, true);
        }
    }
    void listenersThatRemoveEverything()
    {
        const auto [signal, isDeletedAtOnce] = fetched<QString, bool>();
        lib()->loadUserColors(QString());
        const LXColor color = rgb(4, 5, 6);
        const std::pair<const char*, Operation> operations[] = {
            {"create", [&] { lib()->createColorWithName(color, "New", "", "U", ""); }},
            {"new list", [&] { lib()->createColorWithName(color, "New", "", "New", ""); }},
            {"explicit",
             [&] {
                 lib()->removeRows(0, 1, lib()->rootIndex());
                 lib()->get(Red);
             }},
            {"rename", [&] { lib()->rename(Known, "Two", true); }},
            {"rename list", [&] { lib()->setData(list("U"), "W"); }},
            {"set", [&] { lib()->set(Known, *lib()->getColors("V").first()); }},
            {"remove rows", [&] { lib()->removeRows(1, 1, list("U")); }},
            {"remove", [&] { lib()->remove(Known); }},
            {"insert", [&] { lib()->insertRows(1, 1, list("U")); }},
            {"list", [&] { lib()->createColorList("W", true); }},
            {"old presets", [&] { lib()->clearOldPresets(); }},
            {"copy", [&] { lib()->createNewSwatchUidFromUid(Known, "W"); }}};
        for (const auto& [name, operation] : operations) {
            userList("U");
            for (const char* list : {"U", "V"})
                lib()->createColorWithName(rgb(1, 2, 3), "One", Known, list, "");
            lib()->insertRows(0, 2, list("U"));
            lib()->setData(lib()->index(0, 0, list("U")), "old", Item::OldPresetRole);
            lib()->setData(lib()->index(1, 0, list("U")), "old", Item::OldPresetRole);

            QObject listener;
            const auto removeAll = [&, isDeletedAtOnce = isDeletedAtOnce] {
                QObject::disconnect(lib(), nullptr, &listener, nullptr);
                lib()->removeRows(0, lib()->rowCount(lib()->rootIndex()), lib()->rootIndex());
                if (isDeletedAtOnce)
                    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            };
            if (signal == "rowsInserted")
                connect(lib(), &LXColorLibrary::rowsInserted, &listener, removeAll);
            else if (signal == "rowsRemoved")
                connect(lib(), &LXColorLibrary::rowsRemoved, &listener, removeAll);
            else if (signal == "dataChanged")
                connect(lib(), &LXColorLibrary::dataChanged, &listener, removeAll);
            else if (signal == "listRenamed")
                connect(lib(), &LXColorLibrary::listRenamed, &listener, removeAll);
            else if (signal == "addedColorToList")
                connect(lib(), &LXColorLibrary::addedColorToList, &listener, removeAll);
            else
                connect(lib(), &LXColorLibrary::listsChanged, &listener, removeAll);

            operation();
            QObject::disconnect(lib(), nullptr, &listener, nullptr);
            lib()->removeRows(0, lib()->rowCount(lib()->rootIndex()), lib()->rootIndex());
            QVERIFY2(listNames().isEmpty() && !lib()->containsUid(Known), name);
        }
    }

private:
    void userList(const QString& name)
    {
        if (listNames().isEmpty())
            lib()->init(true, true, true);
        lib()->createColorList(name, true);
    }
    QStringList presetInfo(const QString& uid) const
    {
        const QModelIndex index = lib()->getIndexOfUid(uid);
        return {index.data().toString(), index.data(Item::OriginatingPresetRole).toString(),
                index.data(Item::VendorIdRole).toString()};
    }
    void watch()
    {
        m_log.clear();
        const auto nameOf = [](const QModelIndex& index) {
            return index.internalPointer() && index.parent().isValid() ? index.data().toString() : QString("root");
        };
        const LXColorLibrary* library = lib();
        connect(library, &LXColorLibrary::rowsInserted, this, [=](const QModelIndex& p, int first, int last) {
            m_log << QString("rowsInserted %1 %2..%3").arg(nameOf(p)).arg(first).arg(last);
        });
        connect(library, &LXColorLibrary::rowsRemoved, this, [=](const QModelIndex& p, int first, int last) {
            m_log << QString("rowsRemoved %1 %2..%3").arg(nameOf(p)).arg(first).arg(last);
        });
        connect(library, &LXColorLibrary::dataChanged, this, [=](const QModelIndex& from, const QModelIndex& to) {
            m_log << "data " + nameOf(from) + ".." + nameOf(to);
        });
        connect(library, &LXColorLibrary::modelReset, this, [=] { m_log << "reset"; });
        connect(library, &LXColorLibrary::changed, this, [=](const QString& id) { m_log << "changed " + id; });
        connect(library, &LXColorLibrary::addedColorToList, this,
                [=](QModelIndex& index) { m_log << "added " + nameOf(index); });
        connect(library, &LXColorLibrary::listsChanged, this,
                [=](const QStringList& lists) { m_log << "lists " + lists.join(' '); });
        connect(library, &LXColorLibrary::listRenamed, this,
                [=](const QString& from, const QString& to) { m_log << "renamed " + from + " to " + to; });
    }

    QStringList m_log;
};

QTEST_GUILESS_MAIN(TestLibraryModel)
#include "tst_librarymodel.moc"
