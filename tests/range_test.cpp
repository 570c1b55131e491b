// Ranges: extraction, deletion and joining, held against sequences in tree order.
#include "range/range.hpp"
#include "support/check.hpp"
#include "support/ranges.hpp"
#include "support/shapes.hpp"

namespace ovant::test {
namespace {

int context; // known by its address

// In which order the nodes go to Kill, from the shape before the call; the ids are positions in tree order.
class KillOrder {
public:
    std::vector<Call> calls;
    Node damaged = nullptr; // where a report comes before the calls of its entry: a call with no node stands for it

    void go(Node node) { calls.push_back({Handler::kill, node, nullptr, &context}); }
    void sweep(Node node) {
        if (!node)
            return;
        go(node);
        sweep(child(Side::right, node));
        sweep(child(Side::left, node));
    }
    // One side of the gap at a position goes, from the end of the path upward.
    void drop(Side gone, Node node, std::size_t gap) {
        if (!node)
            return;
        const Side stands = at(node) < gap ? Side::left : Side::right;
        drop(gone, child(!stands, node), gap);
        if (node == damaged)
            calls.push_back({});
        if (stands != gone)
            return;
        sweep(child(gone, node));
        go(node);
    }
    void between(Node node, std::size_t first, std::size_t second) {
        while (node && (at(node) < first || at(node) >= second))
            node = child(at(node) < first ? Side::right : Side::left, node);
        if (!node)
            return;
        go(node);
        drop(Side::left, child(Side::right, node), second);
        drop(Side::right, child(Side::left, node), first);
    }

private:
    static std::size_t at(Node node) { return static_cast<std::size_t>(id_of(node)); }
    static Node child(Side side, Node node) { return side == Side::left ? link_of(node).Left : link_of(node).Right; }
};

// A tree that every call finds in its first shape.
struct Plot {
    Plot(const Shape &shape, Keys keys_ = {}) : keys(keys_), first(host, shape, keys_) {}

    AVL_Tree *fresh() {
        host.tree->Root = first.restore();
        seen.calls.clear();
        return host.tree;
    }
    void expect_sound(Node root, const std::vector<Node> &order) {
        walked.clear();
        check_below(root, walked, 0);
        EXPECT_TRUE(walked == order) << ::testing::PrintToString(ids_of(walked)) << " instead of "
                                     << ::testing::PrintToString(ids_of(order));
    }
    void expect_get(const RangeOp &op, int a, int b, const Parted &parted) {
        AVL_Tree *tree = fresh();
        const Node result = op.get(tree, &a, &b, nullptr);
        expect_sound(result, parted.goes);
        expect_sound(tree->Root, parted.stays);
        EXPECT_TRUE(seen.calls.empty() && seen.reports.empty());
        const bool nothing_done = parted.goes.empty() && op.part != Part::outside;
        EXPECT_TRUE(!nothing_done || (tree->Root == first.root && first.untouched()));
        if (op.part == Part::before || op.part == Part::after) {
            (op.part == Part::before ? AVL_ConcatGreater : AVL_ConcatLess)(tree, result);
            expect_sound(tree->Root, first.order);
        }
    }
    void expect_del(const RangeOp &op, int a, int b, const Parted &parted) {
        AVL_Tree *tree = fresh();
        KillOrder expected;
        if (op.part == Part::before || op.part == Part::after) {
            expected.drop(op.part == Part::before ? Side::left : Side::right, tree->Root, parted.first);
        } else if (op.part == Part::between) {
            expected.between(tree->Root, parted.first, parted.second);
        } else { // in two goes, the second on what the first has left
            expected.drop(Side::right, tree->Root, parted.second);
            (op.second == Edge::front ? AVL_DelEqualGreater : AVL_DelGreater)(tree, &b, &context);
            expected.drop(Side::left, tree->Root, parted.first);
            fresh();
        }
        op.del(tree, &a, &b, &context);
        expect_sound(tree->Root, parted.stays);
        EXPECT_TRUE(seen.calls == expected.calls && seen.reports.empty());
        EXPECT_TRUE(!parted.goes.empty() || (tree->Root == first.root && first.untouched()));
    }
    void expect_all(int a, int b, bool one_bound_too) {
        for (const RangeOp &op : range_ops) {
            if (op.bounds == 1 && !one_bound_too)
                continue;
            const int second = op.bounds == 1 ? a : b;
            const Parted parted = part(first.order, op, a, second);
            if (op.get)
                expect_get(op, a, second, parted);
            expect_del(op, a, second, parted);
            if (::testing::Test::HasFailure())
                FAIL() << op.name << " " << a << " " << second;
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
                    plot.expect_all(a, b, b == low);
        EXPECT_TRUE(shape.height > 0 || seen.comparisons == 0);
        KillOrder expected;
        expected.sweep(plot.fresh()->Root);
        AVL_DelTree(plot.host.tree, &context);
        EXPECT_TRUE(seen.calls == expected.calls && plot.host.tree->Root == nullptr);
    });
}

TEST(Range, HoldsOnTallTrees) {
    std::mt19937 random(2);
    for (int round = 0; round < 24; round++) {
        SCOPED_TRACE(round);
        const int height = round < 2 ? 20 : 8 + round % 4;
        const Shape shape = round < 12 ? leaning_shape(height, round % 2 * 2 - 1) : random_shape(height, random);
        Plot plot(shape, {round % 5 == 4 ? 50 : round % 3 + 1});
        const StackGuard guard(plot.host.tree, shape.height);
        const int high = plot.keys.at(plot.first.order.size()) + 5;
        for (int i = 0; i < (round < 2 ? 2 : 10) && !HasFailure(); i++) {
            // Anywhere in any order, or near the ends.
            const auto any = [&] { return 5 * static_cast<int>(random() % static_cast<unsigned>(high / 5)); };
            plot.expect_all(i % 2 ? 10 * i : any(), i % 4 == 1 ? high - 10 * i : any(), true);
        }
    }
}

TEST(Range, KillsAndJoinsAsDrawn) {
    const struct {
        RangeCall run;
        int first, second;
        std::vector<int> killed;
        const char *root, *result;
    } cases[] = {
        {range_call<AVL_DelLess>, 40, 0, {30, 10, 20}, "60-(40+(,50),70)", ""},
        {range_call<AVL_DelGreater>, 40, 0, {50, 70, 60}, "20+(10,40-(30,))", ""},
        {range_call<AVL_DelLess>, 75, 0, {70, 50, 60, 20, 30, 10, 40}, "", ""},
        {range_call<AVL_DelBetweenEqualEqual>, 20, 50, {40, 50, 30, 20}, "60(10,70)", ""},
        {range_call<AVL_DelBetweenEqualLess>, 20, 50, {40, 30, 20}, "50+(10,60+(,70))", ""},
        {range_call<AVL_DelBetweenKey>, 40, 0, {40}, "50(20(10,30),60+(,70))", ""},
        {range_call<AVL_DelOutsideEqualEqual>, 20, 50, {50, 70, 60, 10, 20}, "40-(30,)", ""},
        {range_call<AVL_DelOutsideLessGreater>, 20, 50, {70, 60, 10}, "40-(20+(,30),50)", ""},
        {range_call<AVL_GetBetweenKey>, 40, 0, {}, "50(20(10,30),60+(,70))", "40"},
        {range_call<AVL_GetBetweenEqualEqual>, 5, 75, {}, "", "40(20(10,30),60(50,70))"},
    };
    for (const auto &row : cases) {
        Host host;
        plant(host, full_shape(3));
        EXPECT_EQ(picture_of(row.run(host.tree, &row.first, &row.second, &context)), row.result);
        EXPECT_EQ(picture_of(host.tree->Root), row.root);
        EXPECT_EQ(keys_of(seen.killed()), row.killed);
    }
}

TEST(Range, FollowsTheComparatorsOrder) {
    Host host(AVL_CMP_SignedLong); // the largest stands first
    for (int key : {40, 10, 70, 20, 60, 30, 50})
        AVL_Insert(host.tree, &key, host.record(key));
    const int key = 40;
    EXPECT_EQ(keys_of(check(host.tree, AVL_GetLess(host.tree, &key)).order), (std::vector{70, 60, 50}));
    EXPECT_EQ(keys_of(check(host.tree).order), (std::vector{40, 30, 20, 10}));
}

void expect_concat(const Shape &shape, const std::vector<Sapling> &others) {
    Plot plot(shape);
    for (const Sapling &other : others)
        for (bool less : {true, false}) {
            AVL_Tree *tree = plot.fresh();
            std::vector<Node> order = less ? plot.first.order : other.order;
            const std::vector<Node> &behind = less ? other.order : plot.first.order;
            order.insert(order.end(), behind.begin(), behind.end());
            const StackGuard guard(tree, other.root ? shape.height + other.height : -1);
            (less ? AVL_ConcatLess : AVL_ConcatGreater)(tree, other.restore());
            plot.expect_sound(tree->Root, order);
            EXPECT_LE(AVL_MaxDeepth(tree), 1 + std::max(shape.height, other.height));
            EXPECT_TRUE(seen.calls.empty() && seen.comparisons == 0);
        }
}
TEST(Range, JoinsTreesOfAllHeights) {
    Host nursery;
    std::vector<Sapling> others = saplings(nursery, 4);
    for_all_shapes(3, 1, [&](const Shape &shape, Keys) { expect_concat(shape, others); });
    expect_concat(leaning_shape(14, -1), others);
    others.emplace_back(nursery, leaning_shape(16, 1));
    for (int height = 0; height <= 8; height += 2)
        expect_concat(full_shape(height), others);
}

// Splits and drops at every gap, with no entry of the path damaged or one of them: that one then counts as going right,
// for DropAfter as going left.  A leaf at the end of the path thus changes sides; elsewhere only entries are damaged
// that went that way.
void cut_at(Plot &plot, std::size_t gap, int code, int damaged) {
    AVL_Tree *const tree = plot.fresh();
    seen.reports.clear();
    tree->Error = [](int function, int error) {
        seen.calls.push_back({}); // among the calls of Kill, to see their order
        return note_report(function, error);
    };
    const int key = plot.keys.at(gap), counts_as = code == 115 ? DIR_LEFT : DIR_RIGHT;
    Entry *const top = AVL_MakeLess(tree, &key), *const here = tree->Stack + damaged;
    KillOrder expected;
    if (here > top)
        return;
    if (damaged >= 0) {
        const AVL_Link link = link_of(here->Node);
        if (here->Dir != counts_as && (here != top || link.Left || link.Right))
            return;
        gap += here->Dir == counts_as ? 0 : static_cast<std::size_t>(counts_as);
        here->Dir = DIR_HERE;
        expected.damaged = here->Node;
    }
    const auto begin = plot.first.order.begin(), middle = begin + static_cast<std::ptrdiff_t>(gap);
    const std::vector<Node> before(begin, middle), after(middle, plot.first.order.end());
    const auto expect_part = [&](Node root, const std::vector<Node> &order, Change change) {
        plot.expect_sound(root, order);
        EXPECT_EQ(check(tree, root).height, plot.first.height + change);
    };
    Change change, change_after;
    if (code == 113) {
        const Node split = AVL_SplitPfad(tree, tree->Stack, top, &change, &change_after);
        expect_part(split, before, change);
        expect_part(tree->Stack->Node, after, change_after);
    } else {
        const bool keeps_after = code == 114;
        expected.drop(keeps_after ? Side::left : Side::right, tree->Root, gap);
        const auto drop = keeps_after ? AVL_DropBefore : AVL_DropAfter;
        const Node kept = drop(tree, tree->Stack, top, &change, &context);
        expect_part(kept, keeps_after ? after : before, change);
        EXPECT_TRUE(seen.calls == expected.calls);
    }
    EXPECT_EQ(seen.reports, std::vector<Report>(damaged >= 0, {code, 32}));
}
TEST(Range, HereOnAPathIsReportedAndCountsAsOneSide) {
    for_all_shapes(4, 1, [](const Shape &shape, Keys) {
        Plot plot(shape);
        for (std::size_t gap = 0; gap <= plot.first.order.size(); gap++)
            for (int code : {113, 114, 115})
                for (int damaged = -1; damaged < shape.height; damaged++)
                    cut_at(plot, gap, code, damaged);
    });
}

// A pivot with a bad Balance counts as level: no node is lost, and where it was level the tree stays sound.
TEST(Range, BadBalanceOfThePivotIsReportedAndCountsAsLevel) {
    for_all_shapes(4, 1, [](const Shape &shape, Keys keys) {
        Plot plot(shape, keys);
        const std::vector<Node> &order = plot.first.order;
        for (std::size_t first = 0; first < order.size(); first++)
            for (std::size_t last = first; last < order.size(); last++)
                for (int bad : {-2, 3}) {
                    AVL_Tree *const tree = plot.fresh();
                    seen.reports.clear();
                    const int a = keys.at(first), b = keys.at(last);
                    const Node pivot = AVL_MakeBetweenEqualEqual(tree, &a, &b)->Node;
                    const bool level = link_of(pivot).Balance == 0;
                    if (!level && pivot != tree->Root)
                        continue;
                    set_balance(pivot, bad);
                    AVL_DelBetweenEqualEqual(tree, &a, &b, &context);
                    std::vector<Node> rest = order;
                    rest.erase(rest.begin() + static_cast<std::ptrdiff_t>(first),
                               rest.begin() + static_cast<std::ptrdiff_t>(last) + 1);
                    if (level)
                        plot.expect_sound(tree->Root, rest);
                    EXPECT_EQ(inorder(tree->Root), rest);
                    EXPECT_EQ(seen.killed().size(), last - first + 1);
                    EXPECT_EQ(seen.reports, std::vector<Report>({{118, 20}}));
                }
    });
}

} // namespace
} // namespace ovant::test
