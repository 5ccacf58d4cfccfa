#ifndef TABLE_H
#define TABLE_H

#include "ColorInput.h"

class SubcommandLine;

#include <QString>
#include <QStringList>
#include <QVector>

/**
 * A table of numbers for people, a row a colour, that can be printed before the last row is known: the columns are as
 * wide as their heads or the widest number, and the colour's own text, whose width is anyone's guess, stands last.
 */
class Table
{
public:
    /// \a numberWidth is the width of the widest number. With \a swatches each row shows its colour (24-bit SGR).
    Table(const QStringList& heads, int numberWidth, bool swatches);

    /// Writes the heads, under a line \a title where there is one, when the first row is: where the first line of
    /// input is refused, nothing is printed.
    void writeHeads(const QString& title = QString()) const;
    void writeRow(const QStringList& numbers, const GivenColor& given) const;

private:
    QString aligned(const QStringList& cells) const;

    QStringList m_heads;
    QVector<int> m_widths;
    bool m_swatches;
    mutable QStringList m_aboveFirstRow; ///< Lines that are yet to be written.
};

/// A patch of a colour for a terminal (24-bit SGR), five columns wide.
QString swatch(const LXColor& color);

/// Adds the option --swatches to a command line.
void addSwatchesOption(SubcommandLine& line);
/// Whether tables are to show the colours: as the option says, or else on a terminal that can.
bool wantsSwatches(const SubcommandLine& line);

#endif
