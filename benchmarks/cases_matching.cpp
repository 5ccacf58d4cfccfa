// From chromaticity and intensity to levels, and from levels to bytes.
#include "ColorUtils.h"
#include "LinearProgram.h"
#include "Matching.h"
#include "Suite.h"
#include "Tristimulus.h"
#include "TristimulusFactory.h"

#include <cmath>
#include <random>

#ifdef LXCOLOR_HAVE_LCMS2
#    include <lcms2.h>
#endif

using benchmark::DoNotOptimize;

namespace {

const QString kMatching = QStringLiteral("Matching");
const QString kCurves = QStringLiteral("Dimming curves");

struct Fixture
{
    const char* emitters;
    ColorUtils::TonematchProfileID profile;
    ColorUtils::ChannelConfiguration layout;
};
const Fixture kFixtures[] = {
    {"3 emitters", ColorUtils::ProfilePixelNodeRGB, ColorUtils::ConfigRGB},
    {"4 emitters", ColorUtils::ProfileWashLineQP6RGBW, ColorUtils::ConfigRGBW},
    {"5 emitters", ColorUtils::ProfileFlareFlashQVS, ColorUtils::ConfigRGBAW},
};

/// Chromaticities inside or outside the gamut of a fixture, at full intensity.
std::vector<reference::Yxy> lights(const Fixture& fixture, bool inside)
{
    Tristimulus* record = TristimulusFactory::getInstance()->getTristimulus(fixture.profile, fixture.layout);
    std::mt19937 random(2);
    std::uniform_real_distribution<double> x(0.08, 0.73);
    std::uniform_real_distribution<double> y(0.02, 0.8);
    std::vector<reference::Yxy> found;
    while (found.size() < 1024) {
        const reference::Yxy light = {1.0, x(random), y(random)};
        if (light.x + light.y < 1.0 && record->inside(light.x, light.y) == inside)
            found.push_back(light);
    }
    return found;
}

#ifdef LXCOLOR_HAVE_LCMS2
/// The matrix of a colour management module: XYZ to three linear levels, in double precision.
class Lcms
{
public:
    explicit Lcms(const Fixture& fixture)
    {
        const reference::Record& record = reference::record(fixture.profile, fixture.layout);
        const auto chromaticity = [&](int i) {
            const double sum = record.X[i] + record.Y[i] + record.Z[i];
            return cmsCIExyY{record.X[i] / sum, record.Y[i] / sum, 1.0};
        };
        const cmsCIExyY white = {0.3127, 0.3290, 1.0};
        const cmsCIExyYTRIPLE primaries = {chromaticity(0), chromaticity(1), chromaticity(2)};
        cmsToneCurve* linear = cmsBuildGamma(nullptr, 1.0);
        cmsToneCurve* curves[] = {linear, linear, linear};
        cmsHPROFILE rgb = cmsCreateRGBProfile(&white, &primaries, curves);
        cmsHPROFILE xyz = cmsCreateXYZProfile();
        m_transform =
            cmsCreateTransform(xyz, TYPE_XYZ_DBL, rgb, TYPE_RGB_DBL, INTENT_RELATIVE_COLORIMETRIC, cmsFLAGS_NOCACHE);
        cmsCloseProfile(rgb);
        cmsCloseProfile(xyz);
        cmsFreeToneCurve(linear);
    }
    ~Lcms() { cmsDeleteTransform(m_transform); }
    Lcms(const Lcms&) = delete;
    Lcms& operator=(const Lcms&) = delete;

    void solve(const reference::Yxy& light, double* levels) const
    {
        const cmsCIExyY xyY = {light.x, light.y, light.Y};
        cmsCIEXYZ XYZ;
        cmsxyY2XYZ(&XYZ, &xyY);
        cmsDoTransform(m_transform, &XYZ, levels, 1);
    }

private:
    cmsHTRANSFORM m_transform;
};
#endif

std::vector<Contender> solvers(const Fixture& fixture, bool inside)
{
    const auto inputs = lights(fixture, inside);
    std::vector<Contender> all = {contenderOver(kLibrary, inputs,
                                                [=](const reference::Yxy& light) {
                                                    double Yxy[3] = {light.Y, light.x, light.y};
                                                    double levels[5];
                                                    ColorUtils::convertYxyToNChannel(Yxy, levels, fixture.layout,
                                                                                     fixture.profile, true);
                                                    DoNotOptimize(levels);
                                                }),
                                  contenderOver(kPlain, inputs, [=](const reference::Yxy& light) {
                                      DoNotOptimize(reference::solve(light, fixture.layout, fixture.profile, true));
                                  })};
    if (!inside)
        return all;
#ifdef LXCOLOR_HAVE_LCMS2
    if (fixture.layout == ColorUtils::ConfigRGB)
        all.push_back(
            contenderOver("lcms2", inputs, [lcms = std::make_shared<Lcms>(fixture)](const reference::Yxy& light) {
                double levels[3];
                lcms->solve(light, levels);
                DoNotOptimize(levels);
            }));
#endif
    if (canSolveLinearPrograms()) {
        Tristimulus* record = TristimulusFactory::getInstance()->getTristimulus(fixture.profile, fixture.layout);
        const int emitters = ColorUtils::configChannelCount(fixture.layout);
        all.push_back(
            contenderOver("GLPK", inputs,
                          [program = std::make_shared<LinearProgram>(*record, emitters)](const reference::Yxy& light) {
                              program->solve(light.x, light.y);
                              DoNotOptimize(program->level(0));
                          }));
    }
    return all;
}

std::vector<quint16> lightValues()
{
    std::mt19937 random(3);
    std::vector<quint16> values(4096);
    for (quint16& value : values)
        value = static_cast<quint16>(random());
    return values;
}

constexpr int kSlots = 512;

/// 512 values at once, with a function of ColorUtils for arrays.
template <typename Out>
Contender inArray(void (*convert)(quint16*, Out*, int))
{
    return contender(kLibrary, [convert, in = lightValues(), out = std::vector<Out>(kSlots)]() mutable {
        convert(in.data(), out.data(), kSlots);
        DoNotOptimize(out.data());
    });
}

template <typename Out>
Contender oneByOne(Out (*convert)(quint16))
{
    return contender(kPlain, [convert, in = lightValues(), out = std::vector<Out>(kSlots)]() mutable {
        for (std::size_t i = 0; i < kSlots; ++i)
            out[i] = convert(in[i]);
        DoNotOptimize(out.data());
    });
}

std::vector<double> levels()
{
    std::vector<double> levels;
    for (const quint16 value : lightValues())
        levels.push_back(value / 65535.0);
    levels.resize(kSlots);
    return levels;
}

} // namespace

void addMatchingCases(Cases& cases)
{
    for (const bool inside : {true, false})
        for (const Fixture& fixture : kFixtures)
            cases.push_back(
                {kMatching,
                 QString::fromLatin1(fixture.emitters) + (inside ? ", inside the gamut" : ", outside the gamut"),
                 solvers(fixture, inside)});
}

void addCurveCases(Cases& cases)
{
    const auto values = lightValues();
    cases.push_back(
        {kCurves,
         "onboard response, normal",
         {contenderOver(kLibrary, values, [](quint16 v) { DoNotOptimize(ColorUtils::dmx16ToSquareLawDimRatio(v)); }),
          contenderOver(kPlain, values, [](quint16 v) { DoNotOptimize(reference::squareLawRatio(v)); }),
          contenderOver("std::pow(v, 2.2)", values, [](quint16 v) { DoNotOptimize(std::pow(v / 65535.0, 2.2)); })}});
    cases.push_back(
        {kCurves,
         "onboard inverse, normal, 16 bit",
         {contenderOver(kLibrary, values, [](quint16 v) { DoNotOptimize(ColorUtils::pwm16ToMNormDNormRes16(v)); }),
          contenderOver(kPlain, values, [](quint16 v) { DoNotOptimize(reference::normalRes16(v)); }),
          contenderOver("std::pow(v, 1 / 2.2)", values,
                        [](quint16 v) { DoNotOptimize(std::pow(v / 65535.0, 1.0 / 2.2)); })}});

    const struct
    {
        const char* work;
        Contender library, plain;
    } arrays[] = {
        {"512 onboard inverses, normal, 16 bit", inArray(ColorUtils::pwmToMNormDNormRes16),
         oneByOne(reference::normalRes16)},
        {"512 onboard inverses, normal, 8 bit", inArray(ColorUtils::pwmToMNormDNormRes8),
         oneByOne(reference::normalRes8)},
        {"512 onboard inverses, tungsten, 16 bit", inArray(ColorUtils::pwmToMNormDTungstenRes16),
         oneByOne(reference::tungstenRes16)},
    };
    for (const auto& array : arrays)
        cases.push_back({kCurves, array.work, {array.library, array.plain}, kSlots});

    const std::vector<double> ratios = levels();
    const QVector<double> plainLevels(ratios.begin(), ratios.end());
    cases.push_back({kCurves,
                     "512 software curve values, normal, 16 bit",
                     {contender(kLibrary,
                                [in = levels(), out = std::vector<quint16>(kSlots)]() mutable {
                                    ColorUtils::applyCurve16(kSlots, in.data(), out.data(), 1, 1);
                                    DoNotOptimize(out.data());
                                }),
                      contender(kPlain, [=] { DoNotOptimize(reference::applyCurve16(plainLevels, 1, 1)); })},
                     kSlots});
}
