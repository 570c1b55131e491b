/* Free memory.  Each hole stands in two trees, so that the smallest one that is large enough is one search by size,
 * and its neighbours, with which it is joined when they touch, are found by address.  To take or to give units is a
 * few descents, whatever the number of holes; only among many holes of one size it takes a step for each of them to
 * find a certain one.  The records of the holes lie in the holes themselves. */
#include <ovant_idioms.h>
#include <stdio.h>

struct hole {
    uint32_t at, size; /* in units of this struct */
    AVL_Link by_address, by_size;
};
OVANT_TYPED(addresses, struct hole, by_address, at, AVL_CMP_HandlePointer);
OVANT_TYPED(sizes, struct hole, by_size, size, AVL_CMP_HandlePointer);

static struct hole units[64];
static AVL_Tree *by_address, *by_size;

static void join(struct hole *first, struct hole *second) {
    if (!first || !second || first->at + first->size != second->at)
        return;
    sizes_remove(by_size, first);
    first->size += sizes_remove(by_size, addresses_remove(by_address, second))->size;
    sizes_insert(by_size, first);
}

static void give(struct hole *hole, uint32_t size) {
    hole->at = (uint32_t)(hole - units);
    hole->size = size;
    addresses_insert(by_address, hole);
    sizes_insert(by_size, hole);
    join(hole, addresses_next(by_address, hole));
    join(addresses_prev(by_address, hole), hole);
}

/* So many units, from the end of a hole, so that its record stays where it is; NULL where no hole is large enough. */
static struct hole *take(uint32_t size) {
    struct hole *hole = sizes_lower_bound(by_size, &size);
    if (!hole)
        return NULL;
    sizes_remove(by_size, hole);
    hole->size -= size;
    if (hole->size)
        sizes_insert(by_size, hole);
    else
        addresses_remove(by_address, hole);
    return hole + hole->size;
}

static void print(const char *title) {
    AVL_PfadEntry *at = NULL;
    printf("%s:", title);
    while ((at = AVL_WalkSuccInorder(by_address, at))->Node)
        printf(" %u at %u", (unsigned)addresses_at(at)->size, (unsigned)addresses_at(at)->at);
    putchar('\n');
}

int main(void) {
    struct hole *a, *b, *c, *d;
    by_address = addresses_new();
    by_size = sizes_new();
    if (!by_address || !by_size)
        return 1;
    give(units, 64);
    a = take(10), b = take(20), c = take(5), d = take(8);
    print("four taken");
    give(b, 20), give(d, 8);
    print("two given back");
    printf("6 are at %d, the largest hole has %u\n", (int)((d = take(6)) - units), (unsigned)sizes_last(by_size)->size);
    printf("30 are %s\n", take(30) ? "to be had" : "too many");
    give(c, 5);
    print("joined on both sides");
    give(d, 6), give(a, 10);
    print("all given back");
    AVL_Destruktor(by_size);
    AVL_Destruktor(by_address);
    return 0;
}

/* prints
four taken: 21 at 0
two given back: 29 at 0 20 at 34
6 are at 48, the largest hole has 29
30 are too many
joined on both sides: 48 at 0
all given back: 64 at 0
*/
