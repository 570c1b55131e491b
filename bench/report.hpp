// Gathers all repetitions and shows medians: a table of ratios to avl_set for people, a CSV file for the plots.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace bench {

class Report : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context &) override { return true; }
    void ReportRuns(const std::vector<Run> &runs) override;
    void Finalize() override;

    void print_table() const;
    bool write_csv(const std::string &path) const;

private:
    // Names with the place at which they were registered first: the runs come in any order.
    struct Container {
        std::string name;
        std::int64_t place;
    };
    struct Row {
        std::string operation, keys, n;
        std::int64_t place;
        std::map<std::string, std::vector<double>> times; // container -> nanoseconds, one for each repetition
    };

    std::vector<Row> rows_;
    std::vector<Container> containers_;
};

} // namespace bench
