/* An LRU cache.  One record in two trees: by number to find it, by the time of its last use to find the oldest.  A
 * hit is a search, a removal and an insertion; a miss in a full cache takes the first page of one tree out of the
 * other.  It costs 34 bytes of links for each page. */
#include <ovant_idioms.h>
#include <stdio.h>

struct page {
    uint32_t number;
    uint64_t used; /* the clock at its last use: no two pages have the same */
    AVL_Link by_number, by_use;
};
OVANT_TYPED(numbers, struct page, by_number, number, AVL_CMP_HandlePointer);
OVANT_TYPED(uses, struct page, by_use, used, ovant_compare_uint64);

enum { room = 3 };
struct cache {
    AVL_Tree *numbers, *uses;
    struct page pages[room];
    size_t filled;
    uint64_t clock;
};

/* The page of that number, now the latest one used; the one used longest ago has made room where it was not there. */
static struct page *get(struct cache *cache, uint32_t number) {
    struct page *page = numbers_find(cache->numbers, &number);
    if (page) {
        uses_remove(cache->uses, page);
    } else {
        if (cache->filled < room)
            page = &cache->pages[cache->filled++];
        else
            page = numbers_remove(cache->numbers, uses_take_first(cache->uses));
        page->number = number; /* a key changes only while its record is in no tree */
        numbers_insert_unique(cache->numbers, page);
        printf("read page %u\n", (unsigned)number);
    }
    page->used = ++cache->clock;
    return uses_insert(cache->uses, page);
}

int main(void) {
    static const uint32_t wanted[] = {1, 2, 3, 1, 4, 2, 1};
    struct cache cache = {NULL, NULL, {{0, 0, {0}, {0}}}, 0, 0};
    size_t i;
    cache.numbers = numbers_new();
    cache.uses = uses_new();
    if (!cache.numbers || !cache.uses)
        return 1;
    for (i = 0; i < sizeof wanted / sizeof *wanted; i++)
        get(&cache, wanted[i]);
    AVL_Destruktor(cache.uses);
    AVL_Destruktor(cache.numbers);
    return 0;
}

/* prints
read page 1
read page 2
read page 3
read page 4
read page 2
*/
