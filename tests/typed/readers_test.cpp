// Readers in several threads on one tree, with no lock.
#include "ovant.hpp"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace {

struct Record {
    int key;
    ovant::link link;
};
using Tree = ovant::multiset<&Record::link, &Record::key>;
constexpr int keys = 200, run = 3;

bool reads_right(const Tree &tree, Tree::const_iterator somewhere, int key) {
    const auto range = tree.between(ovant::before(key), ovant::after(key + 4));
    int walked = 0, back = 0, all = 0;
    for (const Record &r : range)
        walked += r.key - key;
    for (auto it = range.end(); it != range.begin();)
        back += (--it)->key - key;
    tree.for_each([&](const Record &) { all++; });
    return tree.find(key)->key == key && tree.contains(key) && tree.count(key) == run && tree.holds(*tree.find(key)) &&
           tree.lower_bound(key)->key == key && walked == 10 * run && back == walked && all == keys * run &&
           (--somewhere)->key <= keys / 2 && tree.begin()->key == 0 && tree.rbegin()->key == keys - 1;
}

TEST(Readers, NeedNoLock) {
    std::vector<Record> records(keys * run);
    Tree tree;
    for (int i = 0; i < keys * run; i++) {
        records[static_cast<std::size_t>(i)].key = i % keys;
        tree.insert(records[static_cast<std::size_t>(i)]);
    }
    const Tree::const_iterator shared = tree.find(keys / 2);
    std::atomic<int> wrong = 0;
    std::vector<std::thread> readers;
    for (int thread = 0; thread < 4; thread++)
        readers.emplace_back([&, thread] {
            for (int i = thread; i < keys - 4; i += 3)
                wrong += !reads_right(tree, shared, i);
        });
    for (std::thread &reader : readers)
        reader.join();
    EXPECT_EQ(wrong, 0);
}

} // namespace
