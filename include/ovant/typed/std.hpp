// The few names of the standard library that a tree must give meanings to.
#pragma once

#if defined(__GLIBCXX__) // a declaration is all that it takes; <iterator> costs a compiler four times all of Ovant
// clang-format off
namespace std _GLIBCXX_VISIBILITY(default) { // NOLINT(cert-dcl58-cpp)
_GLIBCXX_BEGIN_NAMESPACE_VERSION
struct bidirectional_iterator_tag;
template <class> struct tuple_size;
template <size_t, class> struct tuple_element;
_GLIBCXX_END_NAMESPACE_VERSION
}
// clang-format on
#else
#include <iterator>
#include <utility>
#endif
