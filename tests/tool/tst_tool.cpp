#include "LXColor.h"
#include "MatchReport.h"
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

using Files = QMap<QString, QByteArray>;

/// A case of dialogues.txt.
struct Dialogue
{
    QString reason;
    QStringList arguments, lines, contains, refusal;
    QByteArray input;
    int status = -1;
    Files files, written;
};

QVector<Dialogue> readDialogues(const QString& path)
{
    QVector<Dialogue> all;
    Files files;
    QString openFile;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    while (!file.atEnd()) {
        const QByteArray line = file.readLine().chopped(1);
        const QString text = QString::fromUtf8(line.mid(2));
        if (line.startsWith("# ----"))
            files.clear();
        if (line.startsWith('#') || line.isEmpty())
            continue;
        const QStringList arguments = QProcess::splitCommand(text.section("  == ", 0, 0)).mid(1);
        if (line.startsWith("$ lxcolor"))
            all.append(
                {arguments.value(0) + ": " + text.section("  == ", -1), arguments, {}, {}, {}, {}, -1, files, {}});
        else if (line.startsWith('@'))
            files[openFile = text.section(' ', 0, 0)] =
                text.contains(' ') ? text.section(' ', 1).toUtf8() + '\n' : QByteArray();
        else if (line.startsWith('|') && files.contains(openFile))
            files[openFile] += line.mid(2) + '\n';
        else if (all.isEmpty())
            return {};
        else if (line.startsWith('<'))
            all.last().input += line.mid(2) + '\n';
        else if (line.startsWith('>'))
            all.last().lines << text;
        else if (line.startsWith('~'))
            all.last().contains << text;
        else if (line.startsWith('!'))
            all.last().refusal << text;
        else if (line.startsWith('*'))
            all.last().status = text.toInt();
        else if (line.startsWith('+'))
            all.last().written[text.section(' ', 0, 0)] = files.value(text.section(' ', 1));
        else
            return {};
    }
    return all;
}

} // namespace

Q_DECLARE_METATYPE(Dialogue)

class TestTool : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dialogues_data()
    {
        const Rows<Dialogue> row;
        const QVector<Dialogue> all = readDialogues(QStringLiteral(LXCOLOR_SOURCE_DIR "/tests/tool/dialogues.txt"));
        QVERIFY(all.size() > 100);
        for (const Dialogue& dialogue : all)
            row(dialogue.reason.toUtf8(), dialogue);
    }
    void dialogues()
    {
        const auto [dialogue] = fetched<Dialogue>();
        const Folder folder;
        for (auto it = dialogue.files.cbegin(); it != dialogue.files.cend(); ++it)
            folder.write(it.key(), it.value());
        QProcess process;
        process.setWorkingDirectory(folder.path(QString()));
        process.start(program(), dialogue.arguments);
        process.write(dialogue.input);
        process.closeWriteChannel();
        const Outcome outcome = finish(process);
        if (dialogue.status >= 0)
            QCOMPARE(outcome.status, dialogue.status);
        else if (dialogue.refusal.isEmpty())
            QVERIFY2(ok(outcome), qPrintable(outcome.err));
        else
            verifyRefused({outcome.status, QString(), outcome.err}, {});
        for (const QString& text : dialogue.refusal)
            QVERIFY2(outcome.err.contains(text), qPrintable(text + "\nis missing in\n" + outcome.err));
        if (dialogue.contains.isEmpty())
            QCOMPARE(outcome.lines(), dialogue.lines);
        for (const QString& text : dialogue.contains)
            QVERIFY2(outcome.out.contains(text), qPrintable(text + "\nis missing in\n" + outcome.out));
        Files expected = dialogue.files;
        for (auto it = dialogue.written.cbegin(); it != dialogue.written.cend(); ++it)
            expected[it.key()] = it.value().isEmpty() ? folder.read(it.key()) : it.value();
        QCOMPARE(QDir(folder.path(QString())).entryList(QDir::Files, QDir::Name), QStringList(expected.keys()));
        for (auto it = expected.cbegin(); it != expected.cend(); ++it)
            QCOMPARE(folder.read(it.key()), it.value());
    }

    // What no text file can hold.
    void binaryAndHugeFiles()
    {
        const Folder folder;
        const QString cut = folder.write("cut.aco", QByteArray("\0\1\0\1", 4));
        verifyRefused(run({"palette", "convert", cut, folder.path("out.css")}), {"cut.aco: byte 4: "});
        const QString deep = folder.write("deep.xml", QByteArray("<a>").repeated(100000));
        verifyRefused(run({"swatches", deep}), {"deep.xml:1:", "nested"});
    }

    void databaseBesideTheProgramPlaysNoPart()
    {
        const auto database = [](const QByteArray& red, std::initializer_list<int> profiles) {
            QByteArray text;
            for (const int profile : profiles)
                text += "<Profile index='" + QByteArray::number(profile) + "'><Channel name='" + red +
                        "' index='0' X='6' Y='3' Z='1'/><Channel index='1' X='2' Y='7' Z='1'/>"
                        "<Channel index='2' X='1' Y='1' Z='8'/></Profile>";
            return "<Profiles>" + text + "</Profiles>";
        };
        const Folder folder;
        const QString copy = folder.path("bin/lxcolor");
        QVERIFY(QDir().mkpath(folder.path("bin")) && QFile::copy(program(), copy));
        folder.write("FixtureProfiles.xml", database("Crimson", {0, 7}));
        const auto fixturesOf = [](const QString& tool, const QStringList& options) {
            QProcess process;
            process.start(tool, QStringList{"fixtures", "--json"} + options);
            return QJsonDocument::fromJson(finish(process).out.toUtf8()).array();
        };
        const auto red = [](const QJsonArray& fixtures, int fixture) {
            return fixtures[fixture].toObject()["emitters"].toArray()[0].toObject()["name"].toString();
        };
        const QJsonArray before = fixturesOf(program(), {});
        const QJsonArray withBeside = fixturesOf(copy, {});
        QCOMPARE(red(withBeside, 0) + red(withBeside, 7), QString("CrimsonCrimson"));
        const QJsonArray withFile =
            fixturesOf(copy, {"--profiles", folder.write("profiles.xml", database("Scarlet", {7}))});
        QCOMPARE(red(withFile, 7), QString("Scarlet"));
        for (int i = 0; i < before.size(); ++i)
            if (i != 7)
                QCOMPARE(withFile.at(i), before.at(i));
    }

    // All slots of all frames, a blank line being none; however many threads work on them.
    void framesAsBytes()
    {
        const Folder folder;
        const QString patch = folder.write("patch.json", R"({"fixtures": [{"fixture": 6, "slot": 10, "count": 2},
                                                            {"fixture": 1, "universe": 2, "slot": 1}]})");
        const QByteArray input = "steelblue\n\n0.16,0.015 white  steelblue\n-\tsteelblue -\n";
        const QStringList lines = succeed({"render", patch}, input).lines();
        QCOMPARE(lines.size(), 3 * 2);
        QCOMPARE(succeed({"render", patch, "--universe", "2"}, input).lines().value(2), lines[5].section(' ', 1));
        QByteArray expected;
        for (const QString& line : lines) {
            for (const QString& slot : line.section(' ', 1).split(','))
                expected += static_cast<char>(slot.toInt());
        }
        QCOMPARE(expected.size(), 3 * 2 * 512);
        for (const char* threads : {"1", "3"}) {
            QProcess process;
            process.start(program(), {"render", patch, "--format", "raw", "--threads", threads});
            process.write(input);
            process.closeWriteChannel();
            QVERIFY(process.waitForFinished());
            QCOMPARE(process.readAllStandardOutput().toHex(), expected.toHex());
        }
    }

    void shippedFilesAreGood()
    {
        const QString resources = QStringLiteral(LXCOLOR_SOURCE_DIR "/LXColor/resources/");
        QStringList arguments{"check", resources + "FixtureProfiles.xml"};
        for (const QString& name : QDir(resources + "Presets").entryList(QDir::Files))
            arguments << resources + "Presets/" + name;
        QVERIFY(arguments.size() > 3);
        const Outcome outcome = run(arguments);
        QCOMPARE(outcome.out, QString());
        QCOMPARE(outcome.err,
                 QString("lxcolor: 0 errors, 0 warnings, 0 notes in %1 files\n").arg(arguments.size() - 1));
        QCOMPARE(outcome.status, 0);
    }

    void swatches()
    {
        const QString blue = "\x1b[48;2;70;130;180m";
        QVERIFY(run(dmx({"steelblue"}, "--fixture|6|--swatches|always")).out.contains(blue));
        QVERIFY(run(words("convert|steelblue|--to|hsv|--format|table|--swatches|always")).out.contains(blue));
        // Standard output is a pipe here.
        QVERIFY(!run(dmx({"steelblue"}, "--fixture|6")).out.contains('\x1b'));
    }

    void matchJson()
    {
        const QStringList arguments = words("match|far=0.16,0.015|red|--fixture|6|--fixture|7|--bits|16|--json|"
                                            "--io-mode|0|--direct-curve|1|--onboard-curve|2|--allow-rgb-pass-through");
        const Outcome outcome = succeed(arguments);
        QCOMPARE(outcome.lines().size(), 4);
        int line = 0;
        for (const LXColor& color : {LXColor(0.16, 0.015), LXColor("red")}) {
            for (const auto fixture : {ColorUtils::ProfileWashLineQP6RGBW, ColorUtils::ProfilePixelNodeRGB}) {
                QJsonObject expected =
                    MatchReport::make(color, {fixture, ColorUtils::IOModeRGB, 2, 1, 2, true}).toJson();
                expected.insert("color", line < 2 ? "0.16,0.015" : "red");
                if (line < 2)
                    expected.insert("label", "far");
                QCOMPARE(outcome.json(line), expected);
                ++line;
            }
        }
    }

    void gamut()
    {
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

    void fixturesJson()
    {
        const QJsonArray array = QJsonDocument::fromJson(run({"fixtures", "--json"}).out.toUtf8()).array();
        QCOMPARE(array.size(), 10);
        const QJsonObject red = array.at(0).toObject().value("emitters").toArray().at(0).toObject();
        QCOMPARE(red.value("name").toString(), QString("Red"));
        QVERIFY(qAbs(red.value("x").toDouble() - 0.64) < 1e-6);
        QVERIFY(qAbs(red.value("y").toDouble() - 0.33) < 1e-6);
        const QJsonObject single = array.at(4).toObject();
        QCOMPARE(single.value("id").toInt(), 4);
        QCOMPARE(single.value("name").toString(), QString("Single Channel"));
        QCOMPARE(single.value("layout").toObject().value("id").toInt(), int(ColorUtils::ConfigSingleChannel));
        QCOMPARE(single.value("channels").toArray(), QJsonArray{"Single Channel"});
        const QJsonObject qvs = array.at(1).toObject();
        QCOMPARE(qvs.value("defaultIoMode").toObject(), (QJsonObject{{"id", 7}, {"name", "RGB In / RGBAW Out"}}));
        QCOMPARE(qvs.value("defaultIoMode3toN").toObject().value("id").toInt(), 7);
        QCOMPARE(qvs.value("onboardCurve").toObject().value("id").toInt(), 1);
        QCOMPARE(qvs.value("ioModes").toArray().at(2).toObject(),
                 (QJsonObject{{"id", 3}, {"name", "RGBAW In/Out"}, {"toneMatch", false}}));
    }

    void standardInput_data()
    {
        // error: the beginning, after the program's name; empty for none
        const Rows<QByteArray, QString, QString> row;
        row("no line end at the end", "lime\nlime", "255,0,0\n0,255,0\n0,255,0\n0,0,255\n", "");
        row("line ends of another system, blank lines, blanks, labels", "\r\nlime\r\n\n  go = lime  \n",
            "255,0,0\n0,255,0\n0,255,0\n0,0,255\n", "");
        row("longest line", QByteArray(4092, ' ') + "lime\nlime\n", "255,0,0\n0,255,0\n0,255,0\n0,0,255\n", "");
        row("a line too long", "lime\n" + QByteArray(4093, ' ') + "lime\n", "255,0,0\n0,255,0\n",
            "standard input, line 2: longer than 4096 bytes");
        row("bytes that are no UTF-8", "\xff\xfe\n", "255,0,0\n", "standard input, line 1: cannot read");
        row("a zero byte", QByteArray("lime\0\n", 6), "255,0,0\n", "standard input, line 1: cannot read");
    }
    void standardInput()
    {
        const auto [input, out, error] = fetched<QByteArray, QString, QString>();
        const Outcome outcome = run(dmx({"red", "-", "blue"}, "--fixture|0|--format|dec"), input);
        QCOMPARE(outcome.out, out);
        QCOMPARE(outcome.status, error.isEmpty() ? 0 : 2);
        if (error.isEmpty())
            QCOMPARE(outcome.err, QString());
        else
            QVERIFY2(outcome.err.startsWith("lxcolor: " + error), qPrintable(outcome.err));
    }

    void oddColors()
    {
        verifyRefused(run(dmx({""}, "--fixture|0")), {"cannot read the colour \"\""});
        verifyRefused(run(dmx({"re\x1b[31m\nd"}, "--fixture|0")), {QString::fromUtf8("\"re\uFFFD[31m\uFFFDd\"")});
    }

    void answersEachLineAsItComes()
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

    void memoryStaysTheSame_data()
    {
        QTest::addColumn<QStringList>("arguments");
        for (const char* arguments : {"dmx|-|--fixture|6|--json", "convert|-|--to|yxy|--format|table",
                                      "match|-|--fixture|6|--format|words", "gamut|-|--fixture|6"})
            QTest::newRow(arguments) << words(arguments);
    }
    void memoryStaysTheSame()
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

    void readerThatGoesAway()
    {
        const Outcome outcome =
            runInShell("{ yes red | \"$0\" dmx - --fixture 0 --format dec; echo $? >&2; } | head -n 2");
        QCOMPARE(outcome.out, QString("255,0,0\n255,0,0\n"));
        QCOMPARE(outcome.err, QString("0\n"));
    }

    void fullDisk()
    {
        if (!QFile::exists("/dev/full"))
            QSKIP("there is no /dev/full here");
        const Outcome outcome = runInShell("\"$0\" fixtures > /dev/full");
        QCOMPARE(outcome.status, 1);
        QVERIFY2(outcome.err.startsWith("lxcolor: cannot write to standard output: "), qPrintable(outcome.err));
    }
};

QTEST_GUILESS_MAIN(TestTool)
#include "tst_tool.moc"
