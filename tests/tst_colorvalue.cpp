// The colour value, where tst_reference does not compare it with its model already.
#include "LXColor.h"
#include "Support.h"

#include <algorithm>
#include <functional>

using CU = ColorUtils;
using Make = std::function<LXColor()>;
Q_DECLARE_METATYPE(Make)

namespace {

const auto kProfile = CU::ProfileWashLineQP6RGBW;

LXColor hsvHue(int hundredths) { return LXColor::fromHsvF(hundredths / 36000.0, 1, 1, 1, kProfile); }

LXColor nChannel(const QVector<uint>& v) { return LXColor::fromNChannel16(v, CU::ConfigRGBW, kProfile); }

} // namespace

class TestColorValue : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    // Each row: a colour, and the string that names all of what it should hold.
    void readsBack_data()
    {
        // clang-format off
        const Rows<QString, QString> rows;
        const auto row = [&](const char* name, const LXColor& color, const char* text) {
            rows(name, color.aName(), QString(text));
        };
        row("16 bits stay", LXColor(0x1234, 0x5678, 0x9abc, 0xdef0), "aRgb;1;0;#def0123456789abc");
        row("a pixel is opaque", LXColor(QRgb(0x80112233u)), "aRgb;1;0;#ffff111122223333");
        row("fromRgb is opaque", LXColor::fromRgb(0x80112233u), "aRgb;1;0;#ffff111122223333");
        row("fromRgba has alpha", LXColor::fromRgba(0x80112233u), "aRgb;1;0;#8080111122223333");
        row("QColor", LXColor(QColor(1, 2, 3, 4)), "aRgb;1;0;#0404010102020303");
        row("there and back", LXColor(LXColor::toRgb(LXColor(QColor(1, 2, 3, 4)))), "aRgb;1;0;#ffff010102020303");
        row("gray has a blue tinge", LXColor(Qt::gray), "aRgb;1;0;#ffffa0a0a0a0a4a4");
        row("chromaticity", LXColor(0.3, 7.5), "aYxy;1;0;65535;1.000000;0.300000;7.500000");
        uint rgb[] = {1, 2, 3};
        LXColor fromArray = LXColor::fromRgb8(0, 0, 0, 0, kProfile);
        fromArray.setRgb16(rgb, CU::ProfilePixelNodeRGB);
        row("an array is opaque", fromArray, "aRgb;1;7;#ffff000100020003");
        LXColor kept = LXColor::fromNChannel8({255, 1}, CU::ConfigSingleChannel, CU::ProfileSingleChannel);
        kept.setYxy8(0.5, 0.3, 0.3, 255, kProfile);
        row("Yxy keeps the configuration", kept, "aYxy;4;6;65535;0.500000;0.300000;0.300000");
        // clang-format on
    }
    void readsBack()
    {
        const auto [written, expected] = fetched<QString, QString>();
        QCOMPARE(written, expected);
    }

    void globalColors()
    {
        for (int i = Qt::color0; i <= Qt::transparent; ++i) {
            const auto global = static_cast<Qt::GlobalColor>(i);
            LXColor assigned, set, ofQt;
            assigned = global;
            set.setQColor(QColor(global));
            ofQt = QColor(global);
            QCOMPARE(set, ofQt);
            QCOMPARE(LXColor(global).getQColor(true).rgba(), LXColor(global).rgba());
            QCOMPARE(LXColor(global).rgba(), i == Qt::color0   ? 0xffffffffu
                                             : i == Qt::color1 ? 0xff000000u
                                                               : QColor(global).rgba());
            QCOMPARE(assigned, LXColor(global));
        }
        QVERIFY(!LXColor(static_cast<Qt::GlobalColor>(20)).isValid());
        QVERIFY(!LXColor(static_cast<Qt::GlobalColor>(31)).isValid());
    }

    void refusals_data()
    {
        // clang-format off
        const Rows<Make, QString, QString> rows;
        const auto row = [&](const char* name, const char* caller, const char* what, auto change, const char* member) {
            rows(name, Make([=] { LXColor c(Qt::red); change(c); return c; }), QString("LXColor::%1: %2 out of range").arg(caller, what), QString("LXColor::") + member);
        };
        const auto p = kProfile;
        const char* rgb = "RGB parameters";
        const char* hsv = "HSV parameters";
        row("8-bit above", "setRgb8", rgb, [=](LXColor& c) { c.setRgb8(256, 0, 0, 0, p); }, "setRgb8");
        row("8-bit below", "setRgb8", rgb, [=](LXColor& c) { c.setRgb8(0, 0, 0, -1, p); }, "setRgb8");
        row("16-bit", "setRgb16", rgb, [=](LXColor& c) { c.setRgb16(0, 65536, 0, 0, p); }, "setRgb16");
        row("16-bit constructor", "setRgb16", rgb, [](LXColor& c) { c = LXColor(0u, 0u, 65536u, 0u); }, "");
        row("array", "setRgb16", rgb, [=](LXColor& c) { uint v[] = {0, 0, 70000}; c.setRgb16(v, p); }, "setRgb16");
        row("null array", "setRgb16", rgb, [=](LXColor& c) { c.setRgb16(nullptr, p); }, "setRgb16");
        row("not a number", "setRgbF", rgb, [=](LXColor& c) { c.setRgbF(0, qQNaN(), 0, 0, p); }, "setRgbF");
        row("8-bit factory", "fromRgb", rgb, [=](LXColor& c) { c = LXColor::fromRgb8(0, 0, 0, 256, p); }, "fromRgb8");
        row("16-bit factory", "fromRgb16", rgb, [=](LXColor& c) { c = LXColor::fromRgb16(0, 0, 0, 65536, p); }, "fromRgb16");
        row("ratio factory", "fromRgbF", rgb, [=](LXColor& c) { c = LXColor::fromRgbF(0, 0, 2, 0, p); }, "fromRgbF");
        row("8-bit alpha", "setAlpha8", "alpha parameter", [=](LXColor& c) { c.setAlpha8(256); }, "setAlpha8");
        row("hue 361", "setHsv8", hsv, [=](LXColor& c) { c.setHsv8(361, 0, 0, 0, p); }, "setHsv8");
        row("hue -2", "setHsv16", hsv, [=](LXColor& c) { c.setHsv16(-2, 0, 0, 0, p); }, "setHsv16");
        row("hue below 0", "setHsvF", hsv, [=](LXColor& c) { c.setHsvF(-0.5, 0, 0, 0, p); }, "setHsvF");
        row("factory, hue 360", "fromHsv", hsv, [=](LXColor& c) { c = LXColor::fromHsv8(360, 0, 0, 0, p); }, "fromHsv8");
        row("16-bit factory, hue 360", "fromHsv", hsv, [=](LXColor& c) { c = LXColor::fromHsv16(360, 0, 0, 0, p); }, "fromHsv16");
        row("ratio factory, saturation", "fromHsvF", hsv, [=](LXColor& c) { c = LXColor::fromHsvF(0, 2, 0, 0, p); }, "fromHsvF");
        row("bright chromaticity", "fromxyY", "xyY parameters", [=](LXColor& c) { c = LXColor::fromxyY(0.3, 0.3, 1.5, p); }, "fromxyY");
        for (const char* text : {"#FfA", "#", "#12345g", "#1g3456", "aRgb;1;0;#fff", "aRgb;1;0;#12345678901z"})
            row(text, "setRgb16", rgb, [=](LXColor& c) { c = LXColor(text); }, "");
        for (const char* text : {"notacolour", " ", "aRgb;1;0;ffffff", "argb;1;0;#ffffff", "aHsv;1;0;1;2", ";;;", "bl\u00e9\u20ac"}) {
            const QString name = QString::fromUtf8(text);
            rows(text, Make([=] { return LXColor(name); }), "LXColor::setNamedColor: Unknown color name '" + name + '\'', "LXColor::setNamedColor");
        }
        // clang-format on
    }
    void refusals()
    {
        const auto [make, text, member] = fetched<Make, QString, QString>();
        const LXColor color = make();
        const auto messages = Messages::take();
        QCOMPARE(messages.size(), 1);
        QCOMPARE(messages[0].text, text);
        QVERIFY2(messages[0].file.startsWith("LXColor/src/LXColor"), qPrintable(messages[0].file));
        QVERIFY2(messages[0].function.contains(member), qPrintable(messages[0].function));
        QVERIFY(!color.isValid());
        QCOMPARE(color.rgba(), 0xff000000u);
        QCOMPARE(color.getChannelConfiguration(), CU::ConfigRGB);
        QCOMPARE(color.getTonematchProfileID(), CU::ProfileGenericRGB);
    }

    void silentRefusals()
    {
        const std::function<void(LXColor&)> changes[] = {
            [](LXColor& c) { c.setYxy8(1, 0, 0, 16711936, kProfile); }, // an alpha that wraps to 16 bits
            [](LXColor& c) { QVERIFY(c.rangeCheck16("", 65535) && !c.rangeCheck16("", 65536)); },
            [](LXColor& c) { QVERIFY(c.rangeCheckInt("", 255) && !c.rangeCheckInt("", -1)); },
            [](LXColor& c) { QVERIFY(c.rangeCheckReal("", 1.0) && !c.rangeCheckReal("", qQNaN())); },
            [](LXColor& c) { c = LXColor(static_cast<const char*>(nullptr)); }};
        for (const auto& change : changes) {
            LXColor c(Qt::red);
            change(c);
            QVERIFY2(!c.isValid() && c.aName().isEmpty(), qPrintable(QString::number(&change - changes)));
            QCOMPARE(c.rgba(), 0xff000000u);
        }
    }

    void equality()
    {
        QVERIFY(LXColor() != LXColor());
        QCOMPARE(hsvHue(0), hsvHue(36000));
        QVERIFY(hsvHue(0) != hsvHue(1));
        QCOMPARE(LXColor(65535, 0, 1, 65535).hueF(), 1.0); // a trace of blue rounds up to the full circle
        const LXColor yxy = LXColor(qQNaN(), 0.3);
        QVERIFY(yxy != yxy);
        LXColor levels = nChannel({65535, 1, 2});
        QCOMPARE(levels, nChannel({65535, 1, 2}));
        QVERIFY(levels != nChannel({65535, 1, 2, 0}));
        levels.setNChannelRenderType(LXColor::NChannelColorimetric);
        QVERIFY(levels != nChannel({65535, 1, 2}));
        LXColor red(Qt::red);
        red.setTonematchProfileID(CU::ProfileNone);
        QVERIFY(red != LXColor(Qt::red));
        QVERIFY(LXColor::fromRgb8(255, 0, 0, 254, CU::ProfileGenericRGB) != LXColor(Qt::red));
    }

    void invalidState()
    {
        LXColor c(0.25, 0.5);
        c.invalidate();
        QCOMPARE(QVector<double>({c.getY(), c.getx(), c.gety()}), QVector<double>({0.0, 0.25, 0.0})); // x stays
        QCOMPARE(c.alpha16(), 65535u);
        QCOMPARE(c.getQColor(true), QColor(Qt::black));
        QVERIFY(!c.isBlack());
        c.setAlphaF(0.0);
        QVERIFY(!c.isValid());
        QVERIFY(!LXColor(Qt::red).convertTo(LXColor::Invalid, CU::ConfigRGB, kProfile).isValid());
        QVERIFY(!LXColor(Qt::red).convertTo(static_cast<LXColor::Spec>(7), CU::ConfigRGB, kProfile).isValid());
        QVERIFY(nChannel({0}).isBlack());
        QVERIFY(LXColor(Qt::transparent).isBlack());
    }

    // The render type lies in the word of red and hue, and each setter of a whole face writes or leaves it.
    void sharedWord()
    {
        LXColor c(Qt::red);
        c.setNChannelRenderType(LXColor::NChannelColorimetric);
        QCOMPARE(c.redF(), 1.0 / 4294967295.0);
        c.setNChannel8({255, 1, 2, 3, 4}, CU::ConfigRGBW, kProfile);
        QCOMPARE(c.getNChannelRenderType(), LXColor::NChannelColorimetric);
        QCOMPARE(c.toNChannel16(CU::ConfigRGBW, kProfile, -1), c);
        QCOMPARE(c.toNChannel16(CU::ConfigRGB, kProfile, -1).getNChannelRenderType(), LXColor::NChannelColorimetric);
        QCOMPARE(LXColor(0.3, 0.3).toNChannel16(CU::ConfigRGB, kProfile, -1).getNChannelRenderType(),
                 LXColor::NChannelColorimetric);
        QCOMPARE(LXColor(Qt::red).toNChannel16(CU::ConfigRGB, kProfile, -1).getNChannelRenderType(),
                 LXColor::NChannelDirect);
        c.setRgb8(0, 1, 2, 255, kProfile); // the levels stay behind
        QVector<int> out;
        c.getNChannel8(&out, nullptr, nullptr);
        QCOMPARE(out, QVector<int>({255, 1, 2, 3, 4}));
        for (quint32 hue :
             {36001u, 123456789u, 0xfffffffeu}) { // no setter gives these, and no reading may choke on them
            c.setHsv8(0, 200, 100, 255, kProfile);
            c.setNChannelRenderType(static_cast<LXColor::NChannelRenderType>(hue));
            QVERIFY(c.redF() >= 0 && c.redF() <= 1 && c.toRgb16(true).isValid() && c.hue8() >= 0 && c.hue8() < 360);
        }
    }

    void getterPointers()
    {
        const LXColor rgb = LXColor::fromRgb8(1, 2, 3, 4, kProfile);
        uint r = 7, g = 7, b = 7, a = 7;
        rgb.getRgb16(&r, nullptr, &b, &a);
        QCOMPARE(r + b + a, 21u);
        rgb.getRgb16(&r, &g, &b, nullptr);
        QCOMPARE(QVector<uint>({r, g, b}), QVector<uint>({257, 514, 771}));
        double d[] = {7, 7, 7, 7};
        rgb.getRgbF(d, d + 1, nullptr, d + 3);
        rgb.getHsvF(d, nullptr, d + 2, d + 3);
        rgb.getYxy16(d, d + 1, nullptr, &a);
        QCOMPARE(a, 7u);
        QCOMPARE(QVector<double>({d[0], d[1], d[2], d[3]}), QVector<double>(4, 7.0));
        int a8 = 0;
        rgb.getYxy8(nullptr, d, d, &a8); // the narrow and the floating form still tell the alpha
        rgb.getYxyF(d, d + 1, nullptr, d + 3);
        QCOMPARE(a8, 4);
        QCOMPARE(d[3], 4 / 255.0);
        QCOMPARE(d[0], 7.0);
        nChannel({1}).getNChannel16(nullptr, nullptr, nullptr);
        CU::ChannelConfiguration cc;
        CU::TonematchProfileID profile;
        QVector<uint> out;
        nChannel({1, 2}).getNChannel16(&out, &cc, &profile);
        QCOMPARE(out, QVector<uint>({1, 2}));
        QVERIFY(cc == CU::ConfigRGBW && profile == kProfile);
    }

    void valueStrings_data()
    {
        // clang-format off
        const Rows<QString, QString> rows;
        const auto row = [&](const char* text, const char* written) { rows(text, text, written); };
        row("#ff0000", "aRgb;1;0;#ffffffff00000000");
        row("Steel Blue", "aRgb;1;0;#ffff46468282b4b4");
        row("transparent", "aRgb;1;0;#0000000000000000");
        row("aRgb;3;7;#ffff000000000000", "aRgb;1;0;#ffff000000000000"); // configuration and profile are lost
        row("aRgb;x;y;#ff0000", "aRgb;1;0;#ffffffff00000000");
        row("aYxy;1;0;65535;1.000000;0.312700;0.329000", "aYxy;1;0;65535;1.000000;0.312700;0.329000");
        row("aYxy;9;0;-1;x;1e-1;", "aYxy;9;0;0;0.000000;0.100000;0.000000");
        row("aNchannel;-2;99;5;70000;x;;4294967295", "aNchannel;-2;99;5;65535;0;0;4294967295");
        // clang-format on
    }
    void valueStrings()
    {
        const auto [text, written] = fetched<QString, QString>();
        LXColor c = nChannel({1, 2, 3}); // nothing of what was before may shine through
        c.setNamedColor(text);
        QCOMPARE(c.aName(), written);
        QCOMPARE(LXColor(written).aName(), written);
        QCOMPARE(LXColor(text.toLatin1().constData()), c);
    }

    void hexDigits_data()
    {
        // clang-format off
        // argb: empty: a component is out of range
        const Rows<QString, bool, QVector<uint>> row;
        row("four with alpha", "#FFFE0123456789aB", true, QVector<uint>{0xfffe, 0x0123, 0x4567, 0x89ab});
        row("bad high digit", "#/10000", true, QVector<uint>{});
        row("bad low digit", "#0:0000", true, QVector<uint>{});
        row("bad last digit", "#00000000000G", true, QVector<uint>{});
        row("cut at a wide character", QString::fromUtf8("#ff0000€"), true, QVector<uint>{0xffff, 0xffff, 0, 0});
        row("too long", "#12345678901234567", false, QVector<uint>{});
        row("no #", "ff0000", false, QVector<uint>{});
        row("empty", "", false, QVector<uint>{});
        // clang-format on
    }
    void hexDigits()
    {
        const auto [text, read, argb] = fetched<QString, bool, QVector<uint>>();
        QVector<uint> out(4, 0u);
        QCOMPARE(get_hex_rgb16(text.constData(), text.size(), out.data()), read);
        if (!QTest::currentTestFailed() && !argb.isEmpty())
            QCOMPARE(out, argb);
        else if (text.startsWith('#') && text.size() <= 17)
            QVERIFY(*std::max_element(out.begin(), out.end()) > 65535);
        QVERIFY(!get_hex_rgb16(nullptr, out.data()));
        QVERIFY(!get_named_rgb("red", out.data()));
    }
};

QTEST_GUILESS_MAIN(TestColorValue)

#include "tst_colorvalue.moc"
