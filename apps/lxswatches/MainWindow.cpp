#include "MainWindow.h"

#include "CCTUtils.h"
#include "FixturePreview.h"
#include "Icons.h"
#include "LXColorLibrary.h"
#include "RecentFiles.h"
#include "SwatchView.h"
#include "WhitePointPicker.h"

#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QSettings>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStatusBar>
#include <QToolBar>
#include <QUndoStack>
#include <QUrl>
#include <QVBoxLayout>

namespace {

using SwatchAction = SwatchView::Action;

constexpr int kMargin = 14;
constexpr int kMessageTime = 6000; // milliseconds

/// A part of the window: a heading, and what is below it.
QWidget* pane(const QString& heading, QWidget* content, QWidget* below = nullptr)
{
    auto* widget = new QWidget;
    auto* layout = new QVBoxLayout(widget);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(10);
    auto* label = new QLabel(heading, widget);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * 1.2);
    font.setWeight(QFont::DemiBold);
    label->setFont(font);
    layout->addWidget(label);
    layout->addWidget(content, 1);
    if (below)
        layout->addWidget(below);
    return widget;
}

QPushButton* button(QAction* action)
{
    auto* button = new QPushButton(action->icon(), action->iconText());
    button->setToolTip(action->toolTip());
    button->setEnabled(action->isEnabled());
    QObject::connect(button, &QPushButton::clicked, action, &QAction::trigger);
    QObject::connect(action, &QAction::changed, button, [=] { button->setEnabled(action->isEnabled()); });
    return button;
}

QString fileFilter() { return MainWindow::tr("Project documents (*.xml);;All files (*)"); }

QString openFilter()
{
    return MainWindow::tr("Project documents and palettes (%1);;All files (*)")
        .arg(QStringLiteral("*.xml *.lxcolors *.gpl *.ase *.aco *.csv *.tsv *.css"));
}

/// The one file that is dragged, or nothing.
QString fileOf(const QMimeData* data)
{
    const QList<QUrl> urls = data ? data->urls() : QList<QUrl>();
    const QString path = urls.size() == 1 ? urls.first().toLocalFile() : QString();
    return QFileInfo(path).isFile() ? path : QString();
}

} // namespace

// ---- Building ----

MainWindow::MainWindow(Appearance appearance, QWidget* parent) : QMainWindow(parent), m_appearance(appearance)
{
    m_modifiedTimer.setSingleShot(true);
    connect(&m_modifiedTimer, &QTimer::timeout, this, &MainWindow::updateModified);
    m_swatches = new SwatchView;
    m_picker = new WhitePointPicker;
    m_preview = new FixturePreview;
    buildActions();
    buildPanes();
    buildFileMenu();
    buildEditMenu();
    buildColorMenu();
    buildViewMenu();
    buildHelpMenu();
    buildToolBar();
    statusBar()->setSizeGripEnabled(false);
    connectPanes();
    watchLibrary();
    m_preview->setColor(m_picker->color());
    newDocument();
    resize(1180, 700);
    m_splitter->setSizes({320, 450, 410});
    m_swatches->setFocus();
}

void MainWindow::buildActions()
{
    const auto make = [this](const QString& text, const QKeySequence& shortcut, void (MainWindow::*handler)()) {
        auto* action = new QAction(text, this);
        action->setShortcut(shortcut);
        connect(action, &QAction::triggered, this, handler);
        return action;
    };
    m_newAction = make(tr("&New"), QKeySequence(QKeySequence::New), &MainWindow::newDocument);
    disconnect(m_newAction, nullptr, this, nullptr);
    connect(m_newAction, &QAction::triggered, this, [this] {
        if (mayLoseChanges())
            newDocument();
    });
    m_openAction = make(tr("&Open…"), QKeySequence(QKeySequence::Open), &MainWindow::askAndOpen);
    m_openAction->setIcon(icon(Drawing::Open));
    m_addAction = make(tr("&Add to Swatches"), QKeySequence(QStringLiteral("Ctrl+Return")), &MainWindow::addPicked);
    m_addAction->setIcon(icon(Drawing::AddSwatch));
    m_replaceAction =
        make(tr("&Replace Swatch"), QKeySequence(QStringLiteral("Ctrl+Shift+Return")), &MainWindow::replaceWithPicked);
    m_replaceAction->setIcon(icon(Drawing::ReplaceSwatch));
    m_saveAction = new QAction(icon(Drawing::Save), tr("&Save"), this);
    m_saveAction->setShortcut(QKeySequence(QKeySequence::Save));
    connect(m_saveAction, &QAction::triggered, this, [this] { save(); });
    m_saveAsAction = new QAction(tr("Save &As…"), this);
    m_saveAsAction->setShortcut(QKeySequence(QStringLiteral("Ctrl+Shift+S")));
    connect(m_saveAsAction, &QAction::triggered, this, [this] { saveAs(); });

    const auto dress = [this](SwatchAction key, Drawing drawing) { m_swatches->action(key)->setIcon(icon(drawing)); };
    dress(SwatchAction::NewList, Drawing::NewList);
    dress(SwatchAction::Delete, Drawing::Delete);
    dress(SwatchAction::Undo, Drawing::Undo);
    dress(SwatchAction::Redo, Drawing::Redo);
    dress(SwatchAction::Find, Drawing::Find);
    for (const auto key : {SwatchAction::NewList, SwatchAction::Undo, SwatchAction::Redo, SwatchAction::Find})
        m_swatches->action(key)->setShortcutContext(Qt::WindowShortcut);
}

void MainWindow::buildPanes()
{
    auto* buttons = new QWidget;
    auto* row = new QHBoxLayout(buttons);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(8);
    row->addWidget(button(m_addAction));
    row->addWidget(button(m_replaceAction));

    m_swatches->setMinimumWidth(230);
    m_splitter = new QSplitter;
    m_splitter->setHandleWidth(1);
    m_splitter->setChildrenCollapsible(false);
    m_splitter->addWidget(pane(tr("Swatches"), m_swatches));
    m_splitter->addWidget(pane(tr("White Light"), m_picker, buttons));
    m_splitter->addWidget(pane(tr("On the Fixture"), m_preview));
    m_splitter->setStretchFactor(0, 2);
    m_splitter->setStretchFactor(1, 3);
    m_splitter->setStretchFactor(2, 2);
    setCentralWidget(m_splitter);
    setAcceptDrops(true);
    installEventFilter(this);
    for (QWidget* widget : findChildren<QWidget*>())
        if (widget->acceptDrops()) // and would keep files from the window
            widget->installEventFilter(this);
}

void MainWindow::buildFileMenu()
{
    QMenu* menu = menuBar()->addMenu(tr("&File"));
    m_recentFiles = new RecentFiles(tr("Open &Recent"), this);
    connect(m_recentFiles, &RecentFiles::chosen, this, &MainWindow::openOther);
    menu->addAction(m_newAction);
    menu->addAction(m_openAction);
    menu->addMenu(m_recentFiles);
    menu->addSeparator();
    menu->addAction(m_saveAction);
    menu->addAction(m_saveAsAction);
    menu->addSeparator();
    QAction* quit = menu->addAction(tr("&Quit"), this, &QWidget::close);
    quit->setShortcut(QKeySequence(QStringLiteral("Ctrl+Q")));
    quit->setMenuRole(QAction::QuitRole);
}

void MainWindow::buildEditMenu()
{
    QMenu* menu = menuBar()->addMenu(tr("&Edit"));
    menu->addAction(m_swatches->action(SwatchAction::Undo));
    menu->addAction(m_swatches->action(SwatchAction::Redo));
    menu->addSeparator();
    menu->addAction(m_swatches->action(SwatchAction::Copy));
    menu->addAction(m_swatches->action(SwatchAction::Paste));
    menu->addAction(m_swatches->action(SwatchAction::Rename));
    menu->addAction(m_swatches->action(SwatchAction::Delete));
    menu->addSeparator();
    menu->addAction(m_swatches->action(SwatchAction::NewList));
    menu->addAction(m_swatches->action(SwatchAction::MoveListUp));
    menu->addAction(m_swatches->action(SwatchAction::MoveListDown));
    menu->addSeparator();
    menu->addAction(m_swatches->action(SwatchAction::Find));
}

void MainWindow::buildColorMenu()
{
    QMenu* menu = menuBar()->addMenu(tr("&Colour"));
    menu->addAction(m_addAction);
    menu->addAction(m_replaceAction);
}

void MainWindow::buildViewMenu()
{
    QMenu* menu = menuBar()->addMenu(tr("&View"));
    auto* group = new QActionGroup(this);
    const auto add = [&](const QString& text, Appearance appearance) {
        QAction* action = menu->addAction(text);
        action->setCheckable(true);
        action->setChecked(appearance == m_appearance);
        group->addAction(action);
        connect(action, &QAction::triggered, this, [this, appearance] { changeAppearance(appearance); });
    };
    add(tr("&Light"), Appearance::Light);
    add(tr("&Dark"), Appearance::Dark);
}

void MainWindow::buildHelpMenu()
{
    QMenu* menu = menuBar()->addMenu(tr("&Help"));
    menu->addAction(tr("&About"), this, &MainWindow::about)->setMenuRole(QAction::AboutRole);
}

void MainWindow::buildToolBar()
{
    QToolBar* bar = addToolBar(tr("Tools"));
    bar->setObjectName(QStringLiteral("tools"));
    bar->setMovable(false);
    bar->setIconSize({20, 20});
    bar->addAction(m_openAction);
    bar->addAction(m_saveAction);
    bar->addSeparator();
    bar->addAction(m_swatches->action(SwatchAction::Undo));
    bar->addAction(m_swatches->action(SwatchAction::Redo));
    bar->addSeparator();
    bar->addAction(m_swatches->action(SwatchAction::NewList));
    bar->addAction(m_addAction);
    bar->addAction(m_swatches->action(SwatchAction::Delete));
    bar->addSeparator();
    bar->addAction(m_swatches->action(SwatchAction::Find));
}

// ---- What one part tells the others ----

void MainWindow::connectPanes()
{
    connect(m_swatches, &SwatchView::currentColorChanged, this, &MainWindow::showSwatch);
    connect(m_swatches, &SwatchView::colorActivated, this, &MainWindow::showSwatch);
    connect(m_swatches, &SwatchView::refused, this, &MainWindow::complain);
    connect(m_picker, &WhitePointPicker::colorChanged, m_preview, &FixturePreview::setColor);
    connect(m_preview, &FixturePreview::targetChanged, this,
            [this] { m_picker->setFixture(m_preview->target().profile); });
}

void MainWindow::watchLibrary()
{
    LXColorLibrary* library = LXColorLibrary::Instance();
    const auto look = [this] { m_modifiedTimer.start(0); };
    connect(library, &QAbstractItemModel::dataChanged, this, look);
    connect(library, &QAbstractItemModel::rowsInserted, this, look);
    connect(library, &QAbstractItemModel::rowsRemoved, this, look);
}

// The picker goes to the nearest white, but what is shown on the fixture is the swatch itself.
void MainWindow::showSwatch(const LXColor& color)
{
    m_replaceAction->setEnabled(m_swatches->canEditCurrentColor());
    if (!color.isValid())
        return;
    const QSignalBlocker blocker(m_picker);
    m_picker->setColor(color);
    m_preview->setColor(color);
}

QString MainWindow::pickedName() const
{
    const QString kelvin = tr("%1 K").arg(m_picker->cct());
    const int percent = qRound(100.0 * m_picker->tint() / CCTUtils::getMaxTint());
    return percent == 0 ? kelvin : tr("%1, tint %2 %").arg(kelvin).arg(percent);
}

void MainWindow::addPicked()
{
    if (m_swatches->addColor(m_picker->color(), pickedName()).isEmpty())
        complain(tr("There is no list that can be changed."));
}

void MainWindow::replaceWithPicked()
{
    if (!m_swatches->setCurrentColor(m_picker->color()))
        complain(tr("Choose a swatch that can be changed."));
}

void MainWindow::complain(const QString& reason) { statusBar()->showMessage(reason, kMessageTime); }

// ---- Documents ----

void MainWindow::newDocument()
{
    m_document = ProjectDocument();
    LXColorLibrary::Instance()->clear(QStringLiteral("Project Swatches"));
    setPath(QString());
    forgetChanges();
}

bool MainWindow::openDocument(const QString& path)
{
    LXColorLibrary& library = *LXColorLibrary::Instance();
    auto format = PaletteFormat::Id::Document;
    const bool isPalette = PaletteFormat::fromFileName(path, &format) && format != PaletteFormat::Id::Document;
    QString remarks;
    const QString fault =
        isPalette ? m_document.openPalette(path, format, library, remarks) : m_document.open(path, library);
    if (!fault.isEmpty()) {
        m_recentFiles->remove(path);
        QMessageBox::critical(this, QApplication::applicationDisplayName(), fault);
        return false;
    }
    m_swatches->refresh();
    setPath(isPalette ? QString() : path);
    forgetChanges();
    if (isPalette) {
        m_recentFiles->add(path);
        m_proposedPath = QFileInfo(path).dir().filePath(QFileInfo(path).completeBaseName() + QStringLiteral(".xml"));
        m_savedColors.clear();
        updateModified();
        complain(remarks);
    }
    return true;
}

void MainWindow::askAndOpen()
{
    if (!mayLoseChanges())
        return;
    const QString folder = m_path.isEmpty() ? QString() : QFileInfo(m_path).absolutePath();
    const QString path = QFileDialog::getOpenFileName(this, tr("Open Project"), folder, openFilter());
    if (!path.isEmpty())
        openDocument(path);
}

void MainWindow::openOther(const QString& path)
{
    if (mayLoseChanges())
        openDocument(path);
}

bool MainWindow::eventFilter(QObject* object, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop)
        return QMainWindow::eventFilter(object, event);
    auto* drop = static_cast<QDropEvent*>(event);
    const QString path = fileOf(drop->mimeData());
    if (path.isEmpty())
        return QMainWindow::eventFilter(object, event);
    drop->setDropAction(Qt::CopyAction);
    drop->accept();
    if (type == QEvent::Drop) // whoever dragged it does not wait for the answer to a question
        QTimer::singleShot(0, this, [this, path] { openOther(path); });
    return true;
}

bool MainWindow::save()
{
    if (m_path.isEmpty())
        return saveAs();
    if (m_document.hasChanged(m_path)) {
        QMessageBox box(QMessageBox::Warning, QApplication::applicationDisplayName(),
                        tr("Another program has changed “%1” since it was opened. Do you want to replace it?")
                            .arg(QFileInfo(m_path).fileName()),
                        QMessageBox::Save | QMessageBox::Cancel, this);
        box.setDefaultButton(QMessageBox::Cancel);
        if (box.exec() != QMessageBox::Save)
            return false;
    }
    return saveTo(m_path);
}

bool MainWindow::saveAs()
{
    QFileDialog dialog(this, tr("Save Project"), m_path.isEmpty() ? m_proposedPath : m_path, fileFilter());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("xml"));
    if (!m_path.isEmpty())
        dialog.selectFile(m_path);
    return dialog.exec() == QDialog::Accepted && saveTo(dialog.selectedFiles().value(0));
}

bool MainWindow::saveTo(const QString& path)
{
    const QString fault = m_document.save(path, *LXColorLibrary::Instance());
    if (!fault.isEmpty()) {
        QMessageBox::critical(this, QApplication::applicationDisplayName(), fault);
        return false;
    }
    setPath(path);
    m_savedColors = ProjectDocument::colorsOf(*LXColorLibrary::Instance());
    updateModified();
    statusBar()->showMessage(tr("Saved."), kMessageTime);
    return true;
}

/// Whether the changes are saved, or the user does not want them.
bool MainWindow::mayLoseChanges()
{
    updateModified();
    if (!isWindowModified())
        return true;
    QMessageBox box(QMessageBox::Warning, QApplication::applicationDisplayName(),
                    tr("The project's swatches have changed. Do you want to save them?"),
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, this);
    box.setDefaultButton(QMessageBox::Save);
    switch (box.exec()) {
    case QMessageBox::Save:
        return save();
    case QMessageBox::Discard:
        return true;
    default:
        return false;
    }
}

void MainWindow::setPath(const QString& path)
{
    m_path = path;
    m_proposedPath = tr("Show.xml");
    const QString name = path.isEmpty() ? tr("Untitled") : QFileInfo(path).fileName();
    setWindowTitle(QStringLiteral("%1[*] – %2").arg(name, QApplication::applicationDisplayName()));
    setWindowFilePath(path);
    if (!path.isEmpty())
        m_recentFiles->add(path);
}

void MainWindow::forgetChanges()
{
    m_swatches->undoStack()->clear();
    m_savedColors = ProjectDocument::colorsOf(*LXColorLibrary::Instance());
    updateModified();
}

void MainWindow::updateModified()
{
    m_modifiedTimer.stop();
    setWindowModified(ProjectDocument::colorsOf(*LXColorLibrary::Instance()) != m_savedColors);
    m_replaceAction->setEnabled(m_swatches->canEditCurrentColor());
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (!mayLoseChanges()) {
        event->ignore();
        return;
    }
    saveSettings();
    event->accept();
}

// ---- Settings ----

void MainWindow::changeAppearance(Appearance appearance)
{
    m_appearance = appearance;
    setAppearance(appearance);
    QSettings().setValue(QStringLiteral("dark"), appearance == Appearance::Dark);
}

void MainWindow::saveSettings() const
{
    QSettings settings;
    const MatchReport::Target target = m_preview->target();
    settings.setValue(QStringLiteral("geometry"), saveGeometry());
    settings.setValue(QStringLiteral("splitter"), m_splitter->saveState());
    settings.setValue(QStringLiteral("foldedLists"), m_swatches->foldedLists());
    settings.setValue(QStringLiteral("fixture"), int(target.profile));
    settings.setValue(QStringLiteral("ioMode"), int(target.ioMode));
    settings.setValue(QStringLiteral("resolution"), target.resolution);
    settings.setValue(QStringLiteral("matched"), !target.allowRgbPassThrough);
}

void MainWindow::restoreSettings()
{
    const QSettings settings;
    restoreGeometry(settings.value(QStringLiteral("geometry")).toByteArray());
    m_splitter->restoreState(settings.value(QStringLiteral("splitter")).toByteArray());
    m_swatches->setFoldedLists(settings.value(QStringLiteral("foldedLists")).toStringList());
    MatchReport::Target target = m_preview->target();
    const int fixture = settings.value(QStringLiteral("fixture"), int(ColorUtils::ProfileWashLineQP6RGBW)).toInt();
    target.profile = static_cast<ColorUtils::TonematchProfileID>(fixture);
    const int ioMode = settings.value(QStringLiteral("ioMode"), int(ColorUtils::IOModeRGBW)).toInt();
    target.ioMode = static_cast<ColorUtils::IOModeID>(ioMode);
    target.resolution = settings.value(QStringLiteral("resolution"), 1).toInt();
    target.allowRgbPassThrough = !settings.value(QStringLiteral("matched"), true).toBool();
    m_preview->setTarget(target);
}

void MainWindow::about()
{
    QMessageBox::about(this, tr("About"),
                       tr("<h3>%1 %2</h3><p>Colours for LED fixtures: keep them, pick white light, and see what a "
                          "fixture makes of them.</p>")
                           .arg(QApplication::applicationDisplayName(), QApplication::applicationVersion()));
}
