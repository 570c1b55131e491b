// What OVANT_CHECKS catches.
#include "typed.hpp"

namespace ovant::test {
namespace {

struct Scene {
    Host host;
    Set<ThreeWay> tree, other;
    Multiset<ThreeWay> many;
    SummedSet<Predicate> counted;
    std::vector<Node> nodes;

    Scene() {
        for (int key = 0; key < 100; key += 10)
            nodes.push_back(host.record(key));
        for (std::size_t i = 1; i < 5; i++)
            tree.insert(typed(nodes[i]));
        other.insert(typed(nodes[5]));
        many.insert(typed(nodes[6]));
        counted.insert(*static_cast<Summed *>(nodes[9]));
    }
    Typed &at(std::size_t i) { return typed(nodes[i]); }
    std::vector<Typed *> falling() { return {&at(8), &at(7)}; }
};

TEST(WrongUse, EndsTheProcessWithAWord) {
    constexpr const char *twice = "the record is in the tree already",
                         *foreign = "the position belongs to another tree",
                         *misplaced = "the record does not belong in front of the position",
                         *nothing = "there is no record at the end of a tree",
                         *joined = "trees are joined out of order";
    const struct {
        void (*wrong)(Scene &);
        const char *word;
    } rows[] = {
        {[](Scene &s) { s.tree.insert(s.at(2)); }, twice},
        {[](Scene &s) { s.tree.insert(s.tree.end(), s.at(4)); }, twice},
        {[](Scene &s) { s.tree.insert_or_replace(s.at(2)); }, twice},
        {[](Scene &s) { s.tree.find_or_insert(15, [&] { return &s.at(2); }); }, twice},
        {[](Scene &s) { s.many.insert(s.at(6)); }, twice},
        {[](Scene &s) { s.many.push_back(s.at(6)); }, twice},
        {[](Scene &s) { s.many.insert(s.many.end(), s.at(6)); }, twice},
        {[](Scene &s) { s.many.insert_sorted(std::vector{&s.at(6)}); }, twice},
        {[](Scene &s) { s.tree.erase(s.other.begin()); }, foreign},
        {[](Scene &s) { s.tree.insert(s.other.end(), s.at(7)); }, foreign},
        {[](Scene &s) { s.tree.insert_before(s.other.end(), s.at(7)); }, foreign},
        {[](Scene &s) { s.tree.erase(s.tree.begin(), s.other.end()); }, foreign},
        {[](Scene &s) { s.tree.erase(s.other.end(), s.tree.end()); }, foreign},
        {[](Scene &s) { std::exit(s.tree.begin() == s.other.begin()); }, "positions of two trees are compared"},
        {[](Scene &s) { ++s.tree.iterator_to(s.at(5)); }, "the record of a position is not in its tree"},
        {[](Scene &s) { s.tree.insert_before(s.tree.find(20), s.at(3 + 4)); }, misplaced},
        {[](Scene &s) { s.tree.insert_before(s.tree.find(20), s.at(0)); }, misplaced},
        {[](Scene &s) { s.tree.push_back(s.at(0)); }, misplaced},
        {[](Scene &s) { s.tree.push_front(s.at(7)); }, misplaced},
        {[](Scene &s) { std::exit((*s.tree.end()).key()); }, nothing},
        {[](Scene &s) { s.tree.erase(s.tree.end()); }, nothing},
        {[](Scene &s) { std::exit(Set<ThreeWay>().front().key() + s.tree.front().key()); },
         "there is no record in an empty tree"},
        {[](Scene &s) { s.other.append(std::move(s.tree)); }, joined},
        {[](Scene &s) { s.tree.prepend(std::move(s.other)); }, joined},
        {[](Scene &s) { s.tree.assign_sorted(s.falling()); }, "assign_sorted was given records out of order"},
        {[](Scene &s) { s.tree.insert_sorted(s.falling()); }, "insert_sorted was given records out of order"},
        {[](Scene &s) { s.tree.find_or_insert(15, [&] { return &s.at(8); }); },
         "the record that was made has another key than the one asked for"},
        {[](Scene &s) { s.counted.find_or_insert(85, [&] { return static_cast<Summed *>(s.nodes[8]); }); },
         "the record that was made has another key than the one asked for"},
        {[](Scene &s) { s.counted.begin() += 2; }, "a position goes beyond the end of its tree"},
        {[](Scene &s) { s.counted.nth(2); }, "there is no record of this rank"},
        {[](Scene &s) { s.counted.rank(*static_cast<Summed *>(s.nodes[8])); },
         "the record of a position is not in its tree"},
        {[](Scene &s) { s.counted.refresh(*static_cast<Summed *>(s.nodes[8])); }, "the record is not in the tree"},
        {[](Scene &s) { s.tree.adopt(s.other.release()); }, "a tree that adopts a root must be empty"},
    };
    for (const auto &[wrong, word] : rows) {
        Scene scene;
        EXPECT_EXIT(wrong(scene), ::testing::KilledBySignal(SIGABRT), word);
    }
}

TEST(WrongUse, IsNotSeenInRightUse) {
    Scene scene;
    const Set<ThreeWay>::iterator nowhere;
    EXPECT_TRUE(nowhere == Set<ThreeWay>::iterator() && nowhere != scene.tree.begin() && scene.tree.begin() != nowhere);
    EXPECT_TRUE(((scene.counted.begin() += 0) += 1) == scene.counted.end());
    EXPECT_EQ(scene.tree.insert_sorted(std::vector{&scene.at(6), &scene.at(7), &scene.at(8)}), 3u);
    for (int i = 0; i < 200; i++) // equals, of which the first hundred are looked at
        scene.many.insert(typed(scene.host.record(60)));
    seen.comparisons = 0;
    scene.many.insert(typed(scene.host.record(60)));
    EXPECT_LT(seen.comparisons, 130);
    EXPECT_EQ(scene.many.count(60), 202u);
}

} // namespace
} // namespace ovant::test
