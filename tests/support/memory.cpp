// This program is linked with --wrap for all of these.  A test that leaves a block behind fails.
#include "memory.hpp"

#include <cstdio>
#include <cstdlib>
#include <cstring>

using ovant::test::memory;

extern "C" {
void *__real_realloc(void *block, std::size_t size);
void __real_free(void *block);

void *__wrap_realloc(void *block, std::size_t size) {
    if (memory.forbidden) {
        std::fprintf(stderr, "%s asks for memory\n", memory.at_work);
        std::abort();
    }
    if (++memory.requests == memory.refused)
        return nullptr;
    memory.blocks += block == nullptr;
    memory.total += memory.size = size;
    return __real_realloc(block, size);
}
void *__wrap_malloc(std::size_t size) {
    void *const block = __wrap_realloc(nullptr, size);
    return block ? std::memset(block, 0xAB, size) : block;
}
char *__wrap_strdup(const char *text) {
    const std::size_t size = std::strlen(text) + 1;
    void *const block = __wrap_malloc(size);
    return static_cast<char *>(block ? std::memcpy(block, text, size) : block);
}
void __wrap_free(void *block) {
    memory.blocks -= block != nullptr;
    __real_free(block);
}
}

namespace {

class LeakWatch : public ::testing::EmptyTestEventListener {
    void OnTestStart(const ::testing::TestInfo &) override { before_ = memory.blocks; }
    void OnTestEnd(const ::testing::TestInfo &) override { EXPECT_EQ(memory.blocks, before_) << "blocks are left"; }
    int before_ = 0;
};
[[maybe_unused]] const bool watched = (::testing::UnitTest::GetInstance()->listeners().Append(new LeakWatch), true);

} // namespace
