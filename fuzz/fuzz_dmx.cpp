// Any colour for any fixture in any mode, with numbers that name nothing among them, gives exactly the bytes asked for,
// all of them defined, and the same ones each time.
#include "FuzzSupport.h"

#include <algorithm>
#include <memory>

namespace {

struct Route
{
    bool allowRgbPassThrough;
    int count, resolution, directCurve, onboardCurve;
    ColorUtils::TonematchProfileID target;
    int ioMode;
};

Route anyRoute(FuzzInput& input)
{
    Route route{};
    route.directCurve = input.integer(-1, 4);
    route.onboardCurve = input.integer(-1, 4);
    route.allowRgbPassThrough = input.flag();
    route.count = input.integer(-1, 12);
    route.resolution = input.integer(-1, 4);
    route.ioMode = input.integer(-2, 12);
    route.target = anyProfile(input);
    return route;
}

/// The bytes for a colour, written over \a ground into an array of just that size.
QByteArray bytesOver(unsigned char ground, LXColor color, const Route& route)
{
    const int size = qMax(route.count, 0) * qMax(route.resolution, 0);
    const auto out = std::make_unique<unsigned char[]>(static_cast<size_t>(size));
    std::fill_n(out.get(), size, ground);
    ColorUtils::convertLXColorToDMX(color, route.allowRgbPassThrough, route.count, route.resolution, out.get(),
                                    route.directCurve, route.onboardCurve, route.target, route.ioMode);
    return {reinterpret_cast<const char*>(out.get()), size};
}

void convertDirectly(FuzzInput& input)
{
    double Yxy[] = {input.number(), input.number(), input.number()};
    const auto configuration = anyConfiguration(input);
    const auto profile = anyProfile(input);
    const auto count = static_cast<size_t>(qMax(ColorUtils::configChannelCount(configuration), 0));
    const auto levels = std::make_unique<double[]>(count);
    const auto words = std::make_unique<unsigned short[]>(count);
    const bool clampToGamut = input.flag();
    double same[] = {Yxy[0], Yxy[1], Yxy[2]};
    ColorUtils::convertYxyToNChannel(Yxy, levels.get(), configuration, profile, clampToGamut);
    ColorUtils::convertYxyToNChannelAndApplyCurve(same, words.get(), configuration, profile, input.integer(-1, 4),
                                                  clampToGamut);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    FuzzInput input(data, size);
    const LXColor color = anyColor(input);
    const Route route = anyRoute(input);
    const QList<unsigned char> bytes =
        ColorUtils::updateBuffer(route.directCurve, route.onboardCurve, color, route.allowRgbPassThrough, route.count,
                                 route.resolution, route.ioMode, route.target);
    const QByteArray overOnes = bytesOver(0xff, color, route);
    require(overOnes == bytesOver(0, color, route), "all bytes are defined");
    require(bytes.size() == overOnes.size() && std::equal(bytes.cbegin(), bytes.cend(), overOnes.cbegin(),
                                                          [](unsigned char a, char b) { return char(a) == b; }),
            "the buffer holds the bytes asked for, and the same ones each time");
    LXColor current = anyColor(input);
    ColorUtils::updateColor(current, color);
    QList<unsigned char> five = bytes;
    ColorUtils::expandFor5Channels(five);
    convertDirectly(input);
    return 0;
}
