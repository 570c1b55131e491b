#include "platform/module_entry.hpp"
#include "platform/platform.hpp"
#include "platform/runtime.hpp"

#include <cinttypes>
#include <cstdarg>
#include <cstdio>
#include <iterator>

using namespace ovant::c;

namespace {

constexpr uint32_t process_attach = 1;

// By reason; each takes the names of library and host and the thread id.
constexpr const char *notices[] = {
    "%s terminating from %s!(Thread ID = %d)\n",
    "%s initializing from %s!(Thread ID = %d)\n",
    "%s thread attach from %s!(Thread ID = %d)\n",
    "%s thread dettach from %s!(Thread ID = %d)\n",
};

// Eight digits or, where a handle needs them, more.
constexpr const char *unknown_notice = "OVANTLIB.DLL DllMain(HINSTANCE hInstance=0x%08" PRIXPTR
                                       ", DWORD dwReason=0x%08" PRIX32 ", LPVOID lpReserved=0x%08" PRIXPTR ")\n";

struct ModuleName {
    char text[260] = "";

    explicit ModuleName(const void *module) {
        platform::module_file_name(module, text, sizeof text);
        upper_case(text);
    }
};

} // namespace

int OVANT_ENTRY DllMain(void *instance, uint32_t reason, void *reserved) {
    const ModuleName library(instance), host(nullptr);
    const int thread = platform::thread_id();
    if (reason < std::size(notices))
        DebugTrace(notices[reason], library.text, host.text, thread);
    else
        DebugTrace(unknown_notice, reinterpret_cast<uintptr_t>(instance), reason,
                   reinterpret_cast<uintptr_t>(reserved));
    if (reason == process_attach)
        platform::disable_thread_notifications(instance);
    return 1;
}

void DebugTrace(const char *format, ...) {
    if (!format)
        return;
    const int last_error = platform::last_error();
    char text[4096];
    va_list arguments;
    va_start(arguments, format);
    const int length = std::vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    if (length > 0)
        platform::debug_output(text);
    platform::set_last_error(last_error);
}
