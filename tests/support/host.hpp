// The host of the tests: records at odd addresses, and callbacks that note what the library asks of them.
#pragma once

#include "frame/nodes.hpp"
#include "support/memory.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <deque>
#include <optional>
#include <utility>
#include <vector>

namespace ovant::test {

using namespace c;

// A record: 3 bytes, link header, 19 bytes (where some keep a summary), key, id.  Header and key lie at odd offsets,
// and since the size is odd too, records that follow each other lie at even and odd addresses in turn.  The id counts
// the records as they are made.
constexpr std::size_t link_off = 3;
constexpr std::size_t key_off = link_off + sizeof(AVL_Link) + 19;
constexpr std::size_t id_off = key_off + 8;
struct Record {
    unsigned char bytes[id_off + sizeof(int)];
    bool operator==(const Record &other) const { return std::memcmp(bytes, other.bytes, sizeof bytes) == 0; }
};
static_assert(key_off % 2 == 1 && sizeof(Record) % 2 == 1);

// A test counts keys upward in tree order, under any comparator: -1 while the one in use puts the largest first.
inline int sense = 1;
inline int key_of(const void *node) { return sense * load<int>(node, key_off); }
inline int id_of(const void *node) { return load<int>(node, id_off); }
inline AVL_Link link_of(const void *node) { return load<AVL_Link>(node, link_off); }
inline void set_link(Node node, Node left, Node right, int balance) {
    store(node, link_off, AVL_Link{left, right, static_cast<signed char>(balance)});
}
inline void set_balance(Node node, int balance) { set_link(node, link_of(node).Left, link_of(node).Right, balance); }

// What the callbacks were asked.  One Host lives at a time; making it starts a new record.
enum class Handler { malloc, realloc, free, kill };
struct Call {
    Handler handler;
    Node node;
    const void *key;
    void *context;
    bool operator==(const Call &) const = default;
};
using Report = std::pair<int, int>; // function code, error code
struct Seen {
    int comparisons = 0;
    std::vector<Call> calls;
    std::vector<Report> reports;
    std::optional<Node> answer; // given by Malloc, Realloc and Free in place of their own answer while it is set
    std::vector<Node> killed() const {
        std::vector<Node> nodes;
        for (const Call &call : calls)
            if (call.handler == Handler::kill)
                nodes.push_back(call.node);
        return nodes;
    }
};
inline Seen seen;

// Search keys are pointers to int, which like the keys in the nodes may lie anywhere.
inline int smallest_first(const void *node_key, const void *key) {
    seen.comparisons++;
    const int in_node = load<int>(node_key), sought = load<int>(key);
    return 7 * ((in_node < sought) - (in_node > sought)); // only the sign is read
}
inline int note_report(int function, int error) {
    seen.reports.emplace_back(function, error);
    return 0;
}

// A node that goes loses its header, as a host may release it at once; key and id stay readable for the tests.
inline void spoil_link(Node node) { std::memset(static_cast<char *>(node) + link_off, 0xDD, sizeof(AVL_Link)); }

inline Node note(const Call &call, Node own_answer) {
    seen.calls.push_back(call);
    const Node answer = seen.answer.value_or(own_answer);
    if (call.handler == Handler::kill || (call.handler == Handler::free && answer != call.node))
        spoil_link(call.node);
    return answer;
}
// The context is the new node, as with the two public tables.
inline Node on_malloc(const void *key, void *context) {
    return note({Handler::malloc, nullptr, key, context}, context);
}
inline Node on_realloc(Node n, const void *key, void *context) { return note({Handler::realloc, n, key, context}, n); }
inline Node on_free(Node n, const void *key, void *context) { return note({Handler::free, n, key, context}, nullptr); }
inline void on_kill(Node n, void *context) { note({Handler::kill, n, nullptr, context}, nullptr); }
inline constexpr AVL_NodeFuncs noting_handlers = {on_malloc, on_realloc, on_free, on_kill};

// The orders that the keys of the tests can be in: called, and computed in place.
inline constexpr AVL_CmpFunc orders[] = {smallest_first, AVL_CMP_HandlePointer, AVL_CMP_SignedLong};

class Host {
public:
    explicit Host(AVL_CmpFunc cmp = smallest_first)
        : tree(AVL_Konstruktor(link_off, &noting_handlers, key_off, cmp, note_report)) {
        seen = {};
        sense = cmp == AVL_CMP_SignedLong ? -1 : 1;
        memory.forbidden = true;
    }
    ~Host() {
        AVL_Destruktor(tree);
        memory.forbidden = forbidden_before;
    }
    Host(const Host &) = delete;
    Host &operator=(const Host &) = delete;

    // A record ready to go into a tree: the key, and a cleared header.
    Node record(int key) { return record_of(sense * key); }
    template <class Key> Node record_of(Key key) {
        static_assert(sizeof key <= id_off - key_off);
        Record &made = records_.emplace_back();
        std::memset(&made, 0xA5, sizeof made);
        set_link(&made, nullptr, nullptr, 0);
        store(&made, key_off, key);
        store(&made, id_off, static_cast<int>(records_.size()) - 1);
        return &made;
    }
    std::deque<Record> bytes() const { return records_; } // a copy, to compare with later
    bool operator==(const std::deque<Record> &before) const { return records_ == before; }

    // Stands above the tree, whose making is no tree operation.
    const bool forbidden_before = std::exchange(memory.forbidden, false);
    AVL_Tree *const tree;

private:
    std::deque<Record> records_;
};

} // namespace ovant::test
