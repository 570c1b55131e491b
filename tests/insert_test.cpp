// The insert family: where a node goes, what a present key does, what a refusing or moving handler leaves.
#include "support/check.hpp"
#include "support/shapes.hpp"

using namespace ovant;
using namespace ovant::test;

namespace {

using Insert = void *(*)(AVL_Tree *, const void *, void *);
const Insert family[] = {AVL_Insert, AVL_InsertStabil, AVL_InsertUnique, AVL_InsertSearchKey, AVL_InsertKey};

// What the model says: the position of the new node or, with the key present, of the node that was met.
struct Place {
    std::size_t position;
    Node present = nullptr;
    int comparisons = 0; // one per node down to the decision
};
Place place_of(const AVL_Tree *tree, const std::vector<Node> &order, Insert insert, int key) {
    const EqualRun run = run_of(order, key);
    const bool stops = run.front < run.back && insert != AVL_InsertStabil;
    const std::size_t match = stops ? nearest_to_root(tree, order, run) : run.back;
    Place place{match};
    for (Node node = tree->Root; node; place.comparisons++) {
        const auto at = static_cast<std::size_t>(std::find(order.begin(), order.end(), node) - order.begin());
        if (stops && at == match) {
            if (insert == AVL_Insert) // next to the match, on its lighter side
                place.position += link_of(node).Balance <= 0;
            else
                place.present = node;
            place.comparisons++;
            break;
        }
        node = at < match ? link_of(node).Right : link_of(node).Left;
    }
    return place;
}

// One insertion of a new record, with everything it may and may not do; keeps the order up to date.
void insert_and_expect(Host &host, std::vector<Node> &order, Insert insert, int key) {
    SCOPED_TRACE(::testing::Message() << "key " << key);
    AVL_Tree *tree = host.tree;
    const Node node = host.record(key), root = tree->Root;
    const void *sought = static_cast<char *>(node) + key_off;
    const Place place = place_of(tree, order, insert, key);
    const int height = check(tree).height;
    const auto bytes = host.bytes();
    const auto run = [&](std::optional<Node> answer) {
        seen = {};
        seen.answer = answer;
        StackGuard guard(tree, height);
        const Node result = insert(tree, sought, node);
        EXPECT_EQ(seen.comparisons, place.comparisons);
        return result;
    };
    const auto expect_unchanged = [&] { EXPECT_TRUE(tree->Root == root && host == bytes); };
    if (!place.present) {
        EXPECT_EQ(run(nullptr), nullptr); // Malloc refuses
        expect_unchanged();
        EXPECT_EQ(run({}), node);
        EXPECT_EQ(seen.calls, std::vector{(Call{Handler::malloc, nullptr, sought, node})});
        order.insert(order.begin() + static_cast<std::ptrdiff_t>(place.position), node);
    } else {
        EXPECT_EQ(run({}), insert == AVL_InsertUnique ? nullptr : place.present);
        expect_unchanged();
        if (insert != AVL_InsertKey) {
            EXPECT_TRUE(seen.calls.empty());
        } else { // Realloc moves the node
            EXPECT_EQ(seen.calls, std::vector{(Call{Handler::realloc, place.present, sought, node})});
            store(node, link_off, link_of(place.present));
            EXPECT_EQ(run(node), node);
            spoil_link(place.present);
            order[place.position] = node;
        }
    }
    expect_tree(tree, order);
}

TEST(Insert, EveryKeyIntoAllSmallShapes) {
    for_all_shapes(4, 2, [](const Shape &shape, Keys keys) {
        for (Insert insert : family)
            for (int key = keys.first - 5; key <= keys.at(shape.balances.size()); key += 5) {
                Host host;
                std::vector<Node> order = plant(host, shape, keys);
                insert_and_expect(host, order, insert, key);
            }
    });
}

TEST(Insert, ManyInARow) {
    std::mt19937 random(7);
    for (int keys : {8, 1000})
        for (Insert insert : family) {
            Host host;
            std::vector<Node> order;
            for (int i = 0; i < 120 && !HasFailure(); i++)
                insert_and_expect(host, order, insert, static_cast<int>(random()) % keys);
        }
    for (int step : {-1, 0, 1}) // falling, equal and rising keys
        for (Insert insert : {AVL_Insert, AVL_InsertStabil}) {
            Host host;
            std::vector<Node> order;
            for (int i = 0; i < 12; i++)
                insert_and_expect(host, order, insert, 20 + i * step);
            EXPECT_EQ(check(host.tree).height, 4);
            EXPECT_TRUE(step != 0 || insert != AVL_Insert ||
                        ids_of(order) == std::vector({2, 4, 7, 8, 0, 11, 10, 9, 6, 5, 3, 1}));
        }
}

// Every open Pfad takes a node: at an absent key, in front of an equal run and behind it.
TEST(Insert, StackTakesAnyOpenPfad) {
    for_all_shapes(4, 3, [](const Shape &shape, Keys keys) {
        for (int key = keys.first - 5; key <= keys.at(shape.balances.size()); key += 5)
            for (auto make : {AVL_MakeLess, AVL_MakeEqualLess}) {
                Host host;
                std::vector<Node> order = plant(host, shape, keys);
                const auto bytes = host.bytes();
                const EqualRun run = run_of(order, key);
                Entry *open = make(host.tree, &key) + (shape.height > 0);
                EXPECT_TRUE(run.front < run.back || AVL_MakeKey(host.tree, &key) == open);
                seen = {};
                AVL_InsertStack(host.tree, open, nullptr);
                EXPECT_TRUE(!open->Node && host == bytes);

                const Node node = host.record(key);
                AVL_InsertStack(host.tree, open, node);
                const std::size_t at = make == AVL_MakeLess ? run.front : run.back;
                order.insert(order.begin() + static_cast<std::ptrdiff_t>(at), node);
                EXPECT_TRUE(seen.comparisons == 0 && seen.calls.empty());
                expect_tree(host.tree, order);
            }
    });
}

} // namespace
