#ifndef PROJECTTEXT_H
#define PROJECTTEXT_H

#include <QDomDocument>
#include <QHash>
#include <QString>
#include <QVector>
#include <QXmlStreamAttributes>

#include <functional>

/**
 * The text of a project document, and where in it the colours stand: "Color" elements directly below "ColorLibrary"
 * elements, the sections. With other colours in their places all the rest of it stays, to the character.
 */
class ProjectText
{
public:
    /// A colour as the library keeps it in a document: the attributes of its element by their names, "uid" among them.
    using Color = QHash<QString, QString>;

    /// \a text is well-formed, without declarations of a document type.
    explicit ProjectText(const QString& text);

    /// Sections and colours for the library to load. Colours without a uid get one, and so do those that share theirs,
    /// as the library would do: by these each is found again.
    QDomDocument document() const;
    double version() const { return m_version; }

    /// The text with the colours \a now for those that were \a loaded from document(). A colour stays in its section,
    /// and the tag of one that is in both is written anew where an attribute differs; new ones come into the first
    /// section. What the library has not taken over for a colour stays. \a canWrite tells whether the encoding has a
    /// character, a pair of surrogates maybe; else its number is written.
    QString withColors(const QVector<Color>& loaded, const QVector<Color>& now,
                       const std::function<bool(const QString&)>& canWrite) const;

    const QString& text() const { return m_text; }

private:
    /// The places of an element: its "<", behind its first tag, the "<" of its last one, and behind that.
    struct Element
    {
        int begin = 0;
        int tagEnd = 0;
        int contentEnd = 0;
        int end = 0;
    };
    struct ColorElement
    {
        Element place;
        QXmlStreamAttributes tag; ///< As they are written, in their order.
        Color attributes;         ///< As the library gets them.
        bool isTakenOver;         ///< By the library, which then has to say what becomes of it; so it has a uid.
    };
    struct Section
    {
        Element place;
        Color attributes;
        QVector<ColorElement> colors;
    };
    class Editor;

    QString m_text;
    Element m_root;
    double m_version;
    QVector<Section> m_sections;
};

#endif
