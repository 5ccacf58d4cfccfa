#include "LXColorLibraryItem.h"
#include "SwatchIndex_p.h"

namespace lxcolor {

namespace {

constexpr SwatchText AllTexts[SwatchTextCount] = {
    SwatchText::Key, SwatchText::Uid, SwatchText::ExplicitColor, SwatchText::OldPreset, SwatchText::OriginatingPreset,
    SwatchText::Name};

bool isIndexed(SwatchText kind, const QString& text) { return kind == SwatchText::Name || !text.isEmpty(); }

} // namespace

// ---- Order ----

bool TreeOrder::operator()(const LXColorLibraryItem* a, const LXColorLibraryItem* b) const
{
    const int depthA = a->depth();
    const int depthB = b->depth();
    if (depthA != depthB)
        return depthA < depthB;
    while (a->parent() != b->parent()) {
        a = a->parent();
        b = b->parent();
    }
    return a->m_order < b->m_order;
}

bool TreeOrder::operator()(const LXColorLibraryItem* node, ChildrenOf place) const
{
    const int depth = node->depth();
    const int placeDepth = place.parent->depth() + 1;
    if (depth != placeDepth)
        return depth < placeDepth;
    return node->parent() != place.parent && (*this)(node->parent(), place.parent);
}

// ---- Nodes ----

void SwatchIndex::add(LXColorLibraryItem* node)
{
    for (const SwatchText kind : AllTexts)
        insert(kind, node->text(kind), node);
}

void SwatchIndex::addTree(LXColorLibraryItem* node)
{
    add(node);
    for (LXColorLibraryItem* child : qAsConst(node->m_childItems))
        addTree(child);
}

void SwatchIndex::removeTree(LXColorLibraryItem* node)
{
    for (LXColorLibraryItem* child : qAsConst(node->m_childItems))
        removeTree(child);
    for (const SwatchText kind : AllTexts)
        erase(kind, node->text(kind), node);
    m_numbers.remove(node);
}

void SwatchIndex::insert(SwatchText kind, const QString& text, LXColorLibraryItem* node)
{
    if (!isIndexed(kind, text))
        return;
    Table& nodes = table(kind);
    LXColorLibraryItem*& first = nodes.first[text];
    if (first) {
        Sharers& sharers = nodes.sharers[text];
        sharers.insert(first);
        sharers.insert(node);
        first = *sharers.begin();
    } else {
        first = node;
    }

    if (kind == SwatchText::Name)
        nameTaken(text, node->parent());
}

void SwatchIndex::erase(SwatchText kind, const QString& text, LXColorLibraryItem* node)
{
    if (!isIndexed(kind, text))
        return;
    Table& nodes = table(kind);
    const auto first = nodes.first.find(text);
    if (first == nodes.first.end())
        return;

    const auto sharers = nodes.sharers.find(text);
    if (sharers != nodes.sharers.end()) {
        sharers->erase(node);
        *first = *sharers->begin();
        if (sharers->size() == 1)
            nodes.sharers.erase(sharers);
    } else if (*first == node) {
        nodes.first.erase(first);
    }

    if (kind == SwatchText::Name)
        nameReleased(text, node->parent());
}

// ---- Look-ups ----

LXColorLibraryItem* SwatchIndex::firstChild(SwatchText kind, const QString& text,
                                            const LXColorLibraryItem* parent) const
{
    const Table& nodes = table(kind);
    LXColorLibraryItem* first = nodes.first.value(text);
    if (!first || first->parent() == parent)
        return first;
    const auto sharers = nodes.sharers.constFind(text);
    if (sharers == nodes.sharers.constEnd())
        return nullptr;
    const auto child = sharers->lower_bound(ChildrenOf{parent});
    return child != sharers->end() && (*child)->parent() == parent ? *child : nullptr;
}

LXColorLibraryItem* SwatchIndex::firstEntry(SwatchText kind, const QString& text, const LXColorLibraryItem* root) const
{
    const auto isEntry = [root](const LXColorLibraryItem* node) { return node->parent()->parent() == root; };
    const Table& nodes = table(kind);
    LXColorLibraryItem* first = nodes.first.value(text);
    if (!first || isEntry(first))
        return first;
    const auto sharers = nodes.sharers.constFind(text);
    if (sharers == nodes.sharers.constEnd() || root->childCount() == 0)
        return nullptr;
    const auto entry = sharers->lower_bound(ChildrenOf{root->child(0)});
    return entry != sharers->end() && isEntry(*entry) ? *entry : nullptr;
}

QVector<LXColorLibraryItem*> SwatchIndex::firstEntries(SwatchText kind, const QString& text,
                                                       const LXColorLibraryItem* root) const
{
    QVector<LXColorLibraryItem*> entries;
    const auto sharers = table(kind).sharers.constFind(text);
    LXColorLibraryItem* entry = firstEntry(kind, text, root);
    while (entry) {
        entries.append(entry);
        const LXColorLibraryItem* nextList = root->child(entry->parent()->row() + 1);
        entry = nullptr;
        if (!nextList || sharers == table(kind).sharers.constEnd())
            break;
        const auto next = sharers->lower_bound(ChildrenOf{nextList});
        if (next != sharers->end() && (*next)->parent()->parent() == root)
            entry = *next;
    }
    return entries;
}

// ---- Free names ----

QString SwatchIndex::freeName(const QString& name, const LXColorLibraryItem* parent)
{
    if (!firstChild(SwatchText::Name, name, parent))
        return name;
    FreeNumbers& numbers = m_numbers[parent][name];
    return numberedName(name, numbers.first([&](int number) {
        return firstChild(SwatchText::Name, numberedName(name, number), parent) != nullptr;
    }));
}

FreeNumbers* SwatchIndex::knownNumbers(const NameAndNumber& name, const LXColorLibraryItem* parent)
{
    const auto ofParent = m_numbers.find(parent);
    if (name.number == 0 || ofParent == m_numbers.end())
        return nullptr;
    const auto ofName = ofParent->find(name.base);
    return ofName == ofParent->end() ? nullptr : &*ofName;
}

void SwatchIndex::nameTaken(const QString& name, const LXColorLibraryItem* parent)
{
    if (m_numbers.isEmpty())
        return;
    const NameAndNumber parts = splitNumberedName(name);
    if (FreeNumbers* numbers = knownNumbers(parts, parent))
        numbers->take(parts.number);
}

void SwatchIndex::nameReleased(const QString& name, const LXColorLibraryItem* parent)
{
    if (m_numbers.isEmpty())
        return;
    const NameAndNumber parts = splitNumberedName(name);
    FreeNumbers* numbers = knownNumbers(parts, parent);
    if (!numbers || firstChild(SwatchText::Name, name, parent))
        return;
    numbers->release(parts.number);
    if (numbers->knowsNothing())
        m_numbers[parent].remove(parts.base);
}

} // namespace lxcolor
