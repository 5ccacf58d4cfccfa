// lxcolor render: frames of colours become the universes of a patch.
#include "ColorUtils.h"
#include "LXColor.h"
#include "ToolSupport.h"

#include <QTemporaryDir>

namespace {

constexpr int kSlots = 512;

const char kPatch[] = R"({"fixtures": [
    {"fixture": 6, "name": "wash", "ioMode": "RGBW", "universe": 2, "slot": 10, "bits": 16, "count": 2},
    {"fixture": "Generic RGB", "universe": 1, "channels": [3, {"slot": 1, "fineSlot": 512}, 2]}
]})";

QByteArray bytesOf(const LXColor& color, int count, int resolution, int ioMode, ColorUtils::TonematchProfileID fixture)
{
    QByteArray bytes;
    const int onboard = ColorUtils::defaultCurveTypeForTonematchProfileID(fixture);
    for (const unsigned char byte :
         ColorUtils::updateBuffer(0, onboard, color, false, count, resolution, ioMode, fixture))
        bytes.append(static_cast<char>(byte));
    return bytes;
}

/// Both universes of the patch, of which the two washes and the generic fixture show these colours.
QByteArray frameOf(const LXColor& wash1, const LXColor& wash2, const LXColor& generic)
{
    QByteArray frame(2 * kSlots, '\0');
    const QByteArray fine = bytesOf(generic, 3, 2, ColorUtils::IOModeRGB, ColorUtils::ProfileGenericRGB);
    const QByteArray coarse = bytesOf(generic, 3, 1, ColorUtils::IOModeRGB, ColorUtils::ProfileGenericRGB);
    frame[2] = coarse[0];
    frame[0] = fine[2];
    frame[511] = fine[3];
    frame[1] = coarse[2];
    int slot = kSlots + 9;
    for (const LXColor& color : {wash1, wash2}) {
        const QByteArray bytes = bytesOf(color, 4, 2, ColorUtils::IOModeRGBW, ColorUtils::ProfileWashLineQP6RGBW);
        frame.replace(slot, bytes.size(), bytes);
        slot += bytes.size();
    }
    return frame;
}

} // namespace

class TestToolRender : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;

    QString patch(const QByteArray& text) { return writeFile(m_folder.filePath("patch.json"), text); }

    QByteArray raw(const QStringList& options, const QByteArray& input)
    {
        QProcess process;
        process.start(program(), QStringList{"render", patch(kPatch), "--format", "raw"} + options);
        process.write(input);
        process.closeWriteChannel();
        process.waitForFinished();
        return process.readAllStandardOutput();
    }

private Q_SLOTS:
    void framesAreThoseOfUpdateBuffer()
    {
        const LXColor black(Qt::black);
        const LXColor white("white");
        const LXColor steel("steelblue");
        const LXColor deep = LXColor::fromxyY(0.16, 0.015, 1.0, ColorUtils::ProfileGenericRGB);
        const QByteArray frames =
            frameOf(steel, black, black) + frameOf(deep, white, steel) + frameOf(deep, steel, steel);
        const QByteArray input = "steelblue\n\n0.16,0.015 white  steelblue\n-\tsteelblue -\n";
        QCOMPARE(raw({}, input), frames);
        QCOMPARE(raw({"--threads", "3"}, input), frames);
        QCOMPARE(raw({"--universe", "2"}, "steelblue\n"), frames.mid(kSlots, kSlots));

        const Outcome dec = run({"render", patch(kPatch)}, "steelblue white\n");
        QCOMPARE(dec.lines().size(), 2);
        QVERIFY(dec.lines().at(1).startsWith("2 0,0,0,0,0,0,0,0,0,"));
        QCOMPARE(dec.lines().at(0).split(',').size(), kSlots);

        const QJsonObject json = run({"render", patch(kPatch), "--json"}, "steelblue\n- white\n").json(1);
        QCOMPARE(json["frame"].toInt(), 2);
        QCOMPARE(json["universes"].toArray().at(1).toObject()["universe"].toInt(), 2);
        QCOMPARE(json["universes"].toArray().at(1).toObject()["slots"].toArray().size(), kSlots);
    }

    void refusals_data()
    {
        const Rows<QByteArray, QString> row;
        row("no JSON", QByteArray("{\n  \"fixtures\": [}"), "patch.json:2:");
        row("no object", QByteArray("[]"), "the patch is no object");
        row("no fixtures", QByteArray("{\"fixtures\": []}"), "the patch has no \"fixtures\"");
        row("misspelt key", QByteArray(R"({"fixtures": [{"fixture": 6, "slot": 1, "bit": 8}]})"),
            "fixtures[0]: unknown key \"bit\"");
        row("no slot", QByteArray(R"({"fixtures": [{"fixture": 6}]})"), "fixtures[0]: \"slot\" is missing");
        row("slot", QByteArray(R"({"fixtures": [{"fixture": 6, "slot": 1.5}]})"),
            "\"slot\" is not a whole number from 1 to 512");
        row("bits", QByteArray(R"({"fixtures": [{"fixture": 6, "slot": 1, "bits": 12}]})"),
            "\"bits\" is neither 8 nor 16");
        row("unknown fixture", QByteArray(R"({"fixtures": [{"fixture": "Nowhere", "slot": 1}]})"), "fixtures[0]: ");
        row("both ways", QByteArray(R"({"fixtures": [{"fixture": 6, "slot": 1, "channels": [1]}]})"),
            "\"channels\" excludes");
        row("overlap", QByteArray(R"({"fixtures": [{"fixture": 0, "slot": 1}, {"fixture": 0, "slot": 3}]})"),
            "Fixture 2: slot 3 of universe 1 is taken by fixture 1.");
        row("past the end", QByteArray(R"({"fixtures": [{"fixture": 0, "slot": 509, "count": 2}]})"),
            "Fixture 2: slot 513 of universe 1 is not in 1 to 512.");
    }
    void refusals()
    {
        const auto [text, says] = fetched<QByteArray, QString>();
        verifyRefused(run({"render", patch(text)}, "white\n"), {"patch.json", says});
    }

    void badFrames()
    {
        const Outcome outcome = run({"render", patch(kPatch), "--universe", "1"}, "white\nwhite nocolour\nwhite\n");
        QCOMPARE(outcome.status, 2);
        QCOMPARE(outcome.lines().size(), 1); // the frame before it stands
        QVERIFY2(outcome.err.contains("standard input, line 2: ") && outcome.err.contains("\"nocolour\""),
                 qPrintable(outcome.err));
        verifyRefused(run({"render", patch(kPatch)}, "red red red red\n"), {"line 1: 4 colours for 3 fixtures"});
        verifyRefused(run({"render", patch(kPatch), "--universe", "7"}), {"no fixture in universe 7"});
    }
};

QTEST_GUILESS_MAIN(TestToolRender)
#include "tst_toolrender.moc"
