// Reading log files.
#pragma once

#include "memory.hpp"
#include "timeline.hpp"

#include <chrono>
#include <deque>
#include <string>

// Shows how far a long load has come, if standard error is a terminal.
class Progress {
public:
    Progress();
    ~Progress() { hide(); }
    void show(const std::string &name, std::uint64_t done, const char *unit);
    void hide();

private:
    using Clock = std::chrono::steady_clock;
    bool terminal_, shown_ = false;
    Clock::time_point next_;
};

// Owns the text of all files and all entries: both stay where they are until the end.
class Loader {
public:
    // Merges the file (standard input for "-") into the timeline; false after a complaint.
    bool load(const std::string &path, Timeline &timeline);

private:
    int read(int file, const std::string &name); // into text_; an error number or 0
    Timeline parse(const std::string &name);     // out of text_

    Progress progress_;
    LargePages pages_;
    std::pmr::monotonic_buffer_resource arena_{LargePages::page, &pages_};
    std::pmr::deque<std::pmr::deque<Entry>> entries_{&arena_}; // of each file
    std::string_view text_;                                    // of the file in hand
};
