// From light to levels and back, by what has to hold; tst_reference compares the numbers with its model.
#include "ColorUtils.h"
#include "Comparison.h"
#include "LXColor.h"
#include "Support.h"
#include "Tristimulus.h"
#include "TristimulusFactory.h"

#include <algorithm>

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

} // namespace

class TestMatching : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void planeGeometry()
    {
        QCOMPARE(::length_squared({1, 2}, {4, 6}), 25.0);
        QCOMPARE(::distance({1, 2}, {4, 6}), 5.0);
        QCOMPARE(::dot({1, 2}, {3, -4}), -5.0);
    }

    void noLevelsOrNoEmittersHaveNoChromaticity()
    {
        const auto lightOf = [](const LXColor& color, Tristimulus* emitters) {
            Levels light(3, -7.0);
            CU::convertLXColorToYxy(color, emitters, light.data(), 0);
            return light;
        };
        for (const LXColor& color : {LXColor(), LXColor(0.3, 0.3), LXColor(Qt::black)})
            QCOMPARE(lightOf(color, emittersOf(0)), Levels({0, 0, 0}));
        QCOMPARE(lightOf(Qt::white, nullptr).mid(1), Levels({0, 0}));
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
    }
};

QTEST_GUILESS_MAIN(TestMatching)

#include "tst_matching.moc"
