// lxcolor swatches: what a file holds as the library reads it, and lists exported to documents of their own.
#include "Files.h"
#include "ToolSupport.h"

namespace {

const char kProject[] = "<project><part>\n"
                        "<ColorLibrary name=\"Tom &amp; Jerry, %1 \xc3\xa4\" isUserLibrary=\"0\">\n"
                        " <Color name=\"red &#x1F3A8;\" uid=\"{u1}\" value=\"aRgb;1;0;#ffffffff00000000\""
                        " originatingPreset=\"A/b\" colorId=\"L106\"/>\n"
                        " <Color name=\"lost\" uid=\"{u2}\" value=\"nothing\"/>\n"
                        "</ColorLibrary></part>\n"
                        "<ColorLibrary name=\"mine\" isUserLibrary=\"1\"/></project>";

} // namespace

class TestToolSwatches : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void listsAndColours()
    {
        const QTemporaryDir folder;
        const QString file = writeFile(folder.filePath("project.xml"), kProject);
        const Outcome json = succeed({"swatches", file, "--json"});
        QCOMPARE(json.lines().size(), 2);
        QCOMPARE(json.json(0)["list"].toString(), QString::fromUtf8("Tom & Jerry, %1 \xc3\xa4"));
        QCOMPARE(json.json(1)["userList"].toBool(), true);
        const QJsonArray colors = json.json(0)["colors"].toArray();
        QCOMPARE(colors[0].toObject()["rgb"].toString(), QString("#ff0000"));
        QCOMPARE(colors[0].toObject()["name"].toString(), QString::fromUtf8("red \xf0\x9f\x8e\xa8"));
        QCOMPARE(colors[0].toObject()["vendorId"].toString(), QString("L106"));
        QCOMPARE(colors[1].toObject()["readable"].toBool(true), false);

        QCOMPARE(succeed({"swatches", "-"}, "<a/>").out, QString("standard input: no colours\n"));
        const Outcome table = succeed({"swatches", file});
        QVERIFY2(table.out.contains("255") && table.out.contains("left out on loading"), qPrintable(table.out));
    }

    void exportedListsLoadAgain()
    {
        const QTemporaryDir folder;
        const QString file = writeFile(folder.filePath("project.xml"), kProject);
        const QString name = QString::fromUtf8("Tom & Jerry, %1 \xc3\xa4");
        const Outcome exported = succeed({"swatches", file, "--export", name});
        const QString copy = writeFile(folder.filePath("copy.lxcolors"), exported.out.toUtf8());
        const Outcome read = succeed({"swatches", copy, "--json"});
        QCOMPARE(read.json()["list"].toString(), name);
        QCOMPARE(read.json()["userList"].toBool(), true);
        const QJsonArray colors = read.json()["colors"].toArray();
        QCOMPARE(colors.size(), 1); // the one that cannot be read is no colour
        QCOMPARE(colors[0].toObject()["uid"].toString(), QString());
        QCOMPARE(colors[0].toObject()["originatingPreset"].toString(), QString("A/b"));
    }

    void refusals()
    {
        const QTemporaryDir folder;
        const QString good = writeFile(folder.filePath("good.xml"), kProject);
        verifyRefused(run({"swatches", good, folder.filePath("none.xml")}), {"none.xml"});
        verifyRefused(run({"swatches", good, writeFile(folder.filePath("bad.xml"), "<a>\n<b></a>")}), {"bad.xml:2:"});
        verifyRefused(run({"swatches", "-", "-"}, kProject), {"standard input", "more than once"});
        verifyRefused(run({"swatches", good, "--export", "no such list"}), {"\"mine\"", "no such list"});
        const QByteArray deep = QByteArray("<a>").repeated(100000);
        verifyRefused(run({"swatches", writeFile(folder.filePath("deep.xml"), deep)}), {"deep.xml:1:", "nested"});
        const QByteArray bomb = "<!DOCTYPE a [<!ENTITY e \"ee\">]><a>&e;</a>";
        verifyRefused(run({"swatches", writeFile(folder.filePath("bomb.xml"), bomb)}), {"bomb.xml:1:", "entities"});
    }
};

QTEST_APPLESS_MAIN(TestToolSwatches)
#include "tst_toolswatches.moc"
