// logwindow: merges log files in the order of time and shows a window of them.
#include "complain.hpp"
#include "files.hpp"
#include "load.hpp"
#include "options.hpp"
#include "output.hpp"

#include <chrono>
#include <cstdlib>
#include <exception>
#include <new>

namespace {

// Runs the work and says what it cost.
template <class Work> Timeline measured(const char *label, Work work) {
    const auto start = std::chrono::steady_clock::now();
    const std::uint64_t before = comparisons;
    Timeline result = work();
    const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
    std::fprintf(stderr, "  %-13s %9ju comparisons %9.3f ms\n", label,
                 static_cast<std::uintmax_t>(comparisons - before), time.count());
    return result;
}

std::uintmax_t entries_in(const Timeline &timeline) { return timeline.count(ovant::start, ovant::finish); }

// Takes the window out twice: one entry at a time and, when all is back in place, by one cut.
Timeline cut_and_compare(Timeline &timeline, Span window) {
    std::fprintf(stderr, "Taking the window out of %ju entries:\n", entries_in(timeline));
    merge(timeline, measured("one by one", [&] { return cut_singly(timeline, window); }));
    Timeline result = measured("by one cut", [&] { return cut(timeline, window); });
    std::fprintf(stderr, "  it holds %ju entries\n", entries_in(result));
    return result;
}

int run(const Options &options) {
    bool good = true;
    Timeline timeline;
    Loader loader;
    for (const std::string &file : options.files)
        good = loader.load(file, timeline) && good;

    if (options.drop_before)
        timeline.erase(ovant::start, ovant::before(*options.drop_before));
    if (options.svg || options.dot)
        return write_picture(timeline, options.window, options.svg) && good ? 0 : 1;
    Timeline window = options.cost ? cut_and_compare(timeline, options.window) : cut(timeline, options.window);
    if (options.keep)
        keep_newest(window, *options.keep);

    if (options.split_by)
        good = write_periods(std::move(window), *options.split_by, options.into, options.force) && good;
    else if (options.tree)
        good = write_tree(window) && good;
    else
        good = write_entries(window, STDOUT_FILENO, "standard output") && good;
    return good ? 0 : 1;
}

int out_of_memory() {
    complain("memory", "not enough for these files");
    return 1;
}

} // namespace

int main(int count, char **words) {
    standard_as_it_is();
    std::set_terminate([] { // where memory stays away there may be none for an exception
        std::current_exception() ? std::abort() : std::_Exit(out_of_memory());
    });
    try {
        const auto options = read_options(count, words);
        if (!options)
            return 2;
        if (options->help)
            return std::fputs(usage, stdout) < 0 || std::fflush(stdout) != 0;
        return run(*options);
    } catch (const std::bad_alloc &) {
        return out_of_memory();
    }
}
