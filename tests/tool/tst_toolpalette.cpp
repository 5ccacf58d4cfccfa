// lxcolor palette: files from format to format, what is told of losses, and files that stay as they were.
#include "ToolSupport.h"

namespace {

const char kDocument[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<ColorLibraryList>\n"
                         " <ColorLibrary name=\"Gels &amp; whites\" isUserLibrary=\"1\">\n"
                         "  <Color name=\"a\" uid=\"{1}\" value=\"aRgb;1;0;#8000ff0000000000\""
                         " originatingPreset=\"\" colorId=\"\"/>\n"
                         "  <Color name=\"b\" uid=\"{2}\" value=\"aYxy;3;6;65535;0.800000;0.423400;0.399000\""
                         " originatingPreset=\"\" colorId=\"L 201\"/>\n"
                         " </ColorLibrary>\n</ColorLibraryList>\n";

class Folder
{
public:
    QString path(const QString& name) const { return m_folder.filePath(name); }
    QString write(const QString& name, const QByteArray& content) const
    {
        QFile file(path(name));
        return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() ? path(name) : QString();
    }
    QByteArray read(const QString& name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
    }

private:
    QTemporaryDir m_folder;
};

} // namespace

class TestToolPalette : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thereAndBack()
    {
        const Folder folder;
        const QString in = folder.write("in.lxcolors", kDocument);
        for (const char* suffix : {"gpl", "css", "csv", "xml"}) {
            const QString between = folder.path(QString("between.") + suffix);
            const Outcome there = run({"palette", "convert", in, between});
            QVERIFY2(ok(there) && there.out.isEmpty(), qPrintable(there.err));
            const Outcome back = run({"palette", "convert", between, folder.path("out"), "--to", "document"});
            QVERIFY2(ok(back), qPrintable(back.err));
            QCOMPARE(folder.read("out"), QByteArray(kDocument));
        }
        const QByteArray css = ":root { --loose: #010203 }\n" + folder.read("between.css");
        const Outcome streamed = run({"palette", "convert", "-", "-", "--from", "css", "--to", "csv"}, css);
        QVERIFY2(ok(streamed) && streamed.out.contains("{2}") && streamed.out.contains("\nPalette,loose,1,2,3,"),
                 qPrintable(streamed.err + streamed.out));
    }

    void lossesAreTold()
    {
        const Folder folder;
        const QString in = folder.write("in.xml", kDocument);
        const Outcome told = run({"palette", "convert", in, folder.path("out.ase")});
        QCOMPARE(told.status, 0);
        QCOMPARE(told.out, QString());
        QCOMPARE(told.err.count("lxcolor: warning: "), 5);
        QVERIFY2(told.err.contains("1 colour loses its alpha.") && told.err.contains("2 colours lose their uid."),
                 qPrintable(told.err));
        const Outcome json = run({"palette", "convert", in, folder.path("out.ase"), "--json"});
        QVERIFY2(ok(json), qPrintable(json.err));
        QCOMPARE(json.json()["colors"].toInt(), 2);
        const QJsonObject first = json.json()["writeRemarks"].toArray()[0].toObject();
        QCOMPARE(first["code"].toString(), QString("alpha"));
        QCOMPARE(first["count"].toInt(), 1);

        const Outcome shown = run({"palette", "show", folder.path("out.ase"), "--json"});
        QVERIFY2(ok(shown), qPrintable(shown.err));
        QCOMPARE(shown.json()["list"].toString(), QString("Gels & whites"));
        QCOMPARE(shown.json()["colors"].toArray()[0].toObject()["rgb"].toString(), QString("#ff0000"));
        QCOMPARE(run({"palette", "show", "-", "--from", "gpl"}, "GIMP Palette\n").out, "standard input: no colours\n");
        const Outcome table = run({"palette", "show", in});
        QVERIFY2(ok(table) && table.out.contains("aYxy;3;6;"), qPrintable(table.err + table.out));
    }

    void refusals()
    {
        const Folder folder;
        const QString bad = folder.write("bad.gpl", "GIMP Palette\n1 2 x\n");
        const QString cut = folder.write("cut.aco", QByteArray("\0\1\0\1", 4));
        const QString out = folder.write("out.css", "mine");
        verifyRefused(run({"palette", "convert", bad, out}), {"bad.gpl:2:5: A number from 0 to 255"});
        verifyRefused(run({"palette", "convert", cut, out}), {"cut.aco: byte 4: "});
        QCOMPARE(folder.read("out.css"), QByteArray("mine"));
        verifyRefused(run({"palette", "convert", bad, folder.path("out.txt")}), {"out.txt", "--to", "gpl, ase, aco"});
        verifyRefused(run({"palette", "convert", bad, out, "--from", "png"}), {"--from", "png"});
        verifyRefused(run({"palette", "convert", bad, out, "--json", "--format", "table"}), {"exclude"});
        verifyRefused(run({"palette", "convert", bad}), {"two files"});
        verifyRefused(run({"palette", "show"}), {"one file"});
        verifyRefused(run({"palette", "convert", "-", "a.gpl"}), {"--from is missing", "gpl, ase"});
        verifyRefused(run({"palette", "convert", bad, "-", "--to", "css", "--json"}), {"--json", "OUT"});
        verifyRefused(run({"palette", "show", "-", "--from", "gpl"}, "GIMP Palette\nx\n"), {"standard input:2:1: "});
        verifyRefused(run({"palette", "paint", bad}), {"paint", "convert, show"});
        verifyRefused(run({"palette", "show", folder.path("none.gpl")}), {"none.gpl"});
        const QString in = folder.write("in.xml", kDocument);
        QCOMPARE(run({"palette", "convert", in, folder.path("no/folder.gpl")}).status, 1);
    }
};

QTEST_APPLESS_MAIN(TestToolPalette)
#include "tst_toolpalette.moc"
