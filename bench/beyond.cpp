// What counts cost and bring, trees against trees, searches by the thousand, letting go in steps: beside what others
// have for it, in one build.  Prints medians of rounds in which all take turns.
#include "round.hpp"

#include <ovant.hpp>

#include <cstdio>
#include <cstring>
#include <iterator>
#include <string>

#include <ext/pb_ds/assoc_container.hpp>
#include <ext/pb_ds/tree_policy.hpp>
#if defined(BENCH_BTREE)
#include <absl/container/btree_set.h>
#endif

using namespace bench;

namespace {

template <class Link> struct Record {
    Link link;
    Key key = 0;
};
template <class Link> using Set = ovant::set<&Record<Link>::link, &Record<Link>::key>;
using Plain = Set<ovant::link>;
using Counted = Set<ovant::counted_link>;
using OrderTree = __gnu_pbds::tree<Key, __gnu_pbds::null_type, std::less<>, __gnu_pbds::rb_tree_tag,
                                   __gnu_pbds::tree_order_statistics_node_update>;

// Columns of times, each the median of what its rounds have given.
class Table {
public:
    // The time of a step, in nanoseconds.
    template <class Work> void time(const char *column, std::size_t steps, Work work) {
        const double taken = seconds(work) * 1e9 / static_cast<double>(steps);
        for (Column &c : columns_)
            if (std::strcmp(c.name, column) == 0)
                return c.times.push_back(taken);
        columns_.push_back({column, {taken}});
    }
    // The first one in nanoseconds, and what the others take of it.
    void print(const std::string &row) {
        std::printf("%-34s", row.c_str());
        const double first = median(columns_[0].times);
        for (const Column &c : columns_)
            if (&c == columns_.data())
                std::printf("  %s %.4g ns", c.name, first);
            else
                std::printf("  %s %.3g", c.name, median(c.times) / first);
        std::printf("\n");
        std::fflush(stdout);
        columns_.clear();
    }

private:
    struct Column {
        const char *name;
        std::vector<double> times;
    };
    std::vector<Column> columns_;
};

// Records with these keys, in shuffled memory.
template <class Link> struct Herd {
    Herd(const std::vector<Key> &keys, Random random) : memory(keys.size()) {
        for (auto &record : memory)
            records.push_back(&record);
        random.shuffle(records);
        for (std::size_t i = 0; i < keys.size(); ++i)
            records[i]->key = keys[i];
    }
    void insert_into(Set<Link> &set) const {
        for (auto *record : records)
            set.insert(*record);
    }
    std::vector<Record<Link>> memory;
    std::vector<Record<Link> *> records;
};

std::vector<Key> some_keys(std::size_t n, Random &random) {
    const KeySource source(random);
    std::vector<Key> keys(n);
    for (std::size_t i = 0; i < n; ++i)
        keys[i] = source[i];
    return keys;
}
std::size_t rounds_for(std::size_t n) { return std::clamp<std::size_t>(2000000 / n, 5, 200); }

template <class Link>
void fill_and_empty(const char *name, Table &in, Table &out, const std::vector<Key> &keys, const std::vector<Key> &gone,
                    Random random) {
    const Herd<Link> herd(keys, random);
    Set<Link> set;
    in.time(name, keys.size(), [&] { herd.insert_into(set); });
    out.time(name, keys.size(), [&] {
        for (Key key : gone)
            keep(set.extract(key));
    });
}
void counts(std::size_t n) {
    Random random(n);
    Table in, out, nth, rank;
    for (std::size_t round = 0; round < rounds_for(n); ++round) {
        const std::vector<Key> keys = some_keys(n, random);
        std::vector<Key> gone = keys;
        random.shuffle(gone);
        fill_and_empty<ovant::link>("plain", in, out, keys, gone, random);
        fill_and_empty<ovant::counted_link>("counted", in, out, keys, gone, random);

        const Herd<ovant::counted_link> herd(keys, random);
        Counted set;
        herd.insert_into(set);
        OrderTree other;
        for (Key key : keys)
            other.insert(key);
        std::vector<std::size_t> places(std::min<std::size_t>(n, 1u << 14));
        for (std::size_t &place : places)
            place = random.below(n);
        nth.time("pbds", places.size(), [&] {
            for (std::size_t i : places)
                keep(*other.find_by_order(i));
        });
        nth.time("counted", places.size(), [&] {
            for (std::size_t i : places)
                keep(set.nth(i)->key);
        });
        rank.time("pbds", places.size(), [&] {
            for (std::size_t i : places)
                keep(other.order_of_key(keys[i]));
        });
        rank.time("counted", places.size(), [&] {
            for (std::size_t i : places)
                keep(set.rank(ovant::before(keys[i])));
        });
    }
    const std::string size = ", n " + std::to_string(n);
    in.print("insert" + size);
    out.print("erase" + size);
    nth.print("nth" + size);
    rank.print("rank" + size);
}

// m of n, half of them there already: all at once, one by one, and as two sorted vectors.
void unions(std::size_t n, std::size_t m) {
    Random random(n + m);
    Table table;
    for (std::size_t round = 0; round < rounds_for(n); ++round) {
        const std::vector<Key> keys = some_keys(n + m / 2, random);
        const std::vector<Key> first(keys.begin(), keys.begin() + static_cast<std::ptrdiff_t>(n));
        std::vector<Key> second(keys.end() - static_cast<std::ptrdiff_t>(m), keys.end());
        const Herd<ovant::link> mine(first, random), theirs(second, random);
        for (const bool at_once : {true, false}) {
            Plain set, other;
            mine.insert_into(set);
            theirs.insert_into(other);
            if (at_once)
                table.time("unite", m, [&] { set.unite(std::move(other)); });
            else
                table.time("one by one", m, [&] {
                    for (auto at = other.begin(); at != other.end();)
                        keep(set.insert(*other.pop(at)));
                });
        }
        std::vector<Key> a = first, result;
        std::sort(a.begin(), a.end());
        std::sort(second.begin(), second.end());
        table.time("std::set_union", m, [&] {
            result.reserve(a.size() + second.size());
            std::set_union(a.begin(), a.end(), second.begin(), second.end(), std::back_inserter(result));
        });
        keep(result);
    }
    table.print("union, n " + std::to_string(n) + ", m " + std::to_string(m));
}

// Keys that are there, in random order.
void searches(std::size_t n) {
    Random random(n);
    Table table;
    for (std::size_t round = 0; round < std::min<std::size_t>(rounds_for(n), 50); ++round) {
        const std::vector<Key> keys = some_keys(n, random);
        const Herd<ovant::link> herd(keys, random);
        Plain set;
        herd.insert_into(set);
        std::vector<Key> asked(std::clamp<std::size_t>(n, 1u << 12, 1u << 16));
        for (Key &key : asked)
            key = keys[random.below(n)];
        std::vector<Record<ovant::link> *> found(asked.size());
        table.time("find", asked.size(), [&] {
            for (Key key : asked)
                keep(set.find(key)->key);
        });
        table.time("find_many", asked.size(), [&] { set.find_many(asked, found.data()); });
#if defined(BENCH_BTREE)
        const absl::btree_set<Key> tree(keys.begin(), keys.end());
        table.time("btree_set", asked.size(), [&] {
            for (Key key : asked)
                keep(*tree.find(key));
        });
#endif
    }
    table.print("find, n " + std::to_string(n));
}

void disposal(std::size_t n) {
    Random random(n);
    Table table;
    const auto dispose = [](auto *record) { record->key = 0; };
    for (std::size_t round = 0; round < rounds_for(n); ++round) {
        std::vector<Key> keys = some_keys(n, random);
        const Herd<ovant::link> herd(keys, random);
        Plain set;
        herd.insert_into(set);
        table.time("100 at a time", n, [&] {
            while (set.dispose_some(100, dispose)) {
            }
        });
        random.shuffle(keys);
        const Herd<ovant::link> other(keys, random);
        other.insert_into(set);
        table.time("at once", n, [&] { set.clear_and_dispose(dispose); });
    }
    table.print("disposal, n " + std::to_string(n));
}

} // namespace

int main() {
    for (const std::size_t n : {1000u, 100000u, 1000000u})
        counts(n);
    for (const std::size_t m : {100u, 10000u, 1000000u})
        unions(1000000, m);
    for (const std::size_t n : {1000u, 10000u, 100000u, 1000000u, 4000000u})
        searches(n);
    for (const std::size_t n : {1000u, 1000000u})
        disposal(n);
}
