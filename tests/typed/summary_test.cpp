// An accessor that keeps a summary of each subtree: right after every operation of the engine.
#include "support/check.hpp"

#include "ovant/engine/between.hpp"
#include "ovant/engine/build.hpp"
#include "ovant/engine/descend.hpp"
#include "ovant/engine/follow.hpp"
#include "ovant/engine/order.hpp"

#include <random>

namespace ovant::test {
namespace {

// The sum of the ids, kept behind the key.
constexpr std::size_t sum_off = key_off + sizeof(int);
int sum_of(Node n) { return n ? load<int>(n, sum_off) : 0; }

struct Summing {
    void *field(Node n, std::size_t place) const { return static_cast<char *>(n) + (link_off + place); }
    void refresh(Node n) const { store(n, sum_off, sum_of(link_of(n).Left) + id_of(n) + sum_of(link_of(n).Right)); }
};
using Sums = engine::Links<Summing>;
static_assert(Sums::summarises && !c::Nodes::summarises);

// A sound tree of these nodes, with fresh sums.
int expect_sums_below(Node n) {
    if (!n)
        return 0;
    const int sum = expect_sums_below(link_of(n).Left) + id_of(n) + expect_sums_below(link_of(n).Right);
    EXPECT_EQ(sum_of(n), sum);
    return sum;
}
void expect_sums(Node root, const std::vector<Node> &order) {
    std::vector<Node> found;
    check_below(root, found, 0);
    EXPECT_TRUE(found == order);
    expect_sums_below(root);
}

TEST(Summaries, AreRightAfterEveryOperation) {
    constexpr int keys = 200;
    using engine::Side;
    using Trail = engine::PathTrail<Entry>;
    Entry path[90], left[90], right[90];
    const Sums nodes;
    Host host;
    std::mt19937 random(4);
    const auto any_key = [&] { return static_cast<int>(random() % keys); };
    Node root = nullptr;
    std::vector<Node> order;

    for (int step = 0; step < 6000 && !HasFailure(); step++) {
        const int key = any_key(), other_key = std::max(key, any_key());
        const EqualRun run = run_of(order, key);
        const auto at = [&](std::size_t i) { return order.begin() + static_cast<std::ptrdiff_t>(i); };
        const auto gap = [=](Node n) { return key_of(n) < key; };
        const auto last_gap = [=](Node n) { return key_of(n) <= other_key; };
        Entry *top = engine::descend<engine::rule::key>(nodes, root, engine::ToGap(gap), Trail{path}).top;
        const int operation = order.size() < 60 ? 0 : static_cast<int>(random() % 40);
        SCOPED_TRACE("step " + std::to_string(step) + ", operation " + std::to_string(operation));
        if (operation < 20) {
            const Node n = host.record(key);
            root = engine::insert_at(nodes, path, top, n);
            order.insert(at(run.front), n);
        } else if (operation < 35) {
            top = engine::descend<engine::rule::succ>(nodes, root, engine::ToGap(gap), Trail{path}).marked;
            if (!top)
                continue;
            root = operation % 2 ? engine::remove(nodes, path, top) : engine::remove_at(nodes, path, top).root;
            order.erase(at(run.front));
        } else if (operation == 35) {
            engine::Change change;
            engine::cut<Side::left>(nodes, path, &root, &change, engine::nothing_stays);
            engine::cut<Side::right>(nodes, path, &root, &change, engine::nothing_stays);
            order.erase(order.begin());
            order.pop_back();
        } else if (operation == 36) {
            root = engine::build(nodes, order.size(), [next = order.begin()]() mutable { return *next++; });
        } else if (operation < 39) {
            const engine::Halves halves = engine::split(nodes, path, top == path ? top : top - 1);
            expect_sums(halves.before.root, {order.begin(), at(run.front)});
            expect_sums(halves.after.root, {at(run.front), order.end()});
            root = operation % 2 ? engine::concat<Side::left>(nodes, path, halves.after.root, halves.before.root)
                                 : engine::concat<Side::right>(nodes, path, halves.before.root, halves.after.root);
        } else {
            top = engine::descend<engine::rule::key>(nodes, root, engine::Between(gap, last_gap), Trail{path}).top;
            if (!top->Node)
                continue;
            const auto boundary = [&](Entry *bottom, const auto &where) {
                return [&, bottom](Node n) {
                    return engine::boundary<engine::rule::key>(nodes, bottom, n, engine::ToGap(where));
                };
            };
            const engine::Parts parts =
                engine::cut_between(nodes, path, top, top->Node, boundary(left, gap), boundary(right, last_gap));
            const auto end = at(run_of(order, other_key).back);
            expect_sums(parts.inner, {at(run.front), end});
            order.erase(at(run.front), end);
            root = parts.outer;
        }
        expect_sums(root, order);
    }
}

} // namespace
} // namespace ovant::test
