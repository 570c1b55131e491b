// The ten handlers and the two public tables.
#include "ovant.h"

#include <cstdlib>

void *AVL_Malloc_RetHandlePointer(const void *, void *context) { return *static_cast<void **>(context); }
void *AVL_Malloc_RetHandleDirekt(const void *, void *context) { return context; }

void *AVL_Realloc_RetGivenHandle(void *node, const void *, void *) { return node; }
void *AVL_Realloc_RetHandlePointer(void *, const void *, void *context) { return *static_cast<void **>(context); }
void *AVL_Realloc_RetHandleDirekt(void *, const void *, void *context) { return context; }

void *AVL_Free_RetNULL(void *, const void *, void *) { return nullptr; }
void *AVL_Free_FreeMem(void *node, const void *, void *) {
    std::free(node);
    return nullptr;
}

void AVL_Kill_Ret(void *, void *) {}
void AVL_Kill_FreeMem(void *node, void *) { std::free(node); }

// One function under two names: it reads no argument, so the number of them does not matter.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wattribute-alias"
#pragma GCC diagnostic ignored "-Wmissing-attributes"
#endif
extern "C" OVANT_API __attribute__((alias("AVL_Free_RetNULL"))) void *AVL_Malloc_RetNull(const void *, void *);

namespace {

constinit const AVL_NodeFuncs keep_nodes = {
    .Malloc = AVL_Malloc_RetHandleDirekt,
    .Realloc = AVL_Realloc_RetHandleDirekt,
    .Free = AVL_Free_RetNULL,
    .Kill = AVL_Kill_Ret,
};
constinit const AVL_NodeFuncs free_nodes = {
    .Malloc = AVL_Malloc_RetHandleDirekt,
    .Realloc = AVL_Realloc_RetHandleDirekt,
    .Free = AVL_Free_FreeMem,
    .Kill = AVL_Kill_FreeMem,
};

} // namespace

const AVL_NodeFuncs *AVL_GetNodeFuncPtrRetNULL(void) { return &keep_nodes; }
const AVL_NodeFuncs *AVL_GetNodeFuncPtrFreeMem(void) { return &free_nodes; }
