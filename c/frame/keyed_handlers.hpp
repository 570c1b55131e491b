// Handler tables for trees of plain keys: Malloc makes the node and copies the key into it.
//
// A tree on one of them has its link header at offset 0 and its KeyOff from here.  Keys of 4 and 8 bytes are read from
// the key argument, strings from the context: AVL_Insert(tree, text, text).  A counted node counts what would have been
// nodes with its key: AVL_InsertKey counts up, single removal counts down and takes the node out at 0.  Bulk removal
// takes it whatever its count.
#pragma once

#include "ovant.h"

#include <cstddef>

namespace ovant::c {

// Behind the link header come 3 filler bytes, then the count of a counted node, then the key; a string in a plain node
// follows Balance at once.  So Count and keys may lie at odd addresses.
constexpr std::size_t filled_header = sizeof(AVL_Link) + 3;
constexpr std::size_t count_off = filled_header;

constexpr std::size_t key_off = filled_header;
constexpr std::size_t string_key_off = sizeof(AVL_Link);
constexpr std::size_t count_key_off = count_off + sizeof(uint32_t); // numbers and strings alike

} // namespace ovant::c

extern "C" {
extern const AVL_NodeFuncs AVL_NodeFuncsKey4;
extern const AVL_NodeFuncs AVL_NodeFuncsKey8;
extern const AVL_NodeFuncs AVL_NodeFuncsKeyString;
extern const AVL_NodeFuncs AVL_NodeFuncsCountKey4;
extern const AVL_NodeFuncs AVL_NodeFuncsCountKey8;
extern const AVL_NodeFuncs AVL_NodeFuncsCountKeyString;

void *AVL_Malloc_Key4(const void *key, void *context);
void *AVL_Malloc_Key8(const void *key, void *context);
void *AVL_Malloc_KeyString(const void *key, void *context);
void *AVL_Malloc_CountKey4(const void *key, void *context);
void *AVL_Malloc_CountKey8(const void *key, void *context);
void *AVL_Malloc_CountKeyString(const void *key, void *context);
void *AVL_Realloc_CountUp(void *node, const void *key, void *context);
void *AVL_Free_CountDown(void *node, const void *key, void *context);
}
