// A host of the C++ face, for gdb to look at.
#include "ovant.hpp"

#include <string>

namespace {

struct Linked {
    void *first_word = nullptr;
    ovant::link link;
};
struct Event : Linked {
    unsigned time = 0;
    std::string name;
};
using Day = ovant::set<&Event::link, &Event::time>;
using Names = ovant::multiset<&Event::link, ovant::keys<&Event::name, &Event::time>>;

Day trees[6];

} // namespace

#define LINK_OFFSET sizeof(void *)
#define INSERT(tree, event) (tree).insert(event)
#define ROOT(tree) (&*root_of(tree))

static Event *root_of(Day &day) {
    Event *const root = day.release();
    day.adopt(root);
    return root;
}

#include "host.h"

extern "C" void look_here();
void look_here() {}

int main() {
    plant();
    Event first, second;
    first.name = "b";
    second.name = "a";
    Names names;
    names.insert(first);
    names.insert(second);
    auto position = trees[sound].find(20u);
    ++position;
    const Event *const root = root_of(trees[sound]);
    look_here();
    return root == nullptr;
}
