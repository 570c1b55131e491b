/* Tearing a tree down.  AVL_DelTree with the table of AVL_GetNodeFuncPtrFreeMem frees nodes that are single blocks.
 * Where a node takes more, a walk in postorder comes to it when all nodes below it are gone, at a few steps a node
 * and without a comparison. */
#include <ovant_idioms.h>
#include <stdio.h>
#include <stdlib.h>

struct block {
    uint64_t hash;
    char *text;
    AVL_Link link;
};
OVANT_TYPED(blocks, struct block, link, hash, ovant_compare_uint64);

/* Every block is freed as soon as the walk has come to it: nothing below it is left then, and it is not read again. */
static unsigned release(AVL_Tree *tree) {
    AVL_PfadEntry *at;
    unsigned released = 0;
    for (at = AVL_WalkSuccPostorder(tree, NULL); at->Node; at = AVL_WalkSuccPostorder(tree, at), released++) {
        free(blocks_at(at)->text);
        free(at->Node);
    }
    AVL_ClrTree(tree); /* Root still names a block */
    return released;
}

int main(void) {
    AVL_Tree *tree = blocks_new();
    uint64_t i;
    if (!tree)
        return 1;
    for (i = 1; i <= 1000; i++) {
        struct block *block = (struct block *)calloc(1, sizeof *block);
        if (!block || !(block->text = (char *)malloc(16)))
            return 1;
        block->hash = i * 11400714819323198485u;
        blocks_insert(tree, block);
    }
    printf("%u blocks released\n", release(tree));
    AVL_Destruktor(tree);
    return 0;
}

/* prints
1000 blocks released
*/
