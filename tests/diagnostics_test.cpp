// The picture of a position and the listing.
#include "support/check.hpp"
#include "support/memory.hpp"
#include "support/shapes.hpp"

#include <cstdlib>
#include <regex>

using namespace ovant::c;
using namespace ovant::test;

namespace {

TEST(Picture, TakesTheBlockItNeeds) {
    const Host empty;
    char given[20] = "unwritten";
    EXPECT_EQ(AVL_GetString(empty.tree, empty.tree->Stack, given), nullptr);
    const Bed bed(leaning_shape(4, 1));
    AVL_Tree *const tree = bed.tree;
    const int absent = 5;
    EXPECT_EQ(AVL_GetString(tree, AVL_MakeKey(tree, &absent), given), nullptr);
    EXPECT_STREQ(given, "unwritten");
    Entry *const position = AVL_MakeMax(tree);
    position->Dir = DIR_LEFT; // its own Dir is not read
    for (const auto &[balance, told] :
         {std::pair(-1, "         +-1+"), {10, "         +10+"}, {-128, "         +-128+"}}) {
        set_balance(position->Node, balance);
        char *made = refused_until_made([=] { return AVL_GetString(tree, position, nullptr); });
        EXPECT_STREQ(made, told);
        EXPECT_EQ(memory.size, std::strlen(told) + 1);
        given[memory.size] = '?'; // right behind the text
        EXPECT_EQ(AVL_GetString(tree, position, given), given);
        EXPECT_TRUE(std::strcmp(given, told) == 0 && given[memory.size] == '?') << given;
        std::free(made);
    }
    tree->Stack[1].Dir = DIR_NEW; // no side: that level has no column
    EXPECT_STREQ(AVL_GetString(tree, position, given), "      +-128+");
}

// Fills the whole buffer; says nothing of 25.
const char *show_key(char *buffer, void *node, void *) {
    std::snprintf(buffer, 268, "key=%-263d", key_of(node));
    return key_of(node) == 25 ? nullptr : buffer;
}
std::string listing(AVL_Tree *tree, int width) {
    char text[3000] = "";
    std::FILE *stream = std::tmpfile();
    AVL_TreeWrite(tree, tree->Root, AVL_WalkSuccInorder, show_key, stream, width, nullptr, nullptr);
    std::rewind(stream);
    const std::size_t length = std::fread(text, 1, sizeof text, stream);
    std::fclose(stream);
    return {text, length};
}

TEST(Listing, ShowsTheTreeOnItsSide) {
    Host host;
    EXPECT_EQ(listing(host.tree, 26), "");
    for (const int key : {50, 30, 70, 20, 40, 60, 80, 10, 25, 45, 5})
        AVL_Insert(host.tree, &key, host.record(key));
    // A node without text uses up its number; a text ends after 80 characters.
    EXPECT_EQ(std::regex_replace(listing(host.tree, 26), std::regex(" +\n"), "\n"),
              "00000000         + 0+     key=5\n"
              "00000001      +-1+        key=10\n"
              "00000002   +-1+           key=20\n"
              "00000004+ 0+              key=30\n"
              "00000005   |  + 1+        key=40\n"
              "00000006   |  |  + 0+     key=45\n"
              "00000007   + 0+           key=50\n"
              "00000008      |  + 0+     key=60\n"
              "00000009      + 0+        key=70\n"
              "00000010         + 0+     key=80\n");
    for (const auto &[width, column] : {std::pair(40, 40u), {21, 21u}, {9, 21u}, {8, 132u}, {INT32_MIN, 132u}}) {
        const std::string text = listing(host.tree, width);
        EXPECT_TRUE(text.find("key=5") == column && text.find('\n') == column + 80) << "width " << width;
    }
}

TEST(Listing, BoundsRunFromRightToLeft) {
    const Bed bed(full_shape(3)); // 40 over 20 (10, 30) and 60 (50, 70)
    constexpr auto forward = AVL_WalkSuccInorder, backward = AVL_WalkPredInorder;
    const struct {
        AVL_WalkFunc walker;
        int start, end; // 0: no bound
        std::vector<int> keys;
    } rows[] = {{AVL_WalkSuccPreorder, 0, 0, {40, 20, 10, 30, 60, 50, 70}},
                {backward, 55, 35, {50, 40}},
                {backward, 50, 30, {40, 30}},
                {backward, 10, 0, {}},
                {forward, 50, 30, {40, 50, 60, 70}},
                {forward, 30, 50, {}},
                {[](AVL_Tree *tree, Entry *p) { return p ? nullptr : AVL_MakeRoot(tree); }, 0, 0, {40}}};
    const auto note_key = [](char *, void *node, void *listed) -> const char * {
        static_cast<std::vector<int> *>(listed)->push_back(key_of(node));
        return nullptr;
    };
    for (const auto &[walker, start, end, keys] : rows) {
        std::vector<int> listed;
        AVL_TreeWrite(bed.tree, &listed, walker, note_key, stderr, 0, start ? &start : nullptr, end ? &end : nullptr);
        EXPECT_EQ(listed, keys);
    }
    const Bed tall(full_shape(9));
    std::vector<int> listed;
    AVL_TreeWrite(tall.tree, &listed, forward, note_key, stderr, 0, nullptr, nullptr);
    EXPECT_EQ(listed, keys_of(tall.order));
}

} // namespace
