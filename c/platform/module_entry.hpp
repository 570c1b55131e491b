// Announces loading and unloading on the platform's debug channel.
#pragma once

#include <cstdint>

extern "C" {
// reason: 1 process attach, 0 process detach, 2 thread attach, 3 thread detach.  The result is 1: no load is refused.
int DllMain(void *instance, uint32_t reason, void *reserved);

// Leaves the thread's last-error value as it was.
[[gnu::format(printf, 1, 2)]] void DebugTrace(const char *format, ...);
}
