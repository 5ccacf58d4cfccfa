#include "DiagramColors_p.h"

namespace lxcolor {

const DiagramColors& diagramColors(ChromaticityDiagram::Palette palette)
{
    // clang-format off
    static const DiagramColors light = {
        QColor(255, 255, 255), QColor(252, 252, 253), QColor(38, 42, 48),    QColor(120, 126, 135),
        QColor(228, 230, 234), QColor(38, 42, 48),    QColor(20, 22, 26),    QColor(255, 255, 255, 190),
        QColor(255, 255, 255, 225), 255,
    };
    static const DiagramColors dark = {
        QColor(24, 26, 30),    QColor(30, 32, 37),    QColor(222, 225, 230), QColor(128, 134, 144),
        QColor(48, 51, 58),    QColor(222, 225, 230), QColor(255, 255, 255), QColor(14, 15, 18, 175),
        QColor(24, 26, 30, 225), 205,
    };
    // clang-format on
    return palette == ChromaticityDiagram::Palette::Dark ? dark : light;
}

QColor fixtureColor(ChromaticityDiagram::Palette palette, int n)
{
    static const QColor kLight[] = {QColor(20, 22, 26), QColor(150, 20, 90), QColor(10, 70, 160), QColor(120, 60, 0),
                                    QColor(80, 30, 140)};
    static const QColor kDark[] = {QColor(255, 255, 255), QColor(255, 170, 215), QColor(165, 210, 255),
                                   QColor(255, 225, 150), QColor(215, 185, 255)};
    const bool dark = palette == ChromaticityDiagram::Palette::Dark;
    return (dark ? kDark : kLight)[n % 5];
}

} // namespace lxcolor
