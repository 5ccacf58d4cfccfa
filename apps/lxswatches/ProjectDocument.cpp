#include "ProjectDocument.h"

#include "LXColor.h"
#include "LXColorLibrary.h"
#include "OrbisProjectHelper.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QSaveFile>
#include <QSet>
#include <QTextCodec>
#include <QTextStream>
#include <QUuid>
#include <QVector>
#include <QXmlInputSource>
#include <QXmlSimpleReader>
#include <QXmlStreamReader>

namespace {

const QLatin1String kListTag("ColorLibrary");
const QLatin1String kColorTag("Color");
const QLatin1String kUid("uid");
constexpr int kDeepestElement = 256; // the document model is built by functions that call themselves
constexpr double kCurrentVersion = 1.0;

QString native(const QString& path) { return QDir::toNativeSeparators(path); }

/// Where and why a text is no XML that can be taken, or nothing.
QString faultOf(const QByteArray& bytes)
{
    QXmlStreamReader reader(bytes);
    int depth = 0;
    while (!reader.atEnd()) {
        reader.readNext();
        QString what;
        depth += reader.isStartElement() ? 1 : reader.isEndElement() ? -1 : 0;
        if (depth > kDeepestElement)
            what = ProjectDocument::tr("elements are nested too deeply");
        else if (reader.isEntityReference() || (reader.isDTD() && !reader.entityDeclarations().isEmpty()))
            what = ProjectDocument::tr("entities are not supported");
        else if (reader.isDTD() && reader.text().contains(QLatin1Char('[')))
            what = ProjectDocument::tr("declarations of a document type are not supported");
        else if (reader.hasError())
            what = reader.errorString();
        if (!what.isEmpty())
            return ProjectDocument::tr("line %1, column %2: %3")
                .arg(reader.lineNumber())
                .arg(reader.columnNumber())
                .arg(what);
    }
    return {};
}

/// A processing instruction is written with an end of line, so the one that follows it is left out.
void dropLineEndsOfInstructions(const QDomNode& parent)
{
    for (QDomNode node = parent.firstChild(); !node.isNull(); node = node.nextSibling()) {
        QDomNode next = node.nextSibling();
        if (node.isProcessingInstruction() && next.isText() && next.nodeValue().startsWith(QLatin1Char('\n')))
            next.setNodeValue(next.nodeValue().mid(1));
        dropLineEndsOfInstructions(node);
    }
}

/// The text with what QXmlSimpleReader does not do: line ends of other systems become "\n", and references to
/// characters beyond U+FFFF, of which it would keep 16 bits, become these characters.
QString preparedText(const QByteArray& bytes)
{
    static const QRegularExpression reference(
        QStringLiteral("<!--.*?-->|<!\\[CDATA\\[.*?\\]\\]>|&#(?:x([0-9a-fA-F]+)|([0-9]+));"),
        QRegularExpression::DotMatchesEverythingOption);
    QXmlInputSource source;
    source.setData(bytes);
    QString text = source.data();
    text.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(QLatin1Char('\r'), QLatin1Char('\n'));

    QString prepared;
    int done = 0;
    auto matches = reference.globalMatch(text);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        const uint character =
            match.captured(1).isEmpty() ? match.captured(2).toUInt() : match.captured(1).toUInt(nullptr, 16);
        if (character <= 0xffff || character > QChar::LastValidCodePoint)
            continue;
        prepared += text.midRef(done, match.capturedStart() - done);
        prepared += QString::fromUcs4(&character, 1);
        done = match.capturedEnd();
    }
    return prepared + text.midRef(done);
}

/// As it stands, with the white space between elements.
bool parse(QDomDocument& document, const QByteArray& bytes)
{
    QXmlInputSource source;
    source.setData(preparedText(bytes));
    QXmlSimpleReader reader;
    reader.setFeature(QStringLiteral("http://qt-project.org/xml/features/report-whitespace-only-CharData"), true);
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED // The other overloads leave white space out.
        const bool isParsed = document.setContent(&source, &reader);
    QT_WARNING_POP
    dropLineEndsOfInstructions(document);
    return isParsed;
}

double versionOf(const QDomDocument& document)
{
    bool isNumber = false;
    const double version = document.documentElement().attribute(QStringLiteral("version")).toDouble(&isNumber);
    return isNumber ? version : kCurrentVersion;
}

QVector<QDomElement> children(const QDomElement& parent, const QString& tag)
{
    QVector<QDomElement> elements;
    for (QDomElement e = parent.firstChildElement(tag); !e.isNull(); e = e.nextSiblingElement(tag))
        elements.append(e);
    return elements;
}

/// Whether the library has taken a colour element over, so that it is the library's to say what becomes of it.
bool isTakenOver(const QDomElement& color)
{
    const QString value = color.attribute(QStringLiteral("value"));
    return !value.isEmpty() && LXColor(value).isValid();
}

/// A colour without a uid gets one, and so does one that shares its uid, as the library would do: by these each is
/// found again.
void giveUids(const QDomDocument& document)
{
    QSet<QString> taken;
    const QDomNodeList lists = document.elementsByTagName(kListTag);
    for (int i = 0; i < lists.size(); ++i) {
        for (QDomElement color : children(lists.at(i).toElement(), kColorTag)) {
            if (!isTakenOver(color))
                continue;
            if (color.attribute(kUid).isEmpty() || taken.contains(color.attribute(kUid)))
                color.setAttribute(kUid, QUuid::createUuid().toString());
            taken.insert(color.attribute(kUid));
        }
    }
}

/// In encodings other than those of Unicode QDomDocument writes characters beyond U+FFFF in two halves by their
/// numbers, which nobody can read.
void makeUtf8WhereNeeded(const QDomDocument& document)
{
    static const QRegularExpression half(QStringLiteral("&#xd[89a-f][0-9a-f]{2};"));
    static const QRegularExpression encoding(QStringLiteral("encoding\\s*=\\s*[\"'][^\"']*[\"']"));
    QDomProcessingInstruction declaration = document.firstChild().toProcessingInstruction();
    if (document.toString(-1).contains(half))
        declaration.setData(declaration.data().replace(encoding, QStringLiteral("encoding='UTF-8'")));
}

bool isBlank(const QDomNode& node) { return node.isText() && node.nodeValue().trimmed().isEmpty(); }

void copyAttributes(const QDomElement& from, QDomElement to)
{
    const QDomNamedNodeMap attributes = from.attributes();
    for (int i = 0; i < attributes.size(); ++i) {
        const QDomAttr attribute = attributes.item(i).toAttr();
        to.setAttribute(attribute.name(), attribute.value());
    }
}

/// Takes the elements out of a section, each with the white space before it, and puts others at its end.
void exchange(QDomElement section, const QVector<QDomElement>& old, const QVector<QDomElement>& now)
{
    for (const QDomElement& element : old) {
        const QDomNode before = element.previousSibling();
        if (isBlank(before))
            section.removeChild(before);
        section.removeChild(element);
    }
    QDomNode end = section.lastChild();
    if (!isBlank(end))
        end = now.isEmpty() ? QDomNode()
                            : section.appendChild(section.ownerDocument().createTextNode(QStringLiteral("\n ")));
    for (const QDomElement& element : now) {
        section.insertBefore(section.ownerDocument().createTextNode(QStringLiteral("\n  ")), end);
        section.insertBefore(element, end);
    }
}

/// The colours of the project in a document: those of the library, each in the section where it was.
class SectionWriter
{
public:
    explicit SectionWriter(QDomDocument& document) : m_document(document)
    {
        const QDomNodeList lists = document.elementsByTagName(kListTag);
        for (int i = 0; i < lists.size(); ++i)
            m_sections.append({lists.at(i).toElement(), {}, {}});
        for (int i = 0; i < m_sections.size(); ++i) {
            for (const QDomElement& color : children(m_sections.at(i).element, kColorTag)) {
                if (!isTakenOver(color))
                    continue;
                m_sections[i].old.append(color);
                const QString uid = color.attribute(kUid);
                if (!uid.isEmpty() && !m_places.contains(uid))
                    m_places.insert(uid, {i, color});
            }
        }
    }

    void write(const QDomElement& colors)
    {
        if (m_sections.isEmpty())
            addSection(colors);
        for (const QDomElement& color : children(colors, kColorTag)) {
            const Place place = m_places.value(color.attribute(kUid), {0, color.cloneNode().toElement()});
            copyAttributes(color, place.color);
            m_sections[place.section].now.append(place.color);
        }
        for (const Section& section : qAsConst(m_sections)) {
            if (section.old != section.now)
                exchange(section.element, section.old, section.now);
        }
    }

private:
    struct Section
    {
        QDomElement element;
        QVector<QDomElement> old, now;
    };
    struct Place
    {
        int section;
        QDomElement color;
    };

    void addSection(const QDomElement& colors)
    {
        QDomElement section = m_document.createElement(kListTag);
        copyAttributes(colors, section);
        QDomElement root = m_document.documentElement();
        root.appendChild(m_document.createTextNode(QStringLiteral("\n ")));
        root.appendChild(section);
        root.appendChild(m_document.createTextNode(QStringLiteral("\n")));
        m_sections.append({section, {}, {}});
    }

    QDomDocument& m_document;
    QVector<Section> m_sections;
    QHash<QString, Place> m_places; ///< By uid.
};

QDomElement sectionOf(LXColorLibrary& library, QDomDocument& document)
{
    bool ok = false;
    return library.createElement(document, ok, QLatin1String(ORBIS_APPLICATION_ID));
}

} // namespace

ProjectDocument::ProjectDocument()
{
    parse(m_document, QByteArrayLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Show version=\"1.0\"/>\n"));
}

QString ProjectDocument::open(const QString& path, LXColorLibrary& library)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return tr("“%1” cannot be read: %2.").arg(native(path), file.errorString());
    const QByteArray bytes = file.readAll();
    QString fault = file.error() == QFile::NoError ? faultOf(bytes) : file.errorString();
    QDomDocument document;
    if (fault.isEmpty() && !parse(document, bytes))
        fault = tr("it is not well-formed");
    if (!fault.isEmpty())
        return tr("“%1” is not a project document: %2.").arg(native(path), fault);

    giveUids(document);
    QString remark; // on empty lists, which are nothing to complain about
    if (!library.loadDocument(document, remark, versionOf(document), QLatin1String(ORBIS_APPLICATION_ID)))
        return tr("The library has no list for the colours of a project.");
    m_document = document;
    m_hasCarriageReturns = bytes.contains("\r\n") || bytes.contains(QByteArray("\r\0\n", 3));
    return {};
}

QByteArray ProjectDocument::bytes(LXColorLibrary& library)
{
    // The document stays as it was opened: a colour that was deleted may come back, and then has its place.
    QDomDocument document = m_document.cloneNode(true).toDocument();
    QDomDocument scratch;
    SectionWriter(document).write(sectionOf(library, scratch));
    makeUtf8WhereNeeded(document);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QTextStream stream(&buffer);
    document.save(stream, -1, QDomNode::EncodingFromDocument);
    stream.flush();
    if (!m_hasCarriageReturns)
        return bytes;
    QString text = stream.codec()->toUnicode(bytes);
    return stream.codec()->fromUnicode(text.replace(QLatin1Char('\n'), QLatin1String("\r\n")));
}

QString ProjectDocument::save(const QString& path, LXColorLibrary& library)
{
    const QByteArray content = bytes(library);
    QSaveFile file(path);
    file.setDirectWriteFallback(true);
    const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.commit();
    return isWritten ? QString() : tr("“%1” cannot be saved: %2.").arg(native(path), file.errorString());
}

QString ProjectDocument::colorsOf(LXColorLibrary& library)
{
    QDomDocument scratch;
    const QDomElement section = sectionOf(library, scratch);
    QStringList texts;
    for (const QDomElement& color : children(section, kColorTag)) {
        for (const char* name : {"uid", "name", "value", "originatingPreset", "colorId"})
            texts << color.attribute(QLatin1String(name));
    }
    return texts.join(QLatin1Char('\n'));
}
