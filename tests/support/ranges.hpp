// The range operations as rows, told by boundaries in tree order: what each takes out, and how to call it.
#pragma once

#include "check.hpp"

namespace ovant::test {

enum class Part { before, after, between, outside }; // where the nodes that go stand
enum class Edge { front, back };                     // the boundary before or after the equal run of a bound

using RangeCall = Node (*)(AVL_Tree *tree, const int *first, const int *second, void *context);

struct RangeOp {
    const char *name;
    RangeCall get, del; // 0 where the family has no such member
    int bounds;
    Part part;
    Edge first, second; // the boundary at each bound
};

inline Node call(Node (*f)(AVL_Tree *, const void *), AVL_Tree *t, const int *a, const int *, void *) {
    return f(t, a);
}
inline Node call(Node (*f)(AVL_Tree *, const void *, const void *), AVL_Tree *t, const int *a, const int *b, void *) {
    return f(t, a, b);
}
inline Node call(void (*f)(AVL_Tree *, const void *, void *), AVL_Tree *t, const int *a, const int *, void *context) {
    return f(t, a, context), nullptr;
}
inline Node call(void (*f)(AVL_Tree *, const void *, const void *, void *), AVL_Tree *t, const int *a, const int *b,
                 void *context) {
    return f(t, a, b, context), nullptr;
}
template <auto F> Node range_call(AVL_Tree *tree, const int *first, const int *second, void *context) {
    return call(F, tree, first, second, context);
}

// clang-format off
inline constexpr RangeOp range_ops[] = {
    {"Less", range_call<AVL_GetLess>, range_call<AVL_DelLess>, 1, Part::before, Edge::front, {}},
    {"EqualLess", range_call<AVL_GetEqualLess>, range_call<AVL_DelEqualLess>, 1, Part::before, Edge::back, {}},
    {"Greater", range_call<AVL_GetGreater>, range_call<AVL_DelGreater>, 1, Part::after, Edge::back, {}},
    {"EqualGreater", range_call<AVL_GetEqualGreater>, range_call<AVL_DelEqualGreater>, 1, Part::after, Edge::front, {}},
    {"BetweenEqualEqual", range_call<AVL_GetBetweenEqualEqual>, range_call<AVL_DelBetweenEqualEqual>,
        2, Part::between, Edge::front, Edge::back},
    {"BetweenEqualLess", nullptr, range_call<AVL_DelBetweenEqualLess>, 2, Part::between, Edge::front, Edge::front},
    {"BetweenGreaterLess", range_call<AVL_GetBetweenGreaterLess>, range_call<AVL_DelBetweenGreaterLess>,
        2, Part::between, Edge::back, Edge::front},
    {"BetweenKey", range_call<AVL_GetBetweenKey>, range_call<AVL_DelBetweenKey>,
        1, Part::between, Edge::front, Edge::back},
    {"OutsideEqualEqual", range_call<AVL_GetOutsideEqualEqual>, range_call<AVL_DelOutsideEqualEqual>,
        2, Part::outside, Edge::back, Edge::front},
    {"OutsideKey", range_call<AVL_GetOutsideKey>, range_call<AVL_DelOutsideKey>,
        1, Part::outside, Edge::front, Edge::back},
    {"OutsideLessGreater", range_call<AVL_GetOutsideLessGreater>, range_call<AVL_DelOutsideLessGreater>,
        2, Part::outside, Edge::front, Edge::back},
};
// clang-format on

// What a call does to a sequence in tree order; an operation of one bound has it as both.
struct Parted {
    std::size_t first, second; // the boundaries as positions
    std::vector<Node> goes, stays;
};
inline Parted part(const std::vector<Node> &order, const RangeOp &op, int first, int second) {
    const auto position = [&](int key, Edge edge) {
        const auto run = run_of(order, key);
        return edge == Edge::front ? run.front : run.back;
    };
    Parted parted{position(first, op.first), position(second, op.second), {}, {}};
    for (std::size_t i = 0; i < order.size(); i++) {
        const bool behind_first = i >= parted.first, before_second = i < parted.second;
        const bool goes = op.part == Part::before  ? !behind_first
                          : op.part == Part::after ? behind_first
                                                   : (behind_first && before_second) == (op.part == Part::between);
        (goes ? parted.goes : parted.stays).push_back(order[i]);
    }
    return parted;
}

} // namespace ovant::test
