// The side-by-side benchmark.  Options are those of the benchmark library, and --csv=FILE.
#include "registry.hpp"
#include "report.hpp"

#include <cstdio>
#include <cstring>

int main(int argc, char **argv) {
    static char interleave[] = "--benchmark_enable_random_interleaving=true", repeat[] = "--benchmark_repetitions=9";
    std::vector<char *> options = {argv[0], interleave, repeat}; // what comes later wins
    std::string csv;
    for (int i = 1; i < argc; ++i)
        if (std::strncmp(argv[i], "--csv=", 6) == 0)
            csv = argv[i] + 6;
        else
            options.push_back(argv[i]);
    int count = static_cast<int>(options.size());
    benchmark::Initialize(&count, options.data());
    if (benchmark::ReportUnrecognizedArguments(count, options.data()))
        return 2;

#ifdef OVANT_BENCH_BOOST
    bench::add_avl_set(); // first in every table, as its yardstick
#endif
    bench::add_ovant();
#ifdef OVANT_BENCH_CLANG
    bench::add_avl_set_clang();
#endif
    bench::add_std_set();
#ifdef OVANT_BENCH_ABSL
    bench::add_btree_set();
#endif
#ifdef OVANT_BENCH_GLIB
    bench::add_glib_tree();
#endif
#ifdef OVANT_BENCH_BSD
    bench::add_bsd_tree();
#endif

    bench::Report report;
    if (benchmark::RunSpecifiedBenchmarks(&report) == 0)
        return 1;
    report.print_table();
    if (!csv.empty() && !report.write_csv(csv)) {
        std::fprintf(stderr, "bench: cannot write %s\n", csv.c_str());
        return 1;
    }
    return 0;
}
