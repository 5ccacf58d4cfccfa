#ifndef PALETTEREMARKS_P_H
#define PALETTEREMARKS_P_H

#include "PaletteFormat.h"

namespace lxcolor {

/// Counts what was lost, changed or left out, by kind.
class PaletteRemarks
{
public:
    using Code = PaletteFormat::Code;

    void add(Code code, int count = 1) { m_counts[static_cast<int>(code)] += count; }
    /// The kinds that were counted, in sentences.
    QVector<PaletteFormat::Remark> list() const;

private:
    int m_counts[static_cast<int>(Code::Encoding) + 1] = {};
};

/// What a format has a place for, in its own way or in comments.
struct PaletteRoom
{
    bool holdsValues; ///< Value strings, uids and what else is known of a colour.
    bool holdsLists;  ///< Several lists, with their names.
};

/// Counts what a palette loses in a format.
void countLosses(const Palette& palette, PaletteRoom room, PaletteRemarks& remarks);

} // namespace lxcolor

#endif
