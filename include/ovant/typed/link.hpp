// What a record carries to stand in a tree.
#pragma once

#include "../engine/links.hpp"

namespace ovant {

namespace typed {
struct link_access;
}

// A member of the record for each tree that it can stand in at a time: 17 bytes with 64-bit pointers, at any alignment,
// laid out as AVL_Link is in C.  A copy of a record is a record that stands in no tree: copying and assigning a link
// copies nothing.
class link {
public:
    constexpr link() noexcept = default;
    constexpr link(const link &) noexcept {}
    constexpr link &operator=(const link &) noexcept { return *this; } // NOLINT(bugprone-unhandled-self-assignment)
    ~link() = default;

private:
    friend struct typed::link_access;
    unsigned char bytes_[engine::link_size] = {};
};

namespace typed {

struct link_access {
    static unsigned char *bytes(link &l) { return l.bytes_; }
};

// The accessor of the engine to links at a member that the compiler knows.
template <class T, auto Link> class at_member {
protected:
    void *field(engine::Node n, std::size_t place) const {
        return link_access::bytes(static_cast<T *>(n)->*Link) + place;
    }
};

} // namespace typed
} // namespace ovant
