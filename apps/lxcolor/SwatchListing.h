#ifndef SWATCHLISTING_H
#define SWATCHLISTING_H

#include "SwatchFile.h"

#include <QJsonObject>

// How lists of colours are printed.

/// The object of a list: docs/json.md says what its keys mean.
QJsonObject toJson(const QString& fileName, const SwatchList& list);
/// A table for people; with \a swatches each row shows its colour.
void writeTable(const QString& fileName, const SwatchList& list, bool swatches);

#endif
