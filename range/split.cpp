// The split over a tree.
#include "range/split.hpp"

#include "frame/report.hpp"
#include "range/range.hpp"

using namespace ovant;

Node AVL_SplitPfad(AVL_Tree *tree, Entry *bottom, Entry *top, Change *before, Change *after) {
    Half halves[2];
    split(Nodes(tree), bottom, top, halves[0], halves[1],
          [tree] { report(tree, Function::split_pfad, Fault::dir_here); });
    bottom->Node = halves[1].root;
    *before = halves[0].change;
    *after = halves[1].change;
    return halves[0].root;
}
