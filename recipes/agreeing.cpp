// One tree, searched by all that grows along with its key.  A log is ordered by position; its times never fall from one
// entry to the next, so a time names a place in it as well.  partition_point takes any question that is answered yes at
// first and no from some record on: a search by it is one descent, with a question a level, and bounds of both kinds go
// together.
#include <ovant.hpp>

#include <iostream>

struct Entry {
    int position, time;
    const char *text;
    ovant::link link;
};
using Log = ovant::set<&Entry::link, &Entry::position>;

auto time(int sought) {
    return ovant::partition_point([sought](const Entry &entry) { return entry.time < sought; });
}

int main() {
    Entry entries[] = {{0, 700, "up", {}},     {41, 700, "ready", {}},  {97, 712, "asked", {}},
                       {150, 712, "told", {}}, {202, 745, "asked", {}}, {255, 803, "down", {}}};
    Log log;
    log.assign_sorted(entries);

    std::cout << "at 712 it says: " << log.first_after(time(712))->text << '\n';
    for (const Entry &entry : log.between(time(700), ovant::before(150)))
        std::cout << entry.position << ' ' << entry.text << '\n';
    std::cout << "entries since 712: " << log.count(time(712), ovant::finish) << '\n';
    const Log old = log.extract(ovant::start, time(740)); // is archived, whole
    std::cout << "the log begins at " << log.front().position << ", the archive ends at " << old.back().position
              << '\n';
}

/* prints
at 712 it says: asked
0 up
41 ready
97 asked
entries since 712: 4
the log begins at 202, the archive ends at 150
*/
