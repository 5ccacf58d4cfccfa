#include "Tables.h"

namespace reference {

using CU = ColorUtils;

const QVector<Layout>& layouts()
{
    static const QVector<Layout> table{{"Unknown", 0},        {"RGB", 3},   {"RGBAW", 5}, {"RGBW", 4},
                                       {"Single Channel", 1}, {"RGBWW", 5}, {"RGBA", 4}};
    return table;
}

const Layout& layout(int configuration)
{
    return layouts()[configuration >= 1 && configuration <= 6 ? configuration : 0];
}

const QVector<IoMode>& ioModes()
{
    const QList<Matching> both{CU::ToneMatchEnabled, CU::ToneMatchDisabled};
    const QList<Matching> on{CU::ToneMatchEnabled};
    const QList<Matching> off{CU::ToneMatchDisabled};
    // clang-format off
    static const QVector<IoMode> table{
        {"RGB In/Out",            true,  true,  CU::ConfigRGB,           both},
        {"RGBA In/Out",           false, true,  CU::ConfigRGBA,          both},
        {"RGBW In/Out",           false, true,  CU::ConfigRGBW,          both},
        {"RGBAW In/Out",          false, true,  CU::ConfigRGBAW,         off},
        {"RGBWW In/Out",          false, true,  CU::ConfigRGBWW,         both},
        {"RGB In / RGBA Out",     true,  false, CU::ConfigRGB,           on},
        {"RGB In / RGBW Out",     true,  false, CU::ConfigRGB,           on},
        {"RGB In / RGBAW Out",    true,  false, CU::ConfigRGB,           on},
        {"RGB In / RGBWW Out",    true,  false, CU::ConfigRGB,           on},
        {"Single Channel In/Out", false, true,  CU::ConfigSingleChannel, off},
    };
    // clang-format on
    return table;
}

const IoMode& ioMode(int mode) { return ioModes()[mode >= 0 && mode <= 9 ? mode : 0]; }

const QVector<Profile>& profiles()
{
    const QList<Mode> rgbOnly{CU::IOModeRGB};
    const QList<Mode> rgba{CU::IOModeRGB, CU::IOModeRGBToRGBA, CU::IOModeRGBA};
    const QList<Mode> rgbw{CU::IOModeRGB, CU::IOModeRGBToRGBW, CU::IOModeRGBW};
    const QMap<Mode, bool> rgbaOn{{CU::IOModeRGB, true}, {CU::IOModeRGBToRGBA, true}, {CU::IOModeRGBA, true}};
    const QMap<Mode, bool> rgbwOn{{CU::IOModeRGB, true}, {CU::IOModeRGBToRGBW, true}, {CU::IOModeRGBW, true}};
    static const QVector<Profile> table{
        {"Generic RGB", CU::ConfigRGB, 0, rgbOnly, CU::IOModeRGB, CU::IOModeRGB, {{CU::IOModeRGB, false}}},
        {"Flare/Flash QVS",
         CU::ConfigRGBAW,
         1,
         {CU::IOModeRGB, CU::IOModeRGBToRGBAW, CU::IOModeRGBAW},
         CU::IOModeRGBToRGBAW,
         CU::IOModeRGBToRGBAW,
         {{CU::IOModeRGB, true}, {CU::IOModeRGBToRGBAW, true}, {CU::IOModeRGBAW, false}}},
        {"PrismaFlow CoveStrip",
         CU::ConfigRGBWW,
         1,
         {CU::IOModeRGB, CU::IOModeRGBToRGBWW, CU::IOModeRGBWW},
         CU::IOModeRGBToRGBWW,
         CU::IOModeRGBToRGBWW,
         {{CU::IOModeRGB, true}, {CU::IOModeRGBToRGBWW, true}, {CU::IOModeRGBWW, true}}},
        {"Generic RGBW", CU::ConfigRGBW, 0, {CU::IOModeRGBW}, CU::IOModeRGBW, CU::IOModeRGB, {{CU::IOModeRGBW, false}}},
        {"Single Channel",
         CU::ConfigSingleChannel,
         0,
         {CU::IOModeSingleChannel},
         CU::IOModeSingleChannel,
         CU::IOModeSingleChannel,
         {{CU::IOModeSingleChannel, false}}},
        {"WashLine QP6 RGBA", CU::ConfigRGBA, 1, rgba, CU::IOModeRGBA, CU::IOModeRGBToRGBA, rgbaOn},
        {"WashLine QP6 RGBW", CU::ConfigRGBW, 1, rgbw, CU::IOModeRGBW, CU::IOModeRGBToRGBW, rgbwOn},
        {"PixelNode RGB", CU::ConfigRGB, 1, rgbOnly, CU::IOModeRGB, CU::IOModeRGB, {{CU::IOModeRGB, true}}},
        {"FloodBar ZN2 RGBA", CU::ConfigRGBA, 1, rgba, CU::IOModeRGBA, CU::IOModeRGBToRGBA, rgbaOn},
        {"FloodBar ZN2 RGBW", CU::ConfigRGBW, 1, rgbw, CU::IOModeRGBW, CU::IOModeRGBToRGBW, rgbwOn},
    };
    return table;
}

const Profile& profile(int id) { return profiles()[id >= 0 && id <= 9 ? id : 0]; }

int effectiveId(ProfileId id, Configuration configuration)
{
    if (id != CU::ProfileGenericRGB)
        return id;
    switch (configuration) {
    case CU::ConfigRGBAW:
        return 1;
    case CU::ConfigRGBWW:
        return 2;
    case CU::ConfigRGBW:
        return 3;
    default:
        return 0;
    }
}

QVector<Emitter> builtInEmitters(int effectiveId)
{
    // clang-format off
    static const QVector<Emitter> generic{
        {"Red",   0.4123152, 0.2126, 0.0193273},
        {"Green", 0.35765,   0.7153, 0.1192167},
        {"Blue",  0.18025,   0.0721, 0.9493167}};
    static const QVector<Emitter> flare{
        {"Red",   11740, 5160, 0},
        {"Green", 1554,  5817, 521},
        {"Blue",  5410,  480,  32210},
        {"Amber", 5553,  4321, 55},
        {"White", 6491,  6777, 4092}};
    static const QVector<Emitter> prisma{
        {"Red",   510, 250, 10},
        {"Green", 188, 581, 63},
        {"Blue",  181, 98,  943},
        {"Mint",  319, 391, 134},
        {"White", 334, 338, 188}};
    static const QVector<Emitter> washLine{
        {"Red",   490.1758, 220.975,  8.6375},
        {"Green", 167.1244, 540.001,  81.1972},
        {"Blue",  162.222,  100,      848.8889},
        {"Amber", 360.0982, 268.4369, 26.189},
        {"White", 416.7922, 422.6625, 334.6078}};
    static const QVector<Emitter> pixelNode{
        {"Red",   442.9544, 199, 10.5046},
        {"Green", 160.8801, 504, 92.5591},
        {"Blue",  150,      90,  760}};
    static const QVector<Emitter> floodBar{
        {"Red",   1241.8235, 558,  23.7059},
        {"Green", 531.2934,  1628, 277.8323},
        {"Blue",  402.7027,  100,  2200},
        {"Amber", 987.0858,  757,  12.2947},
        {"White", 870.3271,  868,  588.7507}};
    // clang-format on
    const auto rgbAnd = [](const QVector<Emitter>& all, int fourth) { return all.mid(0, 3) << all[fourth]; };
    switch (effectiveId) {
    case 1:
        return flare;
    case 2:
        return prisma;
    case 3:
        return rgbAnd(flare, 4);
    case 5:
        return rgbAnd(washLine, 3);
    case 6:
        return rgbAnd(washLine, 4);
    case 7:
        return pixelNode;
    case 8:
        return rgbAnd(floodBar, 3);
    case 9:
        return rgbAnd(floodBar, 4);
    default:
        return generic;
    }
}

const QVector<int>& curvePoints(int curveType)
{
    // clang-format off
    static const QVector<int> normal{
        0, 16, 36, 60, 84, 108, 136, 164, 196, 228, 264, 300, 340, 380, 420, 464,
        512, 560, 608, 660, 716, 772, 828, 888, 948, 1012, 1076, 1144, 1212, 1284, 1356, 1428,
        1504, 1584, 1664, 1744, 1828, 1916, 2004, 2092, 2184, 2276, 2372, 2468, 2568, 2668, 2772, 2876,
        2980, 3088, 3200, 3312, 3424, 3540, 3660, 3780, 3900, 4024, 4148, 4276, 4404, 4536, 4668, 4804,
        4940, 5076, 5216, 5360, 5504, 5648, 5796, 5948, 6100, 6252, 6408, 6564, 6724, 6884, 7048, 7212,
        7380, 7548, 7716, 7888, 8064, 8240, 8416, 8596, 8780, 8964, 9148, 9336, 9524, 9716, 9908, 10104,
        10300, 10500, 10700, 10900, 11104, 11312, 11520, 11728, 11940, 12156, 12372, 12588, 12808, 13028, 13252, 13476,
        13704, 13932, 14164, 14396, 14628, 14864, 15104, 15344, 15584, 15828, 16076, 16324, 16572, 16824, 17076, 17332,
        17588, 17848, 18108, 18372, 18636, 18900, 19168, 19440, 19712, 19984, 20260, 20540, 20820, 21100, 21384, 21668,
        21956, 22244, 22536, 22828, 23124, 23420, 23716, 24016, 24320, 24624, 24928, 25236, 25548, 25860, 26172, 26488,
        26804, 27124, 27444, 27768, 28092, 28420, 28748, 29076, 29408, 29744, 30080, 30416, 30756, 31100, 31444, 31788,
        32136, 32484, 32836, 33188, 33544, 33900, 34260, 34620, 34980, 35344, 35712, 36080, 36448, 36820, 37196, 37572,
        37948, 38328, 38708, 39092, 39476, 39864, 40252, 40644, 41036, 41428, 41824, 42224, 42624, 43024, 43428, 43836,
        44244, 44652, 45064, 45476, 45892, 46308, 46728, 47148, 47572, 47996, 48420, 48848, 49280, 49712, 50144, 50580,
        51020, 51460, 51900, 52344, 52788, 53236, 53684, 54136, 54588, 55044, 55500, 55956, 56416, 56880, 57344, 57808,
        58276, 58748, 59220, 59692, 60168, 60644, 61124, 61604, 62088, 62572, 63060, 63548, 64036, 64528, 65024, 65520,
    };
    static const QVector<int> tungsten{
        0, 1, 2, 3, 4, 5, 7, 9, 11, 14, 17, 20, 24, 28, 33, 38,
        43, 50, 57, 64, 72, 81, 90, 100, 110, 120, 131, 141, 151, 162, 174, 186,
        199, 212, 226, 240, 255, 270, 285, 302, 322, 345, 370, 398, 428, 461, 497, 535,
        576, 619, 666, 714, 766, 820, 876, 936, 997, 1062, 1129, 1199, 1271, 1346, 1423, 1504,
        1586, 1672, 1760, 1851, 1944, 2040, 2138, 2239, 2343, 2449, 2558, 2670, 2784, 2901, 3020, 3143,
        3267, 3395, 3524, 3657, 3792, 3930, 4070, 4213, 4359, 4507, 4658, 4812, 4968, 5126, 5288, 5452,
        5618, 5787, 5959, 6134, 6311, 6490, 6673, 6858, 7045, 7235, 7428, 7624, 7822, 8022, 8225, 8431,
        8640, 8851, 9065, 9281, 9500, 9721, 9946, 10172, 10402, 10634, 10868, 11106, 11346, 11588, 11833, 12081,
        12331, 12584, 12840, 13098, 13359, 13623, 13889, 14157, 14429, 14703, 14979, 15258, 15540, 15824, 16112, 16401,
        16693, 16988, 17286, 17586, 17889, 18194, 18502, 18813, 19126, 19442, 19760, 20081, 20405, 20731, 21060, 21392,
        21726, 22063, 22402, 22744, 23089, 23436, 23786, 24138, 24493, 24851, 25211, 25574, 25940, 26308, 26679, 27052,
        27428, 27807, 28188, 28572, 28959, 29348, 29740, 30134, 30531, 30931, 31333, 31738, 32145, 32555, 32968, 33383,
        33801, 34222, 34645, 35071, 35499, 35930, 36364, 36800, 37239, 37681, 38125, 38571, 39021, 39473, 39927, 40385,
        40844, 41307, 41772, 42240, 42710, 43183, 43659, 44137, 44617, 45101, 45587, 46076, 46567, 47061, 47557, 48056,
        48558, 49062, 49569, 50079, 50591, 51106, 51623, 52143, 52666, 53191, 53719, 54250, 54783, 55319, 55857, 56398,
        56942, 57488, 58037, 58588, 59143, 59699, 60259, 60821, 61385, 61952, 62522, 63095, 63670, 64247, 64880, 65535,
    };
    // clang-format on
    return curveType == 1 ? normal : tungsten;
}

} // namespace reference
