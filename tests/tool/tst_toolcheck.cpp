// lxcolor check: findings by place, the exit status, and what cannot be read.
#include "ToolSupport.h"

namespace {

const QByteArray kDuplicate = "<show><ColorLibrary name='a' isUserLibrary='0'>\n"
                              "<Color name='r' uid='{1}' value='#ff0000'/>\n"
                              "  <Color name='s' uid='{2}' value='nothing'/></ColorLibrary></show>";

QString data(const char* name) { return QStringLiteral(LXCOLOR_SOURCE_DIR "/tests/data/") + name; }

} // namespace

class TestToolCheck : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shippedFilesAreGood()
    {
        const QString resources = QStringLiteral(LXCOLOR_SOURCE_DIR "/LXColor/resources/");
        QStringList arguments{"check", resources + "FixtureProfiles.xml"};
        for (const QString& name : QDir(resources + "Presets").entryList(QDir::Files))
            arguments << resources + "Presets/" + name;
        QVERIFY(arguments.size() > 3);
        const Outcome outcome = run(arguments);
        QCOMPARE(outcome.out, QString());
        QCOMPARE(outcome.err,
                 QString("lxcolor: 0 errors, 0 warnings, 0 notes in %1 files\n").arg(arguments.size() - 1));
        QCOMPARE(outcome.status, 0);
    }

    void text()
    {
        const QString gap = data("profiles/channel-index-gap.xml");
        const QString name = data("documents/name-missing.xml");
        const Outcome outcome = run({"check", gap, name});
        QCOMPARE(outcome.lines().size(), 2);
        QVERIFY2(outcome.lines()[0].startsWith(gap + ":4:5: error: ") &&
                     outcome.lines()[0].endsWith(" [channel-index]"),
                 qPrintable(outcome.out));
        QVERIFY2(outcome.lines()[1].startsWith(name + ":3:3: warning: "), qPrintable(outcome.out));
        QCOMPARE(outcome.err, QString("lxcolor: 1 error, 1 warning, 0 notes in 2 files\n"));
        QCOMPARE(outcome.status, 1);
        QCOMPARE(run({"check", name}).status, 0);
    }

    void jsonOfStandardInput()
    {
        const Outcome outcome = run({"check", "-", "--json"}, kDuplicate);
        QCOMPARE(outcome.status, 1);
        QCOMPARE(outcome.lines().size(), 1);
        const QJsonObject file = outcome.json();
        QCOMPARE(file["file"].toString(), QString("standard input"));
        QCOMPARE(file["kind"].toString(), QString("project"));
        QCOMPARE(file["errors"].toInt(), 1);
        QCOMPARE(file["notes"].toInt(), 1);
        const QJsonObject finding = file["findings"].toArray()[1].toObject();
        QCOMPARE(finding["severity"].toString(), QString("error"));
        QCOMPARE(finding["code"].toString(), QString("unreadable-value"));
        QCOMPARE(finding["line"].toInt(), 3);
        QCOMPARE(finding["column"].toInt(), 3);
        QVERIFY(finding["sentence"].toString().contains("\"nothing\""));
        const QJsonObject blank = run({"check", "--json", data("documents/blank.xml")}).json();
        QVERIFY(blank["findings"].toArray()[0].toObject()["line"].isNull());
    }

    void refusals()
    {
        verifyRefused(run({"check", data("documents/name-missing.xml"), data("none.xml")}),
                      {"none.xml", "No such file"});
        verifyRefused(run({"check", data("documents")}), {"documents"});
        verifyRefused(run({"check", "--format", "table", data("documents/good.xml")}), {"text, json"});
    }
};

QTEST_APPLESS_MAIN(TestToolCheck)
#include "tst_toolcheck.moc"
