// The clean-up of paths before they are listed.
#pragma once

#include <string>
#include <string_view>

namespace brindlewick {

/// Two backslashes in a row become one, from left to right, so that a run of n keeps half of them, rounded
/// up. A run at the very start, one backslash included, becomes exactly two. Other separators stay. Linear.
std::u16string CollapseDoubledBackslashes(std::u16string_view path);

} // namespace brindlewick
