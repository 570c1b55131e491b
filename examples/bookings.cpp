// The bookings of a guest house: who is there between two times, and when the next room is free for so many hours.  The
// guests are made up, and the same each time.
#include "ovant.hpp"

#include <algorithm>
#include <climits>
#include <cstdio>
#include <new>
#include <random>
#include <string>
#include <vector>

// What is known of all stays below a node, made from what is known on its two sides.
struct Latest { // when the last of them ends
    int end = INT_MIN;
    static Latest of(const Latest &left, const auto &stay, const Latest &right) {
        return {std::max({left.end, stay.end, right.end})};
    }
};
struct Gaps { // the longest time between one and the next; no stays: begin is behind end
    int begin = INT_MAX, end = INT_MIN, longest = 0;
    static Gaps of(const Gaps &left, const auto &stay, const Gaps &right) {
        return {std::min(left.begin, stay.begin), std::max(stay.end, right.end),
                std::max({left.longest, right.longest, left.begin > left.end ? 0 : stay.begin - left.end,
                          right.begin > right.end ? 0 : right.begin - stay.end})};
    }
};

// One record in two trees: the house, where stays overlap, and the room, where none does.  Times are hours of the year.
struct Stay {
    std::string guest;
    int room, begin, end;
    ovant::summary_link<Latest> in_house;
    ovant::summary_link<Gaps> in_room;
};
using House = ovant::multiset<&Stay::in_house, &Stay::begin>;
using Room = ovant::set<&Stay::in_room, &Stay::begin>;

// Calls f with each stay that lies at least in part between two times, and looks at no more than some log n for each.
template <class F> void for_all_between(const House &house, int begin, int end, F f) {
    const auto lasts = [begin](const Latest &all) { return all.end > begin; };
    for (auto at = house.first_passing(ovant::start, lasts); at != house.end() && at->begin < end;
         at = house.first_passing(++at, lasts))
        f(*at);
}

// The first time from `begin` on at which a room is free for so many hours.
int free_from(const Room &room, int begin, int hours) {
    auto next = room.first_after(ovant::before(begin));
    if (next != room.begin()) {
        auto before = next;
        begin = std::max(begin, (--before)->end);
    }
    if (next == room.end() || next->begin - begin >= hours)
        return begin;
    next = room.first_passing(next, [hours](const Gaps &all) { return all.longest >= hours; });
    return (--next)->end;
}

void print_time(const char *before, int hour, const char *after) {
    constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    int month = 0, day = hour / 24;
    for (; month < 11 && day >= days[month]; ++month)
        day -= days[month];
    std::printf("%s%02d-%02d %02d:00%s", before, month + 1, day + 1, hour % 24, after);
}

int main() try {
    constexpr const char *names[] = {"Abe", "Bea", "Cid", "Dot", "Eli", "Fay", "Gil", "Hal", "Ida", "Jon"};
    std::mt19937 random(7);
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    House house;
    Room rooms[8];
    std::vector<Stay> stays; // which a tree does not move
    for (int room = 0; room < 8; ++room)
        for (int day = below(5); day < 360; day += below(3) == 0 ? 1 + below(6) : 0) {
            const int nights = 1 + below(below(6) == 0 ? 20 : 4);
            stays.push_back({names[below(10)] + std::string(" ") + static_cast<char>('A' + below(26)) + ".",
                             room,
                             day * 24 + 15,
                             (day + nights) * 24 + 10,
                             {},
                             {}});
            day += nights;
        }
    for (Stay &stay : stays) {
        house.insert(stay);
        rooms[stay.room].insert(stay);
    }
    std::printf("%zu stays in 8 rooms.\n\n", stays.size());

    const int noon = 180 * 24 + 12, evening = noon + 8;
    print_time("In the house from ", noon, "");
    print_time(" to ", evening, ":\n");
    for_all_between(house, noon, evening, [](const Stay &stay) {
        std::printf("  room %d  %s", stay.room + 1, stay.guest.c_str());
        print_time("  from ", stay.begin, "");
        print_time(" to ", stay.end, "\n");
    });

    std::printf("\nThe next time from then on that a room is free for\n");
    for (const int nights : {1, 3, 6}) {
        std::printf("  %d night%s:", nights, nights > 1 ? "s" : "");
        for (const Room &room : rooms)
            print_time("  ", free_from(room, noon, nights * 24 - 5), "");
        std::printf("\n");
    }
    std::printf("\nThe longest that each room stands empty in the summer:");
    for (const Room &room : rooms)
        std::printf(" %d", room.fold(ovant::before(151 * 24), ovant::before(243 * 24)).longest / 24);
    std::printf(" days.\n");
} catch (const std::bad_alloc &) {
    return std::fprintf(stderr, "bookings: out of memory\n"), 1;
}
