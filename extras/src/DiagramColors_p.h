#ifndef DIAGRAMCOLORS_P_H
#define DIAGRAMCOLORS_P_H

#include "ChromaticityDiagram.h"

#include <QColor>

namespace lxcolor {

/// The colours of the diagram's furniture.
struct DiagramColors
{
    QColor background;
    QColor plot;  ///< Inside the axes.
    QColor text;  ///< Titles, numbers, legend.
    QColor faint; ///< Frame and ticks.
    QColor grid;
    QColor locus;       ///< The spectral locus.
    QColor ink;         ///< Lines and names over the coloured interior.
    QColor halo;        ///< Around them.
    QColor legendPanel; ///< Behind the legend.
    int interiorValue;  ///< Brightness of the interior, 0..255.
};

const DiagramColors& diagramColors(ChromaticityDiagram::Palette palette);

/// The colour of the n-th fixture that has none of its own.
QColor fixtureColor(ChromaticityDiagram::Palette palette, int n);

} // namespace lxcolor

#endif
