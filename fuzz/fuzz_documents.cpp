// Any bytes may be a user colour file, a preset file or a project document. The document check says exactly what the
// library does with them, what was loaded is saved and loads again, and what was not loaded is kept.
#include "DocumentChecker.h"
#include "FuzzLibrary.h"
#include "FuzzSupport.h"
#include "OrbisProjectHelper.h"

#include <QBuffer>
#include <QDomDocument>
#include <QFile>
#include <QXmlStreamReader>

#include <algorithm>

using Code = DocumentChecker::Code;
using Kind = DocumentChecker::Kind;
using Report = DocumentChecker::Report;

namespace {

Report check(QByteArray content)
{
    QBuffer buffer(&content);
    buffer.open(QIODevice::ReadOnly);
    return DocumentChecker::check(&buffer);
}

QString textOf(const Report& report)
{
    QString text = DocumentChecker::name(report.kind);
    for (const auto& finding : report.findings)
        text += QStringLiteral("\n%1:%2 %3 %4")
                    .arg(finding.line)
                    .arg(finding.column)
                    .arg(DocumentChecker::name(finding.severity), finding.text);
    return text + '\n';
}

/// Whether some finding concerns the file as a whole.
bool concernsFile(const Report& report)
{
    return std::any_of(report.findings.cbegin(), report.findings.cend(),
                       [](const auto& finding) { return finding.code <= Code::MoreFindings; });
}

/// The lists and colours of a text, loadable or not.
struct Count
{
    int lists = 0, colors = 0;
};

Count countIn(const QByteArray& content)
{
    Count count;
    QXmlStreamReader xml(content);
    xml.setNamespaceProcessing(false);
    while (!xml.atEnd()) {
        xml.readNext();
        const QString name = xml.isStartElement() ? xml.qualifiedName().toString().section(':', -1) : QString();
        count.lists += name == QLatin1String("ColorLibrary") ? 1 : 0;
        count.colors += name == QLatin1String("Color") ? 1 : 0;
    }
    return count;
}

Count countOf(const QVector<List>& lists)
{
    Count count;
    count.lists = lists.size();
    for (const List& list : lists)
        count.colors += list.entries.size();
    return count;
}

void compareWithFile(const Report& report, const QByteArray& content, const QVector<List>& loaded)
{
    const Count arrived = countOf(loaded);
    const QString details = textOf(report) + textOf(loaded);
    if (report.kind != Kind::ColorLists && report.kind != Kind::Project) {
        require(report.kind == Kind::FixtureProfiles || arrived.lists == 0, "what is no list is not loaded", details);
        return;
    }
    const bool isRefused = std::any_of(report.findings.cbegin(), report.findings.cend(), [](const auto& finding) {
        return finding.code <= Code::MoreFindings && finding.severity == DocumentChecker::Severity::Error;
    });
    require(!isRefused || arrived.lists == 0, "a file with a fault is not loaded", details);
    if (concernsFile(report) || report.kind == Kind::Project)
        return;
    const Count present = countIn(content);
    require(arrived.lists == present.lists, "every list is loaded", details);
    require(report.errors == present.colors - arrived.colors, "an error is a colour that is not loaded", details);
}

bool isInList(const QDomElement& element)
{
    for (QDomNode parent = element.parentNode(); !parent.isNull(); parent = parent.parentNode()) {
        if (parent.nodeName() == QLatin1String("ColorLibrary"))
            return true;
    }
    return false;
}

/// The project's swatches after they were written into a document and read from it.
List writeAndRead(LXColorLibrary& library, const QModelIndex& swatches)
{
    QDomDocument written;
    bool ok = false;
    written.appendChild(library.createElement(written, ok, ORBIS_APPLICATION_ID));
    QString error;
    require(ok && library.loadDocument(written, error, 1.0, ORBIS_APPLICATION_ID), "a project is written and read");
    List list{QStringLiteral("Project Swatches"), false, {}};
    for (int row = 0; row < library.rowCount(swatches); ++row)
        list.entries.append(entryOf(library.index(row, 0, swatches)));
    return list;
}

/// The document as the host of a project reads it: as a DOM, without namespaces.
void compareWithProject(const Report& report, const QByteArray& content)
{
    QDomDocument document;
    if (!document.setContent(content))
        return;
    LXColorLibrary* library = freshLibrary(false);
    QString error;
    require(library->loadDocument(document, error, 1.0, ORBIS_APPLICATION_ID), "a document is read");
    const QModelIndex swatches = library->getIndexOfListId(QStringLiteral("Project Swatches"));
    const int arrived = library->rowCount(swatches);

    const QDomNodeList colors = document.elementsByTagName(QStringLiteral("Color"));
    int present = 0;
    for (int i = 0; i < colors.size(); ++i)
        present += isInList(colors.at(i).toElement()) ? 1 : 0;
    const bool hasPrefixes = content.contains(":Color");
    if (report.kind == Kind::Project && !concernsFile(report) && !hasPrefixes)
        require(report.errors == present - arrived, "an error is a colour that is not among the project's",
                textOf(report) + QString::number(present) + ' ' + QString::number(arrived));

    // Characters that a document cannot hold are others after the first round.
    const List first = writeAndRead(*library, swatches);
    require(first.entries.size() == arrived, "no colour of a project is lost", textOf(QVector<List>{first}));
    const List second = writeAndRead(*library, swatches);
    require(areSame({first}, {second}), "a project comes back", textOf(QVector<List>{first, second}));
}

/// Every list that was loaded is in the file after a save; all else is beside it.
void saveAndLoadAgain(const Report& report, const QByteArray& content)
{
    forgetUserColors();
    writeFile(userColorsPath(), content);
    LXColorLibrary* library = freshLibrary(true);
    const QVector<List> loaded = listsOf(*library);
    library->createColorList(QStringLiteral("Added"), true);
    const QVector<List> saved = userListsOf(*library);
    const bool isKept = QFile::exists(userColorsPath() + QStringLiteral(".kept"));
    const Report ofSaved = check(contentOf(userColorsPath()));
    require(ofSaved.errors == 0 && ofSaved.kind == Kind::ColorLists, "the saved file has no errors", textOf(ofSaved));
    library = freshLibrary(true);
    require(areSame(userListsOf(*library), saved), "what was saved is loaded",
            textOf(saved) + textOf(userListsOf(*library)));
    const bool isLossless = saved.size() == loaded.size() + 1 && report.errors == 0;
    require(isLossless || isKept, "what was not loaded is kept", textOf(report));
    require(!isKept || contentOf(userColorsPath() + QStringLiteral(".kept")) == content, "it is kept as it was");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray content(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const Report report = check(content);
    const QString path = scratchFolder() + QStringLiteral("/document.xml");
    writeFile(path, content);
    LXColorLibrary* library = freshLibrary(false);
    library->loadUserColors(path);
    compareWithFile(report, content, listsOf(*library));
    compareWithProject(report, content);
    saveAndLoadAgain(report, content);
    LXColorLibrary::cleanup();
    return 0;
}
