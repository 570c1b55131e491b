// The insert family: where a node goes, what a present key does, what a refusing or moving handler leaves.
#include "support/check.hpp"
#include "support/shapes.hpp"

using namespace ovant::c;
using namespace ovant::test;

namespace {

// A host that hangs its node at the open Pfad of a boundary of the equal run.
template <auto Make> Node insert_stack(AVL_Tree *tree, const void *key, void *context) {
    Entry *const open = Make(tree, key) + (tree->Root != nullptr);
    const Node node = on_malloc(key, context);
    AVL_InsertStack(tree, open, node);
    return node;
}

// The toggle, where the key is absent.
Node toggle(AVL_Tree *tree, const void *key, void *context) {
    return AVL_SearchKey(tree, key) || AVL_InsertGetKey(tree, key, context) ? nullptr : AVL_SearchKey(tree, key);
}

enum class Present { new_in_front, new_beside, new_behind, refused, told, asked }; // what a key that is there does
const struct Member {
    Node (*insert)(AVL_Tree *, const void *, void *);
    Present present;
} family[] = {
    {AVL_Insert, Present::new_beside},
    {AVL_InsertStabil, Present::new_behind},
    {AVL_InsertUnique, Present::refused},
    {AVL_InsertSearchKey, Present::told},
    {AVL_InsertKey, Present::asked},
    {insert_stack<AVL_MakeLess>, Present::new_in_front},
    {insert_stack<AVL_MakeEqualLess>, Present::new_behind},
    {toggle, Present::refused},
};

// One insertion of a new record, with everything it may and may not do.
void expect_insertion(const Member &member, const Shape &shape, Keys keys, int key) {
    SCOPED_TRACE(::testing::Message() << "member " << &member - family << ", key " << key);
    Bed bed(shape, keys);
    AVL_Tree *const tree = bed.tree;
    std::vector<Node> order = bed.order;
    const Node node = bed.record(key);
    const void *sought = static_cast<char *>(node) + key_off;
    const Node match = AVL_SearchKey(tree, sought);
    const auto bytes = bed.bytes();
    const auto insert = [&](std::optional<Node> answer) {
        seen = {};
        seen.answer = answer;
        StackGuard guard(tree, shape.height);
        return member.insert(tree, sought, node);
    };
    const EqualRun run = run_of(order, key);
    std::size_t place = member.present == Present::new_in_front ? run.front : run.back;
    if (match && member.present == Present::new_beside) // on its lighter side
        place = static_cast<std::size_t>(id_of(match)) + (link_of(match).Balance <= 0);
    const auto unchanged = [&] { return bed.is_fresh() && bed == bytes; };
    if (!match || member.present < Present::refused) {
        EXPECT_TRUE(insert(nullptr) == nullptr && unchanged()) << "Malloc refuses";
        EXPECT_EQ(insert({}), node);
        EXPECT_EQ(seen.calls, std::vector{(Call{Handler::malloc, nullptr, sought, node})});
        put_in(order, place, node);
    } else {
        EXPECT_EQ(insert({}), member.present == Present::refused ? nullptr : match);
        EXPECT_TRUE(unchanged());
        if (member.present == Present::asked) { // Realloc moves the node
            EXPECT_EQ(seen.calls, std::vector{(Call{Handler::realloc, match, sought, node})});
            store(node, link_off, link_of(match));
            EXPECT_EQ(insert(node), node);
            spoil_link(match);
            std::replace(order.begin(), order.end(), match, node);
        } else {
            EXPECT_TRUE(seen.calls.empty());
        }
    }
    expect_tree(tree, order);
}

TEST(Insert, EveryKeyIntoAllSmallShapes) {
    for_all_shapes(4, 3, [](const Shape &shape, Keys keys) {
        for (const Member &member : family)
            for (int key = keys.first - 5; key <= keys.at(shape.balances.size()); key += 5)
                expect_insertion(member, shape, keys, key);
    });
}

} // namespace
