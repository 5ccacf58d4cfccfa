#include "ColorUtils.h"
#include "CurveFactory.h"
#include "LXColor.h"
#include "Support.h"

#include <new>

using CU = ColorUtils;

namespace {

using Bytes = QList<uchar>;
using Levels = QVector<double>;

enum { Compensated = 3, Software = 1 };

Bytes curved(Levels levels, int resolution, int curve, int mode)
{
    QVector<uchar> out(levels.size() * 2, 0xa5);
    CU::applyCurve(levels.size(), resolution, levels.data(), out.data(), curve, mode);
    return out.toList();
}

} // namespace

class TestOutput : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void softwareCurves();
    void onboardInverses_data();
    void onboardInverses();
    void onboardRoundTrip();
    void levelsToBytes_data();
    void levelsToBytes();
    void routes_data();
    void routes();
    void bytesAndListsAgree();
    void severalColorsAtOnce();
    void compositing_data();
    void compositing();
    void fiveChannels();
    void badArguments();
};

void TestOutput::softwareCurves()
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
    QCOMPARE(out8(0, 200), 200);
    QCOMPARE(out16(0, 40000), 40000);
    QCOMPARE(out8(0, 0x1234), 0x34); // without a table, the value is cut
    QCOMPARE(out8(1, 128), 69);      // 17588 / 256 rounded
    QCOMPARE(out8(1, 255), 255);     // no rounding past the end
    QCOMPARE(out16(1, 65535), 65520);
    QCOMPARE(out16(1, 256 + 128), 26);
    QCOMPARE(out8(2, 1), 0);
    for (int v = 65280; v < 65536; ++v)
        QCOMPARE(out16(2, v), 65535);
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

void TestOutput::onboardInverses_data()
{
    QTest::addColumn<int>("got");
    QTest::addColumn<int>("expected");
    QTest::newRow("normal 8, dark") << int(CU::pwm16ToMNormDNormRes8(0)) << 0;
    QTest::newRow("normal 8, full") << int(CU::pwm16ToMNormDNormRes8(65535)) << 255;
    QTest::newRow("normal 8, entry 128") << int(CU::pwm16ToMNormDNormRes8(17588)) << 128;
    QTest::newRow("normal 16, least light") << int(CU::pwm16ToMNormDNormRes16(1)) << 16;
    QTest::newRow("tungsten 8, straight start") << int(CU::pwm16ToMNormDTungstenRes8(3)) << 3;
    QTest::newRow("tungsten 16, full") << int(CU::pwm16ToMNormDTungstenRes16(65535)) << 65535;
    QTest::newRow("tungsten 16") << int(CU::pwm16ToMNormDTungstenRes16(40000)) << 52982;
    QTest::newRow("tungsten 16, end of the first piece") << int(CU::pwm16ToMNormDTungstenRes16(321)) << 10307;
    QTest::newRow("tungsten 16, start of the second") << int(CU::pwm16ToMNormDTungstenRes16(322)) << 10251;
    QTest::newRow("linear 8 rounds") << int(CU::pwm16ToMNormDLinearRes8(32767)) << 127;
    QTest::newRow("linear 8 rounds up") << int(CU::pwm16ToMNormDLinearRes8(32768)) << 128;
    QTest::newRow("table form, full") << int(CU::lut16BitToBit(65535)) << 255;
    QTest::newRow("table form, dark") << int(CU::lut16BitToBit(0)) << 0;
    QTest::newRow("no root") << int(CU::quadraticSolver(1, 0, 5, 0, 255)) << 0;
    QTest::newRow("beyond the end") << int(CU::quadraticSolver(0, -1, 0, 5, 255)) << 255;
    QTest::newRow("not a number") << int(CU::quadraticSolver(1, 0, 0, float(qQNaN()), 255)) << 0;
}

void TestOutput::onboardInverses()
{
    QFETCH(int, got);
    QTEST(got, "expected");
}

// What the inverse asks the fixture for comes out of its onboard curve as the light that was wanted.
void TestOutput::onboardRoundTrip()
{
    for (int p = 0; p < 65536; ++p) {
        const auto pwm = static_cast<ushort>(p);
        const double square = CU::dmx16ToSquareLawDimRatio(CU::pwm16ToMNormDNormRes16(pwm));
        const double tungsten = CU::dmx16ToTungstenDimRatio(CU::pwm16ToMNormDTungstenRes16(pwm));
        QVERIFY2(std::abs(square - p / 65535.0) < 0.002, qPrintable(QString("%1: %2").arg(p).arg(square)));
        QVERIFY2(std::abs(tungsten - p / 65535.0) < 0.02, qPrintable(QString("%1: %2").arg(p).arg(tungsten)));
    }
}

void TestOutput::levelsToBytes_data()
{
    // clang-format off
    QTest::addColumn<Bytes>("got");
    QTest::addColumn<Bytes>("expected");
    const uchar none = 0xa5;
    QTest::newRow("compensated, 16 bits") << curved({1.0, 0.5}, 2, 0, Compensated) << Bytes{0xff, 0xff, 0x80, 0x00};
    QTest::newRow("compensated, other resolution is 8 bits") << curved({1.0, 0.5}, 3, 0, Compensated) << Bytes{255, 128, none, none};
    QTest::newRow("compensated, unknown curve is linear") << curved({1.0, 0.5}, 1, 9, Compensated) << Bytes{255, 128, none, none};
    QTest::newRow("software, 8 bits round") << curved({1.0, 0.498}, 1, 0, Software) << Bytes{255, 127, none, none};
    QTest::newRow("software, 16 bits truncate") << curved({0.5, 1.0}, 2, 0, Software) << Bytes{0x7f, 0xff, 0xff, 0xff};
    QTest::newRow("software, normal curve") << curved({128 / 255.0, 1.0}, 1, 1, Software) << Bytes{69, 255, none, none};
    QTest::newRow("software, other resolution writes nothing") << curved({1.0, 0.5}, 3, 0, Software) << Bytes{none, none, none, none};
    QTest::newRow("levels saturate") << curved({-0.1, 1e300}, 2, 0, Software) << Bytes{0, 0, 0xff, 0xff};
    QTest::newRow("not a number is dark") << curved({qQNaN(), -qInf()}, 2, 1, Compensated) << Bytes{0, 0, 0, 0};
    // clang-format on
}

void TestOutput::levelsToBytes()
{
    QFETCH(Bytes, got);
    QTEST(got, "expected");
}

void TestOutput::routes_data()
{
    // clang-format off
    QTest::addColumn<Bytes>("got");
    QTest::addColumn<Bytes>("expected");
    const LXColor rgb = LXColor::fromRgb8(60, 128, 200, 255, CU::ProfileGenericRGB);
    const LXColor own = LXColor::fromRgb8(60, 128, 200, 255, CU::ProfilePixelNodeRGB);
    const LXColor rgbw = LXColor::fromNChannel8({255, 60, 90, 128, 200}, CU::ConfigRGBW, CU::ProfileWashLineQP6RGBW);
    // Software curve 1, onboard curve 0 unless said otherwise: 128 becomes 69 where the levels pass through.
    const auto sent = [](const LXColor& c, bool pass, int count, int resolution, int mode, CU::TonematchProfileID to) {
        return CU::updateBuffer(1, 0, c, pass, count, resolution, mode, to);
    };
    const auto to = CU::ProfileWashLineQP6RGBA;
    const auto row = [](const char* name, const Bytes& got, const Bytes& expected) {
        QTest::newRow(name) << got << expected;
    };
    const Bytes direct{17, 69, 160};
    row("RGB through 3-to-N", sent(rgb, false, 4, 1, CU::IOModeRGBToRGBA, to), direct + Bytes{0});
    row("RGB through N-to-N when allowed", sent(rgb, true, 4, 1, CU::IOModeRGBA, to), direct + Bytes{0});
    row("its HSV face too", sent(rgb.toHsv16(), true, 4, 1, CU::IOModeRGBA, to), direct + Bytes{0});
    row("an unknown mode is RGB", sent(rgb, false, 3, 1, 99, CU::ProfileGenericRGB), direct);
    row("the fixture's own RGB", sent(own, false, 3, 1, CU::IOModeRGB, CU::ProfilePixelNodeRGB), direct);
    row("levels of the fixture's layout", sent(rgbw, false, 4, 1, CU::IOModeRGBW, CU::ProfileWashLineQP6RGBW), {17, 36, 69, 160});
    row("more channels than levels", sent(rgbw, false, 6, 1, CU::IOModeRGBW, CU::ProfileWashLineQP6RGBW), {17, 36, 69, 160, 0, 0});
    row("fewer channels", sent(rgbw, false, 2, 1, CU::IOModeRGBW, CU::ProfileWashLineQP6RGBW), {17, 36});
    row("16 bits, high byte first", sent(LXColor(0x1234, 0, 65535, 0), true, 3, 2, CU::IOModeRGB, CU::ProfileGenericRGB).mid(4), {0xff, 0xf0});
    row("16-bit values of 3 bytes", sent(rgb, true, 1, 3, CU::IOModeRGB, CU::ProfileGenericRGB), {0, 0, 0});
    row("invalid is dark", sent(LXColor(), false, 4, 1, CU::IOModeRGBW, to), {0, 0, 0, 0});
    row("no channels", sent(rgb, true, 0, 1, CU::IOModeRGB, to), {});
    row("negative count", sent(rgb, true, -3, 1, CU::IOModeRGB, to), {});
    row("negative resolution", sent(rgb, true, 3, -1, CU::IOModeRGB, to), {});
    // A chromaticity is always compensated for the onboard curve, on either way.
    const LXColor blue = LXColor(Qt::blue).toYxy(CU::ConfigUnknown, CU::ProfileNone, -1);
    LXColor half = blue;
    half.setY(0.5);
    row("a chromaticity, direct way", CU::updateBuffer(1, 0, half, true, 3, 2, 0, CU::ProfileGenericRGB), {0, 0, 0, 0, 0x80, 0});
    LXColor colorimetric = rgbw;
    colorimetric.setNChannelRenderType(LXColor::NChannelColorimetric);
    row("levels of the layout stay as they are", sent(colorimetric, false, 4, 1, CU::IOModeRGBW, CU::ProfileWashLineQP6RGBW), {17, 36, 69, 160});
    // clang-format on
}

void TestOutput::routes()
{
    QFETCH(Bytes, got);
    QTEST(got, "expected");
}

void TestOutput::bytesAndListsAgree()
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
    delete[] CU::convertLXColorToNChannelF(converted, color, false, 5, CU::ProfileFlareFlashQVS, CU::IOModeRGBAW, true);
    QVERIFY(converted);
    delete[] CU::convertLXColorToNChannelF(converted, color, true, -5, CU::ProfileFlareFlashQVS, CU::IOModeRGBAW, true);
    QVERIFY(converted); // never set back
}

void TestOutput::severalColorsAtOnce()
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
            CU::convertLXColorsToDMX(pointers.data(), pointers.size(), mode % 2, count, resolution, got.data(), 1, 2,
                                     profile, mode);
            QCOMPARE(got, expected + QVector<uchar>{0xa5});
        }
    }
    CU::convertLXColorsToDMX(nullptr, 3, true, 3, 1, nullptr, 0, 0, CU::ProfileGenericRGB, 0);
}

void TestOutput::compositing_data()
{
    // clang-format off
    QTest::addColumn<QString>("below");
    QTest::addColumn<QString>("above");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, const char* below, const char* above, const char* expected) {
        QTest::newRow(name) << below << above << expected;
    };
    row("opaque replaces", "#ff112233", "aNchannel;3;6;65280;1;2;3;4;1", "aNchannel;3;6;65280;1;2;3;4;1");
    row("on black replaces", "#ff000000", "#80112233", "aRgb;1;0;#8080111122223333");
    row("RGB blends", "#ffffffff0000", "#8000ffff00000000", "aRgb;1;0;#ffffffff7fff0000");
    row("clear leaves it", "#ff102030", "#00ffffff", "aRgb;1;0;#ffff101020203030");
    row("levels keep the alpha below", "aNchannel;3;6;1234;0;1000;65535;7;0", "aNchannel;3;6;32768;65535;0;65535;7;0", "aNchannel;3;0;1234;32768;499;65535;7;0");
    row("chromaticities blend", "aYxy;1;0;9;1;0.2;0.4", "aYxy;1;0;0;0;0.9;0.9", "aYxy;1;0;65535;1.000000;0.200000;0.400000");
    row("what is below takes the face above", "#ffff0000", "aYxy;1;0;0;0.5;0.9;0.9", "aYxy;1;0;65535;1.000000;0.640000;0.330000");
    // clang-format on
}

void TestOutput::compositing()
{
    QFETCH(QString, below);
    QFETCH(QString, above);
    LXColor color(below);
    CU::updateColor(color, LXColor(above));
    QTEST(color.aName(), "expected");
}

void TestOutput::fiveChannels()
{
    Bytes three{10, 20, 30}, six{1, 2, 3, 4, 5, 6}, four{1, 2, 3, 4}, none;
    QCOMPARE(CU::expandFor5Channels(three), Bytes({10, 20, 30, 10, 20}));
    QCOMPARE(CU::expandFor5Channels(six), Bytes({1, 2, 3, 4, 5, 6, 1, 2, 3, 4}));
    QVERIFY(CU::expandFor5Channels(four).isEmpty() && CU::expandFor5Channels(none).isEmpty());
    QCOMPARE(three, Bytes({10, 20, 30}));
}

void TestOutput::badArguments()
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

QTEST_GUILESS_MAIN(TestOutput)

#include "tst_output.moc"
