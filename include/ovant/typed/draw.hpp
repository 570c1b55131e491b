// A tree as text.
#pragma once

#include "../engine/path.hpp"

namespace ovant::typed {

// A line for each node, the last one first: a bar for each level at which the way to it turns, the branch that leads to
// it, the record, and + or - where a side is higher.
//
//         /-- 70
//     /-- 60 +
//     50
//     \-- 40
template <class T, class Nodes, class Entry, class Out, class Print>
void draw(Nodes nodes, Entry *bottom, engine::Node root, Out &out, Print print) {
    using engine::Side;
    if (!root)
        return;
    for (Entry *top = engine::push_spine<Side::right>(nodes, bottom, root); top;
         top = engine::step<Side::left>(nodes, bottom, top)) {
        for (const Entry *e = bottom; e + 1 < top; ++e)
            out << (e->Dir == e[1].Dir ? "    " : "|   ");
        if (top != bottom)
            out << (top[-1].Dir > 0 ? "/-- " : "\\-- ");
        print(out, static_cast<const T &>(*static_cast<T *>(top->Node)));
        const int balance = nodes.balance(top->Node);
        out << (balance > 0 ? " +\n" : balance < 0 ? " -\n" : "\n");
    }
}

} // namespace ovant::typed
