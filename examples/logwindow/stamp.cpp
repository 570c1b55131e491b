#include "stamp.hpp"

#include <array>
#include <cstdio>

using namespace std::chrono;

namespace {

enum Field { none, year_field, month_field, day_field, hour_field, minute_field, second_field, fraction_field };

// A stamp as it was written, and how far down it goes.
struct Reading {
    Field finest = none;
    year_month_day date{year{1970}, month{1}, day{1}};
    int hour = 0, minute = 0, second = 0, nano = 0;
    int unit = 1'000'000'000; // nanoseconds that the last digit of the fraction stands for
    int offset = 0;           // minutes east of UTC
    std::string_view rest;    // what follows in the text
};

bool is_digit(char c) { return c >= '0' && c <= '9'; }

// Takes `mark`, if there is one, and `digits` digits off the front of the text; -1 and nothing taken if not there.
int take(std::string_view &text, std::string_view marks, std::size_t digits, int limit) {
    const std::size_t start = marks.empty() ? 0 : 1;
    if (text.size() < start + digits || (start && marks.find(text[0]) == marks.npos))
        return -1;
    int value = 0;
    for (std::size_t i = start; i < start + digits; ++i) {
        if (!is_digit(text[i]))
            return -1;
        value = value * 10 + (text[i] - '0');
    }
    if (value > limit)
        return -1;
    text.remove_prefix(start + digits);
    return value;
}

void take_fraction(Reading &r) {
    std::string_view digits = r.rest;
    if (digits.size() < 2 || (digits[0] != '.' && digits[0] != ',') || !is_digit(digits[1]))
        return;
    for (digits.remove_prefix(1); !digits.empty() && is_digit(digits[0]); digits.remove_prefix(1)) {
        r.unit /= 10; // 0 from the tenth digit on
        r.nano += r.unit * (digits[0] - '0');
    }
    r.unit = r.unit ? r.unit : 1;
    r.finest = fraction_field;
    r.rest = digits;
}

void take_zone(Reading &r) {
    if (r.rest.starts_with('Z')) {
        r.rest.remove_prefix(1);
        return;
    }
    const bool west = r.rest.starts_with('-');
    const int hours = take(r.rest, "+-", 2, 23);
    if (hours < 0)
        return;
    int minutes = take(r.rest, ":", 2, 59);
    minutes = minutes < 0 ? take(r.rest, "", 2, 59) : minutes;
    r.offset = (hours * 60 + (minutes < 0 ? 0 : minutes)) * (west ? -1 : 1);
}

// Reads as many fields as there are, coarse to fine.
Reading read(std::string_view text) {
    Reading r{.rest = text};
    const int y = take(r.rest, "", 4, 9999);
    if (y < 0)
        return r;
    const int m = take(r.rest, "-", 2, 12), d = m < 0 ? -1 : take(r.rest, "-", 2, 31);
    r.date = year{y} / (m < 0 ? 1 : m) / (d < 0 ? 1 : d);
    if (!r.date.ok())
        return r;
    r.finest = m < 0 ? year_field : d < 0 ? month_field : day_field;
    if (d < 0)
        return r;
    const std::array<std::pair<int *, std::string_view>, 3> clock{
        {{&r.hour, "T "}, {&r.minute, ":"}, {&r.second, ":"}}};
    for (const auto &[field, mark] : clock) {
        const int value = take(r.rest, mark, 2, field == &r.hour ? 23 : field == &r.minute ? 59 : 60);
        if (value < 0)
            break;
        *field = value;
        r.finest = static_cast<Field>(r.finest + 1);
    }
    if (r.finest == second_field)
        take_fraction(r);
    if (r.finest >= hour_field)
        take_zone(r);
    return r;
}

std::int64_t second_of(year_month_day date) { return sys_seconds{sys_days{date}}.time_since_epoch().count(); }

Stamp first_moment(const Reading &r) {
    return {second_of(r.date) + r.hour * 3600 + (r.minute - r.offset) * 60 + r.second, r.nano};
}

// One second before the first second of what comes next, or the last nanosecond that begins with the fraction.
Stamp last_moment(const Reading &r) {
    const Stamp first = first_moment(r);
    const auto through = [&](std::int64_t length) { return Stamp{first.second + length - 1, 999'999'999}; };
    switch (r.finest) {
    case year_field:
        return through(second_of(r.date + years{1}) - second_of(r.date));
    case month_field:
        return through(second_of(r.date + months{1}) - second_of(r.date));
    case day_field:
        return through(86400);
    case hour_field:
        return through(3600);
    case minute_field:
        return through(60);
    case second_field:
        return through(1);
    default:
        return {first.second, first.nano + r.unit - 1};
    }
}

} // namespace

std::optional<Stamp> line_stamp(std::string_view line) {
    const Reading r = read(line);
    if (r.finest < minute_field || (!r.rest.empty() && is_digit(r.rest[0])))
        return {};
    return first_moment(r);
}

std::optional<Span> read_bound(std::string_view text) {
    const Reading r = read(text);
    if (r.finest == none || !r.rest.empty())
        return {};
    return Span{first_moment(r), last_moment(r)};
}

Stamp period_end(Stamp stamp, Period period) {
    const std::int64_t length = period == Period::day ? 86400 : 3600;
    const std::int64_t into = ((stamp.second % length) + length) % length;
    return {stamp.second - into + length, 0};
}

std::string period_name(Stamp stamp, Period period) {
    const sys_seconds at{seconds{stamp.second}};
    const auto midnight = floor<days>(at);
    const year_month_day date{midnight};
    char name[64];
    const int length = std::snprintf(name, sizeof name, "%04d-%02u-%02u", static_cast<int>(date.year()),
                                     static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
    if (period == Period::hour)
        std::snprintf(name + length, sizeof name - static_cast<std::size_t>(length), "T%02d",
                      static_cast<int>(duration_cast<hours>(at - midnight).count()));
    return name;
}
