// What is wrong with documents, and that it is what the library's own readers make of them.
#include "DocumentChecker.h"
#include "Files.h"
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
int droppedFromFile(const QByteArray& text)
{
    const QString path = kData + QString(QTest::currentDataTag()) + ".xml";
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
    // tests/data/findings.txt names each file there, its kind, and what is found in it.
    void findings_data()
    {
        const Rows<QByteArray, QString, QString> row;
        QStringList named;
        QStringList present;
        for (const QByteArray& line : contentOf(kData + "findings.txt").trimmed().split('\n')) {
            const QStringList words = QString::fromUtf8(line).split(" |");
            named << words[0] + ".xml";
            row(words[0].toUtf8(), contentOf(kData + named.last()), words[1].trimmed(), words[2].trimmed());
        }
        for (const QString folder : {"documents/", "profiles/"})
            for (const QString& file : QDir(kData + folder).entryList(QDir::Files))
                present << folder + file;
        named.sort();
        present.sort();
        QCOMPARE(named, present);
    }
    void findings()
    {
        const auto [text, kind, expected] = fetched<QByteArray, QString, QString>();
        const Report report = check(text);
        Messages::take();
        QCOMPARE(DocumentChecker::name(report.kind), kind);
        QString found = findingsOf(report).join("; ");
        if (expected.startsWith("... ")) // only how it ends
            found = "... " + found.right(expected.size() - 4);
        QCOMPARE(found, expected);
        for (const auto& finding : report.findings)
            QVERIFY2(!finding.text.contains(QRegularExpression("%\\d")) && finding.text.size() > 10,
                     qPrintable(finding.text));
    }

    /// An error is what a reader does not take, one by one where it reads the file at all.
    void agreesWithTheReaders_data() { findings_data(); }
    void agreesWithTheReaders()
    {
        const QByteArray text = std::get<0>(fetched<QByteArray, QString, QString>());
        const Report report = check(text);
        int dropped = report.kind == Kind::FixtureProfiles ? droppedProfiles(text)
                      : report.kind == Kind::Project       ? droppedFromProject(text)
                                                           : droppedFromFile(text);
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

    // What is found when it is the content of colour lists, and when it is that of a database.
    void hostileInput_data()
    {
        const Rows<QByteArray, QString, QString> row;
        const auto repeated = [](const QByteArray& text, int count) { return text.repeated(count); };
        QByteArray attributes;
        for (int i = 0; i < 60000; ++i)
            attributes += " a" + QByteArray::number(i) + "=''";
        row("entities",
            "<!DOCTYPE a [<!ENTITY a 'xxxxxxxxxx'><!ENTITY b '" + repeated("&a;", 1000) + "'><!ENTITY c '" +
                repeated("&b;", 1000) + "'>]>",
            "entities", "entities");
        row("100,000 levels", repeated("<a>", 100000) + repeated("</a>", 100000), "too-deep", "too-deep");
        row("100,000 levels, not closed", repeated("<a>", 100000), "too-deep", "too-deep");
        row("attribute", "<a b='" + repeated("x", 60000000) + "'/>", "too-large", "too-large");
        row("many attributes", "<a" + attributes + "/>", "too-many-attributes", "unknown-element");
        row("comment", "<!--" + repeated("<", 60000000) + "-->", "not-checked", "too-large");
        row("zeros", QByteArray(8000000, '\0'), "replaced-text", "too-large");
        row("no UTF-8", repeated("\xff\xfe\x80", 2000000), "replaced-text", "too-large");
        row("content model", "<!DOCTYPE a [<!ELEMENT a " + repeated("(", 100000) + "b" + repeated(")", 100000) + ">]>",
            "entities", "too-large");
        row("values", "<ColorLibrary name='a'>" + repeated("<Color value='x'/>", 100000) + "</ColorLibrary>",
            "unreadable-value", "too-large");
        row("more than 128 MiB", QByteArray(129 * 1024 * 1024, ' '), "too-large", "too-large");
    }
    void hostileInput()
    {
        const auto [content, code, databaseCode] = fetched<QByteArray, QString, QString>();
        for (const QByteArray root : {"ColorLibraryList", "Profiles"}) {
            const Report report =
                check(content.startsWith("<!DOCTYPE") ? content + "<" + root + ">&c;</" + root + ">"
                                                      : "<" + root + ">" + content + "</" + root + ">");
            Messages::take();
            QStringList codes;
            for (const auto& finding : report.findings)
                codes << DocumentChecker::name(finding.code);
            QVERIFY2(codes.contains(root == "Profiles" ? databaseCode : code), qPrintable(codes.mid(0, 5).join(' ')));
        }
    }

    void changesNothing()
    {
        const QVector<double> before = recordOf(7)->getX();
        QCOMPARE(check(contentOf(kData + "profiles/good.xml")).errors, 0);
        QCOMPARE(recordOf(7)->getX(), before);
        QCOMPARE(Messages::takeTexts(), QStringList());
    }

    void sequentialAndMissingDevices()
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

    void manyFindings()
    {
        const Report report = check("<ColorLibrary name='a' isUserLibrary='1'>\n" +
                                    QByteArray("<Color name='a' uid=''/>\n").repeated(5000) +
                                    "<Color name='a' uid='' value='red'/></ColorLibrary>");
        QCOMPARE(report.errors, 5000);
        QCOMPARE(report.notes, 1);
        QCOMPARE(report.findings.size(), DocumentChecker::mostFindings + 2); // the note, and how many more there are
        QVERIFY(report.findings.last().text.contains("4000"));
    }

    void everyCodeIsDocumented()
    {
        const QByteArray document = contentOf(LXCOLOR_SOURCE_DIR "/docs/document-checks.md");
        for (int code = 0; code <= static_cast<int>(DocumentChecker::Code::EmptyList); ++code) {
            const QString name = DocumentChecker::name(static_cast<DocumentChecker::Code>(code));
            QVERIFY2(document.contains("`" + name.toLatin1() + "`"), qPrintable(name));
        }
    }
};

QTEST_GUILESS_MAIN(TestDocumentChecker)
#include "tst_documentchecker.moc"
