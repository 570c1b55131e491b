// Text operations that no standard library offers in this form.  All of them follow the current locale and set none.
// What is said here holds on POSIX; on Windows the platform's own runtime serves them, with its code page: _strdup,
// _stricmp, _mbscmp, _mbsupr.
#pragma once

namespace ovant::c {

// A copy for free(), 0 without memory.
char *duplicate(const char *text);

// Negative, zero or positive, as the search string stands before, with or behind the node's.

// By strcasecmp's rules.
int compare_folded(const char *search, const char *node);

// Character by character; bytes that form no character count as themselves, and none equals a character.
int compare_multibyte(const char *search, const char *node);

// Strings of unsigned 16-bit units that end in a unit 0, at any address.
int compare_units(const void *search, const void *node);

// Upper-cases in place each character that keeps its length; all others stay as they are.
void upper_case(char *text);

} // namespace ovant::c
