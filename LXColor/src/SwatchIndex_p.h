#ifndef SWATCHINDEX_P_H
#define SWATCHINDEX_P_H

#include "NumberedNames_p.h"

#include <QHash>
#include <QString>
#include <QVector>

#include <array>
#include <set>

class LXColorLibraryItem;

namespace lxcolor {

/// The texts by which nodes are looked up. An empty text names nothing, except that a list may be without a name.
enum class SwatchText {
    Key, ///< What the node was entered under when it was made; one node of a parent at the most has it.
    Uid,
    ExplicitColor,
    OldPreset,
    OriginatingPreset,
    Name
};
constexpr std::size_t SwatchTextCount = 6;

/// The children of \a parent as a place in TreeOrder.
struct ChildrenOf
{
    const LXColorLibraryItem* parent;
};

/// The order of the nodes of one tree: by depth, and among equal depths as they are shown.
struct TreeOrder
{
    using is_transparent = void;
    bool operator()(const LXColorLibraryItem* a, const LXColorLibraryItem* b) const;
    bool operator()(const LXColorLibraryItem* node, ChildrenOf place) const;
};

/**
 * The nodes of one tree by their texts. Among nodes that share a text, those that come first in the tree are found, as
 * if the tree had been searched from its beginning.
 *
 * Each change costs about a hash look-up; nodes that share a text are kept sorted, at the cost of the logarithm of
 * their number. The rows of the nodes may shift under the index, their order may not: a node is added after it has been
 * listed by its parent and removed before it is taken out.
 */
class SwatchIndex
{
public:
    /// A single node, or that and everything below it.
    void add(LXColorLibraryItem* node);
    void addTree(LXColorLibraryItem* node);
    void removeTree(LXColorLibraryItem* node);

    void insert(SwatchText kind, const QString& text, LXColorLibraryItem* node);
    void erase(SwatchText kind, const QString& text, LXColorLibraryItem* node);

    /// The first child of \a parent with that text; null when there is none.
    LXColorLibraryItem* firstChild(SwatchText kind, const QString& text, const LXColorLibraryItem* parent) const;
    /// The first entry with that text in the lists below \a root.
    LXColorLibraryItem* firstEntry(SwatchText kind, const QString& text, const LXColorLibraryItem* root) const;
    /// The first entry with that text in each of the lists below \a root that has one.
    QVector<LXColorLibraryItem*> firstEntries(SwatchText kind, const QString& text,
                                              const LXColorLibraryItem* root) const;
    /// \a name, or the first of "name 2", "name 3", ... that no child of \a parent bears.
    QString freeName(const QString& name, const LXColorLibraryItem* parent);

private:
    using Sharers = std::set<LXColorLibraryItem*, TreeOrder>;
    struct Table
    {
        QHash<QString, LXColorLibraryItem*> first;
        QHash<QString, Sharers> sharers; ///< All that have a text, where that is more than one.
    };

    const Table& table(SwatchText kind) const { return m_tables[static_cast<std::size_t>(kind)]; }
    Table& table(SwatchText kind) { return m_tables[static_cast<std::size_t>(kind)]; }
    FreeNumbers* knownNumbers(const NameAndNumber& name, const LXColorLibraryItem* parent);
    void nameTaken(const QString& name, const LXColorLibraryItem* parent);
    void nameReleased(const QString& name, const LXColorLibraryItem* parent);

    std::array<Table, SwatchTextCount> m_tables;
    QHash<const LXColorLibraryItem*, QHash<QString, FreeNumbers>> m_numbers; ///< By parent and name.
};

} // namespace lxcolor

#endif
