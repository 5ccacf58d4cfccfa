#include "Appearance.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleOption>
#include <QToolTip>

namespace {

struct Colors
{
    QColor window, base, alternateBase, button, text, placeholder, disabled, highlight, highlightedText, link, edge;
};

// clang-format off
const Colors kLight = {
    QColor(243, 244, 246), QColor(255, 255, 255), QColor(248, 249, 250), QColor(250, 250, 251), QColor(28, 31, 36),
    QColor(104, 110, 120), QColor(150, 155, 163), QColor(38, 103, 214),  QColor(255, 255, 255), QColor(24, 86, 190),
    QColor(205, 209, 215),
};
const Colors kDark = {
    QColor(31, 33, 38),    QColor(24, 26, 30),    QColor(36, 39, 44),    QColor(47, 50, 57),    QColor(228, 230, 234),
    QColor(150, 156, 166), QColor(112, 117, 126), QColor(52, 116, 226),  QColor(255, 255, 255), QColor(122, 176, 255),
    QColor(62, 66, 74),
};
// clang-format on

QPalette paletteOf(const Colors& colors)
{
    QPalette palette(colors.button, colors.window);
    palette.setColor(QPalette::WindowText, colors.text);
    palette.setColor(QPalette::Base, colors.base);
    palette.setColor(QPalette::AlternateBase, colors.alternateBase);
    palette.setColor(QPalette::Text, colors.text);
    palette.setColor(QPalette::ButtonText, colors.text);
    palette.setColor(QPalette::PlaceholderText, colors.placeholder);
    palette.setColor(QPalette::Highlight, colors.highlight);
    palette.setColor(QPalette::HighlightedText, colors.highlightedText);
    palette.setColor(QPalette::Link, colors.link);
    palette.setColor(QPalette::Mid, colors.edge);
    palette.setColor(QPalette::ToolTipBase, colors.alternateBase);
    palette.setColor(QPalette::ToolTipText, colors.text);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, colors.disabled);
    return palette;
}

/// Fusion, with edges of boxes that are seen on dark as well, and one quiet line between the tools and the rest.
class EdgedStyle : public QProxyStyle
{
public:
    EdgedStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override
    {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        if (element != PE_IndicatorCheckBox)
            return;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(option->palette.color(QPalette::PlaceholderText));
        painter->setBrush(Qt::NoBrush);
        painter->drawRoundedRect(QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5), 2.0, 2.0);
        painter->restore();
    }

    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override
    {
        const QRect bottom(option->rect.left(), option->rect.bottom(), option->rect.width(), 1);
        switch (element) {
        case CE_ToolBar:
            painter->fillRect(option->rect, option->palette.window());
            painter->fillRect(bottom, option->palette.color(QPalette::Mid));
            break;
        case CE_MenuBarEmptyArea:
            painter->fillRect(option->rect, option->palette.window());
            break;
        case CE_MenuBarItem:
            QProxyStyle::drawControl(element, option, painter, widget);
            if (!option->state.testFlag(State_Selected)) // Its own line, which may lie between two pixels.
                painter->fillRect(bottom.adjusted(0, -1, 0, 0), option->palette.window());
            break;
        default:
            QProxyStyle::drawControl(element, option, painter, widget);
        }
    }
};

} // namespace

Appearance surroundingAppearance()
{
    const QPalette palette = QApplication::palette();
    const bool isDark = palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
    return isDark ? Appearance::Dark : Appearance::Light;
}

void setAppearance(Appearance appearance)
{
    QApplication::setStyle(new EdgedStyle); // The application owns it.
    const QPalette palette = paletteOf(appearance == Appearance::Dark ? kDark : kLight);
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
}
