// What is measured, as one table for all containers.  A container is an adapter with the members used here; its Node is
// the record that holds a key, whether the container links it or copies the key out of it.
#pragma once

#include "round.hpp"

namespace bench {

// Each function runs a pass and returns the seconds that one step took, or the whole of a range operation.
template <class C> double insert(Round<C> &round) {
    return seconds([&] { round.fill(); }) / static_cast<double>(round.size());
}

template <class Question, class Ask> double ask_all(const std::vector<Question> &asked, Ask ask) {
    const double all = seconds([&] {
        for (const Question &question : asked)
            keep(ask(question));
    });
    return all / static_cast<double>(asked.size());
}

template <class C, Order Asked> double find_hit(Round<C> &round) {
    return ask_all(round.present_keys(Asked), [&](Key key) { return round.container.find(key); });
}

template <class C> double find_miss(Round<C> &round) {
    return ask_all(round.absent_keys(), [&](Key key) { return round.container.find(key); });
}

// The answer to one question is part of the next, so that no two searches can overlap.
template <class C> double find_dependent(Round<C> &round) {
    Key error = 0;
    return ask_all(round.present_keys(Order::random), [&](Key key) {
        error = round.container.find(key + error) - key;
        return error;
    });
}

template <class C> double lower_bound(Round<C> &round) {
    return ask_all(round.absent_keys(), [&](Key key) { return round.container.lower_bound(key); });
}

template <class C> double walk(Round<C> &round) {
    return seconds([&] { keep(round.container.walk()); }) / static_cast<double>(round.size());
}

template <class C, Order Asked> double erase(Round<C> &round) {
    std::vector<Key> gone = round.keys;
    if (Asked == Order::ascending)
        std::sort(gone.begin(), gone.end());
    else
        round.random.shuffle(gone);
    return ask_all(gone, [&](Key key) { return round.container.erase(key); });
}

template <class C> double pop_first(Round<C> &round) {
    const double all = seconds([&] {
        for (std::size_t left = round.size(); left > 0; --left)
            round.container.pop_first();
    });
    return all / static_cast<double>(round.size());
}

// Two searches, then a node leaves and comes back with another key: four steps after which the size is the same.
template <class C, Order Asked> double mix(Round<C> &round) {
    const std::vector<std::size_t> picks = round.picks(Asked, round.questions() / 4 * 3);
    std::vector<Key> fresh = round.fresh_keys(picks.size() / 3);
    const double all = seconds([&] {
        for (std::size_t i = 0; i < fresh.size(); ++i) {
            keep(round.container.find(round.keys[picks[3 * i]]));
            keep(round.container.find(round.keys[picks[3 * i + 1]]));
            const std::size_t moved = picks[3 * i + 2];
            keep(round.container.erase(round.keys[moved]));
            C::reuse(*round.nodes[moved], round.keys[moved] = fresh[i]);
            round.container.insert(*round.nodes[moved]);
        }
    });
    return all / static_cast<double>(4 * fresh.size());
}

template <class C, int Percent> double delete_range(Round<C> &round) {
    const auto [first, last] = round.middle(Percent);
    return seconds([&, a = first, b = last] { round.container.erase_range(a, b); });
}

template <class C, int Percent> double cut(Round<C> &round) {
    const auto [first, last] = round.middle(Percent);
    C other;
    const double all = seconds([&, a = first, b = last] { round.container.cut(a, b, other); });
    other.clear();
    return all;
}

// Two trees of half the nodes each, one behind the other, become one.
template <class C> double join(Round<C> &round) {
    const Key seam = round.middle(1).first;
    C other;
    for (auto *node : round.nodes)
        (node->key < seam ? round.container : other).insert(*node);
    return seconds([&] { round.container.join(other); });
}

// A filled tree that is asked at random, or keeps its size, may serve several operations.  So may one that is always
// read in the same way, if it is too large to be learned by heart.  The others get a new one for each pass.
enum class Start { shared, shared_if_large, filled, empty, empty_equal };

template <class C> struct Operation {
    const char *name;
    Order order;
    Start start;
    double (*run)(Round<C> &);
    std::size_t up_to = 1000000;
};

template <class C>
constexpr Operation<C> operations[] = {
    {"insert unique", Order::random, Start::empty, insert<C>},
    {"insert unique", Order::ascending, Start::empty, insert<C>},
    {"insert unique", Order::skewed, Start::empty, insert<C>},
    {"find hit", Order::random, Start::shared, find_hit<C, Order::random>},
    {"find hit", Order::ascending, Start::shared, find_hit<C, Order::ascending>},
    {"find hit", Order::skewed, Start::shared, find_hit<C, Order::skewed>},
    {"find miss", Order::random, Start::shared, find_miss<C>},
    {"find dependent", Order::random, Start::shared, find_dependent<C>},
    {"lower bound", Order::random, Start::shared, lower_bound<C>},
    {"walk", Order::random, Start::shared_if_large, walk<C>},
    {"erase by key", Order::random, Start::filled, erase<C, Order::random>},
    {"erase by key", Order::ascending, Start::filled, erase<C, Order::ascending>},
    {"pop first", Order::random, Start::filled, pop_first<C>},
    {"mix", Order::random, Start::shared, mix<C, Order::random>},
    {"mix", Order::skewed, Start::shared, mix<C, Order::skewed>},
    {"delete 1 %", Order::random, Start::filled, delete_range<C, 1>, 100000},
    {"delete 10 %", Order::random, Start::filled, delete_range<C, 10>, 100000},
    {"delete 50 %", Order::random, Start::filled, delete_range<C, 50>},
    {"cut 1 %", Order::random, Start::filled, cut<C, 1>, 100000},
    {"cut 10 %", Order::random, Start::filled, cut<C, 10>, 100000},
    {"cut 50 %", Order::random, Start::filled, cut<C, 50>},
    {"join", Order::random, Start::empty, join<C>},
};

template <class C>
constexpr Operation<C> equal_operations[] = {
    {"insert equal", Order::random, Start::empty_equal, insert<C>},
};

} // namespace bench
