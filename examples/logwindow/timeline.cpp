#include "timeline.hpp"

#include <new>

namespace {

// The comparator's answer is a direction: -1 when the key lies left of (before) the node, +1 right, 0 on a match.
int by_time(const void *node_key, const void *key) {
    ++comparisons;
    const Stamp &node = *static_cast<const Stamp *>(node_key), &wanted = *static_cast<const Stamp *>(key);
    return (wanted > node) - (wanted < node);
}

} // namespace

// The handler table says what happens to nodes that come and go: here they come ready made and nothing happens to them.
Timeline::Timeline()
    : tree_(AVL_Konstruktor(offsetof(Entry, link), AVL_GetNodeFuncPtrRetNULL(), offsetof(Entry, stamp), by_time,
                            nullptr)) {
    if (!tree_)
        throw std::bad_alloc();
}

Timeline::Timeline(void *root) : Timeline() { AVL_ConcatLess(tree(), root); }

// Logs are mostly in order, and then there is nothing to search: the place right of the last node is the one.
void Timeline::add(Entry &entry) {
    AVL_PfadEntry *place = AVL_MakeMax(tree());
    if (place->Node && static_cast<Entry *>(place->Node)->stamp > entry.stamp) {
        AVL_InsertStabil(tree(), &entry.stamp, &entry);
        return;
    }
    AVL_InsertStack(tree(), place->Node ? AVL_WalkRight(tree(), place) : place, &entry);
}

void Timeline::drop_before(Stamp stamp) { AVL_DelLess(tree(), &stamp, nullptr); }

Timeline Timeline::cut_before(Stamp stamp) { return Timeline(AVL_GetLess(tree(), &stamp)); }

Timeline Timeline::cut(Span window) { return Timeline(AVL_GetBetweenEqualEqual(tree(), &window.first, &window.last)); }

// The path to the gap before the window, one step over the gap, and out with the node that stands there.
Timeline Timeline::cut_singly(Span window) {
    Timeline out;
    while (!empty()) {
        AVL_PfadEntry *gap = AVL_MakeLess(tree(), &window.first) + 1;
        AVL_PfadEntry *at = AVL_WalkSuccInorder(tree(), gap);
        if (!at->Node || static_cast<Entry *>(at->Node)->stamp > window.last)
            break;
        auto &entry = *static_cast<Entry *>(AVL_GetPfad(tree(), at));
        entry.link = {}; // as every node that goes into a tree
        out.add(entry);
    }
    return out;
}

// Entries before the tree's last one leave it by two means: a cut at the stamp of the oldest one to be kept, at a cost
// that depends on the height alone, and then, because a cut never divides entries of the same stamp, one by one.
void Timeline::keep_newest(std::uint64_t count) {
    const Entry *oldest = nullptr;
    AVL_PfadEntry *at = AVL_WalkPredInorder(tree(), nullptr);
    for (; count && at->Node; --count, at = AVL_WalkPredInorder(tree(), at))
        oldest = static_cast<const Entry *>(at->Node);
    if (!at->Node)
        return; // there are no more than that
    if (!oldest)
        return AVL_ClrTree(tree());
    std::uint64_t surplus = 0;
    for (; at->Node && static_cast<Entry *>(at->Node)->stamp == oldest->stamp; at = AVL_WalkPredInorder(tree(), at))
        ++surplus;
    AVL_GetLess(tree(), &oldest->stamp); // what comes out is simply forgotten: the arena owns it
    for (; surplus; --surplus)
        AVL_GetMin(tree());
}

// The tree is cut where the piece in hand begins, the piece is joined to its end, and what was cut off is the next
// piece: timelines that do not overlap cost two joins at most, whatever their sizes, others one for each time that they
// take turns.  A turn costs as much as inserting some entries, so after a thousand of them that is what we do.
void Timeline::merge(Timeline &&later) {
    void *piece = AVL_GetTree(later.tree());
    for (int turns = 0; piece && turns < 1000; ++turns) {
        const bool ours = turns % 2; // out of this tree: then it stands before equal stamps
        const auto *start = static_cast<const Entry *>(piece);
        while (start->link.Left)
            start = static_cast<const Entry *>(start->link.Left);
        void *rest = ours ? AVL_GetEqualGreater(tree(), &start->stamp) : AVL_GetGreater(tree(), &start->stamp);
        AVL_ConcatLess(tree(), piece);
        piece = rest;
    }
    AVL_ConcatLess(later.tree(), piece);
    while (auto *entry = static_cast<Entry *>(AVL_GetMin(later.tree()))) {
        entry->link = {}; // a node that goes into a tree has a cleared header
        AVL_InsertStabil(tree(), &entry->stamp, entry);
    }
}
