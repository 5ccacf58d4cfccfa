#ifndef FUZZ_FUZZSUPPORT_H
#define FUZZ_FUZZSUPPORT_H

#include "FuzzInput.h"
#include "LXColor.h"

/// Ends the program with \a what when something that always holds does not.
void require(bool holds, const char* what);
void require(bool holds, const char* what, const QString& details);

/// A colour of any face, with profiles and configurations among them that do not exist, and any alpha.
LXColor anyColor(FuzzInput& input);
ColorUtils::TonematchProfileID anyProfile(FuzzInput& input);
ColorUtils::ChannelConfiguration anyConfiguration(FuzzInput& input);

/// A value string without the sign of zeros: numbers that are rounded to zero keep theirs in the text, but zero has
/// none.
QString withoutSignOfZero(QString value);
/// Calls everything that a colour can be asked.
void askEverything(const LXColor& color);

/// A folder of the process, in memory where there is such a place.
QString scratchFolder();
QByteArray contentOf(const QString& path);
void writeFile(const QString& path, const QByteArray& content);

#endif
