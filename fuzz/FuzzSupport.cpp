#include "FuzzSupport.h"

#include <QCoreApplication>
#include <QDataStream>
#include <QDebug>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QMimeData>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {

LXColor streamedColor(FuzzInput& input)
{
    QByteArray bytes;
    for (int i = 0; i < 17; ++i)
        bytes.append(static_cast<char>(input.byte()));
    bytes[0] = static_cast<char>(bytes[0] % 8 - 1);
    LXColor color;
    QDataStream stream(bytes);
    stream >> color;
    return color;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    qputenv("XDG_DATA_HOME", QFile::encodeName(scratchFolder()));
    qputenv("LC_ALL", "C.UTF-8");
    new QCoreApplication(*argc, *argv); // needed until the end of the process
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));
    return 0;
}

void require(bool holds, const char* what) { require(holds, what, QString()); }

void require(bool holds, const char* what, const QString& details)
{
    if (holds)
        return;
    std::fprintf(stderr, "This does not hold: %s. %s\n", what, qPrintable(details));
    std::abort();
}

ColorUtils::TonematchProfileID anyProfile(FuzzInput& input)
{
    return static_cast<ColorUtils::TonematchProfileID>(input.integer(-2, 12));
}

ColorUtils::ChannelConfiguration anyConfiguration(FuzzInput& input)
{
    return static_cast<ColorUtils::ChannelConfiguration>(input.integer(-1, 8));
}

LXColor anyColor(FuzzInput& input)
{
    LXColor color;
    const int face = input.integer(0, 5);
    const auto profile = anyProfile(input);
    if (face == 0) {
        const double r = input.ratio(), g = input.ratio(), b = input.ratio();
        color.setRgbF(r, g, b, input.ratio(), profile);
    } else if (face == 1) {
        const double h = input.ratio(), s = input.ratio(), v = input.ratio();
        color.setHsvF(h, s, v, input.ratio(), profile);
    } else if (face == 2) {
        const double Y = input.number(), x = input.number(), y = input.number();
        color.setYxyF(Y, x, y, input.ratio(), profile);
    } else if (face == 3) {
        const auto configuration = anyConfiguration(input);
        QVector<double> levels(input.integer(0, 9));
        for (double& level : levels)
            level = input.ratio();
        color.setNChannelF(levels, configuration, profile);
        color.setNChannelRenderType(static_cast<LXColor::NChannelRenderType>(input.flag()));
    } else if (face == 4) {
        color = LXColor(QString::fromUtf8(input.bytes(60)));
        color.setTonematchProfileID(profile);
    } else {
        color = streamedColor(input);
        color.setTonematchProfileID(profile);
    }
    return color;
}

QString withoutSignOfZero(QString value)
{
    return value.replace(QLatin1String(";-0.000000"), QLatin1String(";0.000000"));
}

void askEverything(const LXColor& color)
{
    color.toRgb16(true);
    color.toRgb16(false);
    color.toHsv16();
    color.toYxy(ColorUtils::ConfigUnknown, ColorUtils::ProfileNone, -1);
    color.toNChannel16(ColorUtils::ConfigRGBAW, ColorUtils::ProfileFlareFlashQVS, -1);
    for (int spec = -1; spec <= 5; ++spec)
        color.convertTo(static_cast<LXColor::Spec>(spec), ColorUtils::ConfigRGBW, ColorUtils::ProfileWashLineQP6RGBW);

    int hue = 0;
    uint saturation = 0, value = 0, alpha = 0;
    color.getHsv16(&hue, &saturation, &value, &alpha);
    require(saturation <= 65535 && value <= 65535 && alpha == color.alpha16(), "16-bit HSV is within its range");
    require(color.hue8() >= -1 && color.hue8() <= 359, "an 8-bit hue is within its range");
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
    LXColor::mixColorsxy(color, LXColor(0.3, 0.4));
    LXColor::unpremultiply(LXColor::premultiply(color));
    QString text;
    QDebug(&text) << color;
    require(color.name().size() == 13 && color.name8().size() == 7, "names have their length");
    color.nameFull8();
    const std::unique_ptr<QMimeData> mime(color.mimeData());
    require(mime->data(LXCOLOR_MIME_TYPE) == color.aName().toLatin1(), "a drag carries the text form");
    LXColor under(Qt::gray);
    ColorUtils::updateColor(under, color);
    LXColor changed = color;
    changed.setRed8(1);
    changed = color;
    changed.setx(0.25);
}

QString scratchFolder()
{
    static const QString memory = QStringLiteral("/dev/shm");
    static const QTemporaryDir folder((QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) +
                                      QStringLiteral("/lxcolor-fuzz-XXXXXX"));
    return folder.path();
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    require(file.open(QIODevice::WriteOnly) && file.write(content) == content.size(), "a file can be written");
}
