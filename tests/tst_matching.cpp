#include "ColorUtils.h"
#include "Comparison.h"
#include "LXColor.h"
#include "Support.h"
#include "Tristimulus.h"
#include "TristimulusFactory.h"

#include <functional>

using CU = ColorUtils;

namespace {

using Levels = QVector<double>;

/// The channel layouts of profiles 0..9.
const CU::ChannelConfiguration kLayouts[] = {CU::ConfigRGB,           CU::ConfigRGBAW, CU::ConfigRGBWW, CU::ConfigRGBW,
                                             CU::ConfigSingleChannel, CU::ConfigRGBA,  CU::ConfigRGBW,  CU::ConfigRGB,
                                             CU::ConfigRGBA,          CU::ConfigRGBW};

CU::TonematchProfileID idOf(int profile) { return static_cast<CU::TonematchProfileID>(profile); }

Tristimulus* emittersOf(int profile)
{
    return TristimulusFactory::getInstance()->getTristimulus(idOf(profile), kLayouts[profile]);
}

/// Chromaticity of the light that a fixture's emitters give at linear levels.
QPointF mixed(int profile, const Levels& levels)
{
    Tristimulus* t = emittersOf(profile);
    double X = 0, Y = 0, Z = 0;
    for (int i = 0; i < levels.size(); ++i) {
        X += levels[i] * t->getX()[i];
        Y += levels[i] * t->getY()[i];
        Z += levels[i] * t->getZ()[i];
    }
    return QPointF(X / (X + Y + Z), Y / (X + Y + Z));
}

Levels solved(int profile, double Y, QPointF xy, bool clamp = true)
{
    double light[] = {Y, xy.x(), xy.y()};
    Levels levels(CU::configChannelCount(kLayouts[profile]));
    CU::convertYxyToNChannel(light, levels.data(), kLayouts[profile], idOf(profile), clamp);
    return levels;
}

bool near(const Levels& a, const Levels& b, double tolerance)
{
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [=](double v, double w) { return std::abs(v - w) <= tolerance; });
}

Levels lightOf(const LXColor& color, Tristimulus* emitters, int curve)
{
    Levels light(3, -7.0);
    CU::convertLXColorToYxy(color, emitters, light.data(), curve);
    return light;
}

#define COMPARE_NEAR(got, expected, tolerance)                                                                         \
    QVERIFY2(near(got, expected, tolerance), qPrintable("got " + printed(got) + ", expected " + printed(expected)))

} // namespace

class TestMatching : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void worksOnPaper()
    {
        const auto convert = [](const Levels& XYZ) {
            Levels light(3, -7.0);
            CU::convertXYZtoYxy(XYZ.data(), light.data());
            return light;
        };
        COMPARE_NEAR(convert({0.2, 0.5, 0.1}), Levels({0.5, 0.25, 0.625}), 1e-15);
        for (const Levels& none : {Levels{0, 0, 0}, Levels{-1, -2, 0}, Levels{qQNaN(), -1, 0}})
            QCOMPARE(convert(none), Levels({0, 0, 0}));
        QCOMPARE(convert({1, -1, 0}), Levels({1, 0, 0})); // no chromaticity, but a brightness
        QPointF nearest;
        QCOMPARE(CU::minDistance({0, 0}, {2, 0}, {5, -4}, nearest), 5.0);
        QCOMPARE(nearest, QPointF(2, 0));
        QCOMPARE(::length_squared({1, 2}, {4, 6}), 25.0);
        QCOMPARE(::distance({1, 2}, {4, 6}), 5.0);
        QCOMPARE(::dot({1, 2}, {3, -4}), -5.0);
    }

    void responses()
    {
        const struct
        {
            ushort level;
            double square, tungsten;
        } samples[] = {{0, 0, 0}, {16384, 0.0749, 0.0182}, {32768, 0.2665, 0.1847}, {60000, 0.8394, 0.8104}};
        for (const auto& sample : samples) {
            const double square = CU::dmx16ToSquareLawDimRatio(sample.level);
            const double tungsten = CU::dmx16ToTungstenDimRatio(sample.level);
            QVERIFY2(std::abs(square - sample.square) < 1e-2 && std::abs(tungsten - sample.tungsten) < 6e-5,
                     qPrintable(QString("%1: %2, %3").arg(sample.level).arg(square).arg(tungsten)));
        }
        QCOMPARE(CU::dmx16ToSquareLawDimRatio(65535), 1.0);
        QCOMPARE(CU::dmx16ToTungstenDimRatio(65535), 1.0);
        QCOMPARE(CU::dmx16ToTungstenDimRatio(11083), 0.0);
        QVERIFY(CU::dmx16ToTungstenDimRatio(11084) > 0.0);
    }

    void lightOfColours()
    {
        const LXColor white = LXColor::fromRgb8(255, 255, 255, 0, CU::ProfileFlareFlashQVS);
        const QPointF rgbSum = mixed(1, {1, 1, 1, 0, 0});
        for (int curve : {-1, 0, 1, 2, 7}) {
            COMPARE_NEAR(lightOf(white, emittersOf(1), curve), Levels({1.0, rgbSum.x(), rgbSum.y()}), 1e-15);
            QCOMPARE(lightOf(Qt::black, emittersOf(1), curve), Levels({0, 0, 0}));
        }
        // The tungsten curve gives no light below its dead band; the colour is still not black.
        const LXColor dim = LXColor::fromRgbF(0.15, 0.1, 0.05, 1, CU::ProfileGenericRGB);
        QCOMPARE(lightOf(dim, emittersOf(0), 2), Levels({0, 0, 0}));
        QCOMPARE(lightOf(dim, emittersOf(0), 7), lightOf(dim, emittersOf(0), 0));
        // Four emitters mix; the alpha never enters.
        const Levels four =
            lightOf(LXColor::fromNChannelF({0.1, 0, 0, 0.5, 1}, CU::ConfigRGBW, idOf(6)), emittersOf(6), 0);
        const QPointF blueAndWhite = mixed(6, {0, 0, 0.5, 1});
        COMPARE_NEAR(four, Levels({1.0, blueAndWhite.x(), blueAndWhite.y()}), 1e-9);
        // What has no levels, or no emitters, has no chromaticity.
        for (const LXColor& color : {LXColor(), LXColor(0.3, 0.3)})
            QCOMPARE(lightOf(color, emittersOf(0), 0), Levels({0, 0, 0}));
        QCOMPARE(lightOf(white, nullptr, 0).mid(1), Levels({0, 0}));
        const LXColor extra = LXColor::fromNChannelF({1, 0.25, 0, 0, 0, 0, 0, 0}, CU::ConfigRGB, CU::ProfileGenericRGB);
        COMPARE_NEAR(lightOf(extra, emittersOf(0), 0), Levels({0.25, 0.64, 0.33}), 1e-4);
    }

    void gamut()
    {
        const QPointF srgb[] = {{0.64, 0.33}, {0.30, 0.60}, {0.15, 0.06}};
        double x = 0, y = 0;
        for (int i = 0; i < 3; ++i) {
            const QPointF corner = mixed(0, {i == 0 ? 1.0 : 0, i == 1 ? 1.0 : 0, i == 2 ? 1.0 : 0});
            QVERIFY(::distance(corner, srgb[i]) < 1e-6);
            // Beyond a corner, away from the middle, the corner is the nearest point.
            const QPointF beyond = corner + 0.02 * (2 * srgb[i] - srgb[(i + 1) % 3] - srgb[(i + 2) % 3]);
            QVERIFY(!emittersOf(0)->inside(beyond.x(), beyond.y()));
            QVERIFY(!emittersOf(0)->closestPtOnGamut(beyond.x(), beyond.y(), x, y));
            QCOMPARE(QPointF(x, y), corner);
        }
        QVERIFY(emittersOf(0)->inside(0.3, 0.3) && emittersOf(0)->closestPtOnGamut(0.3, 0.3, x, y));
        QCOMPARE(QPointF(x, y), QPointF(0.3, 0.3));
        // The amber of this fixture lies just outside its red-green edge.
        const QPointF amber = mixed(1, {0, 0, 0, 1, 0});
        QVERIFY(!emittersOf(1)->closestPtOnGamut(amber.x(), amber.y(), x, y));
        QVERIFY(::distance(amber, {x, y}) < 0.01);

        Tristimulus empty(CU::ProfileGenericRGB);
        x = 7;
        QVERIFY(!empty.inside(0.3, 0.3) && !empty.closestPtOnGamut(0.3, 0.3, x, y));
        QCOMPARE(x, 7.0);
        empty.calculatePolygon(); // no emitters at all
        QVERIFY(!empty.inside(0.3, 0.3));
    }

    void knownSolutions_data()
    {
        const Rows<int, QPointF, double, Levels> rows;
        for (int profile : {0, 7}) {
            const auto row = [&](const char* name, const Levels& mix, double Y, const Levels& expected) {
                rows(name + (", profile " + QByteArray::number(profile)), profile, mixed(profile, mix), Y, expected);
            };
            row("red alone", {1, 0, 0}, 1, {1, 0, 0});
            row("green alone", {0, 1, 0}, 1, {0, 1, 0});
            row("blue alone", {0, 0, 1}, 0.25, {0, 0, 0.25});
            row("white", {1, 1, 1}, 1, {1, 1, 1});
            row("half white", {1, 1, 1}, 0.5, {0.5, 0.5, 0.5});
            row("a mix", {0.5, 0.2, 0.9}, 0.8, {0.8 * 0.5 / 0.9, 0.8 * 0.2 / 0.9, 0.8});
            row("no intensity", {0.5, 0.2, 0.9}, 0, {0, 0, 0});
            row("above full", {1, 1, 1}, 2, {2, 2, 2});
        }
        rows("a single channel is never solved", 4, QPointF(0.3, 0.3), 1.0, Levels{0});
    }
    void knownSolutions()
    {
        const auto [profile, xy, Y, expected] = fetched<int, QPointF, double, Levels>();
        const Levels levels = solved(profile, Y, xy);
        COMPARE_NEAR(levels, expected, 2e-7);
    }

    void levelsGiveTheChromaticity_data()
    {
        QTest::addColumn<int>("profile");
        for (int profile : {0, 1, 2, 3, 5, 6, 7, 8, 9})
            QTest::addRow("profile %d", profile) << profile;
    }
    // Driven with the solved levels, the emitters give what was asked for, or the nearest point of the gamut, at full
    // output.
    void levelsGiveTheChromaticity()
    {
        QFETCH(int, profile);
        Dice dice(static_cast<quint64>(profile));
        for (int i = 0; i < 3000; ++i) {
            const QPointF asked(0.8 * dice.uniform(), 0.85 * dice.uniform());
            double x = 0, y = 0;
            emittersOf(profile)->closestPtOnGamut(asked.x(), asked.y(), x, y);
            if (1 - x - y < 1e-12)
                continue; // see levelsOnTheLineWithoutZ()
            const Levels levels = solved(profile, 1.0, asked);
            const QString story =
                QString("asked %1 %2, nearest %3 %4, levels ").arg(asked.x()).arg(asked.y()).arg(x).arg(y) +
                printed(levels);
            QVERIFY2(*std::max_element(levels.begin(), levels.end()) == 1.0, qPrintable(story));
            QVERIFY2(*std::min_element(levels.begin(), levels.end()) >= 0.0, qPrintable(story));
            QVERIFY2(::distance(mixed(profile, levels), {x, y}) < 1e-4, qPrintable(story));
            if (!emittersOf(profile)->inside(asked.x(), asked.y()) && ::distance(asked, {x, y}) > 0.05)
                QVERIFY2(solved(profile, 1.0, asked, false).count(0.0) == levels.size(), qPrintable(story));
        }
    }

    // The red emitter of these fixtures gives no Z. At its very corner of the gamut y/z is not finite and no mix is
    // found, so a request beyond that corner is dark; a hair inside, red is full.
    void levelsOnTheLineWithoutZ()
    {
        for (int profile : {1, 3}) {
            const QPointF red = mixed(profile, {1});
            const Levels dark(CU::configChannelCount(kLayouts[profile]), 0.0);
            QCOMPARE(solved(profile, 1.0, red + QPointF(0.1, 0)), dark);
            QCOMPARE(solved(profile, 1.0, red - QPointF(1e-6, 0))[0], 1.0);
        }
    }

    // A colour made for one fixture and converted for another keeps its light, through both onboard curves.
    void matchedColoursLookAlike()
    {
        Dice dice(11);
        for (int i = 0; i < 2000; ++i) {
            const int from = dice.pick({0, 5, 6, 7, 8, 9});
            const int to = dice.pick({1, 2, 5, 6, 8, 9});
            const LXColor color = LXColor::fromRgbF(0.4 + 0.6 * dice.uniform(), 0.4 + 0.6 * dice.uniform(),
                                                    0.4 + 0.6 * dice.uniform(), 1, idOf(from));
            const LXColor light = color.toYxy(CU::ConfigUnknown, CU::ProfileNone, -1);
            if (!emittersOf(to)->inside(light.getx(), light.gety()))
                continue;
            const LXColor back =
                color.toNChannel16(kLayouts[to], idOf(to), -1).toYxy(CU::ConfigUnknown, CU::ProfileNone, -1);
            const QString story =
                color.aName() + " to " + QString::number(to) + ": " + light.aName() + ' ' + back.aName();
            QVERIFY2(::distance({light.getx(), light.gety()}, {back.getx(), back.gety()}) < 0.003, qPrintable(story));
            QVERIFY2(std::abs(light.getY() - back.getY()) < 0.005, qPrintable(story));
        }
    }

    void degenerateInput()
    {
        Levels untouched(6, -7.0);
        double light[] = {1, 0.3, 0.3};
        for (int cc : {-1, 0, 7})
            CU::convertYxyToNChannel(light, untouched.data(), static_cast<CU::ChannelConfiguration>(cc), idOf(1), true);
        CU::convertYxyToNChannel(nullptr, untouched.data(), CU::ConfigRGB, idOf(1), true);
        CU::convertYxyToNChannel(light, nullptr, CU::ConfigRGB, idOf(1), true);
        QCOMPARE(untouched, Levels(6, -7.0));
        // A generic fixture laid out with four channels has three emitters: the fourth stays dark.
        Levels four(4, -7.0);
        CU::convertYxyToNChannel(light, four.data(), CU::ConfigRGBA, CU::ProfileGenericRGB, true);
        QCOMPARE(four.mid(0, 3), solved(0, 1.0, {0.3, 0.3}));
        QCOMPARE(four[3], 0.0);
        CU::convertYxyToNChannel(light, light, CU::ConfigRGB, CU::ProfileGenericRGB, true); // into its own input
        QCOMPARE(Levels({light[0], light[1], light[2]}), four.mid(0, 3));
        QVERIFY(CU::validateDimmingRatio({}) && CU::validateDimmingRatio({0, 1, qQNaN()}));
        QVERIFY(!CU::validateDimmingRatio({0.5, -5e-324}) && !CU::validateDimmingRatio({std::nextafter(1.0, 2.0)}));
        const double m[2][3] = {{2, 1, 5}, {1, 3, 10}};
        double a = 0, b = 0;
        CU::gaussianEliminationTwoByThree(m, a, b);
        COMPARE_NEAR(Levels({a, b}), Levels({1, 3}), 1e-6);
    }
};

QTEST_GUILESS_MAIN(TestMatching)

#include "tst_matching.moc"
