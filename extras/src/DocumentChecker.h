#ifndef DOCUMENTCHECKER_H
#define DOCUMENTCHECKER_H

#include "LXColorExtrasExport.h"

#include <QCoreApplication>
#include <QString>
#include <QVector>

class QIODevice;

/**
 * Finds what is wrong with fixture profile databases, user colour files, preset files and other documents with colour
 * lists, and says where. All operations are static; nothing is loaded.
 *
 * An error is what the library refuses or drops: a file, a list, a colour, a profile. What it reads in another way than
 * its author may have meant is a warning, and what it fills in or rewrites without harm a note. The decisions are those
 * of the library's own readers. No content of a file makes a check take long or need much memory.
 */
class LXCOLOR_EXTRAS_EXPORT DocumentChecker
{
    Q_DECLARE_TR_FUNCTIONS(DocumentChecker)

public:
    /// What a document is, by its elements.
    enum class Kind {
        Unknown,         ///< Nothing that the library reads.
        FixtureProfiles, ///< A fixture profile database.
        ColorLists,      ///< A user colour file, a preset file or an exported list: read by LXColorLibrary.
        Project          ///< A document with colour lists among other things: read by LXColorLibrary::loadDocument().
    };

    /// How bad a finding is.
    enum class Severity { Note, Warning, Error };

    /// What was found. name() gives the words in quotes, which never change.
    enum class Code {
        // The file
        NotWellFormed,     ///< "not-well-formed": no XML, or XML that only a tolerant reader takes.
        Encoding,          ///< "encoding": an encoding that is not known, or that is not the one of the text.
        ReplacedText,      ///< "replaced-text": bytes or characters that U+FFFD or a guess stands in for.
        TooLarge,          ///< "too-large": more than the library reads.
        TooDeep,           ///< "too-deep": elements nested deeper than the library reads.
        TooManyAttributes, ///< "too-many-attributes": an element with more than the library reads.
        Entities,          ///< "entities": entity declarations, or a long document type declaration.
        Nothing,           ///< "nothing": no profile and no list.
        NotChecked,        ///< "not-checked": the check ended early.
        MoreFindings,      ///< "more-findings": only the first are listed.

        // Elements and attributes
        UnknownElement,   ///< "unknown-element": is ignored.
        UnknownAttribute, ///< "unknown-attribute": is ignored.
        MisplacedElement, ///< "misplaced-element": a colour outside a list, a channel outside a profile.
        MissingAttribute, ///< "missing-attribute": something stands in for it.
        UnreadableNumber, ///< "unreadable-number": counts as 0.

        // Profiles
        ProfileIndex,     ///< "profile-index": outside -1..10, where reading stops.
        UnknownProfile,   ///< "unknown-profile": a number that no fixture has.
        DuplicateProfile, ///< "duplicate-profile": replaces one before it.
        NestedProfile,    ///< "nested-profile": one that begins inside another.
        ChannelIndex,     ///< "channel-index": does not follow the channels before it.
        ChannelOrder,     ///< "channel-order": an index that is taken, so that the channels before it move up.
        TooFewChannels,   ///< "too-few-channels": fewer than red, green and blue.
        TooManyChannels,  ///< "too-many-channels": more than any fixture.
        ChannelCount,     ///< "channel-count": does not fit the layout.
        NotFinite,        ///< "not-finite": infinite, no number, or a sum that overflows.
        NegativeValue,    ///< "negative-value": no light has it.
        NoLight,          ///< "no-light": all of a channel's values are 0.
        OutsideLocus,     ///< "outside-locus": a chromaticity outside the spectral locus, that no light has.

        // Colours
        UnreadableValue, ///< "unreadable-value": no colour.
        ValueRange,      ///< "value-range": an intensity outside 0..1, or numbers that are not finite.
        RewrittenValue,  ///< "rewritten-value": is saved in another form.
        DuplicateUid,    ///< "duplicate-uid": the uid of a colour before it.
        EmptyList        ///< "empty-list": without colours.
    };

    /// One finding.
    struct Finding
    {
        Severity severity; ///< How bad it is.
        Code code;         ///< What it is.
        qint64 line;       ///< From 1; 0 where it concerns the whole file.
        qint64 column;     ///< In characters, from 1; 0 where it concerns the whole file.
        QString text;      ///< A translated sentence.
    };

    /// What a check found.
    struct LXCOLOR_EXTRAS_EXPORT Report
    {
        Kind kind = Kind::Unknown; ///< What the document is.
        QVector<Finding>
            findings; ///< In the order of the text, as a rule; at most mostFindings errors and as many others.
        /// How many there are of each severity, listed or not.
        ///@{
        qint64 errors = 0;
        qint64 warnings = 0;
        qint64 notes = 0;
        ///@}
    };

    static constexpr int mostFindings = 1000; ///< That many errors are listed, and as many others.

    /**
     * Checks the document of \a device, which is to be open for reading and stays where it then happens to be. One that
     * is not sequential is read from its beginning, several times. A null or closed device counts as an empty document.
     */
    static Report check(QIODevice* device);

    /// The words that stand for these in the program's output; they are not translated.
    ///@{
    static QString name(Kind kind);
    static QString name(Severity severity);
    static QString name(Code code);
    ///@}
};

#endif
