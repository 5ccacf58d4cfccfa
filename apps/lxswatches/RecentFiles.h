#ifndef RECENTFILES_H
#define RECENTFILES_H

#include <QMenu>
#include <QStringList>

/// The menu of the files that were opened or saved last, kept in the settings.
class RecentFiles : public QMenu
{
    Q_OBJECT

public:
    explicit RecentFiles(const QString& title, QWidget* parent = nullptr);

    QStringList paths() const;
    void add(const QString& path);
    void remove(const QString& path);

Q_SIGNALS:
    void chosen(const QString& path);

private:
    void store(const QStringList& paths);
    void fill();
};

#endif
