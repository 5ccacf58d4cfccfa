// Colour values and their texts.
#include "Color.h"
#include "LXColor.h"
#include "Suite.h"

#include <QColor>
#include <QRgba64>

#include <random>

using benchmark::DoNotOptimize;

namespace {

const QString kColorValues = QStringLiteral("Colour values");
const QString kTexts = QStringLiteral("Texts");
const QString kQColor = QStringLiteral("QColor");

struct Rgb8
{
    int r, g, b;
};

std::vector<Rgb8> rgbs()
{
    std::mt19937 random(1);
    std::vector<Rgb8> values(1024);
    for (Rgb8& v : values)
        v = {int(random() % 256), int(random() % 256), int(random() % 256)};
    return values;
}

template <typename Color, typename Make>
std::vector<Color> made(Make make)
{
    std::vector<Color> colors;
    for (const Rgb8& v : rgbs())
        colors.push_back(make(v));
    return colors;
}

LXColor toLXColor(const Rgb8& v) { return LXColor::fromRgb8(v.r, v.g, v.b, 255, ColorUtils::ProfileGenericRGB); }
reference::Color toPlain(const Rgb8& v)
{
    return reference::Color::fromRgb8(v.r, v.g, v.b, 255, ColorUtils::ProfileGenericRGB);
}
QColor toQColor(const Rgb8& v) { return QColor(v.r, v.g, v.b); }

QString hexName(const Rgb8& v) { return toQColor(v).name(); }
QString valueString(const Rgb8& v) { return toLXColor(v).aName(); }
QString levelString(const Rgb8& v)
{
    return QStringLiteral("aNchannel;2;1;65535;%1;%2;%3;40000;50000;1").arg(v.r * 257).arg(v.g * 257).arg(v.b * 257);
}

/// What one would write for a value string with QColor in its place.
QColor splitIntoQColor(const QString& text)
{
    const QStringList fields = text.split(QLatin1Char(';'));
    const QStringRef digits = fields.at(3).midRef(1);
    ushort channels[4];
    for (int i = 0; i < 4; ++i)
        channels[i] = digits.mid(4 * i, 4).toUShort(nullptr, 16);
    return QColor::fromRgba64(channels[1], channels[2], channels[3], channels[0]);
}

QString argChain(const QColor& color)
{
    const QRgba64 c = color.rgba64();
    return QStringLiteral("aRgb;%1;%2;#%3%4%5%6")
        .arg(1)
        .arg(0)
        .arg(c.alpha(), 4, 16, QLatin1Char('0'))
        .arg(c.red(), 4, 16, QLatin1Char('0'))
        .arg(c.green(), 4, 16, QLatin1Char('0'))
        .arg(c.blue(), 4, 16, QLatin1Char('0'));
}

/// Contenders that do the same to LXColor, to the plain model and to QColor.
template <typename Use>
std::vector<Contender> lxAndPlain(Use use)
{
    return {contenderOver(kLibrary, made<LXColor>(toLXColor), use),
            contenderOver(kPlain, made<reference::Color>(toPlain), use)};
}

/// Contenders that make colours of texts.
std::vector<Contender> parsers(const std::vector<QString>& texts)
{
    return {contenderOver(kLibrary, texts, [](const QString& text) { DoNotOptimize(LXColor(text)); }),
            contenderOver(kPlain, texts, [](const QString& text) {
                reference::Color color;
                color.setNamedColor(text);
                DoNotOptimize(color);
            })};
}

} // namespace

void addColorCases(Cases& cases)
{
    const auto channels = [](auto&& color) { DoNotOptimize(color.red8() + color.green8() + color.blue8()); };
    cases.push_back({kColorValues,
                     "make from 8-bit RGB, read three channels",
                     {contenderOver(kLibrary, rgbs(), [=](const Rgb8& v) { channels(toLXColor(v)); }),
                      contenderOver(kPlain, rgbs(), [=](const Rgb8& v) { channels(toPlain(v)); }),
                      contenderOver(kQColor, rgbs(), [](const Rgb8& v) {
                          const QColor color = toQColor(v);
                          DoNotOptimize(color.red() + color.green() + color.blue());
                      })}});

    auto hsv = lxAndPlain([](const auto& color) { DoNotOptimize(color.toHsv16().toRgb16(true)); });
    hsv.push_back(
        contenderOver(kQColor, made<QColor>(toQColor), [](const QColor& c) { DoNotOptimize(c.toHsv().toRgb()); }));
    cases.push_back({kColorValues, "RGB to HSV to RGB", hsv});

    cases.push_back({kColorValues, "RGB to Y, x, y", lxAndPlain([](const auto& color) {
                         DoNotOptimize(color.toYxy(ColorUtils::ConfigUnknown, ColorUtils::ProfileNone, -1));
                     })});

    cases.push_back(
        {kColorValues,
         "blend with white, 30 %",
         {contenderOver(
              kLibrary, made<LXColor>(toLXColor),
              [white = LXColor(Qt::white)](const LXColor& c) { DoNotOptimize(LXColor::blend(c, white, 0.7)); }),
          contenderOver("QColor by hand", made<QColor>(toQColor), [](const QColor& c) {
              DoNotOptimize(QColor::fromRgbF(c.redF() * 0.7 + 0.3, c.greenF() * 0.7 + 0.3, c.blueF() * 0.7 + 0.3));
          })}});
}

void addTextCases(Cases& cases)
{
    auto hex = parsers(made<QString>(hexName));
    hex.push_back(
        contenderOver(kQColor, made<QString>(hexName), [](const QString& text) { DoNotOptimize(QColor(text)); }));
    cases.push_back({kTexts, "read \"#rrggbb\"", hex});

    auto names = lxAndPlain([](const auto& color) { DoNotOptimize(color.name8()); });
    names.push_back(contenderOver(kQColor, made<QColor>(toQColor), [](const QColor& c) { DoNotOptimize(c.name()); }));
    cases.push_back({kTexts, "write \"#rrggbb\"", names});

    auto values = parsers(made<QString>(valueString));
    values.push_back(contenderOver("split() and QColor", made<QString>(valueString),
                                   [](const QString& text) { DoNotOptimize(splitIntoQColor(text)); }));
    cases.push_back({kTexts, "read a value string, RGB", values});

    auto written = lxAndPlain([](const auto& color) { DoNotOptimize(color.aName()); });
    written.push_back(
        contenderOver("arg() chain", made<QColor>(toQColor), [](const QColor& c) { DoNotOptimize(argChain(c)); }));
    cases.push_back({kTexts, "write a value string, RGB", written});

    cases.push_back({kTexts, "read a value string, five levels", parsers(made<QString>(levelString))});
    const auto write = [](const auto& color) { DoNotOptimize(color.aName()); };
    cases.push_back(
        {kTexts,
         "write a value string, five levels",
         {contenderOver(kLibrary, made<LXColor>([](const Rgb8& v) { return LXColor(levelString(v)); }), write),
          contenderOver(kPlain, made<reference::Color>([](const Rgb8& v) {
                            reference::Color color;
                            color.setNamedColor(levelString(v));
                            return color;
                        }),
                        write)}});
}
