// lxcolor import: a measurement becomes a profile of a database, and what is refused leaves the database as it was.
#include "ToolSupport.h"

namespace {

const char kTable[] = "Emitter;x;y;Y (cd/m2)\nRot;0,6915;0,3081;148,2\nBlau;0,1402;0,0498;41,6\n"
                      "Gruen;0,1712;0,7041;391,5\nReserve;0,5;0,4;1\n";

const char kDescription[] =
    "<GDTF DataVersion=\"1.2\"><FixtureType Name=\"t\"><PhysicalDescriptions><Emitters>"
    "<Emitter Name=\"Red\" Color=\"0.69,0.305,21\"/><Emitter Name=\"Green\" Color=\"0.17,0.70,70\"/>"
    "<Emitter Name=\"Blue\" Color=\"0.14,0.05,9\"/></Emitters></PhysicalDescriptions></FixtureType></GDTF>";

} // namespace

class TestToolImport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // From a table to a match, tst_toolbench goes.
    void intoADatabase()
    {
        const Folder folder;
        const QString table = folder.write("bench.csv", kTable);
        const QString out = folder.path("FixtureProfiles.xml");
        const Outcome imported = succeed({"import", table, "--profile", "PixelNode RGB", "-o", out, "--json"});
        QCOMPARE(imported.json()["fixture"].toInt(), 7);
        QCOMPARE(imported.json()["unit"].toString(), QString("cd/m2"));
        QCOMPARE(imported.json()["remarks"].toArray().size(), 1);
        const QJsonObject green = imported.json()["channels"].toArray()[1].toObject();
        QCOMPARE(green["name"].toString(), QString("Gruen"));
        QVERIFY(green["origin"].toString().startsWith("line 4: x 0.1712, "));

        // Another one beside it; the same one only when asked.
        QCOMPARE(run({"import", table, "--profile", "0", "-o", out}).status, 0);
        const QByteArray both = contentOf(out);
        QCOMPARE(both.count("<Profile "), 2);
        verifyRefused(run({"import", table, "--profile", "7", "-o", out}), {"profile 7 already", "--replace"});
        QCOMPARE(contentOf(out), both);
        const Outcome replaced = run({"import", table, "--profile", "7", "-o", out, "--replace"});
        QVERIFY2(replaced.status == 0 && replaced.out.contains("has new data of 7"), qPrintable(replaced.out));
        QCOMPARE(contentOf(out).count("<Profile "), 2);
        const Outcome streamed = run({"import", "-", "--profile", "7", "-o", "-"}, kTable);
        QVERIFY2(both.contains(streamed.out.section("-->", 1).section("</Profile>", 0, 0).toUtf8()),
                 qPrintable(streamed.out));
    }

    void archive()
    {
        const Folder folder;
        folder.write("description.xml", kDescription);
        QProcess zip;
        zip.setWorkingDirectory(folder.path(QString()));
        zip.start(LXCOLOR_CMAKE, {"-E", "tar", "cf", "fixture.gdtf", "--format=zip", "description.xml"});
        QVERIFY(zip.waitForFinished() && zip.exitCode() == 0);
        const QString out = folder.path("out.xml");
        const Outcome imported = run({"import", folder.path("fixture.gdtf"), "--profile", "7", "-o", out, "--json"});
        if (imported.err.contains("libzip"))
            QSKIP("built without libzip");
        QVERIFY2(ok(imported), qPrintable(imported.err));
        QCOMPARE(imported.json()["source"].toString(), QString("gdtf-archive"));
        QCOMPARE(imported.json()["unit"].toString(), QString("relative"));
        QCOMPARE(run({"import", folder.path("description.xml"), "--profile", "0", "-o", out}).status, 0);

        const QByteArray whole = folder.read("fixture.gdtf");
        for (int length = 4; length < whole.size(); length += 29)
            verifyRefused(run({"import", folder.write("cut.gdtf", whole.left(length)), "--profile", "7", "-o", out}),
                          {"cut.gdtf: The archive cannot be read"});
    }

    void refusals()
    {
        const Folder folder;
        const QString table = folder.write("bench.csv", kTable);
        const QString bad = folder.write("bad.csv", "name;x;y;Y (cd)\nRed;0,3;none;1\n");
        const QString out = folder.write("out.xml", "<Profiles>\n<Profile index='5'/></Profiles>\n");
        verifyRefused(run({"import", bad, "--profile", "7", "-o", folder.path("new.xml")}), {"bad.csv:2:9: \"none\""});
        QVERIFY(!QFile::exists(folder.path("new.xml")));
        verifyRefused(run({"import", table, "--profile", "7", "-o", out}), {"out.xml", "errors", "line 2"});
        QCOMPARE(contentOf(out), QByteArray("<Profiles>\n<Profile index='5'/></Profiles>\n"));
        verifyRefused(run({"import", table, "--profile", "6", "-o", out}), {"no emitter for White", "--channels"});
        verifyRefused(run({"import", table, "--profile", "4", "-o", out}), {"Single Channel"});
        verifyRefused(run({"import", table, "--profile", "7", "-o", out, "--unit", "W"}), {"bench.csv:1:1: ", "\"W\""});
        verifyRefused(run({"import", table, "--profile", "7"}), {"--output"});
        verifyRefused(run({"import", table, "--profile", "7", "-o", "-", "--json"}), {"--json", "OUT"});
        verifyRefused(run({"import", table, "-o", out}), {"--profile"});
        verifyRefused(run({"import", "--profile", "7", "-o", out}), {"one file"});
        verifyRefused(run({"import", folder.path("none.csv"), "--profile", "7", "-o", out}), {"none.csv"});
        QCOMPARE(run({"import", table, "--profile", "7", "-o", folder.path("no/folder.xml")}).status, 1);
    }
};

QTEST_APPLESS_MAIN(TestToolImport)
#include "tst_toolimport.moc"
