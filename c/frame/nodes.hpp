// The engine as the C face uses it: link headers at an offset that the tree tells, paths on the tree's stack.
#pragma once

#include "ovant.h"
#include "ovant/engine/links.hpp"
#include "ovant/engine/path.hpp"

namespace ovant::c {

using namespace engine;
using Entry = AVL_PfadEntry;

// Copied out of the descriptor when an operation starts: a link store may alias the descriptor, and a copy keeps the
// offset in a register.  One offset is enough, as the header has no gaps.
class AtOffset {
public:
    explicit AtOffset(const AVL_Tree *tree) : link_(tree->LeftOff) {}

protected:
    void *field(Node n, std::size_t place) const { return static_cast<char *>(n) + (link_ + place); }

private:
    std::size_t link_;
};
using Nodes = Links<AtOffset>;

static_assert(offsetof(AVL_Link, Left) == left_at && offsetof(AVL_Link, Right) == right_at &&
              offsetof(AVL_Link, Balance) == balance_at && sizeof(AVL_Link) == link_size);
static_assert(DIR_LEFT == sign(Side::left) && DIR_RIGHT == sign(Side::right) && DIR_HERE == dir_here &&
              DIR_NEW == dir_new);

} // namespace ovant::c
