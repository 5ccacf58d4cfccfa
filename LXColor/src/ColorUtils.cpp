#include "ColorUtils.h"

#include "ColorWords_p.h"
#include "CornerSolver_p.h"
#include "CurveFactory.h"
#include "EmitterMix_p.h"
#include "FixtureTables_p.h"
#include "GamutGeometry_p.h"
#include "LXColor.h"
#include "OnboardInverse_p.h"
#include "OnboardResponse_p.h"
#include "OutputRoute_p.h"
#include "Rounding_p.h"
#include "SolverCache_p.h"
#include "ToneMatchProfile.h"
#include "TonematchProfileFactory.h"
#include "Tristimulus.h"
#include "TristimulusFactory.h"

#include <QVarLengthArray>

#include <algorithm>
#include <limits>

namespace {

constexpr int kOnboardCompensation = 3; // the mode of applyCurve() that inverts the onboard curve
constexpr int kSoftwareCurve = 1;

ToneMatchProfile* profileRecord(ColorUtils::TonematchProfileID profile)
{
    return TonematchProfileFactory::instance()->getProfile(profile);
}

Tristimulus* emitterRecord(ColorUtils::TonematchProfileID profile, ColorUtils::ChannelConfiguration configuration)
{
    return TristimulusFactory::getInstance()->getTristimulus(profile, configuration);
}

lxcolor::EmitterView emittersOf(Tristimulus& record)
{
    const QVector<double>& X = record.getX();
    const QVector<double>& Y = record.getY();
    const QVector<double>& Z = record.getZ();
    return {X.constData(), Y.constData(), Z.constData(), std::min({X.size(), Y.size(), Z.size()})};
}

void store(const lxcolor::Yxy& light, double* Yxy)
{
    Yxy[0] = light.Y;
    Yxy[1] = light.xy.x;
    Yxy[2] = light.xy.y;
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
    const double intensity = Yxy[0]; // read first: the levels may go where it came from
    lxcolor::Chromaticity xy = {Yxy[1], Yxy[2]};
    if (clampToGamut)
        record->closestPtOnGamut(Yxy[1], Yxy[2], xy.x, xy.y);

    const lxcolor::LevelSet best = lxcolor::solveForRecord(record->profileID(), emittersOf(*record), count, xy);
    for (int k = 0; k < count; ++k)
        levels[k] = best.level[k] * intensity;
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

// ---- Dimming curves: levels to output values ----

namespace {

/// One level as a 16-bit drive value.
quint16 driveValue16(double level, int curveType, int mode, Curve* softwareCurve)
{
    if (mode == kOnboardCompensation)
        return lxcolor::onboardDrive16(curveType, lxcolor::roundTo16(level));
    quint16 value = 0;
    softwareCurve->applyCurve(lxcolor::truncateTo16(level), &value);
    return value;
}

/// One level as an 8-bit drive value.
quint8 driveValue8(double level, int curveType, int mode, Curve* softwareCurve)
{
    if (mode == kOnboardCompensation)
        return lxcolor::onboardDrive8(curveType, lxcolor::roundTo16(level));
    quint8 value = 0;
    softwareCurve->applyCurve(lxcolor::roundTo8(level), &value);
    return value;
}

Curve* softwareCurveFor(int curveType, int mode)
{
    return mode == kOnboardCompensation ? nullptr : CurveFactory::Instance()->getCurve(curveType);
}

} // namespace

void ColorUtils::applyCurve(int count, int resolution, double* levels, unsigned char* out, int curveType, int mode)
{
    if (!levels || !out)
        return;
    Curve* softwareCurve = softwareCurveFor(curveType, mode);
    if (resolution == 2) {
        for (int k = 0; k < count; ++k) {
            const quint16 value = driveValue16(levels[k], curveType, mode, softwareCurve);
            unsigned char* const bytes = out + 2 * static_cast<size_t>(k);
            bytes[0] = static_cast<unsigned char>(value >> 8);
            bytes[1] = static_cast<unsigned char>(value & 0xff);
        }
    } else if (resolution == 1 || mode == kOnboardCompensation) {
        for (int k = 0; k < count; ++k)
            out[k] = driveValue8(levels[k], curveType, mode, softwareCurve);
    }
}

void ColorUtils::applyCurve16(int count, double* levels, unsigned short* out, int curveType, int mode)
{
    if (!levels || !out)
        return;
    Curve* softwareCurve = softwareCurveFor(curveType, mode);
    for (int k = 0; k < count; ++k)
        out[k] = driveValue16(levels[k], curveType, mode, softwareCurve);
}

// ---- Output to fixtures ----

namespace {

lxcolor::OutputRequest outputRequest(const LXColor& color, ColorUtils::TonematchProfileID targetProfile,
                                     bool allowRgbPassThrough)
{
    using Face = lxcolor::OutputRequest::Face;
    Face face = Face::None;
    if (color.spec() == LXColor::Rgb || color.spec() == LXColor::Hsv)
        face = Face::RgbOrHsv;
    else if (color.spec() == LXColor::Yxy)
        face = Face::Yxy;
    else if (color.spec() == LXColor::NChannel)
        face = Face::NChannel;
    return {face,
            color.getNChannelRenderType() == LXColor::NChannelColorimetric,
            color.getTonematchProfileID(),
            color.getChannelConfiguration(),
            targetProfile,
            allowRgbPassThrough};
}

/// The first \a count of \a available levels; the rest are 0 already.
void copyLevels(const double* available, int availableCount, double* levels, int count)
{
    std::copy_n(available, std::min(availableCount, count), levels);
}

} // namespace

/// Writes the levels of a colour for a fixture into \a levels, which hold \a count zeros.
void ColorUtils::writeOutputLevels(bool& converted, const LXColor& color, bool allowRgbPassThrough, int count,
                                   TonematchProfileID targetProfile, int ioMode, bool clampToGamut, double* levels)
{
    const lxcolor::IOModeRow& mode = lxcolor::ioModeRow(ioMode);
    switch (lxcolor::chooseOutputRoute(outputRequest(color, targetProfile, allowRgbPassThrough), mode)) {
    case lxcolor::OutputRoute::Matched: {
        double Yxy[3];
        if (color.spec() == LXColor::Yxy) {
            color.getYxyF(&Yxy[0], &Yxy[1], &Yxy[2], nullptr);
        } else {
            convertLXColorToYxy(color, Yxy);
            converted = true;
        }
        double solved[lxcolor::kMaxEmitters] = {};
        convertYxyToNChannel(Yxy, solved, mode.inputConfiguration, targetProfile, clampToGamut);
        copyLevels(solved, lxcolor::kMaxEmitters, levels, count);
        break;
    }
    case lxcolor::OutputRoute::RgbFace: {
        double rgb[3];
        color.getRgbF(&rgb[0], &rgb[1], &rgb[2], nullptr);
        copyLevels(rgb, 3, levels, count);
        break;
    }
    case lxcolor::OutputRoute::OwnLevels: {
        const QVector<quint32>& words = color.m_nChannels;
        std::transform(words.constBegin(), words.constBegin() + std::min(words.size(), count), levels,
                       lxcolor::toRatio);
        break;
    }
    case lxcolor::OutputRoute::Dark:
        break;
    }
}

double* ColorUtils::convertLXColorToNChannelF(bool& converted, LXColor& color, bool allowRgbPassThrough, int count,
                                              TonematchProfileID targetProfile, int ioMode, bool clampToGamut,
                                              int /*unused*/)
{
    count = std::max(count, 0);
    auto* levels = new double[static_cast<size_t>(count)]();
    writeOutputLevels(converted, color, allowRgbPassThrough, count, targetProfile, ioMode, clampToGamut, levels);
    return levels;
}

void ColorUtils::convertLXColorToDMX(LXColor& color, bool allowRgbPassThrough, int count, int resolution,
                                     unsigned char* out, int directCurve, int onboardCurve,
                                     TonematchProfileID targetProfile, int ioMode)
{
    if (!out || count <= 0 || resolution <= 0)
        return;
    std::fill_n(out, static_cast<size_t>(count) * static_cast<size_t>(resolution), static_cast<unsigned char>(0));

    // Channels beyond those that the colour or the solver can fill stay dark, and no curve maps dark to anything else.
    const int used = std::min(count, std::max(lxcolor::kMaxEmitters, color.m_nChannels.size()));
    QVarLengthArray<double, 16> levels(used);
    std::fill(levels.begin(), levels.end(), 0.0);
    bool converted = false;
    writeOutputLevels(converted, color, allowRgbPassThrough, used, targetProfile, ioMode, true, levels.data());
    const bool solved = converted || color.spec() == LXColor::Yxy;
    applyCurve(used, resolution, levels.data(), out, solved ? onboardCurve : directCurve,
               solved ? kOnboardCompensation : kSoftwareCurve);
}

QList<unsigned char> ColorUtils::updateBuffer(int directCurve, int onboardCurve, const LXColor& color,
                                              bool allowRgbPassThrough, int count, int resolution, int ioMode,
                                              TonematchProfileID targetProfile)
{
    QList<unsigned char> bytes;
    if (count <= 0 || resolution <= 0)
        return bytes;
    const qint64 size = static_cast<qint64>(count) * resolution;
    if (size > std::numeric_limits<int>::max())
        qBadAlloc();

    LXColor shown(0u, 0u, 0u, 65535u);
    updateColor(shown, color);
    QVarLengthArray<unsigned char, 32> buffer(static_cast<int>(size));
    convertLXColorToDMX(shown, allowRgbPassThrough, count, resolution, buffer.data(), directCurve, onboardCurve,
                        targetProfile, ioMode);
    bytes.reserve(buffer.size());
    for (unsigned char byte : buffer)
        bytes.append(byte);
    return bytes;
}

void ColorUtils::convertYxyToNChannelAndApplyCurve(double* Yxy, unsigned short* out, ChannelConfiguration configuration,
                                                   TonematchProfileID profile, int curveType, bool clampToGamut)
{
    double levels[lxcolor::kMaxEmitters] = {};
    if (!Yxy)
        return;
    convertYxyToNChannel(Yxy, levels, configuration, profile, clampToGamut);
    applyCurve16(configChannelCount(configuration), levels, out, curveType, kOnboardCompensation);
}

namespace {

double blended(double old, double incoming, double alpha) { return old * (1.0 - alpha) + incoming * alpha; }

uint blended16(uint old, uint incoming, double alpha)
{
    return static_cast<uint>(blended(old, incoming, alpha)); // truncated
}

void blendYxy(LXColor& current, const LXColor& incoming, double alpha)
{
    current.setYxyF(blended(current.getY(), incoming.getY(), alpha), blended(current.getx(), incoming.getx(), alpha),
                    blended(current.gety(), incoming.gety(), alpha), 1.0, ColorUtils::ProfileGenericRGB);
}

void blendRgb(LXColor& current, const LXColor& incoming, double alpha)
{
    uint old[3] = {};
    uint added[3] = {};
    current.getRgb16(&old[0], &old[1], &old[2], nullptr);
    incoming.getRgb16(&added[0], &added[1], &added[2], nullptr);
    current.setRgb16(blended16(old[0], added[0], alpha), blended16(old[1], added[1], alpha),
                     blended16(old[2], added[2], alpha), 65535, ColorUtils::ProfileGenericRGB);
}

void blendNChannel(LXColor& current, const LXColor& incoming, double alpha)
{
    QVector<uint> levels;
    QVector<uint> added;
    ColorUtils::ChannelConfiguration configuration = ColorUtils::ConfigUnknown;
    current.getNChannel16(&levels, &configuration, nullptr);
    incoming.getNChannel16(&added, nullptr, nullptr);
    for (int k = 1; k < std::min(levels.size(), added.size()); ++k) // element 0 is the alpha, which stays
        levels[k] = blended16(levels.at(k), added.at(k), alpha);
    current.setNChannel16(levels, configuration, ColorUtils::ProfileGenericRGB);
}

} // namespace

void ColorUtils::updateColor(LXColor& current, const LXColor& incoming)
{
    if (current.isBlack() || incoming.alpha8() > 254) {
        current = incoming;
        return;
    }
    const ChannelConfiguration configuration = incoming.getChannelConfiguration();
    const TonematchProfileID profile = incoming.getTonematchProfileID();
    if (current.getChannelConfiguration() != configuration || current.getTonematchProfileID() != profile ||
        current.spec() != incoming.spec())
        current = current.convertTo(incoming.spec(), configuration, profile);

    const double alpha = incoming.alphaF();
    if (incoming.spec() == LXColor::Yxy)
        blendYxy(current, incoming, alpha);
    else if (configuration == ConfigRGB)
        blendRgb(current, incoming, alpha);
    else
        blendNChannel(current, incoming, alpha);
}

QList<unsigned char> ColorUtils::expandFor5Channels(QList<unsigned char>& bytes)
{
    if (bytes.size() != 3 && bytes.size() != 6)
        return {};
    return bytes + bytes.mid(0, bytes.size() / 3 * 2);
}
