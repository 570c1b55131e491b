#include "frame/report.hpp"
#include "platform/runtime.hpp"

#include <cstdio>
#include <cstdlib>

namespace ovant::c {

constinit const Version version = {.number = 259, .working_mode = "Multi-Tree without Lockmanager"};

namespace {

// A code at or above the limit has no text of its own and gets that of code 0; negative codes stay as they are.
char *code_text(const char *kind, int limit, int code) {
    char text[sizeof "Function Code (-2147483648)"];
    std::snprintf(text, sizeof text, "%s Code (%3.3d)", kind, code < limit ? code : 0);
    return duplicate(text);
}

} // namespace
} // namespace ovant::c

extern "C" {

char *Error_GetErrorText(int code) { return ovant::c::code_text("Error", 94, code); }

char *Error_GetFuncText(int code) { return ovant::c::code_text("Function", 178, code); }

void AVL_VirtualNull(void) {
    Gen_SysError(static_cast<int>(ovant::c::Function::virtual_null), static_cast<int>(ovant::c::Fault::forbidden_slot));
    std::abort();
}
}
