#ifndef PROJECTDOCUMENT_H
#define PROJECTDOCUMENT_H

#include <QByteArray>
#include <QCoreApplication>
#include <QDomDocument>
#include <QString>

class LXColorLibrary;

/**
 * A project document: an XML file with colours of the project in "ColorLibrary" elements, and whatever else its
 * application keeps there. That, colours that cannot be read, and attributes that are not known stay in it when it is
 * saved; a colour stays in the element that it came from.
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
    /// Writes the document with the project's colours of the library, in one step: on failure the file is as it was.
    QString save(const QString& path, LXColorLibrary& library);

    /// The document as it would be saved.
    QByteArray bytes(LXColorLibrary& library);
    /// The project's colours of the library as a text that is different when one of them is.
    static QString colorsOf(LXColorLibrary& library);

private:
    QDomDocument m_document; ///< As it was opened, but for uids that were missing or shared.
    bool m_hasCarriageReturns = false;
};

#endif
