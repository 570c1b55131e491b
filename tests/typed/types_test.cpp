// What the standard library sees; what may throw; unusual keys, comparators and owners.  recipes/ shows the usual ones.
#include "ovant/ranges.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace {

using ovant::after, ovant::before, ovant::multiset, ovant::set;

struct Event {
    int time;
    std::string text;
    ovant::link link;
};
using Day = multiset<&Event::link, &Event::time>;
using Interval = decltype(std::declval<Day &>().equal_range(1));
struct Stateful { // not to be had by default
    explicit Stateful(int s) : sign(s) {}
    int sign;
    int operator()(int a, int b) const { return sign * (a - b); }
};
using Stated = set<&Event::link, &Event::time, Stateful>;

static_assert(sizeof(ovant::link) == 2 * sizeof(void *) + 1 && alignof(ovant::link) == 1);
static_assert(sizeof(Day) == 2 * sizeof(void *) && sizeof(Stated) <= 3 * sizeof(void *));
static_assert(!std::is_copy_constructible_v<Day> && std::is_nothrow_default_constructible_v<Day> &&
              std::is_nothrow_move_assignable_v<Day> && !std::is_default_constructible_v<Stated>);
static_assert(std::bidirectional_iterator<Day::iterator> && std::bidirectional_iterator<Day::const_iterator> &&
              std::bidirectional_iterator<Day::reverse_iterator> &&
              std::bidirectional_iterator<Day::const_reverse_iterator>);
static_assert(std::is_convertible_v<Day::iterator, Day::const_iterator> &&
              !std::is_convertible_v<Day::const_iterator, Day::iterator>);
static_assert(std::ranges::view<Interval> && std::ranges::borrowed_range<Interval> &&
              std::ranges::bidirectional_range<Interval> && std::ranges::common_range<Interval>);
static_assert(std::is_same_v<std::ranges::range_reference_t<const Day>, const Event &> &&
              std::is_same_v<decltype(*std::declval<const Day &>().find(1)), const Event &> &&
              std::is_same_v<decltype(std::declval<const Day &>().front()), const Event &> &&
              std::is_same_v<decltype(*std::declval<const Day &>().equal_range(1).begin()), const Event &>);

struct Place {
    int key;
    ovant::counted_link link;
};
using Places = set<&Place::link, &Place::key>;
static_assert(sizeof(ovant::counted_link) == 2 * sizeof(void *) + 8 && alignof(ovant::counted_link) == 1);
static_assert(sizeof(Places) == sizeof(Day) && std::ranges::sized_range<Places> && !std::ranges::sized_range<Day> &&
              std::bidirectional_iterator<Places::iterator> && !std::random_access_iterator<Places::iterator>);

template <class Range> std::vector<int> times_of(Range &&range) {
    std::vector<int> times;
    for (const Event &event : range)
        times.push_back(event.time);
    return times;
}
using Times = std::vector<int>;

TEST(Ranges, AlgorithmsAndViewsTakeTreesAndIntervals) {
    Event events[6];
    Day day;
    EXPECT_TRUE(Interval().empty() && !Interval());
    for (int i = 0; i < 6; i++) {
        events[i].time = 10 * (5 - i);
        day.insert(events[i]);
    }
    [[maybe_unused]] const auto late = [](const Event &event) { return event.time > 20; };
#if !defined(__clang__) || __clang_major__ >= 16 // older ones do not compile the views of the standard library
    EXPECT_EQ(times_of(day | std::views::filter(late) | std::views::reverse | std::views::take(2)), (Times{50, 40}));
    EXPECT_EQ(times_of(day.between(before(10), after(30)) | std::views::drop(1)), (Times{20, 30}));
    EXPECT_EQ(times_of(std::views::reverse(std::as_const(day))),
              times_of(std::ranges::subrange(day.rbegin(), day.rend())));
#endif
    EXPECT_TRUE(std::prev(day.end())->time == 50 && std::ranges::find(day, 30, &Event::time) == day.find(30));
    EXPECT_TRUE(std::as_const(day).front().time == 0 && std::as_const(day).back().time == 50);
    EXPECT_TRUE(std::ranges::is_sorted(day, {}, &Event::time) && std::ranges::distance(day.equal_range(20)) == 1);
    EXPECT_EQ(std::ranges::max_element(day.between(ovant::start, before(35)), {}, &Event::time)->time, 30);
    const auto drawn = [&day] {
        std::ostringstream out;
        day.draw(out);
        return out.str();
    };
    EXPECT_EQ(drawn(), "    /-- 50\n/-- 40\n|   \\-- 30\n20\n\\-- 10 -\n    \\-- 0\n");
    Event copy = events[0]; // which stands in no tree
    day.insert(copy);
    copy = events[0]; // and stays where it stands
    const auto [first, last] = day.equal_range(50);
    EXPECT_TRUE(&*first == &events[0] && &*std::next(first) == &copy && last == day.end());
    Event *sorted[] = {&events[2], &events[1]};
    day.assign_sorted(sorted);
    EXPECT_EQ(times_of(day), (Times{30, 40}));
    day.clear();
    EXPECT_EQ(drawn(), "");
    day.insert(events[1]);
    day.insert(events[0]);
    EXPECT_EQ(drawn(), "/-- 50\n40 +\n");
}

struct Seat {
    std::atomic<int> number; // a key that cannot be copied
    ovant::link link;
};

TEST(Keys, NeedNoCopy) {
    Seat one{1, {}}, two{2, {}};
    set<&Seat::link, &Seat::number> seats;
    seats.insert(two), seats.insert(one);
    EXPECT_TRUE(&seats.front() == &one && seats.holds(two) && seats.extract(two) == &two);
}

// What may throw says so: the walk as the key and the comparator do, a search by the parts that it is given.
struct Spoken {
    int quiet;
    ovant::link link;
    int hushed() const noexcept { return quiet; }
    int loud() const { return quiet; }
};
template <auto Key, class Compare = std::compare_three_way> using Voiced = set<&Spoken::link, Key, Compare>;
template <class Tree, class... Sought> constexpr bool walks = noexcept(++std::declval<typename Tree::iterator &>());
template <class Tree, class... Values>
constexpr bool finds = noexcept(std::declval<const Tree &>().find(std::declval<ovant::key_values<Values...> &>()));
template <class Tree>
constexpr bool joins = noexcept(std::declval<Tree &>().append(std::declval<Tree>())) &&noexcept(
    std::declval<Tree &>().prepend(std::declval<Tree>()));
template <auto... Parts> using Parted = Voiced<ovant::keys<Parts...>>;
using Quiet = Parted<&Spoken::quiet, &Spoken::hushed>;
using LoudAtLast = Parted<&Spoken::quiet, &Spoken::hushed, &Spoken::loud>;
using LoudAtFirst = Parted<&Spoken::loud, &Spoken::quiet>;
static_assert(walks<Quiet> && walks<Voiced<&Spoken::hushed>> && !walks<Voiced<&Spoken::loud>> && !walks<LoudAtLast> &&
              !walks<Voiced<&Spoken::quiet, Stateful>> && !walks<LoudAtFirst> && joins<LoudAtFirst> && joins<Quiet> &&
              finds<Quiet, int, int> && finds<LoudAtLast, int> && finds<LoudAtLast, int, int> &&
              !finds<LoudAtLast, int, int, int> && !finds<LoudAtFirst, int>);

// Comparators that take what is sought on one side alone, and quietly there; a conversion would be wrong, and loud.
struct Year {
    explicit Year(int y) : year(y) {}
    Year(const Year &) = delete; // no copy is made
    int year;
};
struct Era : Year {
    using Year::Year;
    operator int() const { return -1; }
};
struct YearFirst {
    int operator()(int a, int b) const noexcept { return a - b; }
    int operator()(const Era &a, int b) const noexcept { return a.year - b; }
    int operator()(const int (&any)[2], int b) const { return b < any[0] ? 1 : b > any[1] ? -1 : 0; }
};
struct YearLast {
    int operator()(int a, int b) const noexcept { return a - b; }
    int operator()(int a, const Year &b) const noexcept { return a - b.year; }
};
struct Named {
    std::string name;
    ovant::link link;
};
template <class Tree, class K>
constexpr bool finds_one = noexcept(std::declval<const Tree &>().find(std::declval<K>()));
static_assert(finds_one<Voiced<&Spoken::quiet, YearFirst>, Era> && finds_one<Voiced<&Spoken::quiet>, short> &&
              !finds_one<Voiced<&Spoken::quiet>, Era> && finds_one<set<&Named::link, &Named::name>, std::string_view> &&
              finds_one<set<&Named::link, &Named::name>, const char (&)[4]>); // and no string is made for it

TEST(Keys, AreSoughtFromTheSideThatTheComparatorTakes) {
    Spoken first{1, {}}, second{2, {}};
    Voiced<&Spoken::quiet, YearFirst> years;
    Voiced<&Spoken::quiet, YearLast> years_too;
    years.insert(first), years.insert(second);
    constexpr int late[] = {2, 9};
    EXPECT_TRUE(&*years.find(Era(2)) == &second && &*years.find(late) == &second);
    years_too.adopt(years.release());
    EXPECT_EQ(&*years_too.find(Year(1)), &first);
    Voiced<&Spoken::quiet> numbers;
    numbers.adopt(years_too.release());
    EXPECT_EQ(&*numbers.find(1.5), &first); // converted to the key's type
}

struct Owned {
    explicit Owned(int k) : key(k) { alive++; }
    ~Owned() { alive--; }
    static inline int alive = 0;
    int key;
    ovant::link link;
};
using Owner = set<&Owned::link, &Owned::key, std::compare_three_way, std::default_delete<Owned>>;
TEST(Ownership, GoesWithTheTree) {
    struct Tally {
        int *ended;
        void operator()(const Owned *) const { ++*ended; }
    };
    using Tree = set<&Owned::link, &Owned::key, Stateful, Tally>;
    int ended[2] = {};
    Owned record(1);
    {
        Tree first(Stateful(1), {&ended[0]}), second(Stateful(-1), {&ended[1]});
        first.insert(record);
        first.swap(second);
        EXPECT_TRUE(first.key_comp().sign == -1 && second.key_comp().sign == 1);
    }
    EXPECT_TRUE(ended[0] == 1 && ended[1] == 0);
}
TEST(Ownership, ACloneIsAllOrNothing) {
    Owner tree, copy;
    for (int i = 0; i < 20; i++)
        tree.insert(*new Owned(i));
    copy.insert(*new Owned(7));
    for (int n = 0; n <= 40; n++) { // of each two, one throws at its call n / 2 and one gives nullptr
        int calls = 0;
        bool done = false;
        try {
            done = copy.clone_from(tree, [&](const Owned &x) -> Owned * {
                if (calls++ < n / 2)
                    return new Owned(x.key);
                return n % 2 ? throw n : nullptr;
            });
        } catch (int) {
        }
        EXPECT_EQ(done, n == 40);
        EXPECT_EQ(Owned::alive, 20 + (done ? 20 : 1));
        EXPECT_TRUE(!copy.check() && !tree.check() && copy.contains(7) &&
                    copy.count(ovant::start, ovant::finish) == (done ? 20 : 1));
    }
}

} // namespace
