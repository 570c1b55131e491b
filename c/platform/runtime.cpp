#include "platform/runtime.hpp"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace ovant::c {

int compare_units(const void *search, const void *node) {
    const auto unit = [](const void *text, std::size_t i) {
        std::uint16_t value;
        std::memcpy(&value, static_cast<const char *>(text) + i * sizeof value, sizeof value);
        return value;
    };
    std::size_t i = 0;
    while (unit(search, i) == unit(node, i) && unit(search, i) != 0)
        ++i;
    return unit(search, i) - unit(node, i);
}

} // namespace ovant::c
