// One pass: containers go once through the table of operations.  The program of a container is called with
// NODES SEED BUILD FILTER and prints operation,keys,nodes,container,build,nanoseconds for all that the filter wants.
#pragma once

#include "operations.hpp"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include <malloc.h>
#include <regex.h>

namespace bench {

class Pass {
public:
    Pass(int argc, char **argv) {
        if (argc != 5 || regcomp(&filter_, argv[4], REG_EXTENDED | REG_NOSUB)) {
            std::fprintf(stderr, "usage: %s NODES SEED BUILD FILTER\n", argv[0]);
            std::exit(2);
        }
        size_ = std::strtoul(argv[1], nullptr, 10);
        seed_ = std::strtoul(argv[2], nullptr, 10);
        build_ = argv[3];
        touch_heap();
    }
    ~Pass() { regfree(&filter_); }
    Pass(const Pass &) = delete;
    Pass &operator=(const Pass &) = delete;

    template <class C> void run(const char *container) { run_table<C>(container, operations<C>); }
    template <class C> void run_equal(const char *container) { run_table<C>(container, equal_operations<C>); }

private:
    // Nobody's first allocation pays for pages that the system has yet to hand out.
    void touch_heap() const {
        mallopt(M_MMAP_MAX, 0);
        mallopt(M_TRIM_THRESHOLD, -1);
        const std::size_t bytes = 256 * size_;
        void *const all = std::malloc(bytes);
        if (all)
            keep(std::memset(all, 1, bytes));
        std::free(all);
    }

    template <class C, std::size_t N> void run_table(const char *container, const Operation<C> (&table)[N]) {
        std::string names[N];
        for (std::size_t i = 0; i < N; ++i)
            names[i] = wanted_name(table[i].name, table[i].order, table[i].up_to, container);
        std::vector<double> times[N];
        const std::size_t rounds = 40000 / size_ + 1; // a small tree is soon done and soon learned
        for (std::size_t round = 0; round < rounds; ++round)
            run_round(table, names, times, seed_ * rounds + round);
        for (std::size_t i = 0; i < N; ++i)
            if (!times[i].empty())
                std::printf("%s,%g\n", names[i].c_str(), median(times[i]) * 1e9);
    }

    template <class C, std::size_t N>
    void run_round(const Operation<C> (&table)[N], const std::string (&names)[N], std::vector<double> (&times)[N],
                   std::uint64_t seed) {
        Round<C> round(seed);
        bool filled = false;
        for (std::size_t i = 0; i < N; ++i) {
            const Operation<C> &operation = table[i];
            if (names[i].empty())
                continue;
            if (operation.start == Start::empty) {
                round.renew(size_, operation.order);
            } else if (!filled) {
                round.renew(size_, Order::random);
                round.fill();
            }
            times[i].push_back(operation.run(round));
            filled = operation.end == End::filled;
        }
    }

    // The columns before the time, or nothing for what is not to be measured.
    std::string wanted_name(const char *operation, Order order, std::size_t up_to, const char *container) const {
        const std::string name = std::string(operation) + '/' + name_of(order) + '/' + std::to_string(size_) + '/';
        if (size_ > up_to || regexec(&filter_, (name + container).c_str(), 0, nullptr, 0) != 0)
            return {};
        std::string columns = name + container + '/' + build_;
        std::replace(columns.begin(), columns.end(), '/', ',');
        return columns;
    }

    regex_t filter_;
    std::size_t size_;
    std::uint64_t seed_;
    const char *build_;
};

} // namespace bench
