// Sets against sets: all of both, what one has and not the other, what both have.  It takes the time of the smaller set
// and a little more, as whole subtrees are cut and joined where they do not mix; nothing is copied.  Of two records
// with one key the caller says who stays; who loses goes to a disposer, here into a tree of its own.
#include <ovant.hpp>

#include <iostream>

struct Right {
    int number;
    char by; // user, group, root
    ovant::link link;
};
using Rights = ovant::set<&Right::link, &Right::number>;
using Lost = ovant::multiset<&Right::link, &Right::number>;

template <class Tree> void print(const char *title, const Tree &rights) {
    std::cout << title << ':';
    for (const Right &right : rights)
        std::cout << ' ' << right.number << right.by;
    std::cout << '\n';
}

int main() {
    Right users[] = {{1, 'u', {}}, {3, 'u', {}}, {5, 'u', {}}, {7, 'u', {}}, {9, 'u', {}}};
    Right groups[] = {{3, 'g', {}}, {6, 'g', {}}, {9, 'g', {}}, {12, 'g', {}}};
    Right roots[] = {{5, 'r', {}}, {6, 'r', {}}};
    Right asked_for[] = {{1, 'a', {}}, {3, 'a', {}}, {4, 'a', {}}, {5, 'a', {}}};
    Rights rights, group, revoked, asked;
    rights.assign_sorted(users); // in order as they are: no comparison
    group.assign_sorted(groups);
    revoked.assign_sorted(roots);
    asked.assign_sorted(asked_for);

    Lost lost;
    const auto lose = [&lost](Right *right) { lost.insert(*right); };
    rights.unite(std::move(group), ovant::second_wins(), lose);
    print("of user and group", rights);
    rights.subtract(revoked, lose);
    print("but for the revoked", rights);
    rights.intersect(asked, ovant::first_wins(), lose);
    print("of those asked for", rights);
    print("lost", lost);
}

/* prints
of user and group: 1u 3g 5u 6g 7u 9g 12g
but for the revoked: 1u 3g 7u 9g 12g
of those asked for: 1u 3g
lost: 3u 5u 6g 7u 9u 9g 12g
*/
