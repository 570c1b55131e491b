// What the process itself meets: texts for codes, the default handler on real descriptors, and strings by locale.
#include "ovant.h"
#include "platform/platform.hpp"
#include "platform/runtime.hpp"
#include "support/memory.hpp"

#include <algorithm>
#include <climits>
#include <clocale>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <pty.h>
#include <sched.h>
#include <string>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <tuple>
#include <unistd.h>

using namespace ovant::test;

// This program is linked with --wrap=write too.
static std::size_t most_written = SIZE_MAX;
extern "C" {
ssize_t __real_write(int descriptor, const void *bytes, std::size_t size);
ssize_t __wrap_write(int descriptor, const void *bytes, std::size_t size) {
    return __real_write(descriptor, bytes, std::min(size, most_written));
}
}

namespace {

TEST(CodeText, NumbersBelowTheLimitInABlockOfTheirOwn) {
    const std::tuple<char *(*)(int), int, const char *> rows[] = {
        {Error_GetErrorText, 93, "Error Code (093)"},
        {Error_GetErrorText, 94, "Error Code (000)"},
        {Error_GetFuncText, 177, "Function Code (177)"},
        {Error_GetFuncText, 178, "Function Code (000)"},
        {Error_GetFuncText, INT_MIN, "Function Code (-2147483648)"},
    };
    for (const auto &[text_of, code, expected] : rows) {
        char *const block = refused_until_made([f = text_of, c = code] { return f(c); });
        EXPECT_STREQ(block, expected);
        EXPECT_EQ(memory.size, std::strlen(expected) + 1);
        std::free(block);
    }
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
        if (typed && outcome.text.ends_with("[R]etry / [C]ancel? ")) {
            usleep(20000); // a person takes time
            if (write(ends[0], typed, std::strlen(typed)) <= 0)
                break; // nothing to type: hangs up
            typed = nullptr;
        }
    }
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    outcome.signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    return outcome;
}

// What a host may have done to the process before a report comes.
void interrupt_often() {
    struct sigaction on_alarm = {};
    on_alarm.sa_handler = [](int) {
        if (static int times; ++times > 2000)
            std::abort();
    };
    sigaction(SIGALRM, &on_alarm, nullptr);
    const itimerval often = {{0, 4000}, {0, 4000}};
    setitimer(ITIMER_REAL, &often, nullptr);
}
template <int Descriptor> int use_pipe() { // gives its other end
    int ends[2];
    if (pipe(ends) != 0)
        return -1;
    dup2(ends[Descriptor != STDIN_FILENO], Descriptor);
    return ends[Descriptor == STDIN_FILENO];
}
[[maybe_unused]] void refuse_descriptors() {
    const rlimit none = {0, 0};
    setrlimit(RLIMIT_NOFILE, &none);
}
[[maybe_unused]] void use_full_pipe() {
    use_pipe<STDERR_FILENO>();
    fcntl(STDERR_FILENO, F_SETFL, O_NONBLOCK);
    while (write(STDERR_FILENO, "full", 4) > 0) {
    }
    fcntl(STDERR_FILENO, F_SETFL, 0);
    interrupt_often();
}

TEST(DefaultHandler, AsksThePersonAtATerminalAndTrapsElsewhere) {
    const Outcome told = run_apart(nullptr, [] { Gen_SysError(114, 32); });
    EXPECT_EQ(told.signal, SIGTRAP);
    EXPECT_TRUE(told.text.starts_with("Win32 MM-Error at Runtime "));
    EXPECT_EQ(told.text.find("\nError 32"), std::strlen("Win32 MM-Error at Runtime Thu Jan  1 00:00:00 1970"));
    EXPECT_TRUE(told.has("\nError 32\ndecteted in Function 114\nWorking Mode: Multi-Tree without Lockmanager\n"));
    EXPECT_FALSE(told.has("\a"));
    const struct {
        const char *typed;
        void (*arrange)();
        int signal;
        bool asked;
    } rows[] = {{nullptr, [] { close(use_pipe<2>()); }, SIGTRAP, false},
                {nullptr, [] { dup2(open("/dev/full", O_WRONLY), STDERR_FILENO); }, SIGTRAP, false},
#ifndef OVANT_EMULATED // an emulator does not come back from there
                {nullptr, use_full_pipe, SIGTRAP, false},
                {"r\n", refuse_descriptors, SIGTRAP, false}, // poll fails
#endif
                {"r\n", [] {}, 0, true},
                {"R\n", interrupt_often, 0, true},
                {"c\n", [] { most_written = 1; }, SIGTRAP, true},
                {"\n", [] {}, SIGTRAP, true},
                {"\004", [] {}, SIGTRAP, true},
                {"r\n", [] { use_pipe<0>(); }, SIGTRAP, false},
                {"r\n", [] { use_pipe<2>(); }, SIGTRAP, false},
                {"", [] { std::signal(SIGHUP, SIG_IGN); }, SIGTRAP, true}};
    for (const auto &[typed, arrange, signal, asked] : rows) {
        SCOPED_TRACE(&typed - &rows->typed);
        const Outcome outcome = run_apart(typed, [prepare = arrange] { prepare(), Gen_SysError(114, 32); });
        if (typed && outcome.signal < 0)
            GTEST_SKIP() << "no pseudo-terminals here";
        EXPECT_EQ(outcome.signal, signal) << outcome.text;
        EXPECT_TRUE(!asked || (outcome.has("\a") && outcome.has("Error 32\r\n")));
        EXPECT_EQ(outcome.has("[R]etry"), asked);
    }
}

std::string own_name(std::size_t size = 260, const void *module = nullptr) {
    std::string name(260, 'x');
    ovant::c::platform::module_file_name(module, name.data(), size);
    return name.substr(0, name.find('\0'));
}
TEST(ModuleName, IsToldWithoutProc) {
    const Outcome outcome = run_apart(nullptr, [] {
        const bool hidden = (geteuid() == 0 || unshare(CLONE_NEWUSER) == 0) && chroot("/usr") == 0;
        const std::string name = hidden ? own_name() : "no";
        EXPECT_GT(write(STDERR_FILENO, name.data(), name.size()), 0);
    });
    if (outcome.text == "no")
        GTEST_SKIP() << "nobody may change the root folder here";
    EXPECT_TRUE(outcome.text.ends_with("ovant_tests")) << outcome.text;
    EXPECT_TRUE(own_name().ends_with("/ovant_tests") && own_name(9) == own_name().substr(0, 8));
    static const int here = 0; // in the module that asks
    EXPECT_EQ(own_name(5, &here), own_name(260, &here).substr(0, 4));
    char name[] = "as it was";
    ovant::c::platform::module_file_name(name, name, sizeof name); // which lies in no module
    EXPECT_STREQ(name, "as it was");
    ovant::c::platform::debug_output("nobody listens");
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
