// Shape measures on sound and damaged trees; the picture of a position and the listing.
#include "support/check.hpp"
#include "support/shapes.hpp"

#include "frame/depth.hpp"

#include <cstdio>
#include <cstdlib>
#include <malloc.h>

using namespace ovant;
using namespace ovant::test;

namespace {

int shortest(Node node) { return node ? 1 + std::min(shortest(link_of(node).Left), shortest(link_of(node).Right)) : 0; }

TEST(Measures, OnAllSmallShapesSoundAndDamaged) {
    for_all_shapes(4, 1, [](const Shape &shape, Keys keys) {
        Host host;
        AVL_Tree *tree = host.tree;
        const std::vector<Node> order = plant(host, shape, keys);
        StackGuard guard(tree, shape.height);
        const auto bytes = host.bytes();
        EXPECT_EQ(AVL_CountNode(tree), order.size());
        EXPECT_EQ(AVL_MinDeepth(tree), shortest(tree->Root));
        EXPECT_EQ(AVL_CheckBalance(tree), 1);
        EXPECT_TRUE(host == bytes);
        {
            StackGuard held(tree, -1); // a held Pfad stays good
            EXPECT_EQ(AVL_MaxDeepth(tree), shape.height);
        }
        for (Node node : order) { // one damaged node at a time
            const int balance = link_of(node).Balance;
            for (int wrong : {-128, -2, -1, 0, 1, 2, 127}) {
                SCOPED_TRACE(::testing::Message() << "Balance " << wrong << " at record " << id_of(node));
                set_balance(node, wrong);
                EXPECT_EQ(AVL_CountNode(tree), order.size());
                EXPECT_EQ(AVL_CheckBalance(tree), wrong == balance);
                EXPECT_TRUE(seen.reports.empty());
                const int found = AVL_MinDeepth(tree);
                if (std::abs(wrong) <= 1) {
                    EXPECT_EQ(found, shortest(tree->Root)) << "these bytes steer only the order of the search";
                    EXPECT_TRUE(seen.reports.empty());
                } else {
                    EXPECT_LE(seen.reports.size(), 1u);
                    EXPECT_EQ(seen.reports, std::vector(seen.reports.size(), Report{5, 20}));
                    EXPECT_GE(found, shortest(tree->Root));
                    EXPECT_EQ(found == 127, node == tree->Root);
                    AVL_MaxDeepth(tree); // has to end
                }
                seen.reports.clear();
            }
            set_balance(node, balance);
        }
        EXPECT_EQ(seen.comparisons, 0);
    });
}

TEST(Measures, OnTheFullTreeOfThreeLevels) {
    Host host;
    const std::vector<Node> order = plant(host, full_shape(3));
    for (int wrong : {-1, 1}) {
        set_balance(order[3], wrong);
        EXPECT_EQ(AVL_MaxDeepth(host.tree), 4);
        EXPECT_EQ(AVL_MinDeepth(host.tree), 3);
    }
    EXPECT_TRUE(seen.reports.empty());
    set_balance(order[3], 5);
    EXPECT_EQ(AVL_MinDeepth(host.tree), 127);
    EXPECT_EQ(AVL_MaxDeepth(host.tree), 3) << "counts as level";
    EXPECT_EQ(std::exchange(seen.reports, {}), (std::vector{Report{5, 20}}));
    set_balance(order[3], 0);
    set_balance(order[0], 2);
    EXPECT_EQ(AVL_MinDeepth(host.tree), 3);
    EXPECT_EQ(AVL_MaxDeepth(host.tree), 3);
    EXPECT_EQ(seen.reports, (std::vector{Report{5, 20}}));
    for (Node node : order)
        set_balance(node, 77);
    EXPECT_EQ(AVL_CountNode(host.tree), 7u);
    EXPECT_EQ(AVL_CheckBalance(host.tree), 0);
}

// ---- Pictures --------------------------------------------------------------------------------------------------

TEST(Picture, TakesTheBlockItNeeds) {
    Host host;
    AVL_Tree *tree = host.tree;
    EXPECT_EQ(AVL_GetString(tree, tree->Stack, nullptr), nullptr);
    const std::vector<Node> order = plant(host, leaning_shape(4, 1));
    const auto draw = [&](int key, int balance) {
        const Entry *position = AVL_MakeKey(tree, &key);
        const std::string path = text_of(tree, position);
        set_balance(position->Node, balance);
        char *block = AVL_GetString(tree, position, nullptr);
        const std::string picture = block;
        EXPECT_LT(malloc_usable_size(block), picture.size() + 1 + 16); // too small: the address sanitizer
        std::free(block);
        if (picture.size() < 14) {
            char given[16] = "";
            EXPECT_EQ(AVL_GetString(tree, position, given), given);
            EXPECT_EQ(given, picture);
        }
        EXPECT_EQ(text_of(tree, position), path);
        return picture;
    };
    const int root = key_of(tree->Root);
    for (const auto &[balance, mark] : {std::pair(0, "+ 0+"),
                                        {1, "+ 1+"},
                                        {-1, "+-1+"},
                                        {10, "+10+"},
                                        {-10, "+-10+"},
                                        {100, "+100+"},
                                        {-128, "+-128+"}})
        EXPECT_EQ(draw(root, balance), mark);
    EXPECT_EQ(draw(key_of(order.back()), 0), "         + 0+");
    EXPECT_EQ(draw(key_of(order.back()), -100), "         +-100+");

    const int absent = root + 5;
    char given[16] = "untouched";
    EXPECT_EQ(AVL_GetString(tree, AVL_MakeKey(tree, &absent), given), nullptr);
    EXPECT_STREQ(given, "untouched");
}

// ---- Listing ---------------------------------------------------------------------------------------------------

struct Listing {
    AVL_WalkFunc walker = AVL_WalkSuccInorder;
    int width = 26;
    const int *start = nullptr, *end = nullptr;
    AVL_FormatFunc format = [](char *buffer, void *node, void *) -> const char * {
        std::snprintf(buffer, 268, "key=%d", key_of(node)); // the whole buffer is the formatter's
        return buffer;
    };
    void *context = nullptr;

    std::string of(AVL_Tree *tree) const {
        char *text = nullptr;
        std::size_t size = 0;
        std::FILE *stream = open_memstream(&text, &size);
        AVL_TreeWrite(tree, context, walker, format, stream, width, start, end);
        std::fclose(stream);
        std::string written(text, size);
        std::free(text);
        return written;
    }
    // Line numbers count on whatever is printed, so the keys tell the rest.
    std::vector<int> keys(AVL_Tree *tree) const {
        const std::string text = of(tree);
        std::vector<int> listed;
        for (std::size_t at = 0; (at = text.find("key=", at)) != std::string::npos; at += 4)
            listed.push_back(std::stoi(text.substr(at + 4)));
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

// 40 over 20 (10, 30) and 60 (50, 70).
TEST(Listing, BoundsRunFromRightToLeft) {
    Host host;
    plant(host, full_shape(3));
    constexpr auto forward = AVL_WalkSuccInorder, backward = AVL_WalkPredInorder;
    const int k10 = 10, k30 = 30, k35 = 35, k50 = 50, k55 = 55, k75 = 75;
    const std::tuple<AVL_WalkFunc, const int *, const int *, std::vector<int>> listings[] = {
        {backward, nullptr, nullptr, {70, 60, 50, 40, 30, 20, 10}},
        {AVL_WalkSuccPreorder, nullptr, nullptr, {40, 20, 10, 30, 60, 50, 70}},
        {backward, &k50, nullptr, {40, 30, 20, 10}},
        {backward, &k55, nullptr, {50, 40, 30, 20, 10}},
        {backward, &k75, &k55, {70, 60}},
        {backward, &k50, &k30, {40, 30}},
        {backward, &k55, &k35, {50, 40}},
        {backward, nullptr, &k30, {70, 60, 50, 40, 30}},
        {forward, &k30, nullptr, {20, 30, 40, 50, 60, 70}},
        {forward, &k35, nullptr, {30, 40, 50, 60, 70}},
        {forward, &k50, &k30, {40, 50, 60, 70}},
        {forward, &k30, &k50, {}},
        {forward, nullptr, &k50, {}},
        {forward, &k10, nullptr, {}},
        {backward, &k10, nullptr, {}},
    };
    for (const auto &[walker, start, end, keys] : listings)
        EXPECT_EQ((Listing{.walker = walker, .start = start, .end = end}.keys(host.tree)), keys);
}

TEST(Listing, WidthsTextsAndNumbers) {
    Host host;
    plant(host, full_shape(2));
    for (const auto &[width, column] :
         {std::pair(40, 40), {15, 15}, {14, 15}, {9, 15}, {8, 132}, {0, 132}, {INT32_MIN, 132}, {200, 200}}) {
        const std::string text = Listing{.width = width}.of(host.tree); // first line: a picture of 7 characters
        EXPECT_EQ(text.find("key=10"), static_cast<std::size_t>(column)) << "width " << width;
    }
    // A node without text uses up its number; the context passes through; a text ends after 80 characters.
    const auto full = [](char *buffer, void *node, void *context) -> const char * {
        std::memset(buffer, 'x', 267);
        buffer[267] = 0;
        return key_of(node) == *static_cast<int *>(context) ? nullptr : buffer;
    };
    int left_out = 20;
    const std::string x80(80, 'x');
    EXPECT_EQ((Listing{.width = 9, .format = full, .context = &left_out}.of(host.tree)),
              "00000000   + 0+" + x80 + "\n00000002   + 0+" + x80 + "\n");
}

// A run down one side as deep as the path stack reaches, though no balanced tree does: pictures end after 123
// characters.
TEST(Listing, TheDeepestPictureFits) {
    Host host;
    Node top = nullptr;
    for (int level = tree_depth; level > 0; level--) {
        const Node node = host.record(level);
        set_link(node, nullptr, top, level == tree_depth ? -128 : 0);
        top = node;
    }
    host.tree->Root = top;
    const std::string text = Listing{.width = 0}.of(host.tree);
    EXPECT_NE(text.find("\n00000038" + std::string(114, ' ') + "+ 0+" + std::string(6, ' ') + "key=39\n"), text.npos);
    EXPECT_NE(text.find("\n00000040" + std::string(120, ' ') + "+ 0 key=41\n"), text.npos);
    EXPECT_TRUE(text.ends_with(std::string(123, ' ') + " key=" + std::to_string(tree_depth) + "\n"));
}

} // namespace
