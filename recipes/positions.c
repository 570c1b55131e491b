/* Several positions in one tree.  A tree has one path stack and so one position for walks.  Pointers to nodes are
 * positions too, any number of them: where no two nodes match a key, AVL_SearchSucc goes on from one, at a descent
 * for each step.  A walk steps for much less, and for a second one at the same time a copy of the descriptor looks
 * at the same nodes with a Stack of its own: 1,512 bytes, no comparison.  Both may walk and search until a node
 * comes or goes; then put the root into the copy again. */
#include <ovant_idioms.h>
#include <stdio.h>

struct coin {
    int32_t worth;
    AVL_Link link;
};
OVANT_TYPED(coins, struct coin, link, worth, ovant_compare_int32);

/* Pairs of coins that are worth sum together: one position goes up from the smallest, one down from the largest. */
static int pairs(AVL_Tree *tree, int sum) {
    AVL_Tree *view = AVL_Copy(tree);
    AVL_PfadEntry *low, *high;
    if (!view)
        return -1;
    ovant_put_tree(view, tree->Root); /* the same nodes, another Stack */
    low = AVL_MakeMin(tree);
    high = AVL_MakeMax(view);
    while (low->Node && high->Node && low->Node != high->Node) {
        const int found = coins_at(low)->worth + coins_at(high)->worth;
        if (found == sum)
            printf("%d and %d\n", (int)coins_at(low)->worth, (int)coins_at(high)->worth);
        if (found <= sum)
            low = AVL_WalkSuccInorder(tree, low);
        else
            high = AVL_WalkPredInorder(view, high);
    }
    AVL_Destruktor(view); /* ends the position; no node is touched */
    return 0;
}

int main(void) {
    struct coin all[] = {{50, {0}}, {5, {0}}, {10, {0}}, {45, {0}}, {20, {0}}, {1, {0}}, {2, {0}}};
    AVL_Tree *tree = coins_new();
    size_t i;
    if (!tree)
        return 1;
    for (i = 0; i < sizeof all / sizeof *all; i++)
        coins_insert(tree, &all[i]);
    if (pairs(tree, 55) != 0)
        return 1;
    AVL_Destruktor(tree);
    return 0;
}

/* prints
5 and 50
10 and 45
*/
