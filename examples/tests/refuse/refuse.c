/* Preloaded, it refuses a program memory: the request of the number REFUSE, and with REFUSE_ON set all that follow it.
 * Tells descriptor 9 of each.  Written for the C library of GNU, whose own malloc has these second names. */
#include <stddef.h>
#include <stdlib.h>
#include <unistd.h>

void *__libc_malloc(size_t size);
void *__libc_calloc(size_t count, size_t size);
void *__libc_realloc(void *block, size_t size);
void *__libc_memalign(size_t alignment, size_t size);

static int refused(void) {
    static long requests;
    const char *const number = getenv("REFUSE");
    const long refused = number ? atol(number) : 0;
    ++requests;
    return refused && (requests == refused || (requests > refused && getenv("REFUSE_ON"))) && write(9, "-", 1);
}

void *malloc(size_t size) { return refused() ? NULL : __libc_malloc(size); }
void *calloc(size_t count, size_t size) { return refused() ? NULL : __libc_calloc(count, size); }
void *realloc(void *block, size_t size) { return refused() ? NULL : __libc_realloc(block, size); }
void *aligned_alloc(size_t alignment, size_t size) { return refused() ? NULL : __libc_memalign(alignment, size); }
