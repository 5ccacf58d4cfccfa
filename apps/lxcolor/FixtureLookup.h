#ifndef FIXTURELOOKUP_H
#define FIXTURELOOKUP_H

#include "ColorUtils.h"

#include <QList>
#include <QString>
#include <QStringList>

// Fixtures, IO modes and curves as a command line names them: by number, name or the beginning of a name. What is not
// known throws a CommandError that says what is.

ColorUtils::TonematchProfileID fixtureNamed(const QString& text);
/// The same, but one with a gamut: a single-channel fixture is refused.
ColorUtils::TonematchProfileID fixtureWithGamutNamed(const QString& text);
/// One of the modes of ioModesOf(\a fixture). A one-to-one mode also goes by its layout alone: "RGBW".
ColorUtils::IOModeID ioModeNamed(const QString& text, ColorUtils::TonematchProfileID fixture);
/// A curve type.
int curveNamed(const QString& text);

/// The modes that a fixture supports, and the one for three RGB channels where it is not among them.
QList<ColorUtils::IOModeID> ioModesOf(ColorUtils::TonematchProfileID fixture);
/// The channels that a fixture is sent in a mode: the mode's own layout where it is one-to-one, else the fixture's.
ColorUtils::ChannelConfiguration outputLayout(ColorUtils::TonematchProfileID fixture, ColorUtils::IOModeID mode);
/// A name for each channel of \a layout on \a fixture.
QStringList channelNames(ColorUtils::TonematchProfileID fixture, ColorUtils::ChannelConfiguration layout);

#endif
