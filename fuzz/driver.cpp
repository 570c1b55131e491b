// Runs the harness without libFuzzer: on random inputs, each made from the next seed.
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

static unsigned long seed;

int main(int argc, char **argv) {
    if (argc != 3)
        return std::fprintf(stderr, "usage: %s FIRST_SEED SECONDS\n", argv[0]), 2;
    seed = std::strtoul(argv[1], nullptr, 10);
    const std::chrono::seconds duration(std::strtol(argv[2], nullptr, 10));
    std::signal(SIGABRT, [](int) { std::fprintf(stderr, "operations: failed at seed %lu\n", seed); });
    const auto start = std::chrono::steady_clock::now();
    for (; std::chrono::steady_clock::now() - start < duration; seed++) {
        std::mt19937 random(static_cast<std::mt19937::result_type>(seed));
        std::vector<std::uint8_t> input(1 + 3 * (random() % 500));
        for (std::uint8_t &byte : input)
            byte = static_cast<std::uint8_t>(random());
        LLVMFuzzerTestOneInput(input.data(), input.size());
    }
}
