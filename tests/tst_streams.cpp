// Streams, debug output and drags of a colour; any bytes in a stream are for fuzz_color_stream.
#include "LXColor.h"
#include "Support.h"

#include <QDataStream>
#include <QLinearGradient>
#include <QMimeData>
#include <QScopedPointer>

#include <algorithm>

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

} // namespace

class TestStreams : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void writesWords_data()
    {
        const Rows<LXColor, QByteArray> row;
        row("RGB", LXColor(0x1234, 0, 0xffff, 0xffff), hex("01 ffffffff 12341234 00000000 ffffffff"));
        row("HSV", LXColor::fromHsv16(300, 0x1000, 0x2000, 0x8001, CU::ProfilePixelNodeRGB),
            hex("02 80018001 00007530 10001000 20002000"));
        row("achromatic", LXColor::fromHsv8(-1, 0, 255, 0, CU::ProfileGenericRGB),
            hex("02 00000000 ffffffff 00000000 ffffffff"));
        row("Yxy, Y 1.0, low half first", LXColor(0.3, 0.3), hex("03 ffffffff 00000000 00000000 3ff00000"));
        LXColor levels = LXColor::fromNChannel8({1, 2, 3, 4}, CU::ConfigRGB, CU::ProfileGenericRGB);
        levels.setNChannelRenderType(LXColor::NChannelColorimetric);
        row("N-channel", levels, hex("04 01010101 00000001 00000000 00000000"));
        row("invalid", LXColor(), hex("00 ffffffff 00000000 00000000 00000000"));
    }
    void writesWords()
    {
        auto [color, bytes] = fetched<LXColor, QByteArray>();
        QCOMPARE(bytesOf(color).toHex(' '), bytes.toHex(' '));

        // In the other byte order each word turns round.
        for (int word = 1; word < bytes.size(); word += 4)
            std::reverse(bytes.begin() + word, bytes.begin() + word + 4);
        QCOMPARE(bytesOf(color, QDataStream::LittleEndian).toHex(' '), bytes.toHex(' '));
    }

    void readsIntoAColour()
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

    void shortStreams()
    {
        const QByteArray bytes = bytesOf(LXColor(0x1234, 0x5678, 0x9abc, 0xdef0));
        QCOMPARE(readInto(LXColor(1, 2, 3, 4), bytes.left(9)), LXColor(0x1234, 0, 0, 0xdef0));
        const LXColor nothing = readInto(LXColor(1, 2, 3, 4), QByteArray());
        QVERIFY(!nothing.isValid());
        QCOMPARE(nothing.alpha16(), 0u);
    }

    void debugForm_data()
    {
        const Rows<LXColor, QString> row;
        row("invalid", LXColor(), "LXColor(Invalid)");
        row("RGB", LXColor(Qt::black), "LXColor(ARGB 65535, 0, 0, 0)");
        row("HSV", LXColor(0x1234, 0, 0, 0xff).toHsv16(), "LXColor(ARGB 255, 4660, 0, 0)");
        row("Yxy", LXColor(0.3127, 0.329), "LXColor(AYxy 65535, 1, 0.3127, 0.329)");
        row("N-channel", LXColor::fromNChannel8({255, 1}, CU::ConfigRGB, CU::ProfileGenericRGB), "");
        row("no face", readInto(LXColor(), QByteArray(17, '\x11')), "");
    }
    void debugForm()
    {
        const auto [color, text] = fetched<LXColor, QString>();
        qDebug() << color;
        QCOMPARE(Messages::takeTexts().value(0), text);
    }

    void debugSpacingStays()
    {
        QString spaced;
        QDebug(&spaced) << LXColor() << 1 << 2;
        QCOMPARE(spaced, QString("LXColor(Invalid) 1 2 "));
        QString tight;
        QDebug(&tight).nospace() << LXColor() << 1 << 2;
        QCOMPARE(tight, QString("LXColor(Invalid)12"));
    }

    void mimeForm_data()
    {
        const Rows<LXColor, QByteArray> row;
        row("red", LXColor(Qt::red), QByteArray("aRgb;1;0;#ffffffff00000000"));
        row("levels", LXColor::fromNChannel16({65535, 100, 200}, CU::ConfigRGBW, CU::ProfileWashLineQP6RGBW),
            QByteArray("aNchannel;3;6;65535;100;200;0"));
        row("invalid", LXColor(), QByteArray());
    }
    void mimeForm()
    {
        const auto [color, data] = fetched<LXColor, QByteArray>();
        const QScopedPointer<QMimeData> mime(color.mimeData());
        QCOMPARE(mime->formats(), QStringList("data/x-lxcolor"));
        QCOMPARE(mime->data(LXCOLOR_MIME_TYPE), data);
    }
};

QTEST_APPLESS_MAIN(TestStreams)
#include "tst_streams.moc"
