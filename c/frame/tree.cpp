// The life of a descriptor: made, shared, copied, emptied, ended.  Nodes are never touched here.
#include "frame/depth.hpp"
#include "frame/nodes.hpp"
#include "frame/report.hpp"

#include <cstdlib>

namespace {

AVL_Tree *with_stack(const AVL_Tree &kind) {
    auto *tree = static_cast<AVL_Tree *>(std::malloc(sizeof(AVL_Tree)));
    if (!tree)
        return nullptr;
    *tree = kind;
    tree->Root = nullptr;
    tree->RefCount = 1;
    tree->Stack = malloc_Stack_Deepth(ovant::c::tree_depth);
    if (tree->Stack)
        return tree;
    std::free(tree);
    return nullptr;
}

} // namespace

AVL_Tree *AVL_Konstruktor(uintptr_t link_off, const AVL_NodeFuncs *funcs, uintptr_t key_off, AVL_CmpFunc cmp,
                          AVL_ErrorFunc error) {
    return with_stack({
        .LeftOff = link_off + offsetof(AVL_Link, Left),
        .RightOff = link_off + offsetof(AVL_Link, Right),
        .BalOff = link_off + offsetof(AVL_Link, Balance),
        .Funcs = funcs,
        .Stack = nullptr,
        .Root = nullptr,
        .KeyOff = key_off,
        .Cmp = cmp,
        .Error = error ? error : Gen_SysError,
        .Destruktor = AVL_Destruktor,
        .Dup = AVL_Dup,
        .Copy = AVL_Copy,
        .RefCount = 1,
    });
}

AVL_Tree *AVL_Copy(const AVL_Tree *tree) { return with_stack(*tree); }

AVL_Tree *AVL_Dup(AVL_Tree *tree) {
    if (tree->RefCount == UINT16_MAX)
        return nullptr;
    ++tree->RefCount;
    return tree;
}

void AVL_Destruktor(AVL_Tree *tree) {
    if (--tree->RefCount != 0)
        return;
    free_Stack(tree->Stack);
    std::free(tree);
}

void AVL_ClrTree(AVL_Tree *tree) { tree->Root = nullptr; }

void *AVL_GetTree(AVL_Tree *tree) {
    void *root = tree->Root;
    tree->Root = nullptr;
    return root;
}

int AVL_TestVersion(int version) { return version == ovant::c::version.number; }
