// The nodes of the swatch library. That look-ups find what a walk finds, whatever happens, fuzz_library_model asserts.

#include "LXColorLibraryItem.h"
#include "LibrarySupport.h"
#include "NumberedNames_p.h"

#include <QBuffer>
#include <QDataStream>
#include <QDomDocument>

#include <random>

using Item = LXColorLibraryItem;

class TestLibraryTree : public LibraryTest
{
    Q_OBJECT

private Q_SLOTS:
    void blankNode()
    {
        Item root(nullptr);
        root.setCanBeModified(true);
        Item* node = new Item(&root);
        QCOMPARE(node->QObject::parent(), &root);
        QCOMPARE(node->parent(), &root);
        QCOMPARE(root.childCount(), 0); // Not before it is appended.
        QCOMPARE(node->row(), -1);
        QCOMPARE(root.row(), 0);
        QVERIFY(node->canBeModified());
        QVERIFY(!node->getLXColor().isValid());
        QVERIFY(node->getIcon().isNull());
        QCOMPARE(node->data(Item::ListFlagRole, 0), QVariant(1));

        root.setCanBeModified(false);
        root.appendChild(node);
        QVERIFY(!node->canBeModified());
        QCOMPARE(root.child(0), node);
        QVERIFY(!root.child(-1));
        QVERIFY(!root.child(1));
    }

    void roles()
    {
        Item item(nullptr);
        const LXColor red = rgb(255, 0, 0);
        const QVariant pointer = QVariant::fromValue(static_cast<void*>(const_cast<LXColor*>(&red)));
        const struct
        {
            int role;
            QVariant value;
            QVariant read;
            int type;
        } settable[] = {{Item::UidRole, "{u}", "{u}", Item::ColorItem},
                        {Item::ExplicitColorRole, "key", "key", Item::ExplicitColorItem},
                        {Item::OldPresetRole, "old", "old", Item::OldPresetItem},
                        {Item::CanBeModifiedRole, true, true, Item::OldPresetItem},
                        {Item::ListFlagRole, false, 0, Item::OldPresetItem},
                        {Item::OriginatingPresetRole, "a/b", "a/b", Item::OldPresetItem},
                        {Item::VendorIdRole, "R26", "R26", Item::OldPresetItem}};
        for (const auto& row : settable) {
            QVERIFY2(item.setData(row.value, row.role, 7), qPrintable(QString::number(row.role)));
            QCOMPARE(item.data(row.role, 7), row.read);
            QCOMPARE(item.data(Item::ItemTypeRole, 0), QVariant(row.type));
        }
        QVERIFY(item.setData(pointer, Item::ColorRole, 0));
        QCOMPARE(item.data(Item::ColorRole, 0).userType(), int(QMetaType::VoidStar));
        QCOMPARE(*static_cast<LXColor*>(item.data(Item::ColorRole, 0).value<void*>()), red);
        for (const QVariant& nothing : {QVariant(), QVariant("red"), QVariant::fromValue<void*>(nullptr)})
            QVERIFY(!item.setData(nothing, Item::ColorRole, 0));
        QCOMPARE(item.getLXColor(), red);

        for (const int role : {int(Qt::DecorationRole), int(Item::ItemTypeRole), 4, 256, 266})
            QVERIFY2(!item.setData(1, role, 0), qPrintable(QString::number(role)));
        for (const int role : {4, 256, 266})
            QVERIFY(!item.data(role, 0).isValid());
    }

    void nameAndVendorId()
    {
        Item item(nullptr);
        item.setOriginatingPreset("List/Old");
        item.setVendorID("R26");
        for (const int role : {int(Qt::DisplayRole), int(Qt::ToolTipRole)}) {
            QVERIFY(item.setData("", role, 0));
            QCOMPARE(item.data(role, 1), QVariant("R26"));
            QVERIFY(!item.data(role, 2).isValid());
        }
        QCOMPARE(item.orignatingPreset(), QString("List/Old"));
        QVERIFY(item.setData("New", Qt::ToolTipRole, 1));
        QCOMPARE(item.data(Qt::EditRole, 9), QVariant("New"));
        QVERIFY(item.orignatingPreset().isEmpty());
        QVERIFY(item.vendorID().isEmpty());
        QVERIFY(item.data(Qt::DecorationRole, 0).isValid());
        QVERIFY(!item.data(Qt::DecorationRole, 1).isValid());
    }

    void createColorNames_data()
    {
        const Rows<QStringList, QString> row;
        row("free", QStringList{"color"}, "Color");
        row("a number alone leaves the name free", QStringList{"Color 2"}, "Color");
        row("third", QStringList{"Color 2", "Color"}, "Color 3");
        row("gap", QStringList{"Color", "Color 3"}, "Color 2");
        row("other spellings are other names", QStringList{"Color", "Color 02", "Color  2"}, "Color 2");
    }
    void createColorNames()
    {
        const auto [existing, name] = fetched<QStringList, QString>();
        Item list(nullptr);
        const QString uid = list.createColor(rgb(1, 2, 3), QString(), existing, "List/Name", "V1");
        QVERIFY2(QRegularExpression("^\\{[0-9a-f]{8}(-[0-9a-f]{4}){3}-[0-9a-f]{12}\\}$").match(uid).hasMatch(),
                 qPrintable(uid));
        const Item* color = list.childWithUid(uid);
        QCOMPARE(color->displayName(), name);
        QCOMPARE(color->orignatingPreset(), QString("List/Name"));
        QCOMPARE(color->vendorID(), QString("V1"));
        QCOMPARE(list.createColor(rgb(1, 2, 3), "any text", existing, "", ""), QString("any text"));
    }

    void enteredKeys()
    {
        Item list(nullptr);
        list.createColor(rgb(1, 0, 0), "u", {}, "", "");
        list.createColor(rgb(2, 0, 0), "u", {}, "", "");
        QCOMPARE(list.childWithUid("u"), list.child(1)); // The last one entered ...
        list.createExplicitColor(rgb(3, 0, 0), "key");
        QCOMPARE(list.childWithExplicitColor("key"), list.child(2));
        QCOMPARE(list.childWithUid("key"), list.child(2)); // ... in one index for both kinds ...
        list.child(2)->setUid("later");
        QVERIFY(!list.childWithUid("later")); // ... and what is set later does not count.
        QCOMPARE(list.childWithUid("key"), list.child(2));

        list.removeChildren(1, 1);
        QVERIFY(!list.childWithUid("u"));
        list.insertChildren(0, 2);
        QVERIFY(!list.childWithUid(""));
        list.removeChildren(5, 1); // Outside: nothing.
        list.removeChildren(-1, 1);
        QCOMPARE(list.childCount(), 4);
        list.removeChildren(1, 99);
        QCOMPARE(list.childCount(), 1);
        QCOMPARE(list.columnCount(), 2);
    }

    void setUpdatesTheColorOfAUid()
    {
        Item list(nullptr);
        QVERIFY(!list.set("u", LXColor()));
        QVERIFY(list.set("u", rgb(1, 0, 0)));
        QVERIFY(list.set("u", rgb(2, 0, 0)));
        QCOMPARE(list.childCount(), 1);
        QCOMPARE(list.child(0)->getLXColor(), rgb(2, 0, 0));
        QVERIFY(list.child(0)->displayName().isEmpty());

        list.handleInsertColor("", "One", "aRgb;1;0;#ffff000000000000", "", "", "");
        list.handleInsertColor("", "Two", "aRgb;1;0;#ffff000000000000", "L/N", "", "V");
        QCOMPARE(list.childCount(), 3); // An empty uid is no one's.
        QCOMPARE(list.child(1)->displayName(), QString("One"));
        QCOMPARE(list.child(2)->displayName(), QString("Two"));
        QCOMPARE(list.child(2)->orignatingPreset(), QString("L/N"));

        list.handleInsertColor("u", "Named", "", "", "", "V2"); // No colour, but an earlier child to be named.
        list.handleInsertColor("x", "Nobody", "", "", "", "");
        QCOMPARE(list.childCount(), 3);
        QCOMPARE(list.child(0)->displayName(), QString("Named"));
        QCOMPARE(list.child(0)->vendorID(), QString("V2"));
    }

    void itemStream()
    {
        Item list(nullptr);
        list.createColor(rgb(255, 0, 0), QString::fromUtf8("ü✓"), {}, "", "");
        QVERIFY(list.mimeTypes().isEmpty());
        QCOMPARE(list.child(0)->mimeTypes(), QStringList("data/x-lxcolor"));
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        QVERIFY(!list.child(0)->mimeData("data/x-lxcolor-name", out));
        QVERIFY(bytes.isEmpty());
        QVERIFY(list.child(0)->mimeData("data/x-lxcolor", out));
        QDataStream in(bytes);
        QByteArray uid, value;
        in >> uid >> value;
        QCOMPARE(uid, QByteArray("\xfc?"));
        QCOMPARE(value, QByteArray("aRgb;1;0;#ffffffff00000000"));
        QVERIFY(in.atEnd());
    }

    void ownership()
    {
        auto* parent = new Item(nullptr);
        auto* adopted = new Item(nullptr);
        adopted->createColor(rgb(0, 0, 0), "inner", {}, "", "");
        parent->appendChild(adopted);
        parent->appendChild(adopted);
        parent->appendChild(nullptr);
        parent->appendChild(parent);
        adopted->appendChild(parent);
        QCOMPARE(parent->childCount(), 1);
        QCOMPARE(adopted->childWithUid("inner")->parent(), adopted);

        auto* other = new Item(nullptr);
        other->appendChild(adopted);
        QCOMPARE(parent->childCount(), 0);
        QCOMPARE(adopted->parent(), other);

        parent->insertChildren(0, 3);
        delete parent->child(1); // Takes itself out of the list.
        QCOMPARE(parent->childCount(), 2);
        QPointer<Item> released = parent->child(0);
        parent->removeChildren(0, 1);
        QVERIFY(released);
        QCOMPARE(released->row(), -1);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!released);
        parent->removeChildren(0, 1);
        delete parent; // With a child that is still to be released.
        delete other;
    }

    // Children come and go in any order: each knows its row, and is deleted once, in the end.
    void rowsAndReleases_data()
    {
        // insertAt: -1 for the end, -2 for anywhere
        const Rows<int, bool> row;
        row("appended", -1, false);
        row("at the front", 0, false);
        row("always behind the first", 1, true);
        row("anywhere", -2, true);
    }
    void rowsAndReleases()
    {
        const auto [insertAt, isReleasedByDestructor] = fetched<int, bool>();
        std::mt19937 random(7);
        const auto below = [&](int n) { return static_cast<int>(random() % static_cast<uint>(n)); };
        auto* parent = new Item(nullptr);
        Item other(nullptr);
        QList<QPointer<Item>> children, released;
        const auto checkRows = [&] {
            for (int row = children.size() - 1; row >= 0; --row)
                QCOMPARE(children.at(row)->row(), row);
        };
        for (int step = 0; step < 400; ++step) {
            const int count = children.size();
            const int row = insertAt == -1 ? count : insertAt == -2 ? below(count + 1) : qMin(insertAt, count);
            const int inserted = step % 50 == 0 ? 20 : 1;
            parent->insertChildren(row, inserted);
            for (int i = 0; i < inserted; ++i)
                children.insert(row + i, parent->child(row + i));
            if (step % 3 == 0) {
                const int gone = below(children.size());
                released << children.takeAt(gone);
                parent->removeChildren(gone, 1);
            }
            if (step % 20 == 0)
                checkRows();
        }
        checkRows();
        Item* rescued = released.takeFirst();
        other.appendChild(rescued);
        delete released.at(1); // By whoever else.
        parent->appendChild(released.at(2));
        parent->removeChildren(parent->childCount() - 1, 1);
        QVERIFY(released.at(0));
        if (isReleasedByDestructor)
            delete parent;
        else
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        for (const QPointer<Item>& child : released)
            QVERIFY(!child);
        QCOMPARE(other.child(0), rescued);
        if (isReleasedByDestructor)
            return;
        checkRows();
        delete parent;
        QVERIFY(!children.last());
    }

    void freeNumbers()
    {
        lxcolor::FreeNumbers numbers;
        std::set<int> taken;
        std::mt19937 random(3);
        const auto isTaken = [&](int n) { return taken.count(n) > 0; };
        for (int step = 0; step < 20000; ++step) {
            int expected = lxcolor::FirstNameNumber;
            while (isTaken(expected))
                ++expected;
            QCOMPARE(numbers.first(isTaken), expected);
            const int n = 2 + static_cast<int>(random() % 40);
            if (random() % 2) {
                taken.insert(n);
                numbers.take(n);
            } else if (taken.erase(n)) {
                numbers.release(n);
            }
        }
        for (const char* plain : {"Red", "Red 1", "Red 02", "Red -2", "Red 1234567890", "2", "Red ", "Red 2x", ""})
            QCOMPARE(lxcolor::splitNumberedName(plain).number, 0);
        QCOMPARE(lxcolor::splitNumberedName("Red 2 17").base, QString("Red 2"));
        QCOMPARE(lxcolor::splitNumberedName(" 2").number, 2);
    }
};

QTEST_GUILESS_MAIN(TestLibraryTree)
#include "tst_librarytree.moc"
