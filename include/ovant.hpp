// Ovant for C++: ordered containers whose nodes are your own records.  C++20, headers only.
//
//     struct Event { int time; std::string text; ovant::link link; };
//     using Day = ovant::multiset<&Event::link, &Event::time>;
//
//     Day day;
//     day.insert(event);                                   // behind its equals; the record stays where it is
//     if (auto it = day.find(900); it != day.end()) ...
//     for (Event &e : day.between(ovant::before(900), ovant::after(1200))) ...
//     Day morning = day.extract(ovant::start, ovant::before(1200));     // O(log n), a tree of its own
//     day.append(std::move(later));                        // O(log n)
//     it = day.erase(it);
//
// A tree links records and does not hold them: it allocates nothing, copies none and owns none, unless it has a
// disposer.  A record must stay where it is while it is in a tree, and may stand in as many trees as it has links.
//
//     ovant::set<Link, Key, Compare, Dispose>              one record a key
//     ovant::multiset<Link, Key, Compare, Dispose>         equals stand in order of arrival
//
//     Link      &Record::link, a member of type ovant::link, in the record or in a base of it; of ovant::counted_link
//               for a tree that counts, of ovant::summary_link<Summary> for one that sums up
//     Key       what is compared: a member, a const member function, a function of the record; ovant::keys<&R::a,
//               &R::b> for several in turn; ovant::itself (the default) for the whole record
//     Compare   std::compare_three_way (the default); any other comparator whose answer is held against 0; or a
//               predicate that says whether its first argument stands before its second, as std::less<> does
//     Dispose   ovant::unowned (the default); or what ends a record that goes, std::default_delete<Record> say: then
//               the tree owns its records
//
// What a key is sought by may be of any type that the comparator takes beside the key's: as its first argument, or, if
// it does not go there, as its second; by a predicate as both.  An array may go as a pointer: a literal finds a string,
// and none is made for it.  Where the machine compares the key itself (numbers, pointers, enumerations), or the
// comparator takes none of that, it is converted to the key's type.  Where a key has several parts, find(a) and
// ovant::before(a) mean all records with that first part, ovant::key(a, b) those with the first two.
//
// Bounds are gaps between records: ovant::before(k), ovant::after(k), ovant::partition_point(predicate), ovant::start,
// ovant::finish.  Two of them name every interval, for between, count, extract and erase alike.
//
// A tree takes 16 bytes, and room for a comparator or disposer with state.  Operations that only read may run side by
// side in several threads.  No operation allocates, recurses or throws by itself; what a comparator throws passes
// through before anything has changed.  Everything compiles without exceptions and run-time type information.
//
// The contracts: typed/look_up.hpp (ends, searches, intervals), typed/update.hpp (in and out), typed/ordered.hpp (cut,
// joined, held against another one), typed/whole.hpp (filled, handed over, verified, drawn), typed/many.hpp (many at
// once), typed/summed.hpp (counts and summaries), typed/link.hpp (links), typed/iterator.hpp (positions),
// typed/gaps.hpp.  Wrong use is caught where OVANT_CHECKS is 1, as it is in debug builds: typed/checks.hpp.
#pragma once

#include "ovant/typed/ordered.hpp"

namespace ovant {

template <auto Link, auto Key = itself{}, class Compare = std::compare_three_way, class Dispose = unowned>
using set = ordered<typed::record_of<Link, Key>, true, Link, Key, Compare, Dispose>;

template <auto Link, auto Key = itself{}, class Compare = std::compare_three_way, class Dispose = unowned>
using multiset = ordered<typed::record_of<Link, Key>, false, Link, Key, Compare, Dispose>;

} // namespace ovant
