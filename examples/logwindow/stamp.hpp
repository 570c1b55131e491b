// Time stamps at the start of a line, and time bounds on the command line.
#pragma once

#include <chrono>
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// One moment, whatever way it was written: 'T' or blank, with or without fraction, 'Z' or an offset.
// Stamps without a zone count as UTC; digits of a fraction beyond the ninth are ignored.
struct Stamp {
    std::int64_t second = 0; // since 1970-01-01
    std::int32_t nano = 0;
    auto operator<=>(const Stamp &) const = default;
};

inline constexpr Stamp earliest{INT64_MIN, 0}, latest{INT64_MAX, 999'999'999};

// A stretch of time, both ends belong to it.
struct Span {
    Stamp first = earliest, last = latest;
};

enum class Period { day, hour };

// The stamp that a line starts with (down to the minute at least), if it starts with one.
std::optional<Stamp> line_stamp(std::string_view line);

// What a bound names: 2026, 2026-11, 2026-11-22, 2026-11-22 20, 2026-11-22 20:06 and so on each name all of that
// year, month, day, hour, minute, second or part of a second.
std::optional<Span> read_bound(std::string_view text);

// The first moment after the period that the stamp lies in, and the period's name as part of a file name.
Stamp period_end(Stamp stamp, Period period);
std::string period_name(Stamp stamp, Period period);
