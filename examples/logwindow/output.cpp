#include "output.hpp"

#include "complain.hpp"
#include "files.hpp"
#include "ovant/picture.hpp"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <utility>
#include <vector>

namespace {

// Gathers small pieces of text; pieces that stand side by side in memory count as one, so that a file in order goes
// out as it came in, without a copy.  Asks for no memory, which may run out while a file is half written.
class Writer {
public:
    explicit Writer(int file) : file_(file) {}

    Writer &operator<<(std::string_view text) {
        if (text.data() != run_.data() + run_.size()) {
            take_run();
            run_ = text;
        } else {
            run_ = {run_.data(), run_.size() + text.size()};
        }
        return *this;
    }

    // False after a complaint about the first failure.
    bool finish(std::string_view name) {
        take_run();
        put({buffer_, used_});
        return error_ ? complain(name, std::strerror(error_)) : true;
    }

private:
    void take_run() {
        if (used_ + run_.size() > sizeof buffer_) {
            put({buffer_, used_});
            used_ = 0;
        }
        if (run_.size() > sizeof buffer_)
            put(run_);
        else
            used_ += run_.copy(buffer_ + used_, run_.size());
        run_ = {};
    }

    void put(std::string_view text) {
        while (!text.empty() && !error_) {
            const ssize_t put =
                ::write(file_, text.data(), static_cast<unsigned>(std::min<std::size_t>(text.size(), most_at_once)));
            if (put >= 0)
                text.remove_prefix(static_cast<std::size_t>(put));
            else if (errno != EINTR)
                error_ = errno;
        }
    }

    int file_, error_ = 0;
    std::size_t used_ = 0;
    char buffer_[1 << 18];
    std::string_view run_; // not yet in the buffer
};

// The first line of an entry, as much of it as a picture wants and no half character at the end.
std::string_view first_line(const Entry &entry) {
    constexpr std::size_t most = 80;
    const std::string_view text = entry.view();
    std::size_t length = std::min({text.find_first_of("\r\n"), text.size(), most});
    while (length == most && length < text.size() && length && (text[length] & 0xC0) == 0x80)
        --length;
    return text.substr(0, length);
}

// The branches of a tree as the library draws them, a line for each node, the last one first.
struct Branches {
    std::vector<std::string> lines{""};

    Branches &operator<<(std::string_view text) {
        lines.back() += text.substr(0, text.find('\n'));
        if (text.ends_with('\n'))
            lines.emplace_back();
        return *this;
    }
};

// A file written aside.  It goes with this object, also where memory is refused, unless it has been moved into place.
struct Part {
    std::string path;
    int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | as_it_is, 0666);

    ~Part() {
        if (file >= 0)
            ::unlink(path.c_str());
    }
};

// A full disk leaves the old file as it was.
bool write_file(const Timeline &timeline, const std::string &path) {
    const Part part{path + ".part"};
    if (part.file < 0)
        return complain(part.path, std::strerror(errno));
    bool good = write_entries(timeline, part.file, path);
    if (::close(part.file) != 0 && good)
        good = complain(path, std::strerror(errno));
    std::error_code error;
    if (good)
        std::filesystem::rename(part.path, path, error);
    return error ? complain(path, error.message()) : good;
}

} // namespace

bool write_entries(const Timeline &timeline, int file, std::string_view name) {
    Writer writer(file);
    timeline.for_each([&](const Entry &entry) {
        writer << entry.view();
        if (!entry.view().ends_with('\n')) // the last line of its file
            writer << "\n";
    });
    return writer.finish(name);
}

// The branches turned over, so that the first entry comes first, and beside them what the entries say.
bool write_tree(const Timeline &timeline) {
    Branches branches;
    timeline.draw(branches, [](Branches &out, const Entry &) { out << "o"; });
    std::size_t width = 0;
    for (const std::string &line : branches.lines)
        width = std::max(width, line.size());
    Writer writer(STDOUT_FILENO);
    auto line = branches.lines.rbegin(); // the empty one behind them all
    timeline.for_each([&](const Entry &entry) {
        for (char &c : *++line)
            c = c == '/' ? '\\' : c == '\\' ? '/' : c;
        line->resize(width + 2, ' ');
        writer << *line << first_line(entry) << "\n";
    });
    return writer.finish("standard output");
}

// A box holds the stamp, down to the second, without the day where it is one for all.
bool write_picture(const Timeline &timeline, Span window, bool svg) {
    const auto day = [](const Entry &entry) { return entry.view().substr(0, 10); };
    const bool one_day = !timeline.empty() && day(timeline.front()) == day(timeline.back());
    const auto print = [&](std::ostream &out, const Entry &entry) {
        const std::string_view stamp = first_line(entry).substr(0, 19);
        out << stamp.substr(one_day ? 11 : 0);
    };
    const bool all = window.first == earliest && window.last == latest;
    const auto inside = [&](const Entry &entry) {
        return !all && window.first <= entry.stamp && entry.stamp <= window.last;
    };
    std::ostringstream out;
    svg ? ovant::draw_svg(out, timeline, print, inside) : ovant::draw_dot(out, timeline, print, inside);
    Writer writer(STDOUT_FILENO);
    const std::string text = out.str();
    writer << text;
    return writer.finish("standard output");
}

bool write_periods(Timeline &&timeline, Period period, const std::string &folder, bool force) {
    struct File {
        std::string path;
        Timeline entries;
    };
    std::vector<File> files;
    while (!timeline.empty()) {
        const Stamp start = timeline.front().stamp;
        std::string path = folder + "/" + period_name(start, period) + ".log";
        files.push_back({std::move(path), timeline.extract(ovant::start, ovant::before(period_end(start, period)))});
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
