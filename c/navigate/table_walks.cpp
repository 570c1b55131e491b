// The three walks that keep in each entry's Dir what has happened at its node: one state machine, three tables.
#include "frame/report.hpp"
#include "navigate/descents.hpp"

using namespace ovant::c;

namespace {

enum class Action { left, right, visit, leave };

struct Table {
    Function function;
    Action on_new, on_left, on_here, on_right; // in the order of the Dir values, from DIR_NEW up

    Action on(int dir) const {
        const Action actions[] = {on_new, on_left, on_here, on_right};
        return actions[(static_cast<unsigned>(dir) - static_cast<unsigned>(DIR_NEW)) % 4];
    }
};

constexpr Table succ_postorder{
    .function = Function::walk_succ_postorder,
    .on_new = Action::left,
    .on_left = Action::right,
    .on_here = Action::leave,
    .on_right = Action::visit,
};
constexpr Table pred_preorder{
    .function = Function::walk_pred_preorder,
    .on_new = Action::right,
    .on_left = Action::visit,
    .on_here = Action::leave,
    .on_right = Action::left,
};
constexpr Table pred_postorder{
    .function = Function::walk_pred_postorder,
    .on_new = Action::visit,
    .on_left = Action::leave,
    .on_here = Action::right,
    .on_right = Action::left,
};

Entry *step(AVL_Tree *tree, const Table &table, Entry *entry) {
    while (entry >= tree->Stack) {
        if (!entry->Node) { // an empty child, or an open Pfad: done
            --entry;
            continue;
        }
        const Action action = table.on(entry->Dir);
        switch (action) {
        case Action::left:
        case Action::right:
            entry = down_or_end(tree, entry, action == Action::left ? Side::left : Side::right, DIR_NEW);
            if (entry == tree->Stack)
                return entry;
            break;
        case Action::visit:
            return here(entry);
        case Action::leave:
            if (entry == tree->Stack)
                return empty_pfad(tree);
            --entry;
            break;
        }
    }
    report(tree, table.function, Fault::walk_end);
    return nullptr;
}

// The walks whose first node lies below: the root goes through the table like every other node.
Entry *step_or_start(AVL_Tree *tree, const Table &table, Entry *position) {
    if (position)
        return step(tree, table, position);
    Entry *const root = AVL_MakeRoot(tree);
    if (!root->Node)
        return root;
    root->Dir = DIR_NEW;
    return step(tree, table, root);
}

} // namespace

AVL_PfadEntry *AVL_WalkSuccPostorder(AVL_Tree *tree, AVL_PfadEntry *position) {
    return step_or_start(tree, succ_postorder, position);
}
AVL_PfadEntry *AVL_WalkPredPreorder(AVL_Tree *tree, AVL_PfadEntry *position) {
    return step_or_start(tree, pred_preorder, position);
}
AVL_PfadEntry *AVL_WalkPredPostorder(AVL_Tree *tree, AVL_PfadEntry *position) {
    return step_or_start(tree, pred_postorder, position);
}
