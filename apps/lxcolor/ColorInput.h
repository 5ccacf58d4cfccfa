#ifndef COLORINPUT_H
#define COLORINPUT_H

#include "LXColor.h"

#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>

/// A colour as the user gave it.
struct GivenColor
{
    QString text;  ///< What was read as the colour.
    QString label; ///< What the user calls it; empty where nothing was said.
    LXColor color;

    QString shown() const { return label.isEmpty() ? text : label; }
};

/// Reads COLOR or LABEL=COLOR; throws a CommandError that says what is accepted.
GivenColor readColor(const QString& text);

/**
 * The colours of a command line: its arguments in their order, and at the place of a "-" those on standard input, one a
 * line, blank lines skipped. Each may be written LABEL=COLOR.
 */
class ColorInput
{
public:
    /// Reads all \a arguments, so that a bad one is refused (CommandError) before anything is done with the others.
    explicit ColorInput(const QStringList& arguments);

    /// Calls \a use for the colours among the arguments alone, to find out what cannot be done before anything is.
    void forEachArgument(const std::function<void(const GivenColor&)>& use) const;
    /// Calls \a use for one colour after the other, for those on standard input as each line arrives. A line that
    /// cannot be read, or that \a use refuses, throws a CommandError with its number; what was done for the lines
    /// before it stands.
    void forEach(const std::function<void(const GivenColor&)>& use) const;

private:
    QVector<GivenColor> m_before;
    QVector<GivenColor> m_after;
    bool m_readsStandardInput = false;
};

/// A sentence for help texts: how colours are written.
QString colorFormsHelp();

#endif
