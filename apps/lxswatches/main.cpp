// lxswatches: the swatches of a show, white light, and what fixtures make of it, in a window.

#include "Appearance.h"
#include "LXColorLibrary.h"
#include "MainWindow.h"
#include "Session.h"
#include "SwatchView.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QIcon>
#include <QLoggingCategory>
#include <QSettings>
#include <QTemporaryDir>

namespace {

struct Options
{
    QString file, screenshot;
    bool isDark = false;
};

Options readOptions(const QCoreApplication& app)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("The swatches of a show, and what LED fixtures make of them."));
    const QCommandLineOption dark(QStringLiteral("dark"), QStringLiteral("Light on dark."));
    QCommandLineOption screenshot(QStringLiteral("screenshot"), QStringLiteral("Writes a picture and ends."),
                                  QStringLiteral("FILE"));
    screenshot.setFlags(QCommandLineOption::HiddenFromHelp);
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions({dark, screenshot});
    parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("The project document or palette to open."),
                                 QStringLiteral("[FILE]"));
    parser.process(app);
    return {parser.positionalArguments().value(0), parser.value(screenshot), parser.isSet(dark)};
}

Appearance chosenAppearance(const Options& options)
{
    if (options.isDark)
        return Appearance::Dark;
    const QVariant dark = QSettings().value(QStringLiteral("dark"));
    if (!options.screenshot.isEmpty())
        return Appearance::Light;
    return dark.isValid() ? (dark.toBool() ? Appearance::Dark : Appearance::Light) : surroundingAppearance();
}

/// Pictures show nobody's own colours and settings.
void moveTo(const QTemporaryDir& home)
{
    qputenv("XDG_DATA_HOME", home.path().toLocal8Bit());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, home.path());
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPointSizeF(9.5);
    QApplication::setFont(font);
}

int takePicture(MainWindow& window, const QString& path)
{
    constexpr int kShownSwatch = 1;
    window.resize(1040, 570);
    window.show();
    const QStringList uids = LXColorLibrary::Instance()->getColorUids(QStringLiteral("Project Swatches"));
    window.findChild<SwatchView*>()->setCurrentUid(uids.value(kShownSwatch));
    QApplication::processEvents();
    return window.grab().toImage().save(path, "PNG", 0) ? 0 : 1;
}

int run(const Options& options)
{
    QTemporaryDir home;
    if (!options.screenshot.isEmpty())
        moveTo(home);
    setAppearance(chosenAppearance(options));
    startLibrary();
    MainWindow window(chosenAppearance(options));
    window.restoreSettings();
    if (!options.file.isEmpty())
        window.openDocument(options.file);
    if (!options.screenshot.isEmpty())
        return takePicture(window, options.screenshot);
    window.show();
    return QApplication::exec();
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    const QApplication app(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("LXColor"));
    QApplication::setApplicationName(QStringLiteral("lxswatches"));
    QApplication::setApplicationVersion(QStringLiteral(LXCOLOR_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("lxswatches"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/lxswatches.svg")));
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false")); // what the library says to developers
    const Options options = readOptions(app);
    installTranslation();
    QApplication::setApplicationDisplayName(QCoreApplication::translate("MainWindow", "Swatches"));
    const int status = run(options);
    LXColorLibrary::cleanup();
    return status;
}
