// Paths before they are listed: how they are cleaned up, and those of an open dialog's selection.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brindlewick {

/// Replaces every pair of backslashes, from left to right, by one: a run of n becomes half of n, rounded up.
/// A run at the beginning, even a single backslash, becomes exactly two. "/" is not changed. Linear.
[[nodiscard]] std::u16string CollapseDoubledBackslashes(std::u16string_view path);

/// The paths of a selection, in order. A selection of one part is a full path and is returned unchanged. With
/// several parts, separated by NUL, the first is the folder and the others are names in it; their paths are
/// cleaned by CollapseDoubledBackslashes. The empty selection (a cancelled dialog) has no paths.
[[nodiscard]] std::vector<std::u16string> pathsOfSelection(std::u16string_view selection);

/// False when the selection and a final NUL need more than the 260 code units of the "Add JSON Files" dialog.
[[nodiscard]] bool selectionFitsBuffer(std::u16string_view selection) noexcept;

} // namespace brindlewick
