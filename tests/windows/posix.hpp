// What the tests take from POSIX, in the words of Windows; included before all of them there.
#pragma once

inline void alarm(unsigned) {} // CTest ends what never ends

namespace testing {

// How abort() ends a process.
struct KilledBySignal {
    explicit KilledBySignal(int) {}
    bool operator()(int status) const { return status == 3; }
};

} // namespace testing
