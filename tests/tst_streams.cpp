#include "LXColor.h"
#include "Support.h"

#include <QDataStream>
#include <QLinearGradient>
#include <QMimeData>
#include <QScopedPointer>

#include <algorithm>
#include <random>

Q_DECLARE_METATYPE(LXColor)

using CU = ColorUtils;

namespace {

QByteArray bytesOf(const LXColor& color, QDataStream::ByteOrder order = QDataStream::BigEndian)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setByteOrder(order);
    stream << color;
    return bytes;
}

LXColor readInto(LXColor color, const QByteArray& bytes)
{
    QDataStream stream(bytes);
    stream >> color;
    return color;
}

QByteArray hex(const char* digits) { return QByteArray::fromHex(digits); }

template <typename T>
QString debugText(const T& value)
{
    QString text;
    QDebug(&text) << value;
    return text;
}

/// Calls everything that a colour can be asked.
void ask(const LXColor& color)
{
    const QVector<LXColor> faces = {color.toRgb16(true), color.toRgb16(false), color.toHsv16(),
                                    color.toYxy(CU::ConfigUnknown, CU::ProfileNone, -1),
                                    color.toNChannel16(CU::ConfigRGBAW, CU::ProfileFlareFlashQVS, -1)};
    for (const LXColor& face : faces)
        QVERIFY(face.isValid() == color.isValid());
    for (int spec = -1; spec <= 5; ++spec)
        color.convertTo(static_cast<LXColor::Spec>(spec), CU::ConfigRGBW, CU::ProfileWashLineQP6RGBW);

    int hue = 0;
    uint words[3];
    color.getHsv16(&hue, &words[0], &words[1], &words[2]);
    QVERIFY(words[0] <= 65535 && words[1] <= 65535 && words[2] == color.alpha16());
    QVERIFY(color.hue8() >= -1 && color.hue8() <= 359);
    double values[4];
    color.getHsvF(&values[0], &values[1], &values[2], &values[3]);
    color.getRgbF(&values[0], &values[1], &values[2], &values[3]);
    color.getYxyF(&values[0], &values[1], &values[2], &values[3]);
    QVector<double> levels;
    color.getNChannelF(&levels, nullptr, nullptr);

    color.isBlack();
    color.getNChannelRenderType();
    color.getQColor(true);
    color.rgba();
    LXColor::blend(color, LXColor(Qt::red), 0.5);
    LXColor::mix(LXColor::fromRgba(0x80112233), color);
    LXColor::unpremultiply(LXColor::premultiply(color));
    debugText(color);
    color.name();
    color.nameFull8();
    color.aName();
    QScopedPointer<QMimeData> mime(color.mimeData());
    QVERIFY(bytesOf(color).size() == 17);
    CU::updateBuffer(1, 2, color, true, 5, 2, CU::IOModeRGBAW, CU::ProfileFlareFlashQVS);
    LXColor under(Qt::gray);
    CU::updateColor(under, color);
    LXColor changed = color;
    changed.setRed8(1);
    changed = color;
    changed.setx(0.25);
    QVERIFY(changed.spec() == LXColor::Yxy);
    Messages::take();
}

} // namespace

class TestStreams : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void writesWords_data();
    void writesWords();
    void readsIntoAColour();
    void shortStreams();
    void anyBytes();
    void debugForm_data();
    void debugForm();
    void debugSpacingStays();
    void mimeForm_data();
    void mimeForm();
};

void TestStreams::writesWords_data()
{
    QTest::addColumn<LXColor>("color");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("RGB") << LXColor(0x1234, 0, 0xffff, 0xffff) << hex("01 ffffffff 12341234 00000000 ffffffff");
    QTest::newRow("HSV") << LXColor::fromHsv16(300, 0x1000, 0x2000, 0x8001, CU::ProfilePixelNodeRGB)
                         << hex("02 80018001 00007530 10001000 20002000");
    QTest::newRow("achromatic") << LXColor::fromHsv8(-1, 0, 255, 0, CU::ProfileGenericRGB)
                                << hex("02 00000000 ffffffff 00000000 ffffffff");
    QTest::newRow("Yxy, Y 1.0, low half first") << LXColor(0.3, 0.3) << hex("03 ffffffff 00000000 00000000 3ff00000");
    LXColor levels = LXColor::fromNChannel8({1, 2, 3, 4}, CU::ConfigRGB, CU::ProfileGenericRGB);
    levels.setNChannelRenderType(LXColor::NChannelColorimetric);
    QTest::newRow("N-channel") << levels << hex("04 01010101 00000001 00000000 00000000");
    QTest::newRow("invalid") << LXColor() << hex("00 ffffffff 00000000 00000000 00000000");
}

void TestStreams::writesWords()
{
    QFETCH(LXColor, color);
    QFETCH(QByteArray, bytes);
    QCOMPARE(bytesOf(color).toHex(' '), bytes.toHex(' '));

    // In the other byte order each word turns round.
    for (int word = 1; word < bytes.size(); word += 4)
        std::reverse(bytes.begin() + word, bytes.begin() + word + 4);
    QCOMPARE(bytesOf(color, QDataStream::LittleEndian).toHex(' '), bytes.toHex(' '));
}

void TestStreams::readsIntoAColour()
{
    const LXColor rgb(0x1234, 0, 0xffff, 0xffff);
    QCOMPARE(readInto(LXColor(), bytesOf(rgb)), rgb);

    LXColor target = LXColor::fromNChannel16({1, 2, 3}, CU::ConfigRGBA, CU::ProfileWashLineQP6RGBA);
    target = readInto(target, bytesOf(rgb));
    QCOMPARE(target.getTonematchProfileID(), CU::ProfileWashLineQP6RGBA);
    QCOMPARE(target.getChannelConfiguration(), CU::ConfigRGBA);
    QCOMPARE(target.nameFull8(), QString("255,0,0"));

    const LXColor yxy = readInto(LXColor(), bytesOf(LXColor::fromxyY(0.3, 0.4, 0.7, CU::ProfileGenericRGB)));
    QCOMPARE(yxy.aName(), QString("aYxy;1;0;65535;0.700000;0.000000;0.000000"));
}

void TestStreams::shortStreams()
{
    const QByteArray bytes = bytesOf(LXColor(0x1234, 0x5678, 0x9abc, 0xdef0));
    QCOMPARE(readInto(LXColor(1, 2, 3, 4), bytes.left(9)), LXColor(0x1234, 0, 0, 0xdef0));
    const LXColor nothing = readInto(LXColor(1, 2, 3, 4), QByteArray());
    QVERIFY(!nothing.isValid());
    QCOMPARE(nothing.alpha16(), 0u);
}

void TestStreams::anyBytes()
{
    std::mt19937 random(2718);
    const QVector<quint32> words = {0,     1,          35999,      36000,      36001,      359999,     0x7ff00000,
                                    0xfff, 0x7ff80000, 0xfffffffe, 0xffffffff, 0x80000000, 0x3ff00000, 0x43f00000};
    const auto wordCount = static_cast<uint>(words.size());
    for (const int spec : {0, 1, 2, 3, 4, 5, 127, -128, -1}) {
        for (int i = 0; i < 300; ++i) {
            QByteArray bytes;
            QDataStream stream(&bytes, QIODevice::WriteOnly);
            stream << static_cast<qint8>(spec);
            for (int word = 0; word < 4; ++word)
                stream << (i % 3 ? words[static_cast<int>(random() % wordCount)] : static_cast<quint32>(random()));
            LXColor color = LXColor::fromNChannel16({1, 2, 3}, CU::ConfigRGBW, CU::ProfileWashLineQP6RGBW);
            color = readInto(color, bytes);
            QCOMPARE(static_cast<int>(color.spec()), spec);
            QCOMPARE(bytesOf(color), bytes);
            if (spec < 1 || spec > 4) {
                QVERIFY(color != LXColor(color));
                QVERIFY(spec == 0 || color.toRgb16(true).isBlack());
                QCOMPARE(color.aName(), QString());
            }
            ask(color);
            if (QTest::currentTestFailed())
                QFAIL(bytes.toHex(' ').constData());
        }
    }
}

void TestStreams::debugForm_data()
{
    QTest::addColumn<LXColor>("color");
    QTest::addColumn<QString>("text");
    QTest::newRow("invalid") << LXColor() << "LXColor(Invalid)";
    QTest::newRow("RGB") << LXColor(Qt::black) << "LXColor(ARGB 65535, 0, 0, 0)";
    QTest::newRow("HSV") << LXColor(0x1234, 0, 0, 0xff).toHsv16() << "LXColor(ARGB 255, 4660, 0, 0)";
    QTest::newRow("Yxy") << LXColor(0.3127, 0.329) << "LXColor(AYxy 65535, 1, 0.3127, 0.329)";
    QTest::newRow("N-channel") << LXColor::fromNChannel8({255, 1}, CU::ConfigRGB, CU::ProfileGenericRGB) << "";
    QTest::newRow("no face") << readInto(LXColor(), QByteArray(17, '\x11')) << "";
}

void TestStreams::debugForm()
{
    QFETCH(LXColor, color);
    qDebug() << color;
    QTEST(Messages::takeTexts().value(0), "text");
}

void TestStreams::debugSpacingStays()
{
    QString spaced;
    QDebug(&spaced) << LXColor() << 1 << 2;
    QCOMPARE(spaced, QString("LXColor(Invalid) 1 2 "));
    QString tight;
    QDebug(&tight).nospace() << LXColor() << 1 << 2;
    QCOMPARE(tight, QString("LXColor(Invalid)12"));
}

void TestStreams::mimeForm_data()
{
    QTest::addColumn<LXColor>("color");
    QTest::addColumn<QByteArray>("data");
    QTest::newRow("red") << LXColor(Qt::red) << QByteArray("aRgb;1;0;#ffffffff00000000");
    QTest::newRow("levels") << LXColor::fromNChannel16({65535, 100, 200}, CU::ConfigRGBW, CU::ProfileWashLineQP6RGBW)
                            << QByteArray("aNchannel;3;6;65535;100;200;0");
    QTest::newRow("invalid") << LXColor() << QByteArray();
}

void TestStreams::mimeForm()
{
    QFETCH(LXColor, color);
    const QScopedPointer<QMimeData> mime(color.mimeData());
    QCOMPARE(mime->formats(), QStringList("data/x-lxcolor"));
    QTEST(mime->data(LXCOLOR_MIME_TYPE), "data");
}

QTEST_APPLESS_MAIN(TestStreams)
#include "tst_streams.moc"
