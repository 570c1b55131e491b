// What it costs to cut half of the nodes out of trees of 1,000 to 4,096,000, at random places.  Ends with an error if a
// cut takes more comparisons than two for each level, or if the time grows by more than what the caches explain.
#include "ovant_tree.hpp"

#include <cstdio>

using namespace bench;

namespace {

long comparisons = 0;

int counting_order(const void *node_key, const void *key) {
    ++comparisons;
    return host_order(node_key, key);
}

struct Cut {
    double time;
    long comparisons;
};

// Cuts between two bounds and puts everything back into its place; only the cut is measured.
Cut cut_and_mend(AVL_Tree *tree, Key first, Key last) {
    comparisons = 0;
    void *middle = nullptr;
    const double time = seconds([&] { middle = AVL_GetBetweenEqualEqual(tree, &first, &last); });
    const Cut result = {time, comparisons};
    void *const behind = AVL_GetGreater(tree, &last);
    AVL_ConcatLess(tree, middle);
    AVL_ConcatLess(tree, behind);
    return result;
}

struct Cost {
    int height = 0;
    long most_comparisons = 0;
    double first_time = 0, second_time = 0; // medians, in nanoseconds
};

// Each place is cut twice: what the second cut saves is waiting for memory.
template <AVL_CmpFunc Cmp> Cost cost(std::size_t n) {
    Round<OvantTree<Cmp>> round(n);
    round.renew(n, Order::random);
    round.fill();
    std::vector<Key> sorted = round.keys;
    std::sort(sorted.begin(), sorted.end());

    AVL_Tree *const tree = round.container.tree();
    Cost result;
    std::vector<double> first_times, second_times;
    for (int i = 0; i < 1001; ++i) {
        result.height = std::max<int>(result.height, AVL_MaxDeepth(tree));
        const std::size_t start = round.random.below(n / 2);
        const Key first = sorted[start], last = sorted[start + n / 2 - 1];
        const Cut cut = cut_and_mend(tree, first, last);
        result.most_comparisons = std::max(result.most_comparisons, cut.comparisons);
        first_times.push_back(cut.time);
        second_times.push_back(cut_and_mend(tree, first, last).time);
    }
    result.first_time = median(first_times) * 1e9;
    result.second_time = median(second_times) * 1e9;
    return result;
}

} // namespace

int main() {
    std::printf("nodes,height,most_comparisons,first_ns,second_ns\n");
    double smallest = 0, largest = 0;
    bool bounded = true;
    for (std::size_t n = 1000; n <= 4096000; n *= 4) {
        const Cost counted = cost<counting_order>(n), timed = cost<AVL_CMP_HandlePointer>(n);
        std::printf("%zu,%d,%ld,%.0f,%.0f\n", n, counted.height, counted.most_comparisons, timed.first_time,
                    timed.second_time);
        std::fflush(stdout);
        bounded = bounded && counted.most_comparisons <= 2 * counted.height;
        largest = timed.second_time;
        smallest = smallest > 0 ? smallest : largest;
    }
    if (!bounded)
        std::fprintf(stderr, "bench: a cut took more comparisons than two for each level\n");
    if (largest > 4 * smallest)
        std::fprintf(stderr, "bench: the time of a cut grows with the tree: %.1f times\n", largest / smallest);
    return bounded && largest <= 4 * smallest ? 0 : 1;
}
