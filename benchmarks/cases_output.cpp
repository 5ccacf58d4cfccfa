// Colours to DMX, call by call and whole frames at a time.
#include "Color.h"
#include "FrameRenderer.h"
#include "LXColor.h"
#include "Suite.h"

#include <QColor>

#include <cstring>
#include <random>

#ifdef LXCOLOR_HAVE_OLA
#    include <ola/DmxBuffer.h>
#endif

using benchmark::DoNotOptimize;

namespace {

const QString kCalls = QStringLiteral("Output, call by call");
const QString kFrames = QStringLiteral("Output, whole frames, a fixture");

/// A way of driving a fixture.
struct Kind
{
    const char* name;
    ColorUtils::TonematchProfileID profile;
    int ioMode;
    int channels;
    int resolution;
    bool matched;

    int onboardCurve() const { return ColorUtils::defaultCurveTypeForTonematchProfileID(profile); }
    int slotCount() const { return channels * resolution; }
    int fixturesInUniverse() const { return FrameRenderer::kSlotsPerUniverse / slotCount(); }
};
const Kind kKinds[] = {
    {"RGB passed through, 8 bit", ColorUtils::ProfileGenericRGB, ColorUtils::IOModeRGB, 3, 1, false},
    {"x, y matched to RGBW, 8 bit", ColorUtils::ProfileWashLineQP6RGBW, ColorUtils::IOModeRGBW, 4, 1, true},
    {"x, y matched to RGBAW, 16 bit", ColorUtils::ProfileFlareFlashQVS, ColorUtils::IOModeRGBAW, 5, 2, true},
};

template <typename Color>
std::vector<Color> colorsFor(const Kind& kind, std::size_t count)
{
    std::mt19937 random(4);
    std::uniform_real_distribution<double> part(0.0, 1.0);
    std::vector<Color> colors;
    while (colors.size() < count) {
        // A mix of the corners of a gamut that all fixtures have.
        const double a = part(random);
        const double b = part(random) * (1.0 - a);
        if (kind.matched)
            colors.push_back(Color::fromxyY(0.64 * a + 0.30 * b + 0.15 * (1.0 - a - b),
                                            0.33 * a + 0.60 * b + 0.10 * (1.0 - a - b), part(random),
                                            ColorUtils::ProfileGenericRGB));
        else
            colors.push_back(Color::fromRgb8(int(random() % 256), int(random() % 256), int(random() % 256), 255,
                                             ColorUtils::ProfileGenericRGB));
    }
    return colors;
}

std::vector<QColor> qColors(std::size_t count)
{
    std::vector<QColor> colors;
    for (const LXColor& color : colorsFor<LXColor>(kKinds[0], count))
        colors.push_back(color.getQColor(true));
    return colors;
}

void writeBytes(const QColor& color, unsigned char* bytes)
{
    bytes[0] = static_cast<unsigned char>(color.red());
    bytes[1] = static_cast<unsigned char>(color.green());
    bytes[2] = static_cast<unsigned char>(color.blue());
}

QList<unsigned char> bytesOf(const Kind& kind, const LXColor& color)
{
    return ColorUtils::updateBuffer(0, kind.onboardCurve(), color, false, kind.channels, kind.resolution, kind.ioMode,
                                    kind.profile);
}

Contender plainBytes(const Kind& kind)
{
    return contenderOver(kPlain, colorsFor<reference::Color>(kind, 1024),
                         [=, curve = kind.onboardCurve()](const reference::Color& c) {
                             DoNotOptimize(reference::updateBuffer(0, curve, c, false, kind.channels, kind.resolution,
                                                                   kind.ioMode, kind.profile));
                         });
}

/// Peers that pass RGB through: those that match no colours.
void addPassThroughPeers(std::vector<Contender>& contenders)
{
    contenders.push_back(contenderOver("QColor loop", qColors(1024), [](const QColor& color) {
        unsigned char bytes[3];
        writeBytes(color, bytes);
        DoNotOptimize(bytes);
    }));
#ifdef LXCOLOR_HAVE_OLA
    auto buffer = std::make_shared<ola::DmxBuffer>();
    buffer->Blackout();
    contenders.push_back(contenderOver("OLA buffer", qColors(1024), [buffer](const QColor& color) {
        unsigned char bytes[3];
        writeBytes(color, bytes);
        buffer->SetRange(0, bytes, 3);
        DoNotOptimize(buffer->GetRaw());
    }));
#endif
}

/// The colours of all fixtures of a show, and its slots.
struct Show
{
    Show(const Kind& shownKind, int universes)
        : kind(shownKind)
        , colors(colorsFor<LXColor>(kind, static_cast<std::size_t>(universes) *
                                              static_cast<std::size_t>(kind.fixturesInUniverse())))
        , dmx(static_cast<std::size_t>(universes) * FrameRenderer::kSlotsPerUniverse)
    {
    }

    /// Where a fixture's slots begin.
    unsigned char* slotsOf(std::size_t fixture)
    {
        const auto perUniverse = static_cast<std::size_t>(kind.fixturesInUniverse());
        return dmx.data() + fixture / perUniverse * FrameRenderer::kSlotsPerUniverse +
               fixture % perUniverse * static_cast<std::size_t>(kind.slotCount());
    }

    Kind kind;
    std::vector<LXColor> colors;
    std::vector<unsigned char> dmx;
};

Contender renderer(const Kind& kind, int universes)
{
    return {kLibrary, [=] {
                const auto show = std::make_shared<Show>(kind, universes);
                const auto frames = std::make_shared<FrameRenderer>();
                QVector<FrameRenderer::Fixture> patch;
                for (int i = 0; i < static_cast<int>(show->colors.size()); ++i) {
                    const int perUniverse = kind.fixturesInUniverse();
                    patch.append(FrameRenderer::Fixture::contiguous(kind.profile, kind.ioMode, 1 + i / perUniverse,
                                                                    1 + i % perUniverse * kind.slotCount(),
                                                                    kind.resolution));
                }
                frames->setPatch(patch, nullptr);
                return Work{[=](qint64 times) {
                                for (; times > 0; --times) {
                                    frames->render(show->colors.data(), static_cast<int>(show->colors.size()));
                                    DoNotOptimize(frames->universeSlots(0));
                                }
                            },
                            nullptr};
            }};
}

/// A frame that a call for each fixture puts together: fill(colour, where its slots begin).
template <typename Color, typename Fill>
Contender loop(const QString& name, const Kind& kind, int universes, Color convert(const LXColor&), Fill fill)
{
    return {name, [=] {
                const auto show = std::make_shared<Show>(kind, universes);
                const auto colors = std::make_shared<std::vector<Color>>();
                for (const LXColor& color : show->colors)
                    colors->push_back(convert(color));
                return Work{[=](qint64 times) {
                                for (; times > 0; --times) {
                                    for (std::size_t i = 0; i < colors->size(); ++i)
                                        fill((*colors)[i], show->slotsOf(i));
                                    DoNotOptimize(show->dmx.data());
                                }
                            },
                            nullptr};
            }};
}

LXColor asItIs(const LXColor& color) { return color; }
QColor asQColor(const LXColor& color) { return color.getQColor(true); }

} // namespace

void addOutputCases(Cases& cases)
{
    for (const Kind& kind : kKinds) {
        const auto colors = colorsFor<LXColor>(kind, 1024);
        const QString name = QString::fromLatin1(kind.name);
        std::vector<Contender> list = {
            contenderOver(kLibrary, colors, [=](const LXColor& c) { DoNotOptimize(bytesOf(kind, c)); }),
            plainBytes(kind)};
        std::vector<Contender> array = {contenderOver(kLibrary, colors,
                                                      [=, curve = kind.onboardCurve()](LXColor c) {
                                                          unsigned char bytes[10];
                                                          ColorUtils::convertLXColorToDMX(
                                                              c, false, kind.channels, kind.resolution, bytes, 0, curve,
                                                              kind.profile, kind.ioMode);
                                                          DoNotOptimize(bytes);
                                                      }),
                                        plainBytes(kind)};
        if (!kind.matched) {
            addPassThroughPeers(list);
            addPassThroughPeers(array);
        }
        cases.push_back({kCalls, name + QLatin1String(", updateBuffer()"), list});
        cases.push_back({kCalls, name + QLatin1String(", convertLXColorToDMX()"), array});
    }
}

void addFrameCases(Cases& cases)
{
    for (const Kind& kind : {kKinds[0], kKinds[2]}) {
        for (const int universes : {1, 10, 100, 1000, 10000}) {
            std::vector<Contender> contenders = {renderer(kind, universes)};
            if (universes <= 100)
                contenders.push_back(
                    loop("updateBuffer()", kind, universes, asItIs, [kind](const LXColor& color, unsigned char* dmx) {
                        const QList<unsigned char> bytes = bytesOf(kind, color);
                        std::copy(bytes.begin(), bytes.end(), dmx);
                    }));
            if (!kind.matched)
                contenders.push_back(loop("QColor loop", kind, universes, asQColor, writeBytes));
            const QString name = QString::fromLatin1(kind.name);
            cases.push_back({kFrames, QStringLiteral("%1, universes: %2").arg(name).arg(universes), contenders,
                             static_cast<qint64>(universes) * kind.fixturesInUniverse(), name});
        }
    }
}
