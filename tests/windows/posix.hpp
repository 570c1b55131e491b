// What the tests take from POSIX, in the words of Windows; included before all of them there.
#pragma once

#include <cstddef>
#include <malloc.h>

#define malloc_usable_size _msize

inline void alarm(unsigned) {} // CTest ends what never ends

extern "C" {
__declspec(dllimport) void *__stdcall VirtualAlloc(void *, std::size_t, unsigned long, unsigned long);
__declspec(dllimport) int __stdcall VirtualProtect(void *, std::size_t, unsigned long, unsigned long *);
__declspec(dllimport) int __stdcall VirtualFree(void *, std::size_t, unsigned long);
}
enum { PROT_NONE, PROT_READ = 1, PROT_WRITE = 2, MAP_PRIVATE = 0, MAP_ANONYMOUS = 0 };
inline void *mmap(void *, std::size_t size, int, int, int, int) { return VirtualAlloc(nullptr, size, 0x3000, 4); }
inline void mprotect(void *start, std::size_t size, int) { // to no access
    unsigned long before = 0;
    VirtualProtect(start, size, 1, &before);
}
inline void munmap(void *start, std::size_t) { VirtualFree(start, 0, 0x8000); }

namespace testing {

// How abort() ends a process.
struct KilledBySignal {
    explicit KilledBySignal(int) {}
    bool operator()(int status) const { return status == 3; }
};

} // namespace testing
