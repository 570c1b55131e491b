// Large blocks of memory for text and entries.
#pragma once

#include <cstdlib>
#include <memory_resource>
#include <new>
#if defined(__linux__)
#include <sys/mman.h>
#elif defined(_WIN32)
#include <malloc.h>
#endif

// Blocks on pages as large as the system has them: a million entries touch some 100 MB, and to be given that in small
// pages takes longer on many machines than all the work on the entries.
class LargePages : public std::pmr::memory_resource {
public:
    static constexpr std::size_t page = 1 << 21;

private:
    void *do_allocate(std::size_t size, std::size_t) override {
        const std::size_t rounded = (size + page - 1) / page * page;
        void *const block = rounded >= size ? take(rounded) : nullptr;
        if (!block)
            throw std::bad_alloc();
#if defined(MADV_HUGEPAGE)
        madvise(block, rounded, MADV_HUGEPAGE);
#endif
        return block;
    }
    void do_deallocate(void *block, std::size_t, std::size_t) override { give_back(block); }
#if defined(_WIN32)
    static void *take(std::size_t size) { return _aligned_malloc(size, page); }
    static void give_back(void *block) { _aligned_free(block); }
#else
    static void *take(std::size_t size) { return std::aligned_alloc(page, size); }
    static void give_back(void *block) { std::free(block); }
#endif
    bool do_is_equal(const memory_resource &other) const noexcept override { return this == &other; }
};
