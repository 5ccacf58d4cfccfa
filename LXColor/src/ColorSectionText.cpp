#include "ColorSection_p.h"

#include <QBuffer>
#include <QXmlStreamReader>

#include <algorithm>
#include <initializer_list>

namespace lxcolor {

// ---- Reading ----

namespace {

StoredColor readColor(const QXmlStreamAttributes& attributes)
{
    static const QString missing = MissingAttribute;
    StoredColor color;
    color.name = missing;
    color.value = missing;
    for (const QXmlStreamAttribute& attribute : attributes) {
        const QStringRef name = attribute.qualifiedName();
        QString* const field = name == UidAttribute                 ? &color.uid
                               : name == NameAttribute              ? &color.name
                               : name == ValueAttribute             ? &color.value
                               : name == OriginatingPresetAttribute ? &color.originatingPreset
                               : name == VendorIdAttribute          ? &color.vendorID
                                                                    : nullptr;
        if (field)
            *field = attribute.value().toString();
    }
    return color;
}

ColorSection readList(const QXmlStreamAttributes& attributes)
{
    ColorSection section;
    section.name = attributes.value(NameAttribute).toString();
    section.isUserList = attributes.value(UserListAttribute).toInt() != 0;
    return section;
}

bool areAllAmong(const QXmlStreamAttributes& attributes, std::initializer_list<QLatin1String> names)
{
    return std::all_of(attributes.cbegin(), attributes.cend(), [names](const QXmlStreamAttribute& attribute) {
        return std::find(names.begin(), names.end(), attribute.qualifiedName()) != names.end();
    });
}

/// Collects the lists and their colours.
class SectionCollector : public ColorSectionReader
{
public:
    const QVector<ColorSection>& sections() const { return m_sections; }
    bool holdsMore() const { return m_holdsMore; }

protected:
    void begin(Element element, const QXmlStreamReader& xml) override
    {
        m_holdsMore = m_holdsMore || !isSavedAgain(element, xml);
        if (element == Element::List) {
            m_openLists.append(m_sections.size());
            m_sections.append(readList(xml.attributes()));
        } else if (element == Element::Color) {
            m_sections[m_openLists.last()].colors.append(readColor(xml.attributes()));
        }
    }
    void end(Element element) override
    {
        if (element == Element::List)
            m_openLists.removeLast();
    }
    void passBy(const QXmlStreamReader& /*xml*/) override { m_holdsMore = true; }

private:
    /// Whether nothing of an element is lost when the lists are written again.
    bool isSavedAgain(Element element, const QXmlStreamReader& xml) const
    {
        switch (element) {
        case Element::List:
            return areAllAmong(xml.attributes(), {NameAttribute, UserListAttribute});
        case Element::Color:
            return areAllAmong(xml.attributes(), {NameAttribute, UidAttribute, ValueAttribute,
                                                  OriginatingPresetAttribute, VendorIdAttribute});
        default:
            return path().isEmpty() && localName(xml) == DocumentTag;
        }
    }

    QVector<ColorSection> m_sections;
    QVector<int> m_openLists;
    bool m_holdsMore = false;
};

ColorSections parse(QXmlStreamReader& xml, ColorSections::Outcome success)
{
    ColorSections result;
    SectionCollector collector;
    if (collector.read(xml) != ColorSectionReader::Refusal::None) {
        result.error = xml.errorString();
        return result;
    }
    result.outcome = success;
    result.sections = collector.sections();
    result.holdsMore = collector.holdsMore();
    return result;
}

} // namespace

ColorSections readColorSections(const QByteArray& xml)
{
    const MarkupBounds::Excess excess = MarkupBounds().excessIn(xml);
    if (excess != MarkupBounds::Excess::None) {
        ColorSections refused;
        refused.error = excess == MarkupBounds::Excess::Length ? QStringLiteral("A piece of markup is too long")
                                                               : QStringLiteral("An element has too many attributes");
        return refused;
    }
    QBuffer buffer;
    buffer.setData(xml);
    buffer.open(QIODevice::ReadOnly);
    QXmlStreamReader reader(&buffer); // From a device it decodes piece by piece.
    ColorSections sections = parse(reader, ColorSections::Whole);
    if (sections.outcome == ColorSections::Whole || reader.error() == QXmlStreamReader::CustomError ||
        xml.size() > MaxRepairedSize)
        return sections;

    TextRepair repair;
    repair.examine(xml);
    if (!repair.isNeeded())
        return sections;
    QXmlStreamReader secondReader(repair.repaired(xml));
    return parse(secondReader, ColorSections::Repaired);
}

// ---- Writing ----

namespace {

/// Whether a text stands in an attribute as it is. May be false where it does; true for nearly all texts.
bool isPlain(const QString& text)
{
    return std::all_of(text.cbegin(), text.cend(), [](QChar c) {
        const ushort u = c.unicode();
        return u >= 0x20 && u < 0xd800 && u != '<' && u != '>' && u != '&' && u != '"' && u != '\'';
    });
}

void appendEscaped(QString& out, const QString& text)
{
    bool isAssigned = false; // An apostrophe behind "=" would count as the beginning of an attribute.
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        switch (c.unicode()) {
        case '<':
            out += QLatin1String("&lt;");
            break;
        case '>':
            out += out.endsWith(QLatin1String("]]")) ? QLatin1String("&gt;") : QLatin1String(">");
            break;
        case '&':
            out += QLatin1String("&amp;");
            break;
        case '"':
            out += QLatin1String("&quot;");
            break;
        case '\'':
            out += isAssigned ? QLatin1String("&apos;") : QLatin1String("'");
            break;
        case '\t':
            out += QLatin1String("&#x9;");
            break;
        case '\n':
            out += QLatin1String("&#xa;");
            break;
        case '\r':
            out += QLatin1String("&#xd;");
            break;
        default:
            out += c;
        }
        if (c != QLatin1Char(' '))
            isAssigned = c == QLatin1Char('=');
    }
}

} // namespace

ColorSectionWriter::ColorSectionWriter() { m_text += QLatin1Char('<') + DocumentTag; }

void ColorSectionWriter::attribute(QLatin1String name, const QString& value)
{
    m_text += QLatin1Char(' ');
    m_text += name;
    m_text += QLatin1String("=\"");
    if (isPlain(value))
        m_text += value;
    else
        appendEscaped(m_text, xmlText(value));
    m_text += QLatin1Char('"');
}

void ColorSectionWriter::beginList(const QString& name, bool isUserList)
{
    if (!m_hasLists)
        m_text += QLatin1String(">\n");
    m_hasLists = true;
    m_listHasColors = false;
    m_text += QLatin1String(" <") + ListTag;
    attribute(NameAttribute, name);
    attribute(UserListAttribute, QString::number(isUserList ? 1 : 0));
}

void ColorSectionWriter::addColor(const StoredColor& color)
{
    if (!m_listHasColors)
        m_text += QLatin1String(">\n");
    m_listHasColors = true;
    m_text += QLatin1String("  <");
    m_text += ColorTag;
    attribute(NameAttribute, color.name);
    attribute(UidAttribute, color.uid);
    attribute(ValueAttribute, color.value);
    attribute(OriginatingPresetAttribute, color.originatingPreset);
    attribute(VendorIdAttribute, color.vendorID);
    m_text += QLatin1String("/>\n");
}

void ColorSectionWriter::endList()
{
    m_text += m_listHasColors ? QLatin1String(" </") + ListTag + QLatin1String(">\n") : QStringLiteral("/>\n");
}

QString ColorSectionWriter::finish()
{
    m_text += m_hasLists ? QLatin1String("</") + DocumentTag + QLatin1String(">\n") : QStringLiteral("/>\n");
    return m_text;
}

} // namespace lxcolor
