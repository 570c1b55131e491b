// Trees of plain keys, on nodes that the library makes itself.
#include "frame/keyed_handlers.hpp"
#include "frame/nodes.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

// This program is linked with --wrap=malloc and --wrap=free: the library's blocks are counted, sized to the byte, and
// full of rubbish when they come.
namespace {
std::size_t block_size;
int blocks;
bool exhausted;
} // namespace
extern "C" {
void *__real_malloc(std::size_t size);
void __real_free(void *block);
void *__wrap_malloc(std::size_t size) {
    void *block = exhausted ? nullptr : __real_malloc(size);
    if (block) {
        std::memset(block, 0xAB, size);
        block_size = size;
        ++blocks;
    }
    return block;
}
void __wrap_free(void *block) {
    blocks -= block != nullptr;
    __real_free(block);
}
}

namespace ovant {
namespace {

uint32_t count_of(Node node) { return load<uint32_t>(node, count_off); }

struct KeyedTree {
    AVL_Tree *tree;
    const int others;
    KeyedTree(const AVL_NodeFuncs &funcs, std::size_t key_at, AVL_CmpFunc cmp)
        : tree(AVL_Konstruktor(0, &funcs, key_at, cmp, nullptr)), others(blocks) {}
    ~KeyedTree() {
        AVL_DelTree(tree, nullptr);
        EXPECT_EQ(nodes(), 0) << "nodes left behind";
        AVL_Destruktor(tree);
    }
    int nodes() const { return blocks - others; }
    Node key(int32_t key) { return AVL_InsertKey(tree, &key, nullptr); }
    void remove(int32_t key) { AVL_DelPfad(tree, AVL_MakeKey(tree, &key), &key, nullptr); }
    template <class Key> std::vector<Key> keys() {
        std::vector<Key> keys;
        for (Entry *at = AVL_MakeMin(tree); at->Node; at = AVL_WalkSuccInorder(tree, at))
            keys.push_back(load<Key>(at->Node, tree->KeyOff));
        return keys;
    }
};

// Block sizes, and where the key lies, are what code outside relies on: plain numbers for both widths of a pointer.
TEST(Keyed, BlocksHoldJustTheirFields) {
    constexpr bool wide = sizeof(void *) == 8;
    struct {
        const AVL_NodeFuncs &funcs;
        std::size_t key_off, narrow_off, wide_off, narrow_size, wide_size;
        bool counted, string;
    } const forms[] = {
        {AVL_NodeFuncsKey4, key_off, 12, 20, 16, 24, false, false},
        {AVL_NodeFuncsKey8, key_off, 12, 20, 20, 28, false, false},
        {AVL_NodeFuncsKeyString, string_key_off, 9, 17, 14, 22, false, true},
        {AVL_NodeFuncsCountKey4, count_key_off, 16, 24, 20, 28, true, false},
        {AVL_NodeFuncsCountKey8, count_key_off, 16, 24, 24, 32, true, false},
        {AVL_NodeFuncsCountKeyString, count_key_off, 16, 24, 24, 32, true, true},
    };
    char keys[] = "?pear\0ma"; // at an odd address or an even one: the other is what the node gets
    for (const auto &form : forms) {
        SCOPED_TRACE(&form - forms);
        char *key = keys + 1;
        const Node node = form.string ? form.funcs.Malloc(nullptr, key) : form.funcs.Malloc(key, nullptr);
        EXPECT_EQ(form.key_off, wide ? form.wide_off : form.narrow_off);
        EXPECT_EQ(block_size, wide ? form.wide_size : form.narrow_size);
        const auto link = load<AVL_Link>(node);
        EXPECT_TRUE(!link.Left && !link.Right && link.Balance == 0);
        EXPECT_TRUE(!form.counted || count_of(node) == 1);
        const std::size_t tail = form.counted && form.string ? 3 : 0;
        EXPECT_EQ(std::memcmp(static_cast<char *>(node) + form.key_off, key, block_size - tail - form.key_off), 0);
        form.funcs.Kill(node, nullptr);
    }
}

TEST(Keyed, CountedLife) {
    KeyedTree set(AVL_NodeFuncsCountKey4, count_key_off, AVL_CMP_SignedLong);
    for (int32_t key : {5, 3, 5, 5, 8})
        set.key(key);
    EXPECT_EQ(set.keys<int32_t>(), (std::vector<int32_t>{8, 5, 3}));
    const int32_t five = 5;
    const Node node = AVL_SearchKey(set.tree, &five);
    EXPECT_EQ(count_of(node), 3u);
    set.remove(5);
    set.remove(5);
    EXPECT_EQ(count_of(node), 1u);
    EXPECT_EQ(set.tree->Root, node);
    set.remove(5);
    EXPECT_EQ(set.keys<int32_t>(), (std::vector<int32_t>{8, 3}));
    EXPECT_EQ(set.nodes(), 2);

    const Node three = set.key(3);
    EXPECT_EQ(count_of(three), 2u);
    store<uint32_t>(three, count_off, 4294967294);
    for (int i = 0; i < 3; i++)
        EXPECT_EQ(set.key(3), three);
    EXPECT_EQ(count_of(three), 4294967295);
    AVL_DelMax(set.tree, nullptr); // 3 stands last: the order is largest first
    EXPECT_EQ(count_of(three), 4294967294);
    EXPECT_NE(AVL_Insert(set.tree, &five, nullptr), AVL_Insert(set.tree, &five, nullptr));
} // bulk removal takes every node whatever its count

TEST(Keyed, PlainNodeIsInsertedOnceAndFreedAtOnce) {
    KeyedTree set(AVL_NodeFuncsKey8, key_off, AVL_CMP_Double);
    const double keys[] = {2.5, -1e300, 0.125};
    for (const double &key : keys)
        EXPECT_EQ(AVL_InsertKey(set.tree, &key, nullptr), AVL_InsertKey(set.tree, &key, nullptr));
    EXPECT_EQ(set.keys<double>(), (std::vector<double>{-1e300, 0.125, 2.5}));
    AVL_DelPfad(set.tree, AVL_MakeKey(set.tree, &keys[2]), &keys[2], nullptr);
    EXPECT_EQ(set.nodes(), 2);
    exhausted = true;
    EXPECT_EQ(AVL_InsertKey(set.tree, &keys[2], nullptr), nullptr);
    exhausted = false;
    EXPECT_EQ(set.nodes(), 2);
}

TEST(Keyed, StringsUpToTheLargestBlock) {
    struct {
        const AVL_NodeFuncs &funcs;
        std::size_t key_off, tail;
    } const forms[] = {{AVL_NodeFuncsKeyString, string_key_off, 0}, {AVL_NodeFuncsCountKeyString, count_key_off, 3}};
    for (const auto &form : forms) {
        KeyedTree set(form.funcs, form.key_off, AVL_CMP_String);
        const std::size_t longest = 65535 - form.key_off - 1 - form.tail;
        std::string text(longest, 'x');
        const Node node = AVL_InsertKey(set.tree, text.c_str(), text.data());
        ASSERT_NE(node, nullptr);
        EXPECT_EQ(static_cast<const char *>(node) + form.key_off, text);
        for (std::size_t more : {std::size_t{1}, form.key_off + form.tail + 1, std::size_t{65536}}) {
            text.assign(longest + more, 'y');
            EXPECT_EQ(AVL_InsertKey(set.tree, text.c_str(), text.data()), nullptr);
        }
        EXPECT_EQ(set.nodes(), 1);
        // The key argument finds the place, the context is what is stored.
        char stored[] = "";
        const Node empty = AVL_Insert(set.tree, "z", stored);
        EXPECT_EQ(empty, AVL_SearchMax(set.tree));
        EXPECT_EQ(block_size, form.key_off + 1 + form.tail);
    }
}

} // namespace
} // namespace ovant
