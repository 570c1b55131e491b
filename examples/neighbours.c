/* Nearest keys: for each resistance given in ohms, the standard values below and above it and the nearer of the two. */
#include "ovant.h"

#include <stddef.h>
#include <stdio.h>
#include <stdlib.h>

typedef struct Value {
    double ohms;
    AVL_Link link;
} Value;

/* Where the key lies, seen from the node: -1 left of it, +1 right of it. */
static int compare(const void *node_key, const void *key) {
    const double node = *(const double *)node_key, ohms = *(const double *)key;
    return (ohms > node) - (ohms < node);
}

int main(int count, char **words) {
    static const double series[] = {1.0, 1.2, 1.5, 1.8, 2.2, 2.7, 3.3, 3.9, 4.7, 5.6, 6.8, 8.2};
    enum { steps = sizeof series / sizeof series[0], decades = 6 };
    static Value values[steps * decades];
    AVL_Tree *shelf =
        AVL_Konstruktor(offsetof(Value, link), AVL_GetNodeFuncPtrRetNULL(), offsetof(Value, ohms), compare, NULL);
    double unit = 10;
    int i, status = 0;
    if (!shelf) {
        fputs("neighbours: out of memory\n", stderr);
        return 1;
    }
    for (i = 0; i < steps * decades; ++i) {
        values[i].ohms = series[i % steps] * unit;
        AVL_InsertUnique(shelf, &values[i].ohms, &values[i]);
        if (i % steps == steps - 1)
            unit *= 10;
    }
    for (i = 1; i < count; ++i) {
        char *end;
        const double ohms = strtod(words[i], &end);
        if (*end || end == words[i] || !(ohms > 0)) {
            fprintf(stderr, "neighbours: %s: no resistance in ohms\n", words[i]);
            status = 1;
            continue;
        }
        /* Both are 0 where nothing lies on that side, and the same node for a key that is there. */
        const Value *below = AVL_SearchLessEqual(shelf, &ohms), *above = AVL_SearchGreaterEqual(shelf, &ohms);
        const Value *nearest = !above || (below && ohms - below->ohms <= above->ohms - ohms) ? below : above;
        printf("%g: nearest is %g", ohms, nearest->ohms);
        if (below && above && below != above)
            printf(", between %g and %g", below->ohms, above->ohms);
        putchar('\n');
    }
    AVL_Destruktor(shelf);
    return status;
}
