// The module entry and the default error handler on a platform that notes each request; then the library as it is
// really loaded.  This program defines the platform's services itself.
#include "frame/report.hpp"
#include "platform/module_entry.hpp"
#include "platform/platform.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstring>
#include <dlfcn.h>
#include <string>
#include <unistd.h>
#include <vector>

using namespace std::string_literals;
using Steps = std::vector<std::string>;

namespace {
Steps steps;
int error_value;
bool names_told;
ovant::platform::Answer answer;
char library_handle;

Steps steps_of(uint32_t reason, void *instance = &library_handle, void *reserved = nullptr) {
    steps.clear();
    error_value = 77;
    EXPECT_EQ(DllMain(instance, reason, reserved), 1);
    EXPECT_EQ(error_value, 77);
    return steps;
}
} // namespace

namespace ovant::platform {
Answer message_box(const char *text, const char *title, unsigned flags) {
    steps.push_back("box "s + std::to_string(flags) + "\n" + title + text);
    return answer;
}
void beep(unsigned type) { steps.push_back("beep " + std::to_string(type)); }
void trap() { steps.push_back("trap"); }
void time_text(char (&buffer)[time_text_size]) { std::strcpy(buffer, "Thu Jan  1 00:00:00 1970\n"); }
void debug_output(const char *text) {
    steps.push_back("debug "s + text);
    error_value = 5;
}
void module_file_name(const void *module, char *buffer, std::size_t size) {
    steps.push_back((module ? "library " : "host ") + std::to_string(size));
    if (names_told)
        std::strcpy(buffer, module ? "c:\\Dir\\Lib.Dll" : "c:\\App\\Host.exe");
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
} // namespace ovant::platform

TEST(ModuleEntry, AnnouncesEachNotificationInTheGivenOrder) {
    names_told = true;
    Steps expected = {"library 260", "host 260", "thread", "save", "", "restore"};
    const char *verbs[] = {"terminating", "initializing", "thread attach", "thread dettach"};
    for (uint32_t reason : {0u, 2u, 3u}) {
        expected[4] = "debug C:\\DIR\\LIB.DLL "s + verbs[reason] + " from C:\\APP\\HOST.EXE!(Thread ID = 1234)\n";
        EXPECT_EQ(steps_of(reason), expected);
    }
    names_told = false;
    expected[4] = "debug  initializing from !(Thread ID = 1234)\n";
    expected.push_back("off");
    EXPECT_EQ(steps_of(1), expected);
}

TEST(ModuleEntry, UnknownReasonIsShownInHexadecimal) {
    const auto line = [](uint32_t reason, uintptr_t instance, uintptr_t reserved) {
        return steps_of(reason, reinterpret_cast<void *>(instance), reinterpret_cast<void *>(reserved)).at(4);
    };
    EXPECT_EQ(line(4, 0x10000000, 0xABCD), "debug OVANTLIB.DLL DllMain(HINSTANCE hInstance=0x10000000, "
                                           "DWORD dwReason=0x00000004, LPVOID lpReserved=0x0000ABCD)\n");
    EXPECT_NE(line(0x80000000, 1, 1).find("dwReason=0x80000000,"), std::string::npos);
    EXPECT_NE(line(5, UINTPTR_MAX, 1).find("=0x" + std::string(2 * sizeof(void *), 'F') + ","), std::string::npos);
}

TEST(ModuleEntry, TraceIsBoundedAndKeepsTheLastError) {
    const auto trace = [](const char *format, const char *text) {
        steps.clear();
        DebugTrace(format, text);
        return steps;
    };
    EXPECT_EQ(trace(nullptr, ""), Steps{});
    EXPECT_EQ(trace("%s", ""), (Steps{"save", "restore"}));
    EXPECT_EQ(trace("%s", std::string(5000, 'x').c_str()),
              (Steps{"save", "debug " + std::string(4095, 'x'), "restore"}));
}

TEST(DefaultHandler, GoesOnOrStopsByTheAnswer) {
    for (int code = 0; code <= 7; code++) {
        steps.clear();
        answer = static_cast<ovant::platform::Answer>(code);
        EXPECT_EQ(Gen_SysError(114, 32), 0);
        Steps expected = {"beep 16", "box 8213\nWin32 MM-Error at Runtime Thu Jan  1 00:00:00 1970\n"
                                     "Error 32\ndecteted in Function 114\n"
                                     "Working Mode: Multi-Tree without Lockmanager\n"};
        if (code != 1 && code != 4 && code != 6)
            expected.push_back("trap");
        EXPECT_EQ(steps, expected) << "answer " << code;
    }
}

// ---- The library itself, loaded by a host that exports both hooks ----------------------------------------------

extern "C" {
void ovant_debug_output(const char *text) { steps.push_back(text); }
int ovant_message_box(const char *text, const char *title, unsigned flags) {
    steps.push_back("box "s + std::to_string(flags) + " " + title + text);
    return 4;
}
}

TEST(LoadedLibrary, AnnouncesItselfToItsHostAndShowsTheHostsBox) {
    steps.clear();
    void *library = dlopen(OVANT_SHARED_LIBRARY, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(library, nullptr) << dlerror();
    const auto handler = reinterpret_cast<AVL_ErrorFunc>(dlsym(library, "Gen_SysError"));
    EXPECT_EQ(handler(12, 5), 0);
    dlclose(library);

    char host[260] = "";
    ASSERT_GT(readlink("/proc/self/exe", host, sizeof host - 1), 0);
    std::string from = " from "s + host, name = std::string(OVANT_SHARED_LIBRARY).substr(0, 259);
    for (std::string *path : {&from, &name})
        std::transform(path->begin(), path->end(), path->begin(), [](unsigned char c) { return std::toupper(c); });
    from.replace(0, 6, " from ");
    from += "!(Thread ID = " + std::to_string(gettid()) + ")\n";
    ASSERT_EQ(steps.size(), 3u);
    EXPECT_EQ(steps[0], name + " initializing" + from);
    EXPECT_EQ(steps[1].rfind("box 8213 Win32 MM-Error at Runtime ", 0), 0u);
    EXPECT_EQ(steps[2], name + " terminating" + from);
}
