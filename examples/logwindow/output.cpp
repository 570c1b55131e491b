#include "output.hpp"

#include "complain.hpp"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <unistd.h>
#include <vector>

namespace {

// Gathers small pieces of text; pieces that stand side by side in memory count as one, so that a file in order goes
// out as it came in, without a copy.
class Writer {
public:
    explicit Writer(int file) : file_(file) { buffer_.reserve(capacity); }

    void add(std::string_view text) {
        if (text.data() != run_.data() + run_.size()) {
            take_run();
            run_ = text;
        } else {
            run_ = {run_.data(), run_.size() + text.size()};
        }
        if (!text.ends_with('\n')) { // the last line of its file
            take_run();
            run_ = "\n";
        }
    }

    // The error number of the first failure, 0 if there was none.
    int finish() {
        take_run();
        put(buffer_);
        return error_;
    }

private:
    static constexpr std::size_t capacity = 1 << 18;

    void take_run() {
        if (buffer_.size() + run_.size() > capacity) {
            put(buffer_);
            buffer_.clear();
        }
        if (run_.size() > capacity)
            put(run_);
        else
            buffer_ += run_;
        run_ = {};
    }

    void put(std::string_view text) {
        while (!text.empty() && !error_) {
            const ssize_t put = ::write(file_, text.data(), text.size());
            if (put >= 0)
                text.remove_prefix(static_cast<std::size_t>(put));
            else if (errno != EINTR)
                error_ = errno;
        }
    }

    int file_, error_ = 0;
    std::string buffer_;
    std::string_view run_; // not yet in the buffer
};

// The first line of an entry, as much of it as the listing prints and no half character at the end.
const char *first_line(char *buffer, void *node, void *) {
    constexpr std::size_t most = 80;
    const std::string_view text = static_cast<const Entry *>(node)->view();
    std::size_t length = std::min({text.find_first_of("\r\n"), text.size(), most});
    while (length == most && length < text.size() && length && (text[length] & 0xC0) == 0x80)
        --length;
    std::replace_copy(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(length), buffer, '\0', '?');
    buffer[length] = '\0';
    return buffer;
}

// Written aside and then moved into place: a full disk leaves the old file as it was.
bool write_file(const Timeline &timeline, const std::string &path) {
    const std::string part = path + ".part";
    const int file = ::open(part.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (file < 0)
        return complain(part, std::strerror(errno));
    bool good = write_entries(timeline, file, path);
    if (::close(file) != 0 && good)
        good = complain(path, std::strerror(errno));
    if (good && std::rename(part.c_str(), path.c_str()) != 0)
        good = complain(path, std::strerror(errno));
    if (!good)
        ::unlink(part.c_str());
    return good;
}

} // namespace

bool write_entries(const Timeline &timeline, int file, const std::string &name) {
    Writer writer(file);
    timeline.each([&](const Entry &entry) { writer.add(entry.view()); });
    const int error = writer.finish();
    return error ? complain(name, std::strerror(error)) : true;
}

bool write_tree(const Timeline &timeline) {
    const int number = 8, mark = 4, segment = 3; // columns of a line of the listing
    const int width = number + segment * AVL_MaxDeepth(timeline.tree()) + mark;
    AVL_TreeWrite(timeline.tree(), nullptr, AVL_WalkSuccInorder, first_line, stdout, width, nullptr, nullptr);
    if (std::fflush(stdout) != 0 || std::ferror(stdout))
        return complain("standard output", std::strerror(errno));
    return true;
}

bool write_periods(Timeline &&timeline, Period period, const std::string &folder, bool force) {
    struct File {
        std::string path;
        Timeline entries;
    };
    std::vector<File> files;
    while (!timeline.empty()) {
        const Stamp start = timeline.first().stamp;
        std::string path = folder + "/" + period_name(start, period) + ".log";
        files.push_back({std::move(path), timeline.cut_before(period_end(start, period))});
    }

    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error)
        return complain(folder, error.message());
    for (const File &file : files)
        if (!force && std::filesystem::exists(std::filesystem::symlink_status(file.path, error)))
            return complain(file.path, "exists already (--force overwrites it)");
    return std::all_of(files.begin(), files.end(),
                       [](const File &file) { return write_file(file.entries, file.path); });
}
