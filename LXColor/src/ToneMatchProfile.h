#ifndef TONEMATCHPROFILE_H
#define TONEMATCHPROFILE_H

#include "ColorUtils.h"
#include "LXColorExport.h"

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

class Tristimulus;

/// What is known about one fixture model: name, layout, onboard curve, IO modes and defaults, and its emitter data.
class LXCOLOR_EXPORT ToneMatchProfile
{
public:
    /// A profile without emitter data and without colour matching defaults.
    ToneMatchProfile(const QString& name, ColorUtils::ChannelConfiguration channelConfiguration,
                     int defaultOnboardCurve, QList<ColorUtils::IOModeID> availableIOModeIDs,
                     ColorUtils::IOModeID defaultIOModeID, ColorUtils::IOModeID defaultIOModeID3toN);

    /// The translated display name.
    QString name() const;
    /// The fixture's own channel layout.
    ColorUtils::ChannelConfiguration getChannelConfiguration() const;
    /// The curve type (0 linear, 1 normal, 2 tungsten) of the dimming curve built into the fixture.
    int getDefaultOnboardCurve() const;
    /// The IO modes the fixture supports, in the order in which they are offered.
    QList<ColorUtils::IOModeID> getAvailableIOModeIDs() const;
    /// The IO mode in which a new fixture starts.
    ColorUtils::IOModeID getDefaultIOModeID() const;
    /// The IO mode for a fixture that is fed three RGB channels.
    ColorUtils::IOModeID getDefaultIOModeID3toN() const;

    /// Points the profile at its emitter data, which stay owned by their registry.
    void setTristimulus(Tristimulus* tristimulus);
    /// The emitter data; null until set.
    Tristimulus* getTristimulus() const;
    /// The names of the emitters in channel order; empty without emitter data.
    QStringList getChannelNames() const;

    /// Sets whether colour matching is on by default in an IO mode.
    void setDefaultIsTonematchEnabled(ColorUtils::IOModeID mode, bool enabled);
    /// Whether colour matching is on by default in an IO mode; false where it was never set.
    bool getDefaultIsTonematchEnabled(ColorUtils::IOModeID mode) const;

private:
    QString m_name;
    Tristimulus* m_tristimulus = nullptr;
    ColorUtils::ChannelConfiguration m_channelConfiguration;
    int m_defaultOnboardCurve;
    ColorUtils::IOModeID m_defaultIOModeID;
    ColorUtils::IOModeID m_defaultIOModeID3toN;
    QMap<ColorUtils::IOModeID, bool> m_defaultIsTonematchEnabled;
    QList<ColorUtils::IOModeID> m_availableIOModeIDs;
};

#endif
