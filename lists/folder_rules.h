// Which folders a scan enters and which files it takes: rules on names, lengths and attributes.
#pragma once

#include "platform/files.h"

#include <cstddef>
#include <string_view>

namespace brindlewick {

/// Code units. A folder path of this length (its separator included) or more is not walked, and a folder name
/// of this length or more is not accepted.
inline constexpr std::size_t folderPathLimit = 260;

/// True when a character of the name, in the single-byte character set, is "?" (which is also how a character
/// outside the set arrives), lies in 127 to 159 or is below 32. Euro sign, dashes and curly quotes lie there.
bool IsBadName(std::u16string_view name) noexcept;

/// True for the names of subfolders that a scan follows.
bool isAcceptedFolderName(std::u16string_view name) noexcept;

/// False for junctions and protected system folders, unless the folder is a root, which is always entered.
bool attributesLetWalk(unsigned attributes, bool isRoot) noexcept;

/// True for "/", for "C:\" on Windows, and for nothing that has a name.
bool isRootFolder(std::u16string_view folder);

/// Names that begin with "~" are temporary copies and never listed.
bool isTemporaryCopy(std::u16string_view fileName) noexcept;

/// True for an existing file, hidden ones included, whose attributes are not exactly archive + hidden.
bool isAcceptedFile(const FileStatus& status) noexcept;

} // namespace brindlewick
