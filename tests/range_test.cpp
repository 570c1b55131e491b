// Ranges: extraction, deletion and joining, held against sequences in tree order.
#include "range/range.hpp"
#include "support/check.hpp"
#include "support/ranges.hpp"
#include "support/shapes.hpp"

namespace ovant::test {
namespace {

int context; // known by its address

struct Plot : Bed {
    using Bed::Bed;

    Node call(RangeCall operation, int a, int b) {
        const int first = sense * a, second = sense * b;
        return operation(tree, &first, &second, &context);
    }
    void expect_get(const RangeOp &op, int a, int b, const Parted &parted) {
        fresh();
        const Node result = call(op.get, a, b);
        expect_tree(tree, result, parted.goes);
        expect_tree(tree, parted.stays);
        EXPECT_TRUE(seen.calls.empty() && seen.reports.empty());
        EXPECT_TRUE(!parted.goes.empty() || op.outside || is_fresh());
        if (op.first == At::start || op.second == At::end) {
            (op.first == At::start ? AVL_ConcatGreater : AVL_ConcatLess)(tree, result);
            expect_tree(tree, order);
        }
    }
    void expect_del(const RangeOp &op, int a, int b, const Parted &parted) {
        fresh();
        call(op.del, a, b);
        std::vector<Node> killed = seen.killed(); // the ids are positions in tree order
        std::sort(killed.begin(), killed.end(), [](Node n, Node m) { return id_of(n) < id_of(m); });
        EXPECT_TRUE(killed == parted.goes && seen.calls.size() == killed.size() && seen.reports.empty());
        EXPECT_TRUE(!killed.empty() || is_fresh());
        expect_tree(tree, parted.stays);

        fresh()->Funcs = AVL_GetNodeFuncPtrRetNULL(); // a Kill that does nothing: the same, without the visits
        call(op.del, a, b);
        expect_tree(tree, parted.stays);
        tree->Funcs = &noting_handlers;
    }
};

TEST(Range, HoldsOnAllSmallTreesAndBounds) {
    for_all_shapes(4, 3, [](const Shape &shape, Keys keys) {
        Plot plot(shape, keys);
        const StackGuard guard(plot.tree, shape.height);
        // Every key, every gap between two of them and a bound beyond either end; of the pairs in the wrong order the
        // close ones, and the ones as far apart as can be.  The operations of one bound where both are the same.
        const int low = keys.first - 5, high = keys.at(plot.order.size()) + 5;
        for (int a = low; a <= high; a += 5)
            for (int b = low; b <= high; b += 5)
                for (const RangeOp &op : range_ops) {
                    if ((op.bounds == 1 && a != b) || (b != low && b < a - 10))
                        continue;
                    const Parted parted = part(plot.order, op, a, b);
                    if (op.get)
                        plot.expect_get(op, a, b, parted);
                    plot.expect_del(op, a, b, parted);
                    ASSERT_FALSE(HasFailure()) << op.name << " " << a << " " << b;
                }
        const std::vector<Node> sweep = traversal(plot.fresh()->Root, Visit::after); // backward
        AVL_DelTree(plot.tree, &context);
        EXPECT_TRUE(!plot.tree->Root && seen.killed() == std::vector<Node>(sweep.rbegin(), sweep.rend()));
        EXPECT_EQ(seen.comparisons, 0);
    });
}

TEST(Range, KillsAndJoinsAsDrawn) {
    const struct {
        RangeCall run;
        int first, second;
        std::vector<int> killed, rest; // the keys, in preorder
    } cases[] = {
        {by<AVL_DelLess>, 40, 0, {30, 10, 20}, {60, 40, 50, 70}},
        {by<AVL_DelLess>, 75, 0, {70, 50, 60, 20, 30, 10, 40}, {}},
        {by<AVL_DelGreater>, 5, 0, {10, 30, 20, 60, 70, 50, 40}, {}},
        {by<AVL_DelBetweenEqualEqual>, 20, 50, {40, 50, 30, 20}, {60, 10, 70}},
        {by<AVL_DelBetweenKey>, 40, 0, {40}, {50, 20, 10, 30, 60, 70}},
        {by<AVL_DelOutsideEqualEqual>, 20, 50, {50, 70, 60, 10, 20}, {40, 30}},
        {by<AVL_DelOutsideLessGreater>, 20, 50, {70, 60, 10}, {40, 20, 30, 50}},
    };
    for (const auto &row : cases) {
        Plot plot(full_shape(3)); // 40 over 20 (10, 30) and 60 (50, 70)
        row.run(plot.tree, &row.first, &row.second, &context);
        EXPECT_EQ(keys_of(traversal(plot.tree->Root, Visit::before)), row.rest);
        EXPECT_EQ(keys_of(seen.killed()), row.killed);
        EXPECT_EQ(seen.calls.front().context, &context);
    }
}

TEST(Range, NothingIsReadWhereThereIsNothing) {
    Host host(AVL_CMP_HandlePointer);
    AVL_Tree *const tree = host.tree;
    const void *const gone = nullptr;
    const auto expect_empty = [&](int dir, auto make, auto... bounds) {
        tree->Stack->Dir = 77;
        Entry *const top = make(tree, bounds...);
        EXPECT_TRUE(top == tree->Stack && !top->Node && top->Dir == dir);
    };
    expect_empty(DIR_HERE, AVL_MakeKey, gone);
    expect_empty(77, AVL_MakeSuccKey, gone);
    expect_empty(DIR_HERE, AVL_MakeLess, gone);
    expect_empty(77, AVL_MakeEqualLess, gone);
    expect_empty(77, AVL_MakeBetweenEqualEqual, gone, gone);
    expect_empty(77, AVL_MakeBetweenEqualLess, gone, gone);
    expect_empty(DIR_HERE, AVL_MakeBetweenGreaterLess, gone, gone);
    EXPECT_FALSE(AVL_SearchKey(tree, gone) || AVL_InsertStabil(tree, gone, nullptr) || AVL_GetLess(tree, gone) ||
                 AVL_GetPfad(tree, tree->Stack));
    AVL_DelPfad(tree, tree->Stack, gone, nullptr);
}

TEST(Range, WhatGoesUnvisitedIsNotRead) {
    Plot plot(full_shape(3));
    AVL_Tree *const tree = plot.tree;
    const Node nowhere = reinterpret_cast<Node>(8);
    tree->Funcs = AVL_GetNodeFuncPtrRetNULL();
    set_link(plot.root, nowhere, link_of(plot.root).Right, 0);
    plot.call(by<AVL_DelLess>, 45, 0);
    expect_tree(tree, {plot.order[4], plot.order[5], plot.order[6]});
    tree->Root = nowhere;
    AVL_DelTree(tree, nullptr);
    EXPECT_EQ(tree->Root, nullptr);
}

// DIR_HERE on a boundary path is reported and counts as right, for DropAfter as left: in place of what it counts as, it
// changes nothing.
void cut_with_damage(Plot &plot, std::size_t gap, int code, int level) {
    AVL_Tree *const tree = plot.fresh();
    const int key = plot.keys.at(gap);
    Entry *const bottom = tree->Stack, *const top = AVL_MakeLess(tree, &key), *const damaged = bottom + level;
    if (damaged > top || damaged->Dir != (code == 115 ? DIR_LEFT : DIR_RIGHT))
        return;
    damaged->Dir = DIR_HERE;
    const auto middle = plot.order.begin() + static_cast<std::ptrdiff_t>(gap);
    const std::vector<Node> before(plot.order.begin(), middle), after(middle, plot.order.end());
    Change change, change_after;
    const Node part = code == 113 ? AVL_SplitPfad(tree, bottom, top, &change, &change_after)
                                  : (code == 114 ? AVL_DropBefore : AVL_DropAfter)(tree, bottom, top, &change, nullptr);
    EXPECT_EQ(expect_tree(tree, part, code == 114 ? after : before), plot.height + change);
    EXPECT_TRUE(code != 113 || expect_tree(tree, bottom->Node, after) == plot.height + change_after);
    EXPECT_EQ(seen.reports, (std::vector<Report>{{code, 32}}));
}
// A pivot with a bad Balance counts as level: no node is lost, and where it was level the tree stays sound.
void delete_with_damage(Plot &plot, std::size_t position) {
    const AVL_Tree *const tree = plot.fresh();
    std::vector<Node> rest = plot.order;
    const Node pivot = rest[position];
    const bool level = link_of(pivot).Balance == 0;
    if (!level && pivot != tree->Root)
        return;
    set_balance(pivot, position % 2 ? -2 : 2);
    plot.call(by<AVL_DelBetweenKey>, key_of(pivot), 0);
    take_out(rest, position);
    if (level)
        expect_tree(tree, tree->Root, rest);
    EXPECT_EQ(traversal(tree->Root, Visit::between), rest);
    EXPECT_EQ(seen.reports, (std::vector<Report>{{118, 20}}));
}
TEST(Range, DamageIsReportedAndCountsAsOneSideOrAsLevel) {
    for_all_shapes(4, 1, [](const Shape &shape, Keys keys) {
        Plot plot(shape, keys);
        for (std::size_t gap = 0; gap <= plot.order.size(); gap++)
            for (int code : {113, 114, 115})
                for (int level = 0; level < shape.height; level++)
                    cut_with_damage(plot, gap, code, level);
        for (std::size_t position = 0; position < plot.order.size(); position++)
            delete_with_damage(plot, position);
    });
}

} // namespace
} // namespace ovant::test
