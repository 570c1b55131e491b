#include "timeline.hpp"

#include <utility>

// The timeline is cut where the piece in hand begins, the piece is joined to its end, and what was cut off is the next
// piece: timelines that do not overlap cost two joins at most, whatever their sizes, others one for each time that they
// take turns.  A turn costs as much as inserting some entries, so after a thousand of them that is what we do.
void merge(Timeline &timeline, Timeline later) {
    for (int turns = 0; !later.empty() && turns < 1000; ++turns) {
        const Stamp start = later.front().stamp;
        const bool ours = turns % 2; // out of the timeline: then it stands before equal stamps
        Timeline rest = ours ? timeline.split(ovant::before(start)) : timeline.split(ovant::after(start));
        timeline.append(std::move(later));
        later = std::move(rest);
    }
    timeline.merge(later);
}

void keep_newest(Timeline &timeline, std::uint64_t count) {
    const auto first = timeline.begin();
    auto oldest = timeline.end();
    for (; count && oldest != first; --count)
        --oldest;
    timeline.erase(first, oldest); // a cut between positions may divide equal stamps
}

Timeline cut(Timeline &timeline, Span window) {
    return timeline.extract(ovant::before(window.first), ovant::after(window.last));
}

// The position stays where the window begins: each entry is gone before the next one is looked at.
Timeline cut_singly(Timeline &timeline, Span window) {
    Timeline out;
    const auto compare = timeline.key_comp();
    auto at = timeline.lower_bound(window.first);
    while (at != timeline.end() && compare(at->stamp, window.last) <= 0) {
        Entry &entry = *at;
        at = timeline.erase(at);
        out.push_back(entry);
    }
    return out;
}
