// Paths as the program holds them (UTF-16) and as the operating system takes them.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace brindlewick {

/// The separator of paths that the program builds itself: u'/' here, u'\\' on Windows.
inline constexpr char16_t pathSeparator = std::filesystem::path::preferred_separator == '/' ? u'/' : u'\\';

/// The path as the operating system takes it. On POSIX: UTF-8, with the lone surrogates U+DC80 to U+DCFF
/// turned back into the bytes 80 to FF that they stand for (any other lone surrogate becomes U+FFFD).
std::filesystem::path nativePath(std::u16string_view path);
/// The inverse: bytes that are not valid UTF-8 become the lone surrogates U+DC80 to U+DCFF, one a byte,
/// so that every name can be listed and opened again.
std::u16string pathText(const std::filesystem::path& path);
/// The inverse for bytes handed in from outside (a command line), POSIX rules on every platform.
std::u16string textFromPathBytes(std::string_view bytes);
/// The inverse of textFromPathBytes.
std::string pathBytes(std::u16string_view path);

/// The folder with `pathSeparator` at its end; one that is there already (a root's) is not doubled.
[[nodiscard]] std::u16string withSeparator(std::u16string_view folder);
/// The path of `name` in `folder`, which may end in a separator or not.
[[nodiscard]] std::u16string joinedPath(std::u16string_view folder, std::u16string_view name);
/// The text after the last separator of either kind ("/" or "\"), the whole path when it holds none.
std::u16string_view fileNamePart(std::u16string_view path) noexcept;

} // namespace brindlewick
