#ifndef FIXTURETABLES_P_H
#define FIXTURETABLES_P_H

#include "ColorUtils.h"

// The built-in channel layouts, IO modes and fixture profiles. Names are marked for translation in context "QObject".
namespace lxcolor {

/// Up to three values of a row, in order.
template <typename T>
struct ShortList
{
    int count;
    T items[3];
    const T* begin() const { return items; }
    const T* end() const { return items + count; }
};

struct ConfigurationRow
{
    const char* name; // not translated
    int channels;
};

struct IOModeRow
{
    ColorUtils::IOModeID id;
    const char* name;
    bool is3toN;
    bool isNtoN;
    ColorUtils::ChannelConfiguration inputConfiguration;
    ShortList<ColorUtils::ToneMatchMode> toneMatchModes;
};

struct ToneMatchDefault
{
    ColorUtils::IOModeID mode;
    bool enabled;
};

struct ProfileRow
{
    ColorUtils::TonematchProfileID id;
    const char* name;
    ColorUtils::ChannelConfiguration configuration;
    int onboardCurve;
    ShortList<ColorUtils::IOModeID> ioModes;
    ColorUtils::IOModeID defaultMode;
    ColorUtils::IOModeID defaultMode3toN;
    ShortList<ToneMatchDefault> toneMatchDefaults;
};

constexpr int kConfigurationCount = 7;
constexpr int kIOModeCount = 10;
constexpr int kProfileCount = 10;

extern const ConfigurationRow kConfigurations[kConfigurationCount]; // by ChannelConfiguration
extern const IOModeRow kIOModes[kIOModeCount];                      // by IOModeID
extern const ProfileRow kProfiles[kProfileCount];                   // by TonematchProfileID

/// The row of a configuration; that of ConfigUnknown for any number that has none.
inline const ConfigurationRow& configurationRow(int configuration)
{
    return kConfigurations[configuration > 0 && configuration < kConfigurationCount ? configuration : 0];
}

/// The row of an IO mode; that of IOModeRGB for any number that has none.
inline const IOModeRow& ioModeRow(int mode) { return kIOModes[mode >= 0 && mode < kIOModeCount ? mode : 0]; }

/// The row of a profile; that of profile 0 for any number that has none.
inline const ProfileRow& profileRow(int profile)
{
    return kProfiles[profile >= 0 && profile < kProfileCount ? profile : 0];
}

} // namespace lxcolor

#endif
