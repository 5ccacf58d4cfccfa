#ifndef SWATCHVIEW_H
#define SWATCHVIEW_H

#include "LXColor.h"
#include "LXColorWidgetsExport.h"

#include <QPixmap>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <memory>

class LXColorLibrary;
class QAction;
class QUndoStack;

/**
 * The lists and colours of a swatch library, to look at, search, pick from and edit.
 *
 * Shown are all lists but that of explicit colours. User lists and "Project Swatches" can be edited, other lists can be
 * copied from. Whatever the user does here is a step of undoStack(); a removed list or colour comes back where it was,
 * with its uid.
 *
 * Colours can be dragged out (in the library's formats, as application/x-color and as text), and dropped or pasted from
 * all of these; text may also be a document with colour lists. Within the library a drag moves colours, with Control it
 * copies them.
 *
 * User lists can be put into another order among themselves.
 *
 * Keys: arrows, Enter (activates), F2 (renames), Delete, Alt+Up and Alt+Down (move a list), Ctrl+F (searches), Ctrl+C,
 * Ctrl+V, Ctrl+Z, Ctrl+Shift+Z; from the search field Down and Enter lead to the first colour found, and Escape ends
 * the search.
 *
 * The view may outlive the library, and is empty then.
 */
class LXCOLOR_WIDGETS_EXPORT SwatchView : public QWidget
{
    Q_OBJECT

public:
    /// What the user can do. The actions belong to the view and know when they are possible.
    enum class Action { NewList, Rename, Delete, Copy, Paste, Find, Undo, Redo, MoveListUp, MoveListDown };

    /// A view on LXColorLibrary::Instance().
    explicit SwatchView(QWidget* parent = nullptr);
    /// A view on \a library, which is not owned; null for an empty view.
    explicit SwatchView(LXColorLibrary* library, QWidget* parent = nullptr);
    ~SwatchView() override;

    /// A thumbnail as this class shows it where the library has no generator; fit to be one
    /// (LXColorLibrary::setThumbnailGenerator()).
    static QPixmap thumbnail(const LXColor& color);

    /// The library that is shown; null when it is gone.
    LXColorLibrary* library() const;
    /// The steps that can be undone. Clear it when another project is loaded.
    QUndoStack* undoStack() const;
    /// One of the actions, for menus and tool bars. Its shortcut counts inside the view; an application may extend that
    /// with QAction::setShortcutContext().
    QAction* action(Action action) const;

    /// Looks at the library again. Needed after changes of which it tells nobody: a project that was loaded, colours
    /// that were added by their value.
    void refresh();

    /// The colour that has the keyboard; an invalid colour when that is a list or nothing.
    LXColor currentColor() const;
    /// Its uid; empty without one.
    QString currentUid() const;
    /// The name of the list that has the keyboard, or of the one that its colour is in.
    QString currentList() const;
    /// Makes the first colour of that uid the current one and shows it. False when there is none, or when the search
    /// hides it.
    bool setCurrentUid(const QString& uid);

    /// Adds a colour to the current list, or to the first that can be edited, and makes it current; a name that is
    /// taken gets a number. \return its uid; empty when \a color is invalid or no list can be edited.
    QString addColor(const LXColor& color, const QString& name = QString());
    /// Gives the current entry another colour. False when \a color is invalid or the entry cannot be edited.
    bool setCurrentColor(const LXColor& color);
    /// Whether the current entry is a colour that can be edited.
    bool canEditCurrentColor() const;

    /// The names of the lists that are folded, to be kept between sessions.
    ///@{
    QStringList foldedLists() const;
    void setFoldedLists(const QStringList& lists);
    ///@}

    /// What is searched for; empty for nothing.
    QString searchText() const;

public Q_SLOTS:
    /// Shows what has every word of \a text in its name or in that of its list.
    void setSearchText(const QString& text);
    /// Puts the keyboard into the search field.
    void find();

Q_SIGNALS:
    /// Enter or a double click on a colour.
    void colorActivated(const LXColor& color);
    /// Another entry is current, or the current one has another colour; an invalid colour for lists and for nothing.
    void currentColorChanged(const LXColor& color);
    /// Why something that the user tried could not be done, in one translated sentence.
    void refused(const QString& reason);

protected:
    bool eventFilter(QObject* object, QEvent* event) override; ///< Keys of the search field.

private:
    class Private;
    std::unique_ptr<Private> d;
};

#endif
