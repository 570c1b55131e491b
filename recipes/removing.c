/* Removing while walking.  A removal ends the walk.  So the walk steps on first, and comes back to where it was by a
 * new path: two to four descents for each node that goes, a step for each that stays.  A range needs no walk:
 * AVL_DelBetweenEqualEqual and its sisters remove it at once. */
#include <ovant_idioms.h>
#include <stdio.h>
#include <string.h>

struct job {
    int32_t level;
    const char *owner;
    AVL_Link link;
};
OVANT_TYPED(jobs, struct job, link, level, ovant_compare_int32);

static int unwanted(const struct job *job, const char *owner) { return strcmp(job->owner, owner) == 0; }

/* Removes the owner's jobs in one walk; equal levels are no trouble. */
static void forget(AVL_Tree *tree, const char *owner) {
    AVL_PfadEntry *at = AVL_WalkSuccInorder(tree, NULL);
    while (at->Node) {
        struct job *job = jobs_at(at), *next;
        at = AVL_WalkSuccInorder(tree, at);
        if (!unwanted(job, owner))
            continue;
        next = jobs_at(at);
        jobs_remove(tree, job); /* the position is void now */
        if (!next)
            break;
        at = ovant_path(tree, &next->level, next);
    }
}

int main(void) {
    struct job all[] = {{3, "eve", {0}}, {1, "bob", {0}}, {3, "bob", {0}},
                        {2, "eve", {0}}, {3, "bob", {0}}, {3, "eve", {0}}};
    AVL_Tree *tree = jobs_new();
    AVL_PfadEntry *at;
    size_t i;
    if (!tree)
        return 1;
    for (i = 0; i < sizeof all / sizeof *all; i++)
        jobs_insert(tree, &all[i]);
    forget(tree, "bob");
    for (at = AVL_WalkSuccInorder(tree, NULL); at->Node; at = AVL_WalkSuccInorder(tree, at))
        printf("%d %s\n", (int)jobs_at(at)->level, jobs_at(at)->owner);
    AVL_Destruktor(tree);
    return 0;
}

/* prints
2 eve
3 eve
3 eve
*/
