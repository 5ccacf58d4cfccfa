#ifndef COLORSECTIONREADER_P_H
#define COLORSECTIONREADER_P_H

#include <QLatin1String>
#include <QString>
#include <QTextCodec>
#include <QVector>

class QXmlStreamReader;

// How XML text with colour lists is read, apart from what becomes of them. It needs Qt alone, and is built into the
// second library too, whose checker has to come to the same decisions.
namespace lxcolor {

const QLatin1String DocumentTag("ColorLibraryList");
const QLatin1String ListTag("ColorLibrary");
const QLatin1String ColorTag("Color");
const QLatin1String NameAttribute("name");
const QLatin1String UserListAttribute("isUserLibrary");
const QLatin1String UidAttribute("uid");
const QLatin1String ValueAttribute("value");
const QLatin1String OriginatingPresetAttribute("originatingPreset");
const QLatin1String VendorIdAttribute("colorId");
/// Name and value of a colour whose element does not have them.
const QLatin1String MissingAttribute("empty attribute");

/// Files above 128 MiB, some 600,000 colours, count as unreadable.
constexpr qint64 MaxFileSize = qint64(128) * 1024 * 1024;
/// Larger text than this older programs did not write, and it is not repaired.
constexpr qint64 MaxRepairedSize = qint64(16) * 1024 * 1024;

/// \a text without what XML 1.0 cannot hold (control characters, halves of surrogate pairs): U+FFFD stands in for it.
QString xmlText(const QString& text);

/// What QDomDocument calls the name of an element when it reads with namespaces, as files always were.
QStringRef localName(const QXmlStreamReader& xml);

/// Where something stands in a text, from 1; 0 for nowhere.
struct TextPlace
{
    qint64 line = 0;
    qint64 column = 0;
};

/// Where the tag begins that follows on what \a xml is at.
TextPlace placeOfNext(const QXmlStreamReader& xml);
/// The same for the tag that \a xml is at, which is the first. White space before it belongs to no token: the line is
/// that of its end.
TextPlace placeOfRoot(const QXmlStreamReader& xml);

/// Whether markup, from one "<" to the next, is short enough and has few enough attributes. Nothing is asked of what is
/// between these, so that it holds for every encoding that writes ASCII as such, or with zero bytes in between.
class MarkupBounds
{
public:
    enum class Excess { None, Attributes, Length };

    /// Goes on through the next bytes, to the first excess.
    Excess excessIn(const QByteArray& bytes);

private:
    qint64 m_length = 0;
    int m_attributes = 0;
    bool m_isAssigned = false;
};

/// Text that a conforming reader refuses, as its writer may have meant it.
class TextRepair
{
public:
    /// To be called with all of the bytes, one piece after another, before anything is repaired.
    void examine(const QByteArray& bytes);
    /// Whether the repaired text is another one.
    bool isNeeded() const { return m_isChanged || isMisencoded(); }
    /// The text of all the bytes, one piece after another.
    QString repaired(const QByteArray& bytes);

private:
    bool isMisencoded() const { return m_examined.invalidChars > 0 || m_examined.remainingChars > 0; }

    QTextCodec::ConverterState m_examined;
    QTextCodec::ConverterState m_repaired;
    bool m_isChanged = false;
    bool m_hasBegun = false;
};

/// Goes through XML text, within bounds, and tells the lists and colours among its elements.
class ColorSectionReader
{
public:
    enum class Element { List, Color, Other };
    enum class Refusal { None, NotWellFormed, TooDeep, TooMany, Entities };

    virtual ~ColorSectionReader();

    /// Reads to the end. \a xml has the error, if there is one.
    Refusal read(QXmlStreamReader& xml);

protected:
    /// An element begins, at which \a xml is. Colours are those directly below a list.
    virtual void begin(Element element, const QXmlStreamReader& xml) = 0;
    virtual void end(Element element) = 0;
    /// Text other than white space, a comment or a processing instruction, at which \a xml is.
    virtual void passBy(const QXmlStreamReader& xml);
    /// Gives \a xml more text; false when there is none.
    virtual bool feed(QXmlStreamReader& xml);

    /// Where the element that begins has its "<", from 1.
    TextPlace place() const { return m_place; }
    /// The elements that are open, but for the one that begins or ends.
    const QVector<Element>& path() const { return m_path; }

private:
    Refusal beginElement(QXmlStreamReader& xml);

    QVector<Element> m_path;
    TextPlace m_place;
    int m_listCount = 0;
    int m_colorCount = 0;
};

} // namespace lxcolor

#endif
