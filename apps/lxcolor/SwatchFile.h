#ifndef SWATCHFILE_H
#define SWATCHFILE_H

#include "LXColor.h"

#include <QString>
#include <QVector>

/// One colour of a list, as a document holds it.
struct Swatch
{
    QString name;
    QString uid;
    QString valueString;
    QString originatingPreset;
    QString vendorId;
    LXColor color; ///< Of the value string; invalid when that cannot be read, and then the library leaves it out.
};

/// One list of colours.
struct SwatchList
{
    QString name;
    bool isUserList;
    QVector<Swatch> colors;
};

/// The lists of a user colour file, a preset file or a project document, through the library's own reader. Throws a
/// CommandError that names file, line and column when the file cannot be read or is no XML.
QVector<SwatchList> readSwatchFile(const QString& fileName);

/// A document of its own with the colours of one list that can be read, without their uids, which whoever loads it
/// gives anew.
QByteArray standAloneDocument(const SwatchList& list);

#endif
