// What a record carries to stand in a tree.
#pragma once

#include "../engine/links.hpp"

#include <cstdint>
#include <type_traits>

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

// A link that also keeps a summary of the subtree below it, its own record included: a sum, a maximum, whatever a
// Summary tells of some records that stand next to each other.  It is right after every operation.
//
//     struct Latest {
//         int end = 0;
//         static Latest of(const Latest &left, const auto &x, const Latest &right) {
//             return {std::max({left.end, x.end, right.end})};
//         }
//     };
//     struct Booking { int begin, end; ovant::summary_link<Latest> link; };
//
// of() makes a node's summary from those of its two children and the record; a child that is not there counts as
// Summary().  What comes out must depend on the records and their order alone, not on which of them is the node.  It
// must not throw.  A record whose share of the summary changes while it is in a tree: refresh(x).
template <class Summary> class summary_link : public link {
public:
    constexpr summary_link() noexcept = default;
    constexpr summary_link(const summary_link &) noexcept : link() {}
    constexpr summary_link &operator=(const summary_link &) noexcept { return *this; } // NOLINT
    ~summary_link() = default;

private:
    friend struct typed::link_access;
    unsigned char room_[3] = {}; // behind 17 bytes or 9
    Summary below_ = {};
};

// How many records there are, up to 2^32 - 1.  A tree is counted if its summary is this one or derived from it.
class [[gnu::packed]] record_count {
public:
    constexpr record_count() noexcept = default;
    constexpr explicit record_count(std::size_t n) noexcept : records_(static_cast<std::uint32_t>(n)) {}
    constexpr operator std::size_t() const noexcept { return records_; } // NOLINT(google-explicit-constructor)

    template <class T>
    static constexpr record_count of(const record_count &left, const T &, const record_count &right) noexcept {
        return record_count(left + std::size_t{1} + right);
    }

private:
    std::uint32_t records_ = 0;
};

// 24 bytes with 64-bit pointers, at any alignment.
using counted_link = summary_link<record_count>;

namespace typed {

struct link_access {
    static unsigned char *bytes(link &l) { return l.bytes_; }
    template <class Summary> static Summary &below(summary_link<Summary> &l) { return l.below_; }
};

// The accessor of the engine to links at a member that the compiler knows.
template <class T, auto Link> struct at_member {
    void *field(engine::Node n, std::size_t place) const {
        return link_access::bytes(static_cast<T *>(n)->*Link) + place;
    }
};

// The same for links with a summary.
template <class T, auto Link, class Summary_> struct summed_at_member : at_member<T, Link> {
    using Summary = Summary_;
    static Summary &below(engine::Node n) { return link_access::below(static_cast<T *>(n)->*Link); }
    static Summary of(const Summary &left, engine::Node n, const Summary &right) {
        return Summary::of(left, static_cast<const T &>(*static_cast<T *>(n)), right);
    }
    static void add(engine::Node n, std::ptrdiff_t added) requires std::is_same_v<Summary, record_count> {
        below(n) = record_count(below(n) + static_cast<std::size_t>(added));
    }
};

} // namespace typed
} // namespace ovant
