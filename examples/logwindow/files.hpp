// Files as they are: no other program inherits them, and no line end is rewritten.
#pragma once

#include <fcntl.h>
#include <unistd.h>
#if defined(_WIN32)
#include <io.h>
#endif

#if defined(_WIN32)
inline constexpr int as_it_is = O_BINARY | O_NOINHERIT;
inline void standard_as_it_is() {
    for (const int file : {STDIN_FILENO, STDOUT_FILENO})
        _setmode(file, O_BINARY);
}
#else
inline constexpr int as_it_is = O_CLOEXEC;
inline void standard_as_it_is() {}
#endif

inline constexpr unsigned most_at_once = 1 << 24; // bytes to read or write
