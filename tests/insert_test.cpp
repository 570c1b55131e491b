// The insert family: where a node goes, what a present key does, what a refusing handler leaves.
#include "support/check.hpp"
#include "support/shapes.hpp"

using namespace ovant;
using namespace ovant::test;

namespace {

using Insert = void *(*)(AVL_Tree *, const void *, void *);
const Insert family[] = {AVL_Insert, AVL_InsertStabil, AVL_InsertUnique, AVL_InsertSearchKey, AVL_InsertKey};
bool adds(Insert insert) { return insert == AVL_Insert || insert == AVL_InsertStabil; } // also a present key

// What the model says of an insertion: the place of a new node, or the node that was there.
struct Place {
    std::size_t position;
    Node present;
    int comparisons; // one per node down to the decision
};
Place place_of(const AVL_Tree *tree, const std::vector<Node> &order, Insert insert, int key) {
    const EqualRun run = run_of(order, key);
    const bool stops = run.front < run.back && insert != AVL_InsertStabil;
    const std::size_t match = stops ? nearest_to_root(tree, order, run) : run.back;
    Place place{match, nullptr, 0};
    for (Node node = tree->Root; node; place.comparisons++) {
        const auto at = static_cast<std::size_t>(std::find(order.begin(), order.end(), node) - order.begin());
        if (stops && at == match) {
            place.position += link_of(node).Balance <= 0; // next to the match, on its lighter side
            place.present = adds(insert) ? nullptr : node;
            place.comparisons++;
            break;
        }
        node = at < match ? link_of(node).Right : link_of(node).Left;
    }
    return place;
}

// One insertion of a new record, with everything it may and may not do; keeps the order up to date.
void insert_and_expect(Host &host, std::vector<Node> &order, Insert insert, int key) {
    AVL_Tree *tree = host.tree;
    const Node node = host.record(key);
    const Place place = place_of(tree, order, insert, key);
    const Node root = tree->Root;
    const auto bytes = host.bytes();
    const void *sought = static_cast<char *>(node) + key_off;
    const int height = check(tree).height;
    seen = {};
    Node result;
    {
        StackGuard guard(tree, height);
        result = insert(tree, sought, node);
    }
    EXPECT_EQ(seen.comparisons, place.comparisons);
    if (!place.present) {
        order.insert(order.begin() + static_cast<std::ptrdiff_t>(place.position), node);
        EXPECT_EQ(result, node);
        EXPECT_EQ(seen.calls, std::vector{(Call{Handler::malloc, nullptr, sought, node})});
    } else {
        EXPECT_EQ(result, insert == AVL_InsertUnique ? nullptr : place.present);
        EXPECT_TRUE(tree->Root == root && host == bytes);
        const Call realloc{Handler::realloc, place.present, sought, node};
        EXPECT_EQ(seen.calls, insert == AVL_InsertKey ? std::vector{realloc} : std::vector<Call>{});
    }
    expect_tree(tree, order);
}

TEST(Insert, EveryKeyIntoAllSmallShapes) {
    for_all_shapes(4, 2, [](const Shape &shape, Keys keys) {
        for (Insert insert : family)
            for (int key = keys.first - 5; key <= keys.at(static_cast<std::size_t>(shape.balances.size())); key += 5) {
                SCOPED_TRACE(::testing::Message() << "key " << key);
                Host host;
                std::vector<Node> order = plant(host, shape, keys);
                insert_and_expect(host, order, insert, key);
            }
    });
}

TEST(Insert, ManyInARow) {
    std::mt19937 random(7);
    for (int keys : {1, 8, 1000})
        for (Insert insert : family) {
            SCOPED_TRACE(keys);
            Host host;
            std::vector<Node> order;
            for (int i = 0; i < 120 && !::testing::Test::HasFailure(); i++)
                insert_and_expect(host, order, insert, static_cast<int>(random()) % keys);
        }
    for (int step : {-1, 1}) { // rising and falling keys turn at one side only
        Host host;
        std::vector<Node> order;
        for (int i = 0; i < 70; i++)
            insert_and_expect(host, order, AVL_InsertUnique, i * step);
        EXPECT_EQ(check(host.tree).height, 7);
    }
}

TEST(Insert, EqualKeysStandAsTold) {
    const std::pair<Insert, std::vector<int>> orders[] = {
        {AVL_Insert, {2, 4, 7, 8, 0, 11, 10, 9, 6, 5, 3, 1}},
        {AVL_InsertStabil, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}},
    };
    for (const auto &[insert, told] : orders) {
        Host host;
        std::vector<Node> order;
        for (int i = 0; i < 12; i++)
            insert_and_expect(host, order, insert, 20);
        EXPECT_EQ(ids_of(check(host.tree).order), told);
    }
}

TEST(Insert, ARefusingMallocLeavesEverything) {
    for_all_shapes(3, 2, [](const Shape &shape, Keys keys) {
        Host host;
        plant(host, shape, keys);
        const Node root = host.tree->Root;
        const auto bytes = host.bytes();
        seen.answer = nullptr;
        for (int key = keys.first - 5; key <= keys.at(shape.balances.size()); key += 5) {
            const bool present = AVL_SearchKey(host.tree, &key);
            for (Insert insert : family) {
                if (present && !adds(insert))
                    continue;
                seen.calls.clear();
                EXPECT_EQ(insert(host.tree, &key, &host), nullptr);
                EXPECT_EQ(seen.calls, std::vector{(Call{Handler::malloc, nullptr, &key, &host})});
            }
            EXPECT_TRUE(host.tree->Root == root && host == bytes && seen.reports.empty());
        }
    });
}

TEST(Insert, ReallocMayMoveTheNode) {
    for_all_shapes(3, 1, [](const Shape &shape, Keys keys) {
        for (std::size_t i = 0; i < shape.balances.size(); i++) {
            Host host;
            std::vector<Node> order = plant(host, shape, keys);
            const int key = key_of(order[i]);
            const Node moved = host.record(key);
            store(moved, link_off, link_of(order[i]));
            seen.answer = moved;
            EXPECT_EQ(AVL_InsertKey(host.tree, &key, nullptr), moved);
            spoil_link(order[i]);
            order[i] = moved;
            expect_tree(host.tree, order);
            EXPECT_EQ(AVL_SearchKey(host.tree, &key), moved);
        }
    });
}

// Every open Pfad that a builder gives takes a node: at an absent key, in front of an equal run and behind it.
TEST(Insert, StackTakesAnyOpenPfad) {
    const auto above = [](AVL_Tree *tree, Entry *top) { return tree->Root ? top + 1 : top; };
    for_all_shapes(4, 3, [&](const Shape &shape, Keys keys) {
        for (int key = keys.first - 5; key <= keys.at(shape.balances.size()); key += 5)
            for (bool behind : {false, true}) {
                Host host;
                AVL_Tree *tree = host.tree;
                std::vector<Node> order = plant(host, shape, keys);
                const auto bytes = host.bytes();
                const EqualRun run = run_of(order, key);
                Entry *open = above(tree, behind ? AVL_MakeEqualLess(tree, &key) : AVL_MakeLess(tree, &key));
                EXPECT_TRUE(run.front < run.back || AVL_MakeKey(tree, &key) == open);
                seen = {};
                AVL_InsertStack(tree, open, nullptr);
                EXPECT_TRUE(open->Node == nullptr && host == bytes);

                const Node node = host.record(key);
                AVL_InsertStack(tree, open, node);
                order.insert(order.begin() + static_cast<std::ptrdiff_t>(behind ? run.back : run.front), node);
                EXPECT_TRUE(seen.comparisons == 0 && seen.calls.empty());
                expect_tree(tree, order);
            }
    });
}

} // namespace
