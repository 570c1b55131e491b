// What records are ordered by: a member, whatever a function makes of a record, several of these in turn, or the record
// as a whole; by any comparator.  The type of a tree says it all.  A record stands in as many trees as it has links.  A
// search takes what the comparator takes beside the key: no string is made to look for one.
#include <ovant.hpp>

#include <cstdlib>
#include <functional>
#include <iostream>
#include <string>
#include <string_view>

struct Peak {
    std::string name;
    int height;
    ovant::link link, other;

    std::string range() const { return height < 3000 ? "foothills, in sight of the lakes" : "main range, in the ice"; }
    auto operator<=>(const Peak &that) const { return height <=> that.height; }
    bool operator==(const Peak &that) const { return height == that.height; }
};
constexpr auto length = [](const Peak &peak) { return peak.name.size(); };
bool shorter(const std::string &a, const std::string &b) { return a.size() < b.size(); }
bool higher(const Peak &a, const Peak &b) { return a > b; }

// A comparator with state: the nearer to a height, the further to the front.
struct nearest {
    int height;
    int operator()(int a, int b) const { return std::abs(a - height) - std::abs(b - height); }
};

template <class Tree> void show(const char *order, Tree &&tree, Peak (&peaks)[4]) {
    for (Peak &peak : peaks)
        tree.insert(peak);
    std::cout << order << ':';
    for (const Peak &peak : tree)
        std::cout << ' ' << peak.name;
    bool sound = !tree.check();
    for (Peak &peak : peaks)
        if (tree.holds(peak)) // this very one: a set may have refused it
            sound = sound && tree.extract(peak) == &peak;
    std::cout << (sound && tree.empty() ? "\n" : ", and something is wrong\n");
}

int main() {
    using ovant::keys, ovant::multiset, ovant::set;
    Peak peaks[] = {
        {"Niesen", 2362, {}, {}}, {"Moench", 4110, {}, {}}, {"Eiger", 3967, {}, {}}, {"Jungfrau", 4158, {}, {}}};
    show("by name", set<&Peak::link, &Peak::name>(), peaks);
    show("backwards", set<&Peak::link, &Peak::name, std::greater<>>(), peaks);
    show("as a whole", set<&Peak::link>(), peaks);
    show("by a predicate", set<&Peak::link, ovant::itself{}, bool (*)(const Peak &, const Peak &)>(higher), peaks);
    show("by length", multiset<&Peak::link, length>(), peaks);
    show("in a set, by a predicate of the length",
         set<&Peak::link, &Peak::name, bool (*)(const std::string &, const std::string &)>(shorter), peaks);
    show("by range", multiset<&Peak::link, &Peak::range>(), peaks);
    show("by range, then name", set<&Peak::link, keys<&Peak::range, &Peak::name>, std::less<>>(), peaks);
    show("by length, then height", multiset<&Peak::link, keys<length, &Peak::height>, std::less<>>(), peaks);
    show("by nearness to 4000", set<&Peak::link, &Peak::height, nearest>(nearest{4000}), peaks);

    set<&Peak::link, &Peak::name> names;
    multiset<&Peak::other, &Peak::height> heights;
    for (Peak &peak : peaks) {
        names.insert(peak);
        heights.insert(peak);
    }
    const std::string_view wanted = "Eiger";
    Peak &eiger = *names.find(wanted);
    heights.erase(eiger); // leaves the one tree, by the record itself, before its key there changes
    eiger.height += 250;
    heights.insert(eiger);
    std::cout << heights.back().name << " is the highest, " << names.count(ovant::start, ovant::before("M"))
              << " stand before M\n";
}

/* prints
by name: Eiger Jungfrau Moench Niesen
backwards: Niesen Moench Jungfrau Eiger
as a whole: Niesen Eiger Moench Jungfrau
by a predicate: Jungfrau Moench Eiger Niesen
by length: Eiger Niesen Moench Jungfrau
in a set, by a predicate of the length: Eiger Niesen Jungfrau
by range: Niesen Moench Eiger Jungfrau
by range, then name: Niesen Eiger Jungfrau Moench
by length, then height: Eiger Niesen Moench Jungfrau
by nearness to 4000: Eiger Moench Jungfrau Niesen
Eiger is the highest, 2 stand before M
*/
