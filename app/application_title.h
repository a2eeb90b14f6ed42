// The program's display name, and the title that message boxes without one of their own carry.
#pragma once

#include <string>
#include <string_view>

namespace brindlewick {

inline constexpr std::u16string_view displayName = u"Brindlewick";

/// The name, cut at its last blank at least once and until it has at most 40 code units. A name without a
/// blank cannot be cut and is the title as it is.
std::u16string applicationTitle(std::u16string_view name);

} // namespace brindlewick
