// The last part of ColorUtils: levels to output values, and colours to fixtures.
#include "ColorUtils_p.h"
#include "ColorWords_p.h"
#include "CornerSolver_p.h"
#include "CurveFactory.h"
#include "CurveLookup_p.h"
#include "FixtureTables_p.h"
#include "LXColor.h"
#include "OnboardInverse_p.h"
#include "OutputRoute_p.h"
#include "Rounding_p.h"
#include "SolverCache_p.h"

#include <QVarLengthArray>
#include <QtEndian>

#include <algorithm>
#include <limits>

using lxcolor::emitterRecord;
using lxcolor::emittersOf;
using lxcolor::store;

namespace {

constexpr int kOnboardCompensation = 3; // the mode of applyCurve() that inverts the onboard curve
constexpr int kSoftwareCurve = 1;

} // namespace

// ---- Dimming curves: levels to output values ----

namespace {

/// From levels to drive values: through a software curve, or the inverse of an onboard one.
class DriveCurve
{
public:
    DriveCurve(int curveType, int mode, int resolution)
        : m_isInverse(mode == kOnboardCompensation)
        , m_resolution(resolution == 2 ? 2 : 1)
        , m_software(m_isInverse ? nullptr : CurveFactory::Instance()->getCurve(curveType))
        , m_inverse8(m_isInverse && m_resolution == 1 ? lxcolor::onboardInverse8(curveType) : nullptr)
        , m_inverse16(m_isInverse && m_resolution == 2 ? lxcolor::onboardInverse16(curveType) : nullptr)
        , m_givesNothing(!m_isInverse && resolution != 1 && resolution != 2)
    {
    }

    quint16 drive16(double level) const
    {
        return m_isInverse ? inverse16(lxcolor::roundTo16(level)) : software16(lxcolor::truncateTo16(level));
    }

    /// The bytes of \a count levels, one or two for each.
    void write(const double* levels, int count, unsigned char* out) const
    {
        if (m_givesNothing)
            return;
        if (m_isInverse && m_resolution == 1)
            writeEach(levels, count, out, lxcolor::roundTo16, [this](quint16 light) { return inverse8(light); });
        else if (m_isInverse)
            writeEach(levels, count, out, lxcolor::roundTo16, [this](quint16 light) { return inverse16(light); });
        else if (m_resolution == 1)
            writeEach(levels, count, out, lxcolor::roundTo8, [this](quint16 value) { return software8(value); });
        else
            writeEach(levels, count, out, lxcolor::truncateTo16, [this](quint16 value) { return software16(value); });
    }

private:
    quint8 inverse8(quint16 light) const { return m_inverse8 ? (*m_inverse8)(light) : lxcolor::linearDrive8(light); }
    quint16 inverse16(quint16 light) const { return m_inverse16 ? (*m_inverse16)(light) : light; }
    quint8 software8(quint16 value) const { return lxcolor::CurveLookup::value8(*m_software, value); }
    quint16 software16(quint16 value) const { return lxcolor::CurveLookup::value16(*m_software, value); }

    /// In two steps, because in a single one the compiler makes a branch for levels of 0, which nobody can foresee.
    template <typename Round, typename Drive>
    static void writeEach(const double* levels, int count, unsigned char* out, Round round, Drive drive)
    {
        constexpr int kAtOnce = 64;
        quint16 values[kAtOnce];
        for (int begin = 0; begin < count; begin += kAtOnce) {
            const int part = std::min(kAtOnce, count - begin);
            std::transform(levels + begin, levels + begin + part, values, round);
            for (int k = 0; k < part; ++k) {
                const auto value = drive(values[k]);
                qToBigEndian(value, out);
                out += sizeof value;
            }
        }
    }

    bool m_isInverse;
    int m_resolution;
    const Curve* m_software;
    lxcolor::OnboardInverse<quint8>* m_inverse8;
    lxcolor::OnboardInverse<quint16>* m_inverse16;
    bool m_givesNothing;
};

} // namespace

void ColorUtils::applyCurve(int count, int resolution, double* levels, unsigned char* out, int curveType, int mode)
{
    if (levels && out)
        DriveCurve(curveType, mode, resolution).write(levels, count, out);
}

void ColorUtils::applyCurve16(int count, double* levels, unsigned short* out, int curveType, int mode)
{
    if (!levels || !out)
        return;
    const DriveCurve curve(curveType, mode, 2);
    for (int k = 0; k < count; ++k)
        out[k] = curve.drive16(levels[k]);
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
            face == Face::NChannel && color.getNChannelRenderType() == LXColor::NChannelColorimetric,
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

/// The steps from a colour to levels.
class Q_DECL_HIDDEN ColorUtils::Output
{
public:
    static void writeLevels(bool& converted, const LXColor& color, bool allowRgbPassThrough, int count,
                            TonematchProfileID targetProfile, int ioMode, bool clampToGamut, double* levels);
    static void writeOwnLevels(lxcolor::OutputRoute route, const LXColor& color, int count, double* levels);
    static void readLight(const LXColor& color, double* Yxy);
};

/// Writes the levels of a colour for a fixture into \a levels, which hold \a count zeros.
void ColorUtils::Output::writeLevels(bool& converted, const LXColor& color, bool allowRgbPassThrough, int count,
                                     TonematchProfileID targetProfile, int ioMode, bool clampToGamut, double* levels)
{
    const lxcolor::IOModeRow& mode = lxcolor::ioModeRow(ioMode);
    const auto route = lxcolor::chooseOutputRoute(outputRequest(color, targetProfile, allowRgbPassThrough), mode);
    if (route != lxcolor::OutputRoute::Matched) {
        writeOwnLevels(route, color, count, levels);
        return;
    }
    double Yxy[3];
    readLight(color, Yxy);
    converted = converted || color.spec() != LXColor::Yxy;
    double solved[lxcolor::kMaxEmitters] = {};
    convertYxyToNChannel(Yxy, solved, mode.inputConfiguration, targetProfile, clampToGamut);
    copyLevels(solved, lxcolor::kMaxEmitters, levels, count);
}

/// The light that a colour stands for as Y, x, y.
void ColorUtils::Output::readLight(const LXColor& color, double* Yxy)
{
    if (color.spec() == LXColor::Yxy)
        store({color.storedY(), {color.m_x, color.m_y}}, Yxy);
    else
        convertLXColorToYxy(color, Yxy);
}

/// Writes the levels of a colour that is not matched into \a levels, which hold \a count zeros.
void ColorUtils::Output::writeOwnLevels(lxcolor::OutputRoute route, const LXColor& color, int count, double* levels)
{
    switch (route) {
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
    case lxcolor::OutputRoute::Matched:
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
    Output::writeLevels(converted, color, allowRgbPassThrough, count, targetProfile, ioMode, clampToGamut, levels);
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
    Output::writeLevels(converted, color, allowRgbPassThrough, used, targetProfile, ioMode, true, levels.data());
    const bool solved = converted || color.spec() == LXColor::Yxy;
    applyCurve(used, resolution, levels.data(), out, solved ? onboardCurve : directCurve,
               solved ? kOnboardCompensation : kSoftwareCurve);
}

/// A few colours on their way to fixtures of one kind, step by step for all of them.
class Q_DECL_HIDDEN ColorUtils::OutputBlock
{
public:
    static constexpr int kMostColors = 32;

    /// How many colours with \a count channels each are taken together: as many as need no memory of the heap.
    static int colorsAtOnce(int count) { return std::min(kMostColors, std::max(1, kMostLevels / count)); }

    OutputBlock(const LXColor* const* colors, int colorCount, int count) : m_colors(colors), m_colorCount(colorCount)
    {
        // Channels beyond those that the colours or the solver can fill stay dark.
        m_used = lxcolor::kMaxEmitters;
        for (int i = 0; i < colorCount; ++i)
            m_used = std::max(m_used, colors[i]->m_nChannels.size());
        m_used = std::min(m_used, count);
        m_levels.resize(colorCount * m_used);
        std::fill(m_levels.begin(), m_levels.end(), 0.0);
    }

    void findLevels(bool allowRgbPassThrough, TonematchProfileID targetProfile, const lxcolor::IOModeRow& mode)
    {
        for (int i = 0; i < m_colorCount; ++i) {
            const LXColor& color = *m_colors[i];
            const auto route =
                lxcolor::chooseOutputRoute(outputRequest(color, targetProfile, allowRgbPassThrough), mode);
            m_isSolved[i] = route == lxcolor::OutputRoute::Matched || color.spec() == LXColor::Yxy;
            m_solvedCount += m_isSolved[i] ? 1 : 0;
            if (route != lxcolor::OutputRoute::Matched) {
                Output::writeOwnLevels(route, color, m_used, levelsOf(i));
                continue;
            }
            double Yxy[3];
            Output::readLight(color, Yxy);
            m_lights[m_matchedCount] = {Yxy[0], {Yxy[1], Yxy[2]}};
            m_matched[m_matchedCount++] = i;
        }
        if (m_matchedCount > 0)
            match(*emitterRecord(targetProfile, mode.inputConfiguration), configChannelCount(mode.inputConfiguration));
    }

    void write(int count, int resolution, unsigned char* out, int directCurve, int onboardCurve)
    {
        if (m_solvedCount < m_colorCount)
            write(false, DriveCurve(directCurve, kSoftwareCurve, resolution), count, resolution, out);
        if (m_solvedCount > 0)
            write(true, DriveCurve(onboardCurve, kOnboardCompensation, resolution), count, resolution, out);
    }

private:
    static constexpr int kMostLevels = kMostColors * lxcolor::kMaxEmitters;

    /// Those that are solved, or the others.
    void write(bool solved, const DriveCurve& curve, int count, int resolution, unsigned char* out)
    {
        const bool isDense = m_used == count && resolution <= 2;
        if (isDense && m_solvedCount == (solved ? m_colorCount : 0)) {
            curve.write(m_levels.data(), m_colorCount * count, out);
            return;
        }
        const auto stride = static_cast<size_t>(count) * static_cast<size_t>(resolution);
        for (int i = 0; i < m_colorCount; ++i, out += stride)
            if (m_isSolved[i] == solved)
                curve.write(levelsOf(i), m_used, out);
    }

    double* levelsOf(int color) { return m_levels.data() + static_cast<size_t>(color) * static_cast<size_t>(m_used); }

    void match(Tristimulus& record, int emitterCount)
    {
        record.moveIntoGamut(m_lights, m_matchedCount);
        const auto solve = [&](double* levels, int stride) {
            lxcolor::solveForRecord(record.profileID(), emittersOf(record), emitterCount, m_lights, m_matchedCount,
                                    levels, stride);
        };
        if (m_matchedCount == m_colorCount && emitterCount <= m_used) {
            solve(m_levels.data(), m_used);
            return;
        }
        double levels[kMostColors * lxcolor::kMaxEmitters];
        solve(levels, emitterCount);
        for (int r = 0; r < m_matchedCount; ++r)
            std::copy_n(levels + r * emitterCount, std::min(emitterCount, m_used), levelsOf(m_matched[r]));
    }

    const LXColor* const* m_colors;
    int m_colorCount;
    int m_used;
    QVarLengthArray<double, kMostLevels> m_levels; ///< m_used of each colour.
    bool m_isSolved[kMostColors];
    int m_solvedCount = 0;
    int m_matchedCount = 0;
    int m_matched[kMostColors];
    lxcolor::Yxy m_lights[kMostColors];
};

void ColorUtils::convertLXColorsToDMX(const LXColor* const* colors, int colorCount, bool allowRgbPassThrough, int count,
                                      int resolution, unsigned char* out, int directCurve, int onboardCurve,
                                      TonematchProfileID targetProfile, int ioMode)
{
    if (!colors || !out || count <= 0 || resolution <= 0)
        return;
    const auto stride = static_cast<size_t>(count) * static_cast<size_t>(resolution);
    while (colorCount > 0) {
        const int blockCount = std::min(colorCount, OutputBlock::colorsAtOnce(count));
        const auto size = static_cast<size_t>(blockCount) * stride;
        std::fill_n(out, size, static_cast<unsigned char>(0));
        OutputBlock block(colors, blockCount, count);
        block.findLevels(allowRgbPassThrough, targetProfile, lxcolor::ioModeRow(ioMode));
        block.write(count, resolution, out, directCurve, onboardCurve);
        colors += blockCount;
        colorCount -= blockCount;
        out += size;
    }
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
