#ifndef INPUTFAULT_P_H
#define INPUTFAULT_P_H

#include "ColorSectionReader_p.h"

#include <QString>

namespace lxcolor {

/// Why a file is refused, and where: at a place of a text or at a byte. Thrown while a file is read, and caught where
/// the library's public call ends.
struct InputFault
{
    QString text; ///< Translated, without an end.
    TextPlace place{};
    qint64 offset = -1;
};

/// Where the character at \a offset stands in a text.
TextPlace placeAt(const QString& text, int offset);

} // namespace lxcolor

#endif
