// The blocks that the library takes: counted, refused at will, full of rubbish when they come.  While a host of the
// tests lives (host.hpp), a request ends the process: no tree operation makes one.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <utility>

namespace ovant::test {

struct Memory {
    int blocks = 0;        // that have not been released
    int requests = 0;      // so far
    int refused = 0;       // the request that gets nothing
    std::size_t size = 0;  // of the last block
    std::size_t total = 0; // of all blocks so far
    bool forbidden = false;
    const char *at_work = "a tree operation"; // which would be to blame
};
inline Memory memory;

// While it lives a maker may be called, whose work it is to take memory.
struct MayTakeMemory {
    MayTakeMemory() = default;
    ~MayTakeMemory() { memory.forbidden = before; }
    MayTakeMemory(const MayTakeMemory &) = delete;
    MayTakeMemory &operator=(const MayTakeMemory &) = delete;
    const bool before = std::exchange(memory.forbidden, false);
};

// Refuses the first request of an operation, the second one and so on, until it needs no more.  Each time it answers 0
// and has kept nothing; what it must not have changed it can test itself, as it runs again.
template <class Make> auto refused_until_made(Make make) {
    const MayTakeMemory here;
    for (int n = 1;; n++) {
        const int before = memory.blocks;
        memory.refused = memory.requests + n;
        const auto made = make();
        if (memory.requests < memory.refused) {
            memory.refused = 0;
            return made;
        }
        EXPECT_TRUE(!made && memory.blocks == before) << "request " << n << " refused";
    }
}

} // namespace ovant::test
