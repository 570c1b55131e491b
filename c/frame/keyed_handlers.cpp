#include "frame/keyed_handlers.hpp"
#include "frame/nodes.hpp"

#include <cstdlib>
#include <cstring>

namespace ovant::c {
namespace {

struct Form {
    std::size_t key_off;
    std::size_t key_size; // 0: a string
    std::size_t tail = 0; // bytes behind the key
};

// Sizes of string nodes are 16-bit values: a longer string gets no node.
template <Form F> void *make(const void *key, void *context) {
    constexpr bool is_string = F.key_size == 0;
    const void *source = is_string ? context : key;
    const std::size_t length = is_string ? std::strlen(static_cast<const char *>(source)) + 1 : F.key_size;
    const std::size_t size = F.key_off + length + F.tail;
    if (size > UINT16_MAX)
        return nullptr;
    void *node = std::malloc(size);
    if (!node)
        return nullptr;
    store(node, 0, AVL_Link{});
    if constexpr (F.key_off == count_key_off)
        store<uint32_t>(node, count_off, 1);
    std::memcpy(static_cast<char *>(node) + F.key_off, source, length);
    return node;
}

using Malloc = decltype(AVL_NodeFuncs::Malloc);
constexpr AVL_NodeFuncs plain(Malloc make) {
    return {make, AVL_Realloc_RetGivenHandle, AVL_Free_FreeMem, AVL_Kill_FreeMem};
}
constexpr AVL_NodeFuncs counted(Malloc make) {
    return {make, AVL_Realloc_CountUp, AVL_Free_CountDown, AVL_Kill_FreeMem};
}

} // namespace
} // namespace ovant::c

using namespace ovant::c;

extern "C" {

void *AVL_Malloc_Key4(const void *key, void *context) { return make<Form{key_off, 4}>(key, context); }
void *AVL_Malloc_Key8(const void *key, void *context) { return make<Form{key_off, 8}>(key, context); }
void *AVL_Malloc_KeyString(const void *key, void *context) { return make<Form{string_key_off, 0}>(key, context); }
void *AVL_Malloc_CountKey4(const void *key, void *context) { return make<Form{count_key_off, 4}>(key, context); }
void *AVL_Malloc_CountKey8(const void *key, void *context) { return make<Form{count_key_off, 8}>(key, context); }
void *AVL_Malloc_CountKeyString(const void *key, void *context) {
    return make<Form{count_key_off, 0, 3}>(key, context);
}

constinit const AVL_NodeFuncs AVL_NodeFuncsKey4 = plain(AVL_Malloc_Key4);
constinit const AVL_NodeFuncs AVL_NodeFuncsKey8 = plain(AVL_Malloc_Key8);
constinit const AVL_NodeFuncs AVL_NodeFuncsKeyString = plain(AVL_Malloc_KeyString);
constinit const AVL_NodeFuncs AVL_NodeFuncsCountKey4 = counted(AVL_Malloc_CountKey4);
constinit const AVL_NodeFuncs AVL_NodeFuncsCountKey8 = counted(AVL_Malloc_CountKey8);
constinit const AVL_NodeFuncs AVL_NodeFuncsCountKeyString = counted(AVL_Malloc_CountKeyString);

// Saturates at the largest count.
void *AVL_Realloc_CountUp(void *node, const void *, void *) {
    const auto count = load<uint32_t>(node, count_off);
    if (count < UINT32_MAX)
        store(node, count_off, count + 1);
    return node;
}

void *AVL_Free_CountDown(void *node, const void *, void *) {
    const uint32_t count = load<uint32_t>(node, count_off) - 1;
    store(node, count_off, count);
    return count ? node : AVL_Free_FreeMem(node, nullptr, nullptr);
}
}
