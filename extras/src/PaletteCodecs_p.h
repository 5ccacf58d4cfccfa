#ifndef PALETTECODECS_P_H
#define PALETTECODECS_P_H

#include "InputFault_p.h"
#include "PaletteRemarks_p.h"

#include <QHash>
#include <QJsonObject>

// What the formats have in common, and the way in and out of each.
namespace lxcolor {

/// Fills a palette, within bounds.
class PaletteBuilder
{
public:
    /// Colours before the first list come into one called \a listName.
    PaletteBuilder(const QString& listName, PaletteRemarks& remarks) : m_listName(listName), m_remarks(remarks) {}

    void beginList(const QString& name, bool isUserList = true);
    /// Colours that follow come into no list.
    void endList() { m_isInList = false; }
    /// What the list of colours in no list is called.
    void setListName(const QString& name) { m_listName = name; }
    /// Leaves out, with a remark, what has no readable value. Throws an InputFault when there are too many.
    void add(const Palette::Entry& entry);
    /// A colour of which no more is known, from 16-bit numbers.
    void add(const QString& name, const LXColor& color) { add({name, color.aName(), {}, {}, {}}); }

    PaletteRemarks& remarks() { return m_remarks; }
    const Palette& palette() const { return m_palette; }
    /// The list of a name, begun where there is none.
    void goToList(const QString& name, bool isUserList);

private:
    Palette m_palette;
    QString m_listName;
    PaletteRemarks& m_remarks;
    bool m_isInList = false;
    int m_list = -1;      ///< The open list.
    int m_looseList = -1; ///< That of the colours in no list.
    int m_size = 0;
    QHash<QString, int> m_listsByName;
};

/// The text of a file: UTF-8 or UTF-16 with a byte order mark, UTF-8, or else Windows-1252 with \a isGuessed set.
QString decodedText(const QByteArray& bytes, bool& isGuessed);
QString decodedText(const QByteArray& bytes, PaletteRemarks& remarks);

// ---- What formats with comments keep in them: "lxcolor {...}" before a colour, "lxcolor-list {...}" before those of a
//      list, with a JSON object on one line. ----

/// What stands in a comment for a list, and for a colour that is shown to others as \a shownName and \a shownColor.
///@{
QString listComment(const Palette::List& list);
QString colorComment(const Palette::Entry& entry, const QString& shownName, const QString& shownColor);
///@}

/// Takes what comments say to the colours that follow them.
class CommentReader
{
public:
    explicit CommentReader(PaletteBuilder& builder) : m_builder(builder) {}

    /// The name under which others see the first list that a comment begins. Where it is another than that of the
    /// comment it was edited, and counts.
    void setShownListName(const QString& name) { m_shownListName = name; }
    /// Whether the text of a comment is one of ours, which then counts for what follows.
    bool take(const QString& comment);
    /// A colour: its own name and numbers, as they are shown to others, unless they are those that a comment tells more
    /// of.
    void addColor(const QString& shownName, const QString& shownColor, const LXColor& color);
    /// The end of the file.
    void finish();

private:
    void dropPending();

    PaletteBuilder& m_builder;
    QString m_shownListName;
    QJsonObject m_pending; ///< Of the comment before the next colour; empty when there is none.
};

/// The colour of an entry for other programs, as red, green and blue.
LXColor rgbOf(const Palette::Entry& entry);
/// \a text without control characters and white space at its ends.
QString onOneLine(const QString& text);

// ---- The formats. Readers throw an InputFault. ----

void readGpl(const QByteArray& content, PaletteBuilder& builder);
void readAse(const QByteArray& content, PaletteBuilder& builder);
void readAco(const QByteArray& content, PaletteBuilder& builder);
void readCsv(const QByteArray& content, PaletteBuilder& builder);
void readCss(const QByteArray& content, PaletteBuilder& builder);
void readDocument(const QByteArray& content, PaletteBuilder& builder);

// Every entry has a value that can be read. Writers throw an InputFault without a place.
QByteArray writeGpl(const Palette& palette, PaletteRemarks& remarks);
QByteArray writeAse(const Palette& palette, PaletteRemarks& remarks);
QByteArray writeAco(const Palette& palette, PaletteRemarks& remarks);
QByteArray writeCsv(const Palette& palette, PaletteRemarks& remarks);
QByteArray writeCss(const Palette& palette, PaletteRemarks& remarks);
QByteArray writeDocument(const Palette& palette, PaletteRemarks& remarks);

} // namespace lxcolor

#endif
