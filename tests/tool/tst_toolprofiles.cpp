#include "ToolSupport.h"

#include <QDir>
#include <QTemporaryDir>

// The option --profiles, in every subcommand that has it.

namespace {

const QByteArray kRgb = "<Channel name='Crimson' index='0' X='6' Y='3' Z='1'/>"
                        "<Channel name='Lime' index='1' X='2' Y='7' Z='1'/>"
                        "<Channel name='Azure' index='2' X='1' Y='1' Z='8'/>";

QByteArray profile(int index, const QByteArray& channels)
{
    return "<Profile name='p' index='" + QByteArray::number(index) + "'>" + channels + "</Profile>";
}

QByteArray database(const QByteArray& content) { return "<Profiles>\n" + content + "</Profiles>\n"; }

QString firstEmitter(const QJsonArray& fixtures, int fixture)
{
    return fixtures.at(fixture).toObject().value("emitters").toArray().at(0).toObject().value("name").toString();
}

} // namespace

class TestToolProfiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_folder.isValid()); }
    void replacesEmitters()
    {
        // Equal energy, from emitters of which the blue one is the strongest in Z.
        const QString path = write(database(profile(7, kRgb)));
        const Outcome outcome =
            succeed(words("dmx|0.333333,0.333333|--fixture|7|--format|dec|--onboard-curve|0|--profiles") << path);
        // 6r + 2g + b = 3r + 7g + b = r + g + 8b gives r : g : b = 35 : 21 : 28.
        QCOMPARE(outcome.out, QString("255,153,204\n"));
        QVERIFY(run(words("convert|white|--to|nchannel|--fixture|7|--format|table|--profiles") << path)
                    .out.contains("Crimson      Lime     Azure"));
    }

    void databaseBesideTheProgramPlaysNoPart()
    {
        const QString copy = m_folder.filePath("bin/lxcolor");
        QVERIFY(QDir(m_folder.path()).mkdir("bin") && QFile::copy(program(), copy));
        writeFile(m_folder.filePath("FixtureProfiles.xml"), database(profile(0, kRgb) + profile(7, kRgb)));

        const auto fixturesOf = [&](const QStringList& options) {
            QProcess process;
            process.start(copy, QStringList{"fixtures", "--json"} + options);
            return QJsonDocument::fromJson(finish(process).out.toUtf8()).array();
        };
        const QJsonArray before = QJsonDocument::fromJson(run({"fixtures", "--json"}).out.toUtf8()).array();
        const QJsonArray withBeside = fixturesOf({});
        QCOMPARE(firstEmitter(withBeside, 0), QString("Crimson"));
        QCOMPARE(firstEmitter(withBeside, 7), QString("Crimson"));

        QByteArray scarlet = kRgb;
        const QJsonArray withFile =
            fixturesOf({"--profiles", write(database(profile(7, scarlet.replace("Crimson", "Scarlet"))))});
        QCOMPARE(firstEmitter(withFile, 7), QString("Scarlet"));
        for (int i = 0; i < before.size(); ++i)
            if (i != 7)
                QCOMPARE(withFile.at(i), before.at(i));
    }

    void everySubcommand_data()
    {
        QTest::addColumn<QStringList>("arguments");
        for (const char* arguments : {"fixtures", "dmx|red|--fixture|0", "convert|red|--to|yxy", "cct|--from|red",
                                      "mix|red|0.3,0.3|--ratio|0.5", "match|-|--fixture|7"})
            QTest::newRow(arguments) << words(arguments);
    }
    void everySubcommand()
    {
        QFETCH(QStringList, arguments);
        const QString missing = m_folder.filePath("missing.xml");
        verifyRefused(run(arguments + QStringList{"--profiles", missing}),
                      {"cannot read the fixture profiles", missing});
        const Outcome outcome = run(arguments + QStringList{"--profiles", write(database(profile(7, kRgb)))}, "red\n");
        QVERIFY2(ok(outcome) && !outcome.out.isEmpty(), qPrintable(outcome.err));
    }

    void refusals_data()
    {
        const Rows<QByteArray, QString> row;
        row("cut", database(profile(7, kRgb)).chopped(12), "line 2, column 193: unexpected end of file");
        row("index that no fixture has", database(profile(11, kRgb)),
            "a profile has an index that is not from -1 to 10");
        row("after one that is rejected", database(profile(7, "") + "</x>"), "line 2, column 42: tag mismatch");
    }
    void refusals()
    {
        const auto [content, reason] = fetched<QByteArray, QString>();
        const QString path = write(content);
        verifyRefused(run({"fixtures", "--profiles", path}), {'"' + path + "\": " + reason});
    }

    void warnings_data()
    {
        const Rows<QByteArray, QStringList> row;
        row("taken over", database(profile(7, kRgb)), QStringList());
        row("too few channels, and one that is taken over", database(profile(5, kRgb) + profile(7, kRgb)),
            QStringList("profile 5 \"p\" is rejected: it has 3 channels of at least 4"));
        row("no profile", database("<Fixture/>"), QStringList("there is no profile in it"));
    }
    void warnings()
    {
        auto [content, expected] = fetched<QByteArray, QStringList>();
        const QString path = write(content);
        for (QString& text : expected)
            text = "lxcolor: warning: \"" + path + "\": " + text + '\n';
        const Outcome outcome = run({"fixtures", "--json", "--profiles", path});
        QCOMPARE(outcome.status, 0);
        QCOMPARE(outcome.err, expected.join(QString()));
        const bool isReplaced = content.contains("index='7'");
        QCOMPARE(firstEmitter(QJsonDocument::fromJson(outcome.out.toUtf8()).array(), 7),
                 QString(isReplaced ? "Crimson" : "Red"));
    }

private:
    QString write(const QByteArray& content) const { return writeFile(m_folder.filePath("profiles.xml"), content); }

    QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(TestToolProfiles)
#include "tst_toolprofiles.moc"
