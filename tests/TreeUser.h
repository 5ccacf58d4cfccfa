#ifndef TESTS_TREEUSER_H
#define TESTS_TREEUSER_H

#include <QLineEdit>
#include <QMimeData>
#include <QTreeView>
#include <QtTest>

/// A person at a tree of swatches, by mouse and keys.
class TreeUser
{
protected:
    virtual ~TreeUser() = default;
    virtual QTreeView* tree() const = 0;

    /// What is read from top to bottom.
    QStringList rows() const
    {
        QStringList texts;
        tree()->scrollToTop();
        for (QModelIndex index = tree()->indexAt({20, 3}); index.isValid(); index = tree()->indexBelow(index))
            texts << index.data().toString();
        return texts;
    }
    QModelIndex row(const QString& text) const
    {
        QModelIndex index = tree()->model()->index(0, 0);
        while (index.isValid() && index.data().toString() != text)
            index = tree()->indexBelow(index);
        return index;
    }
    QRect place(const QString& text) const
    {
        const QModelIndex index = row(text);
        tree()->scrollTo(index);
        return tree()->visualRect(index);
    }
    void click(const QString& text, Qt::KeyboardModifiers modifiers = {}) const
    {
        const QRect rect = place(text);
        QVERIFY2(!rect.isEmpty(), qPrintable(text));
        QTest::mouseClick(tree()->viewport(), Qt::LeftButton, modifiers, rect.center());
    }
    /// The middle of the thumbnail in a row, as it is on the screen.
    QColor thumbnail(const QString& text) const
    {
        const QRect rect = place(text);
        return tree()->viewport()->grab().toImage().pixelColor(rect.left() + 12, rect.center().y());
    }
    /// Enters a name into the editor that has opened in a row.
    void enterName(const QString& name) const
    {
        QLineEdit* editor = nullptr;
        QTRY_VERIFY(editor = tree()->viewport()->findChild<QLineEdit*>());
        editor->selectAll();
        QTest::keyClicks(editor, name);
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_VERIFY(!tree()->viewport()->findChild<QLineEdit*>());
    }
    /// Drops onto the middle of a row, or near its upper edge. \return whether it was taken.
    bool drop(QMimeData* data, const QString& text, bool above = false, Qt::KeyboardModifiers modifiers = {}) const
    {
        const QRect rect = place(text);
        const QPoint at(rect.center().x(), above ? rect.top() + 1 : rect.center().y());
        const auto actions = Qt::CopyAction | Qt::MoveAction;
        QWidget* target = tree()->viewport();
        QDragEnterEvent enter(at, actions, data, Qt::LeftButton, modifiers);
        QCoreApplication::sendEvent(target, &enter);
        QDragMoveEvent move(at, actions, data, Qt::LeftButton, modifiers);
        QCoreApplication::sendEvent(target, &move);
        QDropEvent event(at, actions, data, Qt::LeftButton, modifiers);
        QDragLeaveEvent leave;
        event.setAccepted(false);
        QCoreApplication::sendEvent(target, move.isAccepted() ? static_cast<QEvent*>(&event) : &leave);
        return move.isAccepted() && event.isAccepted();
    }
};

#endif
