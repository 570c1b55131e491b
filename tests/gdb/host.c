/* A host of the C face, for gdb to look at. */
#include "ovant.h"

#include <stddef.h>

typedef struct Event {
    unsigned time;
    AVL_Link link;
    const char *name;
} Event;

static AVL_Tree *trees[6];
void *root;

#define LINK_OFFSET offsetof(Event, link)
#define INSERT(tree, event) AVL_Insert(tree, &(event).time, &(event))
#include "host.h"

void look_here(void);
void look_here(void) {}

int main(void) {
    const uint32_t key = 30;
    for (int kind = 0; kind < kinds; ++kind)
        trees[kind] = AVL_Konstruktor(LINK_OFFSET, AVL_GetNodeFuncPtrRetNULL(), offsetof(Event, time),
                                      AVL_CMP_HandlePointer, NULL);
    plant();
    root = trees[sound]->Root;
    AVL_MakeKey(trees[sound], &key);
    look_here();
    return 0;
}
