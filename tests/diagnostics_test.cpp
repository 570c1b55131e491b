// Shape measures on sound and damaged trees; the picture of a position and the listing.
#include "support/check.hpp"
#include "support/memory.hpp"
#include "support/shapes.hpp"

#include <cstdlib>

using namespace ovant::c;
using namespace ovant::test;

namespace {

// The number of nodes on the way to the nearest missing child, the lighter side of each node first.
int shortest_way(Node node, int level, int best, std::vector<Report> &reports) {
    if (level >= best || !node)
        return std::min(level, best);
    const AVL_Link link = link_of(node);
    if (std::abs(link.Balance) > 1)
        return reports.push_back({5, 20}), best;
    best = shortest_way(link.Balance < 0 ? link.Right : link.Left, level + 1, best, reports);
    return shortest_way(link.Balance < 0 ? link.Left : link.Right, level + 1, best, reports);
}

TEST(Measures, OnAllSmallShapesSoundAndDamaged) {
    for_all_shapes(4, 1, [](const Shape &shape, Keys keys) {
        Host host;
        AVL_Tree *tree = host.tree;
        const std::vector<Node> order = plant(host, shape, keys);
        const auto measure = [&](bool sound) {
            const auto bytes = host.bytes();
            StackGuard guard(tree, shape.height);
            std::vector<Report> reports;
            seen.reports.clear();
            EXPECT_EQ(AVL_MinDeepth(tree), shortest_way(tree->Root, 0, 127, reports));
            EXPECT_EQ(AVL_CheckBalance(tree), sound);
            EXPECT_EQ(AVL_CountNode(tree), order.size());
            StackGuard held(tree, -1); // a held Pfad stays good
            const int height = AVL_MaxDeepth(tree);
            EXPECT_TRUE(height == shape.height || !sound);
            EXPECT_TRUE(host == bytes && seen.reports == reports);
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
    Host host;
    plant(host, full_shape(3));
    set_balance(host.tree->Root, 5);
    EXPECT_EQ(AVL_MaxDeepth(host.tree), 3) << "counts as level";
}

TEST(Picture, TakesTheBlockItNeeds) {
    Host host;
    AVL_Tree *tree = host.tree;
    char given[20] = "unwritten";
    EXPECT_EQ(AVL_GetString(tree, tree->Stack, given), nullptr);
    plant(host, leaning_shape(4, 1));
    const int absent = 5;
    EXPECT_EQ(AVL_GetString(tree, AVL_MakeKey(tree, &absent), given), nullptr);
    EXPECT_STREQ(given, "unwritten");
    for (const auto &[balance, mark] : {std::pair(-1, "+-1+"), {10, "+10+"}, {-128, "+-128+"}}) {
        Entry *position = AVL_MakeMax(tree);
        position->Dir = DIR_LEFT; // its own Dir is not read
        set_balance(position->Node, balance);
        const std::string told = std::string(9, ' ') + mark;
        char *made = refused_until_made([=] { return AVL_GetString(tree, position, nullptr); });
        EXPECT_EQ(made, told);
        EXPECT_EQ(memory.size, told.size() + 1);
        EXPECT_EQ(AVL_GetString(tree, position, given), given);
        EXPECT_EQ(given, told);
        std::free(made);
    }
    Entry *const position = AVL_MakeMax(tree);
    tree->Stack[1].Dir = DIR_NEW; // no side: that level has no column
    EXPECT_STREQ(AVL_GetString(tree, position, given), "      +-128+");
}

const char *show_key(char *buffer, void *node, void *) {
    std::snprintf(buffer, 268, "key=%d", key_of(node));
    return buffer;
}
std::string listing(AVL_Tree *tree, int width = 26, AVL_FormatFunc formatter = show_key) {
    char text[2000] = "";
    std::FILE *stream = std::tmpfile();
    AVL_TreeWrite(tree, tree->Root, AVL_WalkSuccInorder, formatter, stream, width, nullptr, nullptr);
    std::rewind(stream);
    const std::size_t length = std::fread(text, 1, sizeof text, stream);
    std::fclose(stream);
    return {text, length};
}

TEST(Listing, ShowsTheTreeOnItsSide) {
    Host host;
    EXPECT_EQ(listing(host.tree), "");
    for (const int key : {50, 30, 70, 20, 40, 60, 80, 10, 25, 45, 5})
        AVL_Insert(host.tree, &key, host.record(key));
    EXPECT_EQ(listing(host.tree), "00000000         + 0+     key=5\n"
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
        std::vector<int> keys;
    } rows[] = {{AVL_WalkSuccPreorder, 0, 0, {40, 20, 10, 30, 60, 50, 70}},
                {backward, 50, 0, {40, 30, 20, 10}},
                {backward, 55, 35, {50, 40}},
                {backward, 50, 30, {40, 30}},
                {backward, 10, 0, {}},
                {forward, 30, 0, {20, 30, 40, 50, 60, 70}},
                {forward, 50, 30, {40, 50, 60, 70}},
                {forward, 30, 50, {}},
                {[](AVL_Tree *tree, Entry *p) { return p ? nullptr : AVL_MakeRoot(tree); }, 0, 0, {40}}};
    const auto note_key = [](char *, void *node, void *listed) -> const char * {
        static_cast<std::vector<int> *>(listed)->push_back(key_of(node));
        return nullptr;
    };
    for (const auto &[walker, start, end, keys] : rows) {
        std::vector<int> listed;
        AVL_TreeWrite(host.tree, &listed, walker, note_key, stderr, 0, start ? &start : nullptr, end ? &end : nullptr);
        EXPECT_EQ(listed, keys);
    }
}

TEST(Listing, WidthsTextsAndNumbers) {
    Host host;
    plant(host, full_shape(2)); // the first line has a picture of 7 characters
    for (const auto &[width, column] : {std::pair(40, 40u), {15, 15u}, {9, 15u}, {8, 132u}, {INT32_MIN, 132u}})
        EXPECT_EQ(listing(host.tree, width).find("key=10"), column) << "width " << width;
    // A node without text uses up its number; the whole buffer is the formatter's, a text ends after 80 characters.
    const auto all_but_root = [](char *buffer, void *node, void *root) -> const char * {
        std::memset(buffer, 'x', 267);
        buffer[267] = 0;
        return node == root ? nullptr : buffer;
    };
    const std::string x80(80, 'x');
    EXPECT_EQ(listing(host.tree, 9, all_but_root), "00000000   + 0+" + x80 + "\n00000002   + 0+" + x80 + "\n");
}

} // namespace
