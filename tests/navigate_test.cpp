// Searches, key paths, walks and steps, held against recursion and a sorted sequence.
#include "support/check.hpp"
#include "support/shapes.hpp"

using namespace ovant::c;
using namespace ovant::test;

namespace {

struct World : Bed {
    using Bed::Bed;

    // Where a descent meets the range first; the ids are positions in tree order.
    std::size_t nearest(EqualRun range) const {
        Node node = tree->Root;
        std::size_t position;
        while (position = static_cast<std::size_t>(id_of(node)), position < range.front || position >= range.back)
            node = position < range.front ? link_of(node).Right : link_of(node).Left;
        return position;
    }
    // From Root upward each entry's Dir leads to the next entry's Node.
    void expect_path(const Entry *top, Node node, bool ends_here = true) const {
        ASSERT_GE(top, tree->Stack);
        Node next = tree->Root;
        for (const Entry *entry = tree->Stack; entry < top; entry++) {
            ASSERT_TRUE(entry->Node && entry->Node == next && std::abs(entry->Dir) == 1);
            next = entry->Dir == DIR_LEFT ? link_of(next).Left : link_of(next).Right;
        }
        EXPECT_TRUE(top->Node == node && next == node && (top->Dir == DIR_HERE || !ends_here));
    }
    // The entry is an open Pfad at the gap before this position: the only empty link there.
    void expect_open(const Entry *top, std::size_t gap) const {
        expect_path(top, nullptr, false);
        EXPECT_TRUE(top == tree->Stack ||
                    top[-1].Node == (top[-1].Dir == DIR_LEFT ? at(order, gap) : at(order, gap - 1)));
    }
};

void expect_key_answers(const World &world, int key) {
    const int sought = sense * key;
    const std::vector<Node> &order = world.order;
    const EqualRun run = run_of(order, key);
    const bool present = run.front != run.back;
    const auto if_present = [=](Node node) { return present ? node : nullptr; };
    // Where the key is found, or its gap; and the neighbours.
    const std::size_t match = present ? world.nearest(run) : run.front;
    const Node pred = at(order, match - 1), succ = at(order, match + present);
    const struct {
        Node node;
        void *(*search)(const AVL_Tree *, const void *);
        AVL_PfadEntry *(*make)(AVL_Tree *, const void *);
        bool opens = false; // an open Pfad where there is no node, and not an empty one
    } rows[] = {
        {if_present(at(order, match)), AVL_SearchKey, AVL_MakeKey, true},
        {if_present(at(order, run.front)), nullptr, AVL_MakeFirstKey, true},
        {if_present(at(order, run.back - 1)), nullptr, AVL_MakeLastKey, true},
        {pred, AVL_SearchPred, AVL_MakePred},
        {succ, AVL_SearchSucc, AVL_MakeSucc},
        {if_present(pred), AVL_SearchPredKey, AVL_MakePredKey},
        {if_present(succ), AVL_SearchSuccKey, AVL_MakeSuccKey},
        {at(order, run.front - 1), AVL_SearchLess, nullptr},
        {at(order, run.front), AVL_SearchGreaterEqual, nullptr},
        {at(order, run.back - 1), AVL_SearchLessEqual, nullptr},
        {at(order, run.back), AVL_SearchGreater, nullptr},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(::testing::Message() << "key " << key << ", question " << &row - rows);
        if (row.make) {
            const Entry *top = row.make(world.tree, &sought);
            if (row.node)
                world.expect_path(top, row.node);
            else if (row.opens)
                world.expect_open(top, match);
            else
                EXPECT_TRUE(top == world.tree->Stack && !top->Node);
        }
        if (row.search) {
            StackGuard guard(world.tree, -1); // a search writes no entry, so a held Pfad stays good
            seen.comparisons = 0;
            EXPECT_EQ(row.search(world.tree, &sought), row.node);
            EXPECT_LE(seen.comparisons, world.height) << "one comparison per level";
        }
    }
}

TEST(Navigate, PathsAndSearchesOnAllSmallShapes) {
    for_all_shapes(4, 3, [](const Shape &shape, Keys keys) {
        const World world(shape, keys);
        AVL_Tree *const tree = world.tree;
        StackGuard guard(tree, shape.height);
        const auto bytes = world.bytes();
        for (int key = keys.first - 5; key <= keys.at(world.order.size()); key += 5)
            expect_key_answers(world, key);
        const Node first = at(world.order, 0), last = at(world.order, world.order.size() - 1);
        world.expect_path(AVL_MakeMin(tree), first);
        world.expect_path(AVL_MakeMax(tree), last);
        world.expect_path(AVL_MakeRoot(tree), tree->Root);
        EXPECT_TRUE(AVL_SearchMin(tree) == first && AVL_SearchMax(tree) == last);
        EXPECT_TRUE(world == bytes) << "looking changes nothing";
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
    while (steps-- > 0 && (position = walk.step(world.tree, position)) && position->Node) {
        world.expect_path(position, position->Node);
        nodes.push_back(position->Node);
    }
    EXPECT_TRUE(!position || position->Node || position == world.tree->Stack);
    return nodes;
}
void expect_end(AVL_Tree *tree, const Walk &walk, Entry *position) {
    EXPECT_TRUE(position && !position->Node);
    EXPECT_EQ(walk.step(tree, position), walk.visit == Visit::between ? position : nullptr);
    EXPECT_EQ(std::exchange(seen.reports, {}), std::vector<Report>(walk.visit != Visit::between, walk.after_end));
}

TEST(Navigate, WalksOnAllSmallShapes) {
    for_all_shapes(4, 1, [](const Shape &shape, Keys keys) {
        World world(shape, keys);
        AVL_Tree *const tree = world.tree;
        StackGuard guard(tree, shape.height);
        for (const Walk &walk : walks) {
            SCOPED_TRACE(::testing::Message() << "walk " << &walk - walks);
            const std::vector<Node> nodes = walk.nodes(tree);
            // From the start, and at each position of each walk.
            for (const Walk &other : walks)
                for (std::size_t steps = 0; steps <= world.order.size(); steps++) {
                    Entry *position = nullptr;
                    const std::vector<Node> before = drive(world, other, position, steps);
                    EXPECT_EQ(drive(world, walk, position), before.empty() ? nodes : behind(nodes, before.back()));
                    expect_end(tree, walk, position);
                }
            // From an empty link, as if a leaf hung there and had just been visited.
            for (int key = keys.first - 5; shape.height && key <= keys.at(world.order.size()); key += 10) {
                Entry *position = AVL_MakeKey(tree, &key);
                const Node parent = position[-1].Node, leaf = world.record(key);
                const AVL_Link link = link_of(parent);
                Nodes(tree).hang(side_of(position[-1].Dir), parent, leaf);
                const std::vector<Node> rest = behind(walk.nodes(tree), leaf);
                store(parent, link_off, link);
                if (walk.step != AVL_WalkSuccPreorder) { // which reports at once
                    EXPECT_EQ(drive(world, walk, position), rest);
                }
                expect_end(tree, walk, position);
            }
        }
        expect_tree(tree, world.order);
    });
}

TEST(Navigate, StepsSteerByHand) {
    World world(full_shape(3), {});
    AVL_Tree *tree = world.tree;
    Entry *position = AVL_MakeRoot(tree);
    for (const auto &[step, key] : {std::pair(&AVL_WalkLeft, 20), {&AVL_WalkRight, 30}}) {
        position->Dir = DIR_NEW;
        world.expect_path(position = step(tree, position), AVL_SearchKey(tree, &key));
    }
    world.expect_open(position = AVL_WalkRight(tree, position), 3);
    EXPECT_TRUE(position->Dir == DIR_HERE && !AVL_WalkLeft(tree, position) && !AVL_WalkRight(tree, position));
    position = AVL_WalkUp(tree, position);
    world.expect_path(position, world.order[2]);
    EXPECT_EQ(AVL_WalkUp(tree, AVL_WalkUp(tree, position)), tree->Stack);
    EXPECT_TRUE(AVL_WalkUp(tree, tree->Stack) == tree->Stack && !tree->Stack->Node && tree->Root);

    position = AVL_MakeMin(tree);
    tree->Stack[1].Dir = DIR_HERE; // no side: a step in tree order passes it on its way up
    EXPECT_EQ(AVL_WalkSuccInorder(tree, position)->Node, world.order[3]);
}

} // namespace
