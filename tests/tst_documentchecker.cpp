// What is wrong with documents. That it is what the library's own readers make of the same files, the fuzz targets for
// documents and fixture profiles assert in their replays.
#include "DocumentChecker.h"
#include "Files.h"
#include "Support.h"
#include "Tristimulus.h"
#include "TristimulusFactory.h"

#include <QBuffer>
#include <QDir>
#include <QRegularExpression>

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
        Tristimulus* record =
            TristimulusFactory::getInstance()->getTristimulus(ColorUtils::ProfilePixelNodeRGB, ColorUtils::ConfigRGB);
        const QVector<double> before = record->getX();
        QCOMPARE(check(contentOf(kData + "profiles/good.xml")).errors, 0);
        QCOMPARE(record->getX(), before);
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
