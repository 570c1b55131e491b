// The blocks that library and tests take: counted, refused at will, full of rubbish when they come.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>

namespace ovant::test {

struct Memory {
    int blocks = 0;        // that have not been released
    int requests = 0;      // so far
    int refused = 0;       // the request that gets nothing
    std::size_t size = 0;  // of the last block
    std::size_t total = 0; // of all blocks so far
};
extern Memory memory;

// Refuses the first request of an operation, the second one and so on, until it needs no more.  Each time it answers 0
// and has kept nothing; what it must not have changed it can test itself, as it runs again.
template <class Make> auto refused_until_made(Make make) {
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
