#ifndef TESTS_LIBRARYSUPPORT_H
#define TESTS_LIBRARYSUPPORT_H

#include "AppSupportFolder_p.h"
#include "Files.h"
#include "LXColorLibrary.h"
#include "ModelWatch.h"
#include "OrbisProjectHelper.h"
#include "Support.h"

#include <QAbstractItemModelTester>
#include <QDomDocument>
#include <QLoggingCategory>
#include <QTemporaryDir>

#include <memory>
#include <vector>

// ---- Documents with colour lists ----

const QString Red = QStringLiteral("aRgb;1;0;#ffffffff00000000");

inline QByteArray document(const QByteArray& content)
{
    return "<ColorLibraryList>" + content + "</ColorLibraryList>\n";
}
inline QByteArray colorElement(const QByteArray& name)
{
    return "<Color name=\"" + name + "\" uid=\"{" + name + "}\" value=\"" + Red.toLatin1() + "\"/>";
}
inline QByteArray userListElement(const QByteArray& content)
{
    return "<ColorLibrary name=\"Mine\" isUserLibrary=\"1\">" + content + "</ColorLibrary>";
}

/**
 * Base of the tests of the library: each test function begins with a fresh library, watched as a model, whose user
 * colour file lies in a folder of its own. Debug messages are off unless a test asks for them.
 */
class LibraryTest : public QObject
{
    Q_OBJECT

protected:
    LXColorLibrary* lib() const { return LXColorLibrary::Instance(); }
    LXColor rgb(int r, int g, int b, int alpha = 255) const
    {
        return LXColor::fromRgb8(r, g, b, alpha, ColorUtils::ProfileGenericRGB);
    }
    QString userFile() const { return LXColorLibrary::applicationSupportDir() + QLatin1String("\\userColors.xml"); }
    QString folder() const { return m_folder->path(); }
    QModelIndex list(const QString& id) const { return lib()->getIndexOfListId(id); }
    QStringList names(const QString& listId) const
    {
        QStringList result;
        for (int row = 0; row < lib()->rowCount(list(listId)); ++row)
            result << lib()->index(row, 0, list(listId)).data().toString();
        return result;
    }
    QStringList listNames() const
    {
        QStringList result;
        for (int row = 0; row < lib()->rowCount(lib()->rootIndex()); ++row)
            result << lib()->index(row, 0, lib()->rootIndex()).data().toString();
        return result;
    }
    /// Loads a project document, and gives the error.
    QString loadProject(const QByteArray& xml, double version = 1.0) const
    {
        QDomDocument document;
        QString error;
        [&] {
            QVERIFY(document.setContent(xml));
            QVERIFY(lib()->loadDocument(document, error, version, ORBIS_APPLICATION_ID));
        }();
        return error;
    }
    /// A library as after a start of the application, with the user colour file loaded.
    void restart(bool withProjectSwatches = true)
    {
        stop();
        start();
        lib()->init(withProjectSwatches, true, true);
        lib()->loadUserColors(QString());
    }
    void stop()
    {
        m_testers.clear();
        m_rooted.reset();
        if (m_watch)
            QCOMPARE(m_watch->faults(), QStringList());
        m_watch.reset();
        LXColorLibrary::cleanup();
    }
    void setDebugOutput(bool on)
    {
        QLoggingCategory::setFilterRules(on ? QStringLiteral("default.debug=true")
                                            : QStringLiteral("default.debug=false"));
    }
    QStringList takeMessages() { return withoutExpectedObjections(Messages::takeTexts()); }

private Q_SLOTS:
    void init()
    {
        setDebugOutput(false);
        m_messages.reset(new Messages);
        m_folder.reset(new QTemporaryDir);
        s_support = m_folder->path() + QLatin1String("/support");
        lxcolor::setAppSupportLookup([] { return s_support; });
        start();
    }
    void cleanup()
    {
        stop();
        lxcolor::setAppSupportLookup(nullptr);
        QCOMPARE(takeMessages(), QStringList());
        m_messages.reset();
    }

private:
    void start()
    {
        m_watch.reset(new ChangeWatch(lib()));
        m_rooted.reset(new RootedLibrary(lib()));
        const auto mode = QAbstractItemModelTester::FailureReportingMode::Warning;
        m_testers.emplace_back(new QAbstractItemModelTester(lib(), mode));
        m_testers.emplace_back(new QAbstractItemModelTester(m_rooted.data(), mode));
    }

    static inline QString s_support;
    QScopedPointer<Messages> m_messages;
    QScopedPointer<QTemporaryDir> m_folder;
    QScopedPointer<ChangeWatch> m_watch;
    QScopedPointer<RootedLibrary> m_rooted;
    std::vector<std::unique_ptr<QAbstractItemModelTester>> m_testers;
};

#endif
