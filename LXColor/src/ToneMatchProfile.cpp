#include "ToneMatchProfile.h"

#include "Tristimulus.h"

ToneMatchProfile::ToneMatchProfile(const QString& name, ColorUtils::ChannelConfiguration channelConfiguration,
                                   int defaultOnboardCurve, QList<ColorUtils::IOModeID> availableIOModeIDs,
                                   ColorUtils::IOModeID defaultIOModeID, ColorUtils::IOModeID defaultIOModeID3toN)
    : m_name(name)
    , m_channelConfiguration(channelConfiguration)
    , m_defaultOnboardCurve(defaultOnboardCurve)
    , m_defaultIOModeID(defaultIOModeID)
    , m_defaultIOModeID3toN(defaultIOModeID3toN)
    , m_availableIOModeIDs(availableIOModeIDs)
{
}

QString ToneMatchProfile::name() const { return m_name; }

ColorUtils::ChannelConfiguration ToneMatchProfile::getChannelConfiguration() const { return m_channelConfiguration; }

int ToneMatchProfile::getDefaultOnboardCurve() const { return m_defaultOnboardCurve; }

QList<ColorUtils::IOModeID> ToneMatchProfile::getAvailableIOModeIDs() const { return m_availableIOModeIDs; }

ColorUtils::IOModeID ToneMatchProfile::getDefaultIOModeID() const { return m_defaultIOModeID; }

ColorUtils::IOModeID ToneMatchProfile::getDefaultIOModeID3toN() const { return m_defaultIOModeID3toN; }

void ToneMatchProfile::setTristimulus(Tristimulus* tristimulus) { m_tristimulus = tristimulus; }

Tristimulus* ToneMatchProfile::getTristimulus() const { return m_tristimulus; }

QStringList ToneMatchProfile::getChannelNames() const
{
    return m_tristimulus ? m_tristimulus->getChannelNames() : QStringList();
}

void ToneMatchProfile::setDefaultIsTonematchEnabled(ColorUtils::IOModeID mode, bool enabled)
{
    m_defaultIsTonematchEnabled.insert(mode, enabled);
}

bool ToneMatchProfile::getDefaultIsTonematchEnabled(ColorUtils::IOModeID mode) const
{
    return m_defaultIsTonematchEnabled.value(mode, false);
}
