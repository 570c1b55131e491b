// Reads its input as a sequence of operations on one tree and holds each against a sequence of nodes in tree order.
#include "support/ranges.hpp"

#include <cstdint>
#include <cstdlib>

using namespace ovant::c;
using namespace ovant::test;

namespace {

using Nodes = std::vector<Node>;

void require(bool holds, const char *what) {
    if (holds && !::testing::Test::HasFailure())
        return;
    std::fprintf(stderr, "operations: %s\n", what);
    std::abort();
}

struct Machine {
    Host host;
    AVL_Tree *tree = host.tree;
    Nodes order;            // what the tree should hold
    int key = 0, other = 0; // the bounds of this step

    Node at(std::size_t position) const { return position < order.size() ? order[position] : nullptr; }
    // A node was handed out.  That it left, and no other, shows where the tree is held against the order.
    void lose(Node node, Node result) {
        require(result == node, "another node came out");
        std::erase(order, node);
    }
};

// Several keys a step, evenly spaced: else no tree would get tall.
void insert(Machine &m, Node (*operation)(AVL_Tree *, const void *, void *), bool always) {
    for (int i = 0; i <= m.other / 16; i++, m.key = (m.key + m.other % 16) & 255) {
        const auto run = run_of(m.order, m.key);
        const bool grows = always || run.front == run.back;
        const Node node = m.host.record(m.key), result = operation(m.tree, &m.key, node);
        require((result == node) == grows, "an insertion took the wrong branch");
        const Nodes now = check(m.tree).order; // the node somewhere in its equal run, with the others as before
        Nodes others = now;
        require(std::erase(others, node) == grows && others == m.order, "an insertion moved other nodes");
        m.order = now;
    }
}

void remove(Machine &m, Entry *pfad, bool with_free) {
    const Node node = pfad->Node;
    if (with_free)
        AVL_DelPfad(m.tree, pfad, &m.key, nullptr);
    m.lose(node, with_free ? node : AVL_GetPfad(m.tree, pfad));
}

void range(Machine &m, const RangeOp &op, bool extract) {
    const int second = op.bounds == 1 ? m.key : m.other;
    const Parted parted = part(m.order, op, m.key, second);
    if (extract && op.get) {
        const Node root = op.get(m.tree, &m.key, &second, nullptr);
        require(check(m.tree, root).order == parted.goes, "another range came out");
        if (op.first == At::start || op.second == At::end) { // back to where it was
            (op.first == At::start ? AVL_ConcatGreater : AVL_ConcatLess)(m.tree, root);
            return;
        }
    } else {
        op.del(m.tree, &m.key, &second, nullptr);
        require(seen.killed().size() == parted.goes.size(), "other nodes went to Kill");
    }
    m.order = parted.stays;
}

void step(Machine &m, std::size_t operation, bool variant) {
    // clang-format off
    switch (operation) {
    case 0: return insert(m, variant ? AVL_Insert : AVL_InsertStabil, true);
    case 1: return insert(m, variant ? AVL_InsertUnique : AVL_InsertSearchKey, false);
    case 2: return insert(m, AVL_InsertKey, false);
    case 3: return remove(m, AVL_MakeKey(m.tree, &m.key), variant);
    case 4: return remove(m, AVL_MakeFirstKey(m.tree, &m.key), variant);
    case 5: return m.lose(m.at(0), AVL_GetMin(m.tree));
    case 6: return m.lose(m.at(m.order.size() - 1), AVL_GetMax(m.tree));
    default: return range(m, range_ops[operation - 7], variant);
    }
    // clang-format on
}

} // namespace

// Three bytes a step: the operation (growth four times out of five), and two bounds out of few enough keys to make
// equal runs.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    Machine m;
    for (std::size_t i = 0; i + 3 <= size && i < 3000; i += 3) {
        const std::size_t code = data[i] & 127U;
        m.key = data[i + 1];
        m.other = data[i + 2];
        seen.calls.clear();
        step(m, code < 104 ? code % 3 : (code - 104) % (7 + std::size(range_ops)), data[i] & 128U);
        expect_tree(m.tree, m.order);
        require(seen.reports.empty(), "a report about a sound tree");
    }
    return 0;
}
