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
void expect_removal(Bed &bed, const Removal &removal, std::size_t position, Node stays) {
    const AVL_Tree *const tree = bed.fresh();
    std::vector<Node> order = bed.order;
    const Node victim = order[position];
    const AVL_Link link = link_of(victim);
    const int key = sense * key_of(victim);
    Record left_behind = load<Record>(victim);
    if (removal.frees && stays != victim)
        spoil_link(&left_behind);
    if (stays)
        store(order[position] = stays, 0, load<Record>(victim)); // header, key and all
    else
        take_out(order, position);

    seen.answer = stays;
    EXPECT_EQ(removal.run(bed.tree, &key), removal.frees ? nullptr : victim);
    expect_tree(tree, order);
    EXPECT_TRUE(stays != victim || bed.is_fresh());
    EXPECT_EQ(std::memcmp(victim, &left_behind, sizeof left_behind), 0) << "the node that left was written";
    EXPECT_EQ(seen.calls, std::vector<Call>(removal.frees, {Handler::free, victim, removal.word, &context}));
    const bool replaced = victim == bed.root && link.Left && link.Right && !stays; // from the higher side
    EXPECT_TRUE(!replaced || tree->Root == bed.order[link.Balance < 0 ? position - 1 : position + 1]);
}

void remove_each(const Shape &shape, Keys keys = {}) {
    Bed bed(shape, keys);
    const Node spare = bed.record(0);
    const StackGuard guard(bed.tree, shape.height);
    for (const Removal &removal : removals)
        for (std::size_t i = 0; i < bed.order.size() && !::testing::Test::HasFailure(); i++) {
            SCOPED_TRACE(::testing::Message() << removal.name << " at position " << i);
            if (!reaches(removal, i, bed.order.size()))
                continue;
            expect_removal(bed, removal, i, nullptr);
            for (Node stays : {bed.order[i], spare})
                if (removal.frees)
                    expect_removal(bed, removal, i, stays);
        }
}
TEST(Removal, LeavesSoundTreesAtEveryNode) {
    std::mt19937 random(1);
    for_all_shapes(4, 1, remove_each);
    for (const Shape &shape : {leaning_shape(9, -1), leaning_shape(9, 1), full_shape(6), random_shape(7, random)})
        remove_each(shape);
}

// Such a node cannot be taken out: it is handed out and stays; where Free ends it, what hangs below goes along.
TEST(Removal, OfADamagedBalanceLosesNothingButBelowAFreedNode) {
    Bed bed(full_shape(3));
    for (const Removal &removal : removals)
        for (std::size_t i = 0; i < bed.order.size() && removal.end == 0; i++)
            for (const int wrong : {-128, -2, 2, 127}) {
                AVL_Tree *const tree = bed.fresh();
                const Node victim = bed.order[i];
                set_balance(victim, wrong);
                const std::deque<Record> before = bed.bytes();
                std::vector<Node> rest = bed.order;
                for (Node below : traversal(victim, Visit::between))
                    std::erase(rest, removal.frees ? below : nullptr);
                const int key = key_of(victim);
                EXPECT_EQ(removal.run(tree, &key), removal.frees ? nullptr : victim);
                EXPECT_EQ(traversal(tree->Root, Visit::between), rest);
                EXPECT_TRUE(removal.frees || bed == before);
            }
}

} // namespace
} // namespace ovant::test
