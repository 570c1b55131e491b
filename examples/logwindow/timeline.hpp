// Log entries as nodes of an Ovant tree, in the order of time.
#pragma once

#include "ovant.h"
#include "stamp.hpp"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

// A stamped line and the unstamped lines that belong to it.  The text stays in the buffer that the file was read into.
// The link header is what the library needs of a node; where it and the key lie is ours to choose.
struct Entry {
    Stamp stamp;
    const char *text;
    std::size_t length;
    AVL_Link link;

    std::string_view view() const { return {text, length}; }
};

inline std::uint64_t comparisons = 0; // calls of the trees' comparator so far

// A tree of entries.  It owns none of them: they live in the arena of whoever made them, until the program ends.
class Timeline {
public:
    Timeline();
    explicit Timeline(void *root); // takes over linked nodes that were cut out of another timeline

    bool empty() const { return !tree_->Root; }
    const Entry &first() const { return *static_cast<Entry *>(AVL_SearchMin(tree_.get())); }
    AVL_Tree *tree() const { return tree_.get(); }

    void add(Entry &entry);       // behind all entries of the same stamp
    void merge(Timeline &&later); // entries of `later` stand behind entries of the same stamp here
    void drop_before(Stamp stamp);
    void keep_newest(std::uint64_t count);
    Timeline cut_before(Stamp stamp); // takes out all entries before the stamp
    Timeline cut(Span window);        // takes out the window, both bounds included
    Timeline cut_singly(Span window); // the same one entry at a time, to compare with

    template <class Visit> void each(Visit visit) const {
        for (auto at = AVL_WalkSuccInorder(tree(), nullptr); at->Node; at = AVL_WalkSuccInorder(tree(), at))
            visit(*static_cast<const Entry *>(at->Node));
    }

private:
    struct End {
        void operator()(AVL_Tree *tree) const { AVL_Destruktor(tree); }
    };
    std::unique_ptr<AVL_Tree, End> tree_;
};
