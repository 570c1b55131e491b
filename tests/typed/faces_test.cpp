// One tree under both faces.
#include "typed.hpp"

namespace ovant::test {
namespace {

TEST(BothFaces, WorkOnOneTree) {
    Host host;
    AVL_Tree *const plain = host.tree;
    multiset<&Typed::link, &Typed::key> tree;
    std::vector<Node> order;
    for (int i = 0; i < 30; i++) {
        order.push_back(host.record(i));
        AVL_InsertStabil(plain, &i, order.back());
    }
    tree.adopt(static_cast<Typed *>(AVL_GetTree(plain)));
    expect_nodes(tree, order);
    EXPECT_EQ(nodes_of(tree), order);
    auto few = tree.extract(before(20), after(24));
    AVL_ConcatGreater(plain, few.release());
    EXPECT_TRUE(few.empty());
    expect_tree(plain, {order.begin() + 20, order.begin() + 25});
    const int key = 22;
    EXPECT_EQ(AVL_SearchKey(plain, &key), order[22]);
    few.adopt(static_cast<Typed *>(AVL_GetTree(plain)));
    tree.merge(few);
    expect_nodes(tree, order);
}

} // namespace
} // namespace ovant::test

// A record of the same name as one in types_test.cpp and local to its file, as that one is: nothing is shared.
namespace {
struct Event {
    char elsewhere[40];
    ovant::link link;
    int time;
};
TEST(LocalRecords, OfOneNameInTwoFilesAreTwo) {
    Event events[9];
    ovant::multiset<&Event::link, &Event::time> day;
    for (Event &event : events) {
        event.time = static_cast<int>(&event - events) * 4 % 9;
        day.insert(event);
    }
    int time = 0;
    for (const Event &event : day)
        EXPECT_EQ(event.time, time++);
}
} // namespace
