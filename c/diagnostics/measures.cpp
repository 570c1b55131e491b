// The four measures of a tree's shape.  They look at links and balances only, so they say nothing of the keys.
#include "ovant/engine/height.hpp"

#include "frame/nodes.hpp"
#include "frame/report.hpp"
#include "ovant/engine/sweep.hpp"

#include <cstdint>

using namespace ovant::c;

namespace {

// A list of pending nodes on the path stack, each with a level of 8 bits in the low end of Dir.
struct Pending {
    Entry *const bottom;
    Entry *free;

    explicit Pending(Entry *stack) : bottom(stack), free(stack) {}
    bool empty() const { return free == bottom; }
    void push(Node n, std::uint8_t level) {
        free->Node = n;
        free->Dir = static_cast<std::int32_t>((static_cast<std::uint32_t>(free->Dir) & ~UINT32_C(0xFF)) | level);
        ++free;
    }
    std::uint8_t pop(Node &n) {
        --free;
        n = free->Node;
        return static_cast<std::uint8_t>(free->Dir);
    }
};

} // namespace

uint32_t AVL_CountNode(AVL_Tree *tree) {
    uint32_t count = 0;
    sweep(Nodes(tree), tree->Stack, tree->Root, [&count](Node) { ++count; });
    return count;
}

signed char AVL_MaxDeepth(const AVL_Tree *tree) { return static_cast<signed char>(height(Nodes(tree), tree->Root)); }

// Depth first with the best depth so far as the limit; the balances only choose which side comes first.
signed char AVL_MinDeepth(AVL_Tree *tree) {
    if (!tree->Root)
        return 0;
    const Nodes nodes(tree);
    Pending pending(tree->Stack);
    signed char best = INT8_MAX;
    pending.push(tree->Root, 0);
    while (!pending.empty()) {
        Node n;
        const auto level = static_cast<signed char>(pending.pop(n));
        if (level >= best)
            continue;
        if (!n) {
            best = level;
            continue;
        }
        const int balance = nodes.balance(n);
        if (balance < -1 || balance > 1) {
            report(tree, Function::min_deepth, Fault::balance);
            continue;
        }
        const Side lighter = balance < 0 ? Side::right : Side::left; // the last one pushed is visited first
        pending.push(nodes.child(!lighter, n), static_cast<std::uint8_t>(level + 1));
        pending.push(nodes.child(lighter, n), static_cast<std::uint8_t>(level + 1));
    }
    return best;
}

// Every node is told the height that it must have.  In 8 bits a height below 0 shows as a large one, which the next
// missing child gives away.
int AVL_CheckBalance(AVL_Tree *tree) {
    const Nodes nodes(tree);
    Pending pending(tree->Stack);
    Node n = tree->Root;
    auto expected = static_cast<std::uint8_t>(AVL_MaxDeepth(tree));
    for (;;) {
        if (n) {
            const int balance = nodes.balance(n);
            if (balance < -1 || balance > 1)
                return 0;
            pending.push(nodes.child<Side::right>(n), static_cast<std::uint8_t>(expected - (balance < 0 ? 2 : 1)));
            expected = static_cast<std::uint8_t>(expected - (balance > 0 ? 2 : 1));
            n = nodes.child<Side::left>(n);
            continue;
        }
        if (expected != 0)
            return 0;
        if (pending.empty())
            return 1;
        expected = pending.pop(n);
    }
}
