#include "ColorUtils.h"

#include "ColorUtils_p.h"
#include "ColorWords_p.h"
#include "CornerSolver_p.h"
#include "EmitterMix_p.h"
#include "FixtureTables_p.h"
#include "GamutGeometry_p.h"
#include "LXColor.h"
#include "OnboardInverse_p.h"
#include "OnboardResponse_p.h"
#include "Rounding_p.h"
#include "SolverCache_p.h"
#include "ToneMatchProfile.h"
#include "TonematchProfileFactory.h"

#include <algorithm>

using lxcolor::emitterRecord;
using lxcolor::emittersOf;
using lxcolor::store;

namespace {

ToneMatchProfile* profileRecord(ColorUtils::TonematchProfileID profile)
{
    return TonematchProfileFactory::instance()->getProfile(profile);
}

template <typename Out>
void mapValues(const unsigned short* values, Out* out, int count, Out (*map)(quint16))
{
    if (values && out && count > 0)
        std::transform(values, values + count, out, map);
}

} // namespace

ColorUtils* ColorUtils::getInstance()
{
    static auto* instance = new ColorUtils;
    return instance;
}

// ---- Channel configurations and the list of profiles ----

QString ColorUtils::nameForChannelConfiguration(ChannelConfiguration configuration)
{
    return QString::fromLatin1(lxcolor::configurationRow(configuration).name);
}

int ColorUtils::configChannelCount(ChannelConfiguration configuration)
{
    return lxcolor::configurationRow(configuration).channels;
}

QList<ColorUtils::TonematchProfileID> ColorUtils::tonematchProfileIDList(bool all)
{
    QList<TonematchProfileID> ids;
    for (const lxcolor::ProfileRow& row : lxcolor::kProfiles)
        if (all || (row.id != ProfileGenericRGBW && row.id != ProfileSingleChannel))
            ids.append(row.id);
    return ids;
}

// ---- Look-ups in the profile registry. Layout and curve never change and are asked for while the registries are being
//      filled, so they come from the table. ----

QString ColorUtils::tonematchProfileIDName(TonematchProfileID profile) { return profileRecord(profile)->name(); }

ColorUtils::ChannelConfiguration ColorUtils::nChannelConfigurationForTonematchProfileID(TonematchProfileID profile)
{
    return lxcolor::profileRow(profile).configuration;
}

int ColorUtils::defaultCurveTypeForTonematchProfileID(TonematchProfileID profile)
{
    return lxcolor::profileRow(profile).onboardCurve;
}

ColorUtils::IOModeID ColorUtils::defaultIOModeIDForTonematchProfileID(TonematchProfileID profile)
{
    return profileRecord(profile)->getDefaultIOModeID();
}

ColorUtils::IOModeID ColorUtils::defaultIOModeIDForTonematchProfileID3toN(TonematchProfileID profile)
{
    return profileRecord(profile)->getDefaultIOModeID3toN();
}

bool ColorUtils::defaultToneMatchEnabled(TonematchProfileID profile, int ioMode)
{
    return profileRecord(profile)->getDefaultIsTonematchEnabled(static_cast<IOModeID>(ioMode));
}

QList<ColorUtils::IOModeID> ColorUtils::ioModesForTonematchProfileID(TonematchProfileID profile)
{
    return profileRecord(profile)->getAvailableIOModeIDs();
}

QStringList ColorUtils::tonematchProfileIDNameList(bool all)
{
    QStringList names;
    for (TonematchProfileID id : tonematchProfileIDList(all))
        names.append(tonematchProfileIDName(id));
    return names;
}

QMap<int, QString> ColorUtils::tonematchProfileIDNameMap()
{
    static const auto* const names = [] {
        auto* map = new QMap<int, QString>;
        for (TonematchProfileID id : tonematchProfileIDList(true))
            map->insert(id, tonematchProfileIDName(id));
        return map;
    }();
    return *names;
}

// ---- Colour to chromaticity and intensity ----

void ColorUtils::convertXYZtoYxy(const double* XYZ, double* Yxy)
{
    if (!XYZ || !Yxy)
        return;
    double largest = 0.0;
    for (int i = 0; i < 3; ++i)
        if (XYZ[i] > largest)
            largest = XYZ[i];
    const bool dark = largest == 0.0;
    store({largest, dark ? lxcolor::Chromaticity{0.0, 0.0} : lxcolor::chromaticityOf(XYZ[0], XYZ[1], XYZ[2])}, Yxy);
}

void ColorUtils::convertLXColorToYxy(const LXColor& color, Tristimulus* tristimulus, double* Yxy, int curveType)
{
    if (!Yxy)
        return;
    if (color.isBlack()) {
        store({0.0, {0.0, 0.0}}, Yxy);
        return;
    }
    const lxcolor::EmitterView emitters =
        tristimulus ? emittersOf(*tristimulus) : lxcolor::EmitterView{nullptr, nullptr, nullptr, 0};
    lxcolor::EmitterMix mix(emitters);
    switch (color.spec()) {
    case LXColor::Rgb:
    case LXColor::Hsv: {
        double rgb[3];
        color.getRgbF(&rgb[0], &rgb[1], &rgb[2], nullptr);
        for (double level : rgb)
            mix.add(lxcolor::onboardOutputRatio(curveType, level));
        break;
    }
    case LXColor::NChannel:
        for (quint32 word : color.m_nChannels)
            mix.add(lxcolor::onboardOutputRatio(curveType, lxcolor::toRatio(word)));
        break;
    default:
        break;
    }
    store(mix.result(), Yxy);
}

void ColorUtils::convertLXColorToYxy(const LXColor& color, double* Yxy)
{
    const TonematchProfileID profile = color.getTonematchProfileID();
    convertLXColorToYxy(color, emitterRecord(profile, color.getChannelConfiguration()), Yxy,
                        defaultCurveTypeForTonematchProfileID(profile));
}

double ColorUtils::dmx16ToSquareLawDimRatio(unsigned short level) { return lxcolor::squareLawRatio(level); }

double ColorUtils::dmx16ToTungstenDimRatio(unsigned short level) { return lxcolor::tungstenRatio(level); }

// ---- Chromaticity and intensity to levels ----

void ColorUtils::convertYxyToNChannel(double* Yxy, double* levels, ChannelConfiguration configuration,
                                      TonematchProfileID profile, bool clampToGamut)
{
    if (!Yxy || !levels)
        return;
    const int count = configChannelCount(configuration);
    Tristimulus* record = emitterRecord(profile, configuration);
    lxcolor::Yxy light = {Yxy[0], {Yxy[1], Yxy[2]}};
    if (clampToGamut)
        record->moveIntoGamut(&light, 1);
    lxcolor::solveForRecord(record->profileID(), emittersOf(*record), count, &light, 1, levels, count);
}

void ColorUtils::gaussianEliminationTwoByThree(const double m[2][3], double& a, double& b)
{
    if (m)
        lxcolor::PairElimination(m[0][0], m[0][1], m[1][0], m[1][1]).solve(m[0][2], m[1][2], a, b);
}

bool ColorUtils::validateDimmingRatio(const QVector<double>& ratios)
{
    return lxcolor::areRatios(ratios.constData(), ratios.size());
}

double ColorUtils::minDistance(QPointF v, QPointF w, QPointF p, QPointF& closest)
{
    return lxcolor::distanceToSegment(v, w, p, closest);
}

// ---- Dimming curves: inverses of the curves built into fixtures ----

float ColorUtils::quadraticSolver(float a, float b, float c, float target, float max)
{
    return lxcolor::solveQuadratic(a, b, c, target, max);
}

unsigned char ColorUtils::pwm16ToMNormDLinearRes8(unsigned short pwm) { return lxcolor::linearDrive8(pwm); }

unsigned char ColorUtils::pwm16ToMNormDNormRes8(unsigned short pwm) { return lxcolor::normalDrive8(pwm); }

unsigned short ColorUtils::pwm16ToMNormDNormRes16(unsigned short pwm) { return lxcolor::normalDrive16(pwm); }

unsigned char ColorUtils::pwm16ToMNormDTungstenRes8(unsigned short pwm) { return lxcolor::tungstenDrive8(pwm); }

unsigned short ColorUtils::pwm16ToMNormDTungstenRes16(unsigned short pwm) { return lxcolor::tungstenDrive16(pwm); }

void ColorUtils::pwmToMNormDLinearRes8(unsigned short* pwm, unsigned char* out, int count)
{
    mapValues(pwm, out, count, lxcolor::linearDrive8);
}

void ColorUtils::pwmToMNormDLinearRes16(unsigned short* pwm, unsigned short* out, int count)
{
    mapValues(
        pwm, out, count, +[](quint16 light) { return light; });
}

void ColorUtils::pwmToMNormDNormRes8(unsigned short* pwm, unsigned char* out, int count)
{
    mapValues(pwm, out, count, lxcolor::normalDrive8);
}

void ColorUtils::pwmToMNormDNormRes16(unsigned short* pwm, unsigned short* out, int count)
{
    mapValues(pwm, out, count, lxcolor::normalDrive16);
}

void ColorUtils::pwmToMNormDTungstenRes8(unsigned short* pwm, unsigned char* out, int count)
{
    mapValues(pwm, out, count, lxcolor::tungstenDrive8);
}

void ColorUtils::pwmToMNormDTungstenRes16(unsigned short* pwm, unsigned short* out, int count)
{
    mapValues(pwm, out, count, lxcolor::tungstenDrive16);
}

void ColorUtils::nChannelFToPWM(double* levels, unsigned short* pwm, int count)
{
    if (levels && pwm && count > 0)
        std::transform(levels, levels + count, pwm, lxcolor::roundTo16);
}

unsigned char ColorUtils::lut16BitToBit(unsigned short value) { return lxcolor::truncatedNormalDrive8(value); }
