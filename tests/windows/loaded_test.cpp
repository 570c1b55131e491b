// ovantlib.dll as the system loads it.  This program runs itself as a host under a debugger, which is told what comes
// on the debug channel.
#include "ovant.h"
#include "platform/runtime.hpp"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>
#include <windows.h>

namespace {

using Call = int (*)(int, int);

DWORD WINAPI nothing(void *) { return 0; }

// The host: loads, lets a thread come and go, reports where it is asked to, unloads.
int host(const std::string &role) {
    const HMODULE library = LoadLibraryA("ovantlib.dll");
    if (!library)
        return 1;
    const HANDLE thread = CreateThread(nullptr, 0, nothing, nullptr, 0, nullptr);
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
    if (role == "--host-reports")
        reinterpret_cast<Call>(reinterpret_cast<void *>(GetProcAddress(library, "Gen_SysError")))(114, 32);
    FreeLibrary(library);
    return 0;
}

struct Seen {
    std::vector<std::string> lines; // of the debug channel
    int traps = -1;                 // the system sets the first one, before the program starts
    DWORD process = 0, thread = 0, status = STILL_ACTIVE;
};

Seen debugged(const char *role) {
    char self[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, self, sizeof self);
    std::string command("\"");
    command.append(self).append("\" ").append(role);
    STARTUPINFOA start = {};
    start.cb = sizeof start;
    PROCESS_INFORMATION child = {};
    Seen seen;
    if (!CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, DEBUG_ONLY_THIS_PROCESS, nullptr, nullptr,
                        &start, &child))
        return seen;
    seen.thread = child.dwThreadId;
    for (DEBUG_EVENT event; WaitForDebugEvent(&event, 30000);) {
        DWORD answer = DBG_CONTINUE;
        if (event.dwDebugEventCode == OUTPUT_DEBUG_STRING_EVENT) {
            const OUTPUT_DEBUG_STRING_INFO &said = event.u.DebugString;
            std::string text(said.nDebugStringLength, '\0');
            ReadProcessMemory(child.hProcess, said.lpDebugStringData, text.data(), text.size(), nullptr);
            seen.lines.emplace_back(text.c_str());
        } else if (event.dwDebugEventCode == EXCEPTION_DEBUG_EVENT) {
            if (event.u.Exception.ExceptionRecord.ExceptionCode == DWORD(EXCEPTION_BREAKPOINT))
                ++seen.traps;
            else
                answer = DBG_EXCEPTION_NOT_HANDLED;
        } else if (event.dwDebugEventCode == EXIT_PROCESS_DEBUG_EVENT) {
            seen.status = event.u.ExitProcess.dwExitCode;
        }
        ContinueDebugEvent(event.dwProcessId, event.dwThreadId, answer);
        if (seen.status != STILL_ACTIVE)
            break;
    }
    if (seen.status == STILL_ACTIVE)
        TerminateProcess(child.hProcess, 2);
    CloseHandle(child.hThread);
    CloseHandle(child.hProcess);
    return seen;
}

TEST(LoadedLibrary, AnnouncesLoadAndUnloadAndNoThread) {
    const Seen seen = debugged("--host");
    EXPECT_EQ(seen.status, 0u);
    ASSERT_EQ(seen.lines.size(), 2u) << ::testing::PrintToString(seen.lines);
    std::string from_host("\\OVANT_WINDOWS_TESTS.EXE!(Thread ID = ");
    from_host.append(std::to_string(seen.thread)).append(")\n");
    for (const std::size_t i : {0u, 1u}) {
        const char *const verb = i == 0 ? "\\OVANTLIB.DLL initializing from " : "\\OVANTLIB.DLL terminating from ";
        EXPECT_TRUE(seen.lines[i].find(verb) != std::string::npos && seen.lines[i].ends_with(from_host))
            << seen.lines[i];
    }
}

TEST(LoadedLibrary, ABoxThatCannotBeShownIsATrap) {
    if (GetSystemMetrics(SM_CXSCREEN) > 0 && std::getenv("DISPLAY"))
        GTEST_SKIP() << "somebody would have to answer the box";
    const Seen seen = debugged("--host-reports");
    EXPECT_EQ(seen.traps, 1);
    EXPECT_EQ(seen.status, 0u); // the debugger has let it go on
}

TEST(Runtime, TextAsThisPlatformHasIt) {
    EXPECT_EQ(ovant::c::compare_folded("Turing", "tURING"), 0);
    EXPECT_LT(ovant::c::compare_multibyte("ab", "abc"), 0);
    EXPECT_GT(ovant::c::compare_multibyte("b", "abc"), 0);
    char path[] = "c:\\dir\\lib.dll";
    ovant::c::upper_case(path);
    EXPECT_STREQ(path, "C:\\DIR\\LIB.DLL");
}

} // namespace

int main(int count, char **words) {
    if (count == 2 && std::strncmp(words[1], "--host", 6) == 0)
        return host(words[1]);
    testing::InitGoogleTest(&count, words);
    return RUN_ALL_TESTS();
}
