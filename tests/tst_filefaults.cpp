// What goes wrong with files: processes that are killed, full disks, missing rights, other processes, other things in
// the place of the file. Nobody's colours may be lost over it: what was saved last is in the file, or whole beside it.

#include "ColorSection_p.h"
#include "LibraryFiles_p.h"
#include "LibrarySupport.h"

#include <QDir>
#include <QProcess>

#include <csignal>
#include <cstdio>
#include <random>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

// ---- The part of a second process, which saves in the folder it is given and may be stopped at any time. ----

static QString childFolder;

static void addColors(int count)
{
    LXColorLibrary* library = LXColorLibrary::Instance();
    const LXColor color(Red);
    library->setEditingMultipleColors(true);
    for (int i = 0; i < count; ++i)
        library->createColorWithName(color, QStringLiteral("Added"), QString(), QStringLiteral("Mine"), QString());
    library->setEditingMultipleColors(false);
}

/// Saves without end, and says so after a while.
static void saveForever()
{
    LXColorLibrary* library = LXColorLibrary::Instance();
    for (int run = 0;; ++run) {
        addColors(300);
        if (run == 2) {
            std::puts("saving");
            std::fflush(stdout);
        }
        if (library->rowCount(library->getIndexOfListId(QStringLiteral("Mine"))) > 3000)
            library->clear(QStringLiteral("Mine"));
    }
}

static int runChild(const QString& folder, const QStringList& arguments)
{
    childFolder = folder;
    lxcolor::setAppSupportLookup([] { return childFolder + QLatin1String("/support"); });
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));
    if (arguments.contains(QLatin1String("unprivileged")) && geteuid() == 0 && setuid(65534) != 0)
        return 2;
    if (arguments.contains(QLatin1String("limited"))) {
        const rlimit limit = {20000, 20000};
        std::signal(SIGXFSZ, SIG_IGN);
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    LXColorLibrary* library = LXColorLibrary::Instance();
    library->init(true, true, true);
    library->loadUserColors(QString());
    if (!library->getIndexOfListId(QStringLiteral("Mine")).isValid())
        library->createColorList(QStringLiteral("Mine"), true);
    if (arguments.contains(QLatin1String("forever")))
        saveForever();
    const int lists = arguments.indexOf(QLatin1String("lists"));
    if (lists < 0)
        addColors(arguments.contains(QLatin1String("many")) ? 300 : 1);
    else
        for (int i = 0; i < 50; ++i)
            library->createColorList(arguments.value(lists + 1) + QString::number(i), true);
    return 0;
}

// ---- The tests ----

class TestFileFaults : public LibraryTest
{
    Q_OBJECT

private Q_SLOTS:
    void killedWhileSaving()
    {
        const int kills =
            qEnvironmentVariableIsSet("LXCOLOR_KILLS") ? qEnvironmentVariableIntValue("LXCOLOR_KILLS") : 30;
        writeFile(userFile(), before());
        std::mt19937 random(5);
        for (int run = 0; run < kills; ++run) {
            QProcess process;
            startChild(process, {"forever"});
            QVERIFY(process.waitForReadyRead());
            QThread::usleep(random() % 30000);
            process.kill();
            QVERIFY(process.waitForFinished());
            const lxcolor::ColorSections read = lxcolor::readColorSections(contentOf(userFile()));
            QVERIFY2(read.outcome == lxcolor::ColorSections::Whole && !read.sections.isEmpty(), qPrintable(read.error));
        }
        QCOMPARE(keptFiles(), QStringList());
        runChildInFolder({"one"}); // What the last one left behind, its lock for example, keeps nobody from saving.
        QVERIFY(contentOf(userFile()).contains("Added"));
    }

    void noRoomToSave_data()
    {
        QTest::addColumn<QString>("place");
        QTest::newRow("beside the file") << "limited";
        QTest::newRow("in the file, because the folder is read-only") << "limited unprivileged";
        QTest::newRow("on the disk") << "disk";
        QTest::newRow("on the disk, for as little as stays in a buffer") << "disk full";
    }
    void noRoomToSave()
    {
        QFETCH(QString, place);
        const Mounted disk(place.startsWith("disk") ? folder() : QString(), "size=32k");
        if (place.startsWith("disk") && !disk.isMounted())
            QSKIP("no disk can be mounted here");
        const bool isFolderReadOnly = place.contains("unprivileged");
        writeFile(userFile(), before());
        makeReadOnly(isFolderReadOnly);
        if (place == "disk full") {
            QFile rest(folder() + "/rest");
            QVERIFY(rest.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
            while (rest.write(QByteArray(4096, 'x')) == 4096)
                ;
        }
        runChildInFolder(QStringList{place == "disk full" ? "one" : "many"} + place.split(' '));
        makeReadOnly(false);
        // What was loaded may have been written anew, but nothing is missing.
        const lxcolor::ColorSections read = lxcolor::readColorSections(contentOf(userFile()));
        QCOMPARE(read.outcome, lxcolor::ColorSections::Whole);
        QCOMPARE(read.sections.value(0).colors.value(0).name, QString("a"));
        QCOMPARE(read.sections.value(0).colors.size(), 1);
    }

    void readOnly_data()
    {
        QTest::addColumn<QString>("what");
        QTest::newRow("folder") << "folder";
        QTest::newRow("folder and file") << "folder and file";
        QTest::newRow("disk") << "disk";
    }
    void readOnly()
    {
        QFETCH(QString, what);
        Mounted disk(what == "disk" ? folder() : QString(), "size=1m");
        if (what == "disk" && !disk.isMounted())
            QSKIP("no disk can be mounted here");
        writeFile(userFile(), before());
        makeReadOnly(what != "disk", what == "folder");
        disk.makeReadOnly();
        runChildInFolder(what == "disk" ? QStringList{"one"} : QStringList{"one", "unprivileged"});
        const QByteArray after = contentOf(userFile());
        if (what != "disk")
            makeReadOnly(false);
        if (what == "folder") // The file itself is written to.
            QVERIFY(after.contains("Added") &&
                    lxcolor::readColorSections(after).outcome == lxcolor::ColorSections::Whole);
        else
            QCOMPARE(after, before());
    }

    // What lies in the place of the file and cannot be read makes room for it.
    void somethingElse_data()
    {
        QTest::addColumn<QString>("what");
        for (const char* what : {"a folder", "a file that must not be read", "a pipe", "a link to a device", "1 GB"})
            QTest::newRow(what) << what;
    }
    void somethingElse()
    {
        QFETCH(QString, what);
        const QByteArray path = QFile::encodeName(userFile());
        const QString kept = userFile() + ".kept";
        if (what == "a folder") {
            QVERIFY(QDir().mkpath(userFile()));
            writeFile(userFile() + "/inside", before());
        } else if (what == "a pipe") {
            QCOMPARE(mkfifo(path.constData(), 0666), 0);
        } else if (what == "a link to a device") {
            QVERIFY(QFile::link("/dev/zero", userFile()));
        } else {
            writeFile(userFile(), before());
            if (what == "1 GB")
                QVERIFY(QFile::resize(userFile(), qint64(1) << 30));
            else
                QCOMPARE(chmod(path.constData(), 0), 0);
        }
        makeFolderOpen();
        runChildInFolder({"one", "unprivileged"});

        QVERIFY(QFileInfo(userFile()).isFile() && contentOf(userFile()).contains("Added"));
        QCOMPARE(keptFiles(), QStringList(QFileInfo(kept).fileName()));
        struct stat status;
        QCOMPARE(lstat(QFile::encodeName(kept).constData(), &status), 0);
        if (what == "a folder")
            QCOMPARE(contentOf(kept + "/inside"), before());
        else if (what == "a pipe")
            QVERIFY(S_ISFIFO(status.st_mode));
        else if (what == "a link to a device")
            QVERIFY(S_ISLNK(status.st_mode));
        else if (what == "1 GB")
            QCOMPARE(qint64(status.st_size), qint64(1) << 30);
        else
            QCOMPARE(contentOf(kept), geteuid() == 0 ? before() : QByteArray());
        QCOMPARE(chmod(QFile::encodeName(kept).constData(), 0777), 0);
    }

    // Links go on leading to the file.
    void links_data()
    {
        const Rows<int, bool> row;
        row("to the file", 1, true);
        row("to a link to it", 2, true);
        row("to nothing", 1, false);
    }
    void links()
    {
        const auto [count, isThere] = fetched<int, bool>();
        const QString target = folder() + "/elsewhere/colors.xml";
        QVERIFY(QDir().mkpath(folder() + "/elsewhere"));
        if (isThere)
            writeFile(target, before());
        if (count == 2)
            QVERIFY(QFile::link("elsewhere/colors.xml", folder() + "/link"));
        QVERIFY(QFile::link(count == 2 ? "link" : "elsewhere/colors.xml", userFile()));
        runChildInFolder({"one"});
        QVERIFY(QFileInfo(userFile()).isSymLink());
        QVERIFY(count == 1 || QFileInfo(folder() + "/link").isSymLink());
        const QByteArray saved = contentOf(target);
        QVERIFY(saved.contains("Added") && saved.contains("\"a\"") == isThere);
        QCOMPARE(keptFiles(), QStringList());
    }

    void growsWhileItIsRead()
    {
        const QByteArray whole =
            document(userListElement(colorElement("a").repeated(200)) + "<!--" + QByteArray(500000, ' ') + "-->");
        writeFile(userFile(), whole.left(whole.size() / 2));
        restart();
        QVERIFY(!list("Mine").isValid());
        writeFile(userFile(), whole);
        lib()->createColorList("New", true);
        QCOMPARE(contentOf(userFile() + ".kept"), whole);

        const QString path = folder() + "/growing";
        std::thread writer([&] {
            QFile file(path);
            if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
                return;
            for (int i = 0; i < whole.size(); i += 1000)
                file.write(whole.mid(i, 1000));
        });
        const auto outcome = [&] { return lxcolor::readColorSections(lxcolor::readFile(path).bytes).outcome; };
        for (int i = 0; i < 100 && outcome() == lxcolor::ColorSections::Unreadable; ++i)
            ;
        writer.join();
        QCOMPARE(outcome(), lxcolor::ColorSections::Whole);
    }

    // ---- Two processes that save in one file ----

    void savedByAnotherProcess()
    {
        restart();
        lib()->createColorList("Ours", true);
        lib()->createColorList("Ours, too", true);
        QCOMPARE(keptFiles(), QStringList());
        runChildInFolder({"lists", "Theirs"});
        const QByteArray theirs = contentOf(userFile());
        QVERIFY(theirs.contains("Theirs49") && theirs.contains("Ours, too"));
        lib()->createColorList("Ours again", true);
        lib()->createColorList("Ours at last", true);
        QVERIFY(contentOf(userFile()).contains("Ours at last"));
        QCOMPARE(keptFiles().size(), 1);
        QCOMPARE(contentOf(userFile() + ".kept"), theirs);
    }

    void savedAtOnce()
    {
        writeFile(userFile(), before());
        QProcess first;
        QProcess second;
        startChild(first, {"lists", "First"});
        startChild(second, {"lists", "Second"});
        for (QProcess* process : {&first, &second}) {
            QVERIFY(process->waitForFinished());
            QCOMPARE(process->exitStatus(), QProcess::NormalExit);
            QCOMPARE(process->exitCode(), 0);
        }
        QByteArray all;
        const QStringList files = keptFiles() + QStringList(QFileInfo(userFile()).fileName());
        for (const QString& name : files) {
            const QByteArray bytes = contentOf(folder() + '/' + name);
            QCOMPARE(lxcolor::readColorSections(bytes).outcome, lxcolor::ColorSections::Whole);
            all += bytes;
        }
        for (int i = 0; i < 50; ++i)
            for (const QByteArray& name : {"First" + QByteArray::number(i), "Second" + QByteArray::number(i)})
                QVERIFY2(all.contains('"' + name + '"'), name.constData());
        QVERIFY(!QFile::exists(userFile() + ".lock"));
    }

private:
    /// A small disk of its own in the place of a folder, where the system lets us.
    class Mounted
    {
    public:
        Mounted(const QString& folder, const char* options) : m_folder(QFile::encodeName(folder))
        {
            m_isMounted = !folder.isEmpty() && mount("tmpfs", m_folder.constData(), "tmpfs", 0, options) == 0;
        }
        ~Mounted()
        {
            if (m_isMounted)
                umount2(m_folder.constData(), MNT_DETACH);
        }
        Q_DISABLE_COPY(Mounted)
        bool isMounted() const { return m_isMounted; }
        void makeReadOnly()
        {
            if (m_isMounted)
                QCOMPARE(mount("tmpfs", m_folder.constData(), "tmpfs", MS_REMOUNT | MS_RDONLY, nullptr), 0);
        }

    private:
        QByteArray m_folder;
        bool m_isMounted = false;
    };

    QByteArray before() const { return document(userListElement(colorElement("a"))); }
    QStringList keptFiles() const { return QDir(folder()).entryList({"*.kept*"}, QDir::AllEntries | QDir::System); }
    void startChild(QProcess& process, const QStringList& arguments)
    {
        process.start(QCoreApplication::applicationFilePath(), QStringList{"--child", folder()} + arguments);
    }
    void runChildInFolder(const QStringList& arguments)
    {
        QProcess process;
        startChild(process, arguments);
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 0);
    }
    // The second process has no rights but those of everybody.
    void makeReadOnly(bool readOnly, bool fileIsWritable = true)
    {
        QVERIFY(QDir().mkpath(LXColorLibrary::applicationSupportDir()));
        const mode_t fileMode = fileIsWritable ? 0666 : 0444;
        QCOMPARE(chmod(QFile::encodeName(userFile()).constData(), readOnly ? fileMode : 0666), 0);
        QCOMPARE(chmod(QFile::encodeName(folder()).constData(), readOnly ? 0555 : 0755), 0);
    }
    void makeFolderOpen()
    {
        QVERIFY(QDir().mkpath(LXColorLibrary::applicationSupportDir()));
        QCOMPARE(chmod(QFile::encodeName(folder()).constData(), 0777), 0);
    }
};

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == QLatin1String("--child"))
        return runChild(arguments.value(2), arguments.mid(3));
    TestFileFaults test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_filefaults.moc"
