// Descriptors, path stacks, depth arithmetic, the public handlers, the texts of codes.
#include "support/check.hpp"
#include "support/shapes.hpp"

#include <cstdlib>
#include <malloc.h>
#include <string>

using namespace ovant;
using namespace ovant::test;

namespace {

void expect_entries(const Entry *stack, std::size_t entries) {
    ASSERT_NE(stack, nullptr);
    EXPECT_TRUE(stack[-1].Node == nullptr && stack[-1].Dir == DIR_NEW) << "sentinel";
    const std::size_t size = malloc_usable_size(const_cast<Entry *>(stack - 1));
    EXPECT_GE(size, entries * sizeof(Entry));
    EXPECT_LT(size, entries * sizeof(Entry) + 16) << "the allocator rounds up by less than 16 bytes";
}

TEST(Frame, RecordsAndOffsetsHaveTheirSizes) {
    constexpr bool narrow = sizeof(void *) == 4;
    EXPECT_EQ(sizeof(AVL_Link), narrow ? 9u : 17u);
    EXPECT_EQ(sizeof(Entry), narrow ? 8u : 16u);
    AVL_Tree *tree = AVL_Konstruktor(4, &noting_handlers, 2, smallest_first, nullptr);
    EXPECT_EQ(tree->LeftOff, 4u);
    EXPECT_EQ(tree->RightOff, 4 + sizeof(void *));
    EXPECT_EQ(tree->BalOff, 4 + 2 * sizeof(void *));
    EXPECT_EQ(tree->KeyOff, 2u);
    EXPECT_EQ(tree->Error, &Gen_SysError);
    if constexpr (narrow)
        expect_entries(tree->Stack, 352 / 8);
    // A tree that needed more entries than there are would have more headers than the address space has bytes for.
    double nodes = 1, smaller = 0;
    const std::size_t usable = malloc_usable_size(tree->Stack - 1) / sizeof(Entry) - 1;
    for (std::size_t height = 1; height < usable; height++)
        smaller = std::exchange(nodes, nodes + smaller + 1);
    EXPECT_GT(nodes * sizeof(AVL_Link), static_cast<double>(UINTPTR_MAX));
    tree->Destruktor(tree);
}

TEST(Frame, ADescriptorLivesAsLongAsItIsHeld) {
    Host host;
    AVL_Tree *tree = AVL_Konstruktor(link_off, &noting_handlers, key_off, smallest_first, note_report);
    EXPECT_EQ(tree->Dup(tree), tree);
    EXPECT_EQ(AVL_Dup(tree), tree);
    EXPECT_EQ(tree->RefCount, 3);
    AVL_Destruktor(tree);
    tree->Destruktor(tree);
    EXPECT_EQ(tree->RefCount, 1);
    tree->Stack[20] = {}; // still there for the last holder: the address sanitizer watches
    tree->Root = host.record(1);
    AVL_Destruktor(tree);
    EXPECT_TRUE(seen.calls.empty()) << "the nodes are the host's";

    host.tree->RefCount = 65534;
    EXPECT_EQ(AVL_Dup(host.tree), host.tree);
    EXPECT_EQ(AVL_Dup(host.tree), nullptr);
    EXPECT_EQ(host.tree->RefCount, 65535);
    host.tree->RefCount = 1;
}

TEST(Frame, ACopyIsANewEmptyTreeOfTheSameKind) {
    Host host(largest_first);
    const std::vector<Node> order = plant(host, full_shape(2), {1, 30, -10});
    AVL_Dup(host.tree);
    AVL_Tree *copy = host.tree->Copy(host.tree);
    AVL_Destruktor(host.tree);
    AVL_Tree like = *host.tree;
    like.Root = nullptr;
    like.Stack = copy->Stack;
    EXPECT_TRUE(copy->LeftOff == like.LeftOff && copy->RightOff == like.RightOff && copy->BalOff == like.BalOff &&
                copy->KeyOff == like.KeyOff && copy->Funcs == like.Funcs && copy->Cmp == like.Cmp &&
                copy->Error == like.Error && copy->Dup == like.Dup && copy->Copy == like.Copy &&
                copy->Destruktor == like.Destruktor);
    EXPECT_EQ(copy->Root, nullptr);
    EXPECT_EQ(copy->RefCount, 1);
    EXPECT_NE(copy->Stack, host.tree->Stack);
    EXPECT_EQ(malloc_usable_size(copy->Stack - 1), malloc_usable_size(host.tree->Stack - 1));
    expect_tree(host.tree, order);
    AVL_Destruktor(copy);

    EXPECT_EQ(AVL_GetTree(host.tree), order[1]);
    EXPECT_EQ(AVL_GetTree(host.tree), nullptr);
    host.tree->Root = order[1];
    AVL_ClrTree(host.tree);
    EXPECT_EQ(host.tree->Root, nullptr);
    EXPECT_TRUE(seen.calls.empty());
    EXPECT_EQ(AVL_TestVersion(259), 1);
    EXPECT_TRUE(!AVL_TestVersion(258) && !AVL_TestVersion(0) && !AVL_TestVersion(-259));
}

TEST(Frame, DepthArithmeticAgreesWithTheLeastTrees) {
    double least = 1, smaller = 0;
    for (int depth = 1; depth < 46; depth++) {
        EXPECT_EQ(Nodes_Deepth(static_cast<signed char>(depth)), least) << depth;
        smaller = std::exchange(least, least + smaller + 1);
    }
    for (int depth : {-128, -1, 0})
        EXPECT_EQ(Nodes_Deepth(static_cast<signed char>(depth)), 0u);
    for (int depth : {46, 47, 48, 127})
        EXPECT_EQ(Nodes_Deepth(static_cast<signed char>(depth)), UINT32_MAX);
    // Each depth serves the counts above the one below it, up to its own.
    for (int depth = 1; depth <= 46; depth++) {
        const auto most = Nodes_Deepth(static_cast<signed char>(depth));
        const auto fewest = Nodes_Deepth(static_cast<signed char>(depth - 1)) + 1;
        EXPECT_EQ(Deepth_Nodes(most), depth);
        EXPECT_EQ(Deepth_Nodes(fewest), depth);
        EXPECT_EQ(Deepth_Nodes(fewest - 1), depth - 1);
    }
    EXPECT_EQ(Deepth_Nodes(UINT32_MAX / 9), 42);
    EXPECT_TRUE(Nodes_Max(0) == 0 && Nodes_Max(8) == 255 && Nodes_Max(31) == 2147483647);
    EXPECT_TRUE(Nodes_Max(32) == 0 && Nodes_Max(255) == 2147483647) << "the shift count is modulo 32";
}

TEST(Frame, PathStacksGrowAndShrinkAboveTheirSentinel) {
    for (int depth : {-128, -1, 0, 1, 5, 127}) {
        const std::size_t entries = depth < 0 ? 2u : static_cast<std::size_t>(depth) + 2;
        Entry *made = malloc_Stack_Deepth(static_cast<signed char>(depth));
        Entry *grown = realloc_Stack_Deepth(nullptr, static_cast<signed char>(depth));
        expect_entries(made, entries);
        expect_entries(grown, entries);
        free_Stack(made);
        free_Stack(grown);
    }
    Entry *stack = malloc_Stack_Nodes(100);
    expect_entries(stack, 12);
    for (int i = 0; i < 11; i++)
        stack[i] = {&stack, i};
    stack = realloc_Stack_Deepth(stack, 60);
    expect_entries(stack, 62);
    stack[60] = {};
    for (int i = 0; i < 11; i++)
        EXPECT_TRUE(stack[i].Node == &stack && stack[i].Dir == i) << i;
    stack[-1] = {&stack, 5}; // a resized stack has its sentinel, whatever the old one held
    stack = realloc_Stack_Nodes(stack, 2);
    expect_entries(stack, 4);
    EXPECT_EQ(stack[2].Dir, 2);
    stack[-1] = {&stack, 5};
    stack = realloc_Stack_Deepth(stack, 3);
    expect_entries(stack, 5);
    free_Stack(stack);
    stack = realloc_Stack_Nodes(nullptr, 0);
    expect_entries(stack, 2);
    free_Stack(stack);
    free_Stack(nullptr);
}

TEST(Frame, HandlersGiveWhatTheyAreNamedFor) {
    int record = 0, key = 0;
    Node node = &record;
    Node context = &node; // as address of a node pointer; taken directly, it is a node itself
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(AVL_Malloc_RetNull), reinterpret_cast<std::uintptr_t>(AVL_Free_RetNULL));
    EXPECT_EQ(AVL_Malloc_RetNull(&key, context), nullptr);
    EXPECT_EQ(AVL_Malloc_RetHandlePointer(&key, context), node);
    EXPECT_EQ(AVL_Malloc_RetHandleDirekt(&key, context), context);
    EXPECT_EQ(AVL_Realloc_RetGivenHandle(&key, &key, context), &key);
    EXPECT_EQ(AVL_Realloc_RetHandlePointer(&key, &key, context), node);
    EXPECT_EQ(AVL_Realloc_RetHandleDirekt(&key, &key, context), context);
    AVL_Kill_Ret(node, context);

    const AVL_NodeFuncs &keeps = *AVL_GetNodeFuncPtrRetNULL(), &frees = *AVL_GetNodeFuncPtrFreeMem();
    EXPECT_TRUE(keeps.Malloc == AVL_Malloc_RetHandleDirekt && keeps.Realloc == AVL_Realloc_RetHandleDirekt);
    EXPECT_TRUE(keeps.Free == AVL_Free_RetNULL && keeps.Kill == AVL_Kill_Ret);
    EXPECT_TRUE(frees.Malloc == keeps.Malloc && frees.Realloc == keeps.Realloc);
    EXPECT_TRUE(frees.Free == AVL_Free_FreeMem && frees.Kill == AVL_Kill_FreeMem);
    EXPECT_EQ(frees.Free(std::malloc(1), &key, context), nullptr); // leaks and double frees: the address sanitizer
    frees.Kill(std::malloc(1), context);
}

TEST(Frame, TextsOfCodesAreFreshBlocks) {
    const auto take = [](char *text) {
        const std::string taken = text;
        EXPECT_LT(malloc_usable_size(text), taken.size() + 1 + 16);
        std::free(text);
        return taken;
    };
    EXPECT_EQ(take(Error_GetErrorText(5)), "Error Code (005)");
    EXPECT_EQ(take(Error_GetErrorText(93)), "Error Code (093)");
    EXPECT_EQ(take(Error_GetErrorText(94)), "Error Code (000)");
    EXPECT_EQ(take(Error_GetErrorText(INT32_MAX)), "Error Code (000)");
    EXPECT_EQ(take(Error_GetErrorText(-1)), "Error Code (-001)");
    EXPECT_EQ(take(Error_GetErrorText(INT32_MIN)), "Error Code (-2147483648)");
    EXPECT_EQ(take(Error_GetFuncText(177)), "Function Code (177)");
    EXPECT_EQ(take(Error_GetFuncText(178)), "Function Code (000)");
    EXPECT_EQ(take(Error_GetFuncText(INT32_MIN)), "Function Code (-2147483648)");
}

} // namespace
