// The colours of any project document may be renamed, taken out and added to in its text. What then is read are those
// colours, and without a change the text stays as it is.
#include "FuzzSupport.h"
#include "ProjectText.h"

#include <QXmlStreamReader>

#include <algorithm>

namespace {

using Colors = QVector<ProjectText::Color>;

const QString kUid = QStringLiteral("uid");
const QString kName = QStringLiteral("name");

/// Documents that are opened at all.
bool isTaken(const QString& text)
{
    QXmlStreamReader xml(text);
    while (!xml.atEnd())
        if (xml.readNext() == QXmlStreamReader::DTD || xml.isEntityReference())
            return false;
    return !xml.hasError();
}

/// The colours that the library takes from a document.
Colors colorsOf(const ProjectText& project)
{
    Colors colors;
    const QDomDocument document = project.document();
    const QDomElement root = document.documentElement();
    for (QDomElement list = root.firstChildElement(); !list.isNull(); list = list.nextSiblingElement()) {
        for (QDomElement e = list.firstChildElement(); !e.isNull(); e = e.nextSiblingElement()) {
            if (!LXColor(e.attribute(QStringLiteral("value"))).isValid())
                continue;
            ProjectText::Color color;
            for (const char* name : {"name", "uid", "value", "originatingPreset", "colorId"})
                color.insert(QLatin1String(name), e.attribute(QLatin1String(name)));
            colors.append(color);
        }
    }
    return colors;
}

Colors edited(Colors colors, FuzzInput& input)
{
    for (int edits = input.integer(0, 7); edits > 0; --edits) {
        const int at = colors.isEmpty() ? 0 : input.integer(0, 255) % colors.size();
        const QString name = QString::fromLatin1(input.bytes(5));
        if (input.flag() || colors.isEmpty())
            colors.insert(at, {{kUid, QStringLiteral("{new %1}").arg(edits)},
                               {kName, name},
                               {QStringLiteral("value"), QStringLiteral("#102030")},
                               {QStringLiteral("originatingPreset"), QString()},
                               {QStringLiteral("colorId"), QString()}});
        else if (input.flag())
            colors[at][kName] = name;
        else if (input.flag())
            colors.removeAt(at);
        else
            colors.move(at, colors.size() - 1);
    }
    return colors;
}

/// Characters that no XML can hold are none that a user gives.
bool areWritable(const Colors& colors)
{
    return std::all_of(colors.begin(), colors.end(), [](const ProjectText::Color& color) {
        const QString name = color.value(kName);
        return std::all_of(name.begin(), name.end(), [](QChar c) {
            return c.unicode() >= 0x20 || c == QLatin1Char('\t') || c == QLatin1Char('\n') || c == QLatin1Char('\r');
        });
    });
}

/// In any order, and without their uids: colours that have none, or share one, get another each time.
QVector<QStringList> textsOf(const Colors& colors)
{
    QVector<QStringList> texts;
    for (const ProjectText::Color& color : colors)
        texts.append({color.value(kName), color.value(QStringLiteral("value")),
                      color.value(QStringLiteral("originatingPreset")), color.value(QStringLiteral("colorId"))});
    std::sort(texts.begin(), texts.end());
    return texts;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    // The edits stand at the end, so that a document is an input as it is.
    const int editSize = static_cast<int>(std::min<size_t>(size, 24));
    FuzzInput edits(data + size - static_cast<size_t>(editSize), static_cast<size_t>(editSize));
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const int last = text.lastIndexOf(QLatin1Char('>'));
    const QString document = text.left(last + 1);
    if (!isTaken(document))
        return 0;
    const ProjectText project(document);
    const auto writesAscii = [](const QString& character) { return character.at(0).unicode() < 0x80; };
    const Colors loaded = colorsOf(project);
    require(project.withColors(loaded, loaded, writesAscii) == document, "without a change the text stays");

    const Colors now = edited(loaded, edits);
    if (!areWritable(now))
        return 0;
    const QString saved = project.withColors(loaded, now, writesAscii);
    require(isTaken(saved), "what is saved opens again", saved);
    const ProjectText again(saved);
    require(textsOf(colorsOf(again)) == textsOf(now), "the colours are those that were saved", saved);
    return 0;
}
