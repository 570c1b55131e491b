// Runs the harness where there is no libFuzzer: on random inputs without end, each made from the next seed.
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

static unsigned long seed;

int main(int argc, char **argv) {
    char *rest = nullptr;
    seed = argc == 2 ? std::strtoul(argv[1], &rest, 10) : 0;
    if (!rest || rest == argv[1] || *rest != '\0')
        return std::fprintf(stderr, "usage: %s FIRST_SEED\n", argv[0]), 2;
    std::signal(SIGABRT, [](int) { std::fprintf(stderr, "operations: failed at seed %lu\n", seed); });
    for (;; seed++) {
        std::mt19937 random(static_cast<std::mt19937::result_type>(seed));
        std::vector<std::uint8_t> input(3 * (random() % 500));
        for (std::uint8_t &byte : input)
            byte = static_cast<std::uint8_t>(random());
        LLVMFuzzerTestOneInput(input.data(), input.size());
    }
}
