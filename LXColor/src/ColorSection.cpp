#include "ColorSection_p.h"

#include <QDomDocument>

namespace lxcolor {

namespace {

StoredColor readColor(const QDomElement& element)
{
    StoredColor color;
    color.uid = element.attribute(UidAttribute);
    color.name = element.attribute(NameAttribute, MissingAttribute);
    color.value = element.attribute(ValueAttribute, MissingAttribute);
    color.originatingPreset = element.attribute(OriginatingPresetAttribute);
    color.vendorID = element.attribute(VendorIdAttribute);
    return color;
}

} // namespace

QVector<ColorSection> readColorSections(const QDomDocument& document)
{
    QVector<ColorSection> sections;
    const QDomNodeList lists = document.elementsByTagName(ListTag);
    for (int i = 0; i < lists.size(); ++i) {
        const QDomElement list = lists.at(i).toElement();
        ColorSection section;
        section.name = list.attribute(NameAttribute);
        section.isUserList = list.attribute(UserListAttribute).toInt() != 0;
        for (QDomElement color = list.firstChildElement(ColorTag); !color.isNull();
             color = color.nextSiblingElement(ColorTag))
            section.colors.append(readColor(color));
        sections.append(section);
    }
    return sections;
}

void setListAttributes(QDomElement& list, const QString& name, bool isUserList)
{
    list.setAttribute(NameAttribute, xmlText(name));
    list.setAttribute(UserListAttribute, isUserList ? 1 : 0);
}

void appendColor(QDomDocument& document, QDomElement& list, const StoredColor& color)
{
    QDomElement element = document.createElement(ColorTag);
    element.setAttribute(NameAttribute, xmlText(color.name));
    element.setAttribute(UidAttribute, xmlText(color.uid));
    element.setAttribute(ValueAttribute, xmlText(color.value));
    element.setAttribute(OriginatingPresetAttribute, xmlText(color.originatingPreset));
    element.setAttribute(VendorIdAttribute, xmlText(color.vendorID));
    list.appendChild(element);
}

} // namespace lxcolor
