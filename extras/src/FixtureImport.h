#ifndef FIXTUREIMPORT_H
#define FIXTUREIMPORT_H

#include "ColorUtils.h"
#include "LXColorExtrasExport.h"
#include "StandardObserver.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QString>
#include <QStringList>
#include <QVector>

/**
 * Brings measured emitters of a fixture into a fixture profile database, in three steps: read() a measurement, assign()
 * its emitters to the channels of a profile, and writeProfile() these into a database. All operations are static.
 *
 * Read are:
 *
 * - *GDTF* (DIN SPEC 15800): a description.xml, or the archive that holds one, where libzip was there when the library
 *   was built. The emitters of a fixture type, with their measured spectra or else their colour x, y, Y, on the scale
 *   of their luminous intensity.
 * - *Tables* as CSV, and *CGATS* text (ISO 28178): a row an emitter with x, y, Y or X, Y, Z or a spectrum, or (CSV) a
 *   row a wavelength with a column an emitter. Numbers may have decimal commas.
 *
 * Spectra are integrated with the CIE 1931 2-degree observer. Only the ratios of emitters count, so any unit will do
 * that is stated and the same for all. docs/fixture-import.md has what is read, and from where.
 */
class LXCOLOR_EXTRAS_EXPORT FixtureImport
{
    Q_DECLARE_TR_FUNCTIONS(FixtureImport)

public:
    /// What a measurement comes from. name() gives the words in quotes, which never change.
    enum class Source {
        GdtfArchive,     ///< "gdtf-archive"
        GdtfDescription, ///< "gdtf-description"
        Csv,             ///< "csv"
        Cgats            ///< "cgats"
    };

    /// The light of an emitter at full level.
    struct Emitter
    {
        QString name;                ///< As the file has it.
        StandardObserver::XYZ light; ///< On a scale common to the emitters of the file; finite, Y above 0.
        QString origin;              ///< Where the numbers come from, in English: for comments in a database.
    };

    /// Why something was refused, and where.
    struct Error
    {
        QString text;      ///< A translated sentence without an end; empty for none.
        qint64 line = 0;   ///< From 1; 0 where there is none.
        qint64 column = 0; ///< In characters, from 1; 0 where there is none.
    };

    /// What came of reading.
    struct Reading
    {
        bool isRead = false;         ///< Otherwise there is an error and no emitter.
        Source source = Source::Csv; ///< What the content was taken for.
        QString unit;                ///< That of Y, or of the spectra; "relative" for none.
        QVector<Emitter> emitters;   ///< In the order of the file.
        QStringList remarks;         ///< Translated sentences: what was left out, or taken in another way.
        Error error;                 ///< Why it was not read.
    };

    /// What came of looking for the emitter of each channel.
    struct Assignment
    {
        bool isComplete = false;   ///< Otherwise there is an error and no channel.
        QVector<Emitter> channels; ///< In the order of the profile's layout.
        QStringList remarks;       ///< Translated sentences, also on lights that are out of the ordinary.
        QString error;             ///< A translated sentence without an end.
    };

    /// What came of writing.
    struct Database
    {
        bool isWritten = false;   ///< Otherwise there is an error and no content.
        QByteArray content;       ///< All of the database, in UTF-8.
        bool isReplacing = false; ///< Whether the profile replaces an earlier one of the database.
        QString error;            ///< A translated sentence without an end.
    };

    static constexpr qint64 largestFile = 64 * 1024 * 1024; ///< Bytes; what is larger is refused.

    /// The word that stands for it in the program's output, not translated: "gdtf-archive".
    static QString name(Source source);
    /// Whether archives can be read: whether libzip was there when the library was built.
    static bool readsArchives();

    /// Reads a measurement; what it is, its content tells. \a unit states the unit of a table that does not do so
    /// itself, such as "cd/m2"; where both do, they have to agree. Empty for none.
    static Reading read(const QByteArray& content, const QString& unit = QString());

    /**
     * Finds the emitter of each channel of a profile's layout. With \a channels they are those: a name, or a number
     * from 1, for each channel. Otherwise an emitter is found by its name ("Red", "LED red", "rot", "R"), and where no
     * name fits by its colour. Refused when a channel has no emitter or more than one, when a name contradicts the
     * colour, and for profiles of fewer than three channels.
     */
    static Assignment assign(const QVector<Emitter>& emitters, ColorUtils::TonematchProfileID profile,
                             const QStringList& channels = QStringList());

    /**
     * A database with a profile of these channels, whose numbers have their \a origin (the name of a file) in comments.
     * \a database is the content to add it to: every character of that stays, but for an earlier profile of the same
     * number, and that is replaced only when \a mayReplace. Empty for a new database.
     *
     * Refused for a database that is not UTF-8 or in which DocumentChecker finds errors. In the result it finds none.
     */
    static Database writeProfile(const QByteArray& database, ColorUtils::TonematchProfileID profile,
                                 const QVector<Emitter>& channels, const QString& origin, bool mayReplace = false);
};

#endif
