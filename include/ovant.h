/* Ovant: ordered containers whose nodes are the host's own records.
 *
 * A tree is a height-balanced binary search tree, an AVL tree.  The host puts a link header anywhere into its record,
 * says at which offsets header and key lie, names a comparator and a table of handlers, and has a tree:
 *
 *     struct Fruit { int price; AVL_Link link; char name[20]; };
 *
 *     AVL_Tree *tree = AVL_Konstruktor(offsetof(struct Fruit, link), AVL_GetNodeFuncPtrFreeMem(),
 *                                      offsetof(struct Fruit, name), AVL_CMP_String, 0);
 *     struct Fruit *pear = calloc(1, sizeof *pear);        a node enters a tree with a cleared link header
 *     strcpy(pear->name, "pear");
 *     AVL_Insert(tree, "pear", pear);                      key word and context word: here the node itself
 *     pear = AVL_SearchKey(tree, "pear");
 *     AVL_DelTree(tree, 0);                                hands every node to the table's Kill: free
 *     AVL_Destruktor(tree);
 *
 * For everyday work that is nearly all: insert, search, walk, remove.  Positions, ranges and trees that are cut and
 * joined come further down; what hosts often make of them is ready in ovant_idioms.h, which ovant_... below refers to.
 * Read the conventions once; the contracts below rest on them.
 *
 * CONVENTIONS
 *
 * Tree order is the sequence of the nodes from the leftmost to the rightmost.  The comparator alone makes it: asked at
 * a node it answers -1 (the key lies left of this node), +1 (right of it) or 0 (a match).  The equal run of a key is
 * all nodes that match it; they stand side by side in tree order.  No range operation divides one.
 *
 * Positions, not values: left and right, first and last, Min and Max, Pred and Succ, Less and Greater, before and after
 * always speak of tree order.  Some comparators put large values on the left; there AVL_SearchMin gives the largest
 * value, and Less means numerically larger.
 *
 * Names: Make builds a path, Search looks a node up and leaves the path stack alone, Walk steps a position, Get
 * detaches and hands back, Del destroys through a handler.  Pfad is a path, Deepth a height.
 *
 * The key word goes to the comparator and to the handlers, the context word to the handlers alone.  The library passes
 * both on unread: what they are, an address or a value, is between the host and its functions.
 *
 * Height (Deepth) counts levels: 0 for the empty tree, 1 for a single node.
 *
 * A Pfad is a pointer to the top entry of a path.  The path is the run of entries from the bottom entry, Stack[0], up
 * to that one; every entry below the top names a node and, in Dir, the side on which the next entry's node hangs.
 * The host may read all of them.  A Pfad has three forms, which the Node of its top entry and the operation tell apart:
 *   path to a node   Node is the node, Dir is DIR_HERE
 *   open Pfad        Node is 0: the path has run into an empty link.  The entries below lead from Root to the node
 *                    whose link it is, and that node's Dir says which; a new node can be hung there (AVL_InsertStack)
 *   empty Pfad       the bottom entry with Node 0: no node qualifies.  Nothing may be hung there: the 0 has replaced
 *                    the root in the Stack, so no way leads to a free link (tree->Root is unharmed)
 * In an empty tree open and empty Pfad are the same thing.
 *
 * The Stack: a tree has one path stack, made with the tree and large enough for any tree that fits into memory.  Every
 * operation that uses it writes it from the bottom up, so the newest path replaces the one before.  Each contract says
 * one of two things:
 *   leaves the Stack   a Pfad that the host holds stays good
 *   uses the Stack     a Pfad that the host holds is void afterwards, also if the operation changed no node.  The
 *                      library does not notice a stale Pfad
 * The searches, AVL_MaxDeepth, AVL_GetString and AVL_TestVersion leave it; whatever builds, walks, inserts, removes,
 * extracts, deletes or joins uses it, and so do AVL_CountNode, AVL_MinDeepth, AVL_CheckBalance and AVL_TreeWrite.
 *
 * Failures have two channels, never mixed.  A missing key, an absent node or exhausted memory shows as a result of 0 or
 * as an entry with Node 0.  Damage that an operation finds goes to the tree's Error callback as two codes (see Errors),
 * and the operation goes on when the callback returns.  A contract that tells of no failure has none.
 *
 * Ownership: nodes are the host's.  The library never allocates, copies, moves or frees one by itself, never writes a
 * key and never clears a link header: a node that enters must have a cleared one, and a node that was taken out keeps
 * its old one.  Only handlers make or release nodes.  A tree that an operation hands out is a bare root: linked,
 * balanced nodes with no AVL_Tree around them.  The host releases them or gives them back with AVL_ConcatLess or
 * AVL_ConcatGreater.
 *
 * Cost: H is the height of the tree, at most about 1.44 log2(nodes).  A comparison is one call of Cmp; some ready
 * comparators are computed in place instead.  No tree operation recurses, and after construction none allocates; only
 * handlers and text functions do.
 *
 * Threads: there are no locks.  One tree object with its Stack and all its holds belongs to one thread at a time;
 * separate trees are independent.  What uses the Stack counts as a writer, though it may change no node.  The searches,
 * AVL_MaxDeepth and AVL_GetString only read, so they may run side by side while nobody writes.
 * Signal handlers: one may search a tree that the interrupted code only searches, and do more to a tree that is used
 * only while the signal is blocked.  Not for it is what allocates, releases, prints or asks the locale: making and
 * ending trees and path stacks, texts, AVL_..._FreeMem, AVL_CMP_String_Upper, AVL_CMP_PtrTString, Gen_SysError.
 *
 * Callbacks: comparator, handlers and formatter run inside the operation that called them.  They must not call anything
 * that uses the Stack of the same tree; other trees are free to them.  They must return: an exception or a longjmp that
 * leaves one is undefined, and may leave a tree in pieces.
 *
 * Arguments: a tree is never 0.  A result of 0 where a pointer or a node is promised means none.
 */
#ifndef OVANT_H
#define OVANT_H

#include <stdint.h>
#include <stdio.h>

/* On Windows a host that links the static library defines OVANT_STATIC; all others get the names from ovantlib.dll. */
#if defined(_WIN32) && !defined(OVANT_STATIC)
#define OVANT_API __declspec(dllimport)
#elif defined(__GNUC__) && !defined(_WIN32)
#define OVANT_API __attribute__((visibility("default")))
#else
#define OVANT_API
#endif

/* The release that this header belongs to, for #if; 1.3.0 is 10300.  AVL_TestVersion asks the library at run time. */
#define OVANT_VERSION_MAJOR 1
#define OVANT_VERSION_MINOR 3
#define OVANT_VERSION_PATCH 0
#define OVANT_VERSION (OVANT_VERSION_MAJOR * 10000 + OVANT_VERSION_MINOR * 100 + OVANT_VERSION_PATCH)

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Records and constants ------------------------------------------------------------------------------------- */

/* The link header inside each node, at one offset in all nodes of a tree: packed, so it may lie at any address.
 * 17 bytes with 64-bit pointers, 9 with 32-bit pointers.  All zero is what a node brings along.  While it is in a tree
 * the library alone writes its header, and between two operations every Balance is true and lies in -1, 0, +1.
 */
#pragma pack(push, 1)
typedef struct AVL_Link {
    void *Left;          /* left child, 0 for none */
    void *Right;         /* right child, 0 for none */
    signed char Balance; /* height of the right subtree minus height of the left one */
} AVL_Link;
#pragma pack(pop)

/* Values of AVL_PfadEntry.Dir: what was done at the entry's node. */
#define OVANT_DIR_NEW (-2)  /* not yet visited: above the position of a walk, and in the sentinel below a stack */
#define OVANT_DIR_LEFT (-1) /* the path goes on into Left */
#define OVANT_DIR_HERE 0    /* the path ends at this node */
#define OVANT_DIR_RIGHT 1   /* the path goes on into Right */

/* The short names, which a host that has other uses for them leaves out by OVANT_NO_SHORT_NAMES. */
#ifndef OVANT_NO_SHORT_NAMES
#define DIR_NEW OVANT_DIR_NEW
#define DIR_LEFT OVANT_DIR_LEFT
#define DIR_HERE OVANT_DIR_HERE
#define DIR_RIGHT OVANT_DIR_RIGHT
#endif

/* One entry of a path stack, 16 bytes with 64-bit pointers.  The host reads entries and never writes one. */
typedef struct AVL_PfadEntry {
    void *Node;  /* the node at this position, 0 where the path has run into an empty link */
    int32_t Dir; /* one of the four values above */
} AVL_PfadEntry;

typedef struct AVL_Tree AVL_Tree;

/* The comparator: where does the key lie, seen from this node?
 *   below 0   left of it     0   here, a match     above 0   right of it
 * Only the sign is read.  node_key is node + KeyOff, the address of the key inside the node; key is the key word
 * of the operation.  The library never compares two nodes, so the two may have different forms.
 * strcmp(key, node_key) puts the smallest first, strcmp(node_key, key) the largest.
 * No branch in it should depend on a key: where ?: becomes one, (k > n) - (k < n) takes 0.65 of the time of a search at
 * random keys and 0.9 where the way can be foreseen (double, gcc 12; recipes/README.md).
 */
typedef int (*AVL_CmpFunc)(const void *node_key, const void *key);

/* The error callback: function is the operation that found damage, error what it found; the family Errors lists both.
 * Its result is ignored.  The tree may be in mid-change during the call.
 */
typedef int (*AVL_ErrorFunc)(int function, int error);

/* The node handlers of a tree: what becomes of nodes that come and go. */
typedef struct AVL_NodeFuncs {
    /* The node to link in, with its key and a cleared link header; 0 inserts nothing.  Called once by an insertion that
     * has found the key's place free. */
    void *(*Malloc)(const void *key, void *context);
    /* The node that stands here from now on, never 0: the same one, or another that holds the old one's link header
     * byte for byte and belongs at the same position.  Called by AVL_InsertKey alone, when node matches the key. */
    void *(*Realloc)(void *node, const void *key, void *context);
    /* Asked when a single node is to go (AVL_DelPfad with its key word, AVL_DelMin and AVL_DelMax with key 0):
     *   0              the node is gone, it may have been released
     *   the node       it stays, and the tree does not change
     *   another node   that one takes its place, with the link header that the handler copied from the old one */
    void *(*Free)(void *node, const void *key, void *context);
    /* The node has gone and may be released; nothing of it is read afterwards.  Called by range deletion and
     * AVL_DelTree, once for each node, while the tree is in pieces: no operation on this tree may be called. */
    void (*Kill)(void *node, void *context);
} AVL_NodeFuncs;

/* The descriptor of one tree.  The host reads it, and reads Root to see whether the tree has nodes; it writes nothing.
 */
struct AVL_Tree {
    uintptr_t LeftOff;                       /* offset of the header's Left inside a node */
    uintptr_t RightOff;                      /* offset of its Right: one pointer further */
    uintptr_t BalOff;                        /* offset of its Balance: two pointers further */
    const AVL_NodeFuncs *Funcs;              /* the handlers; not copied, the table outlives the tree */
    AVL_PfadEntry *Stack;                    /* bottom entry of the path stack, owned by the tree */
    void *Root;                              /* root node, 0 for the empty tree */
    uintptr_t KeyOff;                        /* offset of the key; 0 hands the node's own address to Cmp */
    AVL_CmpFunc Cmp;                         /* the comparator */
    AVL_ErrorFunc Error;                     /* the error callback, never 0 */
    void (*Destruktor)(AVL_Tree *tree);      /* AVL_Destruktor, for calls through the object */
    AVL_Tree *(*Dup)(AVL_Tree *tree);        /* AVL_Dup, likewise */
    AVL_Tree *(*Copy)(const AVL_Tree *tree); /* AVL_Copy, likewise */
    uint16_t RefCount;                       /* holds on this descriptor, at most 65535 */
};

/* A walk of the form that AVL_TreeWrite takes. */
typedef AVL_PfadEntry *(*AVL_WalkFunc)(AVL_Tree *tree, AVL_PfadEntry *position);

/* The text for one node of a listing, 0 to leave the node out.  buffer has 268 bytes for the formatter's use; context
 * is the word given to AVL_TreeWrite.  The text is printed at once and not kept.
 */
typedef const char *(*AVL_FormatFunc)(char *buffer, void *node, void *context);

/* ---- Tree life cycle and version ------------------------------------------------------------------------------- */
/* A descriptor lives as long as it has holds.  It owns its record and its Stack, and no node.  Nothing here takes more
 * than a few steps or calls a comparator or a handler.
 */

/* AVL_Konstruktor: a new empty tree with one hold.
 *   link_off   offset of the AVL_Link inside a node
 *   funcs      the handlers, which must outlive the tree and all copies of it
 *   key_off    offset of the key inside a node; with 0 the comparator gets the node itself
 *   error      the error callback, 0 for Gen_SysError
 * Allocates descriptor and Stack, the only memory that the tree will ever need: 1,512 bytes with 64-bit pointers.
 * The caller owns the hold and ends it with AVL_Destruktor.  0 without memory, and nothing half-made remains.
 */
OVANT_API AVL_Tree *AVL_Konstruktor(uintptr_t link_off, const AVL_NodeFuncs *funcs, uintptr_t key_off, AVL_CmpFunc cmp,
                                    AVL_ErrorFunc error);

/* AVL_Destruktor: ends one hold; no result.
 *   holds remain   nothing else happens, and a held Pfad stays good
 *   last hold      the Stack and the descriptor are freed
 * Nodes are never touched: empty the tree first (AVL_DelTree) or take its root (AVL_GetTree), or they are lost to it.
 */
OVANT_API void AVL_Destruktor(AVL_Tree *tree);

/* AVL_Dup: the same tree with one more hold.
 *   65535 holds already   0, and nothing changes
 * All holders share Root and Stack, so a path that one builds ends the path of another.  Leaves the Stack.
 * The caller owns the new hold and ends it with AVL_Destruktor.
 */
OVANT_API AVL_Tree *AVL_Dup(AVL_Tree *tree);

/* AVL_Copy: a new empty tree of the same kind, with the layout, handlers, comparator and error callback of tree.
 * It has one hold and a Stack of its own, and no node: nodes are not copied.  Leaves tree and its Stack.
 * The caller owns the hold and ends it with AVL_Destruktor.  0 without memory, and nothing half-made remains.
 * A copy into which ovant_put_tree puts the Root of tree is a second position in the same nodes: both may walk and
 * search until either of them changes a node.
 */
OVANT_API AVL_Tree *AVL_Copy(const AVL_Tree *tree);

/* AVL_ClrTree: sets Root to 0; no result.  The tree forgets its nodes, which stay as they are, with the host.
 * The Stack is not written, but a held Pfad names nodes that are no longer in the tree and is void.
 */
OVANT_API void AVL_ClrTree(AVL_Tree *tree);

/* AVL_GetTree: the former root with all its nodes, 0 if there were none; the tree is empty afterwards.
 * The Stack is not written, but a held Pfad is void.
 * The host has a bare root: AVL_ConcatLess and AVL_ConcatGreater of a tree of the same layout take it.
 */
OVANT_API void *AVL_GetTree(AVL_Tree *tree);

/* AVL_TestVersion: 1 if version is 259, the version of this interface, else 0. */
OVANT_API int AVL_TestVersion(int version);

/* ---- Handler tables and handlers ------------------------------------------------------------------------------- */
/* Two ready tables, and the handlers of which they and a host's own tables can be made.  With both tables the host
 * makes the node and gives it to the insertion as context word.  They are constants; nothing here uses a Stack.
 *
 *             AVL_GetNodeFuncPtrRetNULL     AVL_GetNodeFuncPtrFreeMem
 *   Malloc    AVL_Malloc_RetHandleDirekt    AVL_Malloc_RetHandleDirekt
 *   Realloc   AVL_Realloc_RetHandleDirekt   AVL_Realloc_RetHandleDirekt
 *   Free      AVL_Free_RetNULL              AVL_Free_FreeMem
 *   Kill      AVL_Kill_Ret                  AVL_Kill_FreeMem
 */

/* AVL_GetNodeFuncPtrRetNULL: the table for nodes that stay the host's when they leave the tree. */
OVANT_API const AVL_NodeFuncs *AVL_GetNodeFuncPtrRetNULL(void);

/* AVL_GetNodeFuncPtrFreeMem: the table for nodes that Free and Kill give to free: each is a whole block of malloc. */
OVANT_API const AVL_NodeFuncs *AVL_GetNodeFuncPtrFreeMem(void);

/* AVL_Malloc_RetNull: 0, so nothing is ever inserted.  The same function as AVL_Free_RetNULL. */
OVANT_API void *AVL_Malloc_RetNull(const void *key, void *context);
/* AVL_Malloc_RetHandlePointer: the node pointer that context points to. */
OVANT_API void *AVL_Malloc_RetHandlePointer(const void *key, void *context);
/* AVL_Malloc_RetHandleDirekt: context, which is the node. */
OVANT_API void *AVL_Malloc_RetHandleDirekt(const void *key, void *context);
/* AVL_Realloc_RetGivenHandle: node, which stays at its place. */
OVANT_API void *AVL_Realloc_RetGivenHandle(void *node, const void *key, void *context);
/* AVL_Realloc_RetHandlePointer: the node pointer that context points to; that node holds the old one's link header. */
OVANT_API void *AVL_Realloc_RetHandlePointer(void *node, const void *key, void *context);
/* AVL_Realloc_RetHandleDirekt: context, which is the node to stand here and holds the old one's link header. */
OVANT_API void *AVL_Realloc_RetHandleDirekt(void *node, const void *key, void *context);
/* AVL_Free_RetNULL: 0: the node leaves the tree and stays the host's. */
OVANT_API void *AVL_Free_RetNULL(void *node, const void *key, void *context);
/* AVL_Free_FreeMem: 0, after free(node). */
OVANT_API void *AVL_Free_FreeMem(void *node, const void *key, void *context);
/* AVL_Kill_Ret: no result, does nothing: the node stays the host's. */
OVANT_API void AVL_Kill_Ret(void *node, void *context);
/* AVL_Kill_FreeMem: no result, calls free(node). */
OVANT_API void AVL_Kill_FreeMem(void *node, void *context);

/* ---- Path stacks and depth arithmetic -------------------------------------------------------------------------- */
/* A tree makes its own Stack; these are for hosts that keep stacks besides, and for sums about trees.  A stack for
 * depth d has d + 1 usable entries and, below the pointer, a sentinel with Node 0 and Dir DIR_NEW.  Stacks belong to
 * the caller, who ends them with free_Stack alone.  No tree, comparator or handler plays a part.
 * No operation takes such a stack.  It holds a copy of a path, to be looked at when the tree's Stack has gone on, or
 * the path of a descent that the host makes itself.  A second position to walk from needs a second tree: see AVL_Copy.
 */

/* malloc_Stack_Deepth: a new stack for paths of depth nodes; a depth below 0 counts as 0.  0 without memory. */
OVANT_API AVL_PfadEntry *malloc_Stack_Deepth(signed char depth);

/* malloc_Stack_Nodes: a new stack for every tree of that many nodes: depth Deepth_Nodes(nodes).  0 without memory. */
OVANT_API AVL_PfadEntry *malloc_Stack_Nodes(uint32_t nodes);

/* realloc_Stack_Deepth: the stack, resized for depth and perhaps moved; the entries that fit are kept.
 *   stack 0   a new stack, as malloc_Stack_Deepth
 * 0 without memory, and the old stack stays good.
 */
OVANT_API AVL_PfadEntry *realloc_Stack_Deepth(AVL_PfadEntry *stack, signed char depth);

/* realloc_Stack_Nodes: as realloc_Stack_Deepth, for depth Deepth_Nodes(nodes). */
OVANT_API AVL_PfadEntry *realloc_Stack_Nodes(AVL_PfadEntry *stack, uint32_t nodes);

/* free_Stack: frees a stack of this family, no result.  0 is accepted.  Never the Stack of a tree. */
OVANT_API void free_Stack(AVL_PfadEntry *stack);

/* Deepth_Nodes: a height, 0 to 46, that no tree of that many nodes exceeds: the smallest height whose sparsest tree
 * (Nodes_Deepth) has at least nodes.  Between two such counts it is one too high: 3 for 3 nodes, which stand 2 high.
 * A binary search in a table of 47 entries.
 */
OVANT_API signed char Deepth_Nodes(uint32_t nodes);

/* Nodes_Deepth: the fewest nodes that an AVL tree of that height can have: 0, 1, 2, 4, 7, 12, 20, 33 ...
 *   depth below 0     0
 *   depth 46 and up   4294967295, as the true count has no room in 32 bits
 */
OVANT_API uint32_t Nodes_Deepth(signed char depth);

/* Nodes_Max: the most nodes that a tree of that height can have, 2^depth - 1.
 *   depth 32 and up   counted modulo 32, so 32 gives 0
 */
OVANT_API uint32_t Nodes_Max(unsigned char depth);

/* ---- Errors ---------------------------------------------------------------------------------------------------- */
/* Every report that a tree's Error callback can get, and how the operation goes on when the callback returns:
 *
 *   function and error                                  raised by               afterwards
 *     5, 20   a Balance outside -1, 0, +1               AVL_MinDeepth           that node's children are passed over
 *    98, 24   a walk asked to go on from nowhere        AVL_WalkPredPreorder    result 0
 *   100, 24   the same                                  AVL_WalkPredPostorder   result 0
 *   101, 24   the same                                  AVL_WalkSuccPostorder   result 0
 *   101, 24   the position's Node is 0                  AVL_WalkSuccPreorder    result 0
 *   113, 32   DIR_HERE in the middle of a path          range extraction        taken as DIR_RIGHT
 *   114, 32   the same, dropping the nodes before it    range deletion          taken as DIR_RIGHT: the node goes
 *   115, 32   the same, dropping the nodes after it     range deletion          taken as DIR_LEFT: the node goes
 *   118, 20   a Balance outside -1, 0, +1               two-sided range         counts as 0
 *
 * Only the walk reports can come from a sound tree, by one step too many.  The others show damaged nodes, and nothing
 * checks the tree any further.  The two forward walks share a code.
 */

/* Gen_SysError: the default error callback.  0 if a person chose to go on; otherwise the process first runs into a
 * breakpoint trap (SIGTRAP), which ends it unless a debugger or a handler takes over.
 *   host's own box   a program that defines int ovant_message_box(text, title, flags) is asked through it; the answers
 *                    1 (OK), 4 (Retry) and 6 (Yes) go on
 *   terminal         title and message go to file descriptor 2, and r and Enter on descriptor 0 goes on.  Asked only if
 *                    both are terminals and the process is in the foreground
 *   neither          title and message go to file descriptor 2, and the trap follows at once
 * The text names both codes.  Blocks until it is answered.  Leaves every Stack.
 */
OVANT_API int Gen_SysError(int function, int error);

/* Error_GetErrorText: "Error Code (005)" for code 5; the code 0 stands in for 94 and above.
 * A new string, which the caller releases with free.  0 without memory.
 */
OVANT_API char *Error_GetErrorText(int code);

/* Error_GetFuncText: "Function Code (005)" for code 5; the code 0 stands in for 178 and above.
 * A new string, which the caller releases with free.  0 without memory.
 */
OVANT_API char *Error_GetFuncText(int code);

/* AVL_VirtualNull: does not return.  Calls Gen_SysError(12, 5), then abort.  For a slot of a host's own handler table
 * that must never run, with a cast to the slot's type.
 */
OVANT_API void AVL_VirtualNull(void);

/* ---- Insertion ------------------------------------------------------------------------------------------------- */
/* Five ways to insert that differ in what a key that is already there does:
 *
 *                         key absent       key present
 *   AVL_Insert            node goes in     node goes in beside the match: a multiset
 *   AVL_InsertStabil      node goes in     node goes in behind all equal ones: a multiset in order of arrival
 *   AVL_InsertUnique      node goes in     refused: a set
 *   AVL_InsertSearchKey   node goes in     the match is returned: find or insert
 *   AVL_InsertKey         node goes in     Realloc decides: insert or update
 *
 * AVL_InsertGetKey, below with removal, takes out what it finds: a toggle.  The match is the first node for which Cmp
 * answers 0 on the way down, so of several equal nodes the one nearest to the root.
 * Where a node goes in, Malloc(key, context) is called once, after the comparisons, and its node is returned.
 * A node that comes back from a tree must be cleared first (ovant_clear): its old header would bring old links along.
 * One comparison per level until a match ends them, then a climb that stops where the height no longer changes, with at
 * most one rotation.  Uses the Stack.  The node belongs to the host as before, now linked in the tree.
 * Calls back Cmp, then Malloc.  0 where Malloc gave 0: the tree is as it was.
 */

/* AVL_Insert: the new node.
 *   key absent    at the key's place
 *   key present   directly before the match if that leans to the right, else directly after it: on its lighter side
 * No comparison below the match.  Equal nodes stand together, but not in the order of their arrival.
 */
OVANT_API void *AVL_Insert(AVL_Tree *tree, const void *key, void *context);

/* AVL_InsertStabil: the new node.
 *   key absent    at the key's place
 *   key present   behind all nodes that match: equal nodes stand in the order of their arrival
 * One comparison per level, down to the bottom.
 */
OVANT_API void *AVL_InsertStabil(AVL_Tree *tree, const void *key, void *context);

/* AVL_InsertUnique: the new node.
 *   key absent    at the key's place
 *   key present   0, no handler is called and nothing changes
 * So 0 can mean either, the key was there or Malloc gave 0.
 */
OVANT_API void *AVL_InsertUnique(AVL_Tree *tree, const void *key, void *context);

/* AVL_InsertSearchKey: the node that now stands for the key.
 *   key absent    the new node
 *   key present   the match, no handler is called and nothing changes
 * A host that gives its node as context compares the result with it to learn whether it went in.
 */
OVANT_API void *AVL_InsertSearchKey(AVL_Tree *tree, const void *key, void *context);

/* AVL_InsertKey: the node that now stands for the key.
 *   key absent    the new node
 *   key present   what Realloc(match, key, context) returned; another node than the match is linked in its place
 * For a present key no Balance and no shape changes.  Calls back Realloc there in place of Malloc; it never gives 0.
 * The Realloc of the ready tables gives context, which must hold the match's link header by then: a fresh node, with a
 * cleared one, cuts off all nodes below the match.  A table with AVL_Realloc_RetGivenHandle leaves the match where it
 * is; ovant_replace copies the header and so puts a fresh node there.
 */
OVANT_API void *AVL_InsertKey(AVL_Tree *tree, const void *key, void *context);

/* AVL_InsertStack: hangs node at an open Pfad, which must be the newest path of this tree; no result.
 *   node 0   nothing changes but the Pfad's top entry, which gets the 0 that it had
 * node has a cleared link header and a key that belongs there; neither is tested.  On an empty tree it becomes Root.
 * No comparison and no handler; climbs as the others do.  Uses up the Pfad.
 */
OVANT_API void AVL_InsertStack(AVL_Tree *tree, AVL_PfadEntry *pfad, void *node);

/* ---- Removal at a position ------------------------------------------------------------------------------------- */
/* One node leaves at a place that a Pfad names.  The Pfad is the newest path of this tree, from a path builder or a
 * walk; one whose top Node is 0 makes these operations do nothing.  An inner node's place is taken by a neighbour in
 * tree order, which is relinked: no node moves in memory and no key is copied.
 * No comparison; one descent to the neighbour and one climb, each at most H steps.  A removal uses up the Pfad.
 * A node that was handed back keeps its old link header: clear it before it goes into a tree again.
 * A node whose Balance is damaged, outside -1, 0, +1, cannot be taken out.  AVL_GetPfad and AVL_InsertGetKey return it
 * and leave the tree as it is, with the node in it.  AVL_DelPfad leaves nothing at its place where Free gives 0: what
 * hangs below the node is lost to the tree.  AVL_CheckBalance tells beforehand.
 */

/* AVL_DelPfad: asks Free(node, key, context) what becomes of the Pfad's node; no result.
 *   Free gives 0              the node leaves
 *   Free gives the node       it stays: nothing changes, and the Pfad stays good
 *   Free gives another node   that one stands here now, with the header that Free gave it; the Pfad names it
 *   top Node 0                Free is not called
 * key is for Free alone and need not be the node's.  Calls back Free, once.
 */
OVANT_API void AVL_DelPfad(AVL_Tree *tree, AVL_PfadEntry *pfad, const void *key, void *context);

/* AVL_GetPfad: the Pfad's node, detached.
 *   top Node 0   0, and nothing changes
 * The node belongs to the host alone.  Calls nothing back.
 */
OVANT_API void *AVL_GetPfad(AVL_Tree *tree, AVL_PfadEntry *pfad);

/* AVL_InsertGetKey: the toggle: what is there goes out, what is not there comes in.
 *   key present   the match, detached; it belongs to the host alone
 *   key absent    0, and the node of Malloc(key, context) is in the tree
 * At most one comparison per level, then a climb.  Uses the Stack.  Calls back Cmp, and Malloc for an absent key.
 * 0 also where Malloc gave 0: the tree is as it was.
 */
OVANT_API void *AVL_InsertGetKey(AVL_Tree *tree, const void *key, void *context);

/* ---- Removal at the ends --------------------------------------------------------------------------------------- */
/* The first or the last node of tree order leaves.  No comparison; one descent and one climb that stops where the
 * height no longer changes, each at most H steps.  Use the Stack and leave no Pfad there, also where the node stays.
 * An empty tree is no failure: nothing happens, and no handler is called.
 */

/* AVL_DelMin: asks Free(node, 0, context) what becomes of the first node; no result.
 *   Free gives 0              the node leaves
 *   Free gives the node       it stays, and no link changes
 *   Free gives another node   that one stands here now, with the header that Free gave it
 * Calls back Free, once.
 */
OVANT_API void AVL_DelMin(AVL_Tree *tree, void *context);

/* AVL_DelMax: as AVL_DelMin, at the last node. */
OVANT_API void AVL_DelMax(AVL_Tree *tree, void *context);

/* AVL_GetMin: the first node, detached, 0 if the tree is empty.
 * It belongs to the host and keeps its old link header: clear it before it goes into a tree again.
 */
OVANT_API void *AVL_GetMin(AVL_Tree *tree);

/* AVL_GetMax: as AVL_GetMin, the last node. */
OVANT_API void *AVL_GetMax(AVL_Tree *tree);

/* ---- Key paths ------------------------------------------------------------------------------------------------- */
/* A path to a key, to its neighbours or to an end of the tree.  Every one returns a Pfad, never 0; read its Node.
 * What comes out is good for AVL_DelPfad and AVL_GetPfad and as position of a walk, an open Pfad for AVL_InsertStack
 * too.  On an empty tree the result is the bottom entry with Node 0, and Cmp is not called; Dir is DIR_HERE then but
 * for AVL_MakePredKey and AVL_MakeSuccKey, which write none.
 * One comparison per level, and no node changes.  Use the Stack: the result is its newest path, and stays the tree's.
 * Call back Cmp alone.  The match is, as in insertion, the matching node nearest to the root.
 */

/* AVL_MakeKey: the path to the match.
 *   key absent   open Pfad
 * Stops at the match.
 */
OVANT_API AVL_PfadEntry *AVL_MakeKey(AVL_Tree *tree, const void *key);

/* AVL_MakeFirstKey: the path to the first node of the equal run.
 *   key absent   open Pfad
 * Always down to the bottom.
 */
OVANT_API AVL_PfadEntry *AVL_MakeFirstKey(AVL_Tree *tree, const void *key);

/* AVL_MakeLastKey: the path to the last node of the equal run.
 *   key absent   open Pfad
 * Always down to the bottom.
 */
OVANT_API AVL_PfadEntry *AVL_MakeLastKey(AVL_Tree *tree, const void *key);

/* AVL_MakeMin: the path to the first node of the tree.  At most H steps, no comparison. */
OVANT_API AVL_PfadEntry *AVL_MakeMin(AVL_Tree *tree);

/* AVL_MakeMax: the path to the last node of the tree.  At most H steps, no comparison. */
OVANT_API AVL_PfadEntry *AVL_MakeMax(AVL_Tree *tree);

/* AVL_MakeRoot: the path to the root, one entry.  No comparison. */
OVANT_API AVL_PfadEntry *AVL_MakeRoot(AVL_Tree *tree);

/* AVL_MakePred: the path to the neighbour before the key.
 *   key present   the node just before the match, which may belong to the same equal run
 *   key absent    the last node before the key
 *   no such node  empty Pfad
 */
OVANT_API AVL_PfadEntry *AVL_MakePred(AVL_Tree *tree, const void *key);

/* AVL_MakeSucc: the path to the neighbour after the key.
 *   key present   the node just after the match, which may belong to the same equal run
 *   key absent    the first node after the key
 *   no such node  empty Pfad
 */
OVANT_API AVL_PfadEntry *AVL_MakeSucc(AVL_Tree *tree, const void *key);

/* AVL_MakePredKey: as AVL_MakePred for a key that is present.
 *   key absent    empty Pfad
 */
OVANT_API AVL_PfadEntry *AVL_MakePredKey(AVL_Tree *tree, const void *key);

/* AVL_MakeSuccKey: as AVL_MakeSucc for a key that is present.
 *   key absent    empty Pfad
 */
OVANT_API AVL_PfadEntry *AVL_MakeSuccKey(AVL_Tree *tree, const void *key);

/* ---- Walks ----------------------------------------------------------------------------------------------------- */
/* A walk steps from node to node, driven by the host:
 *
 *     for (p = AVL_WalkSuccInorder(tree, 0); p->Node; p = AVL_WalkSuccInorder(tree, p))
 *         use(p->Node);
 *
 * A position is a Pfad.  The position 0 starts.  Each walk visits every node once and then gives the end position: the
 * bottom entry with Node 0 (tree->Root is unharmed).  An empty tree gives it at once.
 * A path to a node, from any path builder or any other walk, is a position too: the walk goes on with what follows that
 * node in its own order.  From an open Pfad it goes on behind the empty link, but AVL_WalkSuccPreorder reports.
 * A whole walk takes each link at most twice, a single step at most some multiple of H.  No comparison, no handler; no
 * node changes.  Uses the Stack, in which the whole walk lives: between two steps only what leaves the Stack may be
 * called.  A position may be given to AVL_DelPfad or AVL_GetPfad, which ends the walk.
 * To remove nodes on the way, note the next node, remove this one and walk on from a new path to the noted one:
 * ovant_path, or AVL_MakeSucc with the removed key where no two nodes match a key.
 * AVL_WalkSuccPostorder and AVL_WalkPredPreorder do not read the node of a position again: it may be released before
 * the next step, if the walk goes on to its end and AVL_ClrTree follows.  The other walks read it in the next step.
 * Failure: the four walks that are not inorder report error 24 when they are asked to go on from an end position, an
 * empty Pfad or an empty tree's Pfad; the result is then 0.  0 passed back in starts anew, so test for it.
 * Damaged links: a walk or a single step that would go deeper than any tree gives the end position instead.
 */

/* AVL_WalkSuccInorder: the next position of tree order: Left subtree, node, Right subtree.
 *   position 0        the first node, as AVL_MakeMin
 *   open Pfad         the first node after the empty link
 *   end or empty      the end position again; reports nothing
 */
OVANT_API AVL_PfadEntry *AVL_WalkSuccInorder(AVL_Tree *tree, AVL_PfadEntry *position);

/* AVL_WalkPredInorder: the next position of tree order backward: Right subtree, node, Left subtree.
 *   position 0        the last node, as AVL_MakeMax
 *   open Pfad         the last node before the empty link
 *   end or empty      the end position again; reports nothing
 */
OVANT_API AVL_PfadEntry *AVL_WalkPredInorder(AVL_Tree *tree, AVL_PfadEntry *position);

/* AVL_WalkSuccPreorder: the next position of: node, Left subtree, Right subtree.
 *   position 0             the root
 *   open, end or empty     report (101, 24), result 0
 */
OVANT_API AVL_PfadEntry *AVL_WalkSuccPreorder(AVL_Tree *tree, AVL_PfadEntry *position);

/* AVL_WalkPredPreorder: the next position of the same order backward: Right subtree, Left subtree, node.
 *   position 0        the first node of this order, a leaf
 *   open Pfad         goes on as if the empty subtree had just been finished
 *   end or empty      report (98, 24), result 0
 */
OVANT_API AVL_PfadEntry *AVL_WalkPredPreorder(AVL_Tree *tree, AVL_PfadEntry *position);

/* AVL_WalkSuccPostorder: the next position of: Left subtree, Right subtree, node.
 *   position 0        the first node of this order, a leaf
 *   open Pfad         goes on as if the empty subtree had just been finished
 *   end or empty      report (101, 24), result 0
 */
OVANT_API AVL_PfadEntry *AVL_WalkSuccPostorder(AVL_Tree *tree, AVL_PfadEntry *position);

/* AVL_WalkPredPostorder: the next position of the same order backward: node, Right subtree, Left subtree.
 *   position 0        the root
 *   open Pfad         goes on as if the empty subtree had just been finished
 *   end or empty      report (100, 24), result 0
 */
OVANT_API AVL_PfadEntry *AVL_WalkPredPostorder(AVL_Tree *tree, AVL_PfadEntry *position);

/* The three single steps steer by hand.  position is an entry of the Stack, never 0; one step each, no report. */

/* AVL_WalkLeft: the position of the left child.
 *   no left child        an open Pfad whose Dir is DIR_HERE; AVL_WalkUp comes back from it
 *   position's Node 0    0
 */
OVANT_API AVL_PfadEntry *AVL_WalkLeft(AVL_Tree *tree, AVL_PfadEntry *position);

/* AVL_WalkRight: as AVL_WalkLeft, the right child. */
OVANT_API AVL_PfadEntry *AVL_WalkRight(AVL_Tree *tree, AVL_PfadEntry *position);

/* AVL_WalkUp: the position of the parent.
 *   at the bottom entry   the end position
 */
OVANT_API AVL_PfadEntry *AVL_WalkUp(AVL_Tree *tree, AVL_PfadEntry *position);

/* ---- Searches -------------------------------------------------------------------------------------------------- */
/* A node and nothing else, 0 for none.  For a key, tree order falls into the nodes before it, its equal run and the
 * nodes after it:
 *
 *     before   before | equal   equal   equal | after   after
 *                 A       B               C       D
 *
 *   AVL_SearchLess A    AVL_SearchGreaterEqual B    AVL_SearchLessEqual C    AVL_SearchGreater D
 *   With an empty run B is D and C is A.  A missing A or D is 0.
 *
 * One comparison per level.  They leave the Stack, and so a held Pfad, alone, and write nothing at all.  The node stays
 * in the tree.  Call back Cmp alone; an empty tree calls nothing and gives 0.  The match is, as in insertion, the
 * matching node nearest to the root.
 * AVL_SearchPred and AVL_SearchSucc go one node on from the match, AVL_SearchLess and AVL_SearchGreater one key, past
 * the whole run.  Where no two nodes match a key they agree, and the first two compare less.
 */

/* AVL_SearchKey: the match, 0 if the key is absent.  Stops at the match. */
OVANT_API void *AVL_SearchKey(const AVL_Tree *tree, const void *key);

/* AVL_SearchPred: the neighbour before the key.
 *   key present   the node just before the match, which may belong to the same equal run; 0 if there is none
 *   key absent    the last node before the key, 0 if there is none
 * No comparison below the match.
 */
OVANT_API void *AVL_SearchPred(const AVL_Tree *tree, const void *key);

/* AVL_SearchPredKey: as AVL_SearchPred for a key that is present.
 *   key absent    0
 */
OVANT_API void *AVL_SearchPredKey(const AVL_Tree *tree, const void *key);

/* AVL_SearchSucc: the neighbour after the key.
 *   key present   the node just after the match, which may belong to the same equal run; 0 if there is none
 *   key absent    the first node after the key, 0 if there is none
 * No comparison below the match.
 */
OVANT_API void *AVL_SearchSucc(const AVL_Tree *tree, const void *key);

/* AVL_SearchSuccKey: as AVL_SearchSucc for a key that is present.
 *   key absent    0
 */
OVANT_API void *AVL_SearchSuccKey(const AVL_Tree *tree, const void *key);

/* AVL_SearchGreater: the first node after the key.
 *   key present   the first node after its whole equal run, 0 if there is none
 *   key absent    the first node after it, 0 if there is none
 * Down to the bottom.
 */
OVANT_API void *AVL_SearchGreater(const AVL_Tree *tree, const void *key);

/* AVL_SearchGreaterEqual: the first node that does not stand before the key.
 *   key present   the first node of its equal run
 *   key absent    the first node after it, 0 if there is none
 * Down to the bottom.
 */
OVANT_API void *AVL_SearchGreaterEqual(const AVL_Tree *tree, const void *key);

/* AVL_SearchLess: the last node before the key.
 *   key present   the last node before its whole equal run, 0 if there is none
 *   key absent    the last node before it, 0 if there is none
 * Down to the bottom.
 */
OVANT_API void *AVL_SearchLess(const AVL_Tree *tree, const void *key);

/* AVL_SearchLessEqual: the last node that does not stand after the key.
 *   key present   the last node of its equal run
 *   key absent    the last node before it, 0 if there is none
 * Down to the bottom.
 */
OVANT_API void *AVL_SearchLessEqual(const AVL_Tree *tree, const void *key);

/* AVL_SearchMin: the first node of the tree, 0 if it is empty.  At most H steps, no comparison. */
OVANT_API void *AVL_SearchMin(const AVL_Tree *tree);

/* AVL_SearchMax: the last node of the tree, 0 if it is empty.  At most H steps, no comparison. */
OVANT_API void *AVL_SearchMax(const AVL_Tree *tree);

/* ---- Range paths ----------------------------------------------------------------------------------------------- */
/* Where a range begins and ends.  Seen from a bound, a node is Less (it stands before the bound, Cmp +1), Equal (it
 * matches) or Greater (it stands after it, Cmp -1).  A bound marks two gaps between neighbouring nodes, one at each end
 * of its equal run, and one and the same where the run is empty:
 *   front boundary   before the first node of the run
 *   back boundary    after the last node of the run
 * The name of a two-sided range has a word for its first bound and one for its second: Equal takes in the run of the
 * bound, Greater and Less leave it out, so EqualLess is first <= x < second.  Bounds in the wrong order make an empty
 * range, never a failure.
 *
 * Each returns a Pfad, never 0, of one of two shapes:
 *   boundary path   ends one entry below the empty link that is the boundary: the top entry has a node, and its Dir
 *                   names the link.  The entry above it is an open Pfad.  Dir is DIR_RIGHT at every node that stands
 *                   before the boundary, DIR_LEFT at every one behind it, DIR_HERE at none.  Node 0: the tree is empty
 *   range path      ends at the root of the smallest subtree that holds the whole range, a node of the range itself.
 *                   Its Dir means nothing.  Node 0: the range is empty, and the Pfad is open
 * On an empty tree AVL_MakeLess and AVL_MakeBetweenGreaterLess write DIR_HERE, the other three no Dir.
 * No node changes.  Use the Stack: the result is its newest path, and stays the tree's.  Call back Cmp alone.
 */

/* AVL_MakeLess: the boundary path to the front boundary.  A node hung at the entry above becomes the first of the run.
 * One comparison per level, down to the bottom.
 */
OVANT_API AVL_PfadEntry *AVL_MakeLess(AVL_Tree *tree, const void *key);

/* AVL_MakeEqualLess: the boundary path to the back boundary.  A node hung at the entry above becomes the last of the
 * run.  One comparison per level, down to the bottom.
 */
OVANT_API AVL_PfadEntry *AVL_MakeEqualLess(AVL_Tree *tree, const void *key);

/* AVL_MakeBetweenEqualEqual: the range path of first <= x <= second.
 * At most two comparisons per level; stops at the first node inside.
 */
OVANT_API AVL_PfadEntry *AVL_MakeBetweenEqualEqual(AVL_Tree *tree, const void *first, const void *second);

/* AVL_MakeBetweenEqualLess: as AVL_MakeBetweenEqualEqual, of first <= x < second. */
OVANT_API AVL_PfadEntry *AVL_MakeBetweenEqualLess(AVL_Tree *tree, const void *first, const void *second);

/* AVL_MakeBetweenGreaterLess: as AVL_MakeBetweenEqualEqual, of first < x < second. */
OVANT_API AVL_PfadEntry *AVL_MakeBetweenGreaterLess(AVL_Tree *tree, const void *first, const void *second);

/* ---- Joining --------------------------------------------------------------------------------------------------- */
/* A whole tree of nodes goes in at one end.  other is the root of linked, balanced nodes of the same layout, as
 * AVL_GetTree and the range extractions hand it out, not an AVL_Tree.  Less and Greater tell on which side the
 * receiving tree stands.  That the order fits is not tested; equal keys at the seam are welcome.  No result.
 *   other 0          nothing changes, the Stack included
 *   receiver empty   other becomes the whole tree
 * No comparison; some multiple of the greater height, however many nodes there are.  The joined tree is at most one
 * level higher than the higher one was.  Use the Stack.  The nodes of other are now the tree's.  Call nothing back.
 */

/* AVL_ConcatLess: joins other behind the last node: every node of tree stands before every node of other. */
OVANT_API void AVL_ConcatLess(AVL_Tree *tree, void *other);

/* AVL_ConcatGreater: joins other before the first node: every node of tree stands after every node of other. */
OVANT_API void AVL_ConcatGreater(AVL_Tree *tree, void *other);

/* ---- Range extraction ------------------------------------------------------------------------------------------ */
/* A key range leaves as a tree of its own.  The result is its root, 0 for no nodes; the tree keeps all the others, and
 * both are balanced.  Below, x stands for the nodes that leave, and the signs speak of tree order.
 * The cost goes with H and never with the number of nodes, whether they move or stay: at most two comparisons per level
 * for the way down and one for each boundary, then cutting and joining along these paths.  No node is copied.
 * Use the Stack.  The result is a bare root and the host's; AVL_ConcatLess and AVL_ConcatGreater take it back.
 * Call back Cmp alone, no handler.  A sound tree reports nothing; see Errors for a damaged one.
 */

/* AVL_GetLess: x < key. */
OVANT_API void *AVL_GetLess(AVL_Tree *tree, const void *key);
/* AVL_GetEqualLess: x <= key. */
OVANT_API void *AVL_GetEqualLess(AVL_Tree *tree, const void *key);
/* AVL_GetGreater: x > key. */
OVANT_API void *AVL_GetGreater(AVL_Tree *tree, const void *key);
/* AVL_GetEqualGreater: x >= key. */
OVANT_API void *AVL_GetEqualGreater(AVL_Tree *tree, const void *key);

/* What lies between.
 *   nothing in the range   0, and no node changes
 */
/* AVL_GetBetweenEqualEqual: first <= x <= second. */
OVANT_API void *AVL_GetBetweenEqualEqual(AVL_Tree *tree, const void *first, const void *second);
/* AVL_GetBetweenGreaterLess: first < x < second. */
OVANT_API void *AVL_GetBetweenGreaterLess(AVL_Tree *tree, const void *first, const void *second);
/* AVL_GetBetweenKey: x = key, the whole equal run. */
OVANT_API void *AVL_GetBetweenKey(AVL_Tree *tree, const void *key);

/* What lies outside.  The words tell what leaves at each bound: Equal the bound too, Less and Greater only what is
 * beyond it.
 *   nothing would stay   the result is the whole tree, and the tree is empty
 */
/* AVL_GetOutsideEqualEqual: x <= first or x >= second. */
OVANT_API void *AVL_GetOutsideEqualEqual(AVL_Tree *tree, const void *first, const void *second);
/* AVL_GetOutsideKey: x < key or x > key; the equal run stays. */
OVANT_API void *AVL_GetOutsideKey(AVL_Tree *tree, const void *key);
/* AVL_GetOutsideLessGreater: x < first or x > second. */
OVANT_API void *AVL_GetOutsideLessGreater(AVL_Tree *tree, const void *first, const void *second);

/* ---- Range deletion -------------------------------------------------------------------------------------------- */
/* A key range is destroyed: Kill(node, context) gets each of its nodes once.  No result; the tree keeps all the others
 * and is balanced.  Below, x stands for the nodes that go, and the signs speak of tree order.
 * One Kill and a few steps per node that goes, and work that goes with H; nodes that stay do not count.  With
 * AVL_Kill_Ret as Kill, which does nothing, the nodes that go do not count either: a cut is all it takes.  Comparisons
 * as in range extraction, none of them while a subtree is swept, but some after the first Kill: a key must not lie
 * inside a node that goes.  Use the Stack.  What becomes of the nodes is Kill's business; their headers are not
 * cleared. Call back Cmp and Kill, never Free: a node cannot refuse.  During Kill the tree is in pieces, so Kill must
 * not call anything on it.  Inside a subtree a node goes before its children, and the right one's nodes before the left
 * one's. A sound tree reports nothing; see Errors for a damaged one.
 */

/* AVL_DelLess: x < key. */
OVANT_API void AVL_DelLess(AVL_Tree *tree, const void *key, void *context);
/* AVL_DelEqualLess: x <= key. */
OVANT_API void AVL_DelEqualLess(AVL_Tree *tree, const void *key, void *context);
/* AVL_DelGreater: x > key. */
OVANT_API void AVL_DelGreater(AVL_Tree *tree, const void *key, void *context);
/* AVL_DelEqualGreater: x >= key. */
OVANT_API void AVL_DelEqualGreater(AVL_Tree *tree, const void *key, void *context);

/* What lies between.
 *   nothing in the range   nothing changes, and no handler is called
 */
/* AVL_DelBetweenEqualEqual: first <= x <= second. */
OVANT_API void AVL_DelBetweenEqualEqual(AVL_Tree *tree, const void *first, const void *second, void *context);
/* AVL_DelBetweenEqualLess: first <= x < second. */
OVANT_API void AVL_DelBetweenEqualLess(AVL_Tree *tree, const void *first, const void *second, void *context);
/* AVL_DelBetweenGreaterLess: first < x < second. */
OVANT_API void AVL_DelBetweenGreaterLess(AVL_Tree *tree, const void *first, const void *second, void *context);
/* AVL_DelBetweenKey: x = key, the whole equal run. */
OVANT_API void AVL_DelBetweenKey(AVL_Tree *tree, const void *key, void *context);

/* What lies outside.  The side after the range goes first.
 *   nothing would stay   every node goes
 */
/* AVL_DelOutsideEqualEqual: x <= first or x >= second. */
OVANT_API void AVL_DelOutsideEqualEqual(AVL_Tree *tree, const void *first, const void *second, void *context);
/* AVL_DelOutsideKey: x < key or x > key; the equal run stays. */
OVANT_API void AVL_DelOutsideKey(AVL_Tree *tree, const void *key, void *context);
/* AVL_DelOutsideLessGreater: x < first or x > second. */
OVANT_API void AVL_DelOutsideLessGreater(AVL_Tree *tree, const void *first, const void *second, void *context);

/* AVL_DelTree: every node.  The tree is empty afterwards and goes on living.  No comparison. */
OVANT_API void AVL_DelTree(AVL_Tree *tree, void *context);

/* ---- Comparators ----------------------------------------------------------------------------------------------- */
/* Ready comparators for AVL_Konstruktor; a function of the host's own serves equally.  Each returns the -1, 0 or +1 of
 * AVL_CmpFunc.  They do not agree on a direction: the last column tells which keys stand on the left.
 *
 *   name                     key in the node               search key                      first
 *   AVL_CMP_SignedChar       int8_t                        pointer to one                  the largest
 *   AVL_CMP_UnsignedChar     uint8_t                       pointer to one                  the largest
 *   AVL_CMP_SignedShort      int16_t                       pointer to one                  the largest
 *   AVL_CMP_UnsignedShort    uint16_t                      pointer to one                  the largest
 *   AVL_CMP_SignedLong       int32_t                       pointer to one                  the largest
 *   AVL_CMP_Time             int32_t                       pointer to one                  the largest
 *   AVL_CMP_HandleDirekt     uint32_t                      the value itself, as pointer    the largest
 *   AVL_CMP_HandlePointer    uint32_t                      pointer to one                  the smallest
 *   AVL_CMP_Float            float                         pointer to one                  the smallest
 *   AVL_CMP_Double           double                        pointer to one                  the smallest
 *   AVL_CMP_String           the string, in the node       pointer to the string           the smallest
 *   AVL_CMP_StringRevers     the string, in the node       pointer to the string           the largest
 *   AVL_CMP_String_Upper     the string, in the node       pointer to the string           the smallest
 *   AVL_CMP_PtrString        pointer to the string         pointer to such a pointer       the smallest
 *   AVL_CMP_PtrTString       pointer to the string         pointer to such a pointer       the smallest
 *   AVL_CMP_PtrUString       pointer to 16-bit units       pointer to such a pointer       the smallest
 *
 * A search string of 0 (for the Ptr three also the pointer found through it) counts as larger than every string and
 * matches none; all other search keys must be there, and so must every string of a node.  Keys may lie at any address.
 * They keep no state, allocate nothing, know no tree and no Stack, and may run on any thread.
 */

/* AVL_CMP_SignedChar: by value. */
OVANT_API int AVL_CMP_SignedChar(const void *node_key, const void *key);
/* AVL_CMP_UnsignedChar: by value. */
OVANT_API int AVL_CMP_UnsignedChar(const void *node_key, const void *key);
/* AVL_CMP_SignedShort: by value. */
OVANT_API int AVL_CMP_SignedShort(const void *node_key, const void *key);
/* AVL_CMP_UnsignedShort: by value. */
OVANT_API int AVL_CMP_UnsignedShort(const void *node_key, const void *key);
/* AVL_CMP_SignedLong: by value, 32 bits on every platform. */
OVANT_API int AVL_CMP_SignedLong(const void *node_key, const void *key);
/* AVL_CMP_Time: the same function as AVL_CMP_SignedLong, at the same address: the latest time first, in 32 bits.  For a
 * time_t of 64 bits take ovant_compare_time.
 */
OVANT_API int AVL_CMP_Time(const void *node_key, const void *key);
/* AVL_CMP_HandleDirekt: by value; key is not an address but the low 32 bits of the key word, 0 included. */
OVANT_API int AVL_CMP_HandleDirekt(const void *node_key, const void *key);
/* AVL_CMP_HandlePointer: by value, in the opposite order of AVL_CMP_HandleDirekt. */
OVANT_API int AVL_CMP_HandlePointer(const void *node_key, const void *key);
/* AVL_CMP_Float: by value, no tolerance; -0.0 equals +0.0.  A NaN on either side gives +1: it is never found. */
OVANT_API int AVL_CMP_Float(const void *node_key, const void *key);
/* AVL_CMP_Double: as AVL_CMP_Float. */
OVANT_API int AVL_CMP_Double(const void *node_key, const void *key);
/* AVL_CMP_String: byte by byte, unsigned; a string stands before those that it begins. */
OVANT_API int AVL_CMP_String(const void *node_key, const void *key);
/* AVL_CMP_StringRevers: as AVL_CMP_String, in the opposite order. */
OVANT_API int AVL_CMP_StringRevers(const void *node_key, const void *key);
/* AVL_CMP_String_Upper: case folded by the rules of strcasecmp in the current locale; "a" and "A" are one key. */
OVANT_API int AVL_CMP_String_Upper(const void *node_key, const void *key);
/* AVL_CMP_PtrString: as AVL_CMP_String. */
OVANT_API int AVL_CMP_PtrString(const void *node_key, const void *key);
/* AVL_CMP_PtrTString: by multibyte characters of the current locale; bytes that form none count as themselves. */
OVANT_API int AVL_CMP_PtrTString(const void *node_key, const void *key);
/* AVL_CMP_PtrUString: strings of 16-bit units that end in a unit 0, unit by unit, unsigned. */
OVANT_API int AVL_CMP_PtrUString(const void *node_key, const void *key);

/* AVL_CMP_String_to_Norm: the sign of value: -1, 0 or +1.  Not a comparator: it brings the result of a comparing
 * function to the form that a host's own comparator must return.
 */
OVANT_API int AVL_CMP_String_to_Norm(int value);

/* ---- Shape measures -------------------------------------------------------------------------------------------- */
/* What a tree looks like.  They read links and Balance bytes, never a key, change no node and call no comparator and no
 * handler; on the empty tree all give 0 but AVL_CheckBalance, which gives 1.  They end on any links that lead to nodes.
 */

/* AVL_CountNode: the number of nodes, in 32 bits.
 *   links that make no tree   UINT32_MAX, or the number of ways to all nodes
 * Visits every node; reads no Balance.  Uses the Stack: called between two steps of a walk it ends the walk.
 */
OVANT_API uint32_t AVL_CountNode(AVL_Tree *tree);

/* AVL_MaxDeepth: the height, as the Balance bytes tell it.
 *   a Balance outside -1, 0, +1   the node counts as level; the result is then no measure
 *   links in a circle             a height that no tree can have
 * One descent of at most H steps on the lower side.  Leaves the Stack, and so a held Pfad, alone.
 */
OVANT_API signed char AVL_MaxDeepth(const AVL_Tree *tree);

/* AVL_MinDeepth: the number of nodes on the shortest way from the root to an empty link: 1 for a root with one child.
 *   a Balance outside -1, 0, +1   reported as (5, 20), and the node's children are passed over; 127 if no empty link
 *                                 was reached at all
 *   links that make no tree       what was found until that showed
 * Visits the nodes above the best depth found so far.  Uses the Stack.  Calls back Error for the report.
 */
OVANT_API signed char AVL_MinDeepth(AVL_Tree *tree);

/* AVL_CheckBalance: 1 if every Balance is true and lies in -1, 0, +1, else 0; a test for hosts that suspect damage.
 *   links that make no tree   0, but a node with two links to it can go unnoticed where the heights fit
 * Visits every node, up to the first contradiction.  Uses the Stack.  Reports nothing.
 */
OVANT_API int AVL_CheckBalance(AVL_Tree *tree);

/* ---- Tree listing ---------------------------------------------------------------------------------------------- */
/* The tree as text, lying on its side: for each node a picture of its position, three columns per level, then a mark
 * with its Balance.  A bar stands where the way down from the root turned.  Keys 10 to 70 in tree order:
 *
 *     00000000      + 0+        key=10
 *     00000001   + 0+           key=20
 *     00000002   |  + 0+        key=30
 *     00000003+ 0+              key=40
 *     00000004   |  + 0+        key=50
 *     00000005   + 0+           key=60
 *     00000006      + 0+        key=70
 */

/* AVL_GetString: the picture of a position, "   |  + 0+" for 30 above, in destination.
 *   destination 0                   in a new string, which the caller releases with free
 *   empty tree, or position Node 0  0, and nothing is written
 * A node with d nodes above it needs 3 d + 5 bytes, while its Balance is sound.  At most H steps; no comparison.
 * position is the newest path of the tree; reads it and leaves the Stack.  0 also without memory.
 */
OVANT_API char *AVL_GetString(const AVL_Tree *tree, const AVL_PfadEntry *position, char *destination);

/* AVL_TreeWrite: writes a line to stream for each node that walker comes to: number, picture, text; no result.
 *   walker          one of the six walks, or a host's function of that form; asked with position 0 to start
 *   formatter       gives the text of a node, of which at most 80 characters are printed; 0 leaves the node out, and it
 *                   keeps its number
 *   width           the column at which the text begins; 8 or less stands for 132
 *   start_key       not 0: starts at the node of AVL_MakePred, whatever walker's first node is
 *   end_key         not 0: ends before the first node that stands before it in tree order
 * So start_key is the right bound, exclusive, and end_key the left bound, inclusive, for a walker that goes leftward.
 * One comparison per node with an end_key, and those of AVL_MakePred with a start_key.  Uses the Stack.
 * Calls back Cmp, walker and formatter.  Allocates nothing, and does not look at the stream's errors.
 * Damaged links: ends early when the walker comes to the same nodes over and over.
 */
OVANT_API void AVL_TreeWrite(AVL_Tree *tree, void *context, AVL_WalkFunc walker, AVL_FormatFunc formatter, FILE *stream,
                             int width, const void *start_key, const void *end_key);

#ifdef __cplusplus
}
#endif

#endif /* OVANT_H */
