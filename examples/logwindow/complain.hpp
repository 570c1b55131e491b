// One clear line on standard error for everything that goes wrong.
#pragma once

#include <cstdio>
#include <string_view>

// Always false, so that it can be returned as the result of what failed.  Takes no memory, which may be what is
// missing.
inline bool complain(std::string_view what, std::string_view why) {
    std::fprintf(stderr, "logwindow: %.*s: %.*s\n", static_cast<int>(what.size()), what.data(),
                 static_cast<int>(why.size()), why.data());
    return false;
}
