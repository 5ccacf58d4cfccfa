// What the swatch library writes and reads, and that nobody loses colours over it.

#include "ColorSection_p.h"
#include "LXColorLibraryItem.h"
#include "LibrarySupport.h"
#include "OrbisProjectHelper.h"

#include <QDir>
#include <QDomDocument>
#include <QProcess>
#include <QSignalSpy>
#include <QStandardPaths>

#include <sys/stat.h>

using Item = LXColorLibraryItem;

class TestLibraryFiles : public LibraryTest
{
    Q_OBJECT

private Q_SLOTS:
    void folderOfTheUser()
    {
        QCOMPARE(LXColorLibrary::applicationSupportDir(), folder() + "/support\\Norvale");

        static int lookUps;
        lookUps = 0;
        lxcolor::setAppSupportLookup([] { return ++lookUps < 3 ? QString() : QStringLiteral("/home/u/.appsupport"); });
        QCOMPARE(LXColorLibrary::applicationSupportDir(), QString("\\Norvale"));
        QCOMPARE(LXColorLibrary::applicationSupportDir(), QString("\\Norvale"));
        QCOMPARE(LXColorLibrary::applicationSupportDir(), QString("/home/u/.appsupport\\Norvale"));
        QCOMPARE(LXColorLibrary::applicationSupportDir(), QString("/home/u/.appsupport\\Norvale"));
        QCOMPARE(lookUps, 3);

        qputenv("XDG_DATA_HOME", QFile::encodeName(folder() + "/data"));
        QCOMPARE(lxcolor::platformAppSupportFolder(), folder() + "/data/LXColor");
        QVERIFY(QFileInfo(folder() + "/data/LXColor").isDir());
        writeFile(folder() + "/file", "");
        qputenv("XDG_DATA_HOME", QFile::encodeName(folder() + "/file/data"));
        QCOMPARE(lxcolor::platformAppSupportFolder(), QString());
        qunsetenv("XDG_DATA_HOME");
    }

    void savingBeginsWithTheDefaultFile()
    {
        lib()->init(true, true, true);
        lib()->createColorList("Early", true);
        lib()->saveUserColors();
        writeFile(folder() + "/other.xml", document(userListElement(colorElement("a"))));
        lib()->loadUserColors(folder() + "/other.xml");
        QCOMPARE(names("Mine"), QStringList("a"));
        QVERIFY(!QFile::exists(userFile()));

        lib()->loadUserColors(QString());
        QVERIFY(!QFile::exists(userFile())); // Nothing was loaded, nothing is to be saved ...
        lib()->createColorList("Late", true);
        QVERIFY(QFileInfo(LXColorLibrary::applicationSupportDir()).isDir());
        QVERIFY(contentOf(userFile()).contains("Early")); // ... until something changes.
        lib()->removeRows(2, 3, lib()->rootIndex());
        QCOMPARE(contentOf(userFile()), QByteArray("<ColorLibraryList/>\n"));
    }

    void savedText()
    {
        restart();
        lib()->createColorList("A & B", true);
        lib()->createColorWithName(rgb(255, 0, 0), "Red", "{1}", "A & B", "R26");
        lib()->createColor(LXColor(0.3, 0.4), "{2}", "A & B", "L/N", "");
        lib()->createColorList("Empty", true);
        lib()->createColorList("Preset", false);
        lib()->createColorWithName(rgb(255, 0, 0), "Not saved", "{3}", "Preset", "");
        lib()->createColorWithName(rgb(255, 0, 0), "Not saved", "{4}", "Project Swatches", "");
        lib()->insertRows(0, 1, list("Empty")); // Without a uid.
        const QByteArray expected =
            "<ColorLibraryList>\n"
            " <ColorLibrary name=\"A &amp; B\" isUserLibrary=\"1\">\n"
            "  <Color name=\"Red\" uid=\"{1}\" value=\"aRgb;1;0;#ffffffff00000000\" originatingPreset=\"\" "
            "colorId=\"R26\"/>\n"
            "  <Color name=\"Color\" uid=\"{2}\" value=\"aYxy;1;0;65535;1.000000;0.300000;0.400000\" "
            "originatingPreset=\"L/N\" colorId=\"\"/>\n"
            " </ColorLibrary>\n"
            " <ColorLibrary name=\"Empty\" isUserLibrary=\"1\"/>\n"
            "</ColorLibraryList>\n";
        QCOMPARE(contentOf(userFile()), expected);
    }

    void anyTextSurvives_data()
    {
        const Rows<QString, QString> rows;
        const auto row = [&](const char* title, const QString& text, const QString& read = QString()) {
            rows(title, text, (read.isEmpty() ? text : read));
        };
        row("formats", "%1 %2 %%");
        row("markup", "<a href=\"x\">&amp;</a> ]]> '");
        row("white space", " \t two\n lines\r\n ");
        row("emoji, other scripts", QString::fromUtf8("😀 日本 עברית ü"));
        row("apostrophes that look like attributes", QString("='").repeated(400) + " = '");
        row("limits of XML", QString(QChar(0xfffd)) + QChar(0xd7ff) + QChar(0xe000) + QChar(0x7f) + QChar(0x85));
        const QChar lost = QChar::ReplacementCharacter;
        row("control characters", QString("a") + QChar(1) + QChar(0) + QChar(0x1b) + "b",
            QString("a") + lost + lost + lost + "b");
        row("no characters", QString("a") + QChar(0xfffe) + QChar(0xffff) + QChar(0xd83d) + "b",
            QString("a") + lost + lost + lost + "b");
    }
    void anyTextSurvives()
    {
        const auto [text, read] = fetched<QString, QString>();
        restart();
        lib()->createColorList(text, true);
        lib()->createColorWithName(rgb(255, 0, 0), text, text, text, text);
        const QDomDocument project = [&, text = text] {
            QDomDocument document;
            bool ok = false;
            lib()->createNewSwatchUidFromUid(text, "Project Swatches");
            document.appendChild(lib()->createElement(document, ok, ORBIS_APPLICATION_ID));
            return document;
        }();
        restart();
        const QModelIndex color = lib()->getIndexOfUid(read);
        QVERIFY(color.isValid());
        QCOMPARE(color.data().toString(), read);
        QCOMPARE(color.data(Item::VendorIdRole).toString(), read);
        QCOMPARE(color.parent().data().toString(), read);
        QCOMPARE(QDir(folder()).entryList({"*.kept*"}), QStringList());

        loadProject(project.toByteArray(1));
        QCOMPARE(names("Project Swatches"), QStringList(read));
    }

    void unchangedFilesStayUntouched()
    {
        restart();
        lib()->createColorList("Mine", true);
        lib()->createColorWithName(rgb(255, 0, 0), "Red", "{r}", "Mine", "");
        const auto inode = [this] {
            struct stat status;
            return stat(QFile::encodeName(userFile()).constData(), &status) == 0 ? status.st_ino : 0;
        };
        const QByteArray before = contentOf(userFile());
        const ino_t node = inode();
        restart();
        lib()->saveUserColors();
        lib()->rename("{r}", "Red", true);
        QCOMPARE(inode(), node);
        lib()->rename("{r}", "Crimson", true);
        QVERIFY(inode() != node);
        QVERIFY(contentOf(userFile()) != before);
    }

    void oneSaveForOneCall()
    {
        restart();
        lib()->createColorList("Mine", true);
        lib()->createColorWithName(rgb(255, 0, 0), "Red", "{r}", "Mine", "");
        const auto saves = [] {
            QStringList texts;
            for (const Messages::Entry& entry : Messages::take()) {
                if (entry.text.startsWith("\"<ColorLibraryList>\\n"))
                    texts << entry.text;
            }
            return texts;
        };
        saves();
        setDebugOutput(true);
        lib()->rename("{r}", "Crimson", true);
        QCOMPARE(saves(), QStringList(quoted(QString::fromUtf8(contentOf(userFile())))));
        lib()->createColorWithName(rgb(1, 1, 1), "Red", "", "Mine", "");
        QCOMPARE(saves().size(), 1);
        lib()->createColorList("More", true);
        QCOMPARE(saves().size(), 1);
        lib()->createNewSwatchUidFromUid("{r}", "More");
        QCOMPARE(saves().size(), 1);
        lib()->set("{r}", rgb(9, 9, 9));
        QCOMPARE(saves().size(), 1);
        lib()->setData(list("More"), "Most");
        lib()->setData(list("Most"), "More");
        QCOMPARE(saves().size(), 2);
        lib()->setEditingMultipleColors(true);
        lib()->set("{r}", rgb(2, 2, 2));
        lib()->clear("More");
        QCOMPARE(saves().size(), 0);
        lib()->setEditingMultipleColors(false);
        lib()->setEditingMultipleColors(false);
        QCOMPARE(saves().size(), 1);
        lib()->createColorWithName(rgb(1, 1, 1), "Red", "", "Project Swatches", "");
        QCOMPARE(saves().size(), 0);
        setDebugOutput(false);
    }

    // Files that cannot be taken over whole are kept before the first save replaces them. What else is refused as one
    // that is cut, tst_hostile knows.
    void filesThatAreKept_data()
    {
        const Rows<QByteArray, QStringList, bool> row;
        const QByteArray two = userListElement(colorElement("a") + colorElement("b"));
        const QStringList both = {"a", "b"};
        row("sound", document(two), both, false);
        row("with declaration and byte order mark",
            "\xef\xbb\xbf<?xml version='1.0' encoding='UTF-8'?><!DOCTYPE x>" + document(two), both, false);
        row("empty", QByteArray("\n"), QStringList(), false);
        row("cut", document(two).chopped(30), QStringList(), true);
        row("no XML", QByteArray("\0\1\2rubbish", 10), QStringList(), true);
        row("a value that is no colour",
            document(userListElement(colorElement("a") + "<Color uid='x' value=''/><Color/>" + colorElement("b"))),
            both, true);
        row("a preset list", document(two + "<ColorLibrary name='P'/>"), both, true);
        const QByteArray a = colorElement("a"), b = colorElement("b");
        const auto more = [&](const char* title, const QByteArray& content, const QStringList& names) {
            row(title, content, names, true);
        };
        more("another document", "<html><body/></html>", {});
        more("another document element", "<Show>" + two + "</Show>", both);
        more("a colour below another element", document(userListElement(a + b + "<Group>" + a + "</Group>")), both);
        row("elements in a namespace",
            document(two)
                .replace("</", "</c:")
                .replace("<Color", "<c:Color")
                .insert(QByteArray("<c:ColorLibraryList").size(), " xmlns:c='u'"),
            both, false);
        more("an attribute of a list", document(QByteArray(two).replace("<ColorLibrary ", "<ColorLibrary note='' ")),
             both);
        more("an attribute of a colour", document(QByteArray(two).replace("<Color ", "<Color note='' ")), both);
        more("a comment", document(two + "<!-- from the old desk -->"), both);
        more("text", document(two + "notes"), both);
        row("Latin-1", document(two + "<ColorLibrary name='\xfc' isUserLibrary='1'/>"), both, true);
        row("control character", document(two + "<ColorLibrary name='\1' isUserLibrary='1'/>"), both, true);
    }
    void filesThatAreKept()
    {
        const auto [content, loaded, isKept] = fetched<QByteArray, QStringList, bool>();
        writeFile(userFile(), content);
        restart();
        for (const QString& text : Messages::takeTexts()) // What the colour value says of texts that are no colour.
            QVERIFY2(text.contains("empty attribute") || text.contains("modeltester"), qPrintable(text));
        QCOMPARE(list("Mine").isValid(), !loaded.isEmpty());
        QCOMPARE(names("Mine"), loaded);
        lib()->createColorList("Mine", true);
        lib()->createColorList("Mine", true);

        const QString kept = userFile() + ".kept";
        QCOMPARE(QFile::exists(kept), isKept);
        if (isKept)
            QCOMPARE(contentOf(kept), content);
        QVERIFY(!QFile::exists(kept + "-2"));
        restart();
        QVERIFY(list("Mine 2").isValid());
        if (!isKept)
            return;
        writeFile(userFile(), "other damage");
        restart();
        lib()->createColorList("Mine", true);
        QCOMPARE(contentOf(kept), content);
        QCOMPARE(contentOf(kept + "-2"), QByteArray("other damage"));
    }

    // Without a project, "Project Swatches" is a name like any other in a file, but such a list is never saved.
    void userListsThatWouldNotBeSaved()
    {
        const QByteArray content = document(userListElement(colorElement("a")).replace("Mine", "Project Swatches"));
        writeFile(userFile(), content);
        restart(false);
        QCOMPARE(names("Project Swatches"), QStringList("a"));
        lib()->createColorList("Mine", true);
        QCOMPARE(contentOf(userFile() + ".kept"), content);

        lib()->removeRows(list("Project Swatches").row(), 1, lib()->rootIndex());
        QVERIFY(!lib()->setData(list("Mine"), "Project Swatches"));
        QVERIFY(lib()->isUserListIndex(list("Mine")));
    }

    void loadingTwiceNumbersNames()
    {
        writeFile(userFile(), document(userListElement(colorElement("a") + colorElement("a"))));
        lib()->init(true, true, true);
        lib()->createColorList("Mine", false);
        lib()->loadUserColors(QString());
        QCOMPARE(names("Mine 2"), QStringList({"a", "a 2"}));
        QVERIFY(lib()->isUserListIndex(list("Mine 2")));
        QVERIFY(contentOf(userFile()).contains("\"a 2\"")); // Saved at the end of loading, because that changed it.
    }

    void elementsAtAnyDepth()
    {
        const QByteArray inner = "<ColorLibrary name='Inner'>" + colorElement("i") + "</ColorLibrary>";
        const QByteArray xml = "<r><ColorLibrary name='Outer' isUserLibrary='2'>" + colorElement("o") + "<g>" +
                               colorElement("hidden") + inner + "</g>" + colorElement("p") + "</ColorLibrary>" +
                               "<ColorLibrary isUserLibrary='x'><Color/></ColorLibrary></r>";
        QDomDocument document;
        QVERIFY(document.setContent(xml));
        const auto fromTree = lxcolor::readColorSections(document);
        const auto fromText = lxcolor::readColorSections(xml);
        QCOMPARE(fromText.outcome, lxcolor::ColorSections::Whole);
        for (const auto& sections : {fromTree, fromText.sections}) {
            QStringList read;
            for (const auto& section : sections) {
                read << section.name + (section.isUserList ? " user" : "");
                for (const auto& color : section.colors)
                    read << "  " + color.name + color.uid + color.value;
            }
            QCOMPARE(read, QStringList({"Outer user", "  o{o}" + Red, "  p{p}" + Red, "Inner", "  i{i}" + Red, "",
                                        "  empty attributeempty attribute"}));
        }
    }

    // ---- Preset files ----

    void shippedPresets()
    {
        const QDir source(QStringLiteral(LXCOLOR_SOURCE_DIR "/LXColor/resources/Presets"));
        const QStringList files = source.entryList({"*.lxcolors"});
        QCOMPARE(files.size(), 3);
        const QDir presets(QCoreApplication::applicationDirPath() + "/../Resources/Presets");
        QVERIFY(presets.mkpath("."));
        for (const QString& file : files)
            QFile::copy(source.filePath(file), presets.filePath(file));
        writeFile(presets.filePath("broken.lxcolors"), document(userListElement("")).chopped(3));
        writeFile(presets.filePath("other.xml"), document("<ColorLibrary name='No preset'/>"));

        lib()->init(true, true, true);
        lib()->loadPresetFiles();
        QStringList lists = listNames();
        lists.sort();
        QCOMPARE(lists, QStringList({"Color Wheel", "Explicit Colors", "Primaries and Secondaries", "Project Swatches",
                                     "White Points"}));
        QCOMPARE(names("Color Wheel").size(), 24);
        QCOMPARE(lib()->getModifiableLists(), QStringList("Project Swatches"));
        const QModelIndex d65 = lib()->getIndexOfName("CIE D65", list("White Points"));
        const LXColor white = lib()->get(d65.data(Item::UidRole).toString());
        QCOMPARE(white.spec(), LXColor::Yxy);
        QCOMPARE(white.getx(), 0.3127);
        lib()->loadUserColors(QString());
        QVERIFY(!QFile::exists(userFile()));
        QDir(presets).removeRecursively();
    }

    void schema()
    {
        const QString xmllint = QStandardPaths::findExecutable("xmllint");
        if (xmllint.isEmpty())
            QSKIP("xmllint is missing");
        restart();
        lib()->createColorList("Mine", true);
        lib()->createColorWithName(rgb(255, 0, 0), "Red", "{r}", "Mine", "");
        lib()->createColor(LXColor(0.3, -0.4), "{y}", "Mine", "", "");
        lib()->createColor(LXColor("aNchannel;3;6;65535;1;2;3;4;0"), "{n}", "Mine", "", "");
        writeFile(folder() + "/export.xml", lib()->createColorDoc({lib()->getIndexOfUid("{n}")}, "E").toByteArray());
        writeFile(folder() + "/wrong.xml", document(userListElement("<Color name='a' uid='' value='red'/>")));
        const QString resources = QStringLiteral(LXCOLOR_SOURCE_DIR "/LXColor/resources");
        QStringList files = {userFile(), folder() + "/export.xml"};
        for (const QFileInfo& file : QDir(resources + "/Presets").entryInfoList(QDir::Files))
            files << file.filePath();
        const auto validate = [&](const QString& file) {
            return QProcess::execute(xmllint,
                                     {"--noout", "--nowarning", "--schema", resources + "/ColorLibrary.xsd", file});
        };
        for (const QString& file : files)
            QVERIFY2(validate(file) == 0, qPrintable(file));
        QVERIFY(validate(folder() + "/wrong.xml") != 0);
    }

    // ---- Project documents ----

    void projectRoundTrip()
    {
        lib()->init(true, true, true);
        lib()->createColorWithName(rgb(1, 1, 1), "Other", "{o}", "Other", "");
        const QString copy = lib()->createNewSwatchUidFromUid("{o}", "Project Swatches");
        lib()->createColorWithName(rgb(2, 2, 2), "Own", "{p}", "Project Swatches", "R26");
        lib()->get(Red);
        QDomDocument document;
        bool ok = false;
        QVERIFY(lib()->createElement(document, ok, "Other").isNull());
        QVERIFY(!ok);
        const QDomElement element = lib()->createElement(document, ok, ORBIS_APPLICATION_ID);
        QVERIFY(ok);
        QCOMPARE(element.attribute("isUserLibrary"), QString("0"));
        QCOMPARE(element.childNodes().size(), 2);
        document.appendChild(element);

        stop();
        QString error;
        QVERIFY(!lib()->loadDocument(document, error, 1.0, ORBIS_APPLICATION_ID)); // Without the list.
        QVERIFY(lib()->createElement(document, ok, ORBIS_APPLICATION_ID).isNull());
        restart();
        lib()->createColorWithName(rgb(3, 3, 3), "Before", "", "Project Swatches", "");
        QVERIFY(lib()->loadDocument(document, error, 1.0, "Other"));
        QCOMPARE(names("Project Swatches"), QStringList("Before"));
        QVERIFY(lib()->loadDocument(document, error, 1.0, ORBIS_APPLICATION_ID));
        QVERIFY(error.isEmpty());
        QCOMPARE(names("Project Swatches"), QStringList({"Other", "Own"}));
        QCOMPARE(lib()->getIndexOfUid(copy).data(Item::OriginatingPresetRole).toString(), QString("Other/Other"));
        QCOMPARE(lib()->getIndexOfUid("{p}").data(Item::VendorIdRole).toString(), QString("R26"));
        QCOMPARE(lib()->get("{p}"), rgb(2, 2, 2));
        QCOMPARE(listNames().size(), 2);
    }

    void projectWithSeveralLists()
    {
        lib()->init(true, true, true);
        const QString error =
            loadProject("<p><ColorLibrary name='A'>" + colorElement("x") + "<Color uid='{n}' value='" + Red.toLatin1() +
                        "'/></ColorLibrary><ColorLibrary/><ColorLibrary name='B'>" + colorElement("x") +
                        colorElement("y") + "</ColorLibrary></p>");
        QCOMPARE(error, QString("Found NULL LXColorLibrary element"));
        QCOMPARE(names("Project Swatches"), QStringList({"x", "empty attribute", "y"})); // {x} is one colour.
    }

    void projectColorsWithoutUidAreSaved()
    {
        lib()->init(true, true, true);
        loadProject("<ColorLibrary name='A'><Color name='x' value='" + Red.toLatin1() +
                    "'/><Color name='y' uid='' value='" + Red.toLatin1() + "'/></ColorLibrary>");
        QCOMPARE(names("Project Swatches"), QStringList({"x", "y"}));
        QDomDocument document;
        bool ok = false;
        QCOMPARE(lib()->createElement(document, ok, ORBIS_APPLICATION_ID).childNodes().size(), 2);
    }

    void oldPresets_data()
    {
        const Rows<QByteArray, double, int> row;
        row("old and nameless", QByteArray(), 0.95, 12);
        row("new and nameless", QByteArray(), 0.96, 0);
        row("old with a name", QByteArray(" name='A'"), 0.95, 0);
    }
    void oldPresets()
    {
        const auto [name, version, markers] = fetched<QByteArray, double, int>();
        lib()->init(true, true, true);
        lib()->createColorList("", false); // A nameless list that is there already plays no part.
        lib()->get(Red);
        QByteArray colors;
        for (int i = 0; i < 14; ++i)
            colors += colorElement(QByteArray::number(i));
        loadProject("<ColorLibrary" + name + ">" + colors + "</ColorLibrary>", version);
        QCOMPARE(names("Project Swatches").size(), 14 + markers);
        QStringList expected;
        for (int i = 0; i < markers; ++i)
            expected << QString("{%1}").arg(i);
        QCOMPARE(lib()->oldPresets(), expected);
        QCOMPARE(lib()->getIndexOfOldPreset("{3}").isValid(), markers > 0);

        QSignalSpy removed(lib(), &QAbstractItemModel::rowsRemoved);
        lib()->clearOldPresets();
        QCOMPARE(removed.size(), markers);
        QVERIFY(lib()->oldPresets().isEmpty());
        QCOMPARE(names("Project Swatches").size(), 14);
        QCOMPARE(names("Explicit Colors").size(), 1);
    }

    void helperSignals()
    {
        lib()->init(true, true, true);
        lib()->createColorList("A", false);
        OrbisProjectHelper helper;
        QSignalSpy lists(&helper, &OrbisProjectHelper::insertList);
        QSignalSpy colors(&helper, &OrbisProjectHelper::insertColor);
        QDomDocument document;
        QVERIFY(document.setContent(QByteArray("<p><ColorLibrary name='A' isUserLibrary='1'><Color uid='u' "
                                               "originatingPreset='o' colorId='c'/></ColorLibrary></p>")));
        QString error;
        QStringList old;
        QVERIFY(helper.loadDocument(document, error, 1.0, old));
        QCOMPARE(lists.value(0), QVariantList({"A 2", true}));
        QCOMPARE(colors.value(0), QVariantList({"u", "empty attribute", "empty attribute", "o", "A 2", "c"}));
        const char* slot = "handleInsertColor(QString,QString,QString,QString,QString,QString)";
        QVERIFY(lib()->metaObject()->indexOfSlot(slot) > 0 && Item::staticMetaObject.indexOfSlot(slot) > 0);
    }

private:
    QString quoted(const QString& text) const
    {
        QString result;
        QDebug(&result).nospace() << text;
        return result;
    }
};

QTEST_GUILESS_MAIN(TestLibraryFiles)

#include "tst_libraryfiles.moc"
