/* Seven trees of seven records, 10 to 70: a sound one, and one for each kind of damage.  Both hosts are made of this.
 *   INSERT(tree, record): how a face does it. */
#include <stdint.h>
#include <string.h>

enum { sound, balance, order, circle, shared, astray, kinds };

static Event events[kinds][7];

static void bend(Event *from, int right, void *to) {
    memcpy((char *)from + LINK_OFFSET + (right ? sizeof to : 0), &to, sizeof to);
}

static void plant(void) {
    static const char *const names[] = {"ten", "twenty", "thirty", "forty", "fifty", "sixty", "seventy"};
    for (int kind = 0; kind < kinds; ++kind)
        for (int i = 0; i < 7; ++i) {
            events[kind][i].time = (unsigned)(i + 1) * 10;
            events[kind][i].name = names[i];
            INSERT(trees[kind], events[kind][i]);
        }
    /* 40 stands over 20 (10, 30) and 60 (50, 70). */
    *((signed char *)&events[balance][1] + LINK_OFFSET + 2 * sizeof(void *)) = 1;
    events[order][2].time = 45;
    bend(&events[circle][2], 1, &events[circle][3]);
    bend(&events[shared][4], 0, &events[shared][0]);
    bend(&events[astray][1], 0, (void *)(uintptr_t)0x10);
}
