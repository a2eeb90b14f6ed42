// The rules of a folder scan: which folders it enters and which files it lists.
#pragma once

#include "platform/files.h"

#include <cstddef>
#include <string_view>

namespace brindlewick {

/// In UTF-16 code units. A scan does not enter a folder whose path, with its final separator, is this long or
/// longer, and does not accept a folder name of this length.
inline constexpr std::size_t folderPathLimit = 260;

/// True when the name, in the single-byte character set, has a byte from 127 to 159, one below 32, or "?",
/// which replaces characters outside the set. The euro sign, dashes and curly quotes are among these bytes.
[[nodiscard]] bool IsBadName(std::u16string_view name) noexcept;

/// True for the names of subfolders that a scan enters.
[[nodiscard]] bool isAcceptedFolderName(std::u16string_view name) noexcept;

/// False for junctions and protected system folders. A root folder is always entered.
[[nodiscard]] bool attributesAllowEntering(unsigned attributes, bool isRoot) noexcept;

/// True for "/" and, on Windows, "C:\"; false for a path with any folder name in it.
[[nodiscard]] bool isRootFolder(std::u16string_view folder);

/// True for names that begin with "~". These files are never listed.
[[nodiscard]] bool isTemporaryCopy(std::u16string_view fileName) noexcept;

/// True for an existing file unless its attributes are exactly archive + hidden.
[[nodiscard]] bool isAcceptedFile(const FileStatus& status) noexcept;

} // namespace brindlewick
