// Links that lead to nodes but make no tree: what looks at them ends, stays in the stack and tells the truth.
#include "frame/depth.hpp"
#include "support/check.hpp"
#include "support/shapes.hpp"

#include <set>
#include <unistd.h>

using namespace ovant::test;
using ovant::c::tree_depth;

namespace {

// What a recursion sees, down to where it takes the links for a circle.
struct Told {
    std::set<Node> nodes;
    std::size_t ways = 0;
    bool circle = false, deep = false, sound = true;
    int height(Node node, int level = 0) {
        deep = deep || (node && level > tree_depth);
        circle = circle || level > 250;
        if (!node || circle)
            return 0;
        ways++;
        nodes.insert(node);
        const AVL_Link link = link_of(node);
        const int left = height(link.Left, level + 1), right = height(link.Right, level + 1);
        sound = sound && link.Balance == right - left && std::abs(link.Balance) <= 1;
        return 1 + std::max(left, right);
    }
};

// The number of nodes on the way to the nearest missing child, the lighter side of each node first.
int shortest_way(Node node, int level, int best, std::vector<Report> &reports) {
    if (level >= best || !node)
        return std::min(level, best);
    const AVL_Link link = link_of(node);
    if (std::abs(link.Balance) > 1)
        return reports.push_back({5, 20}), best;
    best = shortest_way(link.Balance < 0 ? link.Right : link.Left, level + 1, best, reports);
    return shortest_way(link.Balance < 0 ? link.Left : link.Right, level + 1, best, reports);
}

std::size_t killed;
void clear_late(Node node, void *) { // a deletion goes round in a circle for a while, then finds cleared nodes
    if (++killed > 1000)
        set_link(node, nullptr, nullptr, 0);
}

// Endless: with more ways than a recursion can go.
void look_at(AVL_Tree copy, Node root, bool endless) {
    static constexpr AVL_NodeFuncs handlers = {on_malloc, on_realloc, on_free, clear_late};
    AVL_Tree *const tree = &copy;
    Told told;
    told.circle = endless;
    const int height = told.height(root);
    const bool counts = !endless && !told.deep, is_tree = counts && told.ways == told.nodes.size();
    std::vector<Entry> stack(202 + static_cast<std::size_t>(tree_depth), Entry{root, 77});
    stack[100] = {nullptr, DIR_NEW};
    tree->Stack = &stack[101];
    tree->Root = root;
    tree->Funcs = &handlers;
    std::vector<Report> reports;
    seen.reports.clear();

    const auto count = AVL_CountNode(tree);
    EXPECT_TRUE((count == told.ways && !told.circle) || (!is_tree && count == UINT32_MAX)) << count;
    const int balanced = AVL_CheckBalance(tree), shortest = AVL_MinDeepth(tree), tallest = AVL_MaxDeepth(tree);
    EXPECT_TRUE((counts && balanced == told.sound) || (!is_tree && balanced == 0));
    EXPECT_TRUE(!is_tree || shortest == shortest_way(root, 0, 127, reports)) << shortest;
    EXPECT_TRUE(tallest <= tree_depth + 1 && (!is_tree || !told.sound || tallest == height)) << tallest;
    const auto no_text = [](char *, void *, void *) -> const char * { return nullptr; };
    for (const auto walk : {AVL_WalkSuccInorder, AVL_WalkPredInorder, AVL_WalkSuccPreorder, AVL_WalkPredPreorder,
                            AVL_WalkSuccPostorder, AVL_WalkPredPostorder}) {
        std::size_t steps = 0;
        for (Entry *p = walk(tree, nullptr); p && p->Node && steps < 10000; p = walk(tree, p))
            steps++;
        EXPECT_TRUE(counts ? steps == told.ways : endless || steps < 10000) << steps;
        AVL_TreeWrite(tree, nullptr, walk, no_text, nullptr, 0, nullptr, nullptr);
    }
    for (const auto step : {AVL_WalkLeft, AVL_WalkRight})
        for (Entry *p = AVL_MakeRoot(tree); p->Node; p = step(tree, p))
            ASSERT_LE(p, tree->Stack + tree_depth);
    EXPECT_EQ(seen.reports, reports);
    killed = 0;
    AVL_DelTree(tree, nullptr);
    stack.erase(stack.begin() + 101, stack.begin() + 102 + (is_tree ? height : tree_depth));
    const auto untouched = [=](const Entry &e) { return e.Node == root && e.Dir == 77; };
    EXPECT_EQ(1u + std::count_if(stack.begin(), stack.end(), untouched), stack.size()) << "wrote outside the stack";
    EXPECT_EQ(stack[100].Dir, DIR_NEW);
}

void look_at_damage(const Shape &shape, Keys keys) {
    const Bed bed(shape, keys);
    damage_each_node(bed, shape.height != 4, [&] {
        const auto bytes = bed.bytes();
        look_at(*bed.tree, bed.root, false);
        EXPECT_TRUE(bed == bytes || killed > 1000);
    });
}
TEST(Damage, OneBentLinkOrBalance) {
    alarm(200); // what never ends would end the test
    for_all_shapes(4, 1, look_at_damage);
    int nodes = 0;
    look_at_damage(chosen_shape(6, [&nodes](int) { return nodes++ % 4 < 3 ? 1 : -1; }), {});
    Bed bed(full_shape(3));
    for (const auto &[length, sides] : {std::pair(200u, 1), {200u, 2}, {200u, 3}, {60u, 3}}) {
        const std::vector<Node> chain = make_chain(bed, length, sides);
        for (const Node end : {Node{}, chain.front(), chain.back()}) {
            hang_below(chain.back(), end, sides);
            look_at(*bed.tree, chain.front(), sides == 3);
        }
    }
    set_balance(bed.root, 5);
    EXPECT_EQ(AVL_MaxDeepth(bed.tree), 3) << "counts as level";
}

} // namespace
