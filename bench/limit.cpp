// How far searches are from what memory allows: beside them a bare chase down the same links, with every turn known
// beforehand and no key compared.
#include "operations.hpp"
#include "ovant_tree.hpp"

#include <cstdio>
#include <cstring>

using namespace bench;

namespace {

// The turns from the root to a key, the first one in the lowest bit; 1 is right.
struct Way {
    Key key;
    unsigned steps;
    std::uint64_t turns;
};

Way way_to(AVL_Tree *tree, Key key) {
    Way way = {key, 0, 0};
    const AVL_PfadEntry *const top = AVL_MakeKey(tree, &key);
    for (const AVL_PfadEntry *at = tree->Stack; at != top; ++at)
        way.turns |= std::uint64_t{at->Dir == DIR_RIGHT} << way.steps++;
    return way;
}

Key chase(const AVL_Tree *tree, unsigned steps, std::uint64_t turns) {
    const char *node = static_cast<const char *>(tree->Root);
    for (; steps > 0; --steps, turns >>= 1)
        std::memcpy(&node, node + sizeof(void *) * (turns & 1), sizeof node);
    return reinterpret_cast<const OvantNode *>(node)->key;
}

template <class C, bool Dependent> double chase_all(Round<C> &round) {
    std::vector<Way> ways;
    for (Key key : round.present_keys(Order::random))
        ways.push_back(way_to(round.container.tree(), key));
    Key error = 0;
    return ask_all(ways, [&](const Way &way) {
        const Key found = chase(round.container.tree(), way.steps, way.turns + (Dependent ? error : 0));
        error = found - way.key;
        return found;
    });
}

template <class C> double median_time(std::size_t n, double (*run)(Round<C> &)) {
    std::vector<double> times;
    for (std::uint64_t seed = 0; seed < 9; ++seed) {
        Round<C> round(seed);
        round.renew(n, Order::random);
        round.fill();
        times.push_back(run(round));
    }
    return median(times) * 1e9;
}

} // namespace

int main() {
    using Ready = OvantTree<AVL_CMP_HandlePointer>;
    using Own = OvantTree<host_order>;
    std::printf("%-24s%12s%18s%18s\n", "[ns]", "bare chase", "ready comparator", "host comparator");
    for (std::size_t n : {1000u, 100000u, 1000000u}) {
        std::printf("%8zu  find%22.1f%18.1f%18.1f\n", n, median_time<Ready>(n, chase_all<Ready, false>),
                    median_time<Ready>(n, find_hit<Ready, Order::random>),
                    median_time<Own>(n, find_hit<Own, Order::random>));
        std::printf("%8zu  find dependent%12.1f%18.1f%18.1f\n", n, median_time<Ready>(n, chase_all<Ready, true>),
                    median_time<Ready>(n, find_dependent<Ready>), median_time<Own>(n, find_dependent<Own>));
    }
}
