#include "CCTUtils.h"
#include "CurveFactory.h"
#include "IOMode.h"
#include "IOModeFactory.h"
#include "LXColor.h"
#include "MatchReport.h"
#include "ToneMatchProfile.h"
#include "TonematchProfileFactory.h"
#include "ToolSupport.h"

namespace {

Outcome runInShell(const QString& script)
{
    QProcess process;
    process.start(QStringLiteral("/bin/sh"), {QStringLiteral("-c"), script, program()});
    process.closeWriteChannel();
    return finish(process);
}

QStringList dmx(const QStringList& colors, const char* options) { return QStringList("dmx") + colors + words(options); }

QString joined(const QList<unsigned char>& bytes)
{
    QStringList numbers;
    for (const unsigned char byte : bytes)
        numbers << QString::number(byte);
    return numbers.join(',');
}

const QStringList kColors = {"steelblue",
                             "#80ff8000",
                             "#123456789abc",
                             "aRgb;1;0;#ffffffff80000000",
                             "aYxy;1;0;65535;1.000000;0.459900;0.410600",
                             "aYxy;1;0;32768;0.500000;0.150000;0.020000",
                             "aNchannel;3;6;65535;100;20000;300;65535;0",
                             "aNchannel;3;6;65535;100;20000;300;65535;1",
                             "aNchannel;4;4;65535;32768;0",
                             "black"};

LXColor readAs(const QString& text)
{
    const QStringList xy = text.split(',');
    return xy.size() == 2 ? LXColor(xy[0].toDouble(), xy[1].toDouble()) : LXColor(text);
}

} // namespace

class TestTool : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void help_data();
    void help();
    void refusals_data();
    void refusals();
    void dmxBytesAreTheLibrarys_data();
    void dmxBytesAreTheLibrarys();
    void dmxLines_data();
    void dmxLines();
    void dmxJson();
    void swatches();
    void convertLines_data();
    void convertLines();
    void convertJson();
    void cctTable();
    void cctJson();
    void cctFromColors();
    void mix_data();
    void mix();
    void mixTable();
    void matchJson();
    void matchWords();
    void matchTable();
    void gamut();
    void fixtures();
    void standardInput_data();
    void standardInput();
    void answersEachLineAsItComes();
    void memoryStaysTheSame_data();
    void memoryStaysTheSame();
    void readerThatGoesAway();
    void fullDisk();
};

void TestTool::help_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QStringList>("contains");
    QTest::newRow("program") << QStringList("--help")
                             << QStringList{"Usage: lxcolor SUBCOMMAND", "fixtures", "dmx", "convert", "Example:"};
    QTest::newRow("program, short") << QStringList("-h") << QStringList("Usage: lxcolor SUBCOMMAND");
    QTest::newRow("version") << QStringList("--version") << QStringList("lxcolor 1.");
    QTest::newRow("fixtures") << QStringList{"fixtures", "--help"}
                              << QStringList{"Usage: lxcolor fixtures", "--json", "Example:\n  lxcolor fixtures"};
    QTest::newRow("dmx") << QStringList{"dmx", "--help"}
                         << QStringList{"Usage: lxcolor dmx",       "--fixture",      "--io-mode",
                                        "--allow-rgb-pass-through", "standard input", "Example:\n  lxcolor dmx"};
    QTest::newRow("help wins over mistakes")
        << QStringList{"dmx", "notacolour", "--bits", "7", "--help"} << QStringList("Usage: lxcolor dmx");
    QTest::newRow("convert") << QStringList{"convert", "--help"}
                             << QStringList{"Usage: lxcolor convert", "rgb|hsv|yxy|nchannel",
                                            "Example:\n  lxcolor convert"};
    QTest::newRow("mix") << QStringList{"mix", "--help"}
                         << QStringList{"Usage: lxcolor mix", "A over B", "--ratio", "Examples:\n  lxcolor mix"};
    QTest::newRow("match") << QStringList{"match", "--help"}
                           << QStringList{"Usage: lxcolor match", "--io-mode", "words", "Example:\n  lxcolor match"};
    QTest::newRow("check") << QStringList{"check", "--help"}
                           << QStringList{"Usage: lxcolor check", "--json", "Example:\n  lxcolor check"};
    QTest::newRow("cct") << QStringList{"cct", "--help"}
                         << QStringList{"Usage: lxcolor cct", "--from COLOR", "Examples:\n  lxcolor cct"};
}

void TestTool::help()
{
    QFETCH(QStringList, arguments);
    QFETCH(QStringList, contains);
    const Outcome outcome = run(arguments);
    QCOMPARE(outcome.err, QString());
    QCOMPARE(outcome.status, 0);
    for (const QString& text : contains)
        QVERIFY2(outcome.out.contains(text), qPrintable(text + "\nis missing in\n" + outcome.out));
}

void TestTool::refusals_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QStringList>("contains");
    const auto refused = [](const QByteArray& reason, const QStringList& arguments, const QStringList& contains) {
        QTest::newRow(reason) << arguments << contains;
    };
    const char* rgb = "--fixture|0";
    refused("nothing", {}, {"no subcommand", "fixtures, dmx, convert"});
    refused("unknown subcommand", {"fixture"}, {"\"fixture\"", "did you mean \"fixtures\"?", "convert"});
    refused("unknown global option", {"--colour"}, {"colour"});
    refused("unknown option", dmx({"red"}, "--fixture|0|--io-mod|0"), {"io-mod"});
    refused("option without its value", {"dmx", "red", "--fixture"}, {"fixture"});
    refused("argument too many", {"fixtures", "0"}, {"unexpected argument \"0\""});
    refused("no colour", dmx({}, rgb), {"no colour"});
    refused("no fixture", {"dmx", "red"}, {"no fixture given", "5 \"WashLine QP6 RGBA\""});
    refused("two fixtures where one is meant", dmx({"red"}, "--fixture|0|--fixture|1"),
            {"--fixture", "more than once"});
    refused("misspelt fixture", dmx({"red"}, "--fixture|Generic RBG"),
            {"unknown fixture \"Generic RBG\"", "did you mean \"Generic RGB\"?", "9 \"FloodBar ZN2 RGBW\""});
    refused("fixture number beyond the last", dmx({"red"}, "--fixture|10"), {"unknown fixture \"10\""});
    refused("negative fixture number", dmx({"red"}, "--fixture|-1"), {"unknown fixture \"-1\""});
    refused("fixture prefix of two", dmx({"red"}, "--fixture|washline"),
            {"not unique", "WashLine QP6 RGBA", "WashLine QP6 RGBW"});
    refused("mode of another fixture", dmx({"red"}, "--fixture|6|--io-mode|RGBA In/Out"),
            {"unknown IO mode of WashLine QP6 RGBW", "2 \"RGBW In/Out\""});
    refused("unknown curve", dmx({"red"}, "--fixture|0|--direct-curve|tunsten"),
            {"unknown curve \"tunsten\"", "1 \"Normal (LX Gamma)\""});
    refused("unknown onboard curve", dmx({"red"}, "--fixture|0|--onboard-curve|3"), {"unknown curve \"3\""});
    refused("bits", dmx({"red"}, "--fixture|0|--bits|12"), {"--bits cannot be \"12\"", "8, 16"});
    refused("format", dmx({"red"}, "--fixture|0|--format|jsn"), {"did you mean \"json\"?", "table, dec, hex, json"});
    refused("two formats", dmx({"red"}, "--fixture|0|--format|hex|--json"), {"--json and --format hex"});
    refused("misspelt colour", dmx({"steelblu"}, rgb), {"\"steelblu\"", "did you mean \"steelblue\"?", "aYxy;"});
    refused("digits of no known length", dmx({"#FfA"}, rgb), {"\"#FfA\"", "#rrggbb"});
    refused("chromaticity beyond the diagram", dmx({"0.3,1.1"}, rgb), {"\"0.3,1.1\"", "x,y from 0 to 1"});
    refused("chromaticity of three", dmx({"0.3,0.3,0.3"}, rgb), {"\"0.3,0.3,0.3\""});
    refused("chromaticity that is no number", dmx({"nan,0.3"}, rgb), {"\"nan,0.3\""});
    refused("CCT out of range", dmx({"1949K"}, rgb), {"\"1949K\" is not a CCT", "from 1950 to 11000"});
    refused("CCT beyond integers", dmx({"99999999999K"}, rgb), {"\"99999999999K\" is not a CCT"});
    refused("value string without an alpha", dmx({"aNchannel;3;6;0"}, rgb), {"aNchannel;3;6;0"});
    refused("empty colour", dmx({""}, rgb), {"cannot read the colour \"\""});
    refused("the second of two colours, the first unprinted", dmx({"red", "notacolour"}, rgb), {"notacolour"});
    refused("a bad colour after standard input", dmx({"-", "notacolour"}, rgb), {"notacolour"});
    refused("standard input twice", dmx({"-", "-"}, rgb), {"only once"});
    refused("control characters", dmx({"re\x1b[31m\nd"}, rgb), {"\"re\uFFFD[31m\uFFFDd\""});
    refused("without --to", {"convert", "red"}, {"--to is missing", "rgb, hsv, yxy, nchannel"});
    refused("unknown face", {"convert", "red", "--to", "hsl"}, {"did you mean \"hsv\"?"});
    refused("levels for no fixture", {"convert", "red", "--to", "nchannel"}, {"no fixture given"});
    refused("no CCT", {"cct"}, {"no CCT given", "--from"});
    refused("CCT below the first", {"cct", "3200", "1949"}, {"\"1949\" is not a CCT", "from 1950 to 11000"});
    refused("CCT above the last", {"cct", "11001"}, {"\"11001\" is not a CCT", "from 1950 to 11000"});
    refused("CCT with a fraction", {"cct", "3200.5"}, {"\"3200.5\" is not a CCT"});
    refused("tint beyond the greatest", {"cct", "3200", "--tint", "32768"}, {"--tint", "from -32767 to 32767"});
    refused("CCT and colour", {"cct", "3200", "--from", "red"}, {"unexpected argument \"3200\""});
    refused("tint and colour", {"cct", "--tint", "0", "--from", "red"}, {"--tint and --from"});
    refused("the second of two colours has no CCT", {"cct", "--from", "red", "--from", "0.9,0.05"}, {"\"0.9,0.05\""});
    refused("a colour without light", {"cct", "--from", "off=black"}, {"\"off\" gives no light"});
    refused("one colour to mix", {"mix", "red"}, {"two colours are needed"});
    refused("three colours to mix", {"mix", "red", "lime", "blue"}, {"more than two colours"});
    refused("ratio beyond 1", {"mix", "red", "lime", "--ratio", "1.01"}, {"--ratio cannot be \"1.01\"", "from 0 to 1"});
    refused("ratio that is no number", {"mix", "red", "lime", "--ratio", "nan"}, {"--ratio cannot be \"nan\""});
    refused("nothing to match on", {"match", "red"}, {"no fixture given", "5 \"WashLine QP6 RGBA\""});
    refused("mode of only one of two fixtures", words("match|red|--fixture|6|--fixture|5|--io-mode|RGBW"),
            {"unknown IO mode of WashLine QP6 RGBA"});
    const QByteArray table[] = {"dmx|-|--fixture|6", "convert|-|--to|yxy|--format|table", "cct|--from|-"};
    for (const QByteArray& arguments : table)
        refused("the first line of a table's input: " + arguments, words(arguments), {"line 1", "\"blck\""});
    refused("export in another form", words("swatches|show.xml|--export|Mine|--json"), {"--export"});
    refused("gamut of a single channel", words("gamut|--fixture|4"), {"\"Single Channel\" has a single channel"});
    refused("a place for darkness", words("gamut|red|off=black|--fixture|6"), {"\"off\" gives no light"});
    refused("fixture without a meaning", {"convert", "red", "--to", "rgb", "--fixture", "0"}, {"--fixture"});
}

void TestTool::refusals()
{
    QFETCH(QStringList, arguments);
    QFETCH(QStringList, contains);
    verifyRefused(run(arguments, "blck\nred\n"), contains);
}

void TestTool::dmxBytesAreTheLibrarys_data()
{
    QTest::addColumn<int>("fixture");
    QTest::addColumn<QString>("mode");
    QTest::addColumn<int>("modeId");
    QTest::addColumn<int>("channels");
    const auto row = [](const char* name, int fixture, const char* mode, ColorUtils::IOModeID modeId, int channels) {
        QTest::newRow(name) << fixture << QString(mode) << static_cast<int>(modeId) << channels;
    };
    row("generic RGB", 0, "", ColorUtils::IOModeRGB, 3);
    row("RGBAW, default mode makes five of three", 1, "", ColorUtils::IOModeRGBToRGBAW, 5);
    row("RGBAW one to one, by its layout", 1, "rgbaw", ColorUtils::IOModeRGBAW, 5);
    row("RGBAW as an RGB fixture", 1, "0", ColorUtils::IOModeRGB, 3);
    row("RGBWW one to one", 2, "RGBWW In/Out", ColorUtils::IOModeRGBWW, 5);
    row("generic RGBW", 3, "", ColorUtils::IOModeRGBW, 4);
    row("generic RGBW, fed three channels by a mode not in its list", 3, "rgb", ColorUtils::IOModeRGB, 3);
    row("single channel", 4, "", ColorUtils::IOModeSingleChannel, 1);
    row("RGBA", 5, "", ColorUtils::IOModeRGBA, 4);
    row("RGBW, by the beginning of a mode", 6, "rgb in / ", ColorUtils::IOModeRGBToRGBW, 4);
    row("RGBW", 6, "", ColorUtils::IOModeRGBW, 4);
    row("RGB with an onboard curve", 7, "", ColorUtils::IOModeRGB, 3);
    row("floodbar RGBA", 8, "", ColorUtils::IOModeRGBA, 4);
    row("floodbar RGBW", 9, "", ColorUtils::IOModeRGBW, 4);
}

void TestTool::dmxBytesAreTheLibrarys()
{
    QFETCH(int, fixture);
    QFETCH(QString, mode);
    QFETCH(int, modeId);
    QFETCH(int, channels);
    const auto id = static_cast<ColorUtils::TonematchProfileID>(fixture);
    QStringList arguments = QStringList{"dmx", "--fixture", QString::number(fixture), "--format", "dec"} + kColors;
    if (!mode.isEmpty())
        arguments += {"--io-mode", mode};
    const int ownCurve = ColorUtils::defaultCurveTypeForTonematchProfileID(id);

    const auto compare = [&](const QStringList& options, int directCurve, int onboardCurve, bool passThrough,
                             int bytes) {
        const Outcome outcome = run(arguments + options);
        QCOMPARE(outcome.err, QString());
        QCOMPARE(outcome.status, 0);
        QStringList expected;
        for (const QString& color : kColors)
            expected << joined(ColorUtils::updateBuffer(directCurve, onboardCurve, LXColor(color), passThrough,
                                                        channels, bytes, modeId, id));
        QCOMPARE(outcome.lines(), expected);
    };
    compare({}, 0, ownCurve, false, 1);
    compare({"--bits", "16", "--allow-rgb-pass-through"}, 0, ownCurve, true, 2);
    compare({"--direct-curve", "tung", "--onboard-curve", "LINEAR"}, 2, 0, false, 1);
    compare({"--direct-curve", "1", "--onboard-curve", "2", "--bits", "16"}, 1, 2, false, 2);
}

void TestTool::dmxLines_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("out");
    const QStringList blue("steelblue");
    QTest::newRow("dec") << dmx(blue, "--fixture|0|--format|dec") << "70,130,180\n";
    QTest::newRow("dec, 16 bit") << dmx(blue, "--fixture|0|--format|dec|--bits|16") << "70,70,130,130,180,180\n";
    QTest::newRow("hex") << dmx({"#0146ff"}, "--fixture|0|--format|hex") << "01 46 ff\n";
    QTest::newRow("hex, 16 bit") << dmx({"#0123456789ab"}, "--fixture|generic rgb|--format|hex|--bits|16")
                                 << "01 23 45 67 89 ab\n";
    QTest::newRow("full amber emitter of an RGBA fixture")
        << dmx({"aNchannel;6;5;65535;0;0;0;65535;0"}, "--fixture|5|--format|dec") << "0,0,0,255\n";
    QTest::newRow("three channels of four: no white from an RGB colour that passes through")
        << dmx({"white"}, "--fixture|6|--io-mode|6|--format|dec") << "255,255,255,0\n";
    QTest::newRow("table, labels and texts") << dmx({"my blue=steelblue", "#ff000a"}, "--fixture|generic rgb")
                                             << "Generic RGB, RGB In/Out, 8 bit\n"
                                                "  Red  Green  Blue  Colour\n"
                                                "   70    130   180  my blue\n"
                                                "  255      0    10  #ff000a\n";
    QTest::newRow("table, 16 bit") << dmx(blue, "--fixture|0|--bits|16")
                                   << "Generic RGB, RGB In/Out, 16 bit\n"
                                      "    Red  Green   Blue  Colour\n"
                                      "  17990  33410  46260  steelblue\n";
}

void TestTool::dmxLines()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, out);
    const Outcome outcome = run(arguments);
    QCOMPARE(outcome.err, QString());
    QCOMPARE(outcome.out, out);
    QCOMPARE(outcome.status, 0);
}

void TestTool::dmxJson()
{
    const Outcome outcome = run(dmx({"blue one=steelblue", "red"}, "--fixture|7|--bits|16|--json"));
    QCOMPARE(outcome.lines().size(), 2);
    const QJsonObject expected{{"color", "steelblue"},
                               {"label", "blue one"},
                               {"fixture", 7},
                               {"ioMode", 0},
                               {"bits", 16},
                               {"channels", QJsonArray{"Red", "Green", "Blue"}},
                               {"values", QJsonArray{17990, 33410, 46260}},
                               {"bytes", QJsonArray{70, 70, 130, 130, 180, 180}}};
    QCOMPARE(outcome.json(), expected);
    QCOMPARE(outcome.json(1).value("color"), QJsonValue("red"));
    QVERIFY(!outcome.json(1).contains("label"));
}

void TestTool::swatches()
{
    const QString blue = "\x1b[48;2;70;130;180m";
    QVERIFY(run(dmx({"steelblue"}, "--fixture|6|--swatches|always")).out.contains(blue));
    QVERIFY(run(words("convert|steelblue|--to|hsv|--format|table|--swatches|always")).out.contains(blue));
    // Standard output is a pipe here.
    QVERIFY(!run(dmx({"steelblue"}, "--fixture|6")).out.contains('\x1b'));
}

void TestTool::convertLines_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("out");
    const auto row = [](const char* name, const char* arguments, const QString& out) {
        QTest::newRow(name) << QStringList("convert") + words(arguments) << out;
    };
    const LXColor blue("steelblue");
    const LXColor warmWhite("aYxy;1;0;65535;1.000000;0.459900;0.410600");
    const LXColor white("aNchannel;3;6;65535;0;0;0;65535;0");
    row("rgb", "steelblue|--to|rgb", "aRgb;1;0;#ffff46468282b4b4\n");
    row("hsv is written as rgb", "#80ff0000|--to|hsv", "aRgb;1;0;#8080ffff00000000\n");
    row("yxy", "steelblue|--to|yxy", blue.toYxy(ColorUtils::ConfigUnknown, ColorUtils::ProfileNone, -1).aName() + '\n');
    row("chromaticity", "0.25,0.375|--to|yxy", "aYxy;1;0;65535;1.000000;0.250000;0.375000\n");
    double x = 0.0;
    double y = 0.0;
    QVERIFY(CCTUtils::getxyFromCCT(3200, x, y));
    row("CCT", "3200k|--to|yxy", LXColor::fromxyY(x, y, 1.0, ColorUtils::ProfileGenericRGB).aName() + '\n');
    row("yxy through the emitters of a fixture", "steelblue|--to|yxy|--fixture|8",
        blue.toYxy(ColorUtils::ConfigRGBA, ColorUtils::ProfileFloodBarZN2RGBA, -1).aName() + '\n');
    row("yxy of levels, through the emitters they were made for", "aNchannel;3;6;65535;0;0;0;65535;0|--to|yxy",
        white.toYxy(ColorUtils::ConfigUnknown, ColorUtils::ProfileNone, -1).aName() + '\n');
    row("levels", "aYxy;1;0;65535;1.000000;0.459900;0.410600|--to|nchannel|--fixture|flare",
        warmWhite.toNChannel16(ColorUtils::ConfigRGBAW, ColorUtils::ProfileFlareFlashQVS, -1).aName() + '\n');
    row("a line a colour", "red|x=lime|blue|--to|rgb",
        "aRgb;1;0;#ffffffff00000000\naRgb;1;0;#ffff0000ffff0000\naRgb;1;0;#ffff00000000ffff\n");
    row("table of rgb", "#80ff0001|--to|rgb|--format|table",
        "     Alpha       Red     Green      Blue  Colour\n"
        "     32896     65535         0       257  #80ff0001\n");
    row("table of hsv, grey without a hue", "lime|gray|--to|hsv|--format|table",
        "     Alpha       Hue  Saturation     Value  Colour\n"
        "    1.0000    120.00      1.0000    1.0000  lime\n"
        "    1.0000         -      0.0000    0.5020  gray\n");
    row("table of yxy", "red|--to|yxy|--format|table",
        "     Alpha         Y         x         y  Colour\n"
        "    1.0000  1.000000  0.640000  0.330000  red\n");
    row("table of levels", "aNchannel;6;5;65535;1;2;3;4;0|--to|nchannel|--fixture|5|--format|table",
        "     Alpha       Red     Green      Blue     Amber  Colour\n"
        "     65535         1         2         3         4  aNchannel;6;5;65535;1;2;3;4;0\n");
}

void TestTool::convertLines() { dmxLines(); }

void TestTool::convertJson()
{
    const QJsonObject hsv = run(words("convert|x=gray|--to|hsv|--format|json")).json();
    QCOMPARE(hsv.value("hueDegrees"), QJsonValue(QJsonValue::Null));
    QCOMPARE(hsv.value("label"), QJsonValue("x"));
    QCOMPARE(hsv.value("valueString"), QJsonValue("aRgb;1;0;#ffff808080808080"));
    const QJsonObject rgb = run(words("convert|steelblue|--to|rgb|--format|json")).json();
    QCOMPARE(rgb.value("red16").toInt(), 0x4646);
    QCOMPARE(rgb.value("name"), QJsonValue("#4682b4"));
    const QJsonObject yxy = run(words("convert|aYxy;1;0;65535;0.5;0.3;0.4|--to|yxy|--format|json")).json();
    QCOMPARE(yxy.value("Y").toDouble(), 0.5);
    QCOMPARE(yxy.value("x").toDouble(), 0.3);
    const QJsonObject levels =
        run(words("convert|aNchannel;3;6;65535;1;2;3;4;1|--to|nchannel|--fixture|6|--format|json")).json();
    QCOMPARE(levels.value("levels16").toArray(), (QJsonArray{1, 2, 3, 4}));
    QCOMPARE(levels.value("channels").toArray(), (QJsonArray{"Red", "Green", "Blue", "White"}));
    QCOMPARE(levels.value("renderType"), QJsonValue("colorimetric"));
}

void TestTool::cctTable()
{
    // 3209 counts as 3200, 4290 as the step below; the same lights have the same numbers.
    const Outcome outcome = run(words("cct|3209|3200K|4290|4280|--tint|-500"));
    QVERIFY2(ok(outcome), qPrintable(outcome.err));
    const QStringList lines = outcome.lines();
    QCOMPARE(lines.at(0), QString("  Kelvin    Tint       x       y      u'      v'  Colour"));
    const auto numbers = [&](int line) { return lines.value(line).left(lines.at(0).indexOf("  Colour")); };
    QVERIFY2(numbers(1).startsWith("    3200    -500  0.4"), qPrintable(lines.at(1)));
    QVERIFY2(numbers(3).startsWith("    4280    -500  0.3"), qPrintable(lines.at(3)));
    QCOMPARE(numbers(2), numbers(1));
    QCOMPARE(numbers(4), numbers(3));
    QVERIFY(lines.at(1).endsWith("  3209"));
}

void TestTool::cctJson()
{
    double x = 0.0;
    double y = 0.0;
    QVERIFY(CCTUtils::getxyFromCCTAndTint(5605, 1500, x, y));
    const Outcome outcome = run(words("cct|5605|--tint|1500|--json"));
    QVERIFY2(ok(outcome), qPrintable(outcome.err));
    QCOMPARE(outcome.json(), (QJsonObject{{"kelvin", 5605},
                                          {"gridKelvin", 5600},
                                          {"tint", 1500},
                                          {"inRange", true},
                                          {"x", x},
                                          {"y", y},
                                          {"uPrime", CCTUtils::getuPrimeFromxy(x, y)},
                                          {"vPrime", CCTUtils::getvPrimeFromxy(x, y)},
                                          {"valueString", LXColor(x, y).aName()}}));
}

void TestTool::cctFromColors()
{
    // What cct prints for programs, it reads.
    const Outcome made = run(words("cct|2700|5600|--tint|-2000|--format|value"));
    const Outcome back = run(words("cct|--from|-|--from|it=0.3,0.6|--json"), made.out.toUtf8());
    QVERIFY2(ok(back), qPrintable(back.err));
    QCOMPARE(back.lines().size(), 3);
    QCOMPARE(back.json(0).value("kelvin").toInt(), 2700);
    QCOMPARE(back.json(1).value("kelvin").toInt(), 5600);
    QVERIFY(qAbs(back.json(1).value("tint").toInt() + 2000) < 5); // six decimals of x and y
    QCOMPARE(back.json(1).value("inRange"), QJsonValue(true));
    QCOMPARE(back.json(2).value("inRange"), QJsonValue(false));
    QCOMPARE(back.json(2).value("label"), QJsonValue("it"));
    // Through the emitters of the fixture that a colour was made for.
    QVERIFY(run(words("cct|--from|aNchannel;3;6;65535;0;0;0;65535;0")).lines().at(1).startsWith("    4690     698"));
    const Outcome refused = run(words("cct|--from|-|--format|value"), "white\nblack\nwhite\n");
    QCOMPARE(refused.lines().size(), 1);
    QCOMPARE(refused.err, QString("lxcolor: standard input, line 2: \"black\" gives no light, so it has no CCT\n"));
}

void TestTool::mix_data()
{
    QTest::addColumn<QString>("a");
    QTest::addColumn<QString>("b");
    QTest::addColumn<double>("ratio"); // below 0: laid over
    QTest::addColumn<QString>("valueString");
    const auto row = [](const char* name, const char* a, const char* b, double ratio, const LXColor& mixed) {
        QTest::newRow(name) << QString(a) << QString(b) << ratio << mixed.aName();
    };
    const LXColor red("#80ff0000");
    const LXColor blue("steelblue");
    const LXColor light("aYxy;1;0;65535;1.000000;0.459900;0.410600");
    row("over", "#80ff0000", "steelblue", -1, LXColor::mix(red, blue));
    row("an opaque one over another", "steelblue", "#80ff0000", -1, blue);
    row("over a chromaticity", "#80ff0000", "0.4599,0.4106", -1, LXColor::mix(red, light));
    row("blend", "#80ff0000", "steelblue", 0.25, LXColor::blend(red, blue, 0.25));
    row("blend with a chromaticity", "steelblue", "0.4599,0.4106", 0.75, LXColor::blend(blue, light, 0.75));
    row("all of B", "steelblue", "#80ff0000", 0, red);
}

void TestTool::mix()
{
    QFETCH(QString, a);
    QFETCH(QString, b);
    QFETCH(double, ratio);
    QFETCH(QString, valueString);
    QStringList arguments{"mix", a, "second=" + b};
    if (ratio >= 0)
        arguments += {"--ratio", QString::number(ratio)};
    QCOMPARE(run(arguments).out, valueString + '\n');

    const QJsonObject json = run(arguments << "--json").json();
    const LXColor mixed(valueString);
    QCOMPARE(json.value("operation").toString(), QString(ratio < 0 ? "over" : "blend"));
    QCOMPARE(json.value("ratio"), ratio < 0 ? QJsonValue() : QJsonValue(ratio));
    QCOMPARE(json.value("valueString").toString(), valueString);
    QCOMPARE(json.value("b").toObject(),
             (QJsonObject{{"color", b}, {"label", "second"}, {"valueString", readAs(b).aName()}}));
    QVERIFY(qAbs(json.value("green16").toInt() - static_cast<int>(mixed.toRgb16(true).green16())) <= 1);
    QVERIFY(qAbs(json.value("x").toDouble() - mixed.getx()) < 2e-5);
}

void TestTool::mixTable()
{
    QCOMPARE(run(words("mix|#800000ff|veil=#00ffffff|--format|table")).out,
             QString("   Alpha     Red   Green    Blue       Y       x       y      u'      v'  Colour\n"
                     "   32896       0       0   65535  1.0000  0.1500  0.0600  0.1754  0.1579  #800000ff\n"
                     "       0   65535   65535   65535  1.0000  0.3128  0.3292  0.1978  0.4684  veil\n"
                     "   32896   32639   32639   65535  1.0000  0.2664  0.2524  0.1939  0.4133  mix\n"));
}

void TestTool::matchJson()
{
    const QStringList arguments = words("match|far=0.16,0.015|red|--fixture|6|--fixture|7|--bits|16|--json|"
                                        "--io-mode|0|--direct-curve|1|--onboard-curve|2|--allow-rgb-pass-through");
    const Outcome outcome = run(arguments);
    QVERIFY2(ok(outcome), qPrintable(outcome.err));
    QCOMPARE(outcome.lines().size(), 4);
    int line = 0;
    for (const LXColor& color : {LXColor(0.16, 0.015), LXColor("red")}) {
        for (const auto fixture : {ColorUtils::ProfileWashLineQP6RGBW, ColorUtils::ProfilePixelNodeRGB}) {
            QJsonObject expected = MatchReport::make(color, {fixture, ColorUtils::IOModeRGB, 2, 1, 2, true}).toJson();
            expected.insert("color", line < 2 ? "0.16,0.015" : "red");
            if (line < 2)
                expected.insert("label", "far");
            QCOMPARE(outcome.json(line), expected);
            ++line;
        }
    }
}

void TestTool::matchWords()
{
    QCOMPARE(run(words("match|0.16,0.015|off=black|--fixture|6|--format|words")).lines(),
             (QStringList{"0.16,0.015: Outside the gamut of WashLine QP6 RGBW: moved 0.181 u'v' to the blue corner.",
                          "off: Black: WashLine QP6 RGBW stays dark."}));
}

void TestTool::matchTable()
{
    const Outcome outcome = run(words("match|blue=0.16,0.015|black|--fixture|6"));
    QVERIFY2(ok(outcome), qPrintable(outcome.err));
    QCOMPARE(outcome.out.section("\n\nblack\n", 0, 0) + '\n',
             QString("blue\n"
                     "  Outside the gamut of WashLine QP6 RGBW: moved 0.181 u'v' to the blue corner.\n\n"
                     "                  Y       x       y      u'      v'\n"
                     "  asked for  1.0000  0.1600  0.0150  0.2238  0.0472\n"
                     "  aimed at   1.0000  0.1460  0.0900  0.1542  0.2138\n"
                     "  shown      1.0000  0.1460  0.0900  0.1542  0.2138\n\n"
                     "  channel   level  sent  output\n"
                     "  Red      0.0000     0  0.0000\n"
                     "  Green    0.0000     0  0.0000\n"
                     "  Blue     1.0000   255  1.0000\n"
                     "  White    0.0000     0  0.0000\n\n"
                     "  0.18058 u'v' off; rounding alone: 0.00000 at 8 bits, 0.00000 at 16 bits\n"
                     "  100.0 % of the light that it has in this colour\n"));
    QVERIFY2(outcome.out.contains("  shown      0.0000  -  -   -   -\n"), qPrintable(outcome.out));
}

void TestTool::gamut()
{
    const Outcome table = run(words("gamut|blue=0.16,0.015|3200K|--fixture|1|--fixture|6"));
    QVERIFY2(ok(table), qPrintable(table.err));
    QCOMPARE(table.out,
             QString("1 Flare/Flash QVS\n"
                     "                x       y      u'      v'\n"
                     "    Red    0.6947  0.3053  0.5268  0.5210\n"
                     "    Green  0.1969  0.7371  0.0688  0.5793\n"
                     "    Blue   0.1420  0.0126  0.1981  0.0395\n"
                     "    Amber  0.5593  0.4352  0.3149  0.5514\n"
                     "    area: 0.11984 u'v', 184.7 % of sRGB's\n"
                     "    with all emitters: 0.12062 u'v', 185.9 % of sRGB's\n"
                     "6 WashLine QP6 RGBW\n"
                     "                x       y      u'      v'\n"
                     "    Red    0.6810  0.3070  0.5118  0.5192\n"
                     "    Green  0.2120  0.6850  0.0785  0.5710\n"
                     "    Blue   0.1460  0.0900  0.1542  0.2138\n"
                     "    area: 0.07543 u'v', 116.2 % of sRGB's\n"
                     "\n"
                     "  Inside       x       y      u'      v'     Off  Colour\n"
                     "      no  0.1570  0.0206  0.2142  0.0631  0.0186  blue, Flare/Flash QVS: the blue-red edge\n"
                     "      no  0.1460  0.0900  0.1542  0.2138  0.1806  blue, WashLine QP6 RGBW: the blue corner\n"
                     "     yes  0.4235  0.3989  0.2441  0.5173  0.0000  3200K, Flare/Flash QVS\n"
                     "     yes  0.4235  0.3989  0.2441  0.5173  0.0000  3200K, WashLine QP6 RGBW\n"));

    const Outcome json = run(words("gamut|amber=0.559,0.435|--fixture|1|--json"));
    QCOMPARE(json.lines().size(), 2);
    QCOMPARE(json.json(0).value("triangle").toObject().value("corners").toArray().size(), 3);
    QCOMPARE(json.json(0).value("hull").toObject().value("corners").toArray().size(), 4);
    QCOMPARE(json.json(1).value("label").toString(), QString("amber"));
    QCOMPARE(json.json(1).value("inside"), QJsonValue(false));
    QCOMPARE(json.json(1).value("insideHull"), QJsonValue(true));
    QCOMPARE(json.json(1).value("side").toString(), QString("redGreen"));
    QCOMPARE(run({"gamut", "--json"}).lines().size(), 9); // all but the single channel
}

void TestTool::fixtures()
{
    const Outcome text = run({"fixtures"});
    const QJsonArray array = QJsonDocument::fromJson(run({"fixtures", "--json"}).out.toUtf8()).array();
    const QList<ColorUtils::TonematchProfileID> ids = ColorUtils::tonematchProfileIDList(true);
    QCOMPARE(text.status, 0);
    QCOMPARE(array.size(), ids.size());
    for (const ColorUtils::TonematchProfileID id : ids) {
        const QJsonObject fixture = array.at(id).toObject();
        const ToneMatchProfile* profile = TonematchProfileFactory::instance()->getProfile(id);
        QVERIFY(text.lines().contains(QString::number(id) + ' ' + profile->name()));
        QCOMPARE(fixture.value("id").toInt(-1), static_cast<int>(id));
        QCOMPARE(fixture.value("name").toString(), profile->name());
        QCOMPARE(fixture.value("layout").toObject().value("id").toInt(),
                 static_cast<int>(profile->getChannelConfiguration()));
        QCOMPARE(fixture.value("channels").toArray().size(),
                 ColorUtils::configChannelCount(profile->getChannelConfiguration()));
        QCOMPARE(fixture.value("defaultIoMode").toObject().value("id").toInt(),
                 static_cast<int>(profile->getDefaultIOModeID()));
        QCOMPARE(fixture.value("defaultIoMode3toN").toObject().value("id").toInt(),
                 static_cast<int>(profile->getDefaultIOModeID3toN()));
        QCOMPARE(fixture.value("onboardCurve").toObject().value("id").toInt(), profile->getDefaultOnboardCurve());
        QCOMPARE(fixture.value("ioModes").toArray().size(), profile->getAvailableIOModeIDs().size());
    }
    QCOMPARE(run({"fixtures", "--format", "names"}).lines(), ColorUtils::tonematchProfileIDNameList(true));
    const QJsonObject red = array.at(0).toObject().value("emitters").toArray().at(0).toObject();
    QCOMPARE(red.value("name").toString(), QString("Red"));
    QVERIFY(qAbs(red.value("x").toDouble() - 0.64) < 1e-6);
    QVERIFY(qAbs(red.value("y").toDouble() - 0.33) < 1e-6);
    QVERIFY(text.out.contains("Amber   x 0.5593  y 0.4352"));
    QCOMPARE(array.at(4).toObject().value("channels").toArray(), QJsonArray{"Single Channel"});
    const QJsonObject qvsMode = array.at(1).toObject().value("ioModes").toArray().at(2).toObject();
    QCOMPARE(qvsMode, (QJsonObject{{"id", 3}, {"name", "RGBAW In/Out"}, {"toneMatch", false}}));
}

void TestTool::standardInput_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<QString>("out");
    QTest::addColumn<QString>("error"); // the beginning, after the program's name; empty for none
    const auto row = [](const char* name, const QByteArray& input, const char* out, const char* error) {
        QTest::newRow(name) << input << QString(out) << QString(error);
    };
    row("in its place among the arguments", "lime\n", "255,0,0\n0,255,0\n0,0,255\n", "");
    row("nothing", "", "255,0,0\n0,0,255\n", "");
    row("no line end at the end", "lime\nlime", "255,0,0\n0,255,0\n0,255,0\n0,0,255\n", "");
    row("line ends of another system, blank lines, blanks, labels", "\r\nlime\r\n\n  go = lime  \n",
        "255,0,0\n0,255,0\n0,255,0\n0,0,255\n", "");
    row("longest line", QByteArray(4092, ' ') + "lime\nlime\n", "255,0,0\n0,255,0\n0,255,0\n0,0,255\n", "");
    row("a line too long", "lime\n" + QByteArray(4093, ' ') + "lime\n", "255,0,0\n0,255,0\n",
        "standard input, line 2: longer than 4096 bytes");
    row("a bad line ends the work, the lines before it stand", "lime\n\nlimee\nlime\n", "255,0,0\n0,255,0\n",
        "standard input, line 3: cannot read the colour \"limee\", did you mean \"lime\"?");
    row("bytes that are no UTF-8", "\xff\xfe\n", "255,0,0\n", "standard input, line 1: cannot read");
    row("a zero byte", QByteArray("lime\0\n", 6), "255,0,0\n", "standard input, line 1: cannot read");
}

void TestTool::standardInput()
{
    QFETCH(QByteArray, input);
    QFETCH(QString, out);
    QFETCH(QString, error);
    const Outcome outcome = run(dmx({"red", "-", "blue"}, "--fixture|0|--format|dec"), input);
    QCOMPARE(outcome.out, out);
    QCOMPARE(outcome.status, error.isEmpty() ? 0 : 2);
    if (error.isEmpty())
        QCOMPARE(outcome.err, QString());
    else
        QVERIFY2(outcome.err.startsWith("lxcolor: " + error), qPrintable(outcome.err));
}

void TestTool::answersEachLineAsItComes()
{
    QProcess process;
    process.start(program(), dmx({"-"}, "--fixture|0|--format|dec"));
    for (int i = 0; i < 3; ++i) {
        process.write("#0a141e\n");
        while (!process.canReadLine())
            QVERIFY(process.waitForReadyRead(60000));
        QCOMPARE(process.readLine(), QByteArray("10,20,30\n"));
    }
    process.closeWriteChannel();
    QCOMPARE(finish(process).status, 0);
}

void TestTool::memoryStaysTheSame_data()
{
    QTest::addColumn<QStringList>("arguments");
    for (const char* arguments : {"dmx|-|--fixture|6|--json", "convert|-|--to|yxy|--format|table",
                                  "match|-|--fixture|6|--format|words", "gamut|-|--fixture|6"})
        QTest::newRow(arguments) << words(arguments);
}

void TestTool::memoryStaysTheSame()
{
#ifdef LXCOLOR_SANITIZED
    QSKIP("sanitizers keep what is freed");
#endif
    QFETCH(QStringList, arguments);
    QProcess process;
    process.start(program(), arguments);
    QVERIFY(process.waitForStarted());
    const auto pages = [&] {
        QFile file(QStringLiteral("/proc/%1/statm").arg(process.processId()));
        return file.open(QIODevice::ReadOnly) ? file.readAll().split(' ').value(1).toInt() : 0;
    };
    if (pages() == 0)
        QSKIP("there is no /proc here");
    // Each answer is waited for, so that nothing is kept in the pipes.
    const auto stream = [&](int count) {
        for (int i = 0; i < count; ++i) {
            process.write(QByteArray("#123456\n0.31,0.33\n").repeated(250));
            for (int lines = 0; lines < 500; lines += process.readAll().count('\n'))
                if (!process.waitForReadyRead(60000))
                    return false;
        }
        return true;
    };
    QVERIFY(stream(10));
    const int before = pages();
    QVERIFY(stream(100));
    QVERIFY2(pages() - before < 250, qPrintable(QString::number(pages() - before))); // 1 MB for 50000 lines
    process.closeWriteChannel();
    QCOMPARE(finish(process).status, 0);
}

void TestTool::readerThatGoesAway()
{
    const Outcome outcome = runInShell("{ yes red | \"$0\" dmx - --fixture 0 --format dec; echo $? >&2; } | head -n 2");
    QCOMPARE(outcome.out, QString("255,0,0\n255,0,0\n"));
    QCOMPARE(outcome.err, QString("0\n"));
}

void TestTool::fullDisk()
{
    if (!QFile::exists("/dev/full"))
        QSKIP("there is no /dev/full here");
    const Outcome outcome = runInShell("\"$0\" fixtures > /dev/full");
    QCOMPARE(outcome.status, 1);
    QVERIFY2(outcome.err.startsWith("lxcolor: cannot write to standard output: "), qPrintable(outcome.err));
}

QTEST_GUILESS_MAIN(TestTool)
#include "tst_tool.moc"
