// What the process itself meets: texts for codes, the default handler on real descriptors, and strings by locale.
#include "ovant.h"
#include "platform/runtime.hpp"

#include <gtest/gtest.h>

#include <climits>
#include <clocale>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <pty.h>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

namespace {

TEST(CodeText, NumbersBelowTheLimitInABlockOfTheirOwn) {
    const auto text = [](char *(*function)(int), int code) {
        char *block = function(code);
        std::string copy = block;
        std::free(block);
        return copy;
    };
    for (const auto &[code, expected] :
         {std::pair{5, "005"}, {93, "093"}, {94, "000"}, {INT_MAX, "000"}, {-1, "-001"}, {INT_MIN, "-2147483648"}})
        EXPECT_EQ(text(Error_GetErrorText, code), "Error Code (" + std::string(expected) + ")");
    for (const auto &[code, expected] : {std::pair{177, "177"}, {178, "000"}, {-177, "-177"}, {INT_MIN, "-2147483648"}})
        EXPECT_EQ(text(Error_GetFuncText, code), "Function Code (" + std::string(expected) + ")");
}

// ---- The default handler in a process of its own ----------------------------------------------------------------

struct Outcome {
    std::string text; // on descriptors 1 and 2
    int signal;       // that ended the process, 0 for none
    bool has(const std::string &part) const { return text.find(part) != std::string::npos; }
};

template <class Run> [[noreturn]] void run_child(Run run) {
    const rlimit none = {0, 0};
    setrlimit(RLIMIT_CORE, &none);
    alarm(20); // whoever waits for an answer ends by another signal than expected
    run();
    _exit(0);
}

// Reads until the other end is closed or, to play the person, until the text ends in the prompt.
bool read_to(int from, std::string &text, const char *prompt = nullptr) {
    char bytes[512];
    while (true) {
        if (prompt && text.size() >= std::strlen(prompt) && text.ends_with(prompt))
            return true;
        const ssize_t count = read(from, bytes, sizeof bytes);
        if (count <= 0)
            return false;
        text.append(bytes, static_cast<std::size_t>(count));
    }
}

int ended_by(pid_t child) {
    int status = 0;
    waitpid(child, &status, 0);
    return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
}

// No terminal anywhere, but an input that would let a reader wait for good.
template <class Run> Outcome unattended(Run run) {
    int in[2], out[2];
    EXPECT_EQ(pipe(in) + pipe(out), 0);
    const pid_t child = fork();
    if (child == 0) {
        setsid();
        dup2(in[0], 0);
        dup2(out[1], 1);
        dup2(out[1], 2);
        close(out[1]);
        run_child(run);
    }
    close(out[1]);
    Outcome outcome;
    read_to(out[0], outcome.text);
    outcome.signal = ended_by(child);
    for (int descriptor : {in[0], in[1], out[0]})
        close(descriptor);
    return outcome;
}

TEST(DefaultHandler, WithoutATerminalItTellsAndTraps) {
    const Outcome outcome = unattended([] { Gen_SysError(114, 32); });
    EXPECT_EQ(outcome.signal, SIGTRAP);
    EXPECT_EQ(outcome.text.rfind("Win32 MM-Error at Runtime ", 0), 0u);
    EXPECT_TRUE(outcome.has("\nError 32\ndecteted in Function 114\nWorking Mode: Multi-Tree without Lockmanager\n"));
    EXPECT_FALSE(outcome.has("[R]etry") || outcome.has("\a"));
}

TEST(DefaultHandler, AFullPipeDoesNotHoldTheProcess) {
    const Outcome outcome = unattended([] {
        int full[2];
        if (pipe(full) != 0 || fcntl(full[1], F_SETFL, O_NONBLOCK) != 0)
            abort();
        while (write(full[1], "", 1) == 1)
            continue;
        fcntl(full[1], F_SETFL, 0);
        dup2(full[1], 2);
        std::signal(SIGTRAP, SIG_IGN); // an emulator would tell of the trap on the full pipe
        Gen_SysError(114, 32);
    });
    EXPECT_EQ(outcome.signal, 0);
}

TEST(VirtualNull, ReportsAndNeverReturns) {
    const Outcome stopped = unattended([] { AVL_VirtualNull(); });
    EXPECT_EQ(stopped.signal, SIGTRAP);
    EXPECT_TRUE(stopped.has("\nError 5\ndecteted in Function 12\n"));
    const Outcome went_on = unattended([] {
        std::signal(SIGTRAP, SIG_IGN);
        AVL_VirtualNull();
    });
    EXPECT_EQ(went_on.signal, SIGABRT);
}

// A person at a terminal: reads up to the prompt, then types.
template <class Run> Outcome attended(const char *typed, Run run) {
    int terminal = -1;
    const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
    if (child == 0)
        run_child(run);
    Outcome outcome{"", -1};
    if (child < 0)
        return outcome;
    if (read_to(terminal, outcome.text, "[R]etry / [C]ancel? ") && write(terminal, typed, std::strlen(typed)) > 0)
        read_to(terminal, outcome.text);
    outcome.signal = ended_by(child);
    close(terminal);
    return outcome;
}

TEST(DefaultHandler, AtATerminalThePersonDecides) {
    const auto report = [] { Gen_SysError(114, 32); };
    Outcome outcome = attended("r\n", report);
    if (outcome.signal < 0)
        GTEST_SKIP() << "no pseudo-terminals here";
    EXPECT_EQ(outcome.signal, 0) << outcome.text;
    EXPECT_TRUE(outcome.has("\a") && outcome.has("Error 32\r\n"));
    for (const char *typed : {"c\n", "\n", "\004"})
        EXPECT_EQ(attended(typed, report).signal, SIGTRAP) << typed;
    outcome = attended("r\n", [] { // a job in the background of the same terminal must neither ask nor stop
        termios settings;
        tcgetattr(2, &settings);
        settings.c_lflag |= TOSTOP;
        tcsetattr(2, TCSANOW, &settings);
        const pid_t job = fork();
        if (job == 0) {
            setpgid(0, 0);
            Gen_SysError(114, 32);
            _exit(0);
        }
        if (ended_by(job) != SIGTRAP)
            abort();
    });
    EXPECT_EQ(outcome.signal, 0);
    EXPECT_FALSE(outcome.has("[R]etry"));
}

TEST(LoadedLibrary, IsSilentWhereNobodyListens) {
    const Outcome outcome = unattended([] {
        void *library = dlopen(OVANT_SHARED_LIBRARY, RTLD_NOW);
        if (!library || dlclose(library) != 0)
            abort();
    });
    EXPECT_EQ(outcome.signal, 0);
    EXPECT_EQ(outcome.text, "");
}

// ---- Strings by the locale --------------------------------------------------------------------------------------

struct Locale { // UTF-8 for the length of a test
    const std::string before = setlocale(LC_CTYPE, nullptr);
    const bool there = setlocale(LC_CTYPE, "C.UTF-8") != nullptr;
    ~Locale() { setlocale(LC_CTYPE, before.c_str()); }
};

TEST(Runtime, CharactersOfTheLocale) {
    const Locale utf8;
    if (!utf8.there)
        GTEST_SKIP() << "no locale C.UTF-8 here";
    // In order: a proper prefix first, a stray byte by its own number but never equal to the character of that number.
    const char *ordered[] = {"", "a", "ab", "\u00e3", "\u00e4", "\xe4", "\xe4q", "\u0416", "\U0001F600"};
    for (const char *const &first : ordered)
        for (const char *const &second : ordered) {
            const int result = ovant::compare_multibyte(first, second);
            EXPECT_EQ((result > 0) - (result < 0), (&first > &second) - (&first < &second)) << first << " " << second;
        }
    // U+0131 would shrink to I, U+0250 would grow to U+2C6F.
    char text[] = "c:\\dir\\\u00e4\u0131\u0250\xe4z";
    ovant::upper_case(text);
    EXPECT_STREQ(text, "C:\\DIR\\\u00c4\u0131\u0250\xe4Z");
}

TEST(Runtime, UnitsAtAnyAddress) {
    const char raw[] = "?\x01\x00\x00\x80\x00\x00"; // shifted by one: units 0x0001, 0x8000, 0 or 0x0100, 0x0080, 0
    alignas(2) const char16_t high[] = {0x8000, 0}, low[] = {0x0100, 0}, top[] = {0xFFFF, 0};
    EXPECT_LT(ovant::compare_units(low, high), 0);
    EXPECT_LT(ovant::compare_units(high, top), 0);
    EXPECT_LT(ovant::compare_units(raw + 1, high), 0);
    EXPECT_EQ(ovant::compare_units(raw + 1, raw + 1), 0);
}

} // namespace
