#ifndef TESTS_MODELWATCH_H
#define TESTS_MODELWATCH_H

#include "LXColorLibrary.h"

#include <QIdentityProxyModel>
#include <QRegularExpression>
#include <QStringList>
#include <QVector>

/// The library as models usually are, with the root as the invalid index, so that QAbstractItemModelTester sees all of
/// it.
class RootedLibrary : public QIdentityProxyModel
{
public:
    explicit RootedLibrary(LXColorLibrary* library) : m_library(library) { setSourceModel(library); }
    QModelIndex mapToSource(const QModelIndex& index) const override
    {
        return index.isValid() ? QIdentityProxyModel::mapToSource(index) : m_library->rootIndex();
    }
    QModelIndex mapFromSource(const QModelIndex& index) const override
    {
        return index == m_library->rootIndex() ? QModelIndex() : QIdentityProxyModel::mapFromSource(index);
    }
    // Only the first column has children for a view.
    int rowCount(const QModelIndex& index = QModelIndex()) const override
    {
        return index.column() > 0 ? 0 : QIdentityProxyModel::rowCount(index);
    }
    bool hasChildren(const QModelIndex& index = QModelIndex()) const override { return rowCount(index) > 0; }

private:
    LXColorLibrary* m_library;
};

/// Checks that every announced change takes place, as announced.
class ChangeWatch : public QObject
{
public:
    explicit ChangeWatch(const QAbstractItemModel* model) : m_model(model)
    {
        connect(model, &QAbstractItemModel::rowsAboutToBeInserted, this, &ChangeWatch::begin);
        connect(model, &QAbstractItemModel::rowsInserted, this,
                [this](const QModelIndex& p, int first, int last) { end(p, first, last, +1); });
        connect(model, &QAbstractItemModel::rowsAboutToBeRemoved, this, &ChangeWatch::begin);
        connect(model, &QAbstractItemModel::rowsRemoved, this,
                [this](const QModelIndex& p, int first, int last) { end(p, first, last, -1); });
        connect(model, &QAbstractItemModel::modelAboutToBeReset, this, [this] { ++m_openResets; });
        connect(model, &QAbstractItemModel::modelReset, this, [this] { --m_openResets; });
    }
    /// What went wrong; empty when every change had its two halves.
    QStringList faults() const
    {
        QStringList all = m_faults;
        if (!m_open.isEmpty() || m_openResets != 0)
            all << QStringLiteral("a change was announced and never done");
        return all;
    }
    int changeCount() const { return m_changes; }

private:
    struct Change
    {
        QPersistentModelIndex parent;
        int first, last, rows;
    };
    void begin(const QModelIndex& parent, int first, int last)
    {
        m_open.append({parent, first, last, m_model->rowCount(parent)});
    }
    void end(const QModelIndex& parent, int first, int last, int sign)
    {
        ++m_changes;
        if (m_open.isEmpty()) {
            m_faults << QStringLiteral("a change that was not announced");
            return;
        }
        const Change change = m_open.takeLast();
        const int rows = change.rows + sign * (last - first + 1);
        if (parent != change.parent || first != change.first || last != change.last ||
            m_model->rowCount(parent) != rows)
            m_faults << QStringLiteral("rows %1..%2 announced, %3..%4 done")
                            .arg(change.first)
                            .arg(change.last)
                            .arg(first)
                            .arg(last);
    }

    const QAbstractItemModel* m_model;
    QVector<Change> m_open;
    QStringList m_faults;
    int m_openResets = 0;
    int m_changes = 0;
};

/// The messages but for the two things to which QAbstractItemModelTester objects on purpose: the flags of the invalid
/// index, and dataChanged() of the root, which has an index here.
inline QStringList withoutExpectedObjections(const QStringList& texts)
{
    static const QRegularExpression onPurpose(QStringLiteral("flags == 0|topLeft|bottomRight"));
    QStringList messages;
    for (const QString& text : texts) {
        if (!text.contains(onPurpose) || !text.contains(QLatin1String("modeltester")))
            messages << text;
    }
    return messages;
}

#endif
