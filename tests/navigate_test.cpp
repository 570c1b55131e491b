// Searches, key paths, range paths, walks and steps, held against recursion and a sorted sequence.
#include "support/check.hpp"
#include "support/shapes.hpp"

using namespace ovant;
using namespace ovant::test;

namespace {

constexpr int untouched = 77; // painted into Dir, to see where a builder leaves it unwritten
void paint_path(AVL_Tree *tree, int height) {
    for (int i = 0; i <= height; i++)
        tree->Stack[i] = {tree, untouched};
}

// A tree and what recursion knows of it.
struct World {
    Host host;
    std::vector<Node> order;
    AVL_Tree *const tree = host.tree;
    int height;

    World(const Shape &shape, Keys keys, AVL_CmpFunc cmp = smallest_first, std::size_t offset_of_key = key_off)
        : host(cmp, offset_of_key), order(plant(host, shape, keys)), height(shape.height) {}

    Node at(std::size_t position) const { return position < order.size() ? order[position] : nullptr; }
    Node before(std::size_t position) const { return at(position - 1); } // position 0 wraps round to no node

    // The entry is an open Pfad at the gap before this position: the only empty link there.
    void expect_open(const Entry *top, std::size_t gap, int dir = untouched) const {
        expect_chain(tree, top);
        EXPECT_EQ(top->Node, nullptr);
        EXPECT_EQ(top->Dir, dir);
        const Node parent = top > tree->Stack ? top[-1].Node : nullptr;
        EXPECT_EQ(parent, parent && top[-1].Dir == DIR_LEFT ? at(gap) : before(gap)) << text_of(tree, top);
    }
    void expect_path(const Entry *top, Node node, int dir = DIR_HERE) const {
        expect_chain(tree, top);
        EXPECT_EQ(top->Node, node) << text_of(tree, top);
        EXPECT_EQ(top->Dir, dir);
    }
    // A path to the node, or the bottom entry with Node 0 where none qualifies.
    void expect_found(const Entry *top, Node node) const {
        if (node)
            return expect_path(top, node);
        EXPECT_EQ(top, tree->Stack);
        EXPECT_EQ(top->Node, nullptr);
    }
    template <class Make, class... Key> Entry *make(Make builder, const Key &...keys) const {
        paint_path(tree, height);
        seen.comparisons = 0;
        return builder(tree, &keys...);
    }
    template <class Search> Node search(Search find, const int &key) const {
        seen.comparisons = 0;
        return find(tree, &key);
    }
};

void expect_key_answers(const World &world, int key) {
    SCOPED_TRACE(::testing::Message() << "key " << key);
    const EqualRun run = run_of(world.order, key);
    const bool present = run.front != run.back;
    const std::size_t match = present ? nearest_to_root(world.tree, world.order, run) : run.front;
    // The neighbours of the match; of an absent key those of its gap.
    const Node pred = world.before(match), succ = world.at(present ? match + 1 : match);
    const Node only_if_present = present ? world.at(match) : nullptr;

    Entry *top = world.make(AVL_MakeKey, key);
    const int to_match = static_cast<int>(top - world.tree->Stack) + present;
    EXPECT_EQ(seen.comparisons, to_match) << "one comparison per level";
    present ? world.expect_path(top, world.at(match)) : world.expect_open(top, match);
    for (const auto &[make, position] : {std::pair(&AVL_MakeFirstKey, run.front), {&AVL_MakeLastKey, run.back - 1}}) {
        top = world.make(make, key);
        present ? world.expect_path(top, world.at(position)) : world.expect_open(top, match);
    }
    world.expect_found(world.make(AVL_MakePred, key), pred);
    world.expect_found(world.make(AVL_MakeSucc, key), succ);
    world.expect_found(world.make(AVL_MakePredKey, key), present ? pred : nullptr);
    world.expect_found(world.make(AVL_MakeSuccKey, key), present ? succ : nullptr);

    // Boundary paths end at the last real node; the entry above is the open Pfad.
    int to_front = 0, to_back = 0;
    for (const auto &[make, gap, cost] :
         {std::tuple(&AVL_MakeLess, run.front, &to_front), {&AVL_MakeEqualLess, run.back, &to_back}}) {
        top = world.make(make, key);
        world.expect_open(top + 1, gap);
        *cost = seen.comparisons;
        EXPECT_EQ(*cost, top - world.tree->Stack + 1);
    }

    StackGuard guard(world.tree, -1); // a search writes no entry, so a held Pfad stays good
    const struct {
        void *(*search)(const AVL_Tree *, const void *);
        Node answer;
        int cost;
    } questions[] = {
        {AVL_SearchKey, only_if_present, to_match},
        {AVL_SearchPred, pred, to_match},
        {AVL_SearchSucc, succ, to_match},
        {AVL_SearchPredKey, present ? pred : nullptr, to_match},
        {AVL_SearchSuccKey, present ? succ : nullptr, to_match},
        {AVL_SearchLess, world.before(run.front), to_front},
        {AVL_SearchGreaterEqual, world.at(run.front), to_front},
        {AVL_SearchLessEqual, world.before(run.back), to_back},
        {AVL_SearchGreater, world.at(run.back), to_back},
    };
    for (const auto &question : questions) {
        EXPECT_EQ(world.search(question.search, key), question.answer) << "question " << &question - questions;
        EXPECT_EQ(seen.comparisons, question.cost) << "question " << &question - questions;
    }
}

TEST(Navigate, KeysAndNeighboursOnAllSmallShapes) {
    for_all_shapes(4, 3, [](const Shape &shape, Keys keys) {
        // The key at an odd offset, and with KeyOff 0, where the comparator gets the node itself.
        const auto at_node = [](const void *node, const void *key) {
            return smallest_first(static_cast<const char *>(node) + key_off, key);
        };
        for (const auto &[cmp, offset] : {std::pair<AVL_CmpFunc, std::size_t>(smallest_first, key_off), {at_node, 0}}) {
            World world(shape, keys, cmp, offset);
            if (shape.height == 0)
                return;
            StackGuard guard(world.tree, shape.height);
            const auto bytes = world.host.bytes();
            const int last = keys.at(world.order.size());
            for (int key = keys.first - 5; key <= last; key += 5)
                expect_key_answers(world, key);
            world.expect_path(world.make(AVL_MakeMin), world.order.front());
            world.expect_path(world.make(AVL_MakeMax), world.order.back());
            world.expect_path(world.make(AVL_MakeRoot), world.tree->Root);
            EXPECT_EQ(AVL_SearchMin(world.tree), world.order.front());
            EXPECT_EQ(AVL_SearchMax(world.tree), world.order.back());
            EXPECT_TRUE(world.host == bytes) << "looking changes nothing";
        }
    });
}

TEST(Navigate, RangePathsOnAllSmallShapes) {
    for_all_shapes(4, 3, [](const Shape &shape, Keys keys) {
        World world(shape, keys);
        const std::vector<Node> preorder = traversal(world.tree, Visit::before);
        const int last = keys.at(world.order.size()), stride = shape.height < 4 ? 5 : 15;
        for (int first = keys.first - 5; shape.height && first <= last; first += stride)
            for (int second = keys.first - 5; second <= last; second += 5) {
                SCOPED_TRACE(::testing::Message() << "bounds " << first << " and " << second);
                const EqualRun low = run_of(world.order, first), high = run_of(world.order, second);
                const struct {
                    AVL_PfadEntry *(*make)(AVL_Tree *, const void *, const void *);
                    std::size_t begin, end;
                } ranges[] = {{AVL_MakeBetweenEqualEqual, low.front, high.back},
                              {AVL_MakeBetweenEqualLess, low.front, high.front},
                              {AVL_MakeBetweenGreaterLess, low.back, high.front}};
                for (const auto &[make, begin, end] : ranges) {
                    Entry *top = world.make(make, first, second);
                    if (begin >= end)
                        world.expect_open(top, begin);
                    else
                        world.expect_path(top, world.at(nearest_to_root(world.tree, world.order, {begin, end})),
                                          untouched);
                    EXPECT_LE(seen.comparisons, 2 * (top - world.tree->Stack + 1));
                }
            }
    });
}

TEST(Navigate, TheEmptyTreeIsAskedNothing) {
    World world({}, {});
    const int key = 10;
    const auto expect_bottom = [&](const Entry *top, int dir) {
        EXPECT_EQ(top, world.tree->Stack);
        EXPECT_EQ(top->Node, nullptr);
        EXPECT_EQ(top->Dir, dir);
        EXPECT_EQ(seen.comparisons, 0);
    };
    for (auto make : {AVL_MakeMin, AVL_MakeMax, AVL_MakeRoot})
        expect_bottom(world.make(make), DIR_HERE);
    for (auto make : {AVL_MakeKey, AVL_MakeFirstKey, AVL_MakeLastKey, AVL_MakePred, AVL_MakeSucc, AVL_MakeLess})
        expect_bottom(world.make(make, key), DIR_HERE);
    for (auto make : {AVL_MakePredKey, AVL_MakeSuccKey, AVL_MakeEqualLess})
        expect_bottom(world.make(make, key), untouched);
    for (auto make : {AVL_MakeBetweenEqualEqual, AVL_MakeBetweenEqualLess})
        expect_bottom(world.make(make, key, key), untouched);
    expect_bottom(world.make(AVL_MakeBetweenGreaterLess, key, key), DIR_HERE);
    for (auto search : {AVL_SearchKey, AVL_SearchPred, AVL_SearchSucc, AVL_SearchPredKey, AVL_SearchSuccKey,
                        AVL_SearchLess, AVL_SearchLessEqual, AVL_SearchGreater, AVL_SearchGreaterEqual})
        EXPECT_EQ(world.search(search, key), nullptr);
    EXPECT_EQ(AVL_SearchMin(world.tree), nullptr);
    EXPECT_EQ(AVL_SearchMax(world.tree), nullptr);
    EXPECT_EQ(seen.comparisons, 0);
}

// 40 over 20 (10, 30) and 60 (50, 70).
TEST(Navigate, PathsReadAsTold) {
    World world(full_shape(3), {});
    const auto path = [&](auto make, auto... keys) { return text_of(world.tree, make(world.tree, &keys...)); };
    EXPECT_EQ(path(AVL_MakePred, 40), "40L 20R 30H");
    EXPECT_EQ(path(AVL_MakePred, 50), "40H");
    EXPECT_EQ(path(AVL_MakeKey, 35), "40L 20R 30R -");
    EXPECT_EQ(path(AVL_MakeLess, 40), "40L 20R 30R");
    EXPECT_EQ(path(AVL_MakeEqualLess, 40), "40R 60L 50L");
    EXPECT_EQ(path(AVL_MakeBetweenEqualEqual, 50, 20), "40R 60L 50L -");

    // Positions, not values: the ready-made order of integers puts the largest first.
    World falling(full_shape(3), {1, 70, -10}, AVL_CMP_SignedLong);
    const int key = 30;
    EXPECT_EQ(key_of(AVL_SearchMin(falling.tree)), 70);
    EXPECT_EQ(key_of(AVL_SearchLess(falling.tree, &key)), 40);
    EXPECT_EQ(key_of(AVL_SearchGreater(falling.tree, &key)), 20);
    EXPECT_EQ(text_of(falling.tree, AVL_MakeLess(falling.tree, &key)), "40R 20L 30L");
}

// ---- Walks -----------------------------------------------------------------------------------------------------

const struct Walk {
    AVL_WalkFunc step;
    Visit visit;
    bool backward;
    Report after_end; // none from the two inorder walks
} walks[] = {
    {AVL_WalkSuccInorder, Visit::between, false, {}},        {AVL_WalkPredInorder, Visit::between, true, {}},
    {AVL_WalkSuccPreorder, Visit::before, false, {101, 24}}, {AVL_WalkPredPreorder, Visit::before, true, {98, 24}},
    {AVL_WalkSuccPostorder, Visit::after, false, {101, 24}}, {AVL_WalkPredPostorder, Visit::after, true, {100, 24}},
};
std::vector<Node> expected(const AVL_Tree *tree, const Walk &walk) {
    std::vector<Node> nodes = traversal(tree, walk.visit);
    if (walk.backward)
        std::reverse(nodes.begin(), nodes.end());
    return nodes;
}
std::vector<Node> behind(const std::vector<Node> &nodes, Node node) {
    return {std::find(nodes.begin(), nodes.end(), node) + 1, nodes.end()};
}
// Steps from the position to the end, which is left in it; each position on the way is a path to its node.
std::vector<Node> drive(AVL_Tree *tree, const Walk &walk, Entry *&position, std::size_t steps = SIZE_MAX) {
    std::vector<Node> nodes;
    const int comparisons = seen.comparisons;
    for (; steps > 0; steps--) {
        position = walk.step(tree, position);
        if (!position || !position->Node)
            break;
        EXPECT_EQ(position->Dir, DIR_HERE);
        expect_chain(tree, position);
        nodes.push_back(position->Node);
    }
    EXPECT_EQ(seen.comparisons, comparisons);
    return nodes;
}
void expect_end(AVL_Tree *tree, const Walk &walk, Entry *position) {
    ASSERT_EQ(position, tree->Stack);
    EXPECT_EQ(position->Node, nullptr);
    EXPECT_TRUE(seen.reports.empty());
    const bool reports = walk.after_end != Report{};
    EXPECT_EQ(walk.step(tree, position), reports ? nullptr : position);
    EXPECT_EQ(seen.reports, reports ? std::vector{walk.after_end} : std::vector<Report>{});
    seen.reports.clear();
}

TEST(Navigate, WalksOnAllSmallShapesEndAndSwitch) {
    for_all_shapes(4, 1, [](const Shape &shape, Keys keys) {
        World world(shape, keys);
        StackGuard guard(world.tree, shape.height);
        const auto bytes = world.host.bytes();
        for (const Walk &walk : walks) {
            SCOPED_TRACE(::testing::Message() << "walk " << &walk - walks);
            const std::vector<Node> nodes = expected(world.tree, walk);
            Entry *position = nullptr;
            EXPECT_EQ(drive(world.tree, walk, position), nodes);
            expect_end(world.tree, walk, position);
            // Each walk takes over at each position of each other walk, and at a path to a key.
            for (const Walk &other : walks) {
                const std::vector<Node> others = expected(world.tree, other);
                for (std::size_t steps = 1; steps <= nodes.size(); steps++) {
                    position = nullptr;
                    drive(world.tree, walk, position, steps);
                    EXPECT_EQ(drive(world.tree, other, position), behind(others, nodes[steps - 1]));
                }
            }
            for (Node node : nodes) {
                const int key = key_of(node);
                position = AVL_MakeKey(world.tree, &key);
                EXPECT_EQ(drive(world.tree, walk, position), behind(nodes, node));
            }
        }
        EXPECT_TRUE(seen.reports.empty() && world.host == bytes);
    });
}

TEST(Navigate, WalksGoOnFromAnEmptyLink) {
    for_all_shapes(4, 1, [](const Shape &shape, Keys keys) {
        World world(shape, keys);
        for (int key = keys.first - 5; shape.height && key <= keys.at(world.order.size()); key += 10)
            for (const Walk &walk : walks) {
                SCOPED_TRACE(::testing::Message() << "walk " << &walk - walks << " from " << key);
                Entry *position = AVL_MakeKey(world.tree, &key);
                if (walk.step == AVL_WalkSuccPreorder) {
                    EXPECT_EQ(walk.step(world.tree, position), nullptr);
                    EXPECT_EQ(std::exchange(seen.reports, {}), std::vector{walk.after_end});
                    continue;
                }
                // As if a leaf hung at the link and had just been visited.
                const Node parent = position[-1].Node, leaf = world.host.record(key);
                const AVL_Link link = link_of(parent);
                if (position[-1].Dir == DIR_LEFT)
                    set_link(parent, leaf, link.Right, link.Balance);
                else
                    set_link(parent, link.Left, leaf, link.Balance);
                const std::vector<Node> rest = behind(expected(world.tree, walk), leaf);
                set_link(parent, link.Left, link.Right, link.Balance);
                EXPECT_EQ(drive(world.tree, walk, position), rest);
                EXPECT_TRUE(seen.reports.empty());
            }
    });
}

TEST(Navigate, WalksReportAPositionThatHasNowhereToGo) {
    World world({}, {});
    for (const Walk &walk : walks) {
        Entry *position = walk.step(world.tree, nullptr);
        EXPECT_EQ(position->Dir, DIR_HERE);
        expect_end(world.tree, walk, position);
        if (walk.step == AVL_WalkPredPreorder || walk.visit == Visit::after) {
            EXPECT_EQ(walk.step(world.tree, world.tree->Stack - 1), nullptr);
            EXPECT_EQ(std::exchange(seen.reports, {}), std::vector{walk.after_end});
        }
    }
}

TEST(Navigate, StepsSteerByHand) {
    World world(full_shape(3), {});
    AVL_Tree *tree = world.tree;
    Entry *position = AVL_WalkRight(tree, AVL_WalkRight(tree, AVL_WalkLeft(tree, AVL_MakeRoot(tree))));
    EXPECT_EQ(text_of(tree, position), "40L 20R 30R -");
    EXPECT_EQ(position->Dir, DIR_HERE);
    EXPECT_EQ(AVL_WalkLeft(tree, position), nullptr);
    EXPECT_EQ(AVL_WalkRight(tree, position), nullptr);
    position = AVL_WalkUp(tree, position);
    EXPECT_EQ(text_of(tree, position), "40L 20R 30H");
    position = AVL_WalkUp(tree, AVL_WalkLeft(tree, AVL_WalkUp(tree, position)));
    EXPECT_EQ(text_of(tree, position), "40L 20H");
    EXPECT_EQ(text_of(tree, AVL_WalkRight(tree, AVL_WalkUp(tree, position))), "40R 60H");
    for (int times = 0; times < 2; times++) {
        position = AVL_WalkUp(tree, tree->Stack);
        EXPECT_TRUE(position == tree->Stack && !position->Node);
    }
    expect_tree(tree, world.order);
    EXPECT_TRUE(seen.reports.empty());
}

} // namespace
