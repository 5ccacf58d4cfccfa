// The view on the swatch library, as a person uses it: by mouse, keys, drags and ears.

#include "Files.h"
#include "LXColorLibrary.h"
#include "ModelWatch.h"
#include "OrbisProjectHelper.h"
#include "Support.h"
#include "SwatchView.h"
#include "TreeUser.h"

#include <QAbstractItemModelTester>
#include <QAccessible>
#include <QAction>
#include <QClipboard>
#include <QDomDocument>
#include <QDrag>
#include <QLoggingCategory>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QUndoStack>

Q_DECLARE_METATYPE(LXColor)

namespace {

using Item = LXColorLibraryItem;
using Action = SwatchView::Action;

QString colorText(const QModelIndex& index)
{
    const auto* color = static_cast<const LXColor*>(index.data(Item::ColorRole).value<void*>());
    return color ? color->aName() : QString();
}

/// Everything that a library holds, a line each.
QStringList linesOf(const LXColorLibrary& library)
{
    QStringList lines;
    for (int i = 0; i < library.rowCount(library.rootIndex()); ++i) {
        const QModelIndex list = library.index(i, 0, library.rootIndex());
        lines << list.data().toString() + (list.data(Item::CanBeModifiedRole).toBool() ? " *" : "");
        for (int row = 0; row < library.rowCount(list); ++row) {
            const QModelIndex entry = library.index(row, 0, list);
            QStringList texts{" ", entry.data().toString(), colorText(entry)};
            for (int role : {Item::UidRole, Item::OriginatingPresetRole, Item::VendorIdRole, Item::ItemTypeRole})
                texts << entry.data(role).toString();
            lines << texts.join(" | ");
        }
    }
    return lines;
}

} // namespace

class TestSwatchView : public QObject, TreeUser
{
    Q_OBJECT

    LXColorLibrary* lib() const { return LXColorLibrary::Instance(); }
    QTreeView* tree() const override { return m_view->findChild<QTreeView*>(); }
    QLineEdit* search() const { return m_view->findChild<QLineEdit*>("swatchSearch"); }
    QString add(const QString& list, const QString& name, const QString& color) const
    {
        return lib()->createColorWithName(LXColor(color), name, "{" + name + "}", list, "");
    }
    QStringList names(const QString& listName) const
    {
        QStringList result;
        const QModelIndex list = lib()->getIndexOfListId(listName);
        for (int row = 0; row < lib()->rowCount(list); ++row)
            result << lib()->index(row, 0, list).data().toString();
        return result;
    }
    void press(int key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QTest::keyClick(m_view->focusWidget(), Qt::Key(key), modifiers);
    }
    void rename(const QString& from, const QString& to) const
    {
        click(from);
        press(Qt::Key_F2);
        enterName(to);
    }
    QMimeData* dragOf(const QStringList& texts) const
    {
        QModelIndexList indexes;
        for (const QString& text : texts)
            indexes << row(text);
        m_payload.reset(tree()->model()->mimeData(indexes));
        return m_payload.data();
    }

private Q_SLOTS:
    void initTestCase()
    {
        QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));
        qputenv("XDG_DATA_HOME", m_home.path().toLocal8Bit());
        qRegisterMetaType<LXColor>();
    }
    void init()
    {
        m_messages.reset(new Messages);
        QFile::remove(userFile());
        lib()->init(true, true, true);
        lib()->createColorList("Whites", false);
        add("Whites", "Warm", "aYxy;1;0;65535;1;0.46;0.41");
        add("Whites", "Cold", "aYxy;1;0;65535;1;0.31;0.32");
        lib()->loadUserColors(QString());
        lib()->createColorList("Mine", true);
        add("Mine", "Red", "#ff0000");
        add("Mine", "Green", "#00ff00");
        add("Mine", "Blue", "#0000ff");
        lib()->createColorList("Gels", true);
        lib()->createColorWithName(LXColor("#ffa500"), "Straw", "{Straw}", "Gels", "L103");
        lib()->get("aRgb;1;0;#ffff123412341234"); // an explicit colour
        m_view.reset(new SwatchView);
        m_tester.reset(
            new QAbstractItemModelTester(tree()->model(), QAbstractItemModelTester::FailureReportingMode::Warning));
        m_view->resize(320, 600);
        m_view->show();
        m_view->activateWindow();
        tree()->setFocus();
        QVERIFY(QTest::qWaitForWindowActive(m_view.data()));
    }
    void cleanup()
    {
        m_tester.reset();
        m_view.reset();
        LXColorLibrary::cleanup();
        QStringList messages = withoutExpectedObjections(Messages::takeTexts());
        messages.removeAll("This plugin does not support propagateSizeHints()");
        QVERIFY2(messages.isEmpty(), qPrintable(messages.join('\n')));
        m_messages.reset();
    }

    void shows()
    {
        QCOMPARE(rows(), QStringList({"Project Swatches", "Whites", "Warm", "Cold", "Mine", "Red", "Green", "Blue",
                                      "Gels", "Straw"}));
        // The thumbnail has the colour, at the left of its row.
        QCOMPARE(thumbnail("Red"), QColor(255, 0, 0));
        QSignalSpy current(m_view.data(), &SwatchView::currentColorChanged);
        QSignalSpy activated(m_view.data(), &SwatchView::colorActivated);
        click("Green");
        QCOMPARE(current.last().first().value<LXColor>(), LXColor("#00ff00"));
        press(Qt::Key_Down);
        press(Qt::Key_Return);
        QCOMPARE(activated.last().first().value<LXColor>(), LXColor("#0000ff"));
        QCOMPARE(m_view->currentUid(), QString("{Blue}"));
        click("Gels");
        QVERIFY(!current.last().first().value<LXColor>().isValid());
        press(Qt::Key_Return); // folds
        QVERIFY(!rows().contains("Straw"));
        QCOMPARE(m_view->foldedLists(), QStringList("Gels"));
    }

    void searches()
    {
        for (const char* list : {"Gels", "Whites"}) { // folds them
            click(list);
            press(Qt::Key_Return);
        }
        press(Qt::Key_F, Qt::ControlModifier);
        QVERIFY(search()->hasFocus());
        QTest::keyClicks(search(), "r");
        QCOMPARE(rows(), QStringList({"Project Swatches", "Whites", "Warm", "Mine", "Red", "Green", "Gels", "Straw"}));
        QTest::keyClicks(search(), "e");
        QCOMPARE(rows(), QStringList({"Mine", "Red", "Green"}));
        add("Gels", "Fire", "#ff2000"); // comes while it is searched for
        QCOMPARE(rows(), QStringList({"Mine", "Red", "Green", "Gels", "Fire"}));
        lib()->remove("{Fire}");
        QCOMPARE(rows(), QStringList({"Mine", "Red", "Green"}));
        search()->clear();
        QTest::keyClicks(search(), "gel l103"); // words of list, colour and vendor id
        QCOMPARE(rows(), QStringList());
        search()->clear();
        QTest::keyClicks(search(), "L103");
        QCOMPARE(rows(), QStringList({"Gels", "Straw"}));
        press(Qt::Key_Down);
        QCOMPARE(m_view->currentUid(), QString("{Straw}"));
        press(Qt::Key_F, Qt::ControlModifier);
        press(Qt::Key_Escape);
        QCOMPARE(search()->text(), QString());
        QVERIFY(rows().contains("Straw") && !rows().contains("Warm")); // folded again, but for the current colour
        search()->setText("nothing has this");
        QCOMPARE(rows(), QStringList());
    }

    void renames()
    {
        QSignalSpy refused(m_view.data(), &SwatchView::refused);
        rename("Straw", "Hay");
        QCOMPARE(names("Gels"), QStringList("Hay"));
        QCOMPARE(m_view->action(Action::Undo)->text(), QString("Undo Rename"));
        press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(names("Gels"), QStringList("Straw"));
        QCOMPARE(lib()->getIndexOfUid("{Straw}").data(Item::VendorIdRole).toString(), QString("L103"));
        press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(names("Gels"), QStringList("Hay"));
        rename("Red", "Blue");
        QCOMPARE(names("Mine"), QStringList({"Red", "Green", "Blue"}));
        QCOMPARE(refused.size(), 1);
        rename("Mine", "Ours");
        QVERIFY(rows().contains("Ours"));
        press(Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(rows().contains("Mine"));
        for (const char* fixed : {"Warm", "Whites", "Project Swatches"}) {
            click(fixed);
            QVERIFY(!m_view->action(Action::Rename)->isEnabled());
        }
    }

    void deletesAndBringsBack()
    {
        const QStringList before = linesOf(*lib());
        const QByteArray fileBefore = userColors();
        click("Red");
        click("Blue", Qt::ControlModifier);
        press(Qt::Key_Delete);
        QCOMPARE(names("Mine"), QStringList("Green"));
        QVERIFY(!userColors().contains("Blue"));
        click("Mine");
        press(Qt::Key_Delete);
        QVERIFY(!rows().contains("Mine") && !rows().contains("Green"));
        press(Qt::Key_Z, Qt::ControlModifier);
        press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(linesOf(*lib()), before);
        QCOMPARE(userColors(), fileBefore);
        QCOMPARE(lib()->get("{Blue}"), LXColor("#0000ff")); // references find it
        QVERIFY(rows().contains("Green"));

        for (const char* fixed : {"Warm", "Whites", "Project Swatches"}) {
            click(fixed);
            QVERIFY(!m_view->action(Action::Delete)->isEnabled());
            press(Qt::Key_Delete);
        }
        QCOMPARE(linesOf(*lib()), before);
    }

    void addsLists()
    {
        QTest::keyClick(tree(), Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
        enterName("Tour");
        QTRY_VERIFY(userColors().contains("Tour"));
        QCOMPARE(m_view->currentList(), QString("Tour"));
        const QString uid = m_view->addColor(LXColor("#123456"));
        QCOMPARE(names("Tour"), QStringList("#123456"));
        QCOMPARE(m_view->currentUid(), uid);
        QVERIFY(m_view->setCurrentColor(LXColor("#654321")));
        QCOMPARE(lib()->get(uid), LXColor("#654321"));
        m_view->undoStack()->undo();
        QCOMPARE(lib()->get(uid), LXColor("#123456"));

        const QStringList before = rows();
        click("Tour");
        while (m_view->action(Action::MoveListUp)->isEnabled())
            press(Qt::Key_Up, Qt::AltModifier);
        QCOMPARE(rows().mid(rows().indexOf("Tour"), 3), QStringList({"Tour", "#123456", "Mine"}));
        QVERIFY(userColors().indexOf("Tour") < userColors().indexOf("Mine"));
        QCOMPARE(lib()->get(uid), LXColor("#123456"));
        press(Qt::Key_Down, Qt::AltModifier);
        press(Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(rows() != before);
        press(Qt::Key_Z, Qt::ControlModifier);
        press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(rows(), before);
    }

    void dropsFromOutside_data()
    {
        // format, bytes, names and values of what is added
        const Rows<QString, QByteArray, QStringList> row;
        const QString red = "aRgb;1;0;#ffffffff00000000";
        const QByteArray xy = "aYxy;1;0;65535;1.000000;0.300000;0.300000";
        row("value", LXCOLOR_MIME_TYPE, "aRgb;1;0;#ffffffff00000000", {"#ff0000=" + red});
        row("uids that are unknown, with values", LXCOLOR_MIME_TYPE,
            QByteArray("{a,b}aRgb;1;0;#ffffffff00000000,{c}" + xy), {"#ff0000=" + red, "?=" + xy});
        row("known uid", LXCOLOR_MIME_TYPE, "{Straw}aRgb;1;0;#ffff0000ffff0000",
            {"Straw=" + LXColor("#ffa500").aName()});
        row("text, other lines are passed over", "text/plain",
            QByteArray("#f00\nno colour\n  steelblue \r\n" + xy + "\n#12345"),
            {"#f00=" + red, "steelblue=" + LXColor("steelblue").aName(), xy + "=" + xy});
        const quint16 words[4] = {0xffff, 0x8000, 0x0001, 0xffff};
        row("colour of 16 bits", "application/x-color", QByteArray(reinterpret_cast<const char*>(words), 8),
            {"#ff8000=aRgb;1;0;#ffffffff80000001"});
        row("document as text", "text/plain",
            "<L><ColorLibrary name='x'><Color name='Sun &#x2600; &#x1F31E; &lt;3' uid='{Red}' value='#ff0000'/>"
            "<Color name='None' value='what'/></ColorLibrary></L>",
            {QString::fromUtf8("Sun \xe2\x98\x80 \xf0\x9f\x8c\x9e <3=") + red});
        row("text that is none", "text/plain", "Hello", {});
        row("document that is not closed", "text/plain", "<ColorLibrary>", {});
        row("document without end", "text/plain", "<ColorLibrary/>" + QByteArray("<a>").repeated(20000), {});
        row("document without a colour", "text/plain", "<ColorLibrary><Color value='what'/></ColorLibrary>", {});
        row("something else", "image/png", "PNG", {});
    }
    void dropsFromOutside()
    {
        const auto [format, bytes, expected] = fetched<QString, QByteArray, QStringList>();
        QMimeData data;
        data.setData(format, bytes);
        QCOMPARE(drop(&data, "Mine"), !expected.isEmpty());
        QStringList added;
        const QModelIndex list = lib()->getIndexOfListId("Mine");
        for (int row = 3; row < lib()->rowCount(list); ++row) {
            const QModelIndex index = lib()->index(row, 0, list);
            const QString name = index.data().toString();
            added << (expected.value(row - 3).startsWith('?') ? QString("?") : name) + "=" + colorText(index);
            QCOMPARE(lib()->get(index.data(Item::UidRole).toString()).aName(), colorText(index));
        }
        QCOMPARE(added, expected);
        QCOMPARE(names("Mine").mid(0, 3), QStringList({"Red", "Green", "Blue"}));
        QVERIFY(!drop(&data, "Whites")); // presets stay as they are
        m_view->undoStack()->undo();
        QCOMPARE(names("Mine"), QStringList({"Red", "Green", "Blue"}));
    }

    void movesAndCopies()
    {
        QVERIFY(drop(dragOf({"Blue"}), "Red", true));
        QCOMPARE(names("Mine"), QStringList({"Blue", "Red", "Green"}));
        QVERIFY(drop(dragOf({"Blue", "Green"}), "Gels"));
        QCOMPARE(names("Mine"), QStringList("Red"));
        QCOMPARE(names("Gels"), QStringList({"Straw", "Blue", "Green"}));
        QVERIFY(lib()->containsUid("{Blue}"));
        QVERIFY(drop(dragOf({"Red"}), "Straw", false, Qt::ControlModifier)); // on a colour: a copy behind it
        QCOMPARE(names("Gels"), QStringList({"Straw", "Red", "Blue", "Green"}));
        QCOMPARE(names("Mine"), QStringList("Red"));
        QVERIFY(drop(dragOf({"Warm"}), "Project Swatches")); // a preset is copied
        QCOMPARE(names("Whites"), QStringList({"Warm", "Cold"}));
        const QModelIndex copy = lib()->getIndexOfName("Warm", lib()->getIndexOfListId("Project Swatches"));
        QCOMPARE(copy.data(Item::OriginatingPresetRole).toString(), QString("Whites/Warm"));
        QVERIFY(copy.data(Item::UidRole).toString() != "{Warm}");
        for (int i = 0; i < 4; ++i)
            press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(names("Mine"), QStringList({"Red", "Green", "Blue"}));
        QCOMPARE(names("Gels"), QStringList("Straw"));
    }

    void dragsOutAndPastes()
    {
        const QMimeData* data = dragOf({"Red", "Straw", "Mine"});
        QCOMPARE(data->data(LXCOLOR_MIME_TYPE),
                 QByteArray("{Red}aRgb;1;0;#ffffffff00000000,{Straw}") + LXColor("#ffa500").aName().toLatin1());
        QCOMPARE(data->data(kLXCOLOR_NAME_MIME_TYPE), QByteArray("Red,Straw"));
        QCOMPARE(data->data(kLXCOLOR_VENDOR_ID_MIME_TYPE), QByteArray(",L103"));
        QCOMPARE(data->text(), QString("#ff0000\n#ffa500"));
        QCOMPARE(data->colorData().value<QColor>(), QColor(255, 0, 0));

        // By the mouse: nobody takes it on the offscreen platform, and nothing is lost.
        const QPoint from = tree()->visualRect(row("Red")).center();
        click("Red");
        QTest::mousePress(tree()->viewport(), Qt::LeftButton, {}, from);
        for (int way : {5, 40}) {
            QMouseEvent move(QEvent::MouseMove, from + QPointF(way, way), Qt::NoButton, Qt::LeftButton, {});
            QCoreApplication::sendEvent(tree()->viewport(), &move);
        }
        const auto* drag = tree()->findChild<QDrag*>();
        QVERIFY(drag && drag->mimeData()->text() == "#ff0000" && !drag->pixmap().isNull());
        QTest::mouseRelease(tree()->viewport(), Qt::LeftButton, {}, from);
        QCOMPARE(names("Mine"), QStringList({"Red", "Green", "Blue"}));

        click("Straw");
        press(Qt::Key_C, Qt::ControlModifier);
        click("Red");
        press(Qt::Key_V, Qt::ControlModifier);
        press(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(names("Mine"), QStringList({"Red", "Straw", "Straw 2", "Green", "Blue"}));
        QGuiApplication::clipboard()->setText("no colour");
        QSignalSpy refused(m_view.data(), &SwatchView::refused);
        press(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(refused.size(), 1);
    }

    // Whatever is done, undoing all of it gives what was there, and redoing all what was done.
    void everyStepCanBeUndone()
    {
        QRandomGenerator random(20);
        QSignalSpy refused(m_view.data(), &SwatchView::refused);
        for (int round = 0; round < 12; ++round) {
            m_view->undoStack()->clear();
            const QStringList before = linesOf(*lib());
            for (int step = 0; step < 12; ++step) {
                m_view->setSearchText(random.bounded(4) == 0 ? "r" : "");
                const QStringList all = rows();
                const QString target = all.value(random.bounded(qMax(1, all.size())));
                const QString other = all.value(random.bounded(qMax(1, all.size())));
                if (target.isEmpty())
                    continue;
                click(target);
                switch (random.bounded(6)) {
                case 0:
                    press(Qt::Key_Delete);
                    break;
                case 1:
                    click(other, Qt::ControlModifier);
                    press(Qt::Key_Delete);
                    break;
                case 2:
                    tree()->model()->setData(row(target), "Name " + QString::number(random.bounded(5)));
                    break;
                case 3:
                    if (QMimeData* data = dragOf({target}))
                        drop(data, other, random.bounded(2), random.bounded(2) ? Qt::ControlModifier : Qt::NoModifier);
                    break;
                case 4:
                    m_view->addColor(LXColor(QColor::fromRgb(random.generate())), "New");
                    break;
                default:
                    m_view->setCurrentColor(LXColor(QColor::fromRgb(random.generate())));
                }
            }
            const QStringList after = linesOf(*lib());
            while (m_view->undoStack()->canUndo())
                m_view->undoStack()->undo();
            QCOMPARE(linesOf(*lib()), before);
            while (m_view->undoStack()->canRedo())
                m_view->undoStack()->redo();
            QCOMPARE(linesOf(*lib()), after);
            m_view->grab();
        }
    }

    // A project is loaded without a word to views; the view looks again when it is told to, and is safe before.
    void projectsThatAreLoaded()
    {
        QDomDocument project;
        QVERIFY(project.setContent(QByteArray("<p><ColorLibrary><Color uid='{n}' name='Noon' value='#ffff00'/>"
                                              "<Color uid='{m}' name='Moon' value='#dddddd'/></ColorLibrary></p>")));
        for (int i = 0; i < 20; ++i)
            add("Project Swatches", QString("Old %1").arg(i), "#ff0000");
        click("Old 7");
        for (const char* searched : {"", "oo", "old"}) {
            QString error;
            m_view->setSearchText(searched);
            QVERIFY(lib()->loadDocument(project, error, 1.0, ORBIS_APPLICATION_ID));
            m_view->grab();
            press(Qt::Key_Down);
            m_view->refresh();
            QVERIFY(!m_view->currentColor().isValid());
            QCOMPARE(rows().contains("Moon"), QString(searched) != "old");
            add("Project Swatches", "Old", "#ff0000");
            QCOMPARE(rows().contains("Old"), QString(searched) != "oo");
        }
    }

    void isToldInWords()
    {
        add("Mine", "Gel <103>", "aYxy;1;0;65535;1;0.46;0.41");
        QCOMPARE(row("Blue").data(Qt::AccessibleTextRole).toString(), QString("Blue, red 0, green 0, blue 255"));
        QVERIFY(row("Gel <103>").data(Qt::AccessibleTextRole).toString().endsWith("; x 0.4600, y 0.4100"));
        QVERIFY(row("Gel <103>").data(Qt::ToolTipRole).toString().contains("Gel &lt;103&gt;"));
        QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(tree());
        QVERIFY(interface);
        QCOMPARE(interface->text(QAccessible::Name), QString("Swatches"));
        QVERIFY(!search()->accessibleName().isEmpty());
        QStringList told;
        for (int i = 0; i < interface->childCount(); ++i)
            told << interface->child(i)->text(QAccessible::Name);
        QVERIFY2(told.contains("Green, red 0, green 255, blue 0"), qPrintable(told.join('\n')));
        QVERIFY2(told.contains("Gels, colours: 1"), qPrintable(told.join('\n')));
    }

    void aLibraryThatGoes()
    {
        auto* own = new LXColorLibrary;
        own->init(true, true, true);
        own->createColorWithName(LXColor("#ff0000"), "Red", "{r}", "Project Swatches", "");
        SwatchView view(own);
        view.show();
        QVERIFY(view.setCurrentUid("{r}"));
        QVERIFY(view.setCurrentColor(LXColor("#00ff00")));
        delete own;
        view.grab();
        view.undoStack()->undo();
        view.refresh();
        QVERIFY(!view.library() && view.addColor(LXColor("#ff0000")).isEmpty() && !view.currentColor().isValid());
        view.action(Action::NewList)->trigger();
        view.setSearchText("r");
    }

private:
    QString userFile() const { return LXColorLibrary::applicationSupportDir() + QLatin1String("\\userColors.xml"); }
    QByteArray userColors() const { return contentOf(userFile()); }

    QTemporaryDir m_home;
    QScopedPointer<Messages> m_messages;
    QScopedPointer<SwatchView> m_view;
    QScopedPointer<QAbstractItemModelTester> m_tester;
    mutable QScopedPointer<QMimeData> m_payload;
};

QTEST_MAIN(TestSwatchView)
#include "tst_swatchview.moc"
