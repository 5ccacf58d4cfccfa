// What becomes of colours on their way to a fixture, where tst_reference does not compare it with its model already.
#include "ColorUtils.h"
#include "CurveFactory.h"
#include "LXColor.h"
#include "Support.h"

#include <new>

using CU = ColorUtils;

namespace {

using Bytes = QList<uchar>;

enum { Compensated = 3, Software = 1 };

} // namespace

class TestOutput : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    // Beyond what the reference model is asked for.
    void softwareCurves()
    {
        const auto out8 = [](int type, int v) {
            uchar out = 0;
            CurveFactory::Instance()->getCurve(type)->applyCurve(v, &out);
            return int(out);
        };
        const auto out16 = [](int type, int v) {
            ushort out = 0;
            CurveFactory::Instance()->getCurve(type)->applyCurve(v, &out);
            return int(out);
        };
        QCOMPARE(out8(0, 0x1234), 0x34); // without a table, the value is cut
        for (int type : {1, 2}) {
            for (int v = 1; v < 65536; ++v)
                QVERIFY(out16(type, v) >= out16(type, v - 1) && out8(type, v >> 8) >= out8(type, (v - 1) >> 8));
            for (int v : {INT_MIN, -1})
                QCOMPARE(out8(type, v) + out16(type, v), 0);
            for (int v : {65536, INT_MAX})
                QVERIFY(out8(type, v) == 255 && out16(type, v) == out16(type, 65535));
        }
        Curve own; // the base class is the linear curve
        own.createLut();
        ushort word = 0;
        own.applyCurve(1234, &word);
        QCOMPARE(word, ushort(1234));
        QVERIFY_EXCEPTION_THROWN(own.applyCurve(0, static_cast<uchar*>(nullptr)), std::bad_alloc);
        QVERIFY_EXCEPTION_THROWN(own.applyCurve(0, static_cast<ushort*>(nullptr)), std::bad_alloc);
    }

    // What the inverse asks the fixture for comes out of its onboard curve as the light that was wanted.
    void onboardRoundTrip()
    {
        for (int p = 0; p < 65536; ++p) {
            const auto pwm = static_cast<ushort>(p);
            const double square = CU::dmx16ToSquareLawDimRatio(CU::pwm16ToMNormDNormRes16(pwm));
            const double tungsten = CU::dmx16ToTungstenDimRatio(CU::pwm16ToMNormDTungstenRes16(pwm));
            QVERIFY2(std::abs(square - p / 65535.0) < 0.002, qPrintable(QString("%1: %2").arg(p).arg(square)));
            QVERIFY2(std::abs(tungsten - p / 65535.0) < 0.02, qPrintable(QString("%1: %2").arg(p).arg(tungsten)));
        }
    }

    void bytesAndListsAgree()
    {
        LXColor color = LXColor::fromRgb8(200, 100, 50, 255, CU::ProfileGenericRGB);
        for (int count = -1; count < 9; ++count) {
            for (int resolution = -1; resolution < 4; ++resolution) {
                const int size = qMax(0, count) * qMax(0, resolution);
                QVector<uchar> out(40, 0xa5);
                CU::convertLXColorToDMX(color, false, count, resolution, out.data(), 1, 1, CU::ProfileFlareFlashQVS,
                                        CU::IOModeRGBAW);
                const Bytes list =
                    CU::updateBuffer(1, 1, color, false, count, resolution, CU::IOModeRGBAW, CU::ProfileFlareFlashQVS);
                QCOMPARE(list.size(), size);
                QCOMPARE(out.mid(0, size).toList(), list);
                QCOMPARE(out.count(0xa5) - list.count(0xa5), out.size() - size); // nothing beyond the end
            }
        }
        bool converted = false;
        delete[] CU::convertLXColorToNChannelF(converted, color, false, 5, CU::ProfileFlareFlashQVS, CU::IOModeRGBAW,
                                               true);
        QVERIFY(converted);
        delete[] CU::convertLXColorToNChannelF(converted, color, true, -5, CU::ProfileFlareFlashQVS, CU::IOModeRGBAW,
                                               true);
        QVERIFY(converted); // never set back
    }

    void severalColorsAtOnce()
    {
        // Of every face, in turns that the blocks of a batch do not share, with fewer and more levels than emitters.
        QVector<LXColor> colors;
        for (int i = 0; i < 150; ++i) {
            const auto profile = static_cast<CU::TonematchProfileID>(i % 10);
            const double part = i / 150.0;
            switch (i % 7) {
            case 0:
                colors << LXColor::fromRgbF(part, 1.0 - part, 0.5, 1.0, profile);
                break;
            case 1:
                colors << LXColor::fromHsvF(part, 1.0, part, 1.0, profile);
                break;
            case 2:
                colors << LXColor::fromNChannelF(QVector<double>(1 + i % 10, part), CU::ConfigRGBAW, profile);
                break;
            case 3:
                colors << LXColor();
                break;
            default:
                colors << LXColor::fromxyY(0.2 + 0.3 * part, 0.45 - 0.3 * part * part, 1.0 - part, profile);
            }
        }
        QVector<const LXColor*> pointers;
        for (const LXColor& color : colors)
            pointers << &color;
        for (int mode = 0; mode < 11; ++mode) {
            for (int resolution = 1; resolution < 4; ++resolution) {
                const int count = 1 + (mode * 3 + resolution) % 9;
                const auto profile = static_cast<CU::TonematchProfileID>((mode + resolution) % 10);
                QVector<uchar> expected;
                for (LXColor color : colors) {
                    QVector<uchar> out(count * resolution, 0xa5);
                    CU::convertLXColorToDMX(color, mode % 2, count, resolution, out.data(), 1, 2, profile, mode);
                    expected += out;
                }
                QVector<uchar> got(expected.size() + 1, 0xa5);
                CU::convertLXColorsToDMX(pointers.data(), pointers.size(), mode % 2, count, resolution, got.data(), 1,
                                         2, profile, mode);
                QCOMPARE(got, expected + QVector<uchar>{0xa5});
            }
        }
        CU::convertLXColorsToDMX(nullptr, 3, true, 3, 1, nullptr, 0, 0, CU::ProfileGenericRGB, 0);
    }

    void fiveChannels()
    {
        Bytes three{10, 20, 30}, six{1, 2, 3, 4, 5, 6}, four{1, 2, 3, 4}, none;
        QCOMPARE(CU::expandFor5Channels(three), Bytes({10, 20, 30, 10, 20}));
        QCOMPARE(CU::expandFor5Channels(six), Bytes({1, 2, 3, 4, 5, 6, 1, 2, 3, 4}));
        QVERIFY(CU::expandFor5Channels(four).isEmpty() && CU::expandFor5Channels(none).isEmpty());
        QCOMPARE(three, Bytes({10, 20, 30}));
    }

    void badArguments()
    {
        double levels[] = {1, 1, 1};
        ushort pwm[] = {1, 1, 1};
        uchar bytes[] = {7, 7};
        for (int count : {0, -1, INT_MIN}) {
            CU::nChannelFToPWM(levels, pwm, count);
            CU::pwmToMNormDNormRes8(pwm, bytes, count);
            CU::pwmToMNormDLinearRes16(pwm, pwm, count);
            CU::applyCurve(count, 1, levels, bytes, 0, Software);
            CU::applyCurve16(count, levels, pwm, 0, Software);
        }
        QVERIFY(pwm[0] == 1 && bytes[0] == 7);
        LXColor color(Qt::red);
        CU::convertLXColorToDMX(color, true, 3, 1, nullptr, 0, 0, CU::ProfileGenericRGB, 0);
        CU::applyCurve(2, 1, nullptr, bytes, 0, Software);
        CU::applyCurve(2, 1, levels, nullptr, 0, Software);
        CU::applyCurve16(2, levels, nullptr, 0, Compensated);
        CU::nChannelFToPWM(nullptr, pwm, 2);
        CU::convertYxyToNChannelAndApplyCurve(nullptr, pwm, CU::ConfigRGB, CU::ProfileGenericRGB, 0, true);
        CU::convertYxyToNChannelAndApplyCurve(levels, nullptr, CU::ConfigRGB, CU::ProfileGenericRGB, 0, true);
        QVERIFY(pwm[0] == 1 && bytes[0] == 7);
    }
};

QTEST_GUILESS_MAIN(TestOutput)

#include "tst_output.moc"
