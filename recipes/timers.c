/* Timers with cancel.  OVANT_TYPED makes functions for one record type and its key, so that a compiler refuses
 * anything else.  To arm is one descent.  To cancel takes out this very timer, also where others are due at the same
 * moment: two descents at most, and a step for each timer of that moment that was armed before it.  Whatever has
 * come due leaves by one cut, however many timers that is, and is served from a tree of its own.  So timers may be
 * armed meanwhile, and cancelled: one that is due and not yet served stands in that tree. */
#include <ovant_idioms.h>
#include <stdio.h>

struct timer {
    int64_t due;
    const char *what;
    AVL_Link link;
};
OVANT_TYPED(timers, struct timer, link, due, ovant_compare_int64);

int main(void) {
    struct timer all[] = {{30, "retry", {0}}, {10, "ping", {0}}, {20, "flush", {0}}, {20, "save", {0}}};
    AVL_Tree *pending = timers_new(), *due = timers_new();
    struct timer *timer;
    int64_t now;
    size_t i;
    if (!pending || !due)
        return 1;
    for (i = 0; i < sizeof all / sizeof *all; i++)
        timers_insert(pending, &all[i]);
    timers_remove(pending, &all[2]); /* cancels the flush, not the save of the same time */

    for (now = 10; timers_first(pending); now += 15) {
        ovant_put_tree(due, AVL_GetEqualLess(pending, &now)); /* whatever is due leaves at once */
        while ((timer = timers_take_first(due)) != NULL) {
            printf("at %d: %s\n", (int)now, timer->what);
            if (timer == &all[1] && now < 40) { /* ping goes on, armed from its own expiry */
                timer->due = now + 30;
                timers_insert(pending, timer);
            }
        }
    }
    AVL_Destruktor(due);
    AVL_Destruktor(pending);
    return 0;
}

/* prints
at 10: ping
at 25: save
at 40: retry
at 40: ping
*/
