// Shape measures on sound and damaged trees; the picture of a position and the listing.
#include "support/check.hpp"
#include "support/shapes.hpp"

#include "frame/depth.hpp"

#include <cstdlib>
#include <malloc.h>

using namespace ovant;
using namespace ovant::test;

namespace {

// The way to the nearest missing child, the lighter side of each node first.
struct Shortest {
    int best = 127;
    std::vector<Report> reports;
    void visit(Node node, int level) {
        if (level >= best)
            return;
        if (!node) {
            best = level;
            return;
        }
        const AVL_Link link = link_of(node);
        if (std::abs(link.Balance) > 1)
            return reports.push_back({5, 20});
        visit(link.Balance < 0 ? link.Right : link.Left, level + 1);
        visit(link.Balance < 0 ? link.Left : link.Right, level + 1);
    }
};

TEST(Measures, OnAllSmallShapesSoundAndDamaged) {
    for_all_shapes(4, 1, [](const Shape &shape, Keys keys) {
        Host host;
        AVL_Tree *tree = host.tree;
        const std::vector<Node> order = plant(host, shape, keys);
        StackGuard guard(tree, shape.height);
        const auto measure = [&](bool sound) {
            const auto bytes = host.bytes();
            Shortest shortest;
            shortest.visit(tree->Root, 0);
            seen.reports.clear();
            EXPECT_EQ(AVL_MinDeepth(tree), shortest.best);
            EXPECT_EQ(seen.reports, shortest.reports);
            EXPECT_EQ(AVL_CheckBalance(tree), sound);
            EXPECT_EQ(AVL_CountNode(tree), order.size());
            StackGuard held(tree, -1); // a held Pfad stays good
            const int height = AVL_MaxDeepth(tree);
            EXPECT_TRUE(!sound || height == shape.height);
            EXPECT_TRUE(host == bytes && seen.comparisons == 0 && seen.reports.size() == shortest.reports.size());
        };
        measure(true);
        for (Node node : order) { // one damaged node at a time
            const int balance = link_of(node).Balance;
            for (int wrong : {-128, -2, -1, 0, 1, 2, 127}) {
                SCOPED_TRACE(::testing::Message() << "Balance " << wrong << " at record " << id_of(node));
                set_balance(node, wrong);
                measure(wrong == balance);
            }
            set_balance(node, balance);
        }
    });
}

TEST(Measures, HeightIsWhatTheBalancesSay) {
    Host host;
    const std::vector<Node> order = plant(host, full_shape(3));
    for (const auto &[balance, height] : {std::pair(1, 4), {-1, 4}, {5, 3}, {-128, 3}}) { // 5: counts as level
        set_balance(host.tree->Root, balance);
        EXPECT_EQ(AVL_MaxDeepth(host.tree), height) << balance;
    }
    for (Node node : order)
        set_balance(node, 77);
    EXPECT_EQ(AVL_CountNode(host.tree), 7u);
}

TEST(Picture, TakesTheBlockItNeeds) {
    Host host;
    AVL_Tree *tree = host.tree;
    EXPECT_EQ(AVL_GetString(tree, tree->Stack, nullptr), nullptr);
    plant(host, leaning_shape(4, 1));
    const struct {
        AVL_PfadEntry *(*make)(AVL_Tree *);
        int balance;
        std::string told;
    } rows[] = {{AVL_MakeRoot, -1, "+-1+"},
                {AVL_MakeRoot, 10, "+10+"},
                {AVL_MakeRoot, -128, "+-128+"},
                {AVL_MakeMax, -100, std::string(9, ' ') + "+-100+"}};
    for (const auto &[make, balance, told] : rows) {
        Entry *position = make(tree);
        position->Dir = DIR_LEFT; // its own Dir is not read
        const std::string path = text_of(tree, position);
        set_balance(position->Node, balance);
        char given[20], *made = AVL_GetString(tree, position, nullptr);
        EXPECT_EQ(made, told);
        EXPECT_LE(malloc_usable_size(made), std::max<std::size_t>(24, told.size() + 16)); // too small: the sanitizer
        EXPECT_EQ(AVL_GetString(tree, position, given), given);
        EXPECT_EQ(given, told);
        EXPECT_EQ(text_of(tree, position), path);
        std::free(made);
    }
    const int absent = 5;
    char given[20] = "unwritten";
    EXPECT_EQ(AVL_GetString(tree, AVL_MakeKey(tree, &absent), given), nullptr);
    EXPECT_STREQ(given, "unwritten");
}

struct Listing {
    AVL_WalkFunc walker = AVL_WalkSuccInorder;
    int width = 26;
    const int *start = nullptr, *end = nullptr;
    AVL_FormatFunc format = [](char *buffer, void *node, void *) -> const char * {
        std::snprintf(buffer, 268, "key=%d", key_of(node));
        return buffer;
    };
    void *context = nullptr;

    std::string of(AVL_Tree *tree) const {
        char *text = nullptr;
        std::size_t size = 0;
        std::FILE *stream = open_memstream(&text, &size);
        AVL_TreeWrite(tree, context, walker, format, stream, width, start, end);
        std::fclose(stream);
        const std::string written(text, size);
        std::free(text);
        return written;
    }
    std::string keys(AVL_Tree *tree) const { // the keys alone, each of two digits
        const std::string text = of(tree);
        std::string listed;
        for (std::size_t at = 0; (at = text.find("key=", at)) != text.npos; at += 4)
            listed += text.substr(at + 4, 2) + " ";
        return listed;
    }
};

TEST(Listing, ShowsTheTreeOnItsSide) {
    Host host(AVL_CMP_HandlePointer);
    EXPECT_EQ(Listing{}.of(host.tree), "");
    for (int key : {50, 30, 70, 20, 40, 60, 80, 10, 25, 45, 5}) {
        const Node node = host.record(key);
        AVL_Insert(host.tree, static_cast<char *>(node) + key_off, node);
    }
    EXPECT_EQ(Listing{}.of(host.tree), "00000000         + 0+     key=5\n"
                                       "00000001      +-1+        key=10\n"
                                       "00000002   +-1+           key=20\n"
                                       "00000003   |  + 0+        key=25\n"
                                       "00000004+ 0+              key=30\n"
                                       "00000005   |  + 1+        key=40\n"
                                       "00000006   |  |  + 0+     key=45\n"
                                       "00000007   + 0+           key=50\n"
                                       "00000008      |  + 0+     key=60\n"
                                       "00000009      + 0+        key=70\n"
                                       "00000010         + 0+     key=80\n");
}

TEST(Listing, BoundsRunFromRightToLeft) {
    Host host; // 40 over 20 (10, 30) and 60 (50, 70)
    plant(host, full_shape(3));
    constexpr auto forward = AVL_WalkSuccInorder, backward = AVL_WalkPredInorder;
    const struct {
        AVL_WalkFunc walker;
        int start, end; // 0: no bound
        const char *keys;
    } rows[] = {{AVL_WalkSuccPreorder, 0, 0, "40 20 10 30 60 50 70 "},
                {backward, 50, 0, "40 30 20 10 "},
                {backward, 55, 0, "50 40 30 20 10 "},
                {backward, 50, 30, "40 30 "},
                {backward, 55, 35, "50 40 "},
                {backward, 0, 30, "70 60 50 40 30 "},
                {backward, 10, 0, ""},
                {forward, 30, 0, "20 30 40 50 60 70 "},
                {forward, 35, 0, "30 40 50 60 70 "},
                {forward, 50, 30, "40 50 60 70 "},
                {forward, 30, 50, ""},
                {forward, 0, 50, ""}};
    for (const auto &[walker, start, end, keys] : rows)
        EXPECT_EQ((Listing{walker, 26, start ? &start : nullptr, end ? &end : nullptr}.keys(host.tree)), keys);
}

TEST(Listing, WidthsTextsAndNumbers) {
    Host host;
    plant(host, full_shape(2)); // the first line has a picture of 7 characters
    for (const auto &[width, column] :
         {std::pair(40, 40u), {15, 15u}, {14, 15u}, {9, 15u}, {8, 132u}, {0, 132u}, {INT32_MIN, 132u}, {200, 200u}})
        EXPECT_EQ(Listing{.width = width}.of(host.tree).find("key=10"), column) << "width " << width;
    // A node without text uses up its number; the whole buffer is the formatter's, a text ends after 80 characters.
    const auto all_but = [](char *buffer, void *node, void *left_out) -> const char * {
        std::memset(buffer, 'x', 267);
        buffer[267] = 0;
        return key_of(node) == *static_cast<int *>(left_out) ? nullptr : buffer;
    };
    int left_out = 20;
    const std::string x80(80, 'x');
    EXPECT_EQ((Listing{.width = 9, .format = all_but, .context = &left_out}.of(host.tree)),
              "00000000   + 0+" + x80 + "\n00000002   + 0+" + x80 + "\n");
}

// A run down one side as deep as the path stack reaches, though no balanced tree does: pictures end after 123
// characters.
TEST(Listing, TheDeepestPictureFits) {
    Host host;
    for (int level = tree_depth; level > 0; level--) {
        const Node node = host.record(level);
        set_link(node, nullptr, host.tree->Root, level == tree_depth ? -128 : 0);
        host.tree->Root = node;
    }
    const std::string text = Listing{.width = 0}.of(host.tree);
    EXPECT_NE(text.find("\n00000040" + std::string(120, ' ') + "+ 0 key=41\n"), text.npos);
    EXPECT_TRUE(text.ends_with(std::string(123, ' ') + " key=" + std::to_string(tree_depth) + "\n"));
}

} // namespace
