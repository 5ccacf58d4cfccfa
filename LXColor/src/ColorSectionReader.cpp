#include "ColorSectionReader_p.h"

#include <QXmlStreamReader>

namespace lxcolor {

namespace {

// A text within these bounds is read in a time and a memory proportional to its size. QXmlStreamReader compares each
// attribute of an element with all others, and each declared attribute with each element.
constexpr int MaxDepth = 1024;
constexpr int MaxAttributes = 256;
constexpr int MaxMarkupLength = 8 * 1024 * 1024; // bytes
constexpr int MaxDocumentTypeLength = 1024;
constexpr int MaxLists = 100000;
constexpr int MaxColors = 1000000;

bool isPlainXmlCharacter(QChar c)
{
    const ushort u = c.unicode();
    return u >= 0x20 ? u < 0xfffe && !c.isSurrogate() : u == '\t' || u == '\n' || u == '\r';
}

bool isSurrogatePair(const QString& text, int i)
{
    return text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
}

bool isXmlText(const QString& text)
{
    for (int i = 0; i < text.size(); ++i) {
        if (isSurrogatePair(text, i))
            ++i;
        else if (!isPlainXmlCharacter(text.at(i)))
            return false;
    }
    return true;
}

QString decoded(const QTextCodec* codec, const QByteArray& bytes, QTextCodec::ConverterState& state)
{
    return codec->toUnicode(bytes.constData(), bytes.size(), &state);
}

const QTextCodec* utf8() { return QTextCodec::codecForName("UTF-8"); }

const QTextCodec* localeOrLatin1()
{
    const QTextCodec* locale = QTextCodec::codecForLocale();
    return !locale || locale->name() == "UTF-8" ? QTextCodec::codecForName("ISO-8859-1") : locale;
}

} // namespace

QString xmlText(const QString& text)
{
    if (isXmlText(text))
        return text;
    QString result = text;
    for (int i = 0; i < result.size(); ++i) {
        if (isSurrogatePair(result, i))
            ++i;
        else if (!isPlainXmlCharacter(result.at(i)))
            result[i] = QChar::ReplacementCharacter;
    }
    return result;
}

QStringRef localName(const QXmlStreamReader& xml)
{
    const QStringRef name = xml.qualifiedName();
    return name.mid(name.lastIndexOf(QLatin1Char(':')) + 1);
}

TextPlace placeOfNext(const QXmlStreamReader& xml)
{
    // Text ends where the "<" has been seen.
    return {xml.lineNumber(), xml.columnNumber() + (xml.isCharacters() ? 0 : 1)};
}

TextPlace placeOfRoot(const QXmlStreamReader& xml) { return {xml.lineNumber(), 1}; }

MarkupBounds::Excess MarkupBounds::excessIn(const QByteArray& bytes)
{
    for (const char c : bytes) {
        if (++m_length > MaxMarkupLength && c != '<')
            return Excess::Length;
        switch (c) {
        case '<':
            m_length = 0;
            m_attributes = 0;
            m_isAssigned = false;
            break;
        case '=':
            m_isAssigned = true;
            break;
        case '"':
        case '\'':
            if (m_isAssigned && ++m_attributes > MaxAttributes)
                return Excess::Attributes;
            m_isAssigned = false;
            break;
        case ' ':
        case '\t':
        case '\n':
        case '\r':
        case '\0':
            break;
        default:
            m_isAssigned = false;
        }
    }
    return Excess::None;
}

void TextRepair::examine(const QByteArray& bytes)
{
    const bool hasByteOrderMark = !m_hasBegun && bytes.startsWith("\xef\xbb\xbf");
    m_hasBegun = true;
    const QString text = decoded(utf8(), bytes, m_examined);
    m_isChanged = m_isChanged || hasByteOrderMark || !isXmlText(text);
}

QString TextRepair::repaired(const QByteArray& bytes)
{
    return xmlText(decoded(isMisencoded() ? localeOrLatin1() : utf8(), bytes, m_repaired));
}

ColorSectionReader::~ColorSectionReader() = default;

void ColorSectionReader::passBy(const QXmlStreamReader& /*xml*/) {}

bool ColorSectionReader::feed(QXmlStreamReader& /*xml*/) { return false; }

ColorSectionReader::Refusal ColorSectionReader::read(QXmlStreamReader& xml)
{
    xml.setNamespaceProcessing(false);
    m_path.clear();
    m_listCount = 0;
    m_colorCount = 0;
    Refusal refusal = Refusal::None;
    bool isContinued = false;
    while (refusal == Refusal::None && (!xml.atEnd() || isContinued)) {
        if (!isContinued)
            m_place = placeOfNext(xml);
        switch (xml.readNext()) {
        case QXmlStreamReader::DTD:
            if (!xml.entityDeclarations().isEmpty() || xml.text().size() > MaxDocumentTypeLength) {
                xml.raiseError(QStringLiteral("The document declares entities of its own"));
                refusal = Refusal::Entities;
            }
            break;
        case QXmlStreamReader::StartElement:
            refusal = beginElement(xml);
            break;
        case QXmlStreamReader::EndElement:
            end(m_path.takeLast());
            break;
        case QXmlStreamReader::Characters:
            if (!xml.isWhitespace())
                passBy(xml);
            break;
        case QXmlStreamReader::Comment:
        case QXmlStreamReader::ProcessingInstruction:
        case QXmlStreamReader::EntityReference:
            passBy(xml);
            break;
        default:
            break;
        }
        isContinued = xml.error() == QXmlStreamReader::PrematureEndOfDocumentError && feed(xml);
    }
    return refusal == Refusal::None && xml.hasError() ? Refusal::NotWellFormed : refusal;
}

ColorSectionReader::Refusal ColorSectionReader::beginElement(QXmlStreamReader& xml)
{
    if (m_path.size() == MaxDepth) {
        xml.raiseError(QStringLiteral("The document is nested too deeply"));
        return Refusal::TooDeep;
    }
    if (m_path.isEmpty())
        m_place = placeOfRoot(xml);
    const bool isInList = !m_path.isEmpty() && m_path.last() == Element::List;
    const QStringRef name = localName(xml);
    const Element element = name == ListTag                ? Element::List
                            : isInList && name == ColorTag ? Element::Color
                                                           : Element::Other;
    m_listCount += element == Element::List ? 1 : 0;
    m_colorCount += element == Element::Color ? 1 : 0;
    if (m_listCount > MaxLists || m_colorCount > MaxColors) {
        xml.raiseError(QStringLiteral("The document has too many lists or colours"));
        return Refusal::TooMany;
    }
    begin(element, xml);
    m_path.append(element);
    return Refusal::None;
}

} // namespace lxcolor
