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
    trees[sound].adopt(trees[sound].release()); // the position is older now
    [[maybe_unused]] const Event *const root = &events[sound][3];
    look_here();
}
