#include "ProjectText.h"

#include "LXColor.h"

#include <QSet>
#include <QUuid>
#include <QXmlStreamReader>

#include <algorithm>

namespace {

const QString kListTag = QStringLiteral("ColorLibrary");
const QString kColorTag = QStringLiteral("Color");
const QString kUid = QStringLiteral("uid");
const QString kValue = QStringLiteral("value");
constexpr double kCurrentVersion = 1.0;

/// Those that the library knows, in the order in which it writes them.
const QStringList& colorAttributes()
{
    static const QStringList names{QStringLiteral("name"), kUid, kValue, QStringLiteral("originatingPreset"),
                                   QStringLiteral("colorId")};
    return names;
}

bool isBlank(QChar c)
{
    return c == QLatin1Char(' ') || c == QLatin1Char('\t') || c == QLatin1Char('\n') || c == QLatin1Char('\r');
}

ProjectText::Color attributesOf(const QXmlStreamReader& xml)
{
    ProjectText::Color attributes;
    for (const QXmlStreamAttribute& attribute : xml.attributes())
        attributes.insert(attribute.qualifiedName().toString(), attribute.value().toString());
    return attributes;
}

QDomElement elementOf(QDomDocument& document, const QString& tag, const ProjectText::Color& attributes)
{
    QDomElement element = document.createElement(tag);
    for (auto it = attributes.begin(); it != attributes.end(); ++it)
        element.setAttribute(it.key(), it.value());
    return element;
}

bool isReadable(const QString& value) { return !value.isEmpty() && LXColor(value).isValid(); }

} // namespace

ProjectText::ProjectText(const QString& text) : m_text(text), m_version(kCurrentVersion)
{
    struct Open
    {
        int section = -1; ///< Which section the element is, or else
        int parent = -1;  ///< in which section it is the last colour so far.
        int color = -1;
    };
    QVector<Open> path;
    QSet<QString> uids;
    QXmlStreamReader xml(text);
    xml.setNamespaceProcessing(false);
    while (!xml.atEnd()) {
        xml.readNext();
        const int offset = static_cast<int>(xml.characterOffset());
        if (xml.isStartElement()) {
            const Element place{m_text.lastIndexOf(QLatin1Char('<'), offset - 1), offset, offset, offset};
            Open element;
            if (path.isEmpty()) {
                bool isNumber = false;
                const double version = xml.attributes().value(QLatin1String("version")).toDouble(&isNumber);
                m_version = isNumber ? version : kCurrentVersion;
                m_root = place;
            }
            if (xml.qualifiedName() == kListTag) {
                element.section = m_sections.size();
                m_sections.append({place, attributesOf(xml), {}});
            } else if (xml.qualifiedName() == kColorTag && !path.isEmpty() && path.last().section >= 0) {
                element.parent = path.last().section;
                element.color = m_sections.at(element.parent).colors.size();
                ColorElement color{place, xml.attributes(), attributesOf(xml), false};
                color.isTakenOver = isReadable(color.attributes.value(kValue));
                if (color.isTakenOver) {
                    const QString uid = color.attributes.value(kUid);
                    if (uid.isEmpty() || uids.contains(uid))
                        color.attributes.insert(kUid, QUuid::createUuid().toString());
                    uids.insert(color.attributes.value(kUid));
                }
                m_sections[element.parent].colors.append(color);
            }
            path.append(element);
        } else if (xml.isEndElement()) {
            const Open element = path.takeLast();
            const auto close = [&](Element& place) {
                place.end = offset;
                place.contentEnd = std::max(place.tagEnd, m_text.lastIndexOf(QLatin1Char('<'), offset - 1));
            };
            if (path.isEmpty())
                close(m_root);
            if (element.section >= 0)
                close(m_sections[element.section].place);
            if (element.color >= 0)
                close(m_sections[element.parent].colors[element.color].place);
        }
    }
}

QDomDocument ProjectText::document() const
{
    QDomDocument document;
    QDomElement root = document.createElement(QStringLiteral("Project"));
    document.appendChild(root);
    for (const Section& section : m_sections) {
        QDomElement list = elementOf(document, kListTag, section.attributes);
        for (const ColorElement& color : section.colors)
            list.appendChild(elementOf(document, kColorTag, color.attributes));
        root.appendChild(list);
    }
    return document;
}

/// Collects what is to be changed in the text, and changes it.
class ProjectText::Editor
{
public:
    Editor(const ProjectText& project, const QVector<Color>& loaded,
           const std::function<bool(const QString&)>& canWrite)
        : m_text(project.m_text)
        , m_canWrite(canWrite)
        , m_lineEnd(QLatin1String(m_text.contains(QLatin1String("\r\n")) ? "\r\n"
                                  : m_text.contains(QLatin1Char('\n'))   ? "\n"
                                                                         : ""))
    {
        for (const Color& color : loaded)
            m_loaded.insert(color.value(kUid), color);
    }

    /// The colours of a section become others.
    void change(const Section& section, const QVector<const Color*>& now)
    {
        QHash<QString, int> known;
        for (int i = 0; i < section.colors.size(); ++i)
            if (section.colors.at(i).isTakenOver)
                known.insert(section.colors.at(i).attributes.value(kUid), i);
        // What comes in its old order stays in its place; what does not is taken from there and put behind the one
        // before it.
        QVector<bool> stays(section.colors.size(), false);
        int last = -1;
        for (const Color* color : now) {
            const int i = known.value(color->value(kUid), -1);
            if (i > last)
                stays[last = i] = true;
        }
        const QString indent = indentIn(section);
        QString atEnd; // of the section, where none of its colours stays
        int place = section.place.tagEnd;
        for (const Color* color : now) {
            const int i = known.value(color->value(kUid), -1);
            if (i >= 0 && stays.at(i)) {
                changeTag(section.colors.at(i), *color, m_changes);
                place = section.colors.at(i).place.end;
                continue;
            }
            const QString text = indent + (i < 0 ? newElement(*color) : movedElement(section.colors.at(i), *color));
            if (last < 0)
                atEnd += text;
            else
                m_changes.append({place, place, text});
        }
        for (const int i : qAsConst(known)) {
            const Element& old = section.colors.at(i).place;
            if (!stays.at(i))
                m_changes.append({old.begin - blankBefore(old.begin).size(), old.end, QString()});
        }
        if (!atEnd.isEmpty())
            append(section.place, kListTag, atEnd, indent.isEmpty() ? indent : lineBefore(section.place.begin));
    }

    /// A first section, for a document that has none.
    void addSection(const Element& root, const QVector<const Color*>& colors)
    {
        const QString line = m_lineEnd.isEmpty() ? QString() : m_lineEnd + QLatin1Char(' ');
        QString text = line + QStringLiteral("<ColorLibrary name=\"Project Swatches\" isUserLibrary=\"0\">");
        for (const Color* color : colors)
            text += (line.isEmpty() ? line : line + QLatin1Char(' ')) + newElement(*color);
        text += line + QStringLiteral("</ColorLibrary>");
        int nameEnd = root.begin + 1;
        while (!isBlank(m_text.at(nameEnd)) && m_text.at(nameEnd) != QLatin1Char('/') &&
               m_text.at(nameEnd) != QLatin1Char('>'))
            ++nameEnd;
        append(root, m_text.mid(root.begin + 1, nameEnd - root.begin - 1), text, m_lineEnd);
    }

    QString text() { return changed(0, m_text.size(), m_changes); }

private:
    struct Change
    {
        int begin;
        int end;
        QString text;
    };

    /// The white space between a tag and an element after it.
    QString blankBefore(int begin) const
    {
        int from = begin;
        while (from > 0 && isBlank(m_text.at(from - 1)))
            --from;
        return from > 0 && m_text.at(from - 1) == QLatin1Char('>') ? m_text.mid(from, begin - from) : QString();
    }
    /// End of line and indentation of an element on a line of its own.
    QString lineBefore(int begin) const
    {
        const QString blank = blankBefore(begin);
        const int newLine = blank.lastIndexOf(QLatin1Char('\n'));
        return newLine < 0 ? QString() : m_lineEnd + blank.mid(newLine + 1);
    }
    QString indentIn(const Section& section) const
    {
        if (!section.colors.isEmpty())
            return lineBefore(section.colors.first().place.begin);
        const QString line = lineBefore(section.place.begin);
        return line.isEmpty() ? line : line + QLatin1Char(' ');
    }

    /// Puts text at the end of an element, before the line of its last tag.
    void append(const Element& element, const QString& tag, const QString& text, const QString& lastLine)
    {
        if (element.tagEnd == element.end)
            return m_changes.append(
                {element.tagEnd - 2, element.tagEnd,
                 QLatin1Char('>') + text + lastLine + QStringLiteral("</") + tag + QLatin1Char('>')});
        const int place = element.contentEnd - blankBefore(element.contentEnd).size();
        m_changes.append({place, place, place == element.contentEnd ? text + lastLine : text});
    }

    /// The first tag anew, where an attribute differs: those that are there in their order, then those that are not.
    void changeTag(const ColorElement& element, const Color& now, QVector<Change>& changes) const
    {
        const Color loaded = m_loaded.value(now.value(kUid));
        QStringList changed;
        for (const QString& name : colorAttributes())
            if (now.value(name) != loaded.value(name))
                changed.append(name);
        if (changed.isEmpty())
            return;
        QString tag = QLatin1Char('<') + kColorTag;
        for (const QXmlStreamAttribute& there : element.tag) {
            const QString name = there.qualifiedName().toString();
            tag += attribute(name, changed.removeOne(name) ? now.value(name) : there.value().toString());
        }
        for (const QString& name : qAsConst(changed))
            tag += attribute(name, now.value(name));
        tag += QLatin1String(element.place.tagEnd == element.place.end ? "/>" : ">");
        changes.append({element.place.begin, element.place.tagEnd, tag});
    }

    QString movedElement(const ColorElement& element, const Color& now) const
    {
        QVector<Change> changes;
        changeTag(element, now, changes);
        return changed(element.place.begin, element.place.end, changes);
    }
    QString newElement(const Color& color) const
    {
        QString text = QLatin1Char('<') + kColorTag;
        for (const QString& name : colorAttributes())
            text += attribute(name, color.value(name));
        return text + QStringLiteral("/>");
    }
    QString attribute(const QString& name, const QString& value) const
    {
        return QLatin1Char(' ') + name + QStringLiteral("=\"") + written(value) + QLatin1Char('"');
    }

    QString written(const QString& value) const
    {
        QString text;
        const QVector<uint> characters = value.toHtmlEscaped().toUcs4();
        for (const uint number : characters) {
            const QString character = QString::fromUcs4(&number, 1);
            const bool isWritable = number >= 0x20 && m_canWrite(character);
            text += isWritable ? character : QStringLiteral("&#x%1;").arg(number, 0, 16);
        }
        return text;
    }

    QString changed(int begin, int end, QVector<Change> changes) const
    {
        std::stable_sort(changes.begin(), changes.end(), [](const Change& a, const Change& b) {
            return a.begin != b.begin ? a.begin < b.begin : a.end < b.end;
        });
        QString result;
        for (const Change& change : qAsConst(changes)) {
            if (change.begin < begin) // within a colour that goes
                continue;
            result += m_text.midRef(begin, change.begin - begin) + change.text;
            begin = change.end;
        }
        return result + m_text.midRef(begin, end - begin);
    }

    const QString& m_text;
    const std::function<bool(const QString&)>& m_canWrite;
    QString m_lineEnd; ///< Empty where all of the document is one line.
    QHash<QString, Color> m_loaded;
    QVector<Change> m_changes;
};

QString ProjectText::withColors(const QVector<Color>& loaded, const QVector<Color>& now,
                                const std::function<bool(const QString&)>& canWrite) const
{
    QHash<QString, int> sections;
    for (int i = 0; i < m_sections.size(); ++i)
        for (const ColorElement& color : m_sections.at(i).colors)
            if (color.isTakenOver)
                sections.insert(color.attributes.value(kUid), i);
    QVector<QVector<const Color*>> bySection(std::max(1, m_sections.size()));
    for (const Color& color : now)
        bySection[sections.value(color.value(kUid), 0)].append(&color);
    Editor editor(*this, loaded, canWrite);
    for (int i = 0; i < m_sections.size(); ++i)
        editor.change(m_sections.at(i), bySection.at(i));
    if (m_sections.isEmpty() && !now.isEmpty())
        editor.addSection(m_root, bySection.first());
    return editor.text();
}
