// Wrong use is caught where checks are on: in debug builds, unless OVANT_CHECKS says 0 or 1.  All of a program has one
// setting.  The layout of nothing changes.  What the checks cost: a search for an insertion, and a comparison for each
// of the record's equals, up to a hundred: a record that stands behind more of them and is inserted again is not
// caught; a comparison a record for assign_sorted.
#pragma once

#if !defined(OVANT_CHECKS)
#if defined(NDEBUG)
#define OVANT_CHECKS 0
#else
#define OVANT_CHECKS 1
#endif
#endif

// Says why a function is not there.
#if defined(__cpp_deleted_function)
#define OVANT_DELETED(why) = delete (why)
#elif defined(__clang__)
#define OVANT_DELETED(why) __attribute__((unavailable(why)))
#else
#define OVANT_DELETED(why) = delete
#endif

#if OVANT_CHECKS
#include <stdio.h>
#endif

namespace ovant::typed {

inline constexpr bool checks = OVANT_CHECKS;

// One line on standard error, and the end of the process.
inline void require([[maybe_unused]] bool holds, [[maybe_unused]] const char *what) {
#if OVANT_CHECKS
    if (!holds) {
        fprintf(stderr, "ovant: %s\n", what);
        __builtin_abort();
    }
#endif
}

} // namespace ovant::typed
