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

// Takes the node out of the tree and of the model.
void remove(Host &host, const Removal &removal, std::vector<Node> &order, std::size_t position) {
    const Node victim = order[position];
    const int key = key_of(victim);
    Record left_behind = load<Record>(victim);
    if (removal.frees)
        spoil_link(&left_behind);
    order.erase(order.begin() + static_cast<std::ptrdiff_t>(position));
    seen = {};
    EXPECT_EQ(removal.run(host.tree, &key), removal.frees ? nullptr : victim);
    expect_tree(host.tree, order);
    EXPECT_EQ(std::memcmp(victim, &left_behind, sizeof left_behind), 0) << "the node that left was written";
    EXPECT_EQ(seen.calls, std::vector<Call>(removal.frees, {Handler::free, victim, removal.word, &context}));
}

void remove_each(const Shape &shape) {
    Host host;
    const Sapling sapling(host, shape);
    const StackGuard guard(host.tree, shape.height);
    for (const Removal &removal : removals)
        for (std::size_t i = 0; i < sapling.order.size() && !::testing::Test::HasFailure(); i++) {
            SCOPED_TRACE(::testing::Message() << removal.name << " at position " << i);
            host.tree->Root = sapling.restore();
            std::vector<Node> order = sapling.order;
            if (reaches(removal, i, order.size()))
                remove(host, removal, order, i);
        }
}
TEST(Removal, LeavesSoundTreesAtEveryNode) {
    std::mt19937 random(1);
    for_all_shapes(4, 1, [](const Shape &shape, Keys) { remove_each(shape); });
    for (const Shape &shape : {leaning_shape(9, -1), leaning_shape(9, 1), full_shape(6), random_shape(7, random)})
        remove_each(shape);
}

TEST(Removal, PutsTheNeighbourFromTheHigherSideInPlace) {
    const std::string left = "30(20(10,25),40(35,45))", whole = "50(" + left + ",70(60,80))";
    const struct {
        std::string before;
        int key;
        std::string after;
    } cases[] = {
        {whole, 50, "45-(30(20(10,25),40-(35,)),70(60,80))"},
        {whole, 70, "50-(" + left + ",80-(60,))"},
        {"50(30(20(10,),40(35,45)),70(60,80))", 20, "50-(30+(10,40(35,45)),70(60,80))"},
        {"30(20(10,),40)", 40, "20(10,30)"},
        {"20(10,)", 20, "10"},
    };
    for (const auto &row : cases)
        for (const Removal &removal : removals) {
            Host host;
            plant(host, row.before.c_str());
            const std::vector<int> keys = keys_of(check(host.tree).order);
            const auto at = std::find(keys.begin(), keys.end(), row.key) - keys.begin();
            if (reaches(removal, static_cast<std::size_t>(at), keys.size())) {
                removal.run(host.tree, &row.key);
                EXPECT_EQ(picture_of(host.tree->Root), row.after) << removal.name << " " << row.key;
            }
        }
}

TEST(Removal, AsksFreeWhatStaysAtThePlace) {
    for_all_shapes(4, 1, [](const Shape &shape, Keys) {
        Host host;
        std::vector<Node> order = plant(host, shape);
        Node spare = host.record(0);
        const std::string picture = picture_of(host.tree->Root);
        for (std::size_t i = 0; i < order.size(); i++)
            for (const Removal &removal : removals) {
                if (!removal.frees || !reaches(removal, i, order.size()))
                    continue;
                const int key = key_of(order[i]);
                const std::deque<Record> before = host.bytes();
                seen.answer = order[i];
                removal.run(host.tree, &key);
                expect_tree(host.tree, order);
                EXPECT_TRUE(host == before);

                store(spare, 0, load<Record>(order[i])); // header, key and all
                seen.answer = spare;
                removal.run(host.tree, &key);
                std::swap(order[i], spare);
                expect_tree(host.tree, order);
                EXPECT_EQ(picture_of(host.tree->Root), picture);
            }
    });
}

TEST(Removal, DoesNothingWithoutANode) {
    for_all_shapes(3, 1, [](const Shape &shape, Keys keys) {
        Host host;
        const std::vector<Node> order = plant(host, shape);
        const std::deque<Record> before = host.bytes();
        for (std::size_t i = 0; i <= order.size(); i++) {
            const int absent = keys.at(i) - 5;
            for (const auto make : {AVL_MakeKey, AVL_MakeLastKey, AVL_MakePredKey}) {
                AVL_DelPfad(host.tree, make(host.tree, &absent), &absent, &context);
                EXPECT_EQ(AVL_GetPfad(host.tree, make(host.tree, &absent)), nullptr);
            }
            EXPECT_TRUE(seen.calls.empty());
            seen.answer = nullptr; // no node from Malloc
            EXPECT_EQ(AVL_InsertGetKey(host.tree, &absent, &context), nullptr);
            seen = {};
        }
        for (const Removal &removal : removals)
            EXPECT_TRUE(!order.empty() || removal.end == 0 || removal.run(host.tree, nullptr) == nullptr);
        expect_tree(host.tree, order);
        EXPECT_TRUE(host == before && seen.calls.empty());
    });
}

TEST(Removal, EmptiesTreesInAnyMixture) {
    std::mt19937 random(4);
    for (int round = 0; round < 12; round++) {
        SCOPED_TRACE(round);
        Host host;
        std::vector<Node> order = plant(host, random_shape(7, random));
        while (!order.empty() && !HasFailure()) {
            const std::size_t position = random() % order.size();
            const Removal &removal = removals[random() % std::size(removals)];
            remove(host, removal, order, removal.end == 0 ? position : removal.end == DIR_LEFT ? 0 : order.size() - 1);
        }
        EXPECT_EQ(host.tree->Root, nullptr);
    }
}

} // namespace
} // namespace ovant::test
