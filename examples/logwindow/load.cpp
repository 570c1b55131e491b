#include "load.hpp"

#include "complain.hpp"
#include "files.hpp"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <utility>

using namespace std::chrono_literals;

namespace {

// Logs are mostly in order, and then the tree is built as it stands there, without another look at a stamp.  Otherwise
// most entries still belong at the end, which costs one comparison to find out, and the others are searched for.
Timeline timeline_of(std::pmr::deque<Entry> &entries) {
    Timeline timeline;
    if (std::ranges::is_sorted(entries, {}, &Entry::stamp))
        timeline.assign_sorted(entries);
    else
        for (Entry &entry : entries)
            timeline.insert(timeline.end(), entry);
    return timeline;
}

} // namespace

Progress::Progress() : terminal_(isatty(STDERR_FILENO) != 0), next_(Clock::now() + 1s) {}

void Progress::show(const std::string &name, std::uint64_t done, const char *unit) {
    if (!terminal_ || Clock::now() < next_)
        return;
    shown_ = true;
    next_ = Clock::now() + 200ms;
    std::fprintf(stderr, "\r\033[K%s: %ju %s", name.c_str(), static_cast<std::uintmax_t>(done), unit);
    std::fflush(stderr);
}

void Progress::hide() {
    if (shown_)
        std::fputs("\r\033[K", stderr);
    shown_ = false;
}

// Reads to the end into one block.  (Not mapped: a log that is cut short while we read it must not end the program.)
int Loader::read(int file, const std::string &name) {
    struct stat status {};
    const bool known = fstat(file, &status) == 0 && S_ISREG(status.st_mode);
    std::size_t room = known ? static_cast<std::size_t>(status.st_size) + 1 : 65536, size = 0;
    auto *text = static_cast<char *>(arena_.allocate(room, 1));
    for (;;) {
        if (size == room) { // the block left behind stays in the arena
            room *= 2;
            text = static_cast<char *>(std::memcpy(arena_.allocate(room, 1), text, size));
        }
        const ssize_t got =
            ::read(file, text + size, static_cast<unsigned>(std::min<std::size_t>(room - size, most_at_once)));
        text_ = {text, size};
        if (got == 0 || (got < 0 && errno != EINTR))
            return got ? errno : 0;
        size += got < 0 ? 0 : static_cast<std::size_t>(got);
        progress_.show(name, size >> 20, "MB read");
    }
}

// Makes an entry of each stamped line and what follows up to the next one.  The first entry begins where the file
// begins, so that lines before the first stamp go with it.
Timeline Loader::parse(const std::string &name) {
    auto &entries = entries_.emplace_back();
    const char *line = text_.data(), *const end = line + text_.size();
    Entry *entry = nullptr;
    while (line < end) {
        const auto *feed = static_cast<const char *>(std::memchr(line, '\n', static_cast<std::size_t>(end - line)));
        const char *const next = feed ? feed + 1 : end;
        if (const auto stamp = line_stamp({line, next})) {
            entry = &entries.emplace_back(Entry{*stamp, entry ? line : text_.data(), 0, {}});
            if (entries.size() % 65536 == 0)
                progress_.show(name, entries.size(), "entries");
        }
        line = next;
        if (entry)
            entry->length = static_cast<std::size_t>(next - entry->text);
    }
    return timeline_of(entries);
}

bool Loader::load(const std::string &path, Timeline &timeline) {
    const bool standard = path == "-";
    const std::string name = standard ? "standard input" : path;
    const int file = standard ? STDIN_FILENO : ::open(path.c_str(), O_RDONLY | as_it_is);
    if (file < 0)
        return complain(name, std::strerror(errno));
    const int error = read(file, name);
    if (!standard)
        ::close(file);
    Timeline entries = error ? Timeline() : parse(name);
    progress_.hide();
    if (error)
        return complain(name, std::strerror(error));
    if (entries.empty())
        return complain(name, text_.empty() ? "is empty" : "no line starts with a time stamp");
    merge(timeline, std::move(entries));
    return true;
}
