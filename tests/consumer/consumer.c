/* The least that a C99 host does: link a record, find it. */
#include <ovant.h>

#include <stddef.h>

struct record {
    int32_t key;
    AVL_Link link;
};

static int compare(const void *node_key, const void *key) {
    const int32_t at = *(const int32_t *)node_key, wanted = *(const int32_t *)key;
    return (wanted > at) - (wanted < at);
}

int main(void) {
    struct record records[] = {{.key = 3}, {.key = 1}, {.key = 2}};
    const int32_t wanted = 2, absent = 4;
    AVL_Tree *tree = AVL_Konstruktor(offsetof(struct record, link), AVL_GetNodeFuncPtrRetNULL(),
                                     offsetof(struct record, key), compare, NULL);
    int ok = tree != NULL;
    for (size_t i = 0; ok && i < 3; ++i)
        ok = AVL_InsertUnique(tree, &records[i].key, &records[i]) == &records[i];
    ok = ok && AVL_SearchKey(tree, &wanted) == &records[2] && AVL_SearchKey(tree, &absent) == NULL;
    AVL_Destruktor(tree);
    return ok ? 0 : 1;
}
