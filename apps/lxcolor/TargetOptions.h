#ifndef TARGETOPTIONS_H
#define TARGETOPTIONS_H

#include "ColorUtils.h"

#include <QString>
#include <QStringList>

class SubcommandLine;

/// A fixture that is to show colours, and how it is driven.
struct OutputTarget
{
    ColorUtils::TonematchProfileID fixture;
    ColorUtils::IOModeID ioMode;
    QStringList channels;
    int bytesPerChannel;
    int directCurve;
    int onboardCurve;
    bool allowRgbPassThrough;
};

enum class Fixtures { One, Several };

/// Adds the options for how a fixture is driven.
void addDriveOptions(SubcommandLine& line);
/// Adds --fixture and the options for how it is driven.
void addTargetOptions(SubcommandLine& line, Fixtures fixtures);
/// The fixture of that name, driven as the options say, and where they say nothing as the fixture is by default. Throws
/// a CommandError for what does not exist.
OutputTarget targetOf(const SubcommandLine& line, const QString& fixtureName);

#endif
