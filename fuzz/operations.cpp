// Reads its input as a sequence of operations on one tree and holds each against a sequence of nodes in tree order.
#include "support/ranges.hpp"

#include <cstdint>
#include <cstdlib>

using namespace ovant;
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
    Nodes order; // what the tree should hold
    Nodes loose; // what the last extraction handed out
    Node loose_root = nullptr;
    int key = 0, other = 0; // the bounds of this step

    auto run() const { return run_of(order, key); }
    bool present() const { return run().front < run().back; }
    Node at(std::size_t position) const { return position < order.size() ? order[position] : nullptr; }
    void lose(Node node) {
        const auto at = std::find(order.begin(), order.end(), node);
        require(at != order.end() || !node, "the node that left was not in the tree");
        if (node)
            order.erase(at);
    }
};

// Several keys a step, evenly spaced: else no tree would get tall.
void insert(Machine &m, Node (*operation)(AVL_Tree *, const void *, void *), bool always) {
    for (int i = 0; i <= m.other / 16; i++, m.key = (m.key + m.other % 16) & 255) {
        const bool grows = always || !m.present();
        const Node node = m.host.record(m.key), result = operation(m.tree, &m.key, node);
        require((result == node) == grows, "an insertion took the wrong branch");
        require(grows || !result || result == AVL_SearchKey(m.tree, &m.key), "not the node that matched");
        if (grows) { // somewhere in its equal run, with the others as before
            const Nodes now = check(m.tree).order;
            const auto at = std::find(now.begin(), now.end(), node);
            require(at != now.end(), "the new node is not in the tree");
            m.order.insert(m.order.begin() + (at - now.begin()), node);
        }
    }
}

void remove(Machine &m, Entry *pfad, bool with_free) {
    const Node node = pfad->Node;
    require(m.present() == (node != nullptr), "a path to another node");
    if (with_free)
        AVL_DelPfad(m.tree, pfad, &m.key, nullptr);
    else
        require(AVL_GetPfad(m.tree, pfad) == node, "another node came out");
    m.lose(node);
}

void extreme(Machine &m, Node node, Node (*get)(AVL_Tree *), void (*del)(AVL_Tree *, void *), bool with_free) {
    if (with_free)
        del(m.tree, nullptr);
    else
        require(get(m.tree) == node, "not the node at the end");
    m.lose(node);
}

void range(Machine &m, const RangeOp &op, bool extract) {
    const int second = op.bounds == 1 ? m.key : m.other;
    Parted parted = part(m.order, op, m.key, second);
    if (extract && op.get) {
        m.loose_root = op.get(m.tree, &m.key, &second, nullptr);
        m.loose = check(m.tree, m.loose_root).order;
        require(m.loose == parted.goes, "another range came out");
    } else {
        op.del(m.tree, &m.key, &second, nullptr);
        Nodes killed = seen.killed();
        std::sort(killed.begin(), killed.end());
        std::sort(parted.goes.begin(), parted.goes.end());
        require(killed == parted.goes, "other nodes went to Kill");
    }
    m.order = parted.stays;
}

// What the last extraction took out comes back where it fits.
void concat(Machine &m) {
    const bool empty = m.order.empty() || m.loose.empty();
    const bool behind = empty || key_of(m.order.back()) <= key_of(m.loose.front());
    if (!behind && key_of(m.loose.back()) > key_of(m.order.front()))
        return;
    (behind ? AVL_ConcatLess : AVL_ConcatGreater)(m.tree, std::exchange(m.loose_root, nullptr));
    m.order.insert(behind ? m.order.end() : m.order.begin(), m.loose.begin(), m.loose.end());
    m.loose.clear();
}

void look(Machine &m) {
    const auto run = m.run();
    const int *const key = &m.key;
    require(AVL_SearchGreaterEqual(m.tree, key) == m.at(run.front), "SearchGreaterEqual");
    require(AVL_SearchGreater(m.tree, key) == m.at(run.back), "SearchGreater");
    require(AVL_SearchLess(m.tree, key) == m.at(run.front - 1), "SearchLess");
    require(AVL_SearchLessEqual(m.tree, key) == m.at(run.back - 1), "SearchLessEqual");
    require(AVL_CountNode(m.tree) == m.order.size() && AVL_CheckBalance(m.tree), "CountNode, CheckBalance");
    Nodes walked;
    for (Entry *at = AVL_MakeMin(m.tree); at->Node; at = AVL_WalkSuccInorder(m.tree, at))
        walked.push_back(at->Node);
    require(walked == m.order, "WalkSuccInorder");
}

void step(Machine &m, unsigned operation, bool variant) {
    // clang-format off
    switch (operation) {
    case 0: return insert(m, variant ? AVL_Insert : AVL_InsertStabil, true);
    case 1: return insert(m, variant ? AVL_InsertUnique : AVL_InsertSearchKey, false);
    case 2: return insert(m, AVL_InsertKey, false);
    case 3: return remove(m, AVL_MakeKey(m.tree, &m.key), variant);
    case 4: return remove(m, AVL_MakeFirstKey(m.tree, &m.key), variant);
    case 5: return remove(m, AVL_MakeLastKey(m.tree, &m.key), variant);
    case 6: return extreme(m, m.at(0), AVL_GetMin, AVL_DelMin, variant);
    case 7: return extreme(m, m.at(m.order.size() - 1), AVL_GetMax, AVL_DelMax, variant);
    case 8: return concat(m);
    case 9: return look(m);
    default: return range(m, range_ops[operation % std::size(range_ops)], variant);
    }
    // clang-format on
}

} // namespace

// Three bytes a step: the operation (growth four times out of five), and two bounds out of few enough keys to make
// equal runs.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    Machine m;
    for (std::size_t i = 0; i + 3 <= size && i < 3000; i += 3) {
        const unsigned code = data[i] & 127U;
        m.key = data[i + 1];
        m.other = data[i + 2];
        seen.calls.clear();
        step(m, code < 104 ? code % 3 : (code - 104) % 22, data[i] & 128U);
        expect_tree(m.tree, m.order);
        require(seen.reports.empty(), "a report about a sound tree");
    }
    return 0;
}
