// Every public name of the typed face once, in sets and multisets, with each kind of key and comparator: for the call
// graph, compilers and clang-tidy, which see in a template only what somebody uses.  Other tests say whether it is
// right.
#include <ovant/ranges.hpp>

#include <algorithm>
#include <functional>
#include <memory>
#include <ostream>
#include <ranges>
#include <utility>
#include <vector>

namespace {

struct Heaviest {
    double weight = 0;
    static Heaviest of(const Heaviest &left, const auto &x, const Heaviest &right) {
        return {std::max({left.weight, x.weight, right.weight})};
    }
};
struct Base {
    ovant::link by_key;
};
struct Item : Base {
    int key = 0;
    double weight = 0;
    ovant::link by_weight;
    ovant::counted_link counted;
    ovant::summary_link<Heaviest> summed;

    int twice() const { return 2 * key; }
    bool operator==(const Item &other) const { return key == other.key; }
    auto operator<=>(const Item &other) const { return key <=> other.key; }
    friend std::ostream &operator<<(std::ostream &out, const Item &item) { return out << item.key; }
};
constexpr auto negative = [](const Item &item) { return -item.key; };

void use(const auto &...) {}
constexpr auto small = ovant::partition_point([](const Item &x) { return x.key < 9; });

template <class Tree> void look_up(Tree &tree, Item &item, const auto &key) {
    use(tree.find(key), tree.contains(key), tree.lower_bound(key), tree.upper_bound(key), tree.equal_range(key),
        tree.first_after(ovant::before(key)), tree.count(key), tree.count(ovant::start, ovant::after(key)));
    const auto between = tree.between(ovant::before(key), small);
    if (between)
        use(between.front(), std::ranges::distance(between));
    for (auto it = tree.rbegin(); it != tree.rend(); it++)
        use(it.base());
    use(tree.cbegin() == tree.cend(), tree.crbegin() == tree.crend(), (--tree.end())->key, std::ranges::distance(tree));
    use(tree.front(), tree.back(), tree.holds(item), tree.iterator_to(item));
    use(tree.empty(), tree.key_comp(), tree.disposer());
    tree.for_each([](const Item &) {});
    const std::remove_cvref_t<decltype(key)> keys[] = {key};
    typename Tree::const_pointer found[1];
    use(tree.find_many(keys, found), tree.lower_bound_many(keys, found));

    if constexpr (requires { tree.size(); })
        use(tree.nth(tree.size()) - tree.begin(), tree.rbegin() += 1, tree.rank(tree.begin() + 1 - 1), tree.rank(item),
            tree.rank(ovant::before(key)));
    if constexpr (requires { tree.summary(); }) {
        const auto passes = [](const auto &) { return true; };
        use(tree.summary(), tree.fold(ovant::start, ovant::after(key)), tree.first_passing(tree.begin(), passes),
            tree.first_passing(ovant::before(key), passes));
    }
}

template <class Tree> void update(Tree &tree, Item &item, const auto &key) {
    use(tree.insert(item), tree.insert(tree.end(), item), tree.insert_before(tree.begin(), item), tree.push_back(item),
        tree.push_front(item));
    use(tree.erase(tree.begin()), tree.erase(item), tree.erase(key));
    use(tree.extract(tree.cbegin()), tree.extract(item), tree.extract(key), tree.pop_front(), tree.pop_back());
    use(tree.insert_sorted(std::vector<Item *>()), tree.erase_sorted(std::vector{key}), tree.dispose_some(10));
    if constexpr (requires { tree.insert_front(item); })
        use(tree.insert_front(item));
    else
        use(tree.insert_or_replace(item), tree.find_or_insert(key, [&item] { return &item; }));
}

template <class Tree> void whole(Tree &tree, const auto &key, std::ostream &out) {
    Tree other(tree.key_comp(), tree.disposer());
    other.assign_sorted(std::vector<Item *>());
    other.clone_from(tree, [](const Item &x) { return std::make_unique<Item>(x).release(); });
    other.clear_and_dispose(std::default_delete<Item>());
    other.adopt(tree.release());
    if (const auto found = other.check())
        out << found.reason << found.way << found.record->key;
    other.draw(out);
    other.draw(out, [](std::ostream &to, const Item &x) { to << x.key; });
    swap(tree, other);
    tree.append(other.split(ovant::before(key)));
    tree.prepend(other.extract(ovant::start, ovant::finish));
    tree.merge(other.extract(ovant::after(key), ovant::finish));
    tree.merge(other);
    if constexpr (requires { tree.unite(std::move(other)); }) {
        tree.unite(std::move(other));
        tree.intersect(other, ovant::second_wins());
        tree.subtract(other, [](Item *) {});
    }
    if constexpr (requires { tree.summary(); }) {
        tree.refresh(*tree.begin());
        tree.refresh_all();
    }
    other = tree.extract(ovant::before(key), ovant::after(key));
    tree.erase(ovant::start, ovant::before(key));
    tree.erase(ovant::after(key), ovant::finish, [](Item *) {});
    tree.erase(tree.begin(), tree.extract(tree.begin(), tree.end()).end());
    other.clear();
}

template <class Tree> void all(std::ostream &out, const auto &key) {
    static_assert(sizeof(Tree) == 2 * sizeof(void *));
    static_assert(std::ranges::bidirectional_range<Tree> && std::ranges::bidirectional_range<const Tree>);
    Item item;
    Tree tree;
    update(tree, item, key);
    whole(tree, key, out);
    look_up(tree, item, key);
    look_up(std::as_const(tree), item, key);
}

template <auto Link, auto Key, class Compare = std::compare_three_way, class Dispose = ovant::unowned>
void both(std::ostream &out, const auto &...keys) {
    (all<ovant::set<Link, Key, Compare, Dispose>>(out, keys), ...);
    (all<ovant::multiset<Link, Key, Compare, Dispose>>(out, keys), ...);
}

} // namespace

void everything(std::ostream &out);
void everything(std::ostream &out) {
    both<&Item::by_key, &Item::key>(out, 1, 'c');
    both<&Item::by_weight, &Item::twice, std::less<>>(out, 1, 2.5);
    both<&Item::counted, &Item::weight>(out, 1);
    both<&Item::summed, &Item::weight, std::less<>>(out, 2.5);
    both<&Item::by_weight, negative, std::greater<>, std::default_delete<Item>>(out, 1L);
    both<&Item::by_weight, ovant::itself{}>(out, Item());
    both<&Item::by_key, ovant::keys<&Item::weight, &Item::twice>>(out, 1.5, ovant::key(1.5, 2));
}
