// Log entries in an Ovant tree, in the order of time.
#pragma once

#include "ovant.hpp"
#include "stamp.hpp"

#include <cstddef>
#include <cstdint>
#include <string_view>

// A stamped line and the unstamped lines that belong to it.  The text stays in the buffer that the file was read into.
// The link is all that a tree needs of a record.
struct Entry {
    Stamp stamp;
    const char *text;
    std::size_t length;
    ovant::link link;

    std::string_view view() const { return {text, length}; }
};

inline std::uint64_t comparisons = 0; // made by all timelines so far

struct CountedComparison {
    auto operator()(const Stamp &a, const Stamp &b) const {
        ++comparisons;
        return a <=> b;
    }
};

// Entries of the same stamp stand in order of arrival.  A timeline owns none of them: they live with their loader
// until the program ends, so what is cut out and not wanted is just forgotten.
using Timeline = ovant::multiset<&Entry::link, &Entry::stamp, CountedComparison>;

void merge(Timeline &timeline, Timeline later); // entries of `later` stand behind entries of the same stamp
void keep_newest(Timeline &timeline, std::uint64_t count);

// Both take out the window, both bounds included: by one cut, and one entry at a time, to compare with.
Timeline cut(Timeline &timeline, Span window);
Timeline cut_singly(Timeline &timeline, Span window);
