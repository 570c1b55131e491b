// Long random sequences of all operations, held against a list in tree order, with positions that live through them and
// a comparator that throws.
#include "typed.hpp"

// This program is linked with --wrap=malloc.
static bool in_operation; // of a tree: asks for no memory
extern "C" {
void *__real_malloc(std::size_t size);
void *__wrap_malloc(std::size_t size) {
    if (in_operation) {
        std::fputs("a tree operation asks for memory\n", stderr);
        std::abort();
    }
    return __real_malloc(size);
}
}
void *operator new(std::size_t size) { return std::malloc(size); }
void operator delete(void *block) noexcept { std::free(block); }
void operator delete(void *block, std::size_t) noexcept { std::free(block); }

namespace ovant::test {
namespace {

template <class Tree> class Model {
    static constexpr bool unique = is_set<Tree>;
    static constexpr int keys = unique ? 150 : 40;
    using It = typename Tree::iterator;
    using Typed = typename Tree::value_type;
    static Typed &typed(Node n) { return *static_cast<Typed *>(n); }
    struct Walker {
        It it;
        Node at; // 0 for the end
    };

public:
    explicit Model(unsigned seed) : random_(seed) { seat(true); }
    void run(int steps, std::size_t most) { // a tree of more records begins anew
        constexpr void (Model::*operations[])() = {
            &Model::insert,        &Model::insert, &Model::insert_hinted, &Model::insert_hinted,
            &Model::insert_before, &Model::erase,  &Model::take,          &Model::cut_at_positions,
            &Model::merge,         &Model::whole,  &Model::cut,           &Model::cut,
            &Model::many};
        for (int step = 0; step < steps && !::testing::Test::HasFailure(); step++) {
            const auto operation = random_() % (step % 200 < 80 ? 5 : std::size(operations));
            burns_ = step % 8 == 0;
            if (order_.size() > most) {
                tree_.clear();
                spare(leave(0, order_.size()));
                seat(true);
            }
            SCOPED_TRACE("step " + std::to_string(step) + ", operation " + std::to_string(operation));
            (this->*operations[operation])();
            expect_all();
        }
    }

private:
    // ---- The model: the nodes in order, the nodes in no tree

    int below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
    auto place(std::size_t i) { return order_.begin() + static_cast<std::ptrdiff_t>(i); }
    std::size_t index(Node n) {
        return static_cast<std::size_t>(std::find(order_.begin(), order_.end(), n) - place(0));
    }
    Node beside(Node n, int by) { // in the ring of all nodes and the end
        const std::size_t ring = order_.size() + 1, i = (index(n) + ring + static_cast<std::size_t>(by)) % ring;
        return i == order_.size() ? nullptr : order_[i];
    }
    Node fresh(int key) {
        if (spare_.empty())
            return host_.record(key);
        const Node n = spare_.back();
        spare_.pop_back();
        store(n, key_off, key);
        return n;
    }
    void put(std::size_t i, Node n) { order_.insert(place(i), n); }
    std::vector<Node> put_all(const std::vector<Node> &nodes) { // but for those whose keys a set has
        std::vector<Node> refused;
        for (Node n : nodes) {
            const EqualRun run = run_of(order_, key_of(n));
            unique &&run.front != run.back ? refused.push_back(n) : put(run.back, n);
        }
        return refused;
    }
    std::vector<Node> leave(std::size_t first, std::size_t last) {
        const std::vector<Node> nodes(place(first), place(last));
        order_.erase(place(first), place(last));
        return nodes;
    }
    void spare(const std::vector<Node> &nodes) { // whatever still reads a link fails
        for (Node n : nodes)
            spoil_link(n);
        spare_.insert(spare_.end(), nodes.begin(), nodes.end());
    }

    // An operation, now and then first with a comparator that throws at the first question, at the second one and so
    // on, until it comes through: before that it has changed nothing.  It never allocates.
    template <class F, class Verify> decltype(auto) call(F operation, Verify verify) {
        for (int n = burns_;; n++) {
            try {
                const struct Out {
                    ~Out() { in_operation = false, fuse = 0; }
                } out;
                in_operation = true, fuse = n;
                return operation();
            } catch (Burnt) {
                verify();
            }
        }
    }
    template <class F> decltype(auto) call(F operation) {
        return call(operation, [&, root = root_of(tree_), bytes = burns_ ? host_.bytes() : std::deque<Record>()] {
            EXPECT_TRUE(root_of(tree_) == root && host_ == bytes);
        });
    }

    // ---- Positions

    It position(std::size_t i) { return i == order_.size() ? tree_.end() : tree_.iterator_to(typed(order_[i])); }
    bool stands(const It &it, Node at) { return at ? &*it == at : it == tree_.end(); }
    Walker &any_walker() { return walkers_[random_() % std::size(walkers_)]; }

    void seat(bool all) { // those whose node has left
        for (Walker &w : walkers_)
            if (all || (w.at && index(w.at) == order_.size())) {
                w.it = below(3) ? position(random_() % (order_.size() + 1)) : tree_.begin();
                w.at = w.it == tree_.end() ? nullptr : &*w.it;
            }
    }
    void stroll(Walker &w) {
        if (below(2) && w.at) {
            EXPECT_TRUE(stands(call([&] { return w.it++; }), w.at));
            w.at = beside(w.at, 1);
        } else if (const Node near = beside(w.at, -1)) {
            EXPECT_TRUE(stands(call([&] { return w.it--; }), w.at));
            w.at = near;
        }
        EXPECT_TRUE(stands(w.it, w.at));
    }
    // What an operation has given back has its path: a walk from there compares nothing.
    void expect_path(const It &found, Node node) {
        seen.comparisons = 0;
        EXPECT_TRUE(stands(found, node));
        for (const int way : {+1, -1}) {
            Walker w{found, node};
            for (int i = 0; i < 6 && (way > 0 ? w.at : beside(w.at, -1)) && stands(w.it, w.at); i++) {
                way > 0 ? ++w.it : --w.it;
                w.at = beside(w.at, way);
            }
            EXPECT_TRUE(stands(w.it, w.at));
        }
        EXPECT_EQ(seen.comparisons, 0);
    }
    void expect_all() {
        height_ = expect_nodes(tree_, order_);
        std::vector<Node> visited;
        tree_.for_each([&](Typed &x) { visited.push_back(&x); });
        EXPECT_TRUE(nodes_of(tree_) == order_ && visited == order_);
        EXPECT_TRUE(std::equal(tree_.crbegin(), tree_.crend(), order_.rbegin(), order_.rend(),
                               [](const Typed &x, Node n) { return &x == n; }));
        auto back = tree_.rend();
        const std::size_t steps = random_() % (order_.size() + 1);
        for (std::size_t i = 0; i < steps; i++)
            EXPECT_EQ(&*--back, order_[i]);
        EXPECT_TRUE(back.base() == position(steps));
        seat(false);
        for (Walker &w : walkers_)
            stroll(w);
        any_walker() = any_walker();
        EXPECT_TRUE(order_.empty() ? tree_.rbegin() == tree_.rend() : &*tree_.rbegin() == order_.back());
        if constexpr (is_summed<Tree>)
            expect_ranks();
    }
    void expect_ranks() {
        const std::size_t i = random_() % (order_.size() + 1), j = random_() % (order_.size() + 1);
        const auto by = static_cast<std::ptrdiff_t>(j) - static_cast<std::ptrdiff_t>(i);
        Walker &w = any_walker();
        EXPECT_EQ(tree_.rank(w.it), index(w.at)); // size() for the end
        EXPECT_EQ(tree_.nth(j) - w.it, static_cast<std::ptrdiff_t>(j) - static_cast<std::ptrdiff_t>(index(w.at)));
        expect_path(tree_.nth(i) += by, j == order_.size() ? nullptr : order_[j]);
        EXPECT_TRUE(std::as_const(tree_).nth(i) + by == tree_.nth(j) && by + tree_.nth(i) == tree_.nth(j));
        EXPECT_TRUE(tree_.rend() - static_cast<std::ptrdiff_t>(j) ==
                    tree_.rbegin() + (tree_.rend() - tree_.rbegin() - static_cast<std::ptrdiff_t>(j)));
        EXPECT_EQ(tree_.size(), order_.size());
    }

    // ---- In

    void insert() {
        const Node n = fresh(below(keys));
        Typed &x = typed(n);
        const EqualRun run = run_of(order_, x.key());
        if constexpr (unique) {
            const Node old = run.front == run.back ? nullptr : order_[run.front];
            const int form = below(4);
            if (form == 0) {
                EXPECT_EQ(call([&] { return tree_.insert_or_replace(x); }), old);
                spare(leave(run.front, run.back));
                return put(run.front, n);
            }
            Typed *const offer = form == 1 ? nullptr : &x;
            const auto [it, inserted] = call(
                [&] { return form == 2 ? tree_.insert(x) : tree_.find_or_insert(x.key(), [&] { return offer; }); });
            EXPECT_TRUE(inserted == (!old && offer) && stands(it, old ? old : offer));
            inserted ? put(run.front, n) : spare({n});
        } else {
            const bool in_front = below(3) == 0;
            EXPECT_EQ(&*call([&] { return in_front ? tree_.insert_front(x) : tree_.insert(x); }), n);
            put(in_front ? run.front : run.back, n);
        }
    }
    void insert_hinted() { // with good hints and bad ones
        Walker &w = any_walker();
        const std::size_t at = index(w.at);
        const Node n = fresh(w.at && below(3) ? key_of(w.at) + below(3) - 1 : below(keys));
        const EqualRun run = run_of(order_, key_of(n));
        if (below(2))
            EXPECT_EQ(call([&] { return tree_.push(w.it, typed(n)); }), !unique || run.front == run.back);
        else
            w.it = call([&] { return tree_.insert(w.it, typed(n)); });
        if (unique && run.front != run.back) {
            spare({n});
            w.at = order_[run.front];
            EXPECT_TRUE(stands(w.it, w.at));
        } else {
            put(run.back, w.at = n);
            EXPECT_TRUE(stands(w.it, n));
            if (run.back == at || run.back == at + 1)
                expect_path(w.it, n);
        }
    }
    void insert_before() {
        Walker &w = any_walker();
        const std::size_t at = index(w.at);
        const int least = at == 0 ? 0 : key_of(order_[at - 1]) + unique, most = w.at ? key_of(w.at) - unique : keys;
        if (least > most)
            return;
        Typed &x = typed(fresh(least + below(most - least + 1)));
        w.it = call([&] {
            return !w.at ? tree_.push_back(x) : at == 0 ? tree_.push_front(x) : tree_.insert_before(w.it, x);
        });
        put(at, w.at = &x);
        expect_path(w.it, w.at);
    }

    // ---- Out

    void erase() { // some in a row
        Walker &w = any_walker();
        for (int i = below(5); i >= 0 && w.at; i--) {
            const std::size_t at = index(w.at);
            if (below(2))
                EXPECT_EQ(call([&] { return tree_.pop(w.it); }), w.at);
            else
                w.it = call([&] { return tree_.erase(w.it); });
            w.at = beside(w.at, 1);
            spare(leave(at, at + 1));
            expect_path(w.it, w.at);
        }
    }
    void take() {
        if (order_.empty()) {
            EXPECT_TRUE(!tree_.pop_front() && !tree_.pop_back() && !tree_.extract(1) && !tree_.erase(1));
            return;
        }
        const Node x = order_[random_() % order_.size()], next = beside(x, 1);
        const EqualRun run = run_of(order_, key_of(x));
        const int form = below(7);
        if (form == 0) {
            EXPECT_EQ(call([&] { return tree_.erase(key_of(x)); }), run.back - run.front);
            return spare(leave(run.front, run.back));
        }
        It behind = tree_.end();
        const Node taken = call([&] {
            return form == 1   ? (behind = tree_.erase(typed(x)), &typed(x))
                   : form == 2 ? tree_.extract(typed(x))
                   : form == 3 ? tree_.extract(tree_.iterator_to(typed(x)))
                   : form == 4 ? tree_.extract(key_of(x))
                   : form == 5 ? tree_.pop_front()
                               : tree_.pop_back();
        });
        const std::size_t at = index(taken);
        EXPECT_TRUE(form == 4   ? run.front <= at && at < run.back
                    : form == 5 ? at == 0
                    : form == 6 ? at + 1 == order_.size()
                                : taken == x);
        spare(leave(at, at + 1));
        if (form == 1)
            expect_path(behind, next);
    }

    // ---- Intervals, and trees joined

    // A part that has left stays away, or comes back as it left or record by record.
    void rejoin(Tree part, std::size_t at, const std::vector<Node> &nodes) {
        expect_nodes(part, nodes);
        const int form = below(4);
        if (form == 0 || (form == 1 && at != 0 && at != order_.size()))
            return spare(nodes);
        if (form > 1) {
            merge(part, nodes);
        } else {
            at == 0 ? tree_.prepend(std::move(part)) : tree_.append(std::move(part));
            order_.insert(place(at), nodes.begin(), nodes.end());
        }
    }
    void cut() {
        const int key = below(keys), other_key = key + below(20) - 3;
        with_gap(below(gap_kinds), order_, key, [&](const auto &first, std::size_t begin) {
            with_gap(below(gap_kinds), order_, other_key, [&](const auto &last, std::size_t other) {
                const std::size_t end = std::max(begin, other);
                const std::vector<Node> inner(place(begin), place(end));
                const auto between = tree_.between(first, last);
                EXPECT_TRUE(nodes_of(between) == inner);
                EXPECT_EQ(between.empty(), inner.empty());
                EXPECT_EQ(tree_.count(first, last), inner.size());
                if constexpr (is_summed<Tree>)
                    expect_sums(first, begin, last, inner);
                if (below(3) == 0) {
                    std::size_t ended = 0;
                    const auto end_it = [&](Typed *x) { ended++, spoil_link(x); };
                    call([&] { tree_.erase(first, last, end_it); });
                    EXPECT_EQ(ended, inner.size());
                    return spare(leave(begin, end));
                }
                seen.comparisons = 0;
                const auto bytes = inner.empty() ? host_.bytes() : std::deque<Record>();
                Tree part = call([&] { return tree_.extract(first, last); });
                EXPECT_TRUE(burns_ || seen.comparisons <= 2 * height_);
                EXPECT_TRUE(!inner.empty() || host_ == bytes);
                rejoin(std::move(part), begin, leave(begin, end));
            });
        });
    }
    template <class First, class Last>
    void expect_sums(const First &first, std::size_t begin, const Last &last, const std::vector<Node> &inner) {
        using Summary = decltype(tree_.summary());
        EXPECT_EQ(tree_.rank(first), begin);
        EXPECT_TRUE(tree_.fold(first, last) == static_cast<Summary>(digest_of(inner)));
        const auto never = [](const Summary &) { return false; };
        const auto all = [&](const Summary &sum) { // of as many as are between, from the first one on
            const std::vector<Node> some(place(begin), place(begin + std::size_t{sum}));
            EXPECT_TRUE(sum == static_cast<Summary>(digest_of(some)));
            return sum >= inner.size();
        };
        EXPECT_TRUE(tree_.first_passing(first, never) == tree_.end());
        EXPECT_TRUE(tree_.first_passing(tree_.begin(), never) == tree_.end());
        EXPECT_TRUE(inner.empty() || &*tree_.first_passing(first, all) == inner.back());
    }
    void cut_at_positions() {
        const std::size_t begin = random_() % (order_.size() + 1),
                          end = begin + random_() % (order_.size() - begin + 1);
        It first = position(begin), last = position(end);
        if (below(2) && begin != end) // with paths
            ++first, --first, --last, ++last;
        if (below(2)) {
            EXPECT_EQ(call([&] { return tree_.erase(first, last); }), position(end));
            spare(leave(begin, end));
        } else {
            rejoin(call([&] { return tree_.extract(first, last); }), begin, leave(begin, end));
        }
    }
    std::vector<Node> some() { // in order
        std::vector<Node> nodes;
        for (int i = below(12), key = below(keys); i > 0; i--)
            nodes.push_back(fresh(key += unique + below(4)));
        return nodes;
    }
    void merge() {
        const std::vector<Node> others = some();
        Tree other;
        other.assign_sorted(records<Typed>(others));
        merge(other, others);
    }
    void merge(Tree &other, const std::vector<Node> &others) {
        call([&] { tree_.merge(other); }, [&] { // each record is in one tree or the other
            const std::vector<Node> here = nodes_of(tree_), there = nodes_of(other);
            expect_nodes(tree_, here);
            expect_nodes(other, there);
            EXPECT_EQ(here.size() + there.size(), order_.size() + others.size());
        });
        const std::vector<Node> refused = put_all(others);
        expect_nodes(other, refused);
        other.clear();
        spare(refused);
    }

    // ---- Many in order
    void many() {
        if (below(2)) {
            const std::vector<Node> others = some();
            std::vector<Node> refused;
            const auto in = tree_.insert_sorted(records<Typed>(others), [&](Typed &x) { refused.push_back(&x); });
            EXPECT_TRUE(refused == put_all(others) && in == others.size() - refused.size());
            return spare(refused);
        }
        std::vector<int> gone;
        for (int i = below(6), key = below(keys); i > 0; i--)
            gone.push_back(key += below(9));
        std::vector<Node> left, expected;
        for (const int key : gone) {
            const EqualRun run = run_of(order_, key);
            const std::vector<Node> nodes = leave(run.front, run.back);
            expected.insert(expected.end(), nodes.begin(), nodes.end());
        }
        EXPECT_EQ(tree_.erase_sorted(gone, [&](Typed *x) { left.push_back(x); }), expected.size());
        EXPECT_TRUE(left == expected);
        spare(left);
    }

    // ---- Whole trees

    void whole() {
        const int form = below(20);
        if (form < 2) {
            tree_.assign_sorted(records<Typed>(order_));
        } else if (form < 4) {
            const Tree original = std::exchange(tree_, Tree());
            EXPECT_TRUE(tree_.clone_from(original, [&](const Typed &x) { return &typed(fresh(x.key())); }));
            const std::vector<Node> originals = std::exchange(order_, nodes_of(tree_));
            const auto same = [](Node a, Node b) {
                return a != b && key_of(a) == key_of(b) && link_of(a).Balance == link_of(b).Balance;
            };
            EXPECT_TRUE(std::ranges::equal(order_, originals, same)) << "the same shape";
            spare(originals);
        } else if (form < 6) {
            Tree moved = std::move(tree_), empty;
            swap(moved, empty);
            tree_ = std::move(empty);
        } else if (form < 8) {
            tree_.adopt(tree_.release());
        } else if (form == 8) {
            std::vector<Node> gone;
            const std::size_t most = random_() % (2 * order_.size() + 1);
            const bool left = tree_.dispose_some(most, [&](Typed *x) { gone.push_back(x); });
            EXPECT_TRUE(gone == leave(0, std::min(most, order_.size())) && left == !order_.empty());
            spare(gone);
        }
        seat(form <= 8);
    }

    Host host_;
    std::mt19937 random_;
    int burns_ = 0, height_ = 0;
    Tree tree_;
    std::vector<Node> order_, spare_;
    Walker walkers_[5];
};

template <class Tree> struct RandomSequences : ::testing::Test {};
TYPED_TEST_SUITE(RandomSequences, Trees);
TYPED_TEST(RandomSequences, AgreeWithAList) {
    for (unsigned seed = 1; seed <= 3; seed++)
        Model<TypeParam>(seed).run(3000, 1000);
    Model<TypeParam>(4).run(6000, 10);
}

} // namespace
} // namespace ovant::test
