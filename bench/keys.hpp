// Keys, and the order in which they come.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <utility>
#include <vector>

namespace bench {

using Key = std::uint32_t;

// splitmix64: quick, and the same on every machine for one seed.
class Random {
public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    std::uint64_t word() {
        std::uint64_t z = state_ += 0x9e3779b97f4a7c15u;
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9u;
        z = (z ^ (z >> 27)) * 0x94d049bb133111ebu;
        return z ^ (z >> 31);
    }
    std::size_t below(std::size_t n) { return static_cast<std::size_t>(((word() >> 32) * n) >> 32); }

    // A hundredth of the numbers gets a third of the draws.
    std::size_t skewed_below(std::size_t n) {
        const double u = static_cast<double>(word() >> 11) * 0x1p-53;
        return std::min(n - 1, static_cast<std::size_t>(static_cast<double>(n) * std::pow(u, 4)));
    }

    template <class T> void shuffle(std::vector<T> &items) {
        for (std::size_t i = items.size(); i > 1; --i)
            std::swap(items[i - 1], items[below(i)]);
    }

private:
    std::uint64_t state_;
};

enum class Order { random, ascending, skewed, repeated };
inline const char *name_of(Order order) {
    constexpr const char *names[] = {"random", "ascending", "skewed", "repeated"};
    return names[static_cast<int>(order)];
}

// An endless row of different keys in random order: a permutation of all 32-bit words, with a start of its own.
class KeySource {
public:
    explicit KeySource(Random &random) : start_(static_cast<std::uint32_t>(random.word())) {}

    Key operator[](std::size_t i) const {
        std::uint32_t x = start_ + static_cast<std::uint32_t>(i);
        x = (x ^ (x >> 16)) * 0x7feb352du;
        x = (x ^ (x >> 15)) * 0x846ca68bu;
        return x ^ (x >> 16);
    }

private:
    std::uint32_t start_;
};

} // namespace bench
