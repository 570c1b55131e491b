// Turns loading and unloading of the shared library into the notifications of its entry routine.
#include "platform/module_entry.hpp"

namespace {

// Its address stands for the library's handle.
char module_handle;

[[gnu::constructor]] void attach() { DllMain(&module_handle, 1, nullptr); }

[[gnu::destructor]] void detach() { DllMain(&module_handle, 0, nullptr); }

} // namespace
