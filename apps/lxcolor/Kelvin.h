#ifndef KELVIN_H
#define KELVIN_H

#include <QString>

/// Whether \a text is written as a CCT with its unit: "3200K".
bool isKelvin(const QString& text);
/// The CCT that \a text means, with or without its unit. Throws a CommandError for what is no whole number of kelvin
/// and for a CCT that CCTUtils does not know.
int kelvinOf(const QString& text);
/// The step of CCTUtils' 10 K grid that a valid CCT counts as.
int gridKelvin(int cct);

#endif
