#ifndef CHROMATICITY_H
#define CHROMATICITY_H

#include "LXColor.h"

#include <QJsonObject>
#include <QStringList>

/// A chromaticity as subcommands print it: CIE 1931 x, y and CIE 1976 u', v'.
struct Chromaticity
{
    double x;
    double y;

    /// What a colour means through the emitters that it was made for. Black has none.
    static Chromaticity of(const LXColor& color);

    bool isKnown() const; ///< Finite, and of a light that can be.
    double uPrime() const;
    double vPrime() const;

    static QStringList heads(); ///< Of cells().
    QStringList cells() const;  ///< Four numbers for a table; "-" for those that are not known.
    /// x, y, uPrime and vPrime; null where they are not known.
    QJsonObject members() const;
};

#endif
