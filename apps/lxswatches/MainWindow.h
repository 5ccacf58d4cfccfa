#ifndef MAINWINDOW_H
#define MAINWINDOW_H

#include "Appearance.h"
#include "ProjectDocument.h"

#include <QMainWindow>
#include <QTimer>

class FixturePreview;
class LXColor;
class QSplitter;
class RecentFiles;
class SwatchView;
class WhitePointPicker;

/// The window: swatches at the left, white light in the middle, the fixture at the right; and the project document that
/// is open.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// On LXColorLibrary::Instance().
    explicit MainWindow(Appearance appearance, QWidget* parent = nullptr);

    /// Opens a document in place of the current one, or the colours of a palette (by its suffix) as a project without a
    /// name. False, with a message to the user, when that fails.
    bool openDocument(const QString& path);
    /// As they were when the program was closed last.
    void restoreSettings();

protected:
    void closeEvent(QCloseEvent* event) override;
    /// Files that are dropped, wherever in the window.
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void buildPanes();
    void buildActions();
    void buildFileMenu();
    void buildEditMenu();
    void buildColorMenu();
    void buildViewMenu();
    void buildHelpMenu();
    void buildToolBar();
    void connectPanes();
    void watchLibrary();

    void newDocument();
    void askAndOpen();
    void openOther(const QString& path);
    bool save();
    bool saveAs();
    bool saveTo(const QString& path);
    bool mayLoseChanges();
    void setPath(const QString& path);
    void forgetChanges();
    void updateModified();
    void complain(const QString& reason);

    void showSwatch(const LXColor& color);
    void addPicked();
    void replaceWithPicked();
    QString pickedName() const;
    void changeAppearance(Appearance appearance);
    void saveSettings() const;
    void about();

    ProjectDocument m_document;
    QString m_path;         ///< Of the project; empty for one that was never saved.
    QString m_proposedPath; ///< For such a one.
    QString m_savedColors;
    QTimer m_modifiedTimer;
    Appearance m_appearance;
    SwatchView* m_swatches = nullptr;
    WhitePointPicker* m_picker = nullptr;
    FixturePreview* m_preview = nullptr;
    QSplitter* m_splitter = nullptr;
    RecentFiles* m_recentFiles = nullptr;
    QAction* m_newAction = nullptr;
    QAction* m_openAction = nullptr;
    QAction* m_saveAction = nullptr;
    QAction* m_saveAsAction = nullptr;
    QAction* m_addAction = nullptr;
    QAction* m_replaceAction = nullptr;
};

#endif
