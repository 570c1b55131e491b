// Reads its input as a sequence of operations on one tree and holds each against a sequence of nodes in tree order.
#include "support/memory.hpp"
#include "support/ranges.hpp"
#include "typed/typed.hpp"

#include <cstdint>
#include <cstdlib>

using namespace ovant::test;

namespace {

using Nodes = std::vector<Node>;

struct Tally { // told at the end of the process
    unsigned long operations = 0;
    ~Tally() { std::fprintf(stderr, "operations: %lu done\n", operations); }
} tally;

void require(bool holds, const char *what) {
    if (holds && !::testing::Test::HasFailure())
        return;
    std::fprintf(stderr, "operations: %s: %s\n", memory.at_work, holds ? "see above" : what);
    std::abort();
}

struct Machine {
    explicit Machine(AVL_CmpFunc cmp) : host(cmp) {}
    Host host;
    AVL_Tree *tree = host.tree;
    Nodes order;            // what the tree should hold
    int key = 0, other = 0; // the bounds of this step, upward in tree order

    // The tree gets a stack of the host's that is just as high: the address sanitizer sees what is written above it.
    void hold() {
        const Checked checked = check(tree);
        require(checked.order == order, "the tree holds other nodes");
        stack(static_cast<signed char>(checked.height));
    }
    void stack(signed char depth) {
        const MayTakeMemory here;
        tree->Stack = realloc_Stack_Deepth(tree->Stack, depth);
    }
    // A node was handed out.  That it left, and no other, shows where the tree is held against the order.
    void lose(Node node, Node result) {
        require(result == node, "another node came out");
        std::erase(order, node);
    }
};

// Several keys a step, evenly spaced: else no tree would get tall.
template <auto Operation, bool Always> void insert(Machine &m) {
    for (int i = 0; i <= m.other / 16; i++, m.key = (m.key + m.other % 16) & 255, tally.operations++) {
        const auto run = run_of(m.order, m.key);
        const bool grows = Always || run.front == run.back;
        const int sought = sense * m.key;
        const Node node = m.host.record(m.key);
        require((Operation(m.tree, &sought, node) == node) == grows, "took the wrong branch");
        if (grows)
            put_in(m.order, run.back, node);
        m.hold();
    }
}

template <auto Make, bool WithFree> void remove(Machine &m) {
    const int sought = sense * m.key;
    Entry *const pfad = Make(m.tree, &sought);
    const Node node = pfad->Node;
    if (WithFree)
        AVL_DelPfad(m.tree, pfad, &sought, nullptr);
    m.lose(node, WithFree ? node : AVL_GetPfad(m.tree, pfad));
}
void remove_first(Machine &m) { m.lose(at(m.order, 0), AVL_GetMin(m.tree)); }
void remove_last(Machine &m) { m.lose(at(m.order, m.order.size() - 1), AVL_GetMax(m.tree)); }

void range(Machine &m, const RangeOp &op, bool extract) {
    const int first = sense * m.key, last = op.bounds == 1 ? m.key : m.other, second = sense * last;
    const Parted parted = part(m.order, op, m.key, last);
    if (extract && op.get) {
        require(check(m.tree, op.get(m.tree, &first, &second, nullptr)).order == parted.goes, "another range came out");
    } else {
        op.del(m.tree, &first, &second, nullptr);
        require(seen.killed().size() == parted.goes.size(), "other nodes went to Kill");
    }
    m.order = parted.stays;
}

// Taken apart at both bounds and joined again, from the left or from the right.
template <bool FromLeft> void join(Machine &m) {
    const auto [low, high] = std::minmax(m.key, m.other);
    const int first = sense * low, second = sense * high;
    std::vector<Node> parts = {AVL_GetLess(m.tree, &first), AVL_GetEqualLess(m.tree, &second), AVL_GetTree(m.tree)};
    m.stack(40); // which of them joins a higher one is not known here
    if (!FromLeft)
        std::reverse(parts.begin(), parts.end());
    for (Node root : parts)
        (FromLeft ? AVL_ConcatLess : AVL_ConcatGreater)(m.tree, root);
}

// The other face takes the tree over and gives it back.
struct InOrder {
    auto operator()(int a, int b) const { return sense * a <=> sense * b; }
};
void typed_extract(Machine &m) {
    ovant::multiset<&Typed::link, &Typed::key, InOrder> tree;
    tree.adopt(static_cast<Typed *>(AVL_GetTree(m.tree)));
    const auto [low, high] = std::minmax(m.key, m.other);
    require(nodes_of(tree) == m.order, "another walk");
    const Parted parted = part(m.order, range_ops[4], low, high);
    auto out = tree.extract(ovant::before(sense * low), ovant::after(sense * high));
    require(nodes_of(out) == parted.goes, "another range came out");
    if (low % 2)
        tree.merge(out);
    else
        m.order = parted.stays;
    out.clear();
    m.tree->Root = tree.release();
}

constexpr struct {
    const char *name;
    void (*run)(Machine &m);
} growing[] = {{"AVL_InsertStabil", insert<AVL_InsertStabil, true>},
               {"AVL_InsertUnique", insert<AVL_InsertUnique, false>}},
  others[] = {{"AVL_GetPfad", remove<AVL_MakeKey, false>},
              {"AVL_DelPfad", remove<AVL_MakeKey, true>},
              {"AVL_GetPfad of the first", remove<AVL_MakeFirstKey, false>},
              {"AVL_DelPfad of the last", remove<AVL_MakeLastKey, true>},
              {"AVL_GetMin", remove_first},
              {"AVL_GetMax", remove_last},
              {"AVL_ConcatLess", join<true>},
              {"AVL_ConcatGreater", join<false>},
              {"typed extract", typed_extract}};

void step(Machine &m, std::size_t code, bool variant) {
    const std::size_t grows = std::size(growing), fixed = std::size(others);
    if (code < 96) {
        memory.at_work = growing[code % grows].name;
        growing[code % grows].run(m);
    } else if (const std::size_t operation = (code - 96) % (fixed + std::size(range_ops)); operation < fixed) {
        memory.at_work = others[operation].name;
        others[operation].run(m);
    } else {
        memory.at_work = range_ops[operation - fixed].name;
        range(m, range_ops[operation - fixed], variant);
    }
}

} // namespace

// A byte for the comparator, then three a step: the operation (growth three times out of four), and two bounds out of
// few enough keys to make equal runs.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    Machine m(orders[size ? data[0] % std::size(orders) : 0]);
    for (std::size_t i = 1; i + 3 <= size && i < 3000; i += 3, tally.operations++) {
        m.key = data[i + 1];
        m.other = data[i + 2];
        seen.calls.clear();
        step(m, data[i] & 127U, data[i] & 128U);
        m.hold();
        require(seen.reports.empty(), "a report about a sound tree");
    }
    return 0;
}
