#ifndef PALETTEFORMAT_H
#define PALETTEFORMAT_H

#include "LXColorExtrasExport.h"
#include "Palette.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QString>
#include <QVector>

/**
 * Reads and writes palette files: those of drawing programs, tables, style sheets and the library's own documents. All
 * operations are static.
 *
 * Red, green and blue are the same numbers everywhere, as where the library takes "#rrggbb" or a QColor: a palette
 * entry 70 130 180 is the colour "steelblue" of the library. Other colour spaces become such numbers, those of sRGB:
 *
 * - *Lab*, CIE 1976 L*a*b* with the white of D50 (ICC profile connection space), through X, Y, Z and a Bradford
 *   adaptation to D65; what sRGB does not reach is cut.
 * - *CMYK*, as red = (1 - C)(1 - K) and so on: no ink profile is applied.
 * - *HSB*, hue, saturation and brightness, as QColor has them.
 * - *Gray*, 0 black to 1 white, as three equal numbers.
 *
 * What a format cannot hold is kept in comments that other programs skip (.gpl, CSS) or in columns (CSV), so that value
 * strings and uids come back to the letter. Where a format has no such place a remark says what was lost, for each kind
 * once. A file that cannot be read as a whole is not read at all.
 *
 * docs/palettes.md has what each format holds.
 */
class LXCOLOR_EXTRAS_EXPORT PaletteFormat
{
    Q_DECLARE_TR_FUNCTIONS(PaletteFormat)

public:
    /// The formats.
    enum class Id {
        Gpl,     ///< "gpl": the palette of a drawing program, as text (GIMP Palette).
        Ase,     ///< "ase": swatch exchange, binary, version 1.0.
        Aco,     ///< "aco": colour swatches, binary; versions 1 and 2, written as both.
        Csv,     ///< "csv": a table with a line of heads; read with comma, semicolon or tabulator.
        Css,     ///< "css": custom properties of a style sheet.
        Document ///< "document": a user colour file, a preset file or any document with colour lists.
    };

    /// What a remark is about. name() gives the words in quotes, which never change.
    enum class Code {
        // Lost in writing
        Alpha,     ///< "alpha"
        Face,      ///< "face": another face than RGB, written as RGB.
        Profile,   ///< "profile": the fixture profile.
        Uid,       ///< "uid"
        Origin,    ///< "origin": the originating preset.
        VendorId,  ///< "vendor-id"
        Name,      ///< "name": characters or a length that the format cannot hold.
        Lists,     ///< "lists": several become one.
        ListName,  ///< "list-name"
        EmptyList, ///< "empty-list": is left out.
        UserList,  ///< "user-list": a list that users may not edit becomes one that they may.

        // Changed or left out in either direction
        UnreadableValue, ///< "unreadable-value": a value string that is no colour, left out.

        // Read in another way than it stands
        Cmyk,         ///< "cmyk": inks without a profile.
        Lab,          ///< "lab": converted to sRGB.
        Cut,          ///< "cut": beyond sRGB, or a number beyond its range.
        Spot,         ///< "spot": an ink of its own becomes an ordinary colour.
        UnknownSpace, ///< "unknown-space": a colour in an unknown space, left out.
        Edited,       ///< "edited": numbers differ from the comment or value beside them.
        Comment,      ///< "comment": one of ours that fits no colour, ignored.
        Other,        ///< "other": content that is no colour, left out.
        Encoding      ///< "encoding": text that is not UTF-8, read as Windows-1252.
    };

    /// Something that was lost, changed or left out.
    struct Remark
    {
        Code code;    ///< What it is about.
        int count;    ///< How many colours, lists, names, ... are concerned, 1 or more.
        QString text; ///< A translated sentence that tells it.
    };

    /// Why a file was refused, and where.
    struct Error
    {
        QString text;       ///< A translated sentence without an end; empty for none.
        qint64 line = 0;    ///< From 1, in a text; 0 where there is none.
        qint64 column = 0;  ///< In characters, from 1; 0 where there is none.
        qint64 offset = -1; ///< In bytes, from 0, in a binary file; -1 where there is none.
    };

    /// What came of reading.
    struct Reading
    {
        bool isRead = false;     ///< Otherwise there is an error and no palette.
        Palette palette;         ///< Entries whose value strings can all be read.
        QVector<Remark> remarks; ///< In the order of the codes.
        Error error;             ///< Why it was not read.
    };

    /// What came of writing.
    struct Writing
    {
        bool isWritten = false;  ///< Otherwise there is an error and nothing was written.
        QByteArray bytes;        ///< The content of the file.
        QVector<Remark> remarks; ///< In the order of the codes.
        QString error;           ///< Why it was not written: a translated sentence without an end.
    };

    static constexpr qint64 largestFile = 128 * 1024 * 1024; ///< Bytes; what is larger is refused.
    static constexpr int mostColors = 1000000;               ///< More are refused.

    /// All formats, in the order of their ids.
    static const QVector<Id>& all();
    /// The word that stands for it in the program's options and output, not translated: "gpl".
    static QString name(Id format);
    /// The same for what a remark is about: "vendor-id".
    static QString name(Code code);
    /// Finds the format of a word that name() gives, or of a file name by its suffix in any case (.gpl, .ase, .aco,
    /// .csv, .tsv, .css, .xml, .lxcolors). False, and \a format unchanged, for any other; \a format may be null.
    ///@{
    static bool fromName(const QString& name, Id* format);
    static bool fromFileName(const QString& fileName, Id* format);
    ///@}

    /// Reads the content of a file. Colours that stand in no list come into one called \a listName. Time and memory
    /// are proportional to the size of the content, whatever the numbers in it say.
    static Reading read(const QByteArray& content, Id format, const QString& listName);
    /// Writes a palette. Refused for more colours than the format can count (.aco: 65535).
    static Writing write(const Palette& palette, Id format);
};

#endif
