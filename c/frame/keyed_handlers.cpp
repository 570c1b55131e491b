#include "frame/keyed_handlers.hpp"
#include "frame/nodes.hpp"

#include <cstdlib>
#include <cstring>

namespace ovant::c {
namespace {

struct Form {
    std::size_t key_off;
    std::size_t key_size; // 0: a string
    bool counted = false;
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
    if constexpr (F.counted)
        store<uint32_t>(node, count_off, 1);
    std::memcpy(static_cast<char *>(node) + F.key_off, source, length);
    return node;
}

template <Form F>
constexpr AVL_NodeFuncs table = {
    .Malloc = make<F>,
    .Realloc = F.counted ? AVL_Realloc_CountUp : AVL_Realloc_RetGivenHandle,
    .Free = F.counted ? AVL_Free_CountDown : AVL_Free_FreeMem,
    .Kill = AVL_Kill_FreeMem,
};

} // namespace
} // namespace ovant::c

using namespace ovant::c;

extern "C" {

constinit const AVL_NodeFuncs AVL_NodeFuncsKey4 = table<Form{key_off, 4}>;
constinit const AVL_NodeFuncs AVL_NodeFuncsKey8 = table<Form{key_off, 8}>;
constinit const AVL_NodeFuncs AVL_NodeFuncsKeyString = table<Form{string_key_off, 0}>;
constinit const AVL_NodeFuncs AVL_NodeFuncsCountKey4 = table<Form{count_key_off, 4, true}>;
constinit const AVL_NodeFuncs AVL_NodeFuncsCountKey8 = table<Form{count_key_off, 8, true}>;
constinit const AVL_NodeFuncs AVL_NodeFuncsCountKeyString = table<Form{count_key_off, 0, true, 3}>;

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
