// Keys of several parts.  A timetable is ordered by place, then time, then line; a search or a bound may name all parts
// or the first few.  So one tree answers for a place, and for a stretch of time at a place, in two descents, and either
// leaves by one cut.
#include <ovant.hpp>

#include <iostream>
#include <string>

struct Train {
    std::string from;
    int time, line;
    ovant::link link;
};
using Timetable = ovant::set<&Train::link, ovant::keys<&Train::from, &Train::time, &Train::line>>;

template <class Trains> void print(const char *title, const Trains &trains) {
    std::cout << title << ':';
    for (const Train &train : trains)
        std::cout << ' ' << train.from << ' ' << train.time << " (" << train.line << ')';
    std::cout << '\n';
}

int main() {
    using ovant::after, ovant::before, ovant::key;
    Train trains[] = {{"Thun", 815, 6, {}},  {"Bern", 902, 8, {}},  {"Olten", 830, 2, {}}, {"Bern", 832, 1, {}},
                      {"Bern", 832, 15, {}}, {"Olten", 900, 3, {}}, {"Bern", 704, 1, {}},  {"Thun", 715, 6, {}}};
    Timetable table;
    for (Train &train : trains)
        table.insert(train);

    print("from Olten", table.equal_range("Olten"));
    print("from Bern at 832", table.equal_range(key("Bern", 832)));
    print("from Bern after 800", table.between(after(key("Bern", 800)), after("Bern")));
    print("up to Bern, 832", table.between(ovant::start, before(key("Bern", 832))));
    std::cout << "line 15 at 832: " << (table.contains(key("Bern", 832, 15)) ? "yes" : "no")
              << ", line 6: " << (table.contains(key("Bern", 832, 6)) ? "yes" : "no") << '\n';

    std::cout << table.erase("Olten") << " trains from Olten are off, and line "
              << table.extract(key("Bern", 902, 8))->line << " at 902\n";
    const Timetable morning = table.extract(before(key("Bern", 800)), after("Bern"));
    print("this morning's", morning);
    std::cout << "what is left:\n";
    table.draw(std::cout);
}

/* prints
from Olten: Olten 830 (2) Olten 900 (3)
from Bern at 832: Bern 832 (1) Bern 832 (15)
from Bern after 800: Bern 832 (1) Bern 832 (15) Bern 902 (8)
up to Bern, 832: Bern 704 (1)
line 15 at 832: yes, line 6: no
2 trains from Olten are off, and line 8 at 902
this morning's: Bern 832 (1) Bern 832 (15)
what is left:
/-- Thun 815 6
Thun 715 6
\-- Bern 704 1
*/
