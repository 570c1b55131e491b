// Runs the harness where there is no libFuzzer: on random inputs for some seconds, or on the one of a seed.
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

static unsigned long seed; // makes the input of the run in progress

int main(int argc, char **argv) {
    char *rest = nullptr;
    const long seconds = argc > 1 ? std::strtol(argv[1], &rest, 10) : -1;
    if (argc > 3 || seconds < 0 || *rest != '\0')
        return std::fprintf(stderr, "usage: %s SECONDS [FIRST SEED]\n", argv[0]), 2;
    std::signal(SIGABRT, [](int) { std::fprintf(stderr, "operations: failed at seed %lu\n", seed); });
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
    const unsigned long first = argc > 2 ? std::strtoul(argv[2], nullptr, 10) : 0;
    for (seed = first; seed == first || std::chrono::steady_clock::now() < end; seed++) {
        std::mt19937 random(static_cast<std::mt19937::result_type>(seed));
        std::vector<std::uint8_t> input(3 * (random() % 500));
        for (std::uint8_t &byte : input)
            byte = static_cast<std::uint8_t>(random());
        LLVMFuzzerTestOneInput(input.data(), input.size());
    }
    std::printf("operations: %lu random inputs, nothing found\n", seed - first);
    return 0;
}
