#include "EmitterRecords.h"
#include "LXColor.h"
#include "ProfileHandler.h"
#include "Support.h"
#include "ToneMatchProfile.h"
#include "TonematchProfileFactory.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QXmlAttributes>

#include <cstdio>

using CU = ColorUtils;

Q_DECLARE_METATYPE(QSet<int>)

namespace {

const QString kSources = LXCOLOR_SOURCE_DIR;
const QString kNoDatabase = "could not open tonematch profile database";

bool parse(QByteArray text)
{
    QBuffer buffer(&text);
    return buffer.open(QIODevice::ReadOnly) && TristimulusFactory::getInstance()->parseXML(&buffer);
}

/// The messages but for the values of accepted profiles.
QStringList complaints() { return Messages::takeTexts().filter(QRegularExpression("^(?!QVector)")); }

QByteArray rgbChannels(const char* scale = "")
{
    return QByteArray("<Channel name='R' index='0' X='6' Y='3' Z='0'/><Channel name='G' index='1' X='2' Y='8' Z='1'/>"
                      "<Channel name='B' index='2' X='1' Y='1' Z='9S'/>")
        .replace("S", scale);
}

QByteArray profile(const char* index, const QByteArray& channels)
{
    return QByteArray("<Profile name='p' index='") + index + "'>" + channels + "</Profile>";
}

QByteArray database(const QByteArray& content) { return "<Profiles>" + content + "</Profiles>"; }

QXmlAttributes attributes(std::initializer_list<std::pair<const char*, const char*>> pairs)
{
    QXmlAttributes result;
    for (const auto& pair : pairs)
        result.append(pair.first, QString(), pair.first, pair.second);
    return result;
}

} // namespace

class TestDatabase : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void rewritesARecordInPlace()
    {
        const EmitterRecords records;
        ToneMatchProfile* fixture = TonematchProfileFactory::instance()->getProfile(CU::ProfileWashLineQP6RGBA);
        Tristimulus* record = fixture->getTristimulus();
        const LXColor light = LXColor::fromxyY(0.4, 0.35, 0.8, CU::ProfileGenericRGB);
        const LXColor before = light.toNChannel16(CU::ConfigRGBA, CU::ProfileWashLineQP6RGBA, 0);

        QVERIFY(record->inside(0.5, 0.25));
        QVERIFY(parse(database(profile("5", rgbChannels() + "<Channel name='Ambre' index='3' X='5' Y='4' Z='0'/>"))));
        QCOMPARE(Messages::takeTexts(),
                 QStringList({"QVector(6, 2, 1, 5)", "QVector(3, 8, 1, 4)", "QVector(0, 1, 9, 0)"}));
        QCOMPARE(fixture->getTristimulus(), record);
        QCOMPARE(fixture->getChannelNames(), QStringList({"R", "G", "B", "Ambre"}));
        QCOMPARE(record->getZ(), QVector<double>({0, 1, 9, 0}));
        QVERIFY(record->inside(0.5, 0.35) && !record->inside(0.5, 0.25));
        const LXColor after = light.toNChannel16(CU::ConfigRGBA, CU::ProfileWashLineQP6RGBA, 0);
        QVERIFY(after != before);
        const LXColor shown = after.toYxy(CU::ConfigUnknown, CU::ProfileNone, 0);
        QVERIFY(std::fabs(shown.getx() - 0.4) < 1e-4 && std::fabs(shown.gety() - 0.35) < 1e-4);
        QCOMPARE(records.rewritten(), QSet<int>({5}));
    }

    void acceptedForms_data()
    {
        const Rows<QByteArray, QSet<int>, QVector<double>> row;
        const QByteArray rgb = rgbChannels();
        const QVector<double> Z = {0, 1, 9};
        row("records without a fixture", database(profile("-1", rgb) + profile("10", rgb)), {-1, 10}, Z);
        row("no index is profile 0", database("<Profile>" + rgb + "</Profile>"), {0}, Z);
        row("unreadable index is profile 0", database(profile("7a", rgb)), {0}, Z);
        row("the last of an index wins", database(profile("7", rgb) + profile("7", rgbChannels("0"))), {7}, {0, 1, 90});
        row("exponent", database(profile("7", rgbChannels("e+2"))), {7}, {0, 1, 900});
        row("unreadable value is 0", database(profile("7", rgbChannels(",5"))), {7}, {0, 1, 0});
        row("each at the front", database(profile("7", QByteArray(rgb).replace("index", "no"))), {7}, {9, 1, 0});
        row("more channels than the layout", database(profile("7", rgb + "<Channel index='3' Z='4'/>")), {7},
            {0, 1, 9, 4});
        row("elements and text between",
            database("a<b index='9'>" + profile("7", "t<c>" + rgb + "</c>") + "</b><profile/>"), {7}, Z);
        row("other names are other elements",
            database(profile("7", rgb + "<x:Channel index='9'/><channel index='9'/>")), {7}, Z);
        row("type declaration without content", "<!DOCTYPE Profiles>" + database(profile("7", rgb)), {7}, Z);
        row("external type declaration", "<!DOCTYPE Profiles SYSTEM 'p.dtd'>" + database(profile("7", rgb)), {7}, Z);
        row("nothing in it", database(""), {}, {});
    }
    void acceptedForms()
    {
        const auto [text, rewritten, Z] = fetched<QByteArray, QSet<int>, QVector<double>>();
        const EmitterRecords records;
        QVERIFY(parse(text));
        QCOMPARE(complaints(), QStringList());
        QCOMPARE(records.rewritten(), rewritten);
        for (const int profile : rewritten)
            QCOMPARE(recordOf(profile)->getZ(), Z);
    }

    void badFiles_data()
    {
        const Rows<bool, bool, QString> row;
        const auto rejected = [&row](const char* file, const char* reason) {
            row(file, true, true, qPrintable(QString("profile \\d \"broken\" is rejected: %1").arg(reason)));
        };
        rejected("two-channels", "it has 2 channels of at least 3");
        rejected("fewer-channels-than-the-layout", "it has 3 channels of at least 4");
        rejected("channel-index-gap", "channel index 2 does not follow the 1 before it");
        rejected("channel-index-negative", "channel index -1 does not follow the 1 before it");
        rejected("value-not-a-number", "its values or their sum are not finite");
        rejected("value-infinite", "its values or their sum are not finite");
        rejected("sum-overflows", "its values or their sum are not finite");
        rejected("profile-in-profile", "another profile begins inside it");
        row("channel-outside-profile", true, true, "");
        row("profile-index-above-10", false, false, "^invalid profile definition$");
        row("profile-index-below-minus-1", false, false, "^invalid profile definition$");
        row("profile-index-above-10-and-no-channels", false, false, "^invalid profile definition$");
        row("not-closed", false, true, "line 12, column 1: unexpected end of file");
        row("tags-do-not-match", false, true, "line 12, column \\d+: tag mismatch");
        row("entity-expansion", false, false, "entity \"a\" is declared");
        row("not-the-declared-encoding", false, false, "line 1, column 1: ");
        row("not-xml", false, false, "line 1, column 1: ");
        row("empty", false, false, "unexpected end of file");
    }
    void badFiles()
    {
        const auto [readToTheEnd, profile7Rewritten, complaint] = fetched<bool, bool, QString>();
        const EmitterRecords records;
        QFile file(QString(kSources + "/tests/data/profiles/%1.xml").arg(QTest::currentDataTag()));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(TristimulusFactory::getInstance()->parseXML(&file), readToTheEnd);
        const QStringList said = complaints();
        QCOMPARE(said.size(), complaint.isEmpty() ? 0 : 1);
        if (!said.isEmpty())
            QVERIFY2(QRegularExpression(complaint).match(said.first()).hasMatch(), qPrintable(said.first()));
        QCOMPARE(records.rewritten(), profile7Rewritten ? QSet<int>({7}) : QSet<int>());
    }

    void hugeInput_data()
    {
        const Rows<QByteArray, QString> row;
        const auto repeated = [](const char* text, int count) { return QByteArray(text).repeated(count); };
        const QString tooLong = "longer than 1048576 characters, or than 1024 in its document type declaration";
        row("deep elements", database(repeated("<a>", 100000) + repeated("</a>", 100000)), "nested deeper than 64");
        row("deep elements, not closed", repeated("<a>", 100000), "nested deeper than 64");
        row("attribute", database("<Profile name='" + repeated("x", 5000000) + "'/>"), tooLong);
        row("one long entity, often",
            "<!DOCTYPE P [<!ENTITY a '" + repeated("x", 900) + "'>]>" + database(repeated("&a;", 300000)),
            "entity \"a\" is declared");
        row("deep content model",
            "<!DOCTYPE P [<!ELEMENT P " + repeated("(", 500000) + "a" + repeated(")", 500000) + ">]>" + database(""),
            tooLong);
        row("many channels", database(profile("7", repeated("<Channel/>", 100000))), "more than 64 channels");
    }
    void hugeInput()
    {
        const auto [text, complaint] = fetched<QByteArray, QString>();
        const EmitterRecords records;
        parse(text);
        const QStringList said = complaints();
        QVERIFY2(said.value(0).contains(complaint), qPrintable(said.value(0).left(200)));
        QCOMPARE(records.rewritten(), QSet<int>());
    }

    // A reader promises matching elements; other callers of the handler need not.
    void handlerAlone()
    {
        const EmitterRecords records;
        const QXmlAttributes none;
        ProfileHandler handler;
        QVERIFY(handler.endElement("", "", "Profile"));
        QVERIFY(handler.startElement("", "", "Channel", attributes({{"index", "0"}})));
        QVERIFY(handler.characters("text"));
        QVERIFY(handler.fatalError(QXmlParseException("a fault", 3, 4)));
        QCOMPARE(Messages::takeTexts(), QStringList("fixture profile database: line 4, column 3: a fault"));
        QCOMPARE(handler.errorString(), QString());

        // A profile ends once, and a new document forgets what the last one left open.
        for (int i = 0; i < 2; ++i) {
            QVERIFY(handler.startDocument());
            QVERIFY(handler.startElement("", "", "Profile", attributes({{"index", "7"}})));
            for (const char* index : {"0", "1", "2"})
                QVERIFY(handler.startElement("", "", "Channel", attributes({{"index", index}, {"Y", "2.5"}})));
        }
        QVERIFY(handler.endElement("", "", "Profile"));
        QCOMPARE(Messages::take().size(), 3);
        QVERIFY(handler.endElement("", "", "Profile"));
        QCOMPARE(recordOf(7)->getY(), QVector<double>(3, 2.5));
        QCOMPARE(records.rewritten(), QSet<int>({7}));
        QVERIFY(!TristimulusFactory::getInstance()->parseXML(nullptr));
    }

    void sampleDatabase()
    {
        const EmitterRecords records;
        const QDir resources(kSources + "/LXColor/resources");
        QFile file(resources.filePath("FixtureProfiles.xml"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(TristimulusFactory::getInstance()->parseXML(&file));
        QCOMPARE(complaints(), QStringList());
        QCOMPARE(records.rewritten(), QSet<int>({5, 7}));
        for (const int profile : {5, 7})
            QVERIFY(recordOf(profile)->inside(0.3127, 0.3290));

        const QString xmllint = QStandardPaths::findExecutable("xmllint");
        if (xmllint.isEmpty())
            QSKIP("xmllint is not installed; the sample is not held against its schema");
        QProcess check;
        check.start(xmllint,
                    {"--nonet", "--noout", "--schema", resources.filePath("FixtureProfiles.xsd"), file.fileName()});
        QVERIFY(check.waitForFinished());
        QVERIFY2(check.exitCode() == 0, check.readAllStandardError().constData());
    }

    void besideTheApplication_data()
    {
        QTest::addColumn<bool>("isThere");
        for (const bool isThere : {true, false})
            for (const char* first : {"emitters", "profiles", "colour"})
                QTest::addRow("%s first, %s", first, isThere ? "a database" : "none") << isThere;
    }
    // In a process of its own, started from a folder beside whose parent a database lies.
    void besideTheApplication()
    {
        QFETCH(bool, isThere);
        const QTemporaryDir folder;
        const QString program = folder.filePath("bin/program");
        QVERIFY(QDir(folder.path()).mkdir("bin") && QFile::copy(QCoreApplication::applicationFilePath(), program));
        if (isThere)
            QVERIFY(QFile::copy(kSources + "/LXColor/resources/FixtureProfiles.xml",
                                folder.filePath("FixtureProfiles.xml")));
        QProcess process;
        process.start(program, {"--first-touch", QString(QTest::currentDataTag()).section(' ', 0, 0)});
        QVERIFY2(process.waitForFinished(), qPrintable(process.errorString()));
        QCOMPARE(process.exitCode(), 0);
        QCOMPARE(QString(process.readAllStandardOutput()), QString(isThere ? "332.6203 212.5807 Red Green Blue Amber"
                                                                           : "490.1758 442.9544 Red Green Blue Amber"));
        QCOMPARE(QString(process.readAllStandardError()).contains(kNoDatabase), !isThere);
    }
};

/// Wakes one of the registries first, and prints what then came to be in the records of profiles 5 and 7.
static int firstTouch(const QString& first)
{
    if (first == "emitters")
        TristimulusFactory::getInstance();
    else if (first == "profiles")
        TonematchProfileFactory::instance();
    else
        LXColor(Qt::red).toYxy(CU::ConfigUnknown, CU::ProfileWashLineQP6RGBA, -1);
    const auto names = TonematchProfileFactory::instance()->getProfile(CU::ProfileWashLineQP6RGBA)->getChannelNames();
    std::printf("%.4f %.4f %s", recordOf(5)->getX().value(0), recordOf(7)->getX().value(0),
                qPrintable(names.join(" ")));
    return 0;
}

int main(int argc, char** argv)
{
    const QCoreApplication app(argc, argv);
    if (app.arguments().value(1) == "--first-touch")
        return firstTouch(app.arguments().value(2));
    TestDatabase test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_database.moc"
