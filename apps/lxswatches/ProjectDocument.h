#ifndef PROJECTDOCUMENT_H
#define PROJECTDOCUMENT_H

#include "PaletteFormat.h"
#include "ProjectText.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QString>
#include <QVector>

class LXColorLibrary;
class QTextCodec;

/**
 * A project document: an XML file with colours of the project in "ColorLibrary" elements, and whatever else its
 * application keeps there. When it is saved only the colours that have changed do, each in the element that it came
 * from: all else stays, to the byte.
 *
 * The functions that can fail give an empty text when they did not, and else say why in one sentence.
 */
class ProjectDocument
{
    Q_DECLARE_TR_FUNCTIONS(ProjectDocument)

public:
    /// An empty project.
    ProjectDocument();

    /// The project's colours become those of the library. On failure nothing changes.
    QString open(const QString& path, LXColorLibrary& library);
    /// An empty project, and the colours of a palette in all its lists become those of the library, under uids of their
    /// own. \a remarks says what was read in another way than it stands. On failure nothing changes.
    QString openPalette(const QString& path, PaletteFormat::Id format, LXColorLibrary& library, QString& remarks);
    /// Writes the document with the project's colours of the library, in one step: on failure the file is as it was.
    QString save(const QString& path, LXColorLibrary& library);

    /// Whether a file has another content than when it was opened or saved; false when it cannot be read.
    bool hasChanged(const QString& path) const;
    /// The document as it would be saved.
    QByteArray bytes(LXColorLibrary& library) const;
    /// The project's colours of the library as a text that is different when one of them is.
    static QString colorsOf(LXColorLibrary& library);

private:
    QByteArray m_bytes;  ///< As it was opened.
    QByteArray m_onDisk; ///< As it was opened or saved last.
    QTextCodec* m_codec;
    ProjectText m_text;
    QVector<ProjectText::Color> m_loaded; ///< What the library made of its colours.
};

#endif
