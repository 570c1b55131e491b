// Path stacks: a sentinel below the first usable entry, and one entry more than the depth for the free child position.
#include "frame/depth.hpp"
#include "frame/nodes.hpp"

#include <cstdlib>

namespace {

// The block begins at the sentinel; every stack pointer points just behind it.
AVL_PfadEntry *resize(AVL_PfadEntry *stack, signed char depth) {
    const std::size_t entries = static_cast<std::size_t>(depth < 0 ? 0 : depth) + 2;
    auto *block = static_cast<AVL_PfadEntry *>(std::realloc(stack ? stack - 1 : nullptr, entries * sizeof *stack));
    if (!block)
        return nullptr;
    *block = {nullptr, DIR_NEW};
    return block + 1;
}

} // namespace

AVL_PfadEntry *malloc_Stack_Deepth(signed char depth) { return resize(nullptr, depth); }
AVL_PfadEntry *malloc_Stack_Nodes(uint32_t nodes) { return resize(nullptr, Deepth_Nodes(nodes)); }
AVL_PfadEntry *realloc_Stack_Deepth(AVL_PfadEntry *stack, signed char depth) { return resize(stack, depth); }
AVL_PfadEntry *realloc_Stack_Nodes(AVL_PfadEntry *stack, uint32_t nodes) { return resize(stack, Deepth_Nodes(nodes)); }

void free_Stack(AVL_PfadEntry *stack) {
    if (stack)
        std::free(stack - 1);
}
