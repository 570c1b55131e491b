/* A comparator that needs to know more.  The library does not read a key word, it hands it on.  So the key word may
 * point to a struct that holds the key and whatever else it takes to understand a node.  ovant_find_or_make calls
 * make for new words only, and hangs the node at the place to which its search has led. */
#include <ovant_idioms.h>
#include <stdio.h>
#include <string.h>

/* A node holds no text but an offset into a pool that may move; so the comparator must be told where the pool is. */
struct word {
    uint32_t offset;
    int count;
    AVL_Link link;
};
struct pool {
    char text[100];
    uint32_t used;
    struct word words[4];
    size_t made;
};
struct probe { /* what the key word of every operation points to */
    const char *text;
    const struct pool *pool;
};

static int compare(const void *node_key, const void *key) {
    const struct probe *probe = (const struct probe *)key;
    return AVL_CMP_String(probe->pool->text + *(const uint32_t *)node_key, probe->text);
}

static void *make(const void *key, void *context) {
    struct pool *pool = (struct pool *)context;
    struct word *word = &pool->words[pool->made];
    const char *text = ((const struct probe *)key)->text;
    if (pool->made == sizeof pool->words / sizeof *pool->words || pool->used + strlen(text) >= sizeof pool->text)
        return NULL;
    pool->made++;
    word->offset = pool->used;
    strcpy(pool->text + pool->used, text);
    pool->used += (uint32_t)strlen(text) + 1;
    return word;
}

int main(void) {
    static const char *const text[] = {"to", "be", "or", "not", "to", "be", "that"};
    static struct pool pool;
    AVL_Tree *tree = AVL_Konstruktor(offsetof(struct word, link), AVL_GetNodeFuncPtrRetNULL(),
                                     offsetof(struct word, offset), compare, NULL);
    AVL_PfadEntry *at;
    size_t i;
    if (!tree)
        return 1;
    for (i = 0; i < sizeof text / sizeof *text; i++) {
        struct probe probe = {text[i], &pool};
        struct word *word = (struct word *)ovant_find_or_make(tree, &probe, make, &pool);
        if (word)
            word->count++;
        else
            printf("no room for \"%s\"\n", text[i]);
    }
    for (at = AVL_WalkSuccInorder(tree, NULL); at->Node; at = AVL_WalkSuccInorder(tree, at)) {
        const struct word *word = (const struct word *)at->Node;
        printf("%d %s\n", word->count, pool.text + word->offset);
    }
    AVL_Destruktor(tree);
    return 0;
}

/* prints
no room for "that"
2 be
1 not
1 or
2 to
*/
