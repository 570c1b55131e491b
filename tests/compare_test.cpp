// The ready-made comparators: each pair of keys, and the order of a tree built on them.
#include "support/check.hpp"

#include <cstring>
#include <limits>

using namespace ovant::c;
using namespace ovant::test;

namespace {

template <class Key> std::vector<Key> reversed(const std::vector<Key> &keys) { return {keys.rbegin(), keys.rend()}; }

TEST(Compare, IntegersByWidthAndSign) {
    expect_order<std::int8_t>(AVL_CMP_SignedChar, {127, 100, 1, 0, -1, -128});
    expect_order<std::uint8_t>(AVL_CMP_UnsignedChar, {255, 128, 127, 1, 0});
    expect_order<std::int16_t>(AVL_CMP_SignedShort, {32767, 256, 255, 0, -1, -256, -32768});
    expect_order<std::uint16_t>(AVL_CMP_UnsignedShort, {65535, 32768, 32767, 256, 255, 0});
    expect_order<std::int32_t>(AVL_CMP_SignedLong, {INT32_MAX, 65536, 255, 0, -1, -65536, INT32_MIN});
    const std::vector<std::uint32_t> handles{0, 1, 255, 256, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF};
    expect_order(AVL_CMP_HandlePointer, handles);
    expect_order(AVL_CMP_HandleDirekt, reversed(handles), true);
    AVL_CmpFunc volatile time = AVL_CMP_Time; // two names of one function, which a compiler may not believe
    EXPECT_EQ(time, AVL_CMP_SignedLong);
}

template <class Float> void expect_float_order(AVL_CmpFunc cmp) {
    using limits = std::numeric_limits<Float>;
    const Float one = 1, nan = limits::quiet_NaN(), plus = 0, minus = -plus;
    expect_order<Float>(cmp, {-limits::infinity(), -limits::max(), -one, -limits::denorm_min(), plus,
                              limits::denorm_min(), one, one + limits::epsilon(), limits::infinity()});
    EXPECT_TRUE(cmp(&minus, &plus) == 0 && cmp(&plus, &minus) == 0);
    for (const Float &other : {one, -limits::infinity(), nan})
        EXPECT_TRUE(cmp(&nan, &other) == DIR_RIGHT && cmp(&other, &nan) == DIR_RIGHT);
    Host host(cmp); // and so in a descent that computes the order in place
    AVL_Insert(host.tree, &one, host.record_of(one));
    EXPECT_EQ(AVL_SearchGreaterEqual(host.tree, &nan), nullptr);
}
TEST(Compare, FloatingPointWithNothingBesideNaN) {
    expect_float_order<float>(AVL_CMP_Float);
    expect_float_order<double>(AVL_CMP_Double);
}

struct Text {
    char bytes[8] = "";
    Text(const char *text) { std::strncpy(bytes, text, sizeof bytes - 1); }
};
TEST(Compare, StringsByUnsignedBytesOrUnits) {
    const std::vector<const char *> sorted{"", "\x01", "Z", "a", "ab", "abc", "b", "\x80", "\xE4", "\xE4\x01", "\xFF"};
    const std::vector<Text> texts(sorted.begin(), sorted.end());
    expect_order(AVL_CMP_String, texts);
    expect_order(AVL_CMP_StringRevers, reversed(texts));
    expect_order(AVL_CMP_PtrString, sorted);
    expect_order(AVL_CMP_PtrTString, sorted); // in the C locale a character is a byte
    expect_order<Text>(AVL_CMP_String_Upper, {"", "0", "_", "a", "Ab", "aBC", "b", "C", "Z"});
    EXPECT_EQ(AVL_CMP_String_Upper("aBc", "AbC"), 0);
    expect_order<const char16_t *>(AVL_CMP_PtrUString, {u"", u"\x0001", u"\x00FF", u"\x0100", u"\x0100\x0001",
                                                        u"\x0100\x0100", u"\x7FFF", u"\x8000", u"\xFFFF"});
    const char16_t one[] = u"a\0b", other[] = u"a\0c", *const first = one, *const second = other;
    EXPECT_EQ(AVL_CMP_PtrUString(&first, &second), 0);
}

TEST(Compare, AnAbsentStringStandsBehindAll) {
    EXPECT_TRUE(AVL_CMP_String("zz", nullptr) == DIR_RIGHT && AVL_CMP_String_Upper("zz", nullptr) == DIR_RIGHT);
    EXPECT_EQ(AVL_CMP_StringRevers("", nullptr), DIR_LEFT);
    for (AVL_CmpFunc cmp : {AVL_CMP_PtrString, AVL_CMP_PtrTString, AVL_CMP_PtrUString}) {
        const void *none = nullptr; // and the node's pointer is not looked at
        EXPECT_TRUE(cmp(nullptr, nullptr) == DIR_RIGHT && cmp(nullptr, &none) == DIR_RIGHT);
    }
}

} // namespace
