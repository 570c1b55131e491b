// The idioms over the public interface, held against the order of a tree.  What recipes/ shows at work is not shown
// again.
#include "ovant_idioms.h"

#include "support/check.hpp"
#include "support/shapes.hpp"

#include <limits>
#include <set>

using namespace ovant;
using namespace ovant::test;

namespace {

bool is_clear(Node node) { return node && !link_of(node).Left && !link_of(node).Right && !link_of(node).Balance; }

TEST(Idioms, FindThisVeryNodeAmongItsEquals) {
    for_all_shapes(4, 4, [](const Shape &shape, Keys keys) {
        Bed bed(shape, keys);
        AVL_Tree *const tree = bed.tree;
        for (const int side : {OVANT_DIR_LEFT, OVANT_DIR_RIGHT}) {
            const Node end = at(bed.order, side < 0 ? 0 : bed.order.size() - 1);
            EXPECT_TRUE(ovant_take(bed.fresh(), side) == end && (!end || is_clear(end)));
        }
        for (std::size_t i = 0; i < bed.order.size(); i++) {
            std::vector<Node> order = bed.order;
            bed.fresh();
            const Node node = order[i], equal = bed.record(key_of(node)); // which is in no tree
            const int key = sense * key_of(node), other = sense * (keys.first + (key_of(node) == keys.first));
            EXPECT_EQ(ovant_path(tree, &key, node)->Node, node);
            EXPECT_LE(seen.comparisons, 2 * shape.height);
            EXPECT_EQ(ovant_neighbour(tree, &key, node, OVANT_DIR_LEFT), at(order, i - 1));
            EXPECT_EQ(ovant_neighbour(tree, &key, node, OVANT_DIR_RIGHT), at(order, i + 1));
            EXPECT_FALSE(ovant_remove(tree, &key, equal) || ovant_remove(tree, &other, node));
            EXPECT_FALSE(ovant_neighbour(tree, &key, equal, OVANT_DIR_LEFT));
            EXPECT_TRUE(bed.is_fresh());

            EXPECT_EQ(ovant_remove(tree, &key, node), node);
            EXPECT_TRUE(is_clear(node) && seen.calls.empty());
            take_out(order, i);
            expect_tree(tree, order);
        }
    });
}

TEST(Idioms, BeginAtAKeyAndReplaceItsMatch) {
    for_all_shapes(4, 3, [](const Shape &shape, Keys keys) {
        Bed bed(shape, keys);
        for (int upward = keys.first - 5; upward <= keys.at(bed.order.size()); upward += 5) {
            AVL_Tree *const tree = bed.fresh();
            std::vector<Node> order = bed.order;
            const EqualRun run = run_of(order, upward);
            const int key = sense * upward;
            EXPECT_EQ(ovant_from(tree, &key, OVANT_DIR_RIGHT)->Node, at(order, run.front));
            EXPECT_EQ(ovant_from(tree, &key, OVANT_DIR_LEFT)->Node, at(order, run.back - 1));

            const Node match = AVL_SearchKey(tree, &key), fresh = bed.record(upward);
            seen.answer = fresh; // of Malloc and Realloc: what those of the ready tables would give
            EXPECT_EQ(ovant_replace(tree, &key, fresh), match);
            EXPECT_FALSE(ovant_replace(tree, &key, fresh)) << "it is there already";
            EXPECT_TRUE(!match || is_clear(match));
            if (match)
                std::replace(order.begin(), order.end(), match, fresh);
            else
                put_in(order, run.front, fresh);
            expect_tree(tree, order);
        }
    });
}

template <class T> void expect_ascending(AVL_CmpFunc compare) {
    using Limits = std::numeric_limits<T>;
    std::set<T> values{Limits::min(), Limits::min() + 1, 0, 1, Limits::max() / 2, Limits::max()};
    expect_order<T>(compare, {values.begin(), values.end()});
}
TEST(Idioms, ComparatorsPutTheSmallestFirst) {
    expect_ascending<std::int32_t>(ovant_compare_int32);
    expect_ascending<std::int64_t>(ovant_compare_int64);
    expect_ascending<std::uint64_t>(ovant_compare_uint64);
    expect_ascending<std::time_t>(ovant_compare_time);
    expect_ascending<std::uintptr_t>(ovant_compare_pointer);
}

struct Job {
    char pad;
    AVL_Link link;
    std::int32_t prio;
};
OVANT_TYPED(jobs, Job, link, prio, ovant_compare_int32);

TEST(Idioms, WhatNoRecipeShows) {
    AVL_Tree *const tree = jobs_new();
    Job job[] = {{0, {}, 1}, {0, {}, 2}, {0, {}, 3}};
    for (Job &j : job)
        jobs_insert(tree, &j);
    EXPECT_TRUE(jobs_upper_bound(tree, &job[1].prio) == &job[2] && jobs_link(&job[1]) == &job[1].link);
    EXPECT_TRUE(jobs_replace(tree, &job[1]) == nullptr && jobs_take_last(tree) == &job[2]);
    void *const root = tree->Root;
    EXPECT_TRUE(ovant_put_tree(tree, nullptr) == root && !tree->Root);
    EXPECT_TRUE(!ovant_put_tree(tree, root) && tree->Root == root);
    AVL_Destruktor(tree);
}

} // namespace
