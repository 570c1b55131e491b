// A comparator, or a comparator's copy, that throws at its n-th call, for every n: nothing has changed.
#include "typed.hpp"

namespace ovant::test {
namespace {

template <class Tree> struct Stage {
    Host host;
    Sapling first{host, leaning_shape(5, -1), {is_set<Tree> ? 1 : 3}}, second{host, full_shape(3), {1, 20, 5}};
    std::vector<Node> spare{host.record(35), host.record(40)};
    Tree tree, other;
    typename Tree::iterator it, last; // without paths
    Node at = nullptr;
    const int key = 40;

    void set() {
        fuse = 0;
        tree.clear();
        other.clear();
        tree.adopt(static_cast<Typed *>(first.restore()));
        other.adopt(static_cast<Typed *>(second.restore()));
        it = tree.find(key);
        at = &*it;
        last = tree.iterator_to(typed(first.order[first.order.size() - 2]));
    }
    Typed &absent() { return typed(spare[0]); }
    Typed &present() { return typed(spare[1]); }
};
template <class Tree> using Operation = void (*)(Stage<Tree> &);

// Runs the operation with each fuse until it comes through; unchanged() is asked after each time that it did not.
template <class Tree, class Unchanged>
void burn_through(Stage<Tree> &stage, Operation<Tree> operation, Unchanged unchanged) {
    for (int n = 1;; n++) {
        ASSERT_LT(n, 1000) << "it never comes through";
        stage.set();
        const auto bytes = stage.host.bytes();
        try {
            fuse = n;
            operation(stage);
            fuse = 0;
            EXPECT_GT(n, 1) << "it compares nothing";
            return;
        } catch (Burnt) {
            unchanged(bytes);
        }
    }
}
std::vector<Node> sorted(std::vector<Node> nodes) {
    std::sort(nodes.begin(), nodes.end(), std::less<>());
    return nodes;
}

template <class Tree> struct Throwing : ::testing::Test {};
TYPED_TEST_SUITE(Throwing, Trees);

TYPED_TEST(Throwing, LeavesEverythingAsItWas) {
    using S = Stage<TypeParam>;
    std::vector<Operation<TypeParam>> operations = {
        [](S &s) { s.tree.find(s.key); },
        [](S &s) { s.tree.lower_bound(s.key); },
        [](S &s) { s.tree.equal_range(s.key); },
        [](S &s) { s.tree.count(s.key); },
        [](S &s) { s.tree.contains(typed(s.first.order[4])); },
        [](S &s) { s.tree.count(before(s.key), finish); },
        [](S &s) { s.tree.check(); },
        [](S &s) { ++s.it; },
        [](S &s) { --s.it; },
        [](S &s) { s.it++; },
        [](S &s) { s.tree.insert(s.absent()); },
        [](S &s) { s.tree.insert(s.present()); },
        [](S &s) { s.tree.insert(s.it, s.absent()); },
        [](S &s) { s.tree.insert(s.it, s.present()); },
        [](S &s) { s.tree.insert(s.last, s.absent()); },
        [](S &s) { s.tree.insert_before(s.it, s.absent()); },
        [](S &s) { s.tree.erase(s.it); },
        [](S &s) { s.tree.erase(*s.it); },
        [](S &s) { s.tree.erase(s.key); },
        [](S &s) { s.tree.erase(s.it, s.last); },
        [](S &s) { s.tree.erase(before(s.key), after(s.key)); },
        [](S &s) { s.tree.extract(s.it); },
        [](S &s) { s.tree.extract(s.key); },
        [](S &s) { s.tree.extract(start, after(s.key)); },
        [](S &s) { s.tree.extract(before(s.key), before(60)); },
        [](S &s) { s.tree.extract(s.it, s.tree.end()); },
        [](S &s) { s.tree.split(before(s.key)); },
    };
    if constexpr (is_set<TypeParam>) {
        operations.push_back([](S &s) { s.tree.insert_or_replace(s.absent()); });
        operations.push_back([](S &s) { s.tree.insert_or_replace(s.present()); });
        operations.push_back([](S &s) { s.tree.find_or_insert(35, [&] { return &s.absent(); }); });
    } else {
        operations.push_back([](S &s) { s.tree.insert_front(s.present()); });
    }
    S stage;
    for (std::size_t i = 0; i < operations.size(); i++) {
        SCOPED_TRACE("operation " + std::to_string(i));
        burn_through(stage, operations[i], [&](const auto &bytes) {
            EXPECT_TRUE(stage.host == bytes);
            expect_order(stage.tree, stage.first.order);
            std::vector<Node> rest;
            for (auto it = stage.it; it != stage.tree.end(); ++it)
                rest.push_back(&*it);
            const auto from = std::find(stage.first.order.begin(), stage.first.order.end(), stage.at);
            EXPECT_TRUE(rest == std::vector<Node>(from, stage.first.order.end()));
        });
    }
}

TYPED_TEST(Throwing, AMergeLeavesEachRecordInOneTree) {
    Stage<TypeParam> stage;
    std::vector<Node> all = stage.first.order;
    all.insert(all.end(), stage.second.order.begin(), stage.second.order.end());
    burn_through<TypeParam>(
        stage, [](auto &s) { s.tree.merge(s.other); },
        [&](const auto &) {
            std::vector<Node> nodes = nodes_of(stage.tree), others = nodes_of(stage.other);
            expect_order(stage.tree, nodes);
            expect_order(stage.other, others);
            nodes.insert(nodes.end(), others.begin(), others.end());
            EXPECT_TRUE(sorted(nodes) == sorted(all));
        });
}

TYPED_TEST(Throwing, ACloneIsAllOrNothing) {
    Stage<TypeParam> stage;
    for (const bool throws : {true, false})
        for (std::size_t n = 0; n <= stage.first.order.size(); n++) {
            stage.set();
            const auto bytes = stage.host.bytes();
            Host nursery;
            std::vector<Node> made, disposed;
            const auto clone = [&](const Typed &x) -> Typed * {
                if (made.size() == n && throws)
                    throw Burnt();
                return made.size() == n ? nullptr : &typed(made.emplace_back(nursery.record(x.key())));
            };
            const auto dispose = [&](Typed *x) {
                disposed.push_back(x);
                spoil_link(x);
            };
            bool done = false;
            try {
                done = stage.other.clone_from(stage.tree, clone, dispose);
            } catch (Burnt) {
            }
            EXPECT_EQ(done, n == stage.first.order.size());
            EXPECT_TRUE(sorted(disposed) == sorted(done ? stage.second.order : made));
            EXPECT_TRUE(done || stage.host == bytes);
            expect_order(stage.other, done ? nodes_of(stage.other) : stage.second.order);
            EXPECT_TRUE(!done || keys_of(nodes_of(stage.other)) == keys_of(stage.first.order));
        }
}

} // namespace
} // namespace ovant::test
