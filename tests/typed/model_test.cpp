// Long random sequences of all operations, held against a list in tree order, with positions that live through them.
#include "typed.hpp"

namespace ovant::test {
namespace {

template <class Tree> class Model {
    static constexpr bool unique = is_set<Tree>;
    static constexpr int keys_used = unique ? 150 : 40;
    using It = typename Tree::iterator;

    // A position each way, with the node that it is at; 0 for the end.
    struct Walker {
        It it;
        Node at;
        typename Tree::reverse_iterator back;
        Node back_at;
    };

public:
    explicit Model(unsigned seed) : random_(seed) {
        for (Walker &w : walkers_)
            seat(w);
    }
    void run(int steps) {
        constexpr void (Model::*operations[])() = {
            &Model::insert,        &Model::insert,           &Model::replace, &Model::insert_hinted,
            &Model::insert_hinted, &Model::insert_before,    &Model::erase,   &Model::take,
            &Model::cut,           &Model::cut_at_positions, &Model::merge,   &Model::whole};
        for (int step = 0; step < steps && !::testing::Test::HasFailure(); step++) {
            const int operation = below(step % 200 < 80 ? 6 : 12);
            SCOPED_TRACE("step " + std::to_string(step) + ", operation " + std::to_string(operation));
            (this->*operations[operation])();
            expect_all();
        }
    }

private:
    int below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
    Walker &any_walker() { return walkers_[random_() % std::size(walkers_)]; }
    auto place(std::size_t i) { return order_.begin() + static_cast<std::ptrdiff_t>(i); }
    std::size_t index(Node n) {
        return static_cast<std::size_t>(std::find(order_.begin(), order_.end(), n) - place(0));
    }
    // In the ring of all nodes and the end.
    Node beside(Node n, std::ptrdiff_t by) {
        const auto size = static_cast<std::ptrdiff_t>(order_.size());
        const auto i = static_cast<std::size_t>((static_cast<std::ptrdiff_t>(index(n)) + by + size + 1) % (size + 1));
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
    void gone(Node n) { // whatever still reads the link fails
        spoil_link(n);
        spare_.push_back(n);
    }
    void gone(const std::vector<Node> &nodes) {
        for (Node n : nodes)
            gone(n);
    }
    Node remove(Node n) {
        order_.erase(place(index(n)));
        gone(n);
        return n;
    }
    std::vector<Node> remove(std::size_t first, std::size_t last) {
        const std::vector<Node> nodes(place(first), place(last));
        order_.erase(place(first), place(last));
        return nodes;
    }

    // ---- Positions

    void seat(Walker &w) {
        const Node n = order_.empty() ? nullptr : order_[random_() % order_.size()];
        const int form = n ? below(4) : 0;
        w.it = form == 0   ? tree_.end()
               : form == 1 ? tree_.iterator_to(typed(n))
               : form == 2 ? tree_.find(key_of(n))
                           : tree_.begin();
        w.at = form == 0 ? nullptr : &*w.it;
        w.back = below(2) ? tree_.rbegin() : tree_.rend();
        w.back_at = w.back == tree_.rend() ? nullptr : order_.back();
    }
    void seat_all() {
        for (Walker &w : walkers_)
            seat(w);
    }
    template <class Position> void stroll(Position &it, Node &at, int way) {
        if (below(2) && at) {
            below(2) ? ++it : (it++, it);
            at = beside(at, way);
        } else if (const Node near = beside(at, -way)) {
            below(2) ? --it : (it--, it);
            at = near;
        }
        EXPECT_TRUE(!at || &*it == at);
    }
    // A position that an operation has given back stands at the node and has its path: a walk from there compares
    // nothing.
    void expect_path(const It &position, Node at) {
        seen.comparisons = 0;
        EXPECT_TRUE(at ? &*position == at : position == tree_.end());
        for (const int way : {+1, -1}) {
            It it = position;
            Node n = at;
            for (int i = 0; i < 6 && (way > 0 ? n : beside(n, -1)) && !::testing::Test::HasFailure(); i++) {
                way > 0 ? ++it : --it;
                n = beside(n, way);
                EXPECT_TRUE(n ? &*it == n : it == tree_.end());
            }
        }
        EXPECT_EQ(seen.comparisons, 0);
    }
    void expect_all() {
        expect_order(tree_, order_);
        std::vector<Node> backward, visited;
        for (auto it = tree_.crbegin(); it != tree_.crend(); ++it)
            backward.insert(backward.begin(), const_cast<Typed *>(&*it));
        tree_.for_each([&](Typed &x) { visited.push_back(&x); });
        EXPECT_TRUE(nodes_of(tree_) == order_ && visited == order_ && backward == order_);
        for (Walker &w : walkers_) {
            if ((w.at && index(w.at) == order_.size()) || (w.back_at && index(w.back_at) == order_.size()))
                seat(w);
            stroll(w.it, w.at, +1);
            stroll(w.back, w.back_at, -1);
            const Node base = w.back_at ? beside(w.back_at, 1) : beside(nullptr, 1);
            EXPECT_TRUE(base ? &*w.back.base() == base : w.back.base() == tree_.end());
        }
        if (below(4) == 0)
            any_walker() = any_walker();
    }

    // ---- In

    void insert() {
        const Node x = fresh(below(keys_used));
        const EqualRun run = run_of(order_, key_of(x));
        if constexpr (unique) {
            const auto [it, inserted] = tree_.insert(typed(x));
            EXPECT_EQ(inserted, run.front == run.back);
            EXPECT_EQ(&*it, inserted ? x : order_[run.front]);
            inserted ? void(order_.insert(place(run.front), x)) : gone(x);
        } else {
            const bool in_front = below(3) == 0;
            EXPECT_EQ(&*(in_front ? tree_.insert_front(typed(x)) : tree_.insert(typed(x))), x);
            order_.insert(place(in_front ? run.front : run.back), x);
        }
    }
    void replace() {
        if constexpr (unique) {
            const Node x = fresh(below(keys_used));
            const EqualRun run = run_of(order_, key_of(x));
            const Node old = run.front == run.back ? nullptr : order_[run.front];
            const int form = below(3);
            if (form == 0) {
                EXPECT_EQ(tree_.insert_or_replace(typed(x)), old);
                old ? void(*place(run.front) = x) : void(order_.insert(place(run.front), x));
                if (old)
                    gone(old);
                return;
            }
            Typed *const offer = form == 1 ? &typed(x) : nullptr;
            const auto [it, inserted] = tree_.find_or_insert(key_of(x), [&] {
                EXPECT_FALSE(old);
                return offer;
            });
            EXPECT_EQ(inserted, !old && offer);
            EXPECT_TRUE(old || offer ? &*it == (old ? old : x) : it == tree_.end());
            inserted ? void(order_.insert(place(run.front), x)) : gone(x);
        }
    }
    void insert_hinted() {
        Walker &w = any_walker();
        const std::size_t at = index(w.at);
        const Node x = fresh(w.at && below(3) ? key_of(w.at) + below(3) - 1 : below(keys_used));
        const EqualRun run = run_of(order_, key_of(x));
        w.it = tree_.insert(w.it, typed(x));
        if (unique && run.front != run.back) {
            w.at = order_[run.front];
            EXPECT_EQ(&*w.it, w.at);
            return gone(x);
        }
        const bool beside_hint = at == run.back || at + 1 == run.back; // behind its equals, whatever the hint
        order_.insert(place(run.back), x);
        w.at = x;
        EXPECT_EQ(&*w.it, x);
        if (beside_hint)
            expect_path(w.it, x);
    }
    void insert_before() {
        Walker &w = any_walker();
        const std::size_t at = index(w.at);
        const int least = at == 0 ? 0 : key_of(order_[at - 1]) + unique;
        const int most = w.at ? key_of(w.at) - unique : keys_used;
        if (least > most)
            return;
        const Node x = fresh(least + below(most - least + 1));
        w.it = !w.at && below(2)     ? tree_.push_back(typed(x))
               : at == 0 && below(2) ? tree_.push_front(typed(x))
                                     : tree_.insert_before(w.it, typed(x));
        order_.insert(place(at), x);
        w.at = x;
        expect_path(w.it, x);
    }

    // ---- Out

    void erase() { // some in a row
        Walker &w = any_walker();
        for (int i = below(5); i >= 0 && w.at; i--) {
            const Node x = w.at;
            w.at = beside(x, 1);
            w.it = below(2) ? tree_.erase(w.it) : tree_.erase(typename Tree::const_iterator(w.it));
            remove(x);
            expect_path(w.it, w.at);
        }
    }
    void take() {
        if (order_.empty()) {
            EXPECT_TRUE(!tree_.pop_front() && !tree_.pop_back() && !tree_.extract(1) && tree_.erase(1) == 0);
            return;
        }
        const Node x = order_[random_() % order_.size()], next = beside(x, 1);
        const EqualRun run = run_of(order_, key_of(x));
        const int form = below(7);
        if (form == 0) {
            EXPECT_EQ(tree_.erase(key_of(x)), run.back - run.front);
            return gone(remove(run.front, run.back));
        }
        if (form == 1) {
            const It it = tree_.erase(typed(x));
            remove(x);
            return expect_path(it, next);
        }
        const Node taken = form == 2   ? tree_.extract(typed(x))
                           : form == 3 ? tree_.extract(tree_.iterator_to(typed(x)))
                           : form == 4 ? tree_.extract(key_of(x))
                           : form == 5 ? tree_.pop_front()
                                       : tree_.pop_back();
        const std::size_t at = index(taken);
        EXPECT_TRUE(form == 5   ? at == 0
                    : form == 6 ? at + 1 == order_.size()
                    : form == 4 ? run.front <= at && at < run.back
                                : taken == x);
        remove(taken);
    }

    // ---- Intervals, and trees joined

    // A part that has left goes, or comes back as it left or record by record.
    void rejoin(Tree part, std::size_t at, const std::vector<Node> &nodes) {
        expect_order(part, nodes);
        const bool last = at == order_.size(), first = at == 0;
        switch (below(4)) {
        case 0:
            if (!last && !first)
                return gone(nodes);
            last ? tree_.append(std::move(part)) : tree_.prepend(std::move(part));
            order_.insert(place(at), nodes.begin(), nodes.end());
            break;
        case 1:
            gone(nodes);
            return;
        default:
            tree_.merge(part);
            for (Node n : nodes)
                order_.insert(place(run_of(order_, key_of(n)).back), n);
        }
        EXPECT_TRUE(part.empty());
    }
    void cut() {
        const int first_kind = below(5), second_kind = below(5), first_key = below(keys_used);
        const int second_key = first_key + below(20) - 3;
        int kind = 0;
        for_all_gaps(order_, first_key, true, [&](const auto &first, std::size_t begin) {
            if (kind++ != first_kind)
                return;
            int other_kind = 0;
            for_all_gaps(order_, second_key, true, [&](const auto &second, std::size_t end) {
                if (other_kind++ == second_kind)
                    cut(first, begin, second, std::max(begin, end));
            });
        });
    }
    template <class First, class Second>
    void cut(const First &first, std::size_t begin, const Second &second, std::size_t end) {
        EXPECT_TRUE(nodes_of(tree_.between(first, second)) == std::vector<Node>(place(begin), place(end)));
        EXPECT_EQ(tree_.count(first, second), end - begin);
        if (below(4) == 0) {
            std::size_t disposed = 0;
            tree_.erase(first, second, [&](Typed *) { disposed++; });
            EXPECT_EQ(disposed, end - begin);
            gone(remove(begin, end));
        } else {
            Tree part = tree_.extract(first, second);
            const std::vector<Node> nodes = remove(begin, end);
            rejoin(std::move(part), begin, nodes);
        }
    }
    void cut_at_positions() {
        const std::size_t size = order_.size(), begin = random_() % (size + 1);
        const std::size_t end = begin + random_() % (size - begin + 1);
        const auto position = [&](std::size_t i) {
            return i == size ? tree_.end() : tree_.iterator_to(typed(order_[i]));
        };
        It first = position(begin), last = position(end);
        if (below(2) && begin != end) // with a path
            ++first, --first, --last, ++last;
        if (below(2)) {
            const It it = tree_.erase(first, last);
            EXPECT_EQ(it, position(end));
            gone(remove(begin, end));
        } else {
            Tree part = tree_.extract(first, last);
            const std::vector<Node> nodes = remove(begin, end);
            rejoin(std::move(part), begin, nodes);
        }
    }
    void merge() {
        Tree other;
        std::vector<Node> others, refused;
        for (int i = below(12), base = below(keys_used); i > 0; i--) {
            const Node x = fresh(base + below(20));
            const EqualRun run = run_of(others, key_of(x));
            if (unique && run.front != run.back) {
                gone(x);
                continue;
            }
            other.insert(typed(x));
            others.insert(others.begin() + static_cast<std::ptrdiff_t>(run.back), x);
        }
        tree_.merge(other);
        for (Node n : others) {
            const EqualRun run = run_of(order_, key_of(n));
            if (unique && run.front != run.back)
                refused.push_back(n);
            else
                order_.insert(place(run.back), n);
        }
        expect_order(other, refused);
        gone(refused);
        other.clear();
    }

    // ---- Whole trees

    void whole() {
        switch (below(6)) {
        case 0: {
            std::vector<Typed *> records;
            for (Node n : order_)
                records.push_back(&typed(n));
            tree_.assign_sorted(records);
            break;
        }
        case 1: {
            const Tree original = std::exchange(tree_, Tree());
            const std::vector<Node> originals = std::exchange(order_, {});
            EXPECT_TRUE(tree_.clone_from(original, [&](const Typed &x) { return &typed(fresh(x.key())); }));
            order_ = nodes_of(tree_);
            EXPECT_TRUE(keys_of(order_) == keys_of(originals));
            EXPECT_TRUE(std::equal(order_.begin(), order_.end(), originals.begin(), originals.end(),
                                   [](Node a, Node b) { return a != b && link_of(a).Balance == link_of(b).Balance; }))
                << "the same shape";
            gone(originals);
            break;
        }
        case 2: {
            Tree moved = std::move(tree_), empty;
            EXPECT_TRUE(tree_.empty()); // NOLINT(bugprone-use-after-move)
            swap(moved, empty);
            tree_ = std::move(empty);
            break;
        }
        case 3: {
            Typed *const root = tree_.release();
            expect_order(tree_, {});
            tree_.adopt(root);
            break;
        }
        case 4:
            if (below(4))
                return;
            tree_.clear();
            gone(std::exchange(order_, {}));
            break;
        default:
            return;
        }
        seat_all();
    }

    Host host_;
    std::mt19937 random_;
    Tree tree_;
    std::vector<Node> order_, spare_;
    Walker walkers_[5];
};

template <class Tree> struct RandomSequences : ::testing::Test {};
TYPED_TEST_SUITE(RandomSequences, Trees);
TYPED_TEST(RandomSequences, AgreeWithAList) {
    for (unsigned seed = 1; seed <= 4; seed++)
        Model<TypeParam>(seed).run(3000);
}

} // namespace
} // namespace ovant::test
