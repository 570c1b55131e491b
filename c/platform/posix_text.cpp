// Text by the locale, of what POSIX has.
#include "platform/runtime.hpp"

#include <climits>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <cwctype>
#include <strings.h>

namespace ovant::c {
namespace {

struct Character {
    wchar_t value;
    bool stray; // a byte that forms no character
    std::size_t length;

    // A stray byte stands right behind the character of its own number and so equals none.
    friend int order(const Character &a, const Character &b) {
        return a.value != b.value ? (a.value < b.value ? -1 : 1) : a.stray - b.stray;
    }
};

// The character that starts at a byte other than NUL; never looks behind the NUL.
Character character_at(const char *text) {
    std::mbstate_t state = {};
    wchar_t value = 0;
    const std::size_t length = std::mbrtowc(&value, text, strnlen(text, MB_CUR_MAX), &state);
    if (length - 1 >= MB_LEN_MAX) // 0 as well, which would lead nowhere
        return {static_cast<wchar_t>(static_cast<unsigned char>(*text)), true, 1};
    return {value, false, length};
}

} // namespace

char *duplicate(const char *text) { return strdup(text); }

int compare_folded(const char *search, const char *node) { return strcasecmp(search, node); }

int compare_multibyte(const char *search, const char *node) {
    while (*search && *node) {
        const Character a = character_at(search), b = character_at(node);
        if (const int result = order(a, b))
            return result;
        search += a.length;
        node += b.length;
    }
    return static_cast<unsigned char>(*search) - static_cast<unsigned char>(*node);
}

void upper_case(char *text) {
    while (*text) {
        const Character c = character_at(text);
        char upper[MB_LEN_MAX];
        std::mbstate_t state = {};
        const auto value = static_cast<wchar_t>(std::towupper(static_cast<std::wint_t>(c.value)));
        if (!c.stray && std::wcrtomb(upper, value, &state) == c.length)
            std::memcpy(text, upper, c.length);
        text += c.length;
    }
}

} // namespace ovant::c
