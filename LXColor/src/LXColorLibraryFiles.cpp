// The user colour file, preset files and the colours of project documents.

#include "AppSupportFolder_p.h"
#include "ColorSection_p.h"
#include "LXColorLibrary.h"
#include "LXColorLibrary_p.h"
#include "LibraryFiles_p.h"
#include "OrbisProjectHelper.h"

#include <QCoreApplication>
#include <QCursor>
#include <QDebug>
#include <QDir>
#include <QDomDocument>
#include <QGuiApplication>

#include <algorithm>

namespace {

/// The wait cursor, in programs that have cursors.
class WaitCursor
{
public:
    WaitCursor()
    {
        if (m_hasCursors)
            QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    }
    ~WaitCursor()
    {
        if (m_hasCursors)
            QGuiApplication::restoreOverrideCursor();
    }
    Q_DISABLE_COPY(WaitCursor)

private:
    const bool m_hasCursors = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
};

QString presetFolder() { return QCoreApplication::applicationDirPath() + QLatin1String("/../Resources/Presets"); }

} // namespace

// ---- User colours ----

QString LXColorLibrary::applicationSupportDir() { return lxcolor::appSupportFolder() + QLatin1String("\\Norvale"); }

QString LXColorLibrary::userColorsPath() { return applicationSupportDir() + QLatin1String("\\userColors.xml"); }

QString LXColorLibrary::userColorsText() const
{
    lxcolor::ColorSectionWriter writer;
    for (const LXColorLibraryItem* list : qAsConst(m_rootItem->m_childItems)) {
        if (!isUserList(list))
            continue;
        writer.beginList(list->m_displayName, true);
        for (const LXColorLibraryItem* entry : list->m_childItems) {
            if (!entry->m_uid.isEmpty())
                writer.addColor({entry->m_uid, entry->m_displayName, entry->m_color.aName(), entry->m_originatingPreset,
                                 entry->m_vendorID});
        }
        writer.endList();
    }
    return writer.finish();
}

void LXColorLibrary::saveUserColors()
{
    if (!m_userColorsLoaded)
        return;
    const QString folder = applicationSupportDir();
    if (!QDir(folder).exists())
        QDir().mkdir(folder);
    const QString text = userColorsText();
    if (lxcolor::replaceFile(userColorsPath(), text.toUtf8(), m_knownUserFile) && lxcolor::isDebugOutputOn())
        qDebug() << text;
}

void LXColorLibrary::loadUserColors(const QString& path)
{
    const WaitCursor cursor;
    setEditingMultipleColors(true);
    const QString filePath = path.isEmpty() ? userColorsPath() : path;
    const lxcolor::FileContent file = lxcolor::readFile(filePath);
    const bool isWhole = takeOverLists(file, filePath);
    if (path.isEmpty()) {
        m_userColorsLoaded = true;
        m_knownUserFile = isWhole ? file.bytes : QByteArray();
    }
    setEditingMultipleColors(false);
}

/// False when something of the file was not taken over.
bool LXColorLibrary::takeOverLists(const lxcolor::FileContent& file, const QString& path)
{
    if (file.state != lxcolor::FileContent::Read)
        return file.state == lxcolor::FileContent::Missing;
    if (file.bytes.trimmed().isEmpty())
        return true;

    const lxcolor::ColorSections loaded = lxcolor::readColorSections(file.bytes);
    if (loaded.outcome != lxcolor::ColorSections::Whole && lxcolor::isDebugOutputOn())
        qDebug() << "LXColorLibrary: not well-formed:" << path << loaded.error;

    const bool isNameOfProject = !listNamed(lxcolor::ProjectSwatchesId); // Else such a list gets a number.
    m_unreadableColors = 0;
    OrbisProjectHelper helper;
    connect(&helper, &OrbisProjectHelper::insertList, this, &LXColorLibrary::createColorList);
    connect(&helper, &OrbisProjectHelper::insertColor, this, &LXColorLibrary::handleInsertColor);
    QString error;
    QStringList oldPresetList;
    helper.announce(loaded.sections, error, 0.0, oldPresetList);

    const bool areSaved =
        std::all_of(loaded.sections.cbegin(), loaded.sections.cend(), [=](const lxcolor::ColorSection& section) {
            return section.isUserList && !(isNameOfProject && section.name == lxcolor::ProjectSwatchesId);
        });
    return loaded.outcome == lxcolor::ColorSections::Whole && !loaded.holdsMore && m_unreadableColors == 0 && areSaved;
}

// ---- Presets ----

void LXColorLibrary::loadPresetFiles()
{
    static const QStringList filters(QStringLiteral("*.lxcolors"));
    const QFileInfoList files = QDir(presetFolder()).entryInfoList(filters, QDir::Files, QDir::Unsorted);
    for (const QFileInfo& file : files)
        takeOverLists(lxcolor::readFile(file.filePath()), file.filePath());
}

QStringList LXColorLibrary::oldPresets() const
{
    QStringList names;
    for (const LXColorLibraryItem* list : qAsConst(m_rootItem->m_childItems)) {
        for (const LXColorLibraryItem* entry : list->m_childItems) {
            if (!entry->m_oldPreset.isEmpty())
                names.append(entry->m_oldPreset);
        }
    }
    return names;
}

void LXColorLibrary::clearOldPresets()
{
    const OneSave oneSave(this);
    QVector<QPointer<LXColorLibraryItem>> markers;
    for (const LXColorLibraryItem* list : qAsConst(m_rootItem->m_childItems)) {
        for (LXColorLibraryItem* entry : list->m_childItems) {
            if (entry->m_itemType == LXColorLibraryItem::OldPresetItem)
                markers.append(entry);
        }
    }
    for (const QPointer<LXColorLibraryItem>& marker : qAsConst(markers)) {
        if (marker)
            removeRows(marker->row(), 1, indexOf(marker->parent()));
    }
    announceRoot();
}

// ---- Project documents ----

QDomElement LXColorLibrary::createElement(QDomDocument& document, bool& ok, QString applicationId)
{
    LXColorLibraryItem* list = listNamed(lxcolor::ProjectSwatchesId);
    return list ? list->createElement(document, ok, applicationId, false) : QDomElement();
}

bool LXColorLibrary::loadDocument(QDomDocument& document, QString& error, double version, QString applicationId)
{
    LXColorLibraryItem* list = listNamed(lxcolor::ProjectSwatchesId);
    if (!list)
        return false;
    if (applicationId == ORBIS_APPLICATION_ID)
        forgetPersistentIndexesBelow(list);
    return list->loadDocument(document, error, version, applicationId);
}

// The entries of a project are replaced without a word to the views; what was selected or expanded among them is gone.
void LXColorLibrary::forgetPersistentIndexesBelow(const LXColorLibraryItem* list)
{
    const QModelIndexList indexes = persistentIndexList();
    for (const QModelIndex& index : indexes) {
        const LXColorLibraryItem* node = nodeOf(index);
        if (!node || node->isBelow(list))
            changePersistentIndex(index, QModelIndex());
    }
}
