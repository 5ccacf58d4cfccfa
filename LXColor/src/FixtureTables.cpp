#include "FixtureTables_p.h"

namespace lxcolor {

namespace {

using C = ColorUtils;

constexpr C::ToneMatchMode kOn = C::ToneMatchEnabled;
constexpr C::ToneMatchMode kOff = C::ToneMatchDisabled;

} // namespace

// clang-format off

const ConfigurationRow kConfigurations[] = {
    // name           channels
    {"Unknown",       0},
    {"RGB",           3},
    {"RGBAW",         5},
    {"RGBW",          4},
    {"Single Channel",1},
    {"RGBWW",         5},
    {"RGBA",          4},
};

const IOModeRow kIOModes[] = {
    // id                    name                                                    3toN   NtoN   takes in                ToneMatch settings on offer
    {C::IOModeRGB,           QT_TRANSLATE_NOOP("QObject", "RGB In/Out"),            true,  true,  C::ConfigRGB,           {2, {kOn, kOff}}},
    {C::IOModeRGBA,          QT_TRANSLATE_NOOP("QObject", "RGBA In/Out"),           false, true,  C::ConfigRGBA,          {2, {kOn, kOff}}},
    {C::IOModeRGBW,          QT_TRANSLATE_NOOP("QObject", "RGBW In/Out"),           false, true,  C::ConfigRGBW,          {2, {kOn, kOff}}},
    {C::IOModeRGBAW,         QT_TRANSLATE_NOOP("QObject", "RGBAW In/Out"),          false, true,  C::ConfigRGBAW,         {1, {kOff}}},
    {C::IOModeRGBWW,         QT_TRANSLATE_NOOP("QObject", "RGBWW In/Out"),          false, true,  C::ConfigRGBWW,         {2, {kOn, kOff}}},
    {C::IOModeRGBToRGBA,     QT_TRANSLATE_NOOP("QObject", "RGB In / RGBA Out"),     true,  false, C::ConfigRGB,           {1, {kOn}}},
    {C::IOModeRGBToRGBW,     QT_TRANSLATE_NOOP("QObject", "RGB In / RGBW Out"),     true,  false, C::ConfigRGB,           {1, {kOn}}},
    {C::IOModeRGBToRGBAW,    QT_TRANSLATE_NOOP("QObject", "RGB In / RGBAW Out"),    true,  false, C::ConfigRGB,           {1, {kOn}}},
    {C::IOModeRGBToRGBWW,    QT_TRANSLATE_NOOP("QObject", "RGB In / RGBWW Out"),    true,  false, C::ConfigRGB,           {1, {kOn}}},
    {C::IOModeSingleChannel, QT_TRANSLATE_NOOP("QObject", "Single Channel In/Out"), false, true,  C::ConfigSingleChannel, {1, {kOff}}},
};

const ProfileRow kProfiles[] = {
    // id                          name                                                  configuration           onboard curve
    //     IO modes on offer                                                         default mode         default mode 3 to N
    //     ToneMatch on by default
    {C::ProfileGenericRGB,          QT_TRANSLATE_NOOP("QObject", "Generic RGB"),          C::ConfigRGB,           0,
         {1, {C::IOModeRGB}},                                                        C::IOModeRGB,        C::IOModeRGB,
         {1, {{C::IOModeRGB, false}}}},
    {C::ProfileFlareFlashQVS,       QT_TRANSLATE_NOOP("QObject", "Flare/Flash QVS"),      C::ConfigRGBAW,         1,
         {3, {C::IOModeRGB, C::IOModeRGBToRGBAW, C::IOModeRGBAW}},                   C::IOModeRGBToRGBAW, C::IOModeRGBToRGBAW,
         {3, {{C::IOModeRGB, true}, {C::IOModeRGBToRGBAW, true}, {C::IOModeRGBAW, false}}}},
    {C::ProfilePrismaFlowCoveStrip, QT_TRANSLATE_NOOP("QObject", "PrismaFlow CoveStrip"), C::ConfigRGBWW,         1,
         {3, {C::IOModeRGB, C::IOModeRGBToRGBWW, C::IOModeRGBWW}},                   C::IOModeRGBToRGBWW, C::IOModeRGBToRGBWW,
         {3, {{C::IOModeRGB, true}, {C::IOModeRGBToRGBWW, true}, {C::IOModeRGBWW, true}}}},
    {C::ProfileGenericRGBW,         QT_TRANSLATE_NOOP("QObject", "Generic RGBW"),         C::ConfigRGBW,          0,
         {1, {C::IOModeRGBW}},                                                       C::IOModeRGBW,       C::IOModeRGB,
         {1, {{C::IOModeRGBW, false}}}},
    {C::ProfileSingleChannel,       QT_TRANSLATE_NOOP("QObject", "Single Channel"),       C::ConfigSingleChannel, 0,
         {1, {C::IOModeSingleChannel}},                                              C::IOModeSingleChannel, C::IOModeSingleChannel,
         {1, {{C::IOModeSingleChannel, false}}}},
    {C::ProfileWashLineQP6RGBA,     QT_TRANSLATE_NOOP("QObject", "WashLine QP6 RGBA"),    C::ConfigRGBA,          1,
         {3, {C::IOModeRGB, C::IOModeRGBToRGBA, C::IOModeRGBA}},                     C::IOModeRGBA,       C::IOModeRGBToRGBA,
         {3, {{C::IOModeRGB, true}, {C::IOModeRGBToRGBA, true}, {C::IOModeRGBA, true}}}},
    {C::ProfileWashLineQP6RGBW,     QT_TRANSLATE_NOOP("QObject", "WashLine QP6 RGBW"),    C::ConfigRGBW,          1,
         {3, {C::IOModeRGB, C::IOModeRGBToRGBW, C::IOModeRGBW}},                     C::IOModeRGBW,       C::IOModeRGBToRGBW,
         {3, {{C::IOModeRGB, true}, {C::IOModeRGBToRGBW, true}, {C::IOModeRGBW, true}}}},
    {C::ProfilePixelNodeRGB,        QT_TRANSLATE_NOOP("QObject", "PixelNode RGB"),        C::ConfigRGB,           1,
         {1, {C::IOModeRGB}},                                                        C::IOModeRGB,        C::IOModeRGB,
         {1, {{C::IOModeRGB, true}}}},
    {C::ProfileFloodBarZN2RGBA,     QT_TRANSLATE_NOOP("QObject", "FloodBar ZN2 RGBA"),    C::ConfigRGBA,          1,
         {3, {C::IOModeRGB, C::IOModeRGBToRGBA, C::IOModeRGBA}},                     C::IOModeRGBA,       C::IOModeRGBToRGBA,
         {3, {{C::IOModeRGB, true}, {C::IOModeRGBToRGBA, true}, {C::IOModeRGBA, true}}}},
    {C::ProfileFloodBarZN2RGBW,     QT_TRANSLATE_NOOP("QObject", "FloodBar ZN2 RGBW"),    C::ConfigRGBW,          1,
         {3, {C::IOModeRGB, C::IOModeRGBToRGBW, C::IOModeRGBW}},                     C::IOModeRGBW,       C::IOModeRGBToRGBW,
         {3, {{C::IOModeRGB, true}, {C::IOModeRGBToRGBW, true}, {C::IOModeRGBW, true}}}},
};

// clang-format on

static_assert(sizeof kConfigurations / sizeof *kConfigurations == kConfigurationCount, "a row for each configuration");
static_assert(sizeof kIOModes / sizeof *kIOModes == kIOModeCount, "a row for each IO mode");
static_assert(sizeof kProfiles / sizeof *kProfiles == kProfileCount, "a row for each profile");

} // namespace lxcolor
