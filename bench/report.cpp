#include "report.hpp"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <sstream>

namespace bench {
namespace {

constexpr const char *yardstick = "avl_set";

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const std::size_t half = values.size() / 2;
    return values.size() % 2 ? values[half] : (values[half - 1] + values[half]) / 2;
}

// The item of the list that is the same one, or the new one added; its place is the earlier of the two.
template <class T, class Same> T &enter(std::vector<T> &list, T item, Same same) {
    auto found = std::find_if(list.begin(), list.end(), same);
    if (found == list.end())
        found = list.insert(found, item);
    found->place = std::min(found->place, item.place);
    return *found;
}

} // namespace

void Report::ReportRuns(const std::vector<Run> &runs) {
    for (const Run &run : runs) {
        if (run.run_type != Run::RT_Iteration)
            continue;
        std::istringstream name(run.run_name.function_name);
        std::string operation, keys, n, container;
        std::getline(std::getline(std::getline(name, operation, '/'), keys, '/'), n, '/');
        std::getline(name, container);
        const std::int64_t place = run.family_index;
        enter<Container>(containers_, {container, place}, [&](const Container &c) { return c.name == container; });
        Row &row = enter<Row>(rows_, {operation, keys, n, place, {}},
                              [&](const Row &r) { return r.operation == operation && r.keys == keys && r.n == n; });
        row.times[container].push_back(run.GetAdjustedRealTime());
    }
}

void Report::Finalize() {
    const auto registered_first = [](const auto &a, const auto &b) { return a.place < b.place; };
    std::sort(rows_.begin(), rows_.end(), registered_first);
    std::sort(containers_.begin(), containers_.end(), registered_first);
}

void Report::print_table() const {
    std::printf("%-16s%-11s%8s", "operation", "keys", "n");
    for (const auto &[container, place] : containers_)
        std::printf("%15s", container == yardstick ? "avl_set [ns]" : container.c_str());
    std::printf("\n");
    for (const Row &row : rows_) {
        std::printf("%-16s%-11s%8s", row.operation.c_str(), row.keys.c_str(), row.n.c_str());
        const auto base = row.times.find(yardstick);
        for (const auto &[container, place] : containers_) {
            const auto found = row.times.find(container);
            if (found == row.times.end())
                std::printf("%15s", "-");
            else if (base == row.times.end() || container == yardstick)
                std::printf("%15.1f", median(found->second));
            else
                std::printf("%15.3f", median(found->second) / median(base->second));
        }
        std::printf("\n");
    }
}

bool Report::write_csv(const std::string &path) const {
    std::ofstream out(path);
    out << "operation,keys,n,container,median_ns,min_ns,max_ns,repetitions,ratio\n";
    for (const Row &row : rows_) {
        const auto base = row.times.find(yardstick);
        for (const auto &[container, place] : containers_) {
            const auto found = row.times.find(container);
            if (found == row.times.end())
                continue;
            const auto &times = found->second;
            const auto [low, high] = std::minmax_element(times.begin(), times.end());
            out << row.operation << ',' << row.keys << ',' << row.n << ',' << container << ',' << median(times) << ','
                << *low << ',' << *high << ',' << times.size() << ',';
            if (base != row.times.end())
                out << median(times) / median(base->second);
            out << '\n';
        }
    }
    return static_cast<bool>(out.flush());
}

} // namespace bench
