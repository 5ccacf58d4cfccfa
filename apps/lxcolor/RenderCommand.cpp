#include "ColorInput.h"
#include "FrameRenderer.h"
#include "InputLines.h"
#include "Output.h"
#include "PatchFile.h"
#include "ProfilesOption.h"
#include "SubcommandLine.h"
#include "Subcommands.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QRegularExpression>

namespace {

constexpr std::size_t kLongestLine = 16 * 1024 * 1024;
constexpr int kMostThreads = 256;

/// The colours that the fixtures show, changed by one frame after the other.
class Look
{
public:
    explicit Look(int fixtureCount) : m_colors(fixtureCount, LXColor(Qt::black)) {}

    /// Takes the colours of a line: one a fixture, "-" for a fixture that keeps its own, as do those after the last.
    void take(const QString& line)
    {
        static const QRegularExpression space(QStringLiteral("\\s+"));
        const QVector<QStringRef> words = line.splitRef(space, Qt::SkipEmptyParts);
        if (words.size() > m_colors.size())
            throw CommandError(
                QStringLiteral("%1 for %2")
                    .arg(counted(words.size(), "colour", "colours"), counted(m_colors.size(), "fixture", "fixtures")));
        QVector<LXColor> colors = m_colors;
        for (int i = 0; i < words.size(); ++i)
            if (words[i] != QLatin1String("-"))
                colors[i] = readColor(words[i].toString()).color;
        m_colors = colors;
    }

    const QVector<LXColor>& colors() const { return m_colors; }

private:
    QVector<LXColor> m_colors;
};

/// Writes the universes of a frame in one of the formats.
class FrameWriter
{
public:
    FrameWriter(const FrameRenderer& renderer, const QString& format, const QVector<int>& positions, bool isOne)
        : m_renderer(renderer), m_format(format), m_positions(positions), m_isOne(isOne)
    {
    }

    void write(int frame) const
    {
        if (m_format == QLatin1String("json"))
            return writeJsonLine(toJson(frame));
        for (const int position : m_positions) {
            const unsigned char* const slots = m_renderer.universeSlots(position);
            if (m_format == QLatin1String("raw"))
                writeBytes(slots, FrameRenderer::kSlotsPerUniverse);
            else
                writeLine((m_isOne ? QString() : QStringLiteral("%1 ").arg(universe(position))) + decimal(slots));
        }
    }

private:
    int universe(int position) const { return m_renderer.universes().at(position); }

    static QString decimal(const unsigned char* slots)
    {
        QString text;
        for (int i = 0; i < FrameRenderer::kSlotsPerUniverse; ++i)
            text += (i > 0 ? QStringLiteral(",") : QString()) + QString::number(slots[i]);
        return text;
    }

    QJsonObject toJson(int frame) const
    {
        QJsonArray universes;
        for (const int position : m_positions) {
            const unsigned char* const slots = m_renderer.universeSlots(position);
            QJsonArray values;
            for (int i = 0; i < FrameRenderer::kSlotsPerUniverse; ++i)
                values.append(slots[i]);
            universes.append(
                QJsonObject{{QStringLiteral("universe"), universe(position)}, {QStringLiteral("slots"), values}});
        }
        return {{QStringLiteral("frame"), frame}, {QStringLiteral("universes"), universes}};
    }

    const FrameRenderer& m_renderer;
    QString m_format;
    QVector<int> m_positions;
    bool m_isOne;
};

QString description()
{
    return QStringLiteral(
        "Renders frames of colours for the fixtures of a patch: the 512 slots of each universe, over and over. Each "
        "line\n"
        "of standard input is a frame: a colour for each fixture in the order of the patch, separated by spaces, in "
        "the\n"
        "forms that lxcolor dmx takes. A fixture keeps its colour where the line says - or has ended; all begin "
        "black.\n"
        "Each frame is passed on at once.\n\n"
        "FILE, a patch in JSON, says which fixtures there are and which slots they listen to (docs/json.md):\n"
        "  {\"fixtures\": [{\"fixture\": \"WashLine QP6 RGBW\", \"universe\": 1, \"slot\": 1, \"bits\": 16, \"count\": "
        "12}]}\n\n"
        "Example:\n  lxcolor render patch.json --universe 1 < frames.txt | ola_streaming_client --universe 1");
}

void addOptions(SubcommandLine& line)
{
    line.addFormats(
        {QStringLiteral("dec"), QStringLiteral("raw"), QStringLiteral("json")},
        QStringLiteral("dec: a line a universe, its number and the slots as 1,2,3; raw: the bytes alone, 512 "
                       "a universe, universes ascending; json: an object a frame."));
    line.addValue(QStringLiteral("universe"), QStringLiteral("NUMBER"),
                  QStringLiteral("Print this universe alone; dec then leaves its number out."));
    line.addValue(QStringLiteral("threads"), QStringLiteral("COUNT"),
                  QStringLiteral("How many threads share a frame, 1 to 256."), QStringLiteral("1"));
    addProfilesOption(line);
}

/// The positions of the universes to print: all, or the one that is asked for.
QVector<int> positionsOf(const SubcommandLine& line, const QVector<int>& universes)
{
    QVector<int> positions;
    const bool isOne = line.isSet(QStringLiteral("universe"));
    const int wanted = isOne ? line.wholeNumber(QStringLiteral("universe"), 1, FrameRenderer::kLastUniverse) : 0;
    for (int i = 0; i < universes.size(); ++i)
        if (!isOne || universes[i] == wanted)
            positions.append(i);
    if (positions.isEmpty())
        throw CommandError(QStringLiteral("the patch has no fixture in universe %1").arg(wanted));
    return positions;
}

} // namespace

void runRender(const QStringList& arguments)
{
    SubcommandLine line(QStringLiteral("render [options] FILE"), description());
    addOptions(line);
    if (!line.parse(arguments))
        return;
    if (line.positionalArguments().size() != 1)
        throw CommandError(QStringLiteral("give one patch"));
    readProfiles(line);

    const QString path = line.positionalArguments().first();
    FrameRenderer renderer;
    QString refusal;
    if (!renderer.setPatch(readPatch(path), &refusal))
        throw CommandError(QStringLiteral("%1: %2").arg(printable(path), refusal));
    renderer.setThreadCount(line.wholeNumber(QStringLiteral("threads"), 1, kMostThreads));
    const FrameWriter writer(renderer, line.format(), positionsOf(line, renderer.universes()),
                             line.isSet(QStringLiteral("universe")));

    Look look(renderer.fixtureCount());
    int frame = 0;
    forEachInputLine(kLongestLine, [&](int number, const QString& text) {
        try {
            look.take(text);
        } catch (const CommandError& error) {
            throw atInputLine(number, error);
        }
        renderer.render(look.colors());
        writer.write(++frame);
    });
}
