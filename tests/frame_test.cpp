// Descriptors, path stacks, depth arithmetic, the public handlers.
#include "ovant/engine/depth.hpp"
#include "support/check.hpp"
#include "support/memory.hpp"

#include <cstdlib>

using namespace ovant::c;
using namespace ovant::test;

namespace {

void expect_stack(Entry *stack, std::size_t entries) { // that has just been made
    EXPECT_EQ(memory.size, entries * sizeof(Entry));
    EXPECT_TRUE(stack[-1].Node == nullptr && stack[-1].Dir == DIR_NEW) << "sentinel";
}

TEST(Frame, ATreeIsLaidOutForAnyNodeCount) {
    memory.total = 0;
    AVL_Tree *tree = AVL_Konstruktor(4, &noting_handlers, 2, smallest_first, nullptr);
    EXPECT_EQ(memory.total, sizeof(void *) == 8 ? 1512 : 404); // a path of 86 or 42 nodes, and two entries
    EXPECT_TRUE(tree->LeftOff == 4 && tree->RightOff == 4 + sizeof(void *) && tree->BalOff == 4 + 2 * sizeof(void *));
    EXPECT_TRUE(tree->KeyOff == 2 && tree->Error == Gen_SysError && !tree->Root && tree->RefCount == 1);
    AVL_Destruktor(tree);
    AVL_Destruktor(refused_until_made([] { return AVL_Konstruktor(0, &noting_handlers, 0, smallest_first, nullptr); }));
    EXPECT_TRUE(AVL_TestVersion(259) == 1 && !AVL_TestVersion(258));
}

TEST(Frame, HoldsCopiesAndTakenTrees) {
    Host host;
    AVL_Tree *tree = host.tree;
    tree->RefCount = 65534;
    EXPECT_TRUE(AVL_Dup(tree) == tree && AVL_Dup(tree) == nullptr && tree->RefCount == 65535);
    const Node root = tree->Root = host.record(1);
    AVL_Tree *copy = refused_until_made([=] { return tree->Copy(tree); });
    EXPECT_EQ(std::memcmp(copy, tree, offsetof(AVL_Tree, Stack)), 0);
    EXPECT_EQ(std::memcmp(&copy->KeyOff, &tree->KeyOff, offsetof(AVL_Tree, RefCount) - offsetof(AVL_Tree, KeyOff)), 0);
    EXPECT_TRUE(!copy->Root && copy->RefCount == 1 && copy->Stack != tree->Stack);
    copy->Dup(copy);
    AVL_Destruktor(copy);
    copy->Stack[20] = {}; // still there for the last holder: the address sanitizer watches
    copy->Destruktor(copy);
    tree->RefCount = 1;
    EXPECT_TRUE(AVL_GetTree(tree) == root && AVL_GetTree(tree) == nullptr);
    tree->Root = root;
    AVL_ClrTree(tree);
    EXPECT_TRUE(!tree->Root && seen.calls.empty()) << "the nodes are the host's";
}

// The least tree of 86 levels, at 24 bytes a node, is larger than 2^64 bytes, and the one of 85 is not.
static_assert(sizeof(void *) != 8 || ovant::engine::greatest_height(24) == 86);

TEST(Frame, DepthArithmeticAgreesWithTheLeastTrees) {
    double least = 1, smaller = 0;
    for (signed char depth = 1; depth <= 46; depth++) {
        const uint32_t most = Nodes_Deepth(depth), below = Nodes_Deepth(static_cast<signed char>(depth - 1));
        EXPECT_EQ(most, std::min<double>(least, UINT32_MAX)) << int{depth};
        // Each depth serves the counts above the one below it, up to its own.
        EXPECT_TRUE(Deepth_Nodes(most) == depth && Deepth_Nodes(below + 1) == depth) << int{depth};
        smaller = std::exchange(least, least + smaller + 1);
    }
    EXPECT_TRUE(Nodes_Deepth(-1) == 0 && Nodes_Deepth(47) == UINT32_MAX && Deepth_Nodes(0) == 0);
    EXPECT_TRUE(Nodes_Max(0) == 0 && Nodes_Max(31) == 2147483647);
    EXPECT_TRUE(Nodes_Max(32) == 0 && Nodes_Max(255) == 2147483647) << "the shift count is modulo 32";
}

TEST(Frame, PathStacksGrowAndShrinkAboveTheirSentinel) {
    for (const auto make : {+[] { return malloc_Stack_Deepth(-1); }, +[] { return malloc_Stack_Nodes(0); }}) {
        Entry *const made = refused_until_made(make);
        expect_stack(made, 2), free_Stack(made);
    }
    Entry *stack = refused_until_made([] { return realloc_Stack_Nodes(nullptr, 100); });
    expect_stack(stack, 12);
    *stack = {&stack, 5};
    for (const auto &[depth, entries] : {std::pair<signed char, std::size_t>(60, 62), {3, 5}, {127, 129}}) {
        stack[-1] = {&stack, 5}; // a resized stack has its sentinel, and the entries that fit
        stack = refused_until_made([&, to = depth] { return realloc_Stack_Deepth(stack, to); });
        expect_stack(stack, entries);
        EXPECT_TRUE(stack->Node == &stack && stack->Dir == 5);
    }
    free_Stack(stack);
    free_Stack(nullptr);
}

TEST(Frame, HandlersGiveWhatTheyAreNamedFor) {
    int record = 0, key = 0;
    Node node = &record, context = &node; // as address of a node pointer; taken directly, it is a node itself
    EXPECT_TRUE(!AVL_Malloc_RetNull(&key, context) && AVL_Malloc_RetHandlePointer(&key, context) == node);
    EXPECT_EQ(AVL_Realloc_RetHandlePointer(&key, &key, context), node);
    const AVL_NodeFuncs &frees = *AVL_GetNodeFuncPtrFreeMem();
    EXPECT_EQ(frees.Realloc(&key, &key, frees.Malloc(&key, context)), context);
    EXPECT_EQ(frees.Free(std::malloc(1), &key, context), nullptr); // the address sanitizer finds what is not freed
    frees.Kill(std::malloc(1), context);
}

} // namespace
