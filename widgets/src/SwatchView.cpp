#include "SwatchView.h"

#include "LXColorLibrary.h"
#include "SwatchEditor_p.h"
#include "SwatchModels_p.h"
#include "SwatchPayload_p.h"
#include "SwatchThumbnail_p.h"
#include "SwatchTree_p.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMap>
#include <QMenu>
#include <QMimeData>
#include <QSet>
#include <QVBoxLayout>

class SwatchView::Private
{
public:
    Private(SwatchView* view, LXColorLibrary* library)
        : q(view), editor(library), rooted(library), shown(&rooted, &editor)
    {
    }

    QModelIndex current() const { return shown.toLibrary(tree->currentIndex()); }
    QModelIndex currentList() const
    {
        const QModelIndex index = current();
        return index.isValid() && !editor.library()->isListIndex(index) ? index.parent() : index;
    }
    bool isColor(const QModelIndex& index) const { return index.isValid() && index.parent().isValid(); }
    QModelIndexList selection() const;
    QModelIndex editableList() const;

    void build();
    void buildActions();
    QAction* addAction(Action key, const QString& text, const QKeySequence& shortcut, void (Private::*handler)());
    void connectAll();
    void updateActions();
    void updateFolds();
    void updateEmptyText();
    void showColors(const QStringList& uids);
    void setShown(const QModelIndex& index);

    void addList();
    void rename() { tree->edit(tree->currentIndex()); }
    void remove();
    void moveList(int by);
    void moveListUp() { moveList(-1); }
    void moveListDown() { moveList(1); }
    void copy();
    void paste();
    void focusSearch() { q->find(); }
    void showMenu(const QPoint& position);

    SwatchView* q;
    mutable lxcolor::SwatchEditor editor;
    lxcolor::RootedSwatches rooted;
    lxcolor::ShownSwatches shown;
    QLineEdit* search = nullptr;
    lxcolor::SwatchTree* tree = nullptr;
    QMap<Action, QAction*> actions;
    QSet<QString> folded;
    bool isUpdatingFolds = false;
};

namespace {

QString nameOf(const QModelIndex& index) { return index.data(Qt::EditRole).toString(); }

} // namespace

// ---- Building ----

void SwatchView::Private::build()
{
    search = new QLineEdit(q);
    search->setObjectName(QStringLiteral("swatchSearch"));
    search->setPlaceholderText(SwatchView::tr("Search swatches"));
    search->setAccessibleName(SwatchView::tr("Search swatches"));
    search->setAccessibleDescription(
        SwatchView::tr("Shows the colours whose name, or whose list, has every word that you type."));
    search->setClearButtonEnabled(true);
    search->installEventFilter(q);

    tree = new lxcolor::SwatchTree(q);
    tree->setObjectName(QStringLiteral("swatchTree"));
    tree->setAccessibleName(SwatchView::tr("Swatches"));
    tree->setAccessibleDescription(
        SwatchView::tr("Lists of colours. F2 renames, Delete removes, Enter uses a colour."));
    tree->setModel(&shown);
    tree->setContextMenuPolicy(Qt::CustomContextMenu);

    auto* layout = new QVBoxLayout(q);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addWidget(search);
    layout->addWidget(tree, 1);
    q->setFocusProxy(tree);
    buildActions();
    connectAll();
    updateFolds();
    updateActions();
    updateEmptyText();
}

QAction* SwatchView::Private::addAction(Action key, const QString& text, const QKeySequence& shortcut,
                                        void (Private::*handler)())
{
    auto* action = new QAction(text, q);
    action->setShortcut(shortcut);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    QObject::connect(action, &QAction::triggered, q, [this, handler] { (this->*handler)(); });
    q->addAction(action);
    actions.insert(key, action);
    return action;
}

void SwatchView::Private::buildActions()
{
    addAction(Action::NewList, SwatchView::tr("New &List"), QKeySequence(QStringLiteral("Ctrl+Shift+N")),
              &Private::addList);
    addAction(Action::Rename, SwatchView::tr("&Rename"), QKeySequence(Qt::Key_F2), &Private::rename);
    addAction(Action::Delete, SwatchView::tr("&Delete"), QKeySequence(Qt::Key_Delete), &Private::remove);
    addAction(Action::Copy, SwatchView::tr("&Copy"), QKeySequence(QKeySequence::Copy), &Private::copy);
    addAction(Action::Paste, SwatchView::tr("&Paste"), QKeySequence(QKeySequence::Paste), &Private::paste);
    addAction(Action::Find, SwatchView::tr("&Find"), QKeySequence(QKeySequence::Find), &Private::focusSearch);
    addAction(Action::MoveListUp, SwatchView::tr("Move List &Up"), QKeySequence(QStringLiteral("Alt+Up")),
              &Private::moveListUp);
    addAction(Action::MoveListDown, SwatchView::tr("Move List &Down"), QKeySequence(QStringLiteral("Alt+Down")),
              &Private::moveListDown);
    const auto addUndoAction = [this](Action key, QAction* action, const QList<QKeySequence>& shortcuts) {
        action->setShortcuts(shortcuts);
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        q->addAction(action);
        actions.insert(key, action);
    };
    QUndoStack* stack = editor.undoStack();
    addUndoAction(Action::Undo, stack->createUndoAction(q, SwatchView::tr("Undo")), {QKeySequence(QKeySequence::Undo)});
    addUndoAction(Action::Redo, stack->createRedoAction(q, SwatchView::tr("Redo")),
                  {QKeySequence(QStringLiteral("Ctrl+Shift+Z")), QKeySequence(QStringLiteral("Ctrl+Y"))});
}

void SwatchView::Private::connectAll()
{
    connect(search, &QLineEdit::textChanged, q, &SwatchView::setSearchText);
    connect(&editor, &lxcolor::SwatchEditor::refused, q, &SwatchView::refused);
    connect(&shown, &lxcolor::ShownSwatches::dropped, q, [this](const QStringList& uids) { showColors(uids); });
    connect(tree, &QTreeView::customContextMenuRequested, q, [this](const QPoint& point) { showMenu(point); });
    connect(tree, &QTreeView::activated, q, [this](const QModelIndex& index) {
        if (index.parent().isValid())
            Q_EMIT q->colorActivated(q->currentColor());
        else
            tree->setExpanded(index, !tree->isExpanded(index));
    });
    connect(tree->selectionModel(), &QItemSelectionModel::currentChanged, q, [this] {
        updateActions();
        Q_EMIT q->currentColorChanged(q->currentColor());
    });
    connect(tree->selectionModel(), &QItemSelectionModel::selectionChanged, q, [this] { updateActions(); });
    connect(&shown, &QAbstractItemModel::dataChanged, q, [this](const QModelIndex& first, const QModelIndex& last) {
        const QModelIndex index = tree->currentIndex();
        const bool isCurrent = index.isValid() && index.parent() == first.parent() && index.row() >= first.row() &&
                               index.row() <= last.row();
        if (isCurrent)
            Q_EMIT q->currentColorChanged(q->currentColor());
    });

    const auto rememberFold = [this](const QModelIndex& index, bool isFolded) {
        if (isUpdatingFolds || shown.isSearching())
            return;
        if (isFolded)
            folded.insert(nameOf(index));
        else
            folded.remove(nameOf(index));
    };
    connect(tree, &QTreeView::collapsed, q, [=](const QModelIndex& index) { rememberFold(index, true); });
    connect(tree, &QTreeView::expanded, q, [=](const QModelIndex& index) { rememberFold(index, false); });
    for (const auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(&shown, signal, q, [this] {
            updateFolds();
            updateEmptyText();
        });
    connect(&shown, &QAbstractItemModel::modelReset, q, [this] {
        updateFolds();
        updateActions();
        updateEmptyText();
    });
}

// ---- Keeping up ----

QModelIndexList SwatchView::Private::selection() const
{
    QModelIndexList indexes;
    for (const QModelIndex& index : tree->selectionModel()->selectedRows())
        indexes << shown.toLibrary(index);
    return indexes;
}

void SwatchView::Private::updateActions()
{
    const QModelIndexList selected = selection();
    bool canRemove = false;
    bool hasColor = false;
    for (const QModelIndex& index : selected) {
        canRemove = canRemove || editor.canRemove(index);
        hasColor = hasColor || !editor.library()->isListIndex(index);
    }
    const bool canRename = tree->currentIndex().isValid() && tree->currentIndex().flags().testFlag(Qt::ItemIsEditable);
    actions[Action::NewList]->setEnabled(editor.library());
    actions[Action::Rename]->setEnabled(canRename);
    actions[Action::Delete]->setEnabled(canRemove);
    actions[Action::MoveListUp]->setEnabled(editor.rowBeside(current(), -1) >= 0);
    actions[Action::MoveListDown]->setEnabled(editor.rowBeside(current(), 1) >= 0);
    actions[Action::Copy]->setEnabled(hasColor);
    actions[Action::Paste]->setEnabled(editableList().isValid());
}

// While something is searched for, all that was found is seen.
void SwatchView::Private::updateFolds()
{
    isUpdatingFolds = true;
    for (int row = 0; row < shown.rowCount(); ++row) {
        const QModelIndex list = shown.index(row, 0);
        tree->setExpanded(list, shown.isSearching() || !folded.contains(nameOf(list)));
    }
    isUpdatingFolds = false;
}

void SwatchView::Private::updateEmptyText()
{
    tree->setEmptyText(shown.isSearching() ? SwatchView::tr("No swatch is called “%1”.").arg(search->text().trimmed())
                                           : SwatchView::tr("There are no swatches yet."));
}

void SwatchView::Private::setShown(const QModelIndex& index)
{
    tree->expand(index.parent());
    tree->setCurrentIndex(index);
    tree->scrollTo(index);
}

void SwatchView::Private::showColors(const QStringList& uids)
{
    QItemSelection selected;
    for (const QString& uid : uids) {
        const QModelIndex index = shown.fromLibrary(editor.library()->getIndexOfUid(uid));
        if (index.isValid())
            selected.select(index, index);
    }
    if (selected.isEmpty())
        return;
    setShown(selected.indexes().first());
    tree->selectionModel()->select(selected, QItemSelectionModel::ClearAndSelect);
}

// ---- Actions ----

QModelIndex SwatchView::Private::editableList() const
{
    LXColorLibrary* library = editor.library();
    if (!library)
        return {};
    if (editor.canEdit(currentList()))
        return currentList();
    for (int row = 0; row < library->rowCount(library->rootIndex()); ++row) {
        const QModelIndex list = library->index(row, 0, library->rootIndex());
        if (editor.canEdit(list))
            return list;
    }
    return {};
}

void SwatchView::Private::addList()
{
    if (!editor.library())
        return;
    search->clear();
    const QString name = editor.addList(SwatchView::tr("New List"));
    const QModelIndex list = shown.fromLibrary(editor.library()->getIndexOfListId(name));
    if (!list.isValid())
        return;
    setShown(list);
    tree->edit(list);
}

void SwatchView::Private::remove()
{
    const QModelIndexList selected = selection();
    if (!selected.isEmpty())
        editor.remove(selected);
    updateActions();
}

void SwatchView::Private::moveList(int by)
{
    const QString name = editor.moveList(current(), by);
    if (!name.isEmpty())
        setShown(shown.fromLibrary(editor.library()->getIndexOfListId(name)));
}

void SwatchView::Private::copy()
{
    if (QMimeData* data = shown.mimeData(tree->selectionModel()->selectedRows()))
        QGuiApplication::clipboard()->setMimeData(data);
}

void SwatchView::Private::paste()
{
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    const QModelIndex list = editableList();
    if (!data || !list.isValid())
        return;
    const bool isBehindCurrent = isColor(current()) && current().parent() == list;
    const QStringList uids = editor.take(*data, list, isBehindCurrent ? current().row() + 1 : -1, false);
    if (uids.isEmpty())
        Q_EMIT q->refused(SwatchView::tr("There is no colour on the clipboard."));
    showColors(uids);
}

void SwatchView::Private::showMenu(const QPoint& position)
{
    QMenu menu(q);
    for (const Action key : {Action::NewList, Action::Rename, Action::Copy, Action::Paste, Action::Delete,
                             Action::MoveListUp, Action::MoveListDown})
        menu.addAction(actions.value(key));
    menu.exec(tree->viewport()->mapToGlobal(position));
}

// ---- SwatchView ----

SwatchView::SwatchView(QWidget* parent) : SwatchView(LXColorLibrary::Instance(), parent) {}

SwatchView::SwatchView(LXColorLibrary* library, QWidget* parent)
    : QWidget(parent), d(std::make_unique<Private>(this, library))
{
    d->build();
}

SwatchView::~SwatchView()
{
    delete d->tree; // It looks at a model that goes first.
}

QPixmap SwatchView::thumbnail(const LXColor& color) { return lxcolor::swatchThumbnail(color); }

LXColorLibrary* SwatchView::library() const { return d->editor.library(); }

QUndoStack* SwatchView::undoStack() const { return d->editor.undoStack(); }

QAction* SwatchView::action(Action action) const { return d->actions.value(action); }

void SwatchView::refresh()
{
    const QString uid = currentUid();
    d->rooted.lookAgain();
    if (!setCurrentUid(uid))
        Q_EMIT currentColorChanged(LXColor());
}

LXColor SwatchView::currentColor() const { return lxcolor::swatchOf(d->current()).color; }

QString SwatchView::currentUid() const { return lxcolor::swatchOf(d->current()).uid; }

QString SwatchView::currentList() const { return library() ? nameOf(d->currentList()) : QString(); }

bool SwatchView::setCurrentUid(const QString& uid)
{
    const QModelIndex index = library() ? d->shown.fromLibrary(library()->getIndexOfUid(uid)) : QModelIndex();
    if (index.isValid())
        d->setShown(index);
    return index.isValid();
}

QString SwatchView::addColor(const LXColor& color, const QString& name)
{
    const QModelIndex list = d->editableList();
    if (!color.isValid() || !list.isValid())
        return {};
    const QStringList uids =
        d->editor.insert(list, -1, {{QString(), name, color, QString(), QString()}}, tr("Add swatch"));
    d->showColors(uids);
    return uids.value(0);
}

bool SwatchView::setCurrentColor(const LXColor& color)
{
    return canEditCurrentColor() && d->editor.setColor(d->current(), color);
}

bool SwatchView::canEditCurrentColor() const
{
    const QModelIndex index = d->current();
    return library() && index.isValid() && !library()->isListIndex(index) && d->editor.canRemove(index);
}

QStringList SwatchView::foldedLists() const
{
    QStringList lists = d->folded.values();
    lists.sort();
    return lists;
}

void SwatchView::setFoldedLists(const QStringList& lists)
{
    d->folded = QSet<QString>(lists.cbegin(), lists.cend());
    d->updateFolds();
}

QString SwatchView::searchText() const { return d->search->text(); }

void SwatchView::setSearchText(const QString& text)
{
    if (d->search->text() != text) {
        d->search->setText(text); // Comes back here.
        return;
    }
    d->shown.setSearch(text);
    d->updateFolds();
    d->updateEmptyText();
    if (d->tree->currentIndex().isValid())
        d->tree->scrollTo(d->tree->currentIndex());
}

void SwatchView::find()
{
    d->search->setFocus(Qt::ShortcutFocusReason);
    d->search->selectAll();
}

bool SwatchView::eventFilter(QObject* object, QEvent* event)
{
    if (object != d->search || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(object, event);
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Escape:
        d->search->clear();
        d->tree->setFocus();
        return true;
    case Qt::Key_Down:
    case Qt::Key_Return:
    case Qt::Key_Enter: {
        const QModelIndex first = d->shown.index(0, 0, d->shown.index(0, 0));
        if (first.isValid())
            d->setShown(first);
        d->tree->setFocus();
        return true;
    }
    default:
        return QWidget::eventFilter(object, event);
    }
}
