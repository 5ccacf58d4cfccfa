#include "ColorUtils.h"
#include "EmitterTables_p.h"

namespace lxcolor {

namespace {

#define RED QT_TRANSLATE_NOOP("QObject", "Red")
#define GREEN QT_TRANSLATE_NOOP("QObject", "Green")
#define BLUE QT_TRANSLATE_NOOP("QObject", "Blue")
#define AMBER QT_TRANSLATE_NOOP("QObject", "Amber")
#define MINT QT_TRANSLATE_NOOP("QObject", "Mint")
#define WHITE QT_TRANSLATE_NOOP("QObject", "White")

// clang-format off

// sRGB primaries (IEC 61966-2-1) at D65, relative to white Y = 1. Normalised.
const EmitterRow kGenericRGB[] = {
    // name   X           Y         Z
    {RED,     0.4123152,  0.2126,   0.0193273},
    {GREEN,   0.35765,    0.7153,   0.1192167},
    {BLUE,    0.18025,    0.0721,   0.9493167},
};

// Absolute figures, as measured.
const EmitterRow kFlareFlashQVS[] = {
    {RED,     11740,      5160,     0},
    {GREEN,   1554,       5817,     521},
    {BLUE,    5410,       480,      32210},
    {AMBER,   5553,       4321,     55},
    {WHITE,   6491,       6777,     4092},
};

const EmitterRow kPrismaFlowCoveStrip[] = {
    {RED,     510,        250,      10},
    {GREEN,   188,        581,      63},
    {BLUE,    181,        98,       943},
    {MINT,    319,        391,      134},
    {WHITE,   334,        338,      188},
};

// The red, green, blue and white of kFlareFlashQVS.
const EmitterRow kGenericRGBW[] = {
    {RED,     11740,      5160,     0},
    {GREEN,   1554,       5817,     521},
    {BLUE,    5410,       480,      32210},
    {WHITE,   6491,       6777,     4092},
};

const EmitterRow kWashLineQP6RGBA[] = {
    {RED,     490.1758,   220.975,  8.6375},
    {GREEN,   167.1244,   540.001,  81.1972},
    {BLUE,    162.222,    100,      848.8889},
    {AMBER,   360.0982,   268.4369, 26.189},
};

// The red, green and blue of kWashLineQP6RGBA.
const EmitterRow kWashLineQP6RGBW[] = {
    {RED,     490.1758,   220.975,  8.6375},
    {GREEN,   167.1244,   540.001,  81.1972},
    {BLUE,    162.222,    100,      848.8889},
    {WHITE,   416.7922,   422.6625, 334.6078},
};

const EmitterRow kPixelNodeRGB[] = {
    {RED,     442.9544,   199,      10.5046},
    {GREEN,   160.8801,   504,      92.5591},
    {BLUE,    150,        90,       760},
};

const EmitterRow kFloodBarZN2RGBA[] = {
    {RED,     1241.8235,  558,      23.7059},
    {GREEN,   531.2934,   1628,     277.8323},
    {BLUE,    402.7027,   100,      2200},
    {AMBER,   987.0858,   757,      12.2947},
};

// The red, green and blue of kFloodBarZN2RGBA.
const EmitterRow kFloodBarZN2RGBW[] = {
    {RED,     1241.8235,  558,      23.7059},
    {GREEN,   531.2934,   1628,     277.8323},
    {BLUE,    402.7027,   100,      2200},
    {WHITE,   870.3271,   868,      588.7507},
};

// clang-format on

template <int count>
constexpr EmitterTable table(const EmitterRow (&rows)[count])
{
    return {count, rows};
}

} // namespace

EmitterTable emitterTable(int profile)
{
    switch (profile) {
    case ColorUtils::ProfileFlareFlashQVS:
        return table(kFlareFlashQVS);
    case ColorUtils::ProfilePrismaFlowCoveStrip:
        return table(kPrismaFlowCoveStrip);
    case ColorUtils::ProfileGenericRGBW:
        return table(kGenericRGBW);
    case ColorUtils::ProfileWashLineQP6RGBA:
        return table(kWashLineQP6RGBA);
    case ColorUtils::ProfileWashLineQP6RGBW:
        return table(kWashLineQP6RGBW);
    case ColorUtils::ProfilePixelNodeRGB:
        return table(kPixelNodeRGB);
    case ColorUtils::ProfileFloodBarZN2RGBA:
        return table(kFloodBarZN2RGBA);
    case ColorUtils::ProfileFloodBarZN2RGBW:
        return table(kFloodBarZN2RGBW);
    default:
        return table(kGenericRGB);
    }
}

} // namespace lxcolor
