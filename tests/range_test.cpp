// Ranges: extraction, deletion and joining, held against sequences in tree order.
#include "range/range.hpp"
#include "support/check.hpp"
#include "support/ranges.hpp"
#include "support/shapes.hpp"

#include <cstdlib>

namespace ovant::test {
namespace {

int context; // known by its address

// In which order nodes go to Kill, by the shape before the call; the ids are positions in tree order.
struct KillOrder {
    std::vector<Node> nodes;

    static bool is_before(Node node, std::size_t gap) { return static_cast<std::size_t>(id_of(node)) < gap; }
    void sweep(Node node) {
        if (!node)
            return;
        nodes.push_back(node);
        sweep(link_of(node).Right);
        sweep(link_of(node).Left);
    }
    // What stands before a gap, or behind it, from the end of the path upward.
    void drop(bool before, Node node, std::size_t gap) {
        if (!node)
            return;
        const AVL_Link link = link_of(node);
        drop(before, is_before(node, gap) ? link.Right : link.Left, gap);
        if (is_before(node, gap) != before)
            return;
        sweep(before ? link.Left : link.Right);
        nodes.push_back(node);
    }
    void between(Node node, std::size_t first, std::size_t second) {
        while (node && (is_before(node, first) || !is_before(node, second)))
            node = is_before(node, first) ? link_of(node).Right : link_of(node).Left;
        if (!node)
            return;
        nodes.push_back(node);
        drop(true, link_of(node).Right, second);
        drop(false, link_of(node).Left, first);
    }
};

// A tree that every call finds in its first shape.
struct Plot {
    Plot(const Shape &shape, Keys keys_ = {}) : host(orders[keys_.run - 1]), keys(keys_), first(host, shape, keys_) {}

    AVL_Tree *fresh() {
        host.tree->Root = first.restore();
        seen = {};
        return host.tree;
    }
    int expect_sound(Node root, const std::vector<Node> &order) { // gives the height
        walked.clear();
        const int height = check_below(root, walked, 0);
        EXPECT_TRUE(walked == order);
        return height;
    }
    void expect_untouched() { EXPECT_TRUE(host.tree->Root == first.root && first.untouched()); }

    Node call(RangeCall operation, int a, int b) {
        const int first_bound = sense * a, second_bound = sense * b;
        return operation(host.tree, &first_bound, &second_bound, &context);
    }
    void expect_get(const RangeOp &op, int a, int b, const Parted &parted) {
        AVL_Tree *tree = fresh();
        const Node result = call(op.get, a, b);
        expect_sound(result, parted.goes);
        expect_sound(tree->Root, parted.stays);
        EXPECT_TRUE(seen.calls.empty() && seen.reports.empty());
        if (parted.goes.empty() && !op.outside)
            expect_untouched();
        if (op.first == At::start || op.second == At::end) {
            (op.first == At::start ? AVL_ConcatGreater : AVL_ConcatLess)(tree, result);
            expect_sound(tree->Root, first.order);
        }
    }
    void expect_del(const RangeOp &op, int a, int b, const Parted &parted) {
        AVL_Tree *tree = fresh();
        KillOrder expected;
        if (op.outside) { // in two goes, the second on what the first has left
            expected.drop(false, tree->Root, parted.second);
            call(op.second == At::front ? by<AVL_DelEqualGreater> : by<AVL_DelGreater>, b, b);
            expected.drop(true, tree->Root, parted.first);
            fresh();
        } else if (op.first == At::start || op.second == At::end) {
            const bool before = op.first == At::start;
            expected.drop(before, tree->Root, before ? parted.second : parted.first);
        } else {
            expected.between(tree->Root, parted.first, parted.second);
        }
        call(op.del, a, b);
        expect_sound(tree->Root, parted.stays);
        if (parted.goes.empty())
            expect_untouched();
        EXPECT_TRUE(seen.killed() == expected.nodes && seen.calls.size() == expected.nodes.size());
        EXPECT_TRUE(expected.nodes.size() == parted.goes.size() && seen.reports.empty());

        fresh()->Funcs = AVL_GetNodeFuncPtrRetNULL(); // a Kill that does nothing: the same, without the visits
        call(op.del, a, b);
        expect_sound(tree->Root, parted.stays);
        tree->Funcs = &noting_handlers;
    }
    // The operations of one bound are tried where both are the same.
    void expect_all(int a, int b) {
        for (const RangeOp &op : range_ops) {
            if (op.bounds == 1 && a != b)
                continue;
            const Parted parted = part(first.order, op, a, b);
            if (op.get)
                expect_get(op, a, b, parted);
            expect_del(op, a, b, parted);
            if (::testing::Test::HasFailure())
                FAIL() << op.name << " " << a << " " << b;
        }
    }

    Host host;
    Keys keys;
    Sapling first;
    std::vector<Node> walked;
};

TEST(Range, HoldsOnAllSmallTreesAndBounds) {
    for_all_shapes(4, 3, [](const Shape &shape, Keys keys) {
        Plot plot(shape, keys);
        const StackGuard guard(plot.host.tree, shape.height);
        // Every key, every gap between two of them and a bound beyond either end; of the pairs in the wrong order the
        // close ones, and the ones as far apart as can be.
        const int low = keys.first - 5, high = keys.at(plot.first.order.size()) + 5;
        for (int a = low; a <= high; a += 5)
            for (int b = low; b <= high && !::testing::Test::HasFailure(); b += 5)
                if (b == low || b >= a - 10)
                    plot.expect_all(a, b);
        AVL_DelTree(plot.fresh(), &context);
        EXPECT_TRUE(plot.host.tree->Root == nullptr && seen.killed().size() == plot.first.order.size());
        EXPECT_EQ(seen.comparisons, 0);
    });
}

TEST(Range, KillsAndJoinsAsDrawn) {
    const struct {
        RangeCall run;
        int first, second;
        std::vector<int> killed;
        const char *root;
    } cases[] = {
        {by<AVL_DelLess>, 40, 0, {30, 10, 20}, "60-(40+(,50),70)"},
        {by<AVL_DelGreater>, 40, 0, {50, 70, 60}, "20+(10,40-(30,))"},
        {by<AVL_DelLess>, 75, 0, {70, 50, 60, 20, 30, 10, 40}, ""},
        {by<AVL_DelBetweenEqualEqual>, 20, 50, {40, 50, 30, 20}, "60(10,70)"},
        {by<AVL_DelBetweenKey>, 40, 0, {40}, "50(20(10,30),60+(,70))"},
        {by<AVL_DelOutsideEqualEqual>, 20, 50, {50, 70, 60, 10, 20}, "40-(30,)"},
        {by<AVL_DelOutsideLessGreater>, 20, 50, {70, 60, 10}, "40-(20+(,30),50)"},
    };
    for (const auto &row : cases) {
        Host host;
        plant(host, full_shape(3));
        row.run(host.tree, &row.first, &row.second, &context);
        EXPECT_EQ(picture_of(host.tree->Root), row.root);
        EXPECT_EQ(keys_of(seen.killed()), row.killed);
        EXPECT_EQ(seen.calls.front().context, &context);
    }
}

TEST(Range, NothingIsReadWhereThereIsNothing) {
    Host host(AVL_CMP_HandlePointer);
    AVL_Tree *const tree = host.tree;
    const auto expect_empty = [&](Entry *top, int dir) {
        EXPECT_TRUE(top == tree->Stack && !top->Node && top->Dir == dir);
        tree->Stack->Dir = 77;
    };
    const void *const gone = nullptr;
    tree->Stack->Dir = 77;
    expect_empty(AVL_MakeKey(tree, gone), DIR_HERE);
    expect_empty(AVL_MakeSuccKey(tree, gone), 77);
    expect_empty(AVL_MakeLess(tree, gone), DIR_HERE);
    expect_empty(AVL_MakeEqualLess(tree, gone), 77);
    expect_empty(AVL_MakeBetweenEqualEqual(tree, gone, gone), 77);
    expect_empty(AVL_MakeBetweenEqualLess(tree, gone, gone), 77);
    expect_empty(AVL_MakeBetweenGreaterLess(tree, gone, gone), DIR_HERE);
    EXPECT_FALSE(AVL_SearchKey(tree, gone) || AVL_InsertStabil(tree, gone, nullptr) || AVL_GetLess(tree, gone));
}

TEST(Range, WhatGoesUnvisitedIsNotRead) {
    Host host;
    const std::vector<Node> order = plant(host, full_shape(3)); // 40 over 20 (10, 30) and 60 (50, 70)
    const Node nowhere = reinterpret_cast<Node>(8);
    host.tree->Funcs = AVL_GetNodeFuncPtrRetNULL();
    set_link(order[3], nowhere, link_of(order[3]).Right, 0);
    const int key = 45;
    AVL_DelLess(host.tree, &key, nullptr);
    expect_tree(host.tree, {order[4], order[5], order[6]});
    host.tree->Root = nowhere;
    AVL_DelTree(host.tree, nullptr);
    EXPECT_EQ(host.tree->Root, nullptr);
}
TEST(Range, AKeyMayGoWithTheOnlyNode) {
    for (const RangeCall del : {by<AVL_DelBetweenKey>, by<AVL_DelBetweenEqualEqual>}) {
        Host host(AVL_CMP_HandlePointer);
        host.tree->Funcs = AVL_GetNodeFuncPtrFreeMem();
        host.tree->Root = std::memcpy(std::malloc(sizeof(Record)), host.record(7), sizeof(Record));
        const auto *const key = reinterpret_cast<const int *>(static_cast<char *>(host.tree->Root) + key_off);
        del(host.tree, key, key, nullptr); // the address sanitizer watches
        EXPECT_EQ(host.tree->Root, nullptr);
    }
}

// DIR_HERE on a boundary path is reported and counts as right, for DropAfter as left: in place of what it counts as, it
// changes nothing.
void cut_with_damage(Plot &plot, std::size_t gap, int code, int level) {
    AVL_Tree *const tree = plot.fresh();
    const int key = plot.keys.at(gap), height = plot.first.height;
    Entry *const bottom = tree->Stack, *const top = AVL_MakeLess(tree, &key), *const damaged = bottom + level;
    if (damaged > top || damaged->Dir != (code == 115 ? DIR_LEFT : DIR_RIGHT))
        return;
    damaged->Dir = DIR_HERE;
    const auto middle = plot.first.order.begin() + static_cast<std::ptrdiff_t>(gap);
    const std::vector<Node> before(plot.first.order.begin(), middle), after(middle, plot.first.order.end());
    Change change, change_after;
    if (code == 113) {
        const Node split = AVL_SplitPfad(tree, bottom, top, &change, &change_after);
        EXPECT_EQ(plot.expect_sound(split, before), height + change);
        EXPECT_EQ(plot.expect_sound(bottom->Node, after), height + change_after);
    } else {
        const Node kept = (code == 114 ? AVL_DropBefore : AVL_DropAfter)(tree, bottom, top, &change, &context);
        EXPECT_EQ(plot.expect_sound(kept, code == 114 ? after : before), height + change);
    }
    EXPECT_EQ(seen.reports, (std::vector<Report>{{code, 32}}));
}
TEST(Range, HereOnAPathIsReportedAndCountsAsOneSide) {
    for_all_shapes(4, 1, [](const Shape &shape, Keys) {
        Plot plot(shape);
        for (std::size_t gap = 0; gap <= plot.first.order.size(); gap++)
            for (int code : {113, 114, 115})
                for (int level = 0; level < shape.height; level++)
                    cut_with_damage(plot, gap, code, level);
    });
}

// A pivot with a bad Balance counts as level: no node is lost, and where it was level the tree stays sound.
TEST(Range, BadBalanceOfThePivotIsReportedAndCountsAsLevel) {
    for_all_shapes(4, 1, [](const Shape &shape, Keys keys) {
        Plot plot(shape, keys);
        for (std::size_t i = 0; i < plot.first.order.size(); i++) {
            AVL_Tree *const tree = plot.fresh();
            std::vector<Node> rest = plot.first.order;
            const Node pivot = rest[i];
            const bool level = link_of(pivot).Balance == 0;
            if (!level && pivot != tree->Root)
                continue;
            set_balance(pivot, i % 2 ? -2 : 3);
            const int key = keys.at(i);
            AVL_DelBetweenKey(tree, &key, &context);
            rest.erase(rest.begin() + static_cast<std::ptrdiff_t>(i));
            if (level)
                plot.expect_sound(tree->Root, rest);
            EXPECT_EQ(inorder(tree->Root), rest);
            EXPECT_EQ(seen.reports, (std::vector<Report>{{118, 20}}));
        }
    });
}

} // namespace
} // namespace ovant::test
