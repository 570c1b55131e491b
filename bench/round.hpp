// What one measured pass works on: fresh keys, their nodes in shuffled memory, and the container.
#pragma once

#include "keys.hpp"

#include <chrono>

namespace bench {

// Keeps the compiler from dropping the work that leads to value.
template <class T> void keep(const T &value) { asm volatile("" : : "r,m"(value) : "memory"); }

template <class Work> double seconds(Work work) {
#ifdef CALLGRIND_TOGGLE_COLLECT // counted, not timed; a second is long, so nothing runs again
    CALLGRIND_TOGGLE_COLLECT;
    work();
    CALLGRIND_TOGGLE_COLLECT;
    return 1;
#else
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    work();
    return std::chrono::duration<double>(Clock::now() - start).count();
#endif
}

inline double median(std::vector<double> values) {
    const auto half = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), half, values.end());
    return *half;
}

template <class Container> class Round {
public:
    using Node = typename Container::Node;

    explicit Round(std::uint64_t seed) : random(seed), source(random) {}
    ~Round() { container.clear(); }
    Round(const Round &) = delete;
    Round &operator=(const Round &) = delete;

    // n new keys in the order in which they are to be inserted, each in a node of its own, and an empty container.
    void renew(std::size_t n, Order order) {
        source = KeySource(random);
        keys.resize(n);
        for (std::size_t i = 0; i < n; ++i)
            keys[i] = source[i];
        if (order == Order::skewed || order == Order::repeated) {
            const std::vector<Key> all = keys;
            for (Key &key : keys)
                key = all[order == Order::skewed ? random.skewed_below(n) : random.below(n / 16)];
        }
        if (order == Order::ascending)
            std::sort(keys.begin(), keys.end());
        place_nodes();
    }

    void fill() {
        for (Node *node : nodes)
            container.insert(*node);
    }

    std::size_t size() const { return keys.size(); }

    // How many questions a pass asks: enough to be measured, few enough that large trees do not take all day.
    std::size_t questions() const { return std::clamp<std::size_t>(size(), 1u << 12, 1u << 16); }

    // Positions of keys that are there, as they come in the given order.
    std::vector<std::size_t> picks(Order order, std::size_t count) {
        std::vector<std::size_t> picked(count);
        for (std::size_t &pick : picked)
            pick = order == Order::skewed ? random.skewed_below(size()) : random.below(size());
        if (order == Order::ascending)
            std::sort(picked.begin(), picked.end(), [&](auto a, auto b) { return keys[a] < keys[b]; });
        return picked;
    }

    std::vector<Key> present_keys(Order order) {
        std::vector<Key> asked;
        for (std::size_t pick : picks(order, questions()))
            asked.push_back(keys[pick]);
        return asked;
    }
    std::vector<Key> absent_keys() {
        std::vector<Key> asked(questions());
        for (Key &key : asked)
            key = source[size() + random.below(size() * 16)];
        return asked;
    }

    // Keys that were never in the container; each call begins where the last one ended.
    std::vector<Key> fresh_keys(std::size_t count) {
        std::vector<Key> fresh(count);
        for (Key &key : fresh)
            key = source[size() * 17 + handed_out_++];
        return fresh;
    }

    std::vector<Key> sorted_keys() const {
        std::vector<Key> sorted = keys;
        std::sort(sorted.begin(), sorted.end());
        return sorted;
    }

    Random random;
    KeySource source;
    std::vector<Key> keys;
    std::vector<Node *> nodes; // nodes[i] holds keys[i]
    Container container;

private:
    void place_nodes() {
        container.clear();
        memory_ = std::vector<Node>(size());
        nodes.resize(size());
        std::transform(memory_.begin(), memory_.end(), nodes.begin(), [](Node &node) { return &node; });
        random.shuffle(nodes);
        for (std::size_t i = 0; i < size(); ++i)
            nodes[i]->key = keys[i];
    }

    std::vector<Node> memory_;
    std::size_t handed_out_ = 0;
};

} // namespace bench
