#include "LXColor.h"
#include "Support.h"

#include <QLinearGradient>

#include <limits>

Q_DECLARE_METATYPE(LXColor)
Q_DECLARE_METATYPE(QLinearGradient)

using CU = ColorUtils;

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
const QString kNotBlending = "not doing blend \n";
const QString kRgbRefused = "LXColor::fromRgbF: RGB parameters out of range";
const QString kYxyRefused = "LXColor::fromxyY: xyY parameters out of range";

LXColor rgb(double r, double g, double b, double a = 1.0, CU::TonematchProfileID profile = CU::ProfileGenericRGB)
{
    return LXColor::fromRgbF(r, g, b, a, profile);
}

LXColor yxy(double Y, double x, double y, double a, CU::TonematchProfileID profile = CU::ProfileGenericRGB)
{
    LXColor color = LXColor::fromxyY(x, y, Y, profile);
    color.setAlphaF(a);
    return color;
}

LXColor levels(LXColor::NChannelRenderType type, double alpha)
{
    LXColor color = LXColor::fromNChannelF({alpha, 0.25, 0.5, 0.125, 1.0}, CU::ConfigRGBW, CU::ProfileWashLineQP6RGBW);
    color.setNChannelRenderType(type);
    return color;
}

QLinearGradient gradient(const QGradientStops& stops)
{
    QLinearGradient result;
    result.setStops(stops);
    return result;
}

} // namespace

class TestMixing : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void blends_data()
    {
        const Rows<LXColor, LXColor, double, QString> row;
        const LXColor red = rgb(1, 0, 0, 1, CU::ProfilePixelNodeRGB);
        const LXColor blue = rgb(0, 0, 1);
        const LXColor clearBlue = rgb(0, 0, 1, 0);
        const LXColor halfWhite = rgb(1, 1, 1, 0.5);
        row("half and half", red, blue, 0.5, "aRgb;1;0;#ffff800000008000");
        row("three quarters of the first", red, blue, 0.75, "aRgb;1;0;#ffffbfff00004000");
        row("a transparent colour gives no light", red, clearBlue, 0.5, "aRgb;1;0;#8000800000000000");
        row("not divided by the alpha", halfWhite, halfWhite, 0.5, "aRgb;1;0;#8000800080008000");
        row("HSV", red.toHsv16(), blue, 0.5, "aRgb;1;0;#ffff800000008000");
        row("levels meant to be output", levels(LXColor::NChannelDirect, 0), blue, 0.5, "aRgb;1;0;#8000000000008000");
        row("an invalid colour counts as black", LXColor(), blue, 0.5, "aRgb;1;0;#ffff000000008000");
        row("weight above 1", red, blue, 1.5, "");
        row("weight below 0", red, blue, -0.5, "");
        row("weight NaN", red, blue, kNaN, "");
    }
    void blends()
    {
        const auto [a, b, t, expected] = fetched<LXColor, LXColor, double, QString>();
        QCOMPARE(LXColor::blend(a, b, t).aName(), expected);
        QCOMPARE(Messages::takeTexts(), expected.isEmpty() ? QStringList(kRgbRefused) : QStringList());
    }

    void blendAtItsEndsGivesTheColourItself()
    {
        const LXColor a = levels(LXColor::NChannelColorimetric, 0.3);
        const LXColor b = rgb(0.1, 0.2, 0.3, 0.4, CU::ProfilePixelNodeRGB);
        QCOMPARE(LXColor::blend(a, b, 0.0), b);
        QCOMPARE(LXColor::blend(a, b, 1.0), a);
        const QVector<Messages::Entry> messages = Messages::take();
        QCOMPARE(messages.size(), 2);
        for (const Messages::Entry& message : messages) {
            QCOMPARE(message.text, kNotBlending);
            QVERIFY(message.file.startsWith("LXColor/src/LXColor"));
            QVERIFY(message.function.contains("LXColor::blend("));
        }
    }

    void colorimetricBlends()
    {
        const LXColor plain = rgb(0.9, 0.2, 0.4, 0.8, CU::ProfilePixelNodeRGB);
        const LXColor light = yxy(0.7, 0.35, 0.36, 0.9, CU::ProfileWashLineQP6RGBA);
        const LXColor emitters = levels(LXColor::NChannelColorimetric, 0.6);
        struct
        {
            LXColor a, b, reference;
        } const cases[] = {
            {light, plain, light}, {plain, light, light}, {plain, emitters, emitters}, {emitters, light, emitters}};
        for (const auto& c : cases) {
            const LXColor mixed = LXColor::blend(c.a, c.b, 0.25);
            const QStringList messages = Messages::takeTexts();
            QCOMPARE(messages.size(), 1);
            QVERIFY2(QRegularExpression("^LXColor::blend: Yxy [-+.e0-9]+ [-+.e0-9]+ [-+.e0-9]+$")
                         .match(messages[0])
                         .hasMatch(),
                     qPrintable(messages[0]));

            const auto channel = [&c](double ofA, double ofB) {
                return ofB * 0.75 * c.b.alphaF() + ofA * 0.25 * c.a.alphaF();
            };
            const LXColor sum = rgb(channel(c.a.redF(), c.b.redF()), channel(c.a.greenF(), c.b.greenF()),
                                    channel(c.a.blueF(), c.b.blueF()), channel(1, 1));
            QCOMPARE(mixed, sum.toYxy(c.reference.getChannelConfiguration(), c.reference.getTonematchProfileID(), -1));
            QCOMPARE(mixed.getChannelConfiguration(), c.reference.getChannelConfiguration());
            QCOMPARE(mixed.getTonematchProfileID(), CU::ProfileGenericRGB);
        }
    }

    void composes()
    {
        const LXColor base = rgb(0.0, 1.0, 0.5, 0.5);
        const LXColor opaque = levels(LXColor::NChannelColorimetric, 1.0);
        const LXColor clear = levels(LXColor::NChannelColorimetric, 0.0);
        const LXColor half = rgb(1.0, 0.0, 0.5, 0.5, CU::ProfilePixelNodeRGB);
        QCOMPARE(LXColor::mix(opaque, base), opaque);
        QCOMPARE(LXColor::mix(clear, base), base);
        QCOMPARE(LXColor::mix(half, base).aName(), QString("aRgb;1;0;#c00080007fff8000"));
        QCOMPARE(LXColor::mix(half, base), LXColor::mixColorsRGB(half, base));

        const LXColor light = yxy(0.5, 0.3, 0.3, 1.0);
        QCOMPARE(LXColor::mix(half, light), LXColor::mixColorsxy(half, light));
        const LXColor emitters = levels(LXColor::NChannelColorimetric, 0.5);
        const LXColor mixed = LXColor::mix(emitters, base);
        QCOMPARE(mixed, LXColor::mixColorsRGB(emitters, base).toYxy(CU::ConfigRGBW, CU::ProfileWashLineQP6RGBW, -1));
        QCOMPARE(mixed.spec(), LXColor::Yxy);
        QCOMPARE(LXColor::mix(levels(LXColor::NChannelDirect, 0.5), base).spec(), LXColor::Rgb);
    }

    void premultiplied_data()
    {
        const Rows<LXColor, QString, QString> row;
        row("RGB", rgb(0.5, 0.25, 1.0, 0.5, CU::ProfilePixelNodeRGB), "aRgb;1;0;#8000400020008000",
            "aRgb;1;0;#800080004000ffff");
        row("opaque", rgb(0.5, 0.25, 1.0), "aRgb;1;0;#ffff80004000ffff", "aRgb;1;0;#ffff80004000ffff");
        row("HSV", LXColor::fromHsv8(120, 255, 255, 128, CU::ProfilePixelNodeRGB), "aRgb;1;0;#8080000080800000",
            "aRgb;1;0;#80800000ffff0000");
        row("Yxy", yxy(0.5, 0.3, 0.4, 0.25, CU::ProfilePixelNodeRGB), "aYxy;1;0;16384;0.125000;0.075000;0.100000",
            "aYxy;1;0;16384;0.500000;0.300000;0.400000");
        row("levels", levels(LXColor::NChannelColorimetric, 0.5), "aNchannel;3;6;32768;8192;16384;4096;32768;1",
            "aNchannel;3;6;32768;16384;32768;8192;65535;1");
        row("transparent", rgb(0.5, 0.25, 1.0, 0.0), "aRgb;1;0;#0000000000000000", "aRgb;1;0;#0000000000000000");
        row("invalid", LXColor(), "aRgb;1;0;#ffff000000000000", "aRgb;1;0;#ffff000000000000");
    }
    void premultiplied()
    {
        const auto [color, premultiplied, back] = fetched<LXColor, QString, QString>();
        QCOMPARE(LXColor::premultiply(color).aName(), premultiplied);
        QCOMPARE(LXColor::unpremultiply(LXColor::premultiply(color)).aName(), back);
    }

    void unpremultiplyRefuses()
    {
        QVERIFY(!LXColor::unpremultiply(rgb(0.8, 0, 0, 0.5)).isValid());
        QCOMPARE(Messages::takeTexts(), QStringList(kRgbRefused));
        QVERIFY(!LXColor::unpremultiply(yxy(0.8, 0.3, 0.3, 0.5)).isValid());
        QCOMPARE(Messages::takeTexts(), QStringList(kYxyRefused));

        // Levels are limited instead.
        QCOMPARE(LXColor::unpremultiply(levels(LXColor::NChannelDirect, 0.25)).aName(),
                 QString("aNchannel;3;6;16384;65535;65535;32768;65535;0"));
        const LXColor clear = levels(LXColor::NChannelColorimetric, 0.0);
        QCOMPARE(LXColor::unpremultiply(clear), clear);
    }

    void gradients_data()
    {
        const Rows<QLinearGradient, double, QString, int> row;
        const QLinearGradient ramp = gradient({{0.0, Qt::black}, {1.0, Qt::white}});
        const QLinearGradient middle = gradient({{0.25, Qt::red}, {0.5, QColor(0, 0, 255, 0)}, {0.75, Qt::green}});
        const QString white = "aRgb;1;0;#ffffffffffffffff";
        const QString green = "aRgb;1;0;#ffff0000ffff0000";
        row("a quarter", ramp, 0.25, "aRgb;1;0;#ffff400040004000", 0);
        row("first stop", ramp, 0.0, "aRgb;1;0;#ffff000000000000", 1);
        row("last stop", ramp, 1.0, white, 1);
        row("between the first two of three", middle, 0.375, "aRgb;1;0;#8000800000000000", 0);
        row("between the last two of three", middle, 0.625, "aRgb;1;0;#8000000080000000", 0);
        row("before the first", middle, 0.1, green, 0);
        row("beyond the last", middle, 0.9, green, 0);
        row("not a number", middle, kNaN, green, 0);
        row("one stop", gradient({{0.5, Qt::green}}), 0.1, green, 0);
        row("equal colours", gradient({{0.0, Qt::green}, {1.0, Qt::green}}), 0.0, green, 0);
        row("no stops are black to white", QLinearGradient(), 1.0, white, 1);
    }
    void gradients()
    {
        const auto [stops, position, expected, unblended] = fetched<QLinearGradient, double, QString, int>();
        QCOMPARE(LXColor::colorFromGradient(stops, position).aName(), expected);
        QCOMPARE(Messages::takeTexts(), unblended ? QStringList(kNotBlending) : QStringList());
    }
};

QTEST_APPLESS_MAIN(TestMixing)
#include "tst_mixing.moc"
