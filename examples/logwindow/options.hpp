// The command line.
#pragma once

#include "stamp.hpp"

#include <string>
#include <vector>

struct Options {
    Span window;
    std::optional<Stamp> drop_before;
    std::optional<std::uint64_t> keep;
    std::optional<Period> split_by;
    std::string into;
    bool force = false, tree = false, svg = false, dot = false, cost = false, help = false;
    std::vector<std::string> files;
};

extern const char *const usage;

// Nothing after a complaint.
std::optional<Options> read_options(int count, char **words);
