// What is wrong with documents, and that it is what the library's own readers make of them.
#include "DocumentChecker.h"
#include "LXColorLibrary.h"
#include "OrbisProjectHelper.h"
#include "Support.h"
#include "Tristimulus.h"
#include "TristimulusFactory.h"

#include <QBuffer>
#include <QDir>
#include <QDomDocument>
#include <QRegularExpression>

using Kind = DocumentChecker::Kind;
using Report = DocumentChecker::Report;

namespace {

const QString kData = LXCOLOR_SOURCE_DIR "/tests/data/";

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

Report check(QByteArray text)
{
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    return DocumentChecker::check(&buffer);
}

/// The findings as "line:column severity code".
QStringList findingsOf(const Report& report)
{
    QStringList all;
    for (const auto& finding : report.findings)
        all << QStringLiteral("%1:%2 %3 %4")
                   .arg(finding.line)
                   .arg(finding.column)
                   .arg(DocumentChecker::name(finding.severity), DocumentChecker::name(finding.code));
    return all;
}

int countOf(const char* tag, const QByteArray& text)
{
    return QString::fromLatin1(QByteArray(text).replace('\0', ""))
        .count(QRegularExpression(QString("<%1\\b").arg(tag)));
}

// ---- What the library's own readers do ----

constexpr int kFirst = -1;
constexpr int kLast = 10;

Tristimulus* recordOf(int profile)
{
    return TristimulusFactory::getInstance()->getTristimulus(static_cast<ColorUtils::TonematchProfileID>(profile),
                                                             ColorUtils::ConfigRGB);
}

/// The number of Profile elements of a database that have no effect; -1 for one that is not read to its end.
int droppedProfiles(QByteArray text)
{
    const QVector<double> untouched{-1.0};
    for (int profile = kFirst; profile <= kLast; ++profile)
        recordOf(profile)->setX(untouched);
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    const bool isRead = TristimulusFactory::getInstance()->parseXML(&buffer);
    int read = 0;
    for (int profile = kFirst; profile <= kLast; ++profile)
        read += recordOf(profile)->getX() != untouched ? 1 : 0;
    return isRead ? countOf("Profile", text) - read : -1;
}

/// The number of list and colour elements of a user colour file that do not arrive in the library.
int droppedFromFile(const QString& path, const QByteArray& text)
{
    LXColorLibrary::cleanup();
    LXColorLibrary* library = LXColorLibrary::Instance();
    library->init(false, true, true);
    const int listsBefore = library->rowCount(library->rootIndex());
    library->loadUserColors(path);
    const int lists = library->rowCount(library->rootIndex()) - listsBefore;
    int colors = 0;
    for (int row = 0; row < lists; ++row)
        colors += library->rowCount(library->index(listsBefore + row, 0, library->rootIndex()));
    LXColorLibrary::cleanup();
    return countOf("ColorLibrary", text) + countOf("Color", text) - lists - colors;
}

/// The number of colours in the lists of a project document that do not arrive among the project's swatches.
int droppedFromProject(const QByteArray& text)
{
    QDomDocument document;
    if (!document.setContent(text))
        return -1;
    int present = 0;
    const QDomNodeList lists = document.elementsByTagName("ColorLibrary");
    for (int i = 0; i < lists.size(); ++i)
        present += lists.at(i).toElement().elementsByTagName("Color").size();
    LXColorLibrary::cleanup();
    LXColorLibrary* library = LXColorLibrary::Instance();
    library->init(true, true, true);
    QString error;
    library->loadDocument(document, error, 1.0, ORBIS_APPLICATION_ID);
    const int read = library->rowCount(library->getIndexOfListId("Project Swatches"));
    LXColorLibrary::cleanup();
    return present - read;
}

} // namespace

class TestDocumentChecker : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void findings_data();
    void findings();
    void agreesWithTheReaders_data();
    void agreesWithTheReaders();
    void hostileInput_data();
    void hostileInput();
    void changesNothing();
    void sequentialAndMissingDevices();
    void manyFindings();
    void everyCodeIsDocumented();
};

void TestDocumentChecker::findings_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* file, const char* kind, const char* expected) {
        QTest::newRow(file) << QString(kind) << QString(expected);
    };
    row("documents/attribute-twice", "color-lists", "3:107 error not-well-formed");
    row("documents/blank", "unknown", "0:0 warning nothing");
    row("documents/color-in-group", "color-lists", "4:3 warning unknown-element; 5:5 error misplaced-element");
    row("documents/color-outside-list", "color-lists", "5:3 error misplaced-element");
    row("documents/control-character-in-a-tag", "color-lists", "3:9 error not-well-formed");
    row("documents/control-character", "color-lists", "3:17 warning replaced-text");
    row("documents/entities", "color-lists", "1:47 error entities");
    row("documents/good", "color-lists", "");
    row("documents/intensity-above-1", "color-lists", "4:3 warning value-range");
    row("documents/latin-1-undeclared", "color-lists", "3:17 warning replaced-text");
    row("documents/levels-and-layout", "color-lists", "4:3 warning channel-count");
    row("documents/list-empty", "color-lists", "2:2 note empty-list");
    row("documents/list-kind-missing", "color-lists", "2:2 note missing-attribute");
    row("documents/list-kind-unreadable", "color-lists", "2:2 warning unreadable-number");
    row("documents/list-name-missing", "color-lists", "2:2 warning missing-attribute");
    row("documents/lists-none", "color-lists", "0:0 note nothing");
    row("documents/name-missing", "color-lists", "3:3 warning missing-attribute");
    row("documents/not-closed", "color-lists", "4:19 error not-well-formed");
    row("documents/not-the-declared-encoding", "color-lists", "1:40 error encoding");
    row("documents/other-document", "unknown", "0:0 warning nothing");
    row("documents/outside-locus", "color-lists", "4:3 warning outside-locus");
    row("documents/project", "project", "");
    row("documents/text-after-the-end", "color-lists", "6:1 error not-well-formed");
    row("documents/too-many-attributes", "color-lists", "0:0 error too-many-attributes");
    row("documents/uid-missing", "color-lists", "3:3 note missing-attribute");
    row("documents/uid-twice-in-a-project", "project", "6:3 error duplicate-uid");
    row("documents/uid-twice", "color-lists", "4:3 warning duplicate-uid");
    row("documents/unknown-attribute", "color-lists", "3:3 warning unknown-attribute");
    row("documents/unknown-element", "color-lists", "5:2 warning unknown-element");
    row("documents/unknown-encoding", "color-lists", "1:40 error encoding");
    row("documents/unknown-profile", "color-lists", "4:3 warning unknown-profile");
    row("documents/utf-16", "color-lists", "");
    row("documents/value-missing", "color-lists", "4:3 error missing-attribute");
    row("documents/value-name", "color-lists", "4:3 note rewritten-value");
    row("documents/value-not-finite", "color-lists", "4:3 warning value-range");
    row("documents/value-old-profile", "color-lists", "4:3 note rewritten-value");
    row("documents/value-unreadable", "color-lists", "4:3 error unreadable-value");
    row("profiles/attribute-twice", "fixture-profiles", "4:57 warning not-well-formed");
    row("profiles/channel-index-gap", "fixture-profiles", "4:5 error channel-index");
    row("profiles/channel-index-missing", "fixture-profiles", "3:5 warning missing-attribute");
    row("profiles/channel-index-negative", "fixture-profiles", "4:5 error channel-index");
    row("profiles/channel-index-twice", "fixture-profiles", "4:5 warning channel-order");
    row("profiles/channel-name-missing", "fixture-profiles", "4:5 warning missing-attribute");
    row("profiles/channel-outside-profile", "fixture-profiles",
        "2:3 warning misplaced-element; 3:3 warning misplaced-element; 4:3 warning misplaced-element; 5:3 warning "
        "misplaced-element");
    row("profiles/channels-above-64", "fixture-profiles", "67:5 error too-many-channels");
    row("profiles/empty", "unknown", "0:0 warning nothing");
    row("profiles/entity-expansion", "fixture-profiles", "2:26 error entities");
    row("profiles/fewer-channels-than-the-layout", "fixture-profiles", "2:3 error channel-count");
    row("profiles/good", "fixture-profiles", "");
    row("profiles/latin-1-undeclared", "fixture-profiles", "4:22 warning replaced-text");
    row("profiles/more-channels-than-the-layout", "fixture-profiles", "2:3 warning channel-count");
    row("profiles/no-light", "fixture-profiles", "4:5 warning no-light");
    row("profiles/no-profile", "fixture-profiles", "0:0 warning nothing");
    row("profiles/not-closed", "fixture-profiles", "12:1 error not-well-formed");
    row("profiles/not-the-declared-encoding", "fixture-profiles", "1:40 error encoding");
    row("profiles/not-xml", "unknown", "1:1 error not-well-formed");
    row("profiles/other-root", "fixture-profiles", "1:1 warning unknown-element");
    row("profiles/outside-locus", "fixture-profiles", "4:5 warning outside-locus");
    row("profiles/profile-in-profile", "fixture-profiles", "7:3 error nested-profile");
    row("profiles/profile-index-10", "fixture-profiles", "2:3 warning unknown-profile");
    row("profiles/profile-index-above-10-and-no-channels", "fixture-profiles", "2:3 error profile-index");
    row("profiles/profile-index-above-10", "fixture-profiles", "2:3 error profile-index");
    row("profiles/profile-index-below-minus-1", "fixture-profiles", "2:3 error profile-index");
    row("profiles/profile-index-missing", "fixture-profiles", "2:3 warning missing-attribute");
    row("profiles/profile-index-unreadable", "fixture-profiles", "2:3 warning unreadable-number");
    row("profiles/profile-name-missing", "fixture-profiles", "2:3 note missing-attribute");
    row("profiles/profile-twice", "fixture-profiles", "7:3 error duplicate-profile");
    row("profiles/sum-overflows", "fixture-profiles", "5:5 error not-finite");
    row("profiles/tags-do-not-match", "fixture-profiles", "12:11 error not-well-formed");
    row("profiles/two-channels", "fixture-profiles", "2:3 error too-few-channels");
    row("profiles/unknown-attribute", "fixture-profiles", "4:5 warning unknown-attribute");
    row("profiles/unknown-element", "fixture-profiles", "4:5 warning unknown-element");
    row("profiles/unknown-encoding", "fixture-profiles", "1:40 warning encoding");
    row("profiles/value-infinite", "fixture-profiles", "5:5 error not-finite");
    row("profiles/value-missing", "fixture-profiles", "5:5 warning missing-attribute; 5:5 warning outside-locus");
    row("profiles/value-negative", "fixture-profiles", "5:5 warning negative-value");
    row("profiles/value-not-a-number", "fixture-profiles", "5:5 error not-finite");
    row("profiles/value-unreadable", "fixture-profiles", "4:5 warning unreadable-number; 4:5 warning outside-locus");
}

void TestDocumentChecker::findings()
{
    const Report report = check(contentOf(kData + QTest::currentDataTag() + ".xml"));
    Messages::take();
    QTEST(DocumentChecker::name(report.kind), "kind");
    QTEST(findingsOf(report).join("; "), "expected");
    for (const auto& finding : report.findings)
        QVERIFY2(!finding.text.contains(QRegularExpression("%\\d")) && finding.text.size() > 10,
                 qPrintable(finding.text));
}

void TestDocumentChecker::agreesWithTheReaders_data()
{
    QTest::addColumn<QString>("path");
    for (const char* folder : {"documents", "profiles"}) {
        const QFileInfoList files = QDir(kData + folder).entryInfoList(QDir::Files);
        QVERIFY(files.size() > 20);
        for (const QFileInfo& file : files)
            QTest::addRow("%s/%s", folder, qPrintable(file.completeBaseName())) << file.filePath();
    }
}

/// An error is what a reader does not take, one by one where it reads the file at all.
void TestDocumentChecker::agreesWithTheReaders()
{
    QFETCH(QString, path);
    const QByteArray text = contentOf(path);
    const Report report = check(text);
    int dropped = report.kind == Kind::FixtureProfiles ? droppedProfiles(text)
                  : report.kind == Kind::Project       ? droppedFromProject(text)
                                                       : droppedFromFile(path, text);
    bool isWhole = dropped >= 0;
    if (report.kind == Kind::Unknown && report.errors > 0) // No XML to begin with: no reader takes it.
        dropped = droppedProfiles(text);
    for (const auto& finding : report.findings)
        isWhole = isWhole && finding.code > DocumentChecker::Code::MoreFindings;
    Messages::take();
    QCOMPARE(report.errors > 0, dropped != 0);
    if (isWhole)
        QCOMPARE(report.errors, qint64(dropped));
}

void TestDocumentChecker::hostileInput_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("code");
    const auto repeated = [](const QByteArray& text, int count) { return text.repeated(count); };
    const QByteArray bomb = "<!DOCTYPE a [<!ENTITY a 'xxxxxxxxxx'><!ENTITY b '" + repeated("&a;", 1000) +
                            "'><!ENTITY c '" + repeated("&b;", 1000) + "'>]>";
    const QByteArray manyAttributes = [] {
        QByteArray tag = "<a";
        for (int i = 0; i < 60000; ++i)
            tag += " a" + QByteArray::number(i) + "=''";
        return tag + "/>";
    }();
    for (const QByteArray root : {"Profiles", "ColorLibraryList"}) {
        const bool isDatabase = root == "Profiles";
        const auto row = [&](const char* name, const QByteArray& content, const char* code, const char* databaseCode) {
            const QByteArray text = content.startsWith("<!DOCTYPE") ? content + "<" + root + ">&c;</" + root + ">"
                                                                    : "<" + root + ">" + content + "</" + root + ">";
            QTest::addRow("%s: %s", root.constData(), name) << text << QString(isDatabase ? databaseCode : code);
        };
        row("entities", bomb, "entities", "entities");
        row("100,000 levels", repeated("<a>", 100000) + repeated("</a>", 100000), "too-deep", "too-deep");
        row("100,000 levels, not closed", repeated("<a>", 100000), "too-deep", "too-deep");
        row("attribute", "<a b='" + repeated("x", 60000000) + "'/>", "too-large", "too-large");
        row("many attributes", manyAttributes, "too-many-attributes", "unknown-attribute");
        row("comment", "<!--" + repeated("<", 60000000) + "-->", "not-checked", "too-large");
        row("zeros", QByteArray(8000000, '\0'), "replaced-text", "too-large");
        row("no UTF-8", repeated("\xff\xfe\x80", 2000000), "replaced-text", "too-large");
        row("content model", "<!DOCTYPE a [<!ELEMENT a " + repeated("(", 100000) + "b" + repeated(")", 100000) + ">]>",
            "entities", "too-large");
        row("values", "<ColorLibrary name='a'>" + repeated("<Color value='x'/>", 100000) + "</ColorLibrary>",
            "unreadable-value", "too-large");
        row("more than 128 MiB", QByteArray(129 * 1024 * 1024, ' '), "too-large", "too-large");
    }
}

void TestDocumentChecker::hostileInput()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, code);
    if (QByteArray(QTest::currentDataTag()).contains("Profiles: many"))
        code = "unknown-element";
    const Report report = check(text);
    Messages::take();
    QStringList codes;
    for (const auto& finding : report.findings)
        codes << DocumentChecker::name(finding.code);
    QVERIFY2(codes.contains(code), qPrintable(codes.mid(0, 5).join(' ')));
}

void TestDocumentChecker::changesNothing()
{
    const QVector<double> before = recordOf(7)->getX();
    QCOMPARE(check(contentOf(kData + "profiles/good.xml")).errors, 0);
    QCOMPARE(recordOf(7)->getX(), before);
    QCOMPARE(Messages::takeTexts(), QStringList());
}

void TestDocumentChecker::sequentialAndMissingDevices()
{
    struct Pipe : QBuffer
    {
        bool isSequential() const override { return true; }
    } pipe;
    pipe.setData(contentOf(kData + "documents/value-missing.xml"));
    QCOMPARE(DocumentChecker::check(&pipe).findings.size(), 1); // closed: an empty document
    pipe.open(QIODevice::ReadOnly);
    QCOMPARE(findingsOf(DocumentChecker::check(&pipe)), QStringList("4:3 error missing-attribute"));
    QCOMPARE(findingsOf(DocumentChecker::check(nullptr)), QStringList("0:0 warning nothing"));
}

void TestDocumentChecker::manyFindings()
{
    const Report report =
        check("<ColorLibrary name='a' isUserLibrary='1'>\n" + QByteArray("<Color name='a' uid=''/>\n").repeated(5000) +
              "<Color name='a' uid='' value='red'/></ColorLibrary>");
    QCOMPARE(report.errors, 5000);
    QCOMPARE(report.notes, 1);
    QCOMPARE(report.findings.size(), DocumentChecker::mostFindings + 2); // the note, and how many more there are
    QVERIFY(report.findings.last().text.contains("4000"));
}

void TestDocumentChecker::everyCodeIsDocumented()
{
    const QByteArray document = contentOf(LXCOLOR_SOURCE_DIR "/docs/document-checks.md");
    for (int code = 0; code <= static_cast<int>(DocumentChecker::Code::EmptyList); ++code) {
        const QString name = DocumentChecker::name(static_cast<DocumentChecker::Code>(code));
        QVERIFY2(document.contains("`" + name.toLatin1() + "`"), qPrintable(name));
    }
}

QTEST_GUILESS_MAIN(TestDocumentChecker)
#include "tst_documentchecker.moc"
