/* A comparator without branches.  At random keys no processor can foresee which way a search turns.  So the descents
 * of the library do not branch there, and a comparator should not either.  Which of these forms has branches, the
 * compiler decides. */
#include <ovant_idioms.h>
#include <stdio.h>
#include <stdlib.h>

#ifndef NUMBER
#define NUMBER double
#endif
typedef NUMBER number;
struct record {
    number key;
    AVL_Link link;
};

#define FORM(name, answer)                                                                                             \
    static int name(const void *node_key, const void *key) {                                                           \
        const number n = *(const number *)node_key, k = *(const number *)key;                                          \
        return answer;                                                                                                 \
    }
FORM(choice, k<n ? -1 : k> n ? 1 : 0)
FORM(minus, (k > n) - (k < n))
FORM(sum, (k >= n) + (k > n) - 1)

enum { searches = 100000 };
static number keys[2][searches]; /* at random, and in tree order over and over */

/* Nanoseconds for a search, by the quickest of some rounds. */
static double quickest(const AVL_Tree *tree, const number *key, int rounds) {
    double best = 1e9;
    for (; rounds > 0; rounds--) {
        const clock_t start = clock();
        double time;
        size_t i, found = 0;
        for (i = 0; i < searches; i++)
            found += AVL_SearchKey(tree, &key[i]) != NULL;
        time = (double)(clock() - start) * 1e9 / CLOCKS_PER_SEC / (double)found;
        if (time < best)
            best = time;
    }
    return best;
}

int main(int words, char **word) {
    static const AVL_CmpFunc forms[] = {choice, minus, sum};
    static const char *const names[] = {"?:", "(k > n) - (k < n)", "(k >= n) + (k > n) - 1"};
    const size_t nodes = words > 1 ? strtoul(word[1], NULL, 10) : 1000;
    const int rounds = words > 2 ? atoi(word[2]) : 1;
    struct record *records = (struct record *)calloc(nodes, sizeof *records);
    AVL_Tree *trees[3];
    AVL_PfadEntry *at = NULL;
    uint64_t random = 88172645463325252u;
    size_t i;
    for (i = 0; i < 3; i++)
        trees[i] = AVL_Konstruktor(offsetof(struct record, link), AVL_GetNodeFuncPtrRetNULL(), 0, forms[i], NULL);
    if (!records || !trees[0] || !trees[1] || !trees[2])
        return 1;
    for (i = 0; i < nodes + searches; i++) {
        random ^= random << 13, random ^= random >> 7, random ^= random << 17;
        if (i < nodes) {
            records[i].key = (number)(random >> 33);
            AVL_Insert(trees[0], &records[i].key, &records[i]);
        } else {
            keys[0][i - nodes] = records[random % nodes].key;
        }
    }
    for (i = 0; i < searches; i++) {
        while (!(at = AVL_WalkSuccInorder(trees[0], at))->Node)
            at = NULL;
        keys[1][i] = ((struct record *)at->Node)->key;
    }
    for (i = 0; i < 3; i++) {
        ovant_put_tree(trees[i], trees[0]->Root); /* the same nodes for all of them */
        printf("%-24s %6.1f ns at random", names[i], quickest(trees[i], keys[0], rounds));
        printf(" %6.1f in tree order\n", quickest(trees[i], keys[1], rounds));
    }
    for (i = 0; i < 3; i++)
        AVL_Destruktor(trees[i]);
    free(records);
    return 0;
}
