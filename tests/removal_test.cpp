// One node leaves: at a path, by the toggle, at either end.
#include "support/check.hpp"
#include "support/shapes.hpp"

namespace ovant::test {
namespace {

int free_word, context; // known by their addresses

struct Removal {
    const char *name;
    Node (*run)(AVL_Tree *tree, const int *key); // the key of the node that goes
    int end;                                     // 0: works at every node, else only at that end of the tree
    bool frees;
    const void *word; // what Free is given as key
};
// clang-format off
const Removal removals[] = {
    {"GetPfad", [](AVL_Tree *t, const int *k) { return AVL_GetPfad(t, AVL_MakeKey(t, k)); }, 0, false, nullptr},
    {"DelPfad", [](AVL_Tree *t, const int *k) -> Node {
         return AVL_DelPfad(t, AVL_MakeKey(t, k), &free_word, &context), nullptr; }, 0, true, &free_word},
    {"InsertGetKey", [](AVL_Tree *t, const int *k) { return AVL_InsertGetKey(t, k, &context); }, 0, false, nullptr},
    {"GetMin", [](AVL_Tree *t, const int *) { return AVL_GetMin(t); }, DIR_LEFT, false, nullptr},
    {"GetMax", [](AVL_Tree *t, const int *) { return AVL_GetMax(t); }, DIR_RIGHT, false, nullptr},
    {"DelMin", [](AVL_Tree *t, const int *) -> Node { return AVL_DelMin(t, &context), nullptr; },
     DIR_LEFT, true, nullptr},
    {"DelMax", [](AVL_Tree *t, const int *) -> Node { return AVL_DelMax(t, &context), nullptr; },
     DIR_RIGHT, true, nullptr},
};
// clang-format on

bool reaches(const Removal &removal, std::size_t position, std::size_t nodes) {
    return removal.end == 0 || position == (removal.end == DIR_LEFT ? 0 : nodes - 1);
}

// One removal, where Free answers that this node stays at the place, 0 for none.
void expect_removal(Host &host, const Removal &removal, const Sapling &sapling, std::size_t position, Node stays) {
    host.tree->Root = sapling.restore();
    const Node victim = sapling.order[position];
    const int key = key_of(victim);
    Record left_behind = load<Record>(victim);
    if (removal.frees && stays != victim)
        spoil_link(&left_behind);
    std::vector<Node> order = sapling.order;
    if (stays)
        store(order[position] = stays, 0, load<Record>(victim)); // header, key and all
    else
        order.erase(order.begin() + static_cast<std::ptrdiff_t>(position));

    seen = {};
    seen.answer = stays;
    EXPECT_EQ(removal.run(host.tree, &key), removal.frees ? nullptr : victim);
    expect_tree(host.tree, order);
    EXPECT_TRUE(stays != victim || (host.tree->Root == sapling.root && sapling.untouched()));
    EXPECT_EQ(std::memcmp(victim, &left_behind, sizeof left_behind), 0) << "the node that left was written";
    EXPECT_EQ(seen.calls, std::vector<Call>(removal.frees, {Handler::free, victim, removal.word, &context}));
}

void remove_each(const Shape &shape) {
    Host host;
    const Sapling sapling(host, shape);
    const Node spare = host.record(0);
    const StackGuard guard(host.tree, shape.height);
    for (const Removal &removal : removals)
        for (std::size_t i = 0; i < sapling.order.size() && !::testing::Test::HasFailure(); i++) {
            SCOPED_TRACE(::testing::Message() << removal.name << " at position " << i);
            if (!reaches(removal, i, sapling.order.size()))
                continue;
            expect_removal(host, removal, sapling, i, nullptr);
            for (Node stays : {sapling.order[i], spare})
                if (removal.frees)
                    expect_removal(host, removal, sapling, i, stays);
        }
}
TEST(Removal, LeavesSoundTreesAtEveryNode) {
    std::mt19937 random(1);
    for_all_shapes(4, 1, [](const Shape &shape, Keys) { remove_each(shape); });
    for (const Shape &shape : {leaning_shape(9, -1), leaning_shape(9, 1), full_shape(6), random_shape(7, random)})
        remove_each(shape);
}

TEST(Removal, PutsTheNeighbourFromTheHigherSideInPlace) {
    const auto without = [](const Shape &shape, int key) {
        Host host;
        plant(host, shape);
        AVL_GetPfad(host.tree, AVL_MakeKey(host.tree, &key));
        return picture_of(host.tree->Root);
    };
    const Shape leaning{4, {-1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}}; // 80 over full trees of heights 3 and 2
    EXPECT_EQ(without(leaning, 80), "70-(40(20(10,30),60-(50,)),100(90,110))");
    EXPECT_EQ(without(leaning, 100), "80-(40(20(10,30),60(50,70)),110-(90,))");
    EXPECT_EQ(without(leaning_shape(3, -1), 40), "20(10,30)");
}

// Such a node cannot be taken out: it is handed out and stays; where Free ends it, what hangs below goes along.
TEST(Removal, OfADamagedBalanceLosesNothingButBelowAFreedNode) {
    Host host;
    const Sapling sapling(host, full_shape(3));
    for (const Removal &removal : removals)
        for (std::size_t i = 0; i < sapling.order.size() && removal.end == 0; i++)
            for (const int wrong : {-128, -2, 2, 127}) {
                host.tree->Root = sapling.restore();
                const Node victim = sapling.order[i];
                set_balance(victim, wrong);
                const std::deque<Record> before = host.bytes();
                const std::vector<Node> below = inorder(victim);
                const int key = key_of(victim);
                EXPECT_EQ(removal.run(host.tree, &key), removal.frees ? nullptr : victim);
                std::vector<Node> rest = sapling.order;
                for (Node gone : below)
                    std::erase(rest, removal.frees ? gone : nullptr);
                EXPECT_EQ(inorder(host.tree->Root), rest);
                EXPECT_TRUE(removal.frees || host == before);
            }
}

TEST(Removal, DoesNothingWithoutANode) {
    for_all_shapes(3, 1, [](const Shape &shape, Keys keys) {
        Host host;
        std::vector<Node> order = plant(host, shape);
        const std::deque<Record> before = host.bytes();
        const int absent = keys.at(order.size() / 2) - 5;
        for (const Removal &removal : removals)
            if (order.empty() || removal.end == 0) {
                seen.answer = nullptr; // the toggle asks Malloc, and there is no node
                EXPECT_EQ(removal.run(host.tree, &absent), nullptr) << removal.name;
            }
        expect_tree(host.tree, order);
        EXPECT_TRUE(host == before);
        EXPECT_EQ(seen.calls, (std::vector<Call>{{Handler::malloc, nullptr, &absent, &context}}));

        const Node node = host.record(absent);
        seen.answer = node;
        EXPECT_EQ(AVL_InsertGetKey(host.tree, &absent, &context), nullptr);
        order.insert(order.begin() + static_cast<std::ptrdiff_t>(order.size() / 2), node);
        expect_tree(host.tree, order);
    });
}

} // namespace
} // namespace ovant::test
