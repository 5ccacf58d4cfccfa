#include "Session.h"

#include "LXColorLibrary.h"
#include "SwatchView.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace {

// Those that the program carries along, where none are installed beside it.
void loadOwnPresets(LXColorLibrary* library)
{
    const QDir folder(QStringLiteral(":/presets"));
    for (const char* name : {"WhitePoints.lxcolors", "Primaries.lxcolors", "ColorWheel.lxcolors"}) {
        if (folder.exists(QLatin1String(name)))
            library->loadUserColors(folder.filePath(QLatin1String(name)));
    }
}

} // namespace

void startLibrary()
{
    LXColorLibrary* library = LXColorLibrary::Instance();
    library->setThumbnailGenerator(&SwatchView::thumbnail);
    library->init(true, true, true);
    const int withoutPresets = library->rowCount(library->rootIndex());
    library->loadPresetFiles();
    if (library->rowCount(library->rootIndex()) == withoutPresets)
        loadOwnPresets(library);
    library->loadUserColors(QString());
}

void installTranslation()
{
    const QString folder = QCoreApplication::applicationDirPath();
    auto* own = new QTranslator(QCoreApplication::instance());
    for (const char* place : {"/../share/LXColor/translations", "/../translations"}) { // installed, built
        if (own->load(QLocale(), QStringLiteral("lxcolor"), QStringLiteral("_"), folder + QLatin1String(place))) {
            QCoreApplication::installTranslator(own);
            break;
        }
    }
    auto* ofQt = new QTranslator(QCoreApplication::instance());
    if (ofQt->load(QLocale(), QStringLiteral("qtbase"), QStringLiteral("_"),
                   QLibraryInfo::location(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(ofQt);
}
