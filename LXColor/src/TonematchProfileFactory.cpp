#include "TonematchProfileFactory.h"

#include "FixtureTables_p.h"
#include "LazyInstance_p.h"
#include "ToneMatchProfile.h"
#include "TristimulusFactory.h"

#include <QObject>

std::atomic<TonematchProfileFactory*> TonematchProfileFactory::m_instance{nullptr};

TonematchProfileFactory* TonematchProfileFactory::instance()
{
    return lxcolor::lazyInstance(m_instance, [](auto store) { store(new TonematchProfileFactory); });
}

TonematchProfileFactory::TonematchProfileFactory() { populateProfileMap(); }

TonematchProfileFactory::~TonematchProfileFactory() { qDeleteAll(m_profiles); }

void TonematchProfileFactory::populateProfileMap()
{
    TristimulusFactory* emitterData = TristimulusFactory::getInstance();
    for (const lxcolor::ProfileRow& row : lxcolor::kProfiles) {
        if (m_profiles.contains(row.id))
            continue;
        QList<ColorUtils::IOModeID> ioModes;
        for (ColorUtils::IOModeID mode : row.ioModes)
            ioModes.append(mode);
        auto* profile = new ToneMatchProfile(QObject::tr(row.name), row.configuration, row.onboardCurve, ioModes,
                                             row.defaultMode, row.defaultMode3toN);
        for (const lxcolor::ToneMatchDefault& toneMatch : row.toneMatchDefaults)
            profile->setDefaultIsTonematchEnabled(toneMatch.mode, toneMatch.enabled);
        m_profiles.insert(row.id, profile);
        profile->setTristimulus(emitterData->getTristimulus(row.id, row.configuration));
    }
}

ToneMatchProfile* TonematchProfileFactory::getProfile(ColorUtils::TonematchProfileID profile)
{
    ToneMatchProfile* found = m_profiles.value(profile);
    return found ? found : m_profiles.value(ColorUtils::ProfileGenericRGB);
}
