/* Ovant: idioms.  What hosts make of the operations of ovant.h again and again: one node among its equals, its
 * neighbours, trees held by value, find or make, more comparators, typed wrappers.
 *
 * Everything here is static inline over the public interface, in C99 and C++; nothing is exported.  The conventions are
 * those of ovant.h.  The programs in recipes/ show them in use.
 *
 * key is the key word under which the node is found: with every ready comparator but AVL_CMP_HandleDirekt the address
 * of the key inside the node serves.  side is OVANT_DIR_LEFT or OVANT_DIR_RIGHT.
 */
#ifndef OVANT_IDIOMS_H
#define OVANT_IDIOMS_H

#include "ovant.h"

#include <stddef.h>
#include <string.h>
#include <time.h>

#if defined(__GNUC__)
#define OVANT_INLINE __attribute__((unused)) static inline
#else
#define OVANT_INLINE static inline
#endif

/* ---- Nodes that come and go ------------------------------------------------------------------------------------ */

/* ovant_clear: node with its link header cleared, as a node enters a tree.
 *   node 0   0
 * node stands in no tree through this header.  tree only tells where the header lies.  Leaves the Stack.
 */
OVANT_INLINE void *ovant_clear(const AVL_Tree *tree, void *node) {
    if (node)
        memset((char *)node + tree->LeftOff, 0, sizeof(AVL_Link));
    return node;
}

/* ovant_take: the node at the end on that side, as AVL_GetMin and AVL_GetMax, with a cleared header.
 *   empty tree   0
 * No comparison; at most H steps down and H up.  Uses the Stack.  The node belongs to the host.
 */
OVANT_INLINE void *ovant_take(AVL_Tree *tree, int side) {
    return ovant_clear(tree, side < 0 ? AVL_GetMin(tree) : AVL_GetMax(tree));
}

/* ovant_find_or_make: the node that stands for the key, found or made.
 *   key present   the match; make is not called
 *   key absent    what make(key, context) gave, now in the tree; 0 where it gave 0, and nothing changes
 * make is a Malloc handler by contract: a node with its key and a cleared header, and no use of this tree's Stack.
 * At most one comparison per level, then a climb.  Uses the Stack.  Calls back Cmp, then make; no handler of the tree.
 */
OVANT_INLINE void *ovant_find_or_make(AVL_Tree *tree, const void *key, void *(*make)(const void *key, void *context),
                                      void *context) {
    AVL_PfadEntry *const at = AVL_MakeKey(tree, key);
    void *node = at->Node;
    if (!node && (node = make(key, context)) != NULL)
        AVL_InsertStack(tree, at, node);
    return node;
}

/* ovant_replace: the node that stood for the key, detached, with a cleared header; node stands at its place.
 *   key absent           0, and node has gone in
 *   node is that match   0, and nothing changes
 * The tree has a ready handler table, or one with the same Malloc and Realloc.  No Balance and no shape changes for a
 * present key.  At most two comparisons per level.  Uses the Stack.  Both nodes are the host's, one of them linked.
 */
OVANT_INLINE void *ovant_replace(AVL_Tree *tree, const void *key, void *node) {
    void *const old = AVL_SearchKey(tree, key);
    if (old == node)
        return NULL;
    if (old)
        memcpy((char *)node + tree->LeftOff, (char *)old + tree->LeftOff, sizeof(AVL_Link));
    AVL_InsertKey(tree, key, node);
    return ovant_clear(tree, old);
}

/* ---- Positions, and one node among its equals ------------------------------------------------------------------ */

/* ovant_walk: the next position of tree order towards side: AVL_WalkSuccInorder or AVL_WalkPredInorder. */
OVANT_INLINE AVL_PfadEntry *ovant_walk(AVL_Tree *tree, AVL_PfadEntry *position, int side) {
    return side < 0 ? AVL_WalkPredInorder(tree, position) : AVL_WalkSuccInorder(tree, position);
}

/* ovant_from: the position at which a walk towards side begins at the key.
 *   key present    the first node of its equal run, seen in the direction of the walk
 *   key absent     the first node behind the key in that direction
 *   no such node   the end position
 * One comparison per level, down to the bottom.  Uses the Stack: the result is its newest path.
 */
OVANT_INLINE AVL_PfadEntry *ovant_from(AVL_Tree *tree, const void *key, int side) {
    AVL_PfadEntry *const at = side < 0 ? AVL_MakeLastKey(tree, key) : AVL_MakeFirstKey(tree, key);
    return at->Node ? at : ovant_walk(tree, at, side);
}

/* ovant_path: the path to this very node, which a path to its key may miss.
 *   key absent                   open Pfad
 *   node not in the key's run    empty Pfad
 * One comparison per level; behind others of its equal run one more per level and a step for each node before it.  Long
 * runs want a key that tells their nodes apart.  Uses the Stack: the result is its newest path.  Calls back Cmp alone.
 */
OVANT_INLINE AVL_PfadEntry *ovant_path(AVL_Tree *tree, const void *key, const void *node) {
    AVL_PfadEntry *at = AVL_MakeFirstKey(tree, key);
    if (at->Node && at->Node != node) {
        const void *const last = AVL_SearchLessEqual(tree, key);
        do /* AVL_WalkUp from the bottom entry gives the empty Pfad */
            at = at->Node == last ? AVL_WalkUp(tree, tree->Stack) : AVL_WalkSuccInorder(tree, at);
        while (at->Node && at->Node != node);
    }
    return at;
}

/* ovant_remove: this very node, detached, with a cleared header: it may go into a tree at once.
 *   node not in the key's run   0, and nothing changes
 * The cost of ovant_path, then that of AVL_GetPfad.  Uses the Stack.  The node is the host's; no handler is asked.
 */
OVANT_INLINE void *ovant_remove(AVL_Tree *tree, const void *key, const void *node) {
    return ovant_clear(tree, AVL_GetPfad(tree, ovant_path(tree, key, node)));
}

/* ovant_neighbour: the node next to this very node on that side, 0 at the end of the tree.
 *   node not in the key's run   0
 * The cost of ovant_path, then one step of a walk.  Uses the Stack, in which a walk may go on from here.  Where no two
 * nodes match a key, AVL_SearchPred and AVL_SearchSucc of its key find the same and leave the Stack alone.
 */
OVANT_INLINE void *ovant_neighbour(AVL_Tree *tree, const void *key, const void *node, int side) {
    AVL_PfadEntry *const at = ovant_path(tree, key, node);
    return at->Node ? ovant_walk(tree, at, side)->Node : NULL;
}

/* ---- Trees held by value --------------------------------------------------------------------------------------- */

/* ovant_put_tree: the former root, as AVL_GetTree gives it; the tree has all the nodes below root instead.
 *   root 0   the tree is empty afterwards, as by AVL_GetTree
 * So a host can hold any number of trees of one kind as bare roots, one pointer each, and put the one at hand into a
 * shared descriptor: AVL_GetTree takes it out again, perhaps with another root.  No comparison, no step.
 * A held Pfad is void.  Both roots are as the library hands them out, and the former one is the host's.
 */
OVANT_INLINE void *ovant_put_tree(AVL_Tree *tree, void *root) {
    void *const former = AVL_GetTree(tree);
    AVL_ConcatLess(tree, root);
    return former;
}

/* ---- Comparators ----------------------------------------------------------------------------------------------- */
/* For AVL_Konstruktor.  The search key is a pointer to a value like the one in the node, both at any address; the
 * smallest stands on the left.  AVL_CMP_HandlePointer is the one for uint32_t.
 *
 * A comparator with a context needs no slot of its own: the key word of an operation may point to a struct of the host
 * that holds key and context, and the comparator, which no operation calls for two nodes, finds both there:
 *
 *     struct probe { const char *text; const char *pool; };                    the nodes hold offsets into the pool
 *     static int compare(const void *node_key, const void *key) {
 *         const struct probe *probe = key;
 *         return AVL_CMP_String(probe->pool + *(const uint32_t *)node_key, probe->text);
 *     }
 */

/* OVANT_COMPARATOR(name, type): defines a comparator of that name for a type that >= and > compare.  Its answer is put
 * together without a branch, which at random keys could only be guessed.
 */
#define OVANT_COMPARATOR(name, type)                                                                                   \
    OVANT_INLINE int name(const void *node_key_, const void *key_) {                                                   \
        type in_node_, sought_;                                                                                        \
        memcpy(&in_node_, node_key_, sizeof in_node_);                                                                 \
        memcpy(&sought_, key_, sizeof sought_);                                                                        \
        return (sought_ >= in_node_) + (sought_ > in_node_) - 1;                                                       \
    }                                                                                                                  \
    OVANT_INLINE int name(const void *node_key_, const void *key_)

OVANT_COMPARATOR(ovant_compare_int32, int32_t);
OVANT_COMPARATOR(ovant_compare_int64, int64_t);
OVANT_COMPARATOR(ovant_compare_uint64, uint64_t);
OVANT_COMPARATOR(ovant_compare_time, time_t);
OVANT_COMPARATOR(ovant_compare_pointer, uintptr_t); /* the key is a pointer: by address */

/* ---- Typed wrappers -------------------------------------------------------------------------------------------- */
/* OVANT_TYPED(jobs, struct job, link, prio, compare): functions for trees of struct job whose headers are the member
 * link and whose keys are the member prio, so that a compiler refuses a pointer to anything else.  compare takes the
 * address of a key as key word.  The tree stays an AVL_Tree, so all of ovant.h works on it too.
 *
 *   jobs_new()                      AVL_Konstruktor with AVL_GetNodeFuncPtrRetNULL and the default error callback
 *   jobs_insert(tree, job)          AVL_InsertStabil: job, now behind its equals
 *   jobs_insert_unique(tree, job)   AVL_InsertSearchKey: job, or the equal one that keeps it out
 *   jobs_replace(tree, job)         ovant_replace: the equal one that gave way, or 0
 *   jobs_find(tree, key)            AVL_SearchKey
 *   jobs_lower_bound(tree, key)     AVL_SearchGreaterEqual
 *   jobs_upper_bound(tree, key)     AVL_SearchGreater
 *   jobs_first(tree), jobs_last     AVL_SearchMin, AVL_SearchMax
 *   jobs_next(tree, job), jobs_prev ovant_neighbour
 *   jobs_remove(tree, job)          ovant_remove: job, or 0 if it is not in the tree
 *   jobs_take_first(tree), _last    ovant_take
 *   jobs_at(position)               the job of a position, 0 at the end of a walk
 *   jobs_link(job)                  its header
 */
#define OVANT_TYPED(name, record, link_member, key_member, compare)                                                    \
    OVANT_INLINE AVL_Link *name##_link(record *x_) { return &x_->link_member; }                                        \
    OVANT_INLINE AVL_Tree *name##_new(void) {                                                                          \
        return AVL_Konstruktor(offsetof(record, link_member), AVL_GetNodeFuncPtrRetNULL(),                             \
                               offsetof(record, key_member), compare, NULL);                                           \
    }                                                                                                                  \
    OVANT_INLINE record *name##_insert(AVL_Tree *tree_, record *x_) {                                                  \
        return (record *)AVL_InsertStabil(tree_, &x_->key_member, x_);                                                 \
    }                                                                                                                  \
    OVANT_INLINE record *name##_insert_unique(AVL_Tree *tree_, record *x_) {                                           \
        return (record *)AVL_InsertSearchKey(tree_, &x_->key_member, x_);                                              \
    }                                                                                                                  \
    OVANT_INLINE record *name##_replace(AVL_Tree *tree_, record *x_) {                                                 \
        return (record *)ovant_replace(tree_, &x_->key_member, x_);                                                    \
    }                                                                                                                  \
    OVANT_INLINE record *name##_find(const AVL_Tree *tree_, const void *key_) {                                        \
        return (record *)AVL_SearchKey(tree_, key_);                                                                   \
    }                                                                                                                  \
    OVANT_INLINE record *name##_lower_bound(const AVL_Tree *tree_, const void *key_) {                                 \
        return (record *)AVL_SearchGreaterEqual(tree_, key_);                                                          \
    }                                                                                                                  \
    OVANT_INLINE record *name##_upper_bound(const AVL_Tree *tree_, const void *key_) {                                 \
        return (record *)AVL_SearchGreater(tree_, key_);                                                               \
    }                                                                                                                  \
    OVANT_INLINE record *name##_first(const AVL_Tree *tree_) { return (record *)AVL_SearchMin(tree_); }                \
    OVANT_INLINE record *name##_last(const AVL_Tree *tree_) { return (record *)AVL_SearchMax(tree_); }                 \
    OVANT_INLINE record *name##_next(AVL_Tree *tree_, const record *x_) {                                              \
        return (record *)ovant_neighbour(tree_, &x_->key_member, x_, OVANT_DIR_RIGHT);                                 \
    }                                                                                                                  \
    OVANT_INLINE record *name##_prev(AVL_Tree *tree_, const record *x_) {                                              \
        return (record *)ovant_neighbour(tree_, &x_->key_member, x_, OVANT_DIR_LEFT);                                  \
    }                                                                                                                  \
    OVANT_INLINE record *name##_remove(AVL_Tree *tree_, record *x_) {                                                  \
        return (record *)ovant_remove(tree_, &x_->key_member, x_);                                                     \
    }                                                                                                                  \
    OVANT_INLINE record *name##_take_first(AVL_Tree *tree_) { return (record *)ovant_take(tree_, OVANT_DIR_LEFT); }    \
    OVANT_INLINE record *name##_take_last(AVL_Tree *tree_) { return (record *)ovant_take(tree_, OVANT_DIR_RIGHT); }    \
    OVANT_INLINE record *name##_at(const AVL_PfadEntry *position_) { return (record *)position_->Node; }               \
    OVANT_INLINE AVL_Link *name##_link(record *x_)

#endif /* OVANT_IDIOMS_H */
