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

static bool read_number(const char *text, unsigned long &number) {
    char *rest = nullptr;
    number = std::strtoul(text, &rest, 10);
    return *text >= '0' && *text <= '9' && *rest == '\0';
}

int main(int argc, char **argv) {
    unsigned long seconds = 0;
    if (argc != 3 || !read_number(argv[1], seed) || !read_number(argv[2], seconds))
        return std::fprintf(stderr, "usage: %s FIRST_SEED SECONDS\n", argv[0]), 2;
    std::signal(SIGABRT, [](int) { std::fprintf(stderr, "operations: failed at seed %lu\n", seed); });
    const auto start = std::chrono::steady_clock::now();
    for (; std::chrono::steady_clock::now() - start < std::chrono::seconds(seconds); seed++) {
        std::mt19937 random(static_cast<std::mt19937::result_type>(seed));
        std::vector<std::uint8_t> input(1 + 3 * (random() % 500));
        for (std::uint8_t &byte : input)
            byte = static_cast<std::uint8_t>(random());
        LLVMFuzzerTestOneInput(input.data(), input.size());
    }
}
