// Every operation in a program that is compiled without exceptions and run-time type information, and linked with all
// that allocates taken away.
#include "ovant.hpp"

namespace {

struct Record {
    int key;
    ovant::link link;
};
struct Less {
    bool operator()(int a, int b) const { return a < b; }
};
struct Text {
    int pieces = 0;
    template <class X> Text &operator<<(const X &) { return ++pieces, *this; }
};
Record records[40], copies[40];
bool good = true;
void expect(bool holds) { good = good && holds; }

template <class Tree> void use_all() {
    using ovant::before, ovant::after, ovant::start, ovant::finish;
    Tree tree, other;
    const Tree &same = tree;
    for (int i = 0; i < 40; i++) {
        records[i].key = i;
        i % 3 ? (void)tree.insert(records[i]) : (void)tree.insert(tree.end(), records[i]);
    }
    int sum = 0, ended = 0;
    for (const Record &r : same)
        sum += r.key;
    for (auto it = tree.rbegin(); it != tree.rend(); it++)
        sum -= it->key;
    same.for_each([&](const Record &r) { sum += r.key; });
    expect(sum == 780 && same.contains(7) && same.lower_bound(7) == same.find(7) && same.upper_bound(50) == same.end());
    expect(same.count(7) == 1 && same.count(start, finish) == 40 && same.holds(records[7]) && same.equal_range(7));
    expect(same.between(after(7), before(7)).empty() && same.first_after(after(7))->key == 8 && !tree.check());

    Tree middle = tree.extract(before(10), after(20));
    Tree rest = tree.split(ovant::partition_point([](const Record &r) { return r.key < 30; }));
    rest.prepend(static_cast<Tree &&>(tree));
    rest.merge(middle);
    expect(tree.clone_from(rest, [](const Record &r) { return copies[r.key].key = r.key, copies + r.key; }));
    swap(tree, rest);
    rest.clear();
    tree.erase(tree.begin());
    tree.erase(records[1]);
    tree.erase(2);
    tree.erase(before(10), after(12), [&](Record *) { ++ended; });
    tree.erase(tree.find(21), tree.find(25));
    expect(ended == 3 && same.count(start, finish) == 30 && tree.extract(3) == records + 3 && !tree.extract(3));
    Record *const last = tree.pop_back(), *const first = tree.pop_front();
    tree.append(tree.extract(before(30), finish));
    tree.push_back(*last);
    tree.push_front(*first);
    tree.adopt(tree.release());
    Text text;
    tree.draw(text);
    if constexpr (requires { tree.insert_or_replace(*last); })
        expect(tree.insert_or_replace(copies[30]) == records + 30 &&
               !tree.find_or_insert(50, []() -> Record * { return nullptr; }).second);
    else
        tree.insert_front(copies[30]);
    expect(text.pieces > 29 && !tree.check());
    Record *const sorted[] = {records, records + 1, records + 2};
    struct {
        Record *const *from, *const *to;
        Record *const *begin() const { return from; }
        Record *const *end() const { return to; }
    } range{sorted, sorted + 3};
    tree.assign_sorted(range);
    expect(same.front().key == 0 && same.back().key == 2);
}

} // namespace

int main() {
    use_all<ovant::set<&Record::link, &Record::key>>();
    use_all<ovant::multiset<&Record::link, &Record::key, Less>>();
    return good ? 0 : 1;
}
