// Paths as the program keeps them (UTF-16) and as the operating system takes them.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace brindlewick {

/// The separator of paths that the program builds itself: u'/', on Windows u'\\'.
inline constexpr char16_t pathSeparator = std::filesystem::path::preferred_separator == '/' ? u'/' : u'\\';

/// The path as the operating system takes it: on POSIX pathBytes(path), on Windows unit by unit.
[[nodiscard]] std::filesystem::path nativePath(std::u16string_view path);
/// The inverse of nativePath.
[[nodiscard]] std::u16string pathText(const std::filesystem::path& path);

/// UTF-8 to UTF-16. Each byte that is not valid UTF-8 becomes one lone surrogate, U+DC80 to U+DCFF, so that a
/// file with any name can be listed and opened. For paths from a command line on every system.
[[nodiscard]] std::u16string textFromPathBytes(std::string_view bytes);
/// The inverse of textFromPathBytes. Any other lone surrogate becomes U+FFFD.
[[nodiscard]] std::string pathBytes(std::u16string_view path);

/// The folder with `pathSeparator` at its end; one that is there already (a root's) is not doubled.
[[nodiscard]] std::u16string withSeparator(std::u16string_view folder);
/// The path of `name` in `folder`, which may end in a separator or not.
[[nodiscard]] std::u16string joinedPath(std::u16string_view folder, std::u16string_view name);
/// The text after the last separator of either kind ("/" or "\"), the whole path if it has none.
[[nodiscard]] std::u16string_view fileNamePart(std::u16string_view path) noexcept;

} // namespace brindlewick
