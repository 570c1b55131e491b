// Descriptors, path stacks, depth arithmetic, the public handlers.
#include "support/check.hpp"
#include "support/shapes.hpp"

#include <cstdlib>
#include <malloc.h>

using namespace ovant;
using namespace ovant::test;

namespace {

constexpr bool narrow = sizeof(void *) == 4;

// The allocator rounds a block up by less than 16 bytes.
void expect_size(void *block, std::size_t size) {
    EXPECT_TRUE(malloc_usable_size(block) >= size && malloc_usable_size(block) < size + 16) << size;
}
void expect_stack(Entry *stack, std::size_t entries) {
    expect_size(stack - 1, entries * sizeof(Entry));
    EXPECT_TRUE(stack[-1].Node == nullptr && stack[-1].Dir == DIR_NEW) << "sentinel";
}

TEST(Frame, ATreeIsLaidOutForAnyNodeCount) {
    AVL_Tree *tree = AVL_Konstruktor(4, &noting_handlers, 2, smallest_first, nullptr);
    EXPECT_TRUE(tree->LeftOff == 4 && tree->RightOff == 4 + sizeof(void *) && tree->BalOff == 4 + 2 * sizeof(void *));
    EXPECT_TRUE(tree->KeyOff == 2 && tree->Error == Gen_SysError && !tree->Root && tree->RefCount == 1);
    EXPECT_TRUE(sizeof(AVL_Link) == (narrow ? 9 : 17) && sizeof(Entry) == (narrow ? 8 : 16));
    if (narrow)
        expect_size(tree->Stack - 1, 352);
    // A tree that needed more entries than there are would have more headers than the address space has bytes for.
    double least = 1, smaller = 0;
    for (std::size_t used = 2; used < malloc_usable_size(tree->Stack - 1) / sizeof(Entry); used++)
        smaller = std::exchange(least, least + smaller + 1);
    EXPECT_GT(least * sizeof(AVL_Link), static_cast<double>(UINTPTR_MAX));
    tree->Destruktor(tree);
    EXPECT_TRUE(AVL_TestVersion(259) == 1 && !AVL_TestVersion(258) && !AVL_TestVersion(0));
}

TEST(Frame, HoldsCopiesAndTakenTrees) {
    Host host(largest_first);
    const std::vector<Node> order = plant(host, full_shape(2), {1, 30, -10});
    AVL_Tree *tree = host.tree, *copy = tree->Copy(tree);
    EXPECT_EQ(std::memcmp(copy, tree, offsetof(AVL_Tree, Stack)), 0);
    EXPECT_EQ(std::memcmp(&copy->KeyOff, &tree->KeyOff, offsetof(AVL_Tree, RefCount) - offsetof(AVL_Tree, KeyOff)), 0);
    EXPECT_TRUE(!copy->Root && copy->RefCount == 1 && copy->Stack != tree->Stack);
    expect_size(copy->Stack - 1, malloc_usable_size(tree->Stack - 1));
    expect_tree(tree, order);

    copy->Root = host.record(1);
    EXPECT_TRUE(copy->Dup(copy) == copy && AVL_Dup(copy) == copy && copy->RefCount == 3);
    AVL_Destruktor(copy);
    copy->Destruktor(copy);
    copy->Stack[20] = {}; // still there for the last holder: the address sanitizer watches
    AVL_Destruktor(copy);
    tree->RefCount = 65534;
    EXPECT_TRUE(AVL_Dup(tree) == tree && AVL_Dup(tree) == nullptr && tree->RefCount == 65535);
    tree->RefCount = 1;

    EXPECT_EQ(AVL_GetTree(tree), order[1]);
    EXPECT_EQ(AVL_GetTree(tree), nullptr);
    tree->Root = order[1];
    AVL_ClrTree(tree);
    EXPECT_EQ(tree->Root, nullptr);
    EXPECT_TRUE(seen.calls.empty()) << "the nodes are the host's";
}

TEST(Frame, DepthArithmeticAgreesWithTheLeastTrees) {
    double least = 1, smaller = 0;
    for (signed char depth = 1; depth <= 46; depth++) {
        EXPECT_EQ(Nodes_Deepth(depth), std::min<double>(least, UINT32_MAX)) << int{depth};
        smaller = std::exchange(least, least + smaller + 1);
        // Each depth serves the counts above the one below it, up to its own.
        const auto most = Nodes_Deepth(depth), below = Nodes_Deepth(static_cast<signed char>(depth - 1));
        EXPECT_TRUE(Deepth_Nodes(most) == depth && Deepth_Nodes(below + 1) == depth) << int{depth};
    }
    EXPECT_TRUE(Nodes_Deepth(-128) == 0 && Nodes_Deepth(0) == 0);
    EXPECT_TRUE(Nodes_Deepth(47) == UINT32_MAX && Nodes_Deepth(127) == UINT32_MAX);
    EXPECT_TRUE(Deepth_Nodes(0) == 0 && Deepth_Nodes(UINT32_MAX / 9) == 42);
    EXPECT_TRUE(Nodes_Max(0) == 0 && Nodes_Max(31) == 2147483647);
    EXPECT_TRUE(Nodes_Max(32) == 0 && Nodes_Max(255) == 2147483647) << "the shift count is modulo 32";
}

TEST(Frame, PathStacksGrowAndShrinkAboveTheirSentinel) {
    for (signed char depth : std::initializer_list<signed char>{-128, -1, 0, 5, 127})
        for (Entry *stack : {malloc_Stack_Deepth(depth), realloc_Stack_Deepth(nullptr, depth)}) {
            expect_stack(stack, static_cast<std::size_t>(std::max(0, int{depth})) + 2);
            free_Stack(stack);
        }
    Entry *stack = realloc_Stack_Nodes(nullptr, 100);
    const auto resize = [&](Entry *resized, std::size_t entries) {
        stack = resized;
        expect_stack(stack, entries);
        for (int i = 0; i < 3; i++)
            EXPECT_TRUE(stack[i].Node == &stack && stack[i].Dir == i) << "the entries that fit are kept";
        stack[-1] = {&stack, 5}; // a resized stack has its sentinel, whatever the old one held
    };
    for (int i = 0; i < 3; i++)
        stack[i] = {&stack, i};
    resize(stack, 12);
    resize(realloc_Stack_Deepth(stack, 60), 62);
    resize(realloc_Stack_Nodes(stack, 2), 4);
    resize(realloc_Stack_Deepth(stack, 3), 5);
    free_Stack(stack);
    free_Stack(nullptr);
}

TEST(Frame, HandlersGiveWhatTheyAreNamedFor) {
    int record = 0, key = 0;
    Node node = &record, context = &node; // as address of a node pointer; taken directly, it is a node itself
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(AVL_Malloc_RetNull), reinterpret_cast<std::uintptr_t>(AVL_Free_RetNULL));
    EXPECT_EQ(AVL_Malloc_RetNull(&key, context), nullptr);
    EXPECT_EQ(AVL_Malloc_RetHandlePointer(&key, context), node);
    EXPECT_EQ(AVL_Realloc_RetGivenHandle(&key, &key, context), &key);
    EXPECT_EQ(AVL_Realloc_RetHandlePointer(&key, &key, context), node);
    const AVL_NodeFuncs &keeps = *AVL_GetNodeFuncPtrRetNULL(), &frees = *AVL_GetNodeFuncPtrFreeMem();
    for (const AVL_NodeFuncs &table : {keeps, frees}) {
        EXPECT_EQ(table.Malloc(&key, context), context);
        EXPECT_EQ(table.Realloc(&key, &key, context), context);
    }
    EXPECT_TRUE(keeps.Free == AVL_Free_RetNULL && keeps.Kill == AVL_Kill_Ret);
    EXPECT_EQ(frees.Free(std::malloc(1), &key, context), nullptr); // the address sanitizer finds what is not freed
    frees.Kill(std::malloc(1), context);
}

} // namespace
