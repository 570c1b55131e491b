// The range operations as rows, told by boundaries in tree order: what each takes out, and how to call it.
#pragma once

#include "check.hpp"

#include <array>
#include <type_traits>

namespace ovant::test {

enum class At { start, front, back, end }; // a boundary: either end of the tree, or of the equal run of a bound

using RangeCall = Node (*)(AVL_Tree *tree, const int *first, const int *second, void *context);

struct RangeOp {
    const char *name;
    RangeCall get, del; // 0 where the family has no such member
    int bounds;
    At first, second;     // two boundaries: what stands between them goes
    bool outside = false; // or all the rest does
};

// Any member of the family called in one form.
template <auto F> Node by(AVL_Tree *tree, const int *first, const int *second, void *context) {
    using Function = decltype(F);
    if constexpr (std::is_invocable_v<Function, AVL_Tree *, const int *>)
        return F(tree, first);
    else if constexpr (std::is_invocable_v<Function, AVL_Tree *, const int *, const int *>)
        return F(tree, first, second);
    else if constexpr (std::is_invocable_v<Function, AVL_Tree *, const int *, void *>)
        F(tree, first, context);
    else
        F(tree, first, second, context);
    return nullptr;
}

inline constexpr RangeOp range_ops[] = {
    {"Less", by<AVL_GetLess>, by<AVL_DelLess>, 1, At::start, At::front},
    {"EqualLess", by<AVL_GetEqualLess>, by<AVL_DelEqualLess>, 1, At::start, At::back},
    {"Greater", by<AVL_GetGreater>, by<AVL_DelGreater>, 1, At::back, At::end},
    {"EqualGreater", by<AVL_GetEqualGreater>, by<AVL_DelEqualGreater>, 1, At::front, At::end},
    {"BetweenEqualEqual", by<AVL_GetBetweenEqualEqual>, by<AVL_DelBetweenEqualEqual>, 2, At::front, At::back},
    {"BetweenEqualLess", nullptr, by<AVL_DelBetweenEqualLess>, 2, At::front, At::front},
    {"BetweenGreaterLess", by<AVL_GetBetweenGreaterLess>, by<AVL_DelBetweenGreaterLess>, 2, At::back, At::front},
    {"BetweenKey", by<AVL_GetBetweenKey>, by<AVL_DelBetweenKey>, 1, At::front, At::back},
    {"OutsideEqualEqual", by<AVL_GetOutsideEqualEqual>, by<AVL_DelOutsideEqualEqual>, 2, At::back, At::front, true},
    {"OutsideKey", by<AVL_GetOutsideKey>, by<AVL_DelOutsideKey>, 1, At::front, At::back, true},
    {"OutsideLessGreater", by<AVL_GetOutsideLessGreater>, by<AVL_DelOutsideLessGreater>, 2, At::front, At::back, true},
};

// What a call does to a sequence in tree order; an operation of one bound has it as both.
struct Parted {
    std::size_t first, second; // the boundaries as positions
    std::vector<Node> goes, stays;
};
inline Parted part(const std::vector<Node> &order, const RangeOp &op, int first, int second) {
    const auto position = [&](int key, At at) {
        const auto run = run_of(order, key);
        return std::array{std::size_t{0}, run.front, run.back, order.size()}[static_cast<std::size_t>(at)];
    };
    Parted parted{position(first, op.first), position(second, op.second), {}, {}};
    parted.goes.reserve(order.size()), parted.stays.reserve(order.size());
    for (std::size_t i = 0; i < order.size(); i++)
        ((i >= parted.first && i < parted.second) != op.outside ? parted.goes : parted.stays).push_back(order[i]);
    return parted;
}

} // namespace ovant::test
