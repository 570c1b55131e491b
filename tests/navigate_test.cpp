// Searches, key paths, range paths, walks and steps, held against recursion and a sorted sequence.
#include "support/check.hpp"
#include "support/shapes.hpp"

using namespace ovant;
using namespace ovant::test;

namespace {

constexpr int unwritten = 77; // painted into Dir before a builder runs

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
    std::size_t nearest(EqualRun run) const { return nearest_to_root(tree, order, run); }

    template <class Make, class... Key> Entry *make(Make builder, const Key &...keys) const {
        for (int i = 0; i <= height; i++)
            tree->Stack[i] = {tree, unwritten};
        seen.comparisons = 0;
        return builder(tree, &keys...);
    }
    void expect_path(const Entry *top, Node node, int dir = DIR_HERE) const {
        expect_chain(tree, top);
        EXPECT_TRUE(top->Node == node && top->Dir == dir) << text_of(tree, top);
    }
    // The entry is an open Pfad at the gap before this position: the only empty link there.
    void expect_open(const Entry *top, std::size_t gap, int dir) const {
        expect_path(top, nullptr, dir);
        const Node parent = top > tree->Stack ? top[-1].Node : nullptr;
        EXPECT_EQ(parent, parent && top[-1].Dir == DIR_LEFT ? at(gap) : before(gap)) << text_of(tree, top);
    }
};

void expect_key_answers(const World &world, int key) {
    SCOPED_TRACE(::testing::Message() << "key " << key);
    AVL_Tree *const tree = world.tree;
    const EqualRun run = run_of(world.order, key);
    const bool present = run.front != run.back;
    const auto if_present = [=](Node node) { return present ? node : nullptr; };
    const std::size_t match = present ? world.nearest(run) : run.front;
    // The neighbours of the match; of an absent key those of its gap.
    const Node pred = world.before(match), succ = world.at(match + present);

    // One comparison per level.  A boundary path ends at the last real node; the entry above is the open Pfad.
    const auto cost = [&](Entry *top, int and_match) {
        EXPECT_EQ(seen.comparisons, top - tree->Stack + and_match);
        return seen.comparisons;
    };
    const auto boundary = [&](auto make, std::size_t gap, int empty_dir) {
        Entry *top = world.make(make, key) + (tree->Root != nullptr);
        world.expect_open(top, gap, tree->Root ? unwritten : empty_dir);
        return cost(top, 0);
    };
    const int to_match = cost(world.make(AVL_MakeKey, key), present);
    const int to_front = boundary(AVL_MakeLess, run.front, DIR_HERE);
    const int to_back = boundary(AVL_MakeEqualLess, run.back, unwritten);

    const struct {
        Node node;
        void *(*search)(const AVL_Tree *, const void *);
        int cost;
        AVL_PfadEntry *(*make)(AVL_Tree *, const void *);
        bool opens = false;       // an open Pfad where there is no node, and not an empty one
        int empty_dir = DIR_HERE; // what the bottom entry of an empty tree holds
    } rows[] = {
        {if_present(world.at(match)), AVL_SearchKey, to_match, AVL_MakeKey, true},
        {if_present(world.at(run.front)), nullptr, 0, AVL_MakeFirstKey, true},
        {if_present(world.before(run.back)), nullptr, 0, AVL_MakeLastKey, true},
        {pred, AVL_SearchPred, to_match, AVL_MakePred},
        {succ, AVL_SearchSucc, to_match, AVL_MakeSucc},
        {if_present(pred), AVL_SearchPredKey, to_match, AVL_MakePredKey, false, unwritten},
        {if_present(succ), AVL_SearchSuccKey, to_match, AVL_MakeSuccKey, false, unwritten},
        {world.before(run.front), AVL_SearchLess, to_front, nullptr},
        {world.at(run.front), AVL_SearchGreaterEqual, to_front, nullptr},
        {world.before(run.back), AVL_SearchLessEqual, to_back, nullptr},
        {world.at(run.back), AVL_SearchGreater, to_back, nullptr},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(::testing::Message() << "question " << &row - rows);
        if (row.make) {
            const Entry *top = world.make(row.make, key);
            if (row.node)
                world.expect_path(top, row.node);
            else if (row.opens || !tree->Root)
                world.expect_open(top, match, tree->Root ? unwritten : row.empty_dir);
            else
                EXPECT_TRUE(top == tree->Stack && !top->Node);
        }
        if (row.search) {
            StackGuard guard(tree, -1); // a search writes no entry, so a held Pfad stays good
            seen.comparisons = 0;
            EXPECT_EQ(row.search(tree, &key), row.node);
            EXPECT_EQ(seen.comparisons, row.cost);
        }
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
            StackGuard guard(world.tree, shape.height);
            const auto bytes = world.host.bytes();
            for (int key = keys.first - 5; key <= keys.at(world.order.size()); key += 5)
                expect_key_answers(world, key);
            const Node first = world.at(0), last = world.before(world.order.size());
            world.expect_path(world.make(AVL_MakeMin), first);
            world.expect_path(world.make(AVL_MakeMax), last);
            world.expect_path(world.make(AVL_MakeRoot), world.tree->Root);
            EXPECT_TRUE(AVL_SearchMin(world.tree) == first && AVL_SearchMax(world.tree) == last);
            EXPECT_TRUE(seen.comparisons == 0 && world.host == bytes) << "looking changes nothing";
        }
    });
}

TEST(Navigate, RangePathsOnAllSmallShapes) {
    for_all_shapes(4, 3, [](const Shape &shape, Keys keys) {
        World world(shape, keys);
        const int last = keys.at(world.order.size()), stride = shape.height < 4 ? 5 : 15;
        for (int first = keys.first - 5; first <= last; first += stride)
            for (int second = keys.first - 5; second <= last; second += 5) {
                SCOPED_TRACE(::testing::Message() << "bounds " << first << " and " << second);
                const EqualRun low = run_of(world.order, first), high = run_of(world.order, second);
                const struct {
                    AVL_PfadEntry *(*make)(AVL_Tree *, const void *, const void *);
                    EqualRun range;
                    int empty_dir;
                } ranges[] = {{AVL_MakeBetweenEqualEqual, {low.front, high.back}, unwritten},
                              {AVL_MakeBetweenEqualLess, {low.front, high.front}, unwritten},
                              {AVL_MakeBetweenGreaterLess, {low.back, high.front}, DIR_HERE}};
                for (const auto &[make, range, empty_dir] : ranges) {
                    const Entry *top = world.make(make, first, second);
                    EXPECT_LE(seen.comparisons, 2 * (top - world.tree->Stack + (top->Node != nullptr)));
                    if (range.front < range.back)
                        world.expect_path(top, world.at(world.nearest(range)), unwritten);
                    else
                        world.expect_open(top, range.front, shape.height ? unwritten : empty_dir);
                }
            }
    });
}

// ---- Walks -----------------------------------------------------------------------------------------------------

const struct Walk {
    AVL_WalkFunc step;
    Visit visit;
    bool backward;
    Report after_end; // none from the two inorder walks
    std::vector<Node> nodes(const AVL_Tree *tree) const {
        std::vector<Node> order = traversal(tree->Root, visit);
        return backward ? std::vector<Node>(order.rbegin(), order.rend()) : order;
    }
} walks[] = {
    {AVL_WalkSuccInorder, Visit::between, false, {}},        {AVL_WalkPredInorder, Visit::between, true, {}},
    {AVL_WalkSuccPreorder, Visit::before, false, {101, 24}}, {AVL_WalkPredPreorder, Visit::before, true, {98, 24}},
    {AVL_WalkSuccPostorder, Visit::after, false, {101, 24}}, {AVL_WalkPredPostorder, Visit::after, true, {100, 24}},
};
std::vector<Node> behind(const std::vector<Node> &nodes, Node node) {
    return {std::find(nodes.begin(), nodes.end(), node) + 1, nodes.end()};
}
// Steps from the position to the end, which is left in it (or 99 times, should none come); each position on the way is
// a path to its node.
std::vector<Node> drive(const World &world, const Walk &walk, Entry *&position, std::size_t steps = 99) {
    std::vector<Node> nodes;
    const int comparisons = seen.comparisons;
    while (steps-- > 0 && (position = walk.step(world.tree, position)) && position->Node) {
        world.expect_path(position, position->Node);
        nodes.push_back(position->Node);
    }
    EXPECT_TRUE(seen.comparisons == comparisons && seen.reports.empty());
    return nodes;
}
void expect_no_way_on(AVL_Tree *tree, const Walk &walk, Entry *position) {
    EXPECT_EQ(walk.step(tree, position), nullptr);
    EXPECT_EQ(std::exchange(seen.reports, {}), std::vector{walk.after_end});
}

TEST(Navigate, WalksOnAllSmallShapesEndAndSwitch) {
    for_all_shapes(4, 1, [](const Shape &shape, Keys keys) {
        World world(shape, keys);
        StackGuard guard(world.tree, shape.height);
        for (const Walk &walk : walks) {
            SCOPED_TRACE(::testing::Message() << "walk " << &walk - walks);
            const std::vector<Node> nodes = walk.nodes(world.tree);
            Entry *position = nullptr;
            EXPECT_EQ(drive(world, walk, position), nodes);
            EXPECT_TRUE(position == world.tree->Stack && !position->Node);
            EXPECT_TRUE(shape.height || position->Dir == DIR_HERE);
            if (walk.visit != Visit::between)
                expect_no_way_on(world.tree, walk, position);
            else
                EXPECT_TRUE(walk.step(world.tree, position) == position && !position->Node);
            if (walk.visit == Visit::after || walk.step == AVL_WalkPredPreorder)
                expect_no_way_on(world.tree, walk, world.tree->Stack - 1);
            // Each walk takes over at each position of each other walk.
            for (const Walk &other : walks) {
                const std::vector<Node> others = other.nodes(world.tree);
                for (std::size_t steps = 1; steps <= nodes.size(); steps++) {
                    position = nullptr;
                    drive(world, walk, position, steps);
                    EXPECT_EQ(drive(world, other, position), behind(others, nodes[steps - 1]));
                }
            }
        }
        expect_tree(world.tree, world.order);
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
                    expect_no_way_on(world.tree, walk, position);
                    continue;
                }
                // As if a leaf hung at the link and had just been visited.
                const Node parent = position[-1].Node, leaf = world.host.record(key);
                const AVL_Link link = link_of(parent);
                const bool left = position[-1].Dir == DIR_LEFT;
                set_link(parent, left ? leaf : link.Left, left ? link.Right : leaf, link.Balance);
                const std::vector<Node> rest = behind(walk.nodes(world.tree), leaf);
                set_link(parent, link.Left, link.Right, link.Balance);
                EXPECT_EQ(drive(world, walk, position), rest);
            }
    });
}

TEST(Navigate, StepsSteerByHand) {
    World world(full_shape(3), {});
    AVL_Tree *tree = world.tree;
    Entry *position = AVL_WalkRight(tree, AVL_WalkRight(tree, AVL_WalkLeft(tree, AVL_MakeRoot(tree))));
    EXPECT_EQ(text_of(tree, position), "40L 20R 30R -");
    EXPECT_TRUE(position->Dir == DIR_HERE && !AVL_WalkLeft(tree, position) && !AVL_WalkRight(tree, position));
    position = AVL_WalkUp(tree, position);
    EXPECT_EQ(text_of(tree, position), "40L 20R 30H");
    position = AVL_WalkUp(tree, AVL_WalkUp(tree, position));
    EXPECT_EQ(text_of(tree, AVL_WalkLeft(tree, AVL_WalkRight(tree, position))), "40R 60L 50H");
    for (int times = 0; times < 2; times++)
        EXPECT_TRUE(AVL_WalkUp(tree, tree->Stack) == tree->Stack && !tree->Stack->Node);
    expect_tree(tree, world.order);
    EXPECT_TRUE(seen.reports.empty());
}

} // namespace
