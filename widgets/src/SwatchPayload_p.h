#ifndef SWATCHPAYLOAD_P_H
#define SWATCHPAYLOAD_P_H

#include "SwatchCommands_p.h"

#include <QPair>

class QMimeData;

// Colours on the clipboard and in drags, ours and those of other programs.
namespace lxcolor {

/// Adds what other programs understand (a colour, text) to the payload of the library, and, for this process, which
/// entries they are.
void completePayload(QMimeData* data, const QModelIndexList& entries);

/// Which entries of this process's library a payload means, as pairs of list and uid; empty for any other payload.
QVector<QPair<QString, QString>> entriesOfPayload(const QMimeData& data);

/**
 * The colours of a payload, without uids: the library's own formats with names and vendor ids, a colour
 * ("application/x-color"), or text: a document with colour lists, or a colour on each line. Entries that are no colour
 * are left out.
 */
QVector<Swatch> swatchesOfPayload(const QMimeData& data, const LXColorLibrary& library);
/// Whether there is a format that may hold colours; text counts when its first line is one.
bool mayHoldSwatches(const QMimeData& data);

} // namespace lxcolor

#endif
