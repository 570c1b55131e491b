// One clear line on standard error for everything that goes wrong.
#pragma once

#include <cstdio>
#include <string>

// Always false, so that it can be returned as the result of what failed.
inline bool complain(const std::string &what, const std::string &why) {
    std::fprintf(stderr, "logwindow: %s: %s\n", what.c_str(), why.c_str());
    return false;
}
