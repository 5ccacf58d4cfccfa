#include "CCTRegionGeometry_p.h"
#include "CornerSolver_p.h"
#include "EmitterMix_p.h"
#include "EmitterTables_p.h"
#include "GamutTriangle_p.h"
#include "Hash.h"
#include "HsvArithmetic_p.h"
#include "OnboardInverse_p.h"
#include "OnboardResponse_p.h"
#include "PreparedSolver_p.h"

#include <vector>

namespace {

constexpr int kProfiles = 10;

/// The emitters of a profile, on their own.
struct Emitters
{
    std::vector<double> X, Y, Z;

    explicit Emitters(int profile)
    {
        for (const lxcolor::EmitterRow& row : lxcolor::emitterTable(profile)) {
            X.push_back(row.X);
            Y.push_back(row.Y);
            Z.push_back(row.Z);
        }
    }
    int count() const { return static_cast<int>(X.size()); }
    lxcolor::EmitterView view() const { return {X.data(), Y.data(), Z.data(), count()}; }
};

lxcolor::Chromaticity anyChromaticity(Random& random)
{
    const double x = 0.8 * random.ratio();
    const double y = 0.9 * random.ratio();
    return {x, y};
}

void words(Hash& hash, Random& random)
{
    for (int i = 0; i < 100000; ++i) {
        const unsigned word = random.word();
        hash.add(lxcolor::toRatio(word));
        hash.add(lxcolor::wordFromRatio(1.2 * lxcolor::toRatio(word) - 0.1));
        hash.add(unsigned(lxcolor::truncateTo16(lxcolor::toRatio(word))));
        hash.add(unsigned(lxcolor::roundTo16(lxcolor::toRatio(word))));
        hash.add(unsigned(lxcolor::roundTo8(lxcolor::toRatio(word))));
    }
}

void hsv(Hash& hash, Random& random)
{
    for (int i = 0; i < 100000; ++i) {
        const unsigned mask = i % 2 ? 0xffffffffu : 0xff000000u; // round numbers meet the edges of the sextants
        const lxcolor::RgbWords rgb = {random.word() & mask, random.word() & mask, random.word() & mask};
        const lxcolor::HsvWords hsv = lxcolor::hsvFromRgb(rgb);
        const lxcolor::RgbWords back = lxcolor::rgbFromHsv(hsv);
        for (const quint32 word : {hsv.hue, hsv.saturation, hsv.value, back.red, back.green, back.blue})
            hash.add(unsigned(word));
    }
}

void mix(Hash& hash, Random& random)
{
    for (int i = 0; i < 20000; ++i) {
        const Emitters emitters(i % kProfiles);
        const lxcolor::EmitterView view = emitters.view();
        lxcolor::EmitterMix mix(view);
        for (int k = 0; k < emitters.count(); ++k)
            mix.add(random.ratio());
        hash.add(mix.result().Y);
        hash.add(mix.result().xy.x);
        hash.add(mix.result().xy.y);
    }
}

void solve(Hash& hash, Random& random)
{
    for (int i = 0; i < 20000; ++i) {
        const Emitters emitters(i % kProfiles);
        const lxcolor::LevelSet levels = lxcolor::solveBrightestMix(emitters.view(), anyChromaticity(random));
        for (const double level : levels.level)
            hash.add(level);
    }
}

void solvePrepared(Hash& hash, Random& random)
{
    for (int profile = 0; profile < kProfiles; ++profile) {
        const Emitters emitters(profile);
        const lxcolor::PreparedSolver solver(emitters.view(), emitters.count());
        for (int i = 0; i < 5000; ++i) {
            lxcolor::LevelSet levels;
            solver.solve({1.0, anyChromaticity(random)}, levels.level);
            for (const double level : levels.level)
                hash.add(level);
        }
    }
}

void gamut(Hash& hash, Random& random)
{
    const auto anyPoint = [&random] {
        const lxcolor::Chromaticity xy = anyChromaticity(random);
        return QPointF(xy.x, xy.y);
    };
    for (int i = 0; i < 50000; ++i) {
        const lxcolor::GamutTriangle triangle({anyPoint(), anyPoint(), anyPoint()});
        const QPointF point = anyPoint();
        const QPointF closest = triangle.closestOnBoundary(point);
        hash.add(triangle.contains(point));
        hash.add(closest.x());
        hash.add(closest.y());
    }
}

void onboard(Hash& hash, Random&)
{
    for (int value = 0; value < 65536; ++value) {
        const auto light = static_cast<quint16>(value);
        hash.add(lxcolor::squareLawRatio(light));
        hash.add(lxcolor::tungstenRatio(light));
        for (const int drive : {int(lxcolor::linearDrive8(light)), int(lxcolor::normalDrive8(light)),
                                int(lxcolor::normalDrive16(light)), int(lxcolor::tungstenDrive8(light)),
                                int(lxcolor::tungstenDrive16(light)), int(lxcolor::truncatedNormalDrive8(light))})
            hash.add(drive);
    }
}

void whitePoints(Hash& hash, Random& random)
{
    for (int cct = 1900; cct < 12500; ++cct) {
        const int index = lxcolor::regionIndexOf(cct);
        const CCTRegion& region = CCTUtils::m_cctRegionTable[index];
        const int step = lxcolor::stepIndexOf(region, cct);
        const QPointF onLocus = lxcolor::locusPointOfStep(region, step);
        const QPointF tinted = lxcolor::tintLineThrough(region, onLocus).pointAt(2.0 * random.ratio() - 1.0);
        hash.add(index);
        hash.add(step);
        for (const double value :
             {onLocus.x(), onLocus.y(), tinted.x(), tinted.y(), lxcolor::positionOf(region, tinted)})
            hash.add(value);
    }
}

} // namespace

const std::vector<Operation>& numericOperations()
{
    static const std::vector<Operation> all = {
        {"numeric.words", words},
        {"numeric.hsv", hsv},
        {"numeric.mix", mix},
        {"numeric.solve", solve},
        {"numeric.solve-prepared", solvePrepared},
        {"numeric.gamut", gamut},
        {"numeric.onboard", onboard},
        {"numeric.white-points", whitePoints},
    };
    return all;
}
