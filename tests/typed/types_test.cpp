// Records, keys and comparators of all kinds; ownership; what the standard library sees.
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

// Comes in from the last to the first, stands in order, and goes.
template <class Tree, class T> void expect_order(Tree &&tree, std::initializer_list<T *> order) {
    for (std::size_t i = order.size(); i-- > 0;)
        tree.insert(*order.begin()[i]);
    EXPECT_TRUE(std::ranges::equal(tree, order, {}, [](T &x) { return &x; }));
    EXPECT_FALSE(tree.check());
    for (T *x : order)
        EXPECT_TRUE(tree.holds(*x) && tree.extract(*x) == x && !tree.holds(*x));
}

struct Polymorphic {
    virtual ~Polymorphic() = default;
};
struct Linked {
    ovant::link link;
};
struct LinkInBase : Polymorphic, Linked {
    int key = 0;
};
class alignas(64) Awkward final : public LinkInBase { // and the key in a base
    [[maybe_unused]] char odd_ = 0;
    ovant::link link_;
    friend struct Familiar;
};
struct Familiar {
    using Tree = set<&Awkward::link_, &Awkward::key>;
};
template <class Tree> void expect_order_of(Tree &&tree) {
    typename Tree::value_type a, b, c;
    a.key = 1, b.key = 2, c.key = 3;
    expect_order(tree, {&a, &b, &c});
}
TEST(Records, MayBeOfAnyKind) {
    expect_order_of(Familiar::Tree());
    expect_order_of(set<&LinkInBase::link, &LinkInBase::key>());
}

struct Person {
    std::string name;
    int born;
    ovant::link link, other;
    std::string initial() const { return name.substr(0, 1) + std::string(40, '.'); } // too long to lie in the object
    auto operator<=>(const Person &that) const { return born <=> that.born; }
    bool operator==(const Person &that) const { return born == that.born; }
};
bool older(const Person &a, const Person &b) { return a.born < b.born; }
constexpr auto length = [](const Person &p) { return p.name.size(); };

struct Seat {
    std::atomic<int> number; // a key that cannot be copied
    ovant::link link;
};

TEST(Keys, AreWhateverARecordHas) {
    Seat one{1, {}}, two{2, {}};
    expect_order(set<&Seat::link, &Seat::number>(), {&one, &two});
    Person ada{"Ada", 1815, {}, {}}, bob{"Bobby", 1790, {}, {}}, cy{"Cy", 1800, {}, {}};
    expect_order(set<&Person::link, &Person::name>(), {&ada, &bob, &cy});
    expect_order(set<&Person::link, &Person::name, std::greater<>>(), {&cy, &bob, &ada});
    expect_order(set<&Person::other, &Person::initial, std::less<>>(), {&ada, &bob, &cy});
    expect_order(multiset<&Person::link, &Person::initial>(), {&ada, &bob, &cy});
    expect_order(set<&Person::link, length>(), {&cy, &ada, &bob});
    expect_order(set<&Person::link>(), {&bob, &cy, &ada});
    expect_order(set<&Person::link, ovant::itself{}, bool (*)(const Person &, const Person &)>(older),
                 {&bob, &cy, &ada});
    expect_order(set<&Person::link, &Person::born, Stateful>(Stateful(-1)), {&ada, &cy, &bob});
    expect_order(multiset<&Person::link, ovant::keys<length, &Person::born>, std::less<>>(), {&cy, &ada, &bob});

    set<&Person::link, &Person::name> names; // in two trees at a time
    multiset<&Person::other, ovant::keys<&Person::initial, &Person::born>> both;
    for (Person *p : {&ada, &bob, &cy})
        EXPECT_TRUE(names.insert(*p).second && &*both.insert(*p) == p);
    const std::string_view view = "Bobby";
    EXPECT_TRUE(names.find(view) == names.find("Bobby") && &*names.find(view) == &bob && names.contains("Ada"));
    EXPECT_TRUE(names.count(before("B"), after(std::string("Cz"))) == 2 && !names.extract("Dora"));
    EXPECT_EQ(&*names.first_after(ovant::partition_point([](const Person &p) { return p.name < "B"; })), &bob);
    const auto [it, inserted] = names.insert(ada);
    EXPECT_TRUE(&*it == &ada && !inserted);
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
    int year;
};
struct Era : Year {
    operator int() const { return -1; }
};
struct YearFirst {
    int operator()(int a, int b) const noexcept { return a - b; }
    int operator()(Era a, int b) const noexcept { return a.year - b; }
};
struct YearLast {
    int operator()(int a, int b) const noexcept { return a - b; }
    int operator()(int a, Year b) const noexcept { return a - b.year; }
};
template <class Tree, class K>
constexpr bool finds_one = noexcept(std::declval<const Tree &>().find(std::declval<K>()));
static_assert(finds_one<Voiced<&Spoken::quiet, YearFirst>, Era> && finds_one<Voiced<&Spoken::quiet>, short> &&
              !finds_one<Voiced<&Spoken::quiet>, Era> &&
              finds_one<set<&Person::link, &Person::name>, std::string_view>);

TEST(Keys, AreSoughtFromTheSideThatTheComparatorTakes) {
    Spoken first{1, {}}, second{2, {}};
    Voiced<&Spoken::quiet, YearFirst> years;
    Voiced<&Spoken::quiet, YearLast> years_too;
    years.insert(first), years.insert(second);
    EXPECT_EQ(&*years.find(Era{{2}}), &second);
    years_too.adopt(years.release());
    EXPECT_EQ(&*years_too.find(Year{1}), &first);
}

struct Offer {
    int price, number;
    ovant::link link;
};
TEST(Keys, OfSeveralPartsAreSoughtByTheFirstFew) {
    Offer offers[12];
    set<&Offer::link, ovant::keys<&Offer::price, &Offer::number>> book;
    for (int i = 0; i < 12; i++) {
        Offer &offer = offers[i * 5 % 12];
        offer.price = i * 5 % 12 / 4;
        offer.number = i * 5 % 4;
        book.insert(offer);
    }
    EXPECT_TRUE(std::ranges::equal(
        book, offers, {}, [](Offer &x) { return &x; }, [](Offer &x) { return &x; }));
    EXPECT_TRUE(book.count(1) == 4 && &book.equal_range(1).front() == &offers[4]);
    EXPECT_TRUE(&*book.find(ovant::key(1, 2)) == &offers[6] && book.count(before(ovant::key(0, 3)), after(1)) == 5);
    EXPECT_TRUE(book.extract(ovant::key(2, 2)) == &offers[10] && book.erase(1) == 4 && book.count(2) == 3);
    EXPECT_FALSE(book.contains(ovant::key(1, 0)) || book.check());
    std::ostringstream drawn;
    book.draw(drawn);
    EXPECT_NE(drawn.str().find("-- 2 3"), std::string::npos);
}

struct Owned {
    explicit Owned(int k) : key(k) { alive++; }
    ~Owned() { alive--; }
    static inline int alive = 0;
    int key;
    ovant::link link;
};
using Owner = set<&Owned::link, &Owned::key, std::compare_three_way, std::default_delete<Owned>>;
TEST(Ownership, EndsEachRecordOnce) {
    {
        Owner tree, other;
        for (int i = 0; i < 20; i++)
            tree.insert(*new Owned(i));
        tree.erase(tree.find(9));
        EXPECT_EQ(tree.erase(tree.front().key), 1u); // the key goes with its record
        tree.erase(before(5), after(6));
        tree.extract(ovant::start, after(2));
        const std::unique_ptr<Owned> mine(tree.pop_back());
        EXPECT_TRUE(other.clone_from(tree, [](const Owned &x) { return new Owned(x.key); }));
        EXPECT_EQ(Owned::alive, 13 + 1 + 13);
        other = std::move(tree);
        EXPECT_EQ(Owned::alive, 13 + 1);
        tree.assign_sorted(std::vector{new Owned(1), new Owned(3)});
        other.unite(std::move(tree));
        EXPECT_EQ(Owned::alive, 14 + 1);
        tree.assign_sorted(std::vector{new Owned(1), new Owned(2)});
        other.intersect(tree);
        EXPECT_EQ(Owned::alive, 1 + 2 + 1);
        other.subtract(tree);
        EXPECT_EQ(Owned::alive, 2 + 1);
    }
    EXPECT_EQ(Owned::alive, 0);
}
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
