#ifndef COLORSECTION_P_H
#define COLORSECTION_P_H

#include "ColorSectionReader_p.h"

#include <QByteArray>
#include <QLatin1String>
#include <QString>
#include <QVector>

class QDomDocument;
class QDomElement;

// The "ColorLibrary" element: one list of colours in a project document, the user colour file or a preset file.
namespace lxcolor {

/// The attributes of one "Color" element.
struct StoredColor
{
    QString uid;
    QString name;
    QString value;
    QString originatingPreset;
    QString vendorID;
};

/// One "ColorLibrary" element with the "Color" elements directly below it.
struct ColorSection
{
    QString name;
    bool isUserList = false;
    QVector<StoredColor> colors;
};

/// All "ColorLibrary" elements of a document, at any depth, in the order in which they begin.
QVector<ColorSection> readColorSections(const QDomDocument& document);

struct ColorSections
{
    /// How much of the text could be read.
    enum Outcome {
        Whole,    ///< As it stands.
        Repaired, ///< Only after bytes or characters that do not belong in it were replaced.
        Unreadable
    };
    Outcome outcome = Unreadable;
    QString error;                  ///< Why it is unreadable.
    QVector<ColorSection> sections; ///< Empty when it is unreadable, also where some lists came before the fault.
    bool holdsMore = false;         ///< Whether there are elements, attributes, texts or comments that no list holds.
};

/**
 * The same from XML text, without a document tree. Elements may be nested to a depth of 1024 and have 256 attributes
 * and a length of 8 MiB; there may be 100,000 lists and 1,000,000 colours. Text with entity declarations of its own is
 * not read. Up to 16 MiB of text that only older programs wrote is put right: without an encoding but not UTF-8 (taken
 * for the text encoding of the locale, or Latin-1), or with control characters.
 */
ColorSections readColorSections(const QByteArray& xml);

/// Writes lists as the document that QDomDocument::toString(1) would give, with the attributes in a fixed order.
class ColorSectionWriter
{
public:
    ColorSectionWriter();
    void beginList(const QString& name, bool isUserList);
    void addColor(const StoredColor& color);
    void endList();
    /// The text; the writer is used up.
    QString finish();

private:
    void attribute(QLatin1String name, const QString& value);

    QString m_text;
    bool m_hasLists = false;
    bool m_listHasColors = false;
};

/// Sets the attributes of a "ColorLibrary" element; appends a "Color" element to it.
void setListAttributes(QDomElement& list, const QString& name, bool isUserList);
void appendColor(QDomDocument& document, QDomElement& list, const StoredColor& color);

} // namespace lxcolor

#endif
