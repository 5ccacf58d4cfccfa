#include "ProjectDocument.h"

#include "LXColorLibrary.h"
#include "OrbisProjectHelper.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QTextCodec>
#include <QXmlStreamReader>

namespace {

QString native(const QString& path) { return QDir::toNativeSeparators(path); }

/// A reason of Qt's as the end of a sentence of ours: some of them have a full stop.
QString reason(const QString& text) { return text.endsWith(QLatin1Char('.')) ? text.chopped(1) : text; }

/// Where and why a text is no XML that can be taken, or nothing.
QString faultOf(const QByteArray& bytes)
{
    QXmlStreamReader reader(bytes);
    while (!reader.atEnd()) {
        reader.readNext();
        QString what;
        if (reader.isEntityReference() || (reader.isDTD() && !reader.entityDeclarations().isEmpty()))
            what = ProjectDocument::tr("entities are not supported");
        else if (reader.isDTD() && reader.text().contains(QLatin1Char('[')))
            what = ProjectDocument::tr("declarations of a document type are not supported");
        else if (reader.hasError())
            what = reason(reader.errorString());
        if (!what.isEmpty())
            return ProjectDocument::tr("line %1, column %2: %3")
                .arg(reader.lineNumber())
                .arg(reader.columnNumber())
                .arg(what);
    }
    return {};
}

/// The encoding of a text that has no fault, as QXmlStreamReader finds it.
QTextCodec* codecOf(const QByteArray& bytes)
{
    if (QTextCodec* codec = QTextCodec::codecForUtfText(bytes, nullptr)) // by its mark
        return codec;
    QXmlStreamReader reader(bytes);
    reader.readNext();
    QByteArray name = reader.documentEncoding().toLatin1();
    if (bytes.startsWith(QByteArray("<\0", 2)) || bytes.startsWith(QByteArray("\0<", 2)))
        name = bytes.at(0) == '<' ? "UTF-16LE" : "UTF-16BE";
    QTextCodec* codec = QTextCodec::codecForName(name);
    return codec ? codec : QTextCodec::codecForName("UTF-8");
}

/// How many bytes of a text are the mark of its encoding.
int markSizeOf(const QByteArray& bytes)
{
    return bytes.startsWith("\xef\xbb\xbf") ? 3 : bytes.startsWith("\xff\xfe") || bytes.startsWith("\xfe\xff") ? 2 : 0;
}

/// The project's colours of the library, as it would write them.
QVector<ProjectText::Color> colorsIn(LXColorLibrary& library)
{
    QVector<ProjectText::Color> colors;
    QDomDocument scratch;
    bool ok = false;
    const QDomElement section = library.createElement(scratch, ok, QLatin1String(ORBIS_APPLICATION_ID));
    for (QDomElement e = section.firstChildElement(); !e.isNull(); e = e.nextSiblingElement()) {
        ProjectText::Color color;
        const QDomNamedNodeMap attributes = e.attributes();
        for (int i = 0; i < attributes.size(); ++i)
            color.insert(attributes.item(i).nodeName(), attributes.item(i).nodeValue());
        colors.append(color);
    }
    return colors;
}

} // namespace

ProjectDocument::ProjectDocument()
    : m_bytes("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Show version=\"1.0\"/>\n")
    , m_codec(codecOf(m_bytes))
    , m_text(QString::fromUtf8(m_bytes))
{
}

QString ProjectDocument::open(const QString& path, LXColorLibrary& library)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return tr("“%1” cannot be read: %2.").arg(native(path), reason(file.errorString()));
    const QByteArray bytes = file.readAll();
    const QString fault = file.error() == QFile::NoError ? faultOf(bytes) : reason(file.errorString());
    if (!fault.isEmpty())
        return tr("“%1” is not a project document: %2.").arg(native(path), fault);

    QTextCodec* codec = codecOf(bytes);
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    const int markSize = markSizeOf(bytes);
    const ProjectText text(codec->toUnicode(bytes.constData() + markSize, bytes.size() - markSize, &state));
    QDomDocument document = text.document();
    QString remark; // on empty lists, which are nothing to complain about
    if (!library.loadDocument(document, remark, text.version(), QLatin1String(ORBIS_APPLICATION_ID)))
        return tr("The library has no list for the colours of a project.");
    m_bytes = bytes;
    m_onDisk = bytes;
    m_codec = codec;
    m_text = text;
    m_loaded = colorsIn(library);
    return {};
}

QString ProjectDocument::openPalette(const QString& path, PaletteFormat::Id format, LXColorLibrary& library,
                                     QString& remarks)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return tr("“%1” cannot be read: %2.").arg(native(path), reason(file.errorString()));
    PaletteFormat::Reading reading =
        PaletteFormat::read(file.read(PaletteFormat::largestFile + 1), format, QFileInfo(path).completeBaseName());
    if (!reading.isRead) {
        const PaletteFormat::Error& error = reading.error;
        const QString text = reason(error.text);
        return tr("“%1” cannot be read: %2.")
            .arg(native(path),
                 error.line > 0 ? tr("line %1, column %2: %3").arg(error.line).arg(error.column).arg(text) : text);
    }
    for (Palette::List& list : reading.palette.lists)
        for (Palette::Entry& entry : list.entries)
            entry.uid.clear();
    QXmlStreamReader reader(PaletteFormat::write(reading.palette, PaletteFormat::Id::Document).bytes);
    QDomDocument document;
    QString remark;
    if (!document.setContent(&reader, false) ||
        !library.loadDocument(document, remark, m_text.version(), QLatin1String(ORBIS_APPLICATION_ID)))
        return tr("The library has no list for the colours of a project.");
    *this = ProjectDocument();
    QStringList sentences;
    for (const PaletteFormat::Remark& told : qAsConst(reading.remarks))
        sentences << told.text;
    remarks = sentences.join(QLatin1Char(' '));
    return {};
}

QByteArray ProjectDocument::bytes(LXColorLibrary& library) const
{
    // The text stays as it was opened: a colour that was deleted may come back, and then has its place.
    const QString text = m_text.withColors(m_loaded, colorsIn(library),
                                           [this](const QString& character) { return m_codec->canEncode(character); });
    if (text == m_text.text())
        return m_bytes;
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    return m_bytes.left(markSizeOf(m_bytes)) + m_codec->fromUnicode(text.constData(), text.size(), &state);
}

QString ProjectDocument::save(const QString& path, LXColorLibrary& library)
{
    const QByteArray content = bytes(library);
    QSaveFile file(path);
    file.setDirectWriteFallback(true);
    const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.commit();
    if (isWritten)
        m_onDisk = content;
    return isWritten ? QString() : tr("“%1” cannot be saved: %2.").arg(native(path), reason(file.errorString()));
}

bool ProjectDocument::hasChanged(const QString& path) const
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.readAll() != m_onDisk;
}

QString ProjectDocument::colorsOf(LXColorLibrary& library)
{
    QStringList texts;
    for (const ProjectText::Color& color : colorsIn(library))
        for (const char* name : {"uid", "name", "value", "originatingPreset", "colorId"})
            texts << color.value(QLatin1String(name));
    return texts.join(QLatin1Char('\n'));
}
