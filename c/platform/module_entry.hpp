// Announces loading and unloading on the platform's debug channel.
#pragma once

#include <cstdint>

#if defined(_WIN32)
#define OVANT_ENTRY __stdcall // the platform itself calls it
#else
#define OVANT_ENTRY
#endif

extern "C" {
// reason: 1 process attach, 0 process detach, 2 thread attach, 3 thread detach.  The result is 1: no load is refused.
int OVANT_ENTRY DllMain(void *instance, uint32_t reason, void *reserved);

// Leaves the thread's last-error value as it was.
[[gnu::format(printf, 1, 2)]] void DebugTrace(const char *format, ...);
}
