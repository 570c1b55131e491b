// The module entry and the default error handler on a platform that notes each request; then the library as it is
// really loaded.  This program defines the platform's services itself.
#include "frame/report.hpp"
#include "platform/module_entry.hpp"
#include "platform/platform.hpp"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <thread>
#include <vector>

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#include <unistd.h>
#endif

using namespace std::string_literals;
using Steps = std::vector<std::string>;

static Steps steps;
static int error_value;
static bool names_told;
static ovant::c::platform::Answer answer;
static char library_handle;

namespace ovant::c::platform {
Answer message_box(const char *text, const char *title, unsigned flags) {
    steps.push_back("box "s + std::to_string(flags) + "\n" + title + text);
    return answer;
}
void beep(unsigned type) { steps.push_back("beep " + std::to_string(type)); }
void trap() { steps.push_back("trap"); }
void time_text(char (&buffer)[time_text_size]) { std::strcpy(buffer, "(time)"); }
void debug_output(const char *text) {
    steps.push_back("debug "s + text);
    error_value = 5;
}
void module_file_name(const void *module, char *buffer, std::size_t size) {
    steps.push_back(module == &library_handle ? "library" : module ? "?" : "host");
    if (names_told && size == 260)
        std::strcpy(buffer, module == &library_handle ? "c:\\Dir\\Lib.Dll" : "c:\\App\\Host.exe");
}
int thread_id() {
    steps.push_back("thread");
    return 1234;
}
void disable_thread_notifications(void *module) { steps.push_back(module == &library_handle ? "off" : "?"); }
int last_error() {
    steps.push_back("save");
    return error_value;
}
void set_last_error(int value) {
    steps.push_back("restore");
    error_value = value;
}
} // namespace ovant::c::platform

static Steps steps_of(uint32_t reason, void *reserved = nullptr) {
    steps.clear();
    error_value = 77;
    EXPECT_EQ(DllMain(&library_handle, reason, reserved), 1);
    EXPECT_EQ(error_value, 77);
    return steps;
}

TEST(ModuleEntry, AnnouncesEachNotificationInTheGivenOrder) {
    names_told = true;
    const char *verbs[] = {"terminating", "initializing", "thread attach", "thread dettach"};
    for (uint32_t reason : {0u, 1u, 2u, 3u}) {
        const std::string line = "C:\\DIR\\LIB.DLL "s + verbs[reason] + " from C:\\APP\\HOST.EXE!(Thread ID = 1234)\n";
        Steps expected = {"library", "host", "thread", "save", "debug " + line, "restore"};
        if (reason == 1)
            expected.push_back("off");
        EXPECT_EQ(steps_of(reason), expected);
    }
    const std::string other = steps_of(0x80000004, reinterpret_cast<void *>(uintptr_t{0xABCD})).at(4);
    EXPECT_TRUE(other.starts_with("debug OVANTLIB.DLL DllMain(HINSTANCE hInstance=0x"));
    EXPECT_TRUE(other.ends_with(", DWORD dwReason=0x80000004, LPVOID lpReserved=0x0000ABCD)\n"));
    EXPECT_NE(steps_of(4).at(4).find("dwReason=0x00000004"), std::string::npos);
    names_told = false;
    EXPECT_EQ(steps_of(0).at(4), "debug  terminating from !(Thread ID = 1234)\n");
}

TEST(ModuleEntry, TraceIsBounded) {
    steps.clear();
    DebugTrace(nullptr);
    DebugTrace("%s", "");
    DebugTrace("%s", "x");
    DebugTrace("%s", std::string(5000, 'x').c_str());
    EXPECT_EQ(steps, (Steps{"save", "restore", "save", "debug x", "restore", "save", "debug " + std::string(4095, 'x'),
                            "restore"}));
}

TEST(DefaultHandler, GoesOnOrStopsByTheAnswer) {
    for (int code = 0; code <= 7; code++) {
        steps.clear();
        answer = static_cast<ovant::c::platform::Answer>(code);
        EXPECT_EQ(Gen_SysError(114, 32), 0);
        Steps expected = {"beep 16", "box 8213\nWin32 MM-Error at Runtime (time)Error 32\ndecteted in Function 114\n"
                                     "Working Mode: Multi-Tree without Lockmanager\n"};
        if (code != 1 && code != 4 && code != 6)
            expected.push_back("trap");
        EXPECT_EQ(steps, expected) << "answer " << code;
    }
}

// The library itself, loaded by a host that hears what it says: through both hooks, or as a debugger would.
#if defined(_WIN32)
static LONG CALLBACK hear(EXCEPTION_POINTERS *raised) {
    const EXCEPTION_RECORD &what = *raised->ExceptionRecord;
    if (what.ExceptionCode != DWORD(DBG_PRINTEXCEPTION_C) && what.ExceptionCode != DWORD(EXCEPTION_BREAKPOINT))
        return EXCEPTION_CONTINUE_SEARCH;
    const bool trap = what.ExceptionCode == DWORD(EXCEPTION_BREAKPOINT); // which is an instruction of one byte
    steps.push_back(trap ? "trap" : reinterpret_cast<const char *>(what.ExceptionInformation[1]));
    raised->ContextRecord->Rip += trap;
    return EXCEPTION_CONTINUE_EXECUTION;
}
static void *dlopen(const char *, int) { return LoadLibraryA("ovantlib.dll"); }
static void *dlsym(void *library, const char *name) {
    return reinterpret_cast<void *>(GetProcAddress(static_cast<HMODULE>(library), name));
}
static void dlclose(void *library) { FreeLibrary(static_cast<HMODULE>(library)); }
static DWORD gettid() { return GetCurrentThreadId(); }
constexpr int RTLD_NOW = 0;
static const char *const library_name = "\\OVANTLIB.DLL", *const host_name = "\\OVANT_SEAM_TESTS.EXE";
static const char *const shown = "trap"; // in place of a box, where there is no screen
#else
extern "C" {
void ovant_debug_output(const char *text) { steps.push_back(text); }
int ovant_message_box(const char *, const char *title, unsigned flags) {
    steps.push_back("box "s + std::to_string(flags) + " " + title);
    return 4;
}
}
static const char *const library_name = "/LIBOVANT.SO", *const host_name = "/OVANT_SEAM_TESTS";
static const char *const shown = "box 8213 Win32 MM-Error at Runtime ";
#endif

TEST(LoadedLibrary, AnnouncesItselfAndNoThreadAndReportsToItsHost) {
    steps.clear();
#if defined(_WIN32)
    if (GetSystemMetrics(SM_CXSCREEN) > 0 && std::getenv("DISPLAY"))
        GTEST_SKIP() << "somebody would have to answer the box";
    AddVectoredExceptionHandler(1, hear);
#endif
    void *library = dlopen(OVANT_SHARED_LIBRARY, RTLD_NOW);
    ASSERT_NE(library, nullptr);
    std::thread([] {}).join();
    EXPECT_EQ(reinterpret_cast<AVL_ErrorFunc>(dlsym(library, "Gen_SysError"))(12, 5), 0);
    dlclose(library);

    ASSERT_EQ(steps.size(), 3u) << ::testing::PrintToString(steps);
    const std::string from_host = host_name + "!(Thread ID = "s + std::to_string(gettid()) + ")\n";
    for (std::size_t i : {0u, 2u}) {
        const auto verb = steps[i].find(i == 0 ? " initializing from " : " terminating from ");
        EXPECT_TRUE(steps[i].find(library_name) < verb && verb != std::string::npos) << steps[i];
        EXPECT_TRUE(steps[i].ends_with(from_host)) << steps[i];
    }
    EXPECT_TRUE(steps[1].starts_with(shown)) << steps[1];
}
