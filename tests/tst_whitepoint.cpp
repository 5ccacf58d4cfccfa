#include "CCTUtils.h"
#include "RobertsonTable.h"
#include "Rows.h"
#include "StandardObserver.h"
#include "WhitePoint.h"

#include <QRandomGenerator>
#include <QtTest>

#include <cmath>
#include <limits>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

bool near(double a, double b, double tolerance) { return std::abs(a - b) <= tolerance; }

bool near(QPointF a, QPointF b, double tolerance)
{
    return near(a.x(), b.x(), tolerance) && near(a.y(), b.y(), tolerance);
}

QByteArray text(QPointF p) { return QByteArray::number(p.x(), 'f', 7) + ' ' + QByteArray::number(p.y(), 'f', 7); }

/// Planck's law at 2856 K as CIE defines illuminant A: 100 at 560 nm, c2 = 1.435e-2 m K at 2848 K.
double illuminantA(double nm)
{
    constexpr double kExponent = 1.435e7 / 2848.0;
    return 100.0 * std::pow(560.0 / nm, 5) * std::expm1(kExponent / 560.0) / std::expm1(kExponent / nm);
}

/// Illuminant D65 (CIE 15:2018): defined every 10 nm from 360 nm, straight lines between.
const double kD65[] = {46.6383, 52.0891, 49.9755, 54.6482, 82.7549, 91.4860, 93.4318, 86.6823, 104.865, 117.008,
                       117.812, 114.861, 115.923, 108.811, 109.354, 107.802, 104.790, 107.689, 104.405, 104.046,
                       100.000, 96.3342, 95.7880, 88.6856, 90.0062, 89.5991, 87.6987, 83.2886, 83.6992, 80.0268,
                       80.2146, 82.2778, 78.2842, 69.7213, 71.6091, 74.3490, 61.6040, 69.8856, 75.0870, 63.5927,
                       46.4182, 66.8054, 63.3828, 64.3040, 59.4519, 51.9590, 57.4406, 60.3125};

WhitePoint from1960(double u, double v)
{
    return WhitePoint::fromxy(CCTUtils::getxFromuvPrime(u, 1.5 * v), CCTUtils::getyFromuvPrime(u, 1.5 * v));
}

} // namespace

class TestWhitePoint : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void colourMatchingFunctionsAddUp()
    {
        const auto verifySums = [](int first, int last, int step, double X, double Y, double Z, double tolerance) {
            for (int nm = first; nm <= last; nm += step) {
                const StandardObserver::XYZ at = StandardObserver::at(nm);
                X -= at.X;
                Y -= at.Y;
                Z -= at.Z;
            }
            QVERIFY(near(X, 0, tolerance) && near(Y, 0, tolerance) && near(Z, 0, tolerance));
        };
        verifySums(380, 780, 5, 21.371524, 21.371327, 21.371540, 1e-9);
        // Every nanometre, where most values are interpolated: the sums of the 1 nm table.
        verifySums(360, 830, 1, 106.8655, 106.8569, 106.8923, 2e-3);
        QCOMPARE(StandardObserver::at(555.0).Y, 1.0);
        QCOMPARE(StandardObserver::at(359.999).X, 0.0);
        QCOMPARE(StandardObserver::at(830.001).Y, 0.0);
        QCOMPARE(StandardObserver::at(kNaN).Y, 0.0);
        QVERIFY(std::isnan(StandardObserver::locusPoint(200.0).x()));
    }

    void spectralLocus_data()
    {
        QTest::addColumn<QPointF>("xy");
        const auto row = [](int nm, double x, double y) { QTest::addRow("%d nm", nm) << QPointF(x, y); };
        row(380, 0.1741, 0.0050);
        row(460, 0.1440, 0.0297);
        row(480, 0.0913, 0.1327);
        row(500, 0.0082, 0.5384);
        row(510, 0.0139, 0.7502);
        row(520, 0.0743, 0.8338);
        row(550, 0.3016, 0.6923);
        row(590, 0.5752, 0.4242);
        row(700, 0.7347, 0.2653);
    }
    void spectralLocus()
    {
        QFETCH(QPointF, xy);
        const double nm = QByteArray(QTest::currentDataTag()).split(' ').first().toDouble();
        QVERIFY2(near(StandardObserver::locusPoint(nm), xy, 6e-5), text(StandardObserver::locusPoint(nm)));
    }

    void spectraOfIlluminants()
    {
        QVector<QPointF> equalEnergy{{300.0, 1.0}, {900.0, 1.0}};
        QVERIFY(near(StandardObserver::ofSpectrum(equalEnergy).xy(), QPointF(1.0 / 3.0, 1.0 / 3.0), 5e-5));
        QVERIFY(near(StandardObserver::ofSpectrum(equalEnergy).Y, 106.857, 2e-3));

        QVector<QPointF> d65;
        for (double power : kD65)
            d65.append({360.0 + 10.0 * d65.size(), power});
        QVERIFY2(near(StandardObserver::ofSpectrum(d65).xy(), QPointF(0.31272, 0.32903), 1.5e-5),
                 text(StandardObserver::ofSpectrum(d65).xy()));

        for (double step : {0.5, 1.0, 2.0}) {
            QVector<QPointF> a;
            for (double nm = 350.0; nm <= 840.0; nm += step)
                a.append({nm, illuminantA(nm)});
            QVERIFY2(near(StandardObserver::ofSpectrum(a).xy(), QPointF(0.44758, 0.40745), 1.5e-5),
                     text(StandardObserver::ofSpectrum(a).xy()));
        }
    }

    void samplingDoesNotMatter()
    {
        // One peak of straight sides, sampled at its corners alone and at many places.
        const QVector<QPointF> corners{{601.3, 0.0}, {622.7, 2.0}, {653.1, 0.0}};
        QVector<QPointF> dense;
        QRandomGenerator random(5);
        for (int i = 0; i + 1 < corners.size(); ++i) {
            const QPointF step = corners.at(i + 1) - corners.at(i);
            for (double t = 0.0; t < 1.0; t += 0.001 + 0.05 * random.generateDouble())
                dense.append(corners.at(i) + t * step);
        }
        dense.append(corners.last());
        const StandardObserver::XYZ coarse = StandardObserver::ofSpectrum(corners);
        const StandardObserver::XYZ fine = StandardObserver::ofSpectrum(dense);
        QVERIFY(coarse.X > 1.0);
        QVERIFY(near(coarse.X, fine.X, 1e-10) && near(coarse.Y, fine.Y, 1e-10) && near(coarse.Z, fine.Z, 1e-10));

        // A laser has the chromaticity of its wavelength and, for each watt, 683 lm times its luminous efficiency.
        const StandardObserver::XYZ laser =
            StandardObserver::ofSpectrum({{519.99, 0.0}, {520.0, 100.0}, {520.01, 0.0}}); // one watt
        QVERIFY(near(laser.xy(), StandardObserver::locusPoint(520.0), 1e-6));
        QVERIFY(near(683.0 * laser.Y, 484.9, 0.1));
    }

    void unusableSpectra()
    {
        bool ok = true;
        for (const QVector<QPointF>& spectrum :
             {QVector<QPointF>{}, QVector<QPointF>{{500, 1}}, QVector<QPointF>{{500, 1}, {500, 2}},
              QVector<QPointF>{{510, 1}, {500, 2}}, QVector<QPointF>{{500, kNaN}, {510, 1}},
              QVector<QPointF>{{500, 1}, {kInf, 1}}}) {
            const StandardObserver::XYZ XYZ = StandardObserver::ofSpectrum(spectrum, &ok);
            QVERIFY(!ok && XYZ.X == 0.0 && XYZ.Y == 0.0 && XYZ.Z == 0.0);
        }
        const StandardObserver::XYZ infrared = StandardObserver::ofSpectrum({{900, 1}, {1e18, 1}}, &ok);
        QVERIFY(ok && infrared.Y == 0.0 && std::isnan(infrared.xy().x()));
        QVERIFY(StandardObserver::ofSpectrum({{-1e18, 1}, {1e18, 1}}, &ok).Y > 106.0 && ok);
    }

    void publishedWhites_data()
    {
        const Rows<double, double, double, double, double> row;
        // CIE 15:2018 chromaticities; CCTs to the figures that are published
        row("illuminant A", 0.44758, 0.40745, 2856.0, 0.6, 0.0000);
        row("illuminant C", 0.31006, 0.31616, 6774.0, 0.6, -0.0021);
        row("illuminant D50", 0.34567, 0.35850, 5003.0, 1.5, 0.0032);
        row("illuminant D55", 0.33243, 0.34744, 5503.0, 1.5, 0.0033);
        row("illuminant D65", 0.31272, 0.32903, 6504.0, 1.5, 0.0032);
        row("illuminant D75", 0.29903, 0.31488, 7504.0, 2.5, 0.0031);
        row("equal energy", 1.0 / 3.0, 1.0 / 3.0, 5455.0, 0.6, -0.0044);
        row("white of sRGB", 0.3127, 0.3290, 6504.0, 0.6, 0.0032);
        row("FL1", 0.3131, 0.3371, 6430.0, 5.0, 0.0071);
        row("FL2", 0.3721, 0.3751, 4230.0, 7.0, 0.0018);
        row("FL11", 0.3805, 0.3769, 4000.0, 1.0, 0.0001);
    }
    void publishedWhites()
    {
        const auto [x, y, cct, cctTolerance, duv] = fetched<double, double, double, double, double>();
        const WhitePoint white = WhitePoint::fromxy(x, y);
        QVERIFY(white.isValid() && white.hasCct() && white.isNearLocus());
        QVERIFY2(near(white.cctKelvin(), cct, cctTolerance), QByteArray::number(white.cctKelvin()));
        QVERIFY2(near(white.duv(), duv, 6e-5), QByteArray::number(white.duv()));
        QCOMPARE(white.mired(), 1e6 / white.cctKelvin());
        QCOMPARE(white.xy(), QPointF(x, y));
    }

    void robertsonsTable()
    {
        for (const auto& row : reference::kRobertson) {
            const WhitePoint on = WhitePoint::fromMiredAndDuv(row[0]);
            const QPointF off = WhitePoint::fromMiredAndDuv(row[0], 0.001).uv1960() - on.uv1960();
            const QByteArray at = QByteArray::number(row[0]) + " mired";
            QVERIFY2(near(on.uv1960(), QPointF(row[1], row[2]), 7e-6), at + ": " + text(on.uv1960()));
            QVERIFY2(near(std::atan(off.y() / off.x()), std::atan(row[3]), 1e-4), at);
            // And back from where the table says the isotherm runs.
            const double along = 0.01 / std::hypot(1.0, row[3]);
            const WhitePoint back = from1960(row[1] - along, row[2] - along * row[3]);
            if (row[0] > 0)
                QVERIFY2(near(back.mired(), row[0], 0.1), at + ": " + QByteArray::number(back.mired()));
        }
    }

    void everyWhiteComesBack()
    {
        QRandomGenerator random(19);
        for (int i = 0; i < 4000; ++i) {
            const double mired = 40.0 + 959.9 * random.generateDouble();
            const double duv = 0.1 * (random.generateDouble() - 0.5);
            const WhitePoint made = WhitePoint::fromMiredAndDuv(mired, duv);
            const WhitePoint read = WhitePoint::fromxy(made.xy().x(), made.xy().y());
            const QByteArray input = QByteArray::number(mired, 'g', 12) + " mired, " + QByteArray::number(duv, 'g', 12);
            QVERIFY2(near(read.mired(), mired, 1e-5) && near(read.duv(), duv, 1e-9), input);
        }
        const WhitePoint made = WhitePoint::fromCctAndDuv(3200.0, -0.002);
        QVERIFY(near(made.cctKelvin(), 3200.0, 1e-9) && made.duv() == -0.002);
        for (double mired : {0.0, 1000.0}) { // the ends of the locus
            const WhitePoint end = WhitePoint::fromMiredAndDuv(mired);
            QVERIFY(end.hasCct() && end.mired() == mired);
        }
        QVERIFY(std::isinf(WhitePoint::fromCctAndDuv(kInf).cctKelvin()));
        QCOMPARE(WhitePoint::fromCctAndDuv(kInf).xy(), WhitePoint::fromMiredAndDuv(0.0).xy());
        QCOMPARE(WhitePoint::fromMiredAndDuv(-0.0).cctKelvin(), kInf);
    }

    void signOfDuv()
    {
        for (double cct : {1100.0, 1600.0, 2700.0, 6500.0, 20000.0, 1e5}) {
            const QPointF on = WhitePoint::fromCctAndDuv(cct).uv1960();
            QVERIFY(WhitePoint::fromCctAndDuv(cct, 0.01).uv1960().y() > on.y());
            QVERIFY(WhitePoint::fromCctAndDuv(cct, -0.01).uv1960().y() < on.y());
            QVERIFY(near(QLineF(on, WhitePoint::fromCctAndDuv(cct, -0.01).uv1960()).length(), 0.01, 1e-12));
        }
    }

    void daylight()
    {
        QVERIFY(near(WhitePoint::daylight(6504.0).xy(), QPointF(0.31272, 0.32903), 1e-4));
        QVERIFY(near(WhitePoint::daylight(5003.0).xy(), QPointF(0.34567, 0.35850), 1.2e-4));
        QVERIFY(near(WhitePoint::daylight(5503.0).xy(), QPointF(0.33242, 0.34743), 1.2e-4));
        QVERIFY(near(WhitePoint::daylight(7504.0).xy(), QPointF(0.29902, 0.31485), 1.4e-4));
        QVERIFY(near(WhitePoint::daylight(7000.0).xy(), WhitePoint::daylight(7000.001).xy(), 2e-5));
        for (double cct = 4000.0; cct <= 25000.0; cct += 500.0) {
            const WhitePoint white = WhitePoint::daylight(cct);
            QVERIFY2(near(white.mired(), 1e6 / cct, 0.6) && white.duv() > 0.001 && white.duv() < 0.005,
                     QByteArray::number(cct));
        }
        QVERIFY(!WhitePoint::daylight(3999.0).isValid() && !WhitePoint::daylight(25001.0).isValid());
        QVERIFY(!WhitePoint::daylight(kNaN).isValid());
    }

    void farFromWhite()
    {
        const WhitePoint blue = WhitePoint::fromxy(0.15, 0.06); // no blackbody, however hot, comes nearest to it
        QVERIFY(blue.isValid() && !blue.hasCct() && !blue.isNearLocus());
        QVERIFY(std::isnan(blue.cctKelvin()) && std::isnan(blue.duv()));
        QVERIFY(!WhitePoint::fromxy(0.7, 0.3).hasCct()); // below 1000 K
        const WhitePoint green = WhitePoint::fromxy(0.3, 0.6);
        QVERIFY(green.hasCct() && !green.isNearLocus() && green.duv() > 0.09);

        // Wherever there is a CCT, no point of the locus is nearer than the one it names.
        QRandomGenerator random(23);
        for (int i = 0; i < 300; ++i) {
            const WhitePoint white =
                WhitePoint::fromxy(0.7 * random.generateDouble(), 0.01 + 0.8 * random.generateDouble());
            if (!white.hasCct())
                continue;
            for (double mired = 0.0; mired <= 1000.0; mired += 10.0) {
                const double away = QLineF(white.uv1960(), WhitePoint::fromMiredAndDuv(mired).uv1960()).length();
                QVERIFY2(away > std::abs(white.duv()) - 1e-9, text(white.xy()) + " at " + QByteArray::number(mired));
            }
        }
    }

    void wildNumbers()
    {
        for (double wild : {kNaN, kInf, -kInf, -1.0, 0.0}) {
            QVERIFY(!WhitePoint::fromxy(0.3, wild).isValid());
            QVERIFY(!WhitePoint::fromCctAndDuv(std::isinf(wild) ? -kInf : wild).isValid());
            QVERIFY(wild == 0.0 || wild == -1.0 || !WhitePoint::fromCctAndDuv(5000.0, wild).isValid());
        }
        QVERIFY(!WhitePoint::fromCctAndDuv(999.0).isValid() && !WhitePoint::fromMiredAndDuv(1000.1).isValid());
        for (double wild : {1e300, -1e300, 1e-300})
            QVERIFY(!WhitePoint::fromxy(wild, 1e300).isNearLocus());
        int cct = 1;
        int tint = 2;
        QVERIFY(!WhitePoint().getCctAndTint(cct, tint) && cct == 1 && tint == 2);
        QVERIFY(std::isnan(WhitePoint().uvPrime().x()) && !WhitePoint().isValid() && !WhitePoint().hasCct());
    }

    void besideTheScalesOfCCTUtils()
    {
        QVERIFY(!WhitePoint::fromCctAndTint(1940).isValid() && !WhitePoint::fromCctAndTint(11010).isValid());
        for (int cct = 1950; cct <= 11000; cct += 10) {
            const WhitePoint on = WhitePoint::fromCctAndTint(cct);
            const double lower = cct - on.cctKelvin();
            const double limit = cct <= 4000 ? 5.0 : cct <= 6500 ? 24.0 : cct <= 8000 ? 88.0 : 140.0;
            QVERIFY2(lower > -0.1 && lower < limit, QByteArray::number(cct) + ": " + QByteArray::number(lower));
            QVERIFY2(on.duv() < 1e-6 && on.duv() > -0.00014, QByteArray::number(on.duv()));
            for (int tint : {-32767, 32767}) {
                const WhitePoint tinted = WhitePoint::fromCctAndTint(cct, tint);
                QVERIFY2(near(tinted.duv(), tint / 32767.0 * 0.0200, 0.0002), QByteArray::number(tinted.duv()));
                QVERIFY2(near(tinted.mired(), 1e6 / cct, 7.1), QByteArray::number(cct));
            }
            if (cct % 500 == 0) {
                int cctBack = 0;
                int tintBack = 0;
                QVERIFY(WhitePoint::fromCctAndTint(cct, 5000).getCctAndTint(cctBack, tintBack));
                QVERIFY(qAbs(cctBack - cct) <= 30 && qAbs(tintBack - 5000) <= 50);
            }
        }
    }

    // docs/data-sources.md says so. The ends of a row that is not the last are the starts of the next.
    void regionsOfCCTUtilsArePlancks()
    {
        for (const CCTRegion& region : CCTUtils::m_cctRegionTable) {
            const QPointF locus = WhitePoint::fromCctAndDuv(region.minCCT).uvPrime();
            const QPointF tinted = WhitePoint::fromCctAndDuv(region.minCCT, 0.02).uvPrime();
            QVERIFY2(near(region.locusStart, locus, 1.3e-6), text(region.locusStart) + " is not " + text(locus));
            QVERIFY2(near(region.tintStart, tinted, 2e-6), text(region.tintStart) + " is not " + text(tinted));
            QVERIFY(near(CCTUtils::getDuvFromuvPrime(region.locusStart.x(), region.locusStart.y(), region.tintStart.x(),
                                                     region.tintStart.y()),
                         0.02, 4e-7));
        }
    }
};

QTEST_APPLESS_MAIN(TestWhitePoint)
#include "tst_whitepoint.moc"
