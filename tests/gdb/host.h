/* Seven trees of seven records, 10 to 70: a sound one, and one for each kind of damage.  Both hosts are made of this.
 *   INSERT(tree, record), ROOT(tree): how a face does it. */
#include <stdint.h>
#include <string.h>

enum { sound, balance, order, circle, shared, astray, kinds };

static Event events[kinds][7];

static void *get(void *from, int right) {
    void *child;
    memcpy(&child, (char *)from + LINK_OFFSET + (right ? sizeof child : 0), sizeof child);
    return child;
}
static void set(void *from, int right, void *child) {
    memcpy((char *)from + LINK_OFFSET + (right ? sizeof child : 0), &child, sizeof child);
}

static void plant(void) {
    static const char *const names[] = {"ten", "twenty", "thirty", "forty", "fifty", "sixty", "seventy"};
    for (int kind = 0; kind < kinds; ++kind)
        for (int i = 0; i < 7; ++i) {
            events[kind][i].time = (unsigned)(i + 1) * 10;
            events[kind][i].name = names[i];
            INSERT(trees[kind], events[kind][i]);
        }
    /* What stands at 20 (left of the root), or at one of its children, 10 and 30. */
    *((signed char *)get(ROOT(trees[balance]), 0) + LINK_OFFSET + 2 * sizeof(void *)) = 1;
    events[order][2].time = 45;
    set(get(get(ROOT(trees[circle]), 0), 1), 1, ROOT(trees[circle]));
    set(get(get(ROOT(trees[shared]), 1), 0), 0, get(get(ROOT(trees[shared]), 0), 0));
    set(get(ROOT(trees[astray]), 0), 0, (void *)(uintptr_t)0x10);
}
