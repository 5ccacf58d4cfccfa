#include "CCTUtils.h"
#include "ColorUtils.h"
#include "CurveFactory.h"
#include "Hash.h"
#include "LXColor.h"

#include <QDebug>
#include <QLinearGradient>

namespace {

using CU = ColorUtils;

CU::TonematchProfileID anyProfile(Random& random) { return static_cast<CU::TonematchProfileID>(random.below(10)); }

CU::ChannelConfiguration anyConfiguration(Random& random)
{
    return static_cast<CU::ChannelConfiguration>(random.below(7));
}

LXColor anyColor(Random& random)
{
    const CU::TonematchProfileID profile = anyProfile(random);
    const CU::ChannelConfiguration configuration = anyConfiguration(random);
    double v[6];
    for (double& value : v)
        value = random.ratio();
    const double alpha = random.below(3) ? 1.0 : v[5];
    switch (random.below(4)) {
    case 0:
        return LXColor::fromRgbF(v[0], v[1], v[2], alpha, profile);
    case 1:
        return LXColor::fromHsvF(v[0], v[1], v[2], alpha, profile);
    case 2: {
        LXColor color;
        color.setYxyF(v[0], 0.8 * v[1], 0.9 * v[2], alpha, profile);
        return color;
    }
    default:
        LXColor color = LXColor::fromNChannelF({alpha, v[0], v[1], v[2], v[3], v[4]}, configuration, profile);
        color.setNChannelRenderType(v[0] < 0.5 ? LXColor::NChannelDirect : LXColor::NChannelColorimetric);
        return color;
    }
}

void add(Hash& hash, const QString& text)
{
    for (const QChar c : text)
        hash.add(unsigned(c.unicode()));
    hash.add(text.size());
}

/// A colour in all faces and widths.
void add(Hash& hash, const LXColor& color)
{
    uint rgb[4] = {};
    double hsv[4] = {};
    double yxy[4] = {};
    color.getRgb16(&rgb[0], &rgb[1], &rgb[2], &rgb[3]);
    color.getHsvF(&hsv[0], &hsv[1], &hsv[2], &hsv[3]);
    color.getYxyF(&yxy[0], &yxy[1], &yxy[2], &yxy[3]);
    for (int k = 0; k < 4; ++k) {
        hash.add(rgb[k]);
        hash.add(hsv[k]);
        hash.add(yxy[k]);
    }
    QVector<double> levels;
    color.getNChannelF(&levels, nullptr, nullptr);
    for (const double level : qAsConst(levels))
        hash.add(level);
    hash.add(color.hue8());
    hash.add(color.isBlack());
}

void faces(Hash& hash, Random& random)
{
    for (int i = 0; i < 5000; ++i)
        add(hash, anyColor(random));
}

void conversions(Hash& hash, Random& random)
{
    for (int i = 0; i < 5000; ++i) {
        const LXColor color = anyColor(random);
        const CU::ChannelConfiguration configuration = anyConfiguration(random);
        const CU::TonematchProfileID profile = anyProfile(random);
        for (const LXColor::Spec spec : {LXColor::Rgb, LXColor::Hsv, LXColor::Yxy, LXColor::NChannel})
            add(hash, color.convertTo(spec, configuration, profile));
    }
}

void matching(Hash& hash, Random& random)
{
    for (int i = 0; i < 10000; ++i) {
        double light[3] = {random.ratio(), 0.0, 0.0};
        light[1] = 0.8 * random.ratio();
        light[2] = 0.9 * random.ratio();
        double levels[5] = {};
        CU::convertYxyToNChannel(light, levels, anyConfiguration(random), static_cast<CU::TonematchProfileID>(i % 10),
                                 i % 3 != 0);
        for (const double level : levels)
            hash.add(level);
    }
}

void output(Hash& hash, Random& random)
{
    for (int i = 0; i < 20000; ++i) {
        const LXColor color = anyColor(random);
        const CU::TonematchProfileID profile = anyProfile(random);
        const int mode = random.below(10);
        const int curves = random.below(9);
        const QList<unsigned char> bytes =
            CU::updateBuffer(curves / 3, curves % 3, color, i % 2, 5, 1 + i / 2 % 2, mode, profile);
        for (const unsigned char byte : bytes)
            hash.add(unsigned(byte));
    }
}

void softwareCurves(Hash& hash, Random&)
{
    for (int type = 0; type < 3; ++type) {
        Curve* curve = CurveFactory::Instance()->getCurve(type);
        for (int value = 0; value < 65536; ++value) {
            unsigned short fine = 0;
            unsigned char coarse = 0;
            curve->applyCurve(value, &fine);
            curve->applyCurve(value / 257, &coarse);
            hash.add(unsigned(fine));
            hash.add(unsigned(coarse));
        }
    }
}

void mixing(Hash& hash, Random& random)
{
    QLinearGradient gradient;
    gradient.setColorAt(0.0, QColor(255, 30, 0));
    gradient.setColorAt(0.3, QColor(20, 200, 90, 100));
    gradient.setColorAt(1.0, QColor(0, 10, 255));
    for (int i = 0; i < 3000; ++i) {
        const LXColor a = anyColor(random);
        const LXColor b = anyColor(random);
        const double t = random.ratio();
        add(hash, LXColor::blend(a, b, t));
        add(hash, LXColor::mix(a, b));
        add(hash, LXColor::premultiply(a));
        add(hash, LXColor::colorFromGradient(gradient, t));
    }
}

void texts(Hash& hash, Random& random)
{
    for (int i = 0; i < 5000; ++i) {
        const LXColor color = anyColor(random);
        QString printed;
        QDebug(&printed) << color;
        for (const QString& text : {color.aName(), color.name(), color.name8(), color.nameFull8(), printed})
            add(hash, text);
        add(hash, LXColor(color.aName()));
    }
}

void whitePoints(Hash& hash, Random& random)
{
    for (int cct = CCTUtils::getMinCCT(); cct <= CCTUtils::getMaxCCT(); cct += 3) {
        double xy[2] = {};
        CCTUtils::getxyFromCCTAndTint(cct, random.below(65535) - 32767, xy[0], xy[1]);
        int back[2] = {};
        CCTUtils::getCCTAndTintFromxy(xy[0], xy[1], back[0], back[1]);
        for (int k = 0; k < 2; ++k) {
            hash.add(xy[k]);
            hash.add(back[k]);
        }
    }
}

} // namespace

const std::vector<Operation>& libraryOperations()
{
    static const std::vector<Operation> all = {
        {"library.faces", faces},   {"library.conversions", conversions},  {"library.matching", matching},
        {"library.output", output}, {"library.curves", softwareCurves},    {"library.mixing", mixing},
        {"library.texts", texts},   {"library.white-points", whitePoints},
    };
    return all;
}
