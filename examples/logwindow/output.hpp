// Writing timelines: to standard output, as a tree, into one file per period.
#pragma once

#include "timeline.hpp"

#include <string>
#include <string_view>

// Each answers false after a complaint.
bool write_entries(const Timeline &timeline, int file, std::string_view name);
bool write_tree(const Timeline &timeline);
bool write_picture(const Timeline &timeline, Span window, bool svg); // else DOT
bool write_periods(Timeline &&timeline, Period period, const std::string &folder, bool force);
