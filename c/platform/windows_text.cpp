// Text by the locale and the code page, as the platform's own runtime has it.
#include "platform/runtime.hpp"

#include <cstring>
#include <mbstring.h>

namespace ovant::c {
namespace {

const unsigned char *bytes(const char *text) { return reinterpret_cast<const unsigned char *>(text); }

} // namespace

char *duplicate(const char *text) { return _strdup(text); }

int compare_folded(const char *search, const char *node) { return _stricmp(search, node); }

int compare_multibyte(const char *search, const char *node) { return _mbscmp(bytes(search), bytes(node)); }

void upper_case(char *text) { _mbsupr(reinterpret_cast<unsigned char *>(text)); }

} // namespace ovant::c
