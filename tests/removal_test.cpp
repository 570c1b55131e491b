// One node leaves: at a path, by the toggle, at either end.
#include "support/check.hpp"
#include "support/shapes.hpp"

namespace ovant::test {
namespace {

int free_word, context; // known by their addresses

// Takes out the node with the key; what reaches its end of the tree takes any key there.
struct Removal {
    const char *name;
    Node (*run)(AVL_Tree *tree, const int *key);
    bool frees;
    const void *word; // what Free is given as key
    int end;          // 0: works at every node
};
const Removal removals[] = {
    {"AVL_GetPfad", [](AVL_Tree *t, const int *k) { return AVL_GetPfad(t, AVL_MakeKey(t, k)); }, false, nullptr, 0},
    {"AVL_DelPfad",
     [](AVL_Tree *t, const int *k) -> Node { return AVL_DelPfad(t, AVL_MakeKey(t, k), &free_word, &context), nullptr; },
     true, &free_word, 0},
    {"AVL_InsertGetKey", [](AVL_Tree *t, const int *k) { return AVL_InsertGetKey(t, k, &context); }, false, nullptr, 0},
    {"AVL_GetMin", [](AVL_Tree *t, const int *) { return AVL_GetMin(t); }, false, nullptr, DIR_LEFT},
    {"AVL_GetMax", [](AVL_Tree *t, const int *) { return AVL_GetMax(t); }, false, nullptr, DIR_RIGHT},
    {"AVL_DelMin", [](AVL_Tree *t, const int *) -> Node { return AVL_DelMin(t, &context), nullptr; }, true, nullptr,
     DIR_LEFT},
    {"AVL_DelMax", [](AVL_Tree *t, const int *) -> Node { return AVL_DelMax(t, &context), nullptr; }, true, nullptr,
     DIR_RIGHT},
};

// Every removal at every node that it can reach, on a tree put back each time: visit(removal, position).
template <class Visit> void for_all_removals(Host &host, const std::vector<Node> &order, Visit visit) {
    const Node root = host.tree->Root;
    const std::deque<Record> before = host.bytes();
    for (const Removal &removal : removals)
        for (std::size_t i = 0; i < order.size(); i++) {
            if ((removal.end == DIR_LEFT && i > 0) || (removal.end == DIR_RIGHT && i + 1 < order.size()))
                continue;
            SCOPED_TRACE(::testing::Message() << removal.name << " at position " << i);
            host.restore(before);
            host.tree->Root = root;
            seen = {};
            visit(removal, i);
            if (::testing::Test::HasFailure())
                return;
        }
}

// Removes the node and takes it out of the model.
void remove(Host &host, const Removal &removal, std::vector<Node> &order, std::size_t position) {
    const Node victim = order[position];
    const int key = key_of(victim);
    Record header = load<Record>(victim);
    order.erase(order.begin() + static_cast<std::ptrdiff_t>(position));
    EXPECT_EQ(removal.run(host.tree, &key), removal.frees ? nullptr : victim);
    expect_tree(host.tree, order);
    if (removal.frees)
        spoil_link(&header);
    EXPECT_EQ(std::memcmp(victim, &header, sizeof header), 0) << "the node that left was written";
    EXPECT_EQ(seen.calls, removal.frees ? std::vector<Call>({{Handler::free, victim, removal.word, &context}})
                                        : std::vector<Call>());
    EXPECT_TRUE(seen.reports.empty());
}

void remove_each(const Shape &shape) {
    Host host;
    const std::vector<Node> order = plant(host, shape);
    const StackGuard guard(host.tree, shape.height);
    for_all_removals(host, order, [&](const Removal &removal, std::size_t position) {
        std::vector<Node> rest = order;
        remove(host, removal, rest, position);
    });
}
TEST(Removal, LeavesSoundTreesAtEveryNodeOfSmallTrees) {
    for_all_shapes(4, 1, [](const Shape &shape, Keys) { remove_each(shape); });
}
TEST(Removal, LeavesSoundTreesAtEveryNodeOfTallTrees) {
    std::mt19937 random(1);
    for (const Shape &shape : {leaning_shape(9, -1), leaning_shape(9, 1), full_shape(6), random_shape(7, random)})
        remove_each(shape);
}

TEST(Removal, PutsTheNeighbourFromTheHigherSideInPlace) {
    const std::string left = "30(20(10,25),40(35,45))", right = "70(60,80)", whole = "50(" + left + "," + right + ")";
    const struct {
        std::string before;
        int key;
        std::string after;
    } cases[] = {
        {whole, 50, "45-(30(20(10,25),40-(35,))," + right + ")"},
        {whole, 70, "50-(" + left + ",80-(60,))"},
        {whole, 80, "50-(" + left + ",70-(60,))"},
        {"50(30(20(10,),40(35,45))," + right + ")", 20, "50-(30+(10,40(35,45))," + right + ")"},
        {"30(20(10,),40)", 40, "20(10,30)"},
        {"30(20,40(,50))", 20, "40(30,50)"},
        {"20(10,)", 20, "10"},
        {"20(10,)", 10, "20"},
        {"20", 20, ""},
    };
    for (const auto &row : cases)
        for (const Removal &removal : removals) {
            Host host;
            plant(host, row.before.c_str());
            const std::vector<Node> order = check(host.tree).order;
            if (removal.end == 0 || key_of(removal.end == DIR_LEFT ? order.front() : order.back()) == row.key) {
                removal.run(host.tree, &row.key);
                EXPECT_EQ(picture_of(host.tree->Root), row.after) << removal.name << " " << row.key;
            }
        }
}

TEST(Removal, AsksFreeWhatStaysAtThePlace) {
    for_all_shapes(4, 1, [](const Shape &shape, Keys) {
        Host host;
        const std::vector<Node> order = plant(host, shape);
        const Node other = host.record(0), root = host.tree->Root;
        const std::string picture = picture_of(root);
        for_all_removals(host, order, [&](const Removal &removal, std::size_t position) {
            if (!removal.frees)
                return;
            const Node victim = order[position];
            const int key = key_of(victim);
            const std::deque<Record> before = host.bytes();
            seen.answer = victim;
            removal.run(host.tree, &key);
            EXPECT_TRUE(host == before && host.tree->Root == root);
            if (removal.end == 0) { // the path is still good
                Entry *const pfad = AVL_MakeKey(host.tree, &key);
                AVL_DelPfad(host.tree, pfad, &key, &context);
                expect_chain(host.tree, pfad);
                EXPECT_EQ(pfad->Node, victim);
            }
            store(other, 0, load<Record>(victim)); // header, key and all
            seen.answer = other;
            removal.run(host.tree, &key);
            std::vector<Node> replaced = order;
            replaced[position] = other;
            expect_tree(host.tree, replaced);
            EXPECT_EQ(picture_of(host.tree->Root), picture);
        });
    });
}

TEST(Removal, TakesTheNamedNodeOfAnEqualRun) {
    for_all_shapes(4, 3, [](const Shape &shape, Keys keys) {
        Host host;
        const std::vector<Node> order = plant(host, shape, keys);
        for_all_removals(host, order, [&](const Removal &removal, std::size_t position) {
            const int key = key_of(order[position]);
            const auto run = run_of(order, key);
            const std::size_t gone = removal.frees ? run.back - 1 : run.front;
            std::vector<Node> rest = order;
            rest.erase(rest.begin() + static_cast<std::ptrdiff_t>(gone));
            AVL_GetPfad(host.tree, (removal.frees ? AVL_MakeLastKey : AVL_MakeFirstKey)(host.tree, &key));
            expect_tree(host.tree, rest);
        });
    });
}

TEST(Removal, DoesNothingWithoutANode) {
    for_all_shapes(3, 1, [](const Shape &shape, Keys keys) {
        Host host;
        const std::vector<Node> order = plant(host, shape, keys);
        const Node root = host.tree->Root;
        const std::deque<Record> before = host.bytes();
        for (std::size_t i = 0; i <= order.size(); i++) {
            const int absent = keys.at(i) - 5, first = keys.first;
            for (AVL_PfadEntry *(*make)(AVL_Tree *, const void *) : {AVL_MakeKey, AVL_MakeFirstKey, AVL_MakePredKey}) {
                AVL_DelPfad(host.tree, make(host.tree, &absent), &absent, &context);
                EXPECT_EQ(AVL_GetPfad(host.tree, make(host.tree, &absent)), nullptr);
            }
            EXPECT_EQ(AVL_GetPfad(host.tree, AVL_MakePred(host.tree, &first)), nullptr);
            EXPECT_TRUE(seen.calls.empty());
            seen.answer = nullptr; // no node from Malloc
            EXPECT_EQ(AVL_InsertGetKey(host.tree, &absent, &context), nullptr);
            EXPECT_EQ(seen.calls, std::vector<Call>({{Handler::malloc, nullptr, &absent, &context}}));
            seen = {};
        }
        EXPECT_TRUE(host == before && host.tree->Root == root);
        if (order.empty())
            for (const Removal &removal : removals)
                if (removal.end != 0) {
                    EXPECT_EQ(removal.run(host.tree, nullptr), nullptr);
                    EXPECT_TRUE(seen.calls.empty() && host.tree->Root == nullptr);
                }
    });
}

// Growth and removal in every order, until nothing is left.
TEST(Removal, EmptiesTreesInAnyMixture) {
    for (unsigned seed = 0; seed < 20; seed++) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        Host host;
        std::vector<Node> order;
        for (int step = 0; step < 200 || !order.empty(); step++) {
            seen = {};
            const int key = static_cast<int>(random() % 400);
            const auto run = run_of(order, key);
            const Removal &removal = removals[random() % std::size(removals)];
            if (step < 150 && run.front == run.back) {
                const Node node = host.record(key);
                EXPECT_EQ(AVL_InsertGetKey(host.tree, &key, node), nullptr);
                order.insert(order.begin() + static_cast<std::ptrdiff_t>(run.front), node);
            } else if (!order.empty()) {
                const std::size_t last = order.size() - 1, any = random() % order.size();
                remove(host, removal, order, removal.end == 0 ? any : removal.end == DIR_LEFT ? 0 : last);
            }
            expect_tree(host.tree, order);
            ASSERT_FALSE(HasFailure()) << "step " << step;
        }
        EXPECT_EQ(host.tree->Root, nullptr);
    }
}

} // namespace
} // namespace ovant::test
