/* Costs.  Comparisons for a call, on average over all nodes of trees with 1,000 and 10,000 keys that came in no
 * order, and with 10,000 nodes in runs of ten that match one key.  ovant_remove and ovant_neighbour compare as often
 * as ovant_path. */
#include <ovant_idioms.h>
#include <stdio.h>

struct item {
    uint32_t key;
    AVL_Link link;
};

static unsigned long comparisons;
static int compare(const void *node_key, const void *key) {
    comparisons++;
    return AVL_CMP_HandlePointer(node_key, key);
}
OVANT_TYPED(items, struct item, link, key, compare);

static void *make_none(const void *key, void *context) { return (void)key, context; }
static struct item spare;

static void insert(AVL_Tree *tree, struct item *item) {
    (void)ovant_clear(tree, item);
    items_insert(tree, item);
}
static void find(AVL_Tree *tree, struct item *item) { items_find(tree, &item->key); }
static void find_or_make(AVL_Tree *tree, struct item *item) { ovant_find_or_make(tree, &item->key, make_none, NULL); }
static void from(AVL_Tree *tree, struct item *item) { ovant_from(tree, &item->key, OVANT_DIR_RIGHT); }
static void path(AVL_Tree *tree, struct item *item) { ovant_path(tree, &item->key, item); }
static void replace(AVL_Tree *tree, struct item *item) {
    struct item *old;
    unsigned long counted;
    spare.key = item->key;
    old = items_replace(tree, &spare);
    counted = comparisons;
    items_replace(tree, old); /* puts it back */
    comparisons = counted;
}

int main(void) {
    static const struct {
        const char *name;
        void (*use)(AVL_Tree *tree, struct item *item);
    } rows[] = {{"insert", insert},         {"find", find},       {"ovant_find_or_make", find_or_make},
                {"ovant_replace", replace}, {"ovant_from", from}, {"ovant_path", path}};
    static const struct { size_t nodes, run; } columns[] = {{1000, 1}, {10000, 1}, {10000, 10}};
    static struct item items[10000];
    AVL_Tree *tree = items_new();
    size_t row, column, i;
    if (!tree)
        return 1;
    for (row = 0; row < sizeof rows / sizeof *rows; row++) {
        printf("%-18s", rows[row].name);
        for (column = 0; column < 3; column++) {
            const size_t nodes = columns[column].nodes;
            AVL_ClrTree(tree);
            for (i = 0; i < nodes; i++) {
                items[i].key = (uint32_t)(i / columns[column].run) * 2654435761u; /* in no order, each key once */
                if (row > 0)
                    insert(tree, &items[i]);
            }
            comparisons = 0;
            for (i = 0; i < nodes; i++)
                rows[row].use(tree, &items[i]);
            printf("%8.1f", (double)comparisons / (double)nodes);
        }
        putchar('\n');
    }
    AVL_Destruktor(tree);
    return 0;
}

/* prints
insert                 8.4    11.8    12.6
find                   9.4    12.8     9.4
ovant_find_or_make     9.4    12.8     9.4
ovant_replace         18.7    25.6    18.8
ovant_from            10.4    13.8    13.9
ovant_path            10.4    13.8    26.5
*/
