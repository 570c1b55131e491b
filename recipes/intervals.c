/* Intervals.  In a tree ordered by where intervals begin, those that overlap a window are among the ones that begin
 * before it ends, but no longer ago than the longest interval lasts.  That is one descent, and one step for each
 * interval that begins in this stretch.  It suits intervals of similar length: a very long one makes every question
 * look at all that began since. */
#include <ovant_idioms.h>
#include <stdio.h>

struct visit {
    int64_t from, to; /* the first moment inside, the first one outside */
    const char *who;
    AVL_Link link;
};
OVANT_TYPED(visits, struct visit, link, from, ovant_compare_int64);

/* Shows who is inside at some time between from and to.  longest is at least the length of the longest visit. */
static void overlapping(AVL_Tree *tree, int64_t from, int64_t to, int64_t longest) {
    const int64_t earliest = from - longest + 1; /* who came before this has left before from */
    AVL_PfadEntry *at = ovant_from(tree, &earliest, OVANT_DIR_RIGHT);
    const struct visit *visit;
    printf("%d to %d:", (int)from, (int)to);
    for (; (visit = visits_at(at)) != NULL && visit->from < to; at = AVL_WalkSuccInorder(tree, at))
        if (visit->to > from)
            printf(" %s", visit->who);
    putchar('\n');
}

int main(void) {
    struct visit all[] = {{9, 17, "Ada", {0}}, {10, 11, "Ben", {0}}, {12, 14, "Cleo", {0}}, {16, 20, "Dan", {0}}};
    int64_t longest = 0;
    AVL_Tree *tree = visits_new();
    size_t i;
    if (!tree)
        return 1;
    for (i = 0; i < sizeof all / sizeof *all; i++) {
        visits_insert(tree, &all[i]);
        if (all[i].to - all[i].from > longest)
            longest = all[i].to - all[i].from;
    }
    overlapping(tree, 11, 13, longest);
    overlapping(tree, 17, 18, longest);
    overlapping(tree, 20, 24, longest);
    AVL_Destruktor(tree);
    return 0;
}

/* prints
11 to 13: Ada Cleo
17 to 18: Dan
20 to 24:
*/
