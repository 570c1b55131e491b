// The platform's services on Linux.  A person is asked only where one sits: at a terminal that this process may read.
#include "platform/platform.hpp"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <ctime>
#include <dlfcn.h>
#include <poll.h>
#include <sys/auxv.h>
#include <unistd.h>
#if __has_include(<sys/sdt.h>)
#include <sys/sdt.h>
#else
#define DTRACE_PROBE1(provider, name, argument) static_cast<void>(0)
#endif

// A host that has a better message box, or wants the debug text, defines these.
extern "C" {
[[gnu::weak, gnu::visibility("default")]] int ovant_message_box(const char *text, const char *title, unsigned flags);
[[gnu::weak, gnu::visibility("default")]] void ovant_debug_output(const char *text);
}

namespace ovant::c::platform {
namespace {

template <class Call> auto unless_interrupted(Call call) {
    auto result = call();
    while (result == -1 && errno == EINTR)
        result = call();
    return result;
}

// Not where the other end is closed: to write there would end the process by SIGPIPE.
bool ready(int descriptor, short events, int milliseconds) {
    pollfd wanted = {.fd = descriptor, .events = events, .revents = 0};
    unless_interrupted([&] { return poll(&wanted, 1, milliseconds); });
    return wanted.revents == events;
}

bool attended() {
    const pid_t group = getpgrp();
    return tcgetpgrp(STDIN_FILENO) == group && tcgetpgrp(STDERR_FILENO) == group;
}

// A full pipe nobody reads loses the text rather than hold the process, whatever timers of the host go off meanwhile,
// and a background job does not stop here: no signal comes through.
void print(const char *text) {
    sigset_t all, before;
    sigfillset(&all);
    pthread_sigmask(SIG_BLOCK, &all, &before);
    for (std::size_t rest = std::strlen(text); rest > 0 && ready(STDERR_FILENO, POLLOUT, 200);) {
        const ssize_t written = write(STDERR_FILENO, text, rest);
        if (written <= 0)
            break;
        text += written;
        rest -= static_cast<std::size_t>(written);
    }
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

// One read takes the whole line from a terminal, and a single key where the host has switched lines off.
Answer ask() {
    print("[R]etry / [C]ancel? ");
    char line[4096] = "";
    if (ready(STDIN_FILENO, POLLIN, -1))
        unless_interrupted([&] { return read(STDIN_FILENO, line, sizeof line); });
    return line[0] == 'r' || line[0] == 'R' ? Answer::retry : Answer::cancel;
}

} // namespace

Answer message_box(const char *text, const char *title, unsigned flags) {
    if (ovant_message_box)
        return static_cast<Answer>(ovant_message_box(text, title, flags));
    print(title);
    print(text);
    return attended() ? ask() : Answer::not_shown;
}

void beep(unsigned) {
    if (attended())
        print("\a");
}

void trap() { std::raise(SIGTRAP); }

void time_text(char (&buffer)[time_text_size]) {
    const std::time_t now = std::time(nullptr);
    if (!ctime_r(&now, buffer))
        std::strcpy(buffer, "\n");
}

void debug_output(const char *text) {
    DTRACE_PROBE1(ovant, debug_output, text);
    if (ovant_debug_output)
        ovant_debug_output(text);
}

void module_file_name(const void *module, char *buffer, std::size_t size) {
    const char *name = nullptr;
    if (module) {
        Dl_info info;
        if (dladdr(module, &info))
            name = info.dli_fname;
    } else if (const ssize_t length = readlink("/proc/self/exe", buffer, size - 1); length > 0) {
        buffer[length] = '\0';
    } else {
        name = reinterpret_cast<const char *>(getauxval(AT_EXECFN));
    }
    if (name) {
        const std::size_t length = strnlen(name, size - 1);
        std::memcpy(buffer, name, length);
        buffer[length] = '\0';
    }
}

int thread_id() { return gettid(); }

// A shared object gets no thread notifications here: they are always off.
void disable_thread_notifications(void *) {}

int last_error() { return errno; }

void set_last_error(int value) { errno = value; }

} // namespace ovant::c::platform
