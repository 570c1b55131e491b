// Brings the containers and the table of operations to the benchmark library.
#pragma once

#include "operations.hpp"

#include <benchmark/benchmark.h>

#include <map>
#include <memory>
#include <set>
#include <string>

namespace bench {

inline std::uint64_t next_seed() {
    static std::uint64_t seed = 20261122;
    return ++seed;
}

// A filled tree of n nodes that this operation has not seen yet: a processor learns a thousand steps by heart.
template <class C> std::shared_ptr<Round<C>> shared_round(std::size_t n, const Operation<C> *operation) {
    struct Shared {
        std::shared_ptr<Round<C>> round;
        std::set<const Operation<C> *> served;
    };
    static std::map<std::size_t, Shared> all;
    Shared &shared = all[n];
    if (!shared.round || !shared.served.insert(operation).second) {
        shared = {std::make_shared<Round<C>>(next_seed()), {operation}};
        shared.round->renew(n, Order::random);
        shared.round->fill();
    }
    return shared.round;
}

template <class C> bool is_shared(const Operation<C> &operation, std::size_t n) {
    return operation.start == Start::shared || (operation.start == Start::shared_if_large && n >= 100000);
}

template <class C> void measure(benchmark::State &state, const Operation<C> *operation, std::size_t n) {
    const bool shared = is_shared(*operation, n);
    const auto round = shared ? shared_round<C>(n, operation) : std::make_shared<Round<C>>(next_seed());
    for (auto _ : state) {
        if (operation->start == Start::empty_equal)
            round->renew_equal(n);
        else if (!shared)
            round->renew(n, operation->order);
        if (!shared && operation->start != Start::empty && operation->start != Start::empty_equal)
            round->fill();
        state.SetIterationTime(operation->run(*round));
    }
}

// Sparing containers repeat less where filling a tree takes a second.
enum class Effort { full, sparing };

template <class C, std::size_t N>
void add_all(const std::string &container, const Operation<C> (&table)[N], Effort effort) {
    for (const Operation<C> &operation : table)
        for (std::size_t n = 1000; n <= operation.up_to; n *= n == 1000 ? 100 : 10) {
            const std::string name = std::string(operation.name) + "/" + name_of(operation.order) + "/" +
                                     std::to_string(n) + "/" + container;
            const std::size_t steps = is_shared(operation, n) ? 20000 : 100000; // some milliseconds a repetition
            auto *const entry = benchmark::RegisterBenchmark(name.c_str(), measure<C>, &operation, n);
            entry->Iterations(static_cast<benchmark::IterationCount>(std::max<std::size_t>(1, steps / n)));
            entry->UseManualTime();
            if (effort == Effort::sparing && n == 1000000)
                entry->Repetitions(3);
        }
}

template <class C> void add(const std::string &container, Effort effort = Effort::full) {
    add_all(container, operations<C>, effort);
}
template <class C> void add_equal(const std::string &container, Effort effort = Effort::full) {
    add_all(container, equal_operations<C>, effort);
}

// Each file of containers offers its own.
void add_ovant();
void add_std_set();
void add_avl_set();
__attribute__((visibility("default"))) void add_avl_set_clang();
void add_btree_set();
void add_glib_tree();
void add_bsd_tree();

} // namespace bench
