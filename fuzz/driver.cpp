// Runs the harness where there is no libFuzzer: on the files given, or on random inputs for some seconds.
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

namespace {

unsigned long seed; // makes the input of the run in progress

void run_seed() {
    std::mt19937 random(static_cast<std::mt19937::result_type>(seed));
    std::vector<std::uint8_t> input(3 * (random() % 500));
    for (std::uint8_t &byte : input)
        byte = static_cast<std::uint8_t>(random());
    LLVMFuzzerTestOneInput(input.data(), input.size());
}

int run_file(const char *path) {
    std::ifstream file(path, std::ios::binary);
    const std::vector<char> input{std::istreambuf_iterator<char>(file), {}};
    if (!file)
        return std::fprintf(stderr, "operations: cannot read %s\n", path), 1;
    return LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(input.data()), input.size());
}

} // namespace

int main(int argc, char **argv) {
    char *rest = nullptr;
    const long seconds = argc > 1 ? std::strtol(argv[1], &rest, 10) : 0;
    if (argc < 2 || (argc > 3 && *rest == '\0') || seconds < 0)
        return std::fprintf(stderr, "usage: %s SECONDS [FIRST SEED] | FILE...\n", argv[0]), 2;
    if (*rest != '\0') {
        int failed = 0;
        for (int i = 1; i < argc; i++)
            failed |= run_file(argv[i]);
        return failed;
    }
    std::signal(SIGABRT, [](int) { std::fprintf(stderr, "operations: failed at seed %lu\n", seed); });
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
    const unsigned long first = argc > 2 ? std::strtoul(argv[2], nullptr, 10) : 0;
    for (seed = first; seed == first || std::chrono::steady_clock::now() < end; seed++)
        run_seed();
    std::printf("operations: %lu random inputs, nothing found\n", seed - first);
    return 0;
}
