// What is measured, as one table for all containers.  A container is an adapter with the members used here; its Node is
// the record that holds a key, whether the container links it or copies the key out of it.
#pragma once

#include "round.hpp"

namespace bench {

// Each function measures one operation and returns the seconds that one step took, or the whole of a range operation.
template <class C, class Work> double per_node(const Round<C> &round, Work work) {
    return seconds(work) / static_cast<double>(round.size());
}

template <class C> double insert(Round<C> &round) {
    return per_node(round, [&] { round.fill(); });
}

// At the end of the container: by a hint or a held position where it takes one.
template <class C> double append(Round<C> &round) {
    return per_node(round, [&] {
        for (auto *node : round.nodes)
            if constexpr (requires { round.container.append(*node); })
                round.container.append(*node);
            else
                round.container.insert(*node);
    });
}

// The whole row at once where the container has a way for that.
template <class C> double build(Round<C> &round) {
    if constexpr (requires { round.container.build(round.nodes); })
        return per_node(round, [&] { round.container.build(round.nodes); });
    else
        return append(round);
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
    return per_node(round, [&] { keep(round.container.walk()); });
}

// By the container's own loop over all nodes, where it has one.
template <class C> double for_each(Round<C> &round) {
    if constexpr (requires { round.container.for_each(); })
        return per_node(round, [&] { keep(round.container.for_each()); });
    else
        return walk(round);
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
    return per_node(round, [&] {
        for (std::size_t left = round.size(); left > 0; --left)
            round.container.pop_first();
    });
}

// The same by a walk that erases, where the container can go on from what it has erased.
template <class C> double drain(Round<C> &round) {
    if constexpr (requires { round.container.drain(); })
        return per_node(round, [&] { round.container.drain(); });
    else
        return pop_first(round);
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

// Bounds of a part of the keys, at a random place.
inline std::pair<Key, Key> part(const std::vector<Key> &sorted, int percent, Random &random) {
    const std::size_t count = std::max<std::size_t>(1, sorted.size() * static_cast<std::size_t>(percent) / 100);
    const std::size_t first = random.below(sorted.size() - count + 1);
    return {sorted[first], sorted[first + count - 1]};
}

template <class C, int Percent> double delete_range(Round<C> &round) {
    const auto [first, last] = part(round.sorted_keys(), Percent, round.random);
    return seconds([&, a = first, b = last] { round.container.erase_range(a, b); });
}

// The mean of 100 runs, or of fewer where they take long, each of which leaves all nodes in the container.
template <class Run> double mean_of_runs(Run run) {
    int runs = 0;
    double all = 0;
    for (; runs < 100 && all < 0.01; ++runs)
        all += run();
    return all / runs;
}

template <class C, int Percent> double cut(Round<C> &round) {
    const std::vector<Key> sorted = round.sorted_keys();
    return mean_of_runs([&] {
        const auto [first, last] = part(sorted, Percent, round.random);
        C inside, behind;
        const double time = seconds([&, a = first, b = last] { round.container.cut(a, b, inside); });
        round.container.cut(last, sorted.back(), behind);
        round.container.join(inside);
        round.container.join(behind);
        return time;
    });
}

// Two trees of a quarter to three quarters of the nodes, one behind the other, become one.
template <class C> double join(Round<C> &round) {
    const std::vector<Key> sorted = round.sorted_keys();
    return mean_of_runs([&] {
        C behind;
        round.container.cut(sorted[round.size() / 4 + round.random.below(round.size() / 2)], sorted.back(), behind);
        return seconds([&] { round.container.join(behind); });
    });
}

// An operation starts on an empty container, or on one filled in random order; what it leaves filled serves the next.
enum class Start { empty, filled };
enum class End { spoiled, filled };

template <class C> struct Operation {
    const char *name;
    Order order;
    Start start;
    End end;
    double (*run)(Round<C> &);
    std::size_t up_to = 1000000;
};

template <class C>
constexpr Operation<C> operations[] = {
    {"insert", Order::random, Start::empty, End::filled, insert<C>},
    {"find", Order::random, Start::filled, End::filled, find_hit<C, Order::random>},
    {"find", Order::ascending, Start::filled, End::filled, find_hit<C, Order::ascending>, 100000},
    {"find", Order::skewed, Start::filled, End::filled, find_hit<C, Order::skewed>, 100000},
    {"find absent", Order::random, Start::filled, End::filled, find_miss<C>},
    {"find dependent", Order::random, Start::filled, End::filled, find_dependent<C>},
    {"lower bound", Order::random, Start::filled, End::filled, lower_bound<C>},
    {"walk", Order::random, Start::filled, End::filled, walk<C>},
    {"mix", Order::random, Start::filled, End::filled, mix<C, Order::random>},
    {"for each", Order::random, Start::filled, End::filled, for_each<C>}, // a tree that the walk has not taught
    {"mix", Order::skewed, Start::filled, End::filled, mix<C, Order::skewed>, 100000},
    {"cut 1 %", Order::random, Start::filled, End::filled, cut<C, 1>, 100000},
    {"cut 10 %", Order::random, Start::filled, End::filled, cut<C, 10>, 100000},
    {"cut 50 %", Order::random, Start::filled, End::filled, cut<C, 50>},
    {"join", Order::random, Start::filled, End::filled, join<C>},
    {"delete 1 %", Order::random, Start::filled, End::spoiled, delete_range<C, 1>, 100000},
    {"delete 10 %", Order::random, Start::filled, End::spoiled, delete_range<C, 10>, 100000},
    {"delete 50 %", Order::random, Start::filled, End::spoiled, delete_range<C, 50>, 100000},
    {"erase", Order::random, Start::filled, End::spoiled, erase<C, Order::random>},
    {"erase", Order::ascending, Start::filled, End::spoiled, erase<C, Order::ascending>, 100000},
    {"pop first", Order::random, Start::filled, End::spoiled, pop_first<C>},
    {"drain", Order::random, Start::filled, End::spoiled, drain<C>, 100000},
    {"insert", Order::ascending, Start::empty, End::spoiled, insert<C>},
    {"append", Order::ascending, Start::empty, End::spoiled, append<C>},
    {"build", Order::ascending, Start::empty, End::spoiled, build<C>},
    {"insert", Order::skewed, Start::empty, End::spoiled, insert<C>, 100000},
};

template <class C>
constexpr Operation<C> equal_operations[] = {
    {"insert equal", Order::repeated, Start::empty, End::spoiled, insert<C>, 100000},
};

} // namespace bench
