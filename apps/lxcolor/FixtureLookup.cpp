#include "FixtureLookup.h"

#include "CommandError.h"
#include "CurveFactory.h"
#include "FixtureGamut.h"
#include "IOMode.h"
#include "IOModeFactory.h"
#include "NameLookup.h"
#include "ToneMatchProfile.h"
#include "TonematchProfileFactory.h"

using ChannelConfiguration = ColorUtils::ChannelConfiguration;
using IOModeID = ColorUtils::IOModeID;
using ProfileID = ColorUtils::TonematchProfileID;

ProfileID fixtureNamed(const QString& text)
{
    QVector<NamedEntry> entries;
    for (const ProfileID id : ColorUtils::tonematchProfileIDList(true))
        entries.append({id, ColorUtils::tonematchProfileIDName(id), QString()});
    return static_cast<ProfileID>(idOf(text, entries, QStringLiteral("fixture")));
}

ProfileID fixtureWithGamutNamed(const QString& text)
{
    const ProfileID fixture = fixtureNamed(text);
    if (FixtureGamut(fixture).isEmpty())
        throw CommandError(QStringLiteral("%1 has a single channel, and so no gamut")
                               .arg(quoted(ColorUtils::tonematchProfileIDName(fixture))));
    return fixture;
}

IOModeID ioModeNamed(const QString& text, ProfileID fixture)
{
    QVector<NamedEntry> entries;
    for (const IOModeID id : ioModesOf(fixture)) {
        const IOMode* mode = IOModeFactory::instance()->ioMode(id);
        const QString layout = ColorUtils::nameForChannelConfiguration(mode->inputChannelConfiguration());
        entries.append({id, mode->name(), mode->isNtoN() ? layout : QString()});
    }
    const QString kind = QStringLiteral("IO mode of %1").arg(ColorUtils::tonematchProfileIDName(fixture));
    return static_cast<IOModeID>(idOf(text, entries, kind));
}

int curveNamed(const QString& text)
{
    QVector<NamedEntry> entries;
    for (int type = 0;; ++type) {
        const QString name = CurveFactory::Instance()->nameForCurveType(type);
        if (name.isEmpty())
            break;
        entries.append({type, name, QString()});
    }
    return idOf(text, entries, QStringLiteral("curve"));
}

QList<IOModeID> ioModesOf(ProfileID fixture)
{
    QList<IOModeID> modes = ColorUtils::ioModesForTonematchProfileID(fixture);
    const IOModeID threeToN = ColorUtils::defaultIOModeIDForTonematchProfileID3toN(fixture);
    if (!modes.contains(threeToN))
        modes.append(threeToN);
    return modes;
}

ChannelConfiguration outputLayout(ProfileID fixture, IOModeID mode)
{
    const IOMode* record = IOModeFactory::instance()->ioMode(mode);
    return record->isNtoN() ? record->inputChannelConfiguration()
                            : ColorUtils::nChannelConfigurationForTonematchProfileID(fixture);
}

QStringList channelNames(ProfileID fixture, ChannelConfiguration layout)
{
    // The one channel of a single-channel fixture is not the first of the three generic emitters that stand in for it.
    if (layout == ColorUtils::ConfigSingleChannel)
        return {ColorUtils::nameForChannelConfiguration(layout)};
    const QStringList emitters = TonematchProfileFactory::instance()->getProfile(fixture)->getChannelNames();
    QStringList names;
    for (int i = 0; i < ColorUtils::configChannelCount(layout); ++i)
        names << emitters.value(i, QStringLiteral("Channel %1").arg(i + 1));
    return names;
}
