#include "PaletteCodecs_p.h"

#include <QBuffer>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <algorithm>

// The library's own documents.

namespace lxcolor {

namespace {

using Code = PaletteFormat::Code;

/// Collects the lists and their colours as the library reads them.
class DocumentReader : public ColorSectionReader
{
public:
    const QVector<Palette::List>& lists() const { return m_lists; }
    int others() const { return m_others; }

protected:
    void begin(Element element, const QXmlStreamReader& xml) override
    {
        const QXmlStreamAttributes attributes = xml.attributes();
        const auto text = [&](QLatin1String name) { return attributes.value(name).toString(); };
        if (element == Element::List) {
            m_openLists.append(m_lists.size());
            m_lists.append({text(NameAttribute), attributes.value(UserListAttribute).toInt() != 0, {}});
        } else if (element == Element::Color) {
            const QString name =
                attributes.hasAttribute(NameAttribute) ? text(NameAttribute) : QString(MissingAttribute);
            m_lists[m_openLists.last()].entries.append({name, text(ValueAttribute), text(UidAttribute),
                                                        text(OriginatingPresetAttribute), text(VendorIdAttribute)});
        } else if (!path().isEmpty() || localName(xml) != DocumentTag) {
            ++m_others;
        }
    }
    void end(Element element) override
    {
        if (element == Element::List)
            m_openLists.removeLast();
    }

private:
    QVector<Palette::List> m_lists;
    QVector<int> m_openLists;
    int m_others = 0;
};

QString reasonOf(ColorSectionReader::Refusal refusal, const QXmlStreamReader& xml)
{
    switch (refusal) {
    case ColorSectionReader::Refusal::TooDeep:
        return PaletteFormat::tr("Elements are nested too deeply");
    case ColorSectionReader::Refusal::TooMany:
        return PaletteFormat::tr("There are too many lists or colours");
    case ColorSectionReader::Refusal::Entities:
        return PaletteFormat::tr("Entities are declared, or the document type declaration is long");
    default:
        return PaletteFormat::tr("Not well-formed: %1").arg(xml.errorString());
    }
}

/// Text that XML can hold.
QString written(const QString& text, PaletteRemarks& remarks)
{
    QString result = xmlText(text);
    remarks.add(Code::Name, result == text ? 0 : 1);
    return result;
}

} // namespace

void readDocument(const QByteArray& content, PaletteBuilder& builder)
{
    if (MarkupBounds().excessIn(content) != MarkupBounds::Excess::None)
        throw InputFault{PaletteFormat::tr("A tag has too many attributes, or is too long")};
    QBuffer buffer;
    buffer.setData(content);
    buffer.open(QIODevice::ReadOnly);
    QXmlStreamReader xml(&buffer);
    DocumentReader reader;
    const ColorSectionReader::Refusal refusal = reader.read(xml);
    if (refusal != ColorSectionReader::Refusal::None)
        throw InputFault{reasonOf(refusal, xml), {xml.lineNumber(), std::max<qint64>(xml.columnNumber(), 1)}};
    builder.remarks().add(Code::Other, reader.others());
    for (const Palette::List& list : reader.lists()) {
        builder.beginList(list.name, list.isUserList);
        for (const Palette::Entry& entry : list.entries)
            builder.add(entry);
    }
}

QByteArray writeDocument(const Palette& palette, PaletteRemarks& remarks)
{
    QByteArray bytes;
    QXmlStreamWriter xml(&bytes);
    xml.setAutoFormatting(true);
    xml.setAutoFormattingIndent(1);
    xml.writeStartDocument();
    xml.writeStartElement(DocumentTag);
    for (const Palette::List& list : palette.lists) {
        xml.writeStartElement(ListTag);
        xml.writeAttribute(NameAttribute, written(list.name, remarks));
        xml.writeAttribute(UserListAttribute, QString::number(list.isUserList ? 1 : 0));
        for (const Palette::Entry& entry : list.entries) {
            xml.writeEmptyElement(ColorTag);
            xml.writeAttribute(NameAttribute, written(entry.name, remarks));
            xml.writeAttribute(UidAttribute, written(entry.uid, remarks));
            xml.writeAttribute(ValueAttribute, written(entry.value, remarks));
            xml.writeAttribute(OriginatingPresetAttribute, written(entry.originatingPreset, remarks));
            xml.writeAttribute(VendorIdAttribute, written(entry.vendorId, remarks));
        }
        xml.writeEndElement();
    }
    xml.writeEndElement();
    xml.writeEndDocument();
    return bytes;
}

} // namespace lxcolor
