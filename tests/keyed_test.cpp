// Trees of plain keys, on nodes that the library makes itself.
#include "frame/keyed_handlers.hpp"
#include "frame/nodes.hpp"

#include "support/memory.hpp"

#include <cstring>
#include <string>

namespace ovant {
using namespace c;
using test::memory;

namespace {

// Block sizes, and where the key lies, are what code outside relies on: plain numbers, smaller by the two links where a
// pointer is narrow.
TEST(Keyed, BlocksHoldJustTheirFields) {
    constexpr std::size_t narrower = 16 - 2 * sizeof(void *);
    const struct {
        const AVL_NodeFuncs &funcs;
        std::size_t key_off, wide_off, wide_size;
        bool counted, string;
    } forms[] = {
        {AVL_NodeFuncsKey4, key_off, 20, 24, false, false},
        {AVL_NodeFuncsKey8, key_off, 20, 28, false, false},
        {AVL_NodeFuncsKeyString, string_key_off, 17, 22, false, true},
        {AVL_NodeFuncsCountKey4, count_key_off, 24, 28, true, false},
        {AVL_NodeFuncsCountKey8, count_key_off, 24, 32, true, false},
        {AVL_NodeFuncsCountKeyString, count_key_off, 24, 32, true, true},
    };
    char keys[] = "?pear\0ma"; // at an odd address or an even one: the other is what the node gets
    for (const auto &form : forms) {
        SCOPED_TRACE(&form - forms);
        const int before = memory.blocks;
        char *key = keys + 1;
        const Node node = test::refused_until_made(
            [&] { return form.string ? form.funcs.Malloc(nullptr, key) : form.funcs.Malloc(key, nullptr); });
        EXPECT_EQ(form.key_off, form.wide_off - narrower);
        EXPECT_EQ(memory.size, form.wide_size - narrower);
        const auto link = load<AVL_Link>(node);
        EXPECT_TRUE(!link.Left && !link.Right && link.Balance == 0);
        EXPECT_TRUE(!form.counted || load<uint32_t>(node, count_off) == 1);
        const std::size_t tail = form.counted && form.string ? 3 : 0;
        EXPECT_EQ(std::memcmp(static_cast<char *>(node) + form.key_off, key, memory.size - tail - form.key_off), 0);
        EXPECT_EQ(form.funcs.Realloc(node, key, key), node);
        EXPECT_TRUE(!form.counted || form.funcs.Free(node, key, key) == node);
        EXPECT_EQ(form.funcs.Free(node, key, key), nullptr);
        if (form.string) { // block sizes are 16-bit values
            std::string text(65535 - form.key_off - tail, 'x');
            EXPECT_EQ(form.funcs.Malloc(nullptr, text.data()), nullptr);
            text.pop_back();
            const Node longest = form.funcs.Malloc(nullptr, text.data());
            EXPECT_EQ(static_cast<const char *>(longest) + form.key_off, text);
            form.funcs.Kill(longest, nullptr);
        }
        EXPECT_EQ(memory.blocks, before);
    }
}

TEST(Keyed, ANodeLivesUntilItsLastKeyGoes) {
    AVL_Tree *tree = AVL_Konstruktor(0, &AVL_NodeFuncsCountKey4, count_key_off, AVL_CMP_SignedLong, nullptr);
    const int without_nodes = memory.blocks;
    const int32_t key = 5, other = 3;
    const Node node = AVL_InsertKey(tree, &key, nullptr);
    AVL_InsertKey(tree, &other, nullptr);
    for (uint32_t count : {1u, 2u, 4294967294u, 4294967295u}) { // it stops at the largest count
        store(node, count_off, count);
        EXPECT_EQ(AVL_InsertKey(tree, &key, nullptr), node);
        EXPECT_EQ(load<uint32_t>(node, count_off), count == 4294967295u ? count : count + 1);
    }
    store(node, count_off, 3u);
    AVL_DelMin(tree, nullptr); // the largest stands first
    AVL_DelPfad(tree, AVL_MakeKey(tree, &key), &key, nullptr);
    EXPECT_TRUE(AVL_SearchKey(tree, &key) == node && load<uint32_t>(node, count_off) == 1);
    AVL_DelPfad(tree, AVL_MakeKey(tree, &key), &key, nullptr);
    EXPECT_TRUE(AVL_SearchKey(tree, &key) == nullptr && memory.blocks == without_nodes + 1);
    AVL_InsertKey(tree, &other, nullptr);
    AVL_DelTree(tree, nullptr); // whatever the counts
    EXPECT_EQ(memory.blocks, without_nodes);
    AVL_Destruktor(tree);
}

} // namespace
} // namespace ovant
