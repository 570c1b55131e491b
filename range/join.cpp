// The join over a tree.
#include "range/join.hpp"

#include "frame/report.hpp"
#include "range/range.hpp"

using namespace ovant;

Change AVL_JoinSides(AVL_Tree *tree, Entry *top, SavedLink *gone, Change left, Change right) {
    if (gone->balance < -1 || gone->balance > 1) {
        report(tree, Function::join_sides, Fault::balance);
        gone->balance = 0;
    }
    return join(Nodes(tree), top, *gone, left, right);
}
