// What the process itself meets: texts for codes, the default handler on real descriptors, and strings by locale.
#include "ovant.h"
#include "platform/runtime.hpp"

#include <gtest/gtest.h>

#include <climits>
#include <clocale>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <pty.h>
#include <string>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

TEST(CodeText, NumbersBelowTheLimitInABlockOfTheirOwn) {
    const auto expect_text = [](char *block, const char *expected) {
        EXPECT_STREQ(block, expected);
        std::free(block);
    };
    expect_text(Error_GetErrorText(93), "Error Code (093)");
    expect_text(Error_GetErrorText(94), "Error Code (000)");
    expect_text(Error_GetFuncText(178), "Function Code (000)");
    expect_text(Error_GetFuncText(INT_MIN), "Function Code (-2147483648)");
}

int ended_by(pid_t child) {
    int status = 0;
    waitpid(child, &status, 0);
    return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
}

struct Outcome {
    int signal;       // that ended the process, 0 for none
    std::string text; // on descriptors 1 and 2
    bool has(const char *part) const { return text.find(part) != std::string::npos; }
};

// Runs in a process of its own: at a terminal with a person, who reads up to the prompt and types; or, with nothing to
// type, at no terminal, but on an input that would let a reader wait for good.
template <class Run> Outcome run_apart(const char *typed, Run run) {
    int ends[2] = {-1, -1};
    const bool prepared = typed || socketpair(AF_UNIX, SOCK_STREAM, 0, ends) == 0;
    const pid_t child = !prepared ? -1 : typed ? forkpty(&ends[0], nullptr, nullptr, nullptr) : fork();
    if (child < 0)
        return {-1, ""};
    if (child == 0) {
        if (!typed)
            setsid();
        for (int descriptor = 0; !typed && descriptor <= 2; descriptor++)
            dup2(ends[1], descriptor);
        const rlimit none = {0, 0};
        setrlimit(RLIMIT_CORE, &none);
        alarm(20); // whoever waits for an answer ends by another signal than expected
        run();
        _exit(0);
    }
    close(ends[1]);
    Outcome outcome{0, ""};
    char bytes[512];
    for (ssize_t count; (count = read(ends[0], bytes, sizeof bytes)) > 0;) {
        outcome.text.append(bytes, static_cast<std::size_t>(count));
        if (typed && outcome.text.ends_with("[R]etry / [C]ancel? ") && write(ends[0], typed, std::strlen(typed)) > 0)
            typed = nullptr;
    }
    outcome.signal = ended_by(child);
    close(ends[0]);
    return outcome;
}

TEST(DefaultHandler, WithoutATerminalItTellsAndTraps) {
    const Outcome outcome = run_apart(nullptr, [] { Gen_SysError(114, 32); });
    EXPECT_EQ(outcome.signal, SIGTRAP);
    EXPECT_TRUE(outcome.text.starts_with("Win32 MM-Error at Runtime "));
    EXPECT_TRUE(outcome.has("\nError 32\ndecteted in Function 114\nWorking Mode: Multi-Tree without Lockmanager\n"));
    EXPECT_FALSE(outcome.has("[R]etry") || outcome.has("\a"));
}

TEST(DefaultHandler, AtATerminalThePersonDecides) {
    const auto report = [] { Gen_SysError(114, 32); };
    const Outcome outcome = run_apart("r\n", report);
    if (outcome.signal < 0)
        GTEST_SKIP() << "no pseudo-terminals here";
    EXPECT_EQ(outcome.signal, 0) << outcome.text;
    EXPECT_TRUE(outcome.has("\a") && outcome.has("Error 32\r\n"));
    for (const char *typed : {"c\n", "\n", "\004"})
        EXPECT_EQ(run_apart(typed, report).signal, SIGTRAP) << typed;
}

TEST(VirtualNull, ReportsAndNeverReturns) {
    const Outcome outcome = run_apart(nullptr, [] {
        std::signal(SIGTRAP, SIG_IGN);
        AVL_VirtualNull();
    });
    EXPECT_TRUE(outcome.signal == SIGABRT && outcome.has("\nError 5\ndecteted in Function 12\n")) << outcome.text;
}

TEST(Runtime, CharactersOfTheLocale) {
    if (!setlocale(LC_CTYPE, "C.UTF-8"))
        GTEST_SKIP() << "no locale C.UTF-8 here";
    // In order: a proper prefix first, a stray byte by its own number but never equal to the character of that number.
    const char *ordered[] = {"", "a", "ab", "\u00e3", "\u00e4", "\xe4", "\xe4q", "\u0416", "\U0001F600"};
    for (const char *const &first : ordered)
        for (const char *const &second : ordered) {
            const int result = ovant::c::compare_multibyte(first, second);
            EXPECT_EQ((result > 0) - (result < 0), (&first > &second) - (&first < &second)) << first << " " << second;
        }
    // U+0131 would shrink to I, U+0250 would grow to U+2C6F.
    char text[] = "c:\\dir\\\u00e4\u0131\u0250\xe4z";
    ovant::c::upper_case(text);
    EXPECT_STREQ(text, "C:\\DIR\\\u00c4\u0131\u0250\xe4Z");
    setlocale(LC_CTYPE, "C");
}

} // namespace
