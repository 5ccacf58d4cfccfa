#include "RecentFiles.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>

namespace {

constexpr int kMostFiles = 8;
const char* const kKey = "recentFiles";

} // namespace

RecentFiles::RecentFiles(const QString& title, QWidget* parent) : QMenu(title, parent) { fill(); }

QStringList RecentFiles::paths() const { return QSettings().value(QLatin1String(kKey)).toStringList(); }

void RecentFiles::add(const QString& path)
{
    const QString absolute = QFileInfo(path).absoluteFilePath();
    QStringList all = paths();
    all.removeAll(absolute);
    all.prepend(absolute);
    store(all.mid(0, kMostFiles));
}

void RecentFiles::remove(const QString& path)
{
    QStringList all = paths();
    all.removeAll(QFileInfo(path).absoluteFilePath());
    store(all);
}

void RecentFiles::store(const QStringList& paths)
{
    QSettings().setValue(QLatin1String(kKey), paths);
    fill();
}

void RecentFiles::fill()
{
    clear();
    int number = 0;
    for (const QString& path : paths()) {
        QString name = QDir::toNativeSeparators(path);
        name.replace(QLatin1Char('&'), QLatin1String("&&"));
        QAction* action = addAction(QStringLiteral("&%1  %2").arg(++number).arg(name));
        connect(action, &QAction::triggered, this, [this, path] { Q_EMIT chosen(path); });
    }
    setEnabled(number > 0);
}
