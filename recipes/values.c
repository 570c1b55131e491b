/* Trees by value.  Very many small trees need no descriptors.  What has to be kept of a tree is its root; one
 * descriptor lends its Stack and its comparator to whichever tree is at hand.  To put a root in or to take it out is
 * a few instructions. */
#include <ovant_idioms.h>
#include <stdio.h>

struct edge {
    uint32_t to;
    AVL_Link link;
};
OVANT_TYPED(edges, struct edge, link, to, AVL_CMP_HandlePointer);

struct town {
    void *roads; /* a tree of edges, held by value: no descriptor, no Stack */
};

static struct edge *connect(AVL_Tree *tree, struct town *town, struct edge *edge) {
    struct edge *there;
    ovant_put_tree(tree, town->roads);
    there = edges_insert_unique(tree, edge);
    town->roads = AVL_GetTree(tree); /* the root may be another one now */
    return there;
}

int main(void) {
    static const uint32_t roads[][2] = {{0, 2}, {0, 1}, {2, 0}, {0, 2}, {1, 2}, {0, 3}};
    struct town towns[4] = {{NULL}, {NULL}, {NULL}, {NULL}};
    struct edge all[sizeof roads / sizeof *roads] = {{0, {0}}};
    AVL_Tree *tree = edges_new(); /* the only one */
    size_t i;
    if (!tree)
        return 1;
    for (i = 0; i < sizeof roads / sizeof *roads; i++) {
        all[i].to = roads[i][1];
        if (connect(tree, &towns[roads[i][0]], &all[i]) != &all[i])
            printf("%u to %u is there already\n", (unsigned)roads[i][0], (unsigned)roads[i][1]);
    }
    for (i = 0; i < 4; i++) {
        ovant_put_tree(tree, towns[i].roads);
        printf("town %u: %u roads\n", (unsigned)i, (unsigned)AVL_CountNode(tree));
        AVL_GetTree(tree);
    }
    AVL_Destruktor(tree);
    return 0;
}

/* prints
0 to 2 is there already
town 0: 3 roads
town 1: 1 roads
town 2: 1 roads
town 3: 0 roads
*/
