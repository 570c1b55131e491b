#include "options.hpp"

#include "complain.hpp"

#include <algorithm>
#include <charconv>

const char *const usage =
    "usage: logwindow [OPTION]... FILE...\n"
    "Merges log files in the order of time and writes a window of them to standard output.\n"
    "Lines without a time stamp belong to the stamped line before them.  FILE - is standard input.\n"
    "\n"
    "  --from T           from T on              T: 2026-11-22, '2026-11-22 20:06', 2026-11-22T20:06:58.25Z;\n"
    "  --to T             up to T, T included       what is not said stands for the whole of that day, minute...\n"
    "  --drop-before T    forget everything before T first\n"
    "  --keep N           only the newest N entries of the window\n"
    "  --tree             draw the window as the tree that holds it\n"
    "  --svg, --dot       draw the tree that holds everything, with the window in another colour, as a picture\n"
    "  --split-by day|hour --into FOLDER [--force]\n"
    "                     write one file per day or hour (UTC where stamps have a zone);\n"
    "                     --force overwrites files that exist\n"
    "  --cost             tell on standard error what cutting the window cost\n"
    "\n"
    "Exit status: 0, 1 if a file could not be read or written (the others were), 2 for a wrong command line.\n";

namespace {

bool apply(Options &o, const std::string &name, const std::string &value) {
    if (name == "--into") {
        o.into = value;
        return !value.empty() || complain(name, "names no folder");
    }
    if (name == "--split-by") {
        o.split_by = value == "hour" ? Period::hour : Period::day;
        return value == "day" || value == "hour" || complain(name, "'" + value + "' is neither day nor hour");
    }
    if (name == "--keep") {
        std::uint64_t number = 0;
        const char *const end = value.data() + value.size();
        const auto [stop, error] = std::from_chars(value.data(), end, number);
        o.keep = number;
        return (stop == end && error == std::errc()) || complain(name, "'" + value + "' is no number of entries");
    }
    const auto bound = read_bound(value);
    if (!bound)
        return complain(name, "'" + value + "' is no time, as 2026-11-22 or 2026-11-22T20:06:58 is");
    if (name == "--from")
        o.window.first = bound->first;
    else if (name == "--to")
        o.window.last = bound->last;
    else
        o.drop_before = bound->first;
    return true;
}

bool consistent(const Options &o) {
    if (o.files.empty())
        return complain("no file given", "- is standard input, --help tells more");
    if (o.split_by && o.into.empty())
        return complain("--split-by", "needs --into FOLDER");
    if (!o.split_by && (!o.into.empty() || o.force))
        return complain(o.force ? "--force" : "--into", "needs --split-by day or --split-by hour");
    if (o.split_by && o.tree)
        return complain("--tree", "does not go with --split-by");
    for (const auto &[flag, name] : {std::pair{o.svg, "--svg"}, {o.dot, "--dot"}})
        if (flag && (o.split_by || o.tree || o.keep || (o.svg && o.dot)))
            return complain(name, "does not go with --split-by, --keep, or another way to draw");
    return o.window.first <= o.window.last || complain("--from", "stands after --to");
}

} // namespace

std::optional<Options> read_options(int count, char **words) {
    const std::pair<const char *, bool Options::*> flags[] = {{"--force", &Options::force}, {"--tree", &Options::tree},
                                                              {"--svg", &Options::svg},     {"--dot", &Options::dot},
                                                              {"--cost", &Options::cost},   {"--help", &Options::help}};
    const char *const valued[] = {"--from", "--to", "--drop-before", "--keep", "--split-by", "--into"};
    Options o;
    bool only_files = false;
    for (int i = 1; i < count; ++i) {
        const std::string word = words[i], name = word.substr(0, word.find('='));
        const auto flag = std::find_if(std::begin(flags), std::end(flags), [&](auto &f) { return word == f.first; });
        if (only_files || word == "-" || !word.starts_with('-')) {
            o.files.push_back(word);
        } else if (word == "--") {
            only_files = true;
        } else if (flag != std::end(flags)) {
            o.*flag->second = true;
        } else if (std::find(std::begin(valued), std::end(valued), name) == std::end(valued)) {
            complain(word, "unknown option, --help lists them");
            return {};
        } else if (name == word && i + 1 == count) {
            complain(name, "needs a value");
            return {};
        } else if (!apply(o, name, name == word ? words[++i] : word.substr(name.size() + 1))) {
            return {};
        }
    }
    return o.help || consistent(o) ? std::optional(o) : std::nullopt;
}
