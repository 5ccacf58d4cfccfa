// Documents that are made to exhaust a reader. Each is read in a process of its own, which has to come to its end by
// itself, soon and with little memory, and to take nothing over.

#include "AppSupportFolder_p.h"
#include "LXColorLibrary.h"
#include "OrbisProjectHelper.h"
#include "Rows.h"
#include "Tristimulus.h"
#include "TristimulusFactory.h"

#include <QDir>
#include <QDomDocument>
#include <QLoggingCategory>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <cstdio>
#include <sys/resource.h>
#include <unistd.h>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#    define LXCOLOR_SANITIZED 1
#elif defined(__has_feature)
#    if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#        define LXCOLOR_SANITIZED 1
#    endif
#endif

namespace {

constexpr int Megabyte = 1000000;

// ---- The reading process ----

QString childFolder;

double cpuSeconds()
{
    rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    return double(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
           1e-6 * double(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec);
}

/// The most memory that this process has held since it began, MiB.
int peakMemory()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray text = status.readAll();
    return text.mid(text.indexOf("VmHWM:") + 6, 20).simplified().split(' ').value(0).toInt() / 1024;
}

/// A project's tree is made by the application, so it is not the reader that limits it.
QDomDocument hostileProject(const QString& name)
{
    QDomDocument document;
    QDomElement list = document.createElement(QStringLiteral("ColorLibrary"));
    QDomElement outermost = list;
    for (int depth = name == QLatin1String("nested") ? 100000 : 0; depth > 0; --depth) {
        QDomElement around = document.createElement(QStringLiteral("ColorLibrary"));
        around.appendChild(outermost);
        outermost = around;
    }
    document.appendChild(outermost);
    QDomElement color = document.createElement(QStringLiteral("Color"));
    list.appendChild(color);
    if (name == QLatin1String("long"))
        color.setAttribute(QStringLiteral("value"), QString(10 * Megabyte, QLatin1Char('0')));
    if (name == QLatin1String("zeros"))
        color.setAttribute(QStringLiteral("value"), QString(Megabyte, QChar(0)));
    if (name == QLatin1String("entity"))
        color.appendChild(document.createEntityReference(QStringLiteral("e")));
    return document;
}

/// Prints what was taken over, and what it cost.
int runChild(const QString& reader, const QString& folder, const QString& name)
{
    childFolder = folder;
    lxcolor::setAppSupportLookup([] { return childFolder + QLatin1String("/support"); });
    QLoggingCategory::setFilterRules(QStringLiteral("*=false"));
    LXColorLibrary* library = LXColorLibrary::Instance();
    library->init(true, true, true);
    const auto entries = [library] {
        const QModelIndex root = library->rootIndex();
        int count = library->rowCount(root) - 2; // The lists that are always there.
        for (int row = 0; row < library->rowCount(root); ++row)
            count += library->rowCount(library->index(row, 0, root));
        return count;
    };

    int taken = 0;
    double begin = cpuSeconds();
    if (reader == QLatin1String("database")) {
        const auto id = ColorUtils::ProfileWashLineQP6RGBA;
        Tristimulus* record = TristimulusFactory::getInstance()->getTristimulus(id, ColorUtils::ConfigRGBA);
        taken = record->getX().value(0) != 490.1758 ? 1 : 0;
    } else if (reader == QLatin1String("project")) {
        QDomDocument document = hostileProject(name);
        QString error;
        begin = cpuSeconds();
        library->loadDocument(document, error, 1.0, ORBIS_APPLICATION_ID);
        taken = entries();
    } else {
        if (reader == QLatin1String("preset"))
            library->loadPresetFiles();
        else
            library->loadUserColors(QString());
        taken = entries();
    }
    std::printf("%d %.2f %d\n", taken, cpuSeconds() - begin, peakMemory());
    std::fflush(stdout);
    _exit(0); // Without tearing down a tree of the test's own.
}

// ---- The documents ----

void repeat(QFile& file, const QByteArray& piece, qint64 count)
{
    const int atOnce = int(qBound(qint64(1), qint64(100000 / piece.size()), count));
    const QByteArray pieces = piece.repeated(atOnce);
    for (; count >= atOnce; count -= atOnce)
        file.write(pieces);
    file.write(piece.repeated(int(count)));
}

const QByteArray ListBegin = "<ColorLibraryList><ColorLibrary name='Mine' isUserLibrary='1'>";
const QByteArray ListEnd = "</ColorLibrary></ColorLibraryList>";
const QByteArray ProfileBegin = "<Profiles><Profile index='5'><Channel index='0' X='1'/><Channel index='1'/>"
                                "<Channel index='2'/><Channel index='3'/>";
const QByteArray ProfileEnd = "</Profile></Profiles>";

/// Writes \a before, \a count times \a piece, and \a after into the element.
struct Hostility
{
    const char* name;
    QByteArray prolog;
    QByteArray before;
    QByteArray piece;
    qint64 count;
    QByteArray after;
    QByteArray takenOverBy = ""; ///< The readers that nothing bars from reading on.
};

QByteArray laughter()
{
    QByteArray entities = "<!DOCTYPE x [<!ENTITY e0 'lol'>";
    for (char i = '1'; i <= '9'; ++i)
        entities +=
            QByteArray("<!ENTITY e") + i + " '" + QByteArray("&e").append(char(i - 1)).append(';').repeated(10) + "'>";
    return entities + "]>";
}

const QVector<Hostility>& hostilities()
{
    static const QVector<Hostility> all = {
        {"entities of entities", laughter(), "<c>", "&e9;", 1, "</c>"},
        {"a long entity, often", "<!DOCTYPE x [<!ENTITY e '" + QByteArray(10000, 'x') + "'>]>", "<c>", "&e;", 100000,
         "</c>"},
        {"entity that is itself", "<!DOCTYPE x [<!ENTITY e '&e;'>]>", "<c>", "&e;", 1, "</c>"},
        {"nested elements", "", "", "<a>", 100000, QByteArray("</a>").repeated(100000)},
        {"nested lists, not closed", "", "", "<ColorLibrary>", 100000, ""},
        {"long attribute", "", "<Color value='", "0", 100 * Megabyte, "'/>"},
        {"long name", "", "<Color ", "a", 100 * Megabyte, "=''/>"},
        {"long comment", "", "<!--", "x", 100 * Megabyte, "-->"},
        {"long text", "", "", "x", 100 * Megabyte, ""},
        {"not UTF-8", "", "<Color name='", "\xff", 1 * Megabyte, "'/>", "user file, preset, database"},
        {"not UTF-8, often", "", "", "<Color name='\xc3\x28\xed\xa0\x80'/>", 4 * Megabyte, ""},
        {"zero bytes", "", "", QByteArray(1, '\0'), 100 * Megabyte, ""},
        {"zero bytes in attributes", "", "", QByteArray("<Color name='\0'/>", 16), 5 * Megabyte, ""},
        {"an attribute twice", "", "<Color name='a' name='a'/>", " ", 1, "", "database"},
        {"an attribute very often", "", "<Color ", "name='a' ", 10 * Megabyte, "/>"},
        {"many attributes", "", "<Color ", "a='' b='' c='' d='' ", 100000, "/>"},
        {"many colours", "", "", "<Color/>", 12 * Megabyte, ""},
        {"many lists", "", "", "<ColorLibrary/>", 6 * Megabyte, ""},
    };
    return all;
}

} // namespace

class TestHostile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void documents_data()
    {
        const Rows<QString, int> row;
        for (const QByteArray reader : {"user file", "preset", "database"})
            for (int i = 0; i < hostilities().size(); ++i)
                if (reader != "preset" || hostilities().at(i).count <= Megabyte) // It shares the user file's reader.
                    row(reader + ": " + hostilities().at(i).name, reader, i);
    }
    void documents()
    {
        const auto [reader, hostility] = fetched<QString, int>();
        const Hostility& it = hostilities().at(hostility);
        const bool isDatabase = reader == "database";
        const QTemporaryDir folder;
        QVERIFY(QDir(folder.path()).mkpath("Resources/Presets"));
        const QString name = isDatabase              ? "FixtureProfiles.xml"
                             : reader == "user file" ? "support\\Norvale\\userColors.xml"
                                                     : "Resources/Presets/hostile.lxcolors";
        QFile file(folder.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(it.prolog + (isDatabase ? ProfileBegin : ListBegin) + it.before);
        repeat(file, it.piece, it.count);
        file.write(it.after + (isDatabase ? ProfileEnd : ListEnd));
        file.close();
        read(reader, folder.path(), QString(), it.takenOverBy.contains(reader.toLatin1()));
    }

    void projects_data()
    {
        QTest::addColumn<QString>("name");
        for (const char* name : {"nested", "long", "zeros", "entity"})
            QTest::newRow(name) << name;
    }
    void projects()
    {
        QFETCH(QString, name);
        read("project", QString(), name, false);
    }

private:
    /// Runs this program beside the folder's files.
    void read(const QString& reader, const QString& path, const QString& name, bool isTakenOver)
    {
        const QTemporaryDir elsewhere;
        const QDir folder(path.isEmpty() ? elsewhere.path() : path);
        QVERIFY(folder.mkpath("bin"));
        const QString program = folder.filePath("bin/program");
        QVERIFY(QFile::copy(QCoreApplication::applicationFilePath(), program));
        QProcess process;
        process.start(program, {"--child", reader, folder.path(), name});
        QVERIFY2(process.waitForFinished(60000), "it goes on and on");
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        const QByteArray report = process.readAllStandardOutput();
        const QList<QByteArray> words = report.simplified().split(' ');
        QCOMPARE(words.size(), 3);
        qInfo("%s s, %s MiB", words.at(1).constData(), words.at(2).constData());
        QCOMPARE(words.at(0), QByteArray(isTakenOver ? "1" : "0"));
#ifndef LXCOLOR_SANITIZED
        QVERIFY2(words.at(2).toInt() < 256, report.constData());
#endif
    }
};

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == QLatin1String("--child"))
        return runChild(arguments.value(2), arguments.value(3), arguments.value(4));
    TestHostile test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_hostile.moc"
