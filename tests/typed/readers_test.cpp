// Readers in several threads on one tree, with no lock.
#include "ovant.hpp"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

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
    return tree.find(key)->key == key && tree.count(key) == run && tree.holds(*tree.lower_bound(key)) &&
           walked == 10 * run && back == walked && all == keys * run && (--somewhere)->key <= keys / 2 &&
           tree.begin()->key == 0 && tree.rbegin()->key == keys - 1;
}

TEST(Readers, NeedNoLock) {
    static Record records[keys * run];
    Tree tree;
    for (Record &record : records) {
        record.key = static_cast<int>(&record - records) % keys;
        tree.insert(record);
    }
    const Tree::const_iterator shared = tree.find(keys / 2);
    std::atomic<int> wrong = 0;
    const auto read = [&](int first) {
        for (int key = first; key < keys - 4; key += 3)
            wrong += !reads_right(tree, shared, key);
    };
    std::thread readers[] = {std::thread(read, 0), std::thread(read, 1), std::thread(read, 1), std::thread(read, 2)};
    for (std::thread &reader : readers)
        reader.join();
    EXPECT_EQ(wrong, 0);
}

} // namespace
