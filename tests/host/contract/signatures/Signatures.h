#pragma once

#include <type_traits>

/// An object or argument of that type, for expressions that are never evaluated.
template <class T>
T some();

/// The call compiles and its result has that type. Nothing is linked: also operations that no library holds
/// yet are checked.
#define GIVES(type, ...) static_assert(std::is_same_v<decltype(__VA_ARGS__), type>, #__VA_ARGS__)
