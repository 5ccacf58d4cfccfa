#ifndef TONEMATCHPROFILEFACTORY_H
#define TONEMATCHPROFILEFACTORY_H

#include "ColorUtils.h"
#include "LXColorExport.h"

#include <QMap>

#include <atomic>

class ToneMatchProfile;

/// The registry of the ten fixture profiles. It owns its records, which live as long as it does.
class LXCOLOR_EXPORT TonematchProfileFactory
{
public:
    /// The process-wide registry: created and filled on first use, visible only when complete, never destroyed.
    static TonematchProfileFactory* instance();

    /// A registry of its own, filled.
    TonematchProfileFactory();
    ~TonematchProfileFactory();

    /// Creates the ten profiles, their names translated as of now, each with its record of the emitter-data registry.
    /// Profiles that are there already are kept.
    void populateProfileMap();

    /// The profile of an id; profile 0 for an id that has none.
    ToneMatchProfile* getProfile(ColorUtils::TonematchProfileID profile);

private:
    Q_DISABLE_COPY(TonematchProfileFactory)

    QMap<ColorUtils::TonematchProfileID, ToneMatchProfile*> m_profiles;
    static std::atomic<TonematchProfileFactory*> m_instance;
};

#endif
