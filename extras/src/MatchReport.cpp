#include "MatchReport.h"

#include "CCTUtils.h"
#include "GamutSide_p.h"
#include "IOMode.h"
#include "IOModeFactory.h"
#include "LXColor.h"
#include "Tristimulus.h"
#include "TristimulusFactory.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace {

using Light = MatchReport::Light;
using Side = MatchReport::GamutSide;
using Target = MatchReport::Target;

constexpr int kOpaque8 = 255;
constexpr uint kOpaque16 = 65535;

Light lightFrom(const double* Yxy)
{
    // The library gives the chromaticity (0, 0), which no light has, where there is none.
    const bool none = Yxy[1] == 0.0 && Yxy[2] == 0.0;
    return none ? Light{Yxy[0], MatchReport::none, MatchReport::none} : Light{Yxy[0], Yxy[1], Yxy[2]};
}

double distanceOf(const Light& a, const Light& b) { return lxcolor::uvPrimeDistance(a.xy(), b.xy()); }

/// The light that a colour means on the fixture it was made for.
Light meaningOf(const LXColor& color)
{
    double Yxy[3];
    if (color.spec() != LXColor::Yxy) {
        ColorUtils::convertLXColorToYxy(color, Yxy);
        return lightFrom(Yxy);
    }
    color.getYxyF(&Yxy[0], &Yxy[1], &Yxy[2], nullptr);
    return {Yxy[0], Yxy[1], Yxy[2]};
}

/// A fixture in an IO mode: from levels to bytes and from bytes to light, by the library's operations.
class Fixture
{
public:
    explicit Fixture(const Target& target)
        : m_target(target)
        , m_configuration(IOModeFactory::instance()->ioMode(target.ioMode)->inputChannelConfiguration())
        , m_record(TristimulusFactory::getInstance()->getTristimulus(target.profile, m_configuration))
    {
    }

    int channelCount() const { return ColorUtils::configChannelCount(m_configuration); }
    int emitterCount() const
    {
        const int known = std::min({m_record->getX().size(), m_record->getY().size(), m_record->getZ().size()});
        return std::min(known, channelCount());
    }
    bool isSingleChannel() const { return channelCount() == 1; }
    QString channelName(int channel) const;

    QVector<double> levelsFor(const LXColor& color, bool& solved) const;
    QList<unsigned char> bytesFor(const LXColor& color, int resolution) const;
    QVector<int> drivesOf(const QList<unsigned char>& bytes, int resolution) const;

    /// The light of the emitters at these drive values.
    Light lightOf(const QVector<int>& drives, int resolution) const;
    /// The output ratio of an emitter at a drive value.
    double outputAt(int drive, int resolution) const { return lightOf({drive}, resolution).intensity; }
    /// CIE 1931 Y of the emitters at these output ratios, on the record's scale.
    double luminanceOf(const QVector<double>& outputs) const;
    /// The most that the fixture gives at the chromaticity of a light; 0 where the solver finds no mix.
    double greatestLuminanceAt(const Light& light) const;

    /// Moves a light that is outside the gamut to its nearest point; false when it is inside and stays.
    bool moveIntoGamut(Light& light) const;
    /// The part of the gamut's boundary that is nearest to a light.
    Side nearestSide(const Light& light) const;

private:
    QPointF cornerOfGamut(int emitter) const;
    QVector<double> brightestLevelsAt(const Light& light, bool clampToGamut) const;

    Target m_target;
    ColorUtils::ChannelConfiguration m_configuration;
    Tristimulus* m_record;
};

QString Fixture::channelName(int channel) const
{
    if (isSingleChannel())
        return MatchReport::tr("Intensity");
    const QStringList names = m_record->getChannelNames();
    return channel < names.size() ? names.at(channel) : MatchReport::tr("Channel %1").arg(channel + 1);
}

QVector<double> Fixture::levelsFor(const LXColor& color, bool& solved) const
{
    bool converted = false;
    LXColor shown = color;
    const std::unique_ptr<double[]> levels(ColorUtils::convertLXColorToNChannelF(
        converted, shown, m_target.allowRgbPassThrough, channelCount(), m_target.profile, m_target.ioMode, true));
    solved = converted || color.spec() == LXColor::Yxy;
    return QVector<double>(levels.get(), levels.get() + channelCount());
}

QList<unsigned char> Fixture::bytesFor(const LXColor& color, int resolution) const
{
    return ColorUtils::updateBuffer(m_target.directCurve, m_target.onboardCurve, color, m_target.allowRgbPassThrough,
                                    channelCount(), resolution, m_target.ioMode, m_target.profile);
}

QVector<int> Fixture::drivesOf(const QList<unsigned char>& bytes, int resolution) const
{
    QVector<int> drives;
    for (int i = 0; i + resolution <= bytes.size(); i += resolution)
        drives.append(resolution == 2 ? bytes.at(i) << 8 | bytes.at(i + 1) : bytes.at(i));
    return drives;
}

Light Fixture::lightOf(const QVector<int>& drives, int resolution) const
{
    LXColor driven;
    if (resolution == 2) {
        QVector<uint> levels{kOpaque16};
        for (int drive : drives)
            levels.append(static_cast<uint>(drive));
        driven.setNChannel16(levels, m_configuration, m_target.profile);
    } else {
        driven.setNChannel8(QVector<int>{kOpaque8} + drives, m_configuration, m_target.profile);
    }
    double Yxy[3];
    ColorUtils::convertLXColorToYxy(driven, m_record, Yxy, m_target.onboardCurve);
    return lightFrom(Yxy);
}

double Fixture::luminanceOf(const QVector<double>& outputs) const
{
    const QVector<double>& Y = m_record->getY();
    double luminance = 0.0;
    for (int i = 0; i < std::min(outputs.size(), emitterCount()); ++i)
        luminance += Y.at(i) * outputs.at(i);
    return luminance;
}

QVector<double> Fixture::brightestLevelsAt(const Light& light, bool clampToGamut) const
{
    double Yxy[3] = {1.0, light.x, light.y};
    QVector<double> levels(channelCount(), 0.0);
    ColorUtils::convertYxyToNChannel(Yxy, levels.data(), m_configuration, m_target.profile, clampToGamut);
    return levels;
}

double Fixture::greatestLuminanceAt(const Light& light) const
{
    // Emitters beyond red, green and blue reach outside the triangle; only what they do not reach needs moving.
    const double reached = luminanceOf(brightestLevelsAt(light, false));
    return reached > 0.0 ? reached : luminanceOf(brightestLevelsAt(light, true));
}

QPointF Fixture::cornerOfGamut(int emitter) const
{
    if (emitter >= emitterCount())
        return {0.0, 0.0};
    const double XYZ[3] = {m_record->getX().at(emitter), m_record->getY().at(emitter), m_record->getZ().at(emitter)};
    double Yxy[3];
    ColorUtils::convertXYZtoYxy(XYZ, Yxy);
    return {Yxy[1], Yxy[2]};
}

bool Fixture::moveIntoGamut(Light& light) const
{
    Light nearest = light;
    if (m_record->closestPtOnGamut(light.x, light.y, nearest.x, nearest.y) ||
        distanceOf(light, nearest) <= lxcolor::kGamutTolerance)
        return false;
    light = nearest;
    return true;
}

Side Fixture::nearestSide(const Light& light) const
{
    return lxcolor::nearestSide({cornerOfGamut(0), cornerOfGamut(1), cornerOfGamut(2)}, light.xy());
}

Target resolved(Target target)
{
    if (target.resolution != 2)
        target.resolution = 1;
    if (!IOModeFactory::instance()->ioMode(target.ioMode))
        target.ioMode = ColorUtils::IOModeRGB;
    if (target.onboardCurve == -1)
        target.onboardCurve = ColorUtils::defaultCurveTypeForTonematchProfileID(target.profile);
    return target;
}

void placeInGamut(MatchReport& report, const Fixture& fixture, bool solved)
{
    Light nearest = report.requested;
    report.insideGamut = !fixture.moveIntoGamut(nearest);
    report.moved = 0.0;
    if (!solved || report.insideGamut)
        return;
    report.side = fixture.nearestSide(report.requested);
    report.moved = distanceOf(report.requested, nearest);
    report.aimed = nearest;
}

bool areDark(const QVector<double>& levels)
{
    return std::none_of(levels.begin(), levels.end(), [](double level) { return level > 0.0; });
}

MatchReport::Verdict verdictFor(const MatchReport& report, const LXColor& color, bool solved,
                                const QVector<double>& levels)
{
    using Verdict = MatchReport::Verdict;
    if (!color.isValid())
        return Verdict::Invalid;
    if (!std::isfinite(report.requested.intensity))
        return Verdict::Undefined;
    if (color.isBlack() || !(report.requested.intensity > 0.0))
        return Verdict::Black;
    if (levels.size() == 1)
        return Verdict::SingleChannel;
    if (!std::isfinite(report.moved))
        return Verdict::Undefined;
    if (!solved)
        return Verdict::PassedThrough;
    if (areDark(levels))
        return Verdict::Unsolved;
    return report.insideGamut ? Verdict::InsideGamut : Verdict::MovedIntoGamut;
}

void fillEmitters(MatchReport& report, const Fixture& fixture, const QVector<double>& levels,
                  const QVector<int>& drives)
{
    QVector<double> outputs;
    for (int i = 0; i < fixture.channelCount(); ++i) {
        MatchReport::Emitter emitter;
        emitter.name = fixture.channelName(i);
        emitter.level = levels.at(i);
        emitter.drive = drives.at(i);
        emitter.output = fixture.outputAt(emitter.drive, report.target.resolution);
        emitter.emitting = i < fixture.emitterCount();
        outputs.append(emitter.output);
        report.emitters.append(emitter);
    }
    if (fixture.isSingleChannel()) {
        report.luminanceShare = outputs.first();
    } else if (!report.achieved.hasChromaticity()) {
        report.luminanceShare = 0.0;
    } else {
        const double luminance = fixture.luminanceOf(outputs);
        const double brightestOfThisMix = luminance / report.achieved.intensity;
        report.luminanceShare = luminance / std::max(fixture.greatestLuminanceAt(report.achieved), brightestOfThisMix);
    }
}

} // namespace

bool MatchReport::Light::hasChromaticity() const { return std::isfinite(x) && std::isfinite(y); }

QPointF MatchReport::Light::xy() const { return {x, y}; }

QPointF MatchReport::Light::uvPrime() const
{
    return {CCTUtils::getuPrimeFromxy(x, y), CCTUtils::getvPrimeFromxy(x, y)};
}

MatchReport MatchReport::make(const LXColor& color, const Target& asked)
{
    MatchReport report;
    report.target = resolved(asked);
    report.targetName = ColorUtils::tonematchProfileIDName(report.target.profile);
    report.ioModeName = IOModeFactory::instance()->nameForIOModeID(report.target.ioMode);

    const Fixture fixture(report.target);
    bool solved = false;
    const QVector<double> levels = fixture.levelsFor(color, solved);
    const QVector<int> drives8 = fixture.drivesOf(fixture.bytesFor(color, 1), 1);
    const QVector<int> drives16 = fixture.drivesOf(fixture.bytesFor(color, 2), 2);
    const bool wide = report.target.resolution == 2;
    report.bytes = fixture.bytesFor(color, report.target.resolution);

    if (color.isValid())
        report.requested = meaningOf(color);
    report.aimed = report.requested;
    Light light8 = fixture.lightOf(drives8, 1);
    Light light16 = fixture.lightOf(drives16, 2);
    if (fixture.isSingleChannel()) {
        // The one channel dims whatever lamp is behind it.
        for (Light* light : {&light8, &light16, &report.aimed})
            light->x = light->y = none;
    }
    report.achieved = wide ? light16 : light8;
    if (report.aimed.hasChromaticity())
        placeInGamut(report, fixture, solved);
    report.verdict = verdictFor(report, color, solved, levels);
    report.deviation = distanceOf(report.requested, report.achieved);
    report.roundingError8 = distanceOf(solved ? report.aimed : light16, light8);
    report.roundingError16 = distanceOf(solved ? report.aimed : light16, light16);
    fillEmitters(report, fixture, levels, wide ? drives16 : drives8);
    return report;
}

bool MatchReport::isDark() const
{
    return std::all_of(emitters.begin(), emitters.end(),
                       [](const Emitter& emitter) { return !emitter.emitting || !(emitter.output > 0.0); });
}

bool MatchReport::isMatched() const { return verdict == Verdict::InsideGamut || verdict == Verdict::MovedIntoGamut; }
