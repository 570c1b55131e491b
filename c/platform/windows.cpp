// The platform's services on Windows, which has each of them by name.
#include "platform/platform.hpp"

#include <cstring>
#include <ctime>
#include <windows.h>

namespace ovant::c::platform {

Answer message_box(const char *text, const char *title, unsigned flags) {
    return static_cast<Answer>(MessageBoxA(nullptr, text, title, flags));
}

void beep(unsigned type) { MessageBeep(type); }

void trap() { __debugbreak(); }

void time_text(char (&buffer)[time_text_size]) {
    const std::time_t now = std::time(nullptr);
    const char *const text = std::ctime(&now); // of the thread's own
    std::strcpy(buffer, text ? text : "\n");
}

void debug_output(const char *text) { OutputDebugStringA(text); }

void module_file_name(const void *module, char *buffer, std::size_t size) {
    GetModuleFileNameA(static_cast<HMODULE>(const_cast<void *>(module)), buffer, static_cast<DWORD>(size));
}

int thread_id() { return static_cast<int>(GetCurrentThreadId()); }

void disable_thread_notifications(void *module) { DisableThreadLibraryCalls(static_cast<HMODULE>(module)); }

int last_error() { return static_cast<int>(GetLastError()); }

void set_last_error(int value) { SetLastError(static_cast<DWORD>(value)); }

} // namespace ovant::c::platform
