// Depth arithmetic for hosts that keep path stacks of their own.
#include "frame/depth.hpp"

#include <algorithm>

using ovant::c::Deepth_Table;

signed char Deepth_Nodes(uint32_t nodes) {
    const auto *least = std::lower_bound(Deepth_Table.begin(), Deepth_Table.end(), nodes);
    return static_cast<signed char>(least - Deepth_Table.begin());
}

uint32_t Nodes_Deepth(signed char depth) {
    if (depth < 0)
        return 0;
    return depth < ovant::c::Deepth_Count ? Deepth_Table[static_cast<unsigned char>(depth)] : UINT32_MAX;
}

uint32_t Nodes_Max(unsigned char depth) { return (UINT32_C(1) << (depth % 32)) - 1; }
