// Windows-1252 and UTF-8 to UTF-16 and back.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace brindlewick {

/// Windows-1252, indexed by byte. The five bytes without a character (81, 8D, 8F, 90, 9D) are the C1 controls
/// of the same value. Source: the WHATWG Encoding Standard, index-windows-1252.
extern const std::array<char16_t, 256> windows1252ToUtf16;

/// Decodes the bytes into `target`, which has room for one code unit per byte.
void decodeWindows1252(std::string_view bytes, char16_t* target);
/// Appends the decoded bytes.
void appendFromWindows1252(std::string_view bytes, std::u16string& text);
/// Appends the text, one byte per code unit; "?" for a unit that Windows-1252 lacks. Returns the number of
/// characters that it lacks; a surrogate pair is one.
std::size_t appendAsWindows1252(std::u16string_view text, std::string& bytes);
/// The byte for a code unit, '?' if Windows-1252 lacks it.
[[nodiscard]] char windows1252Byte(char16_t unit) noexcept;

/// Decodes into `target`, which has room for one code unit per byte; returns the number of units written.
/// Each maximal ill-formed subpart becomes one U+FFFD, as in the WHATWG Encoding Standard. A byte-order mark
/// is decoded like any other character.
[[nodiscard]] std::size_t decodeUtf8(std::string_view bytes, char16_t* target);
/// Appends the decoded text.
void appendFromUtf8(std::string_view bytes, std::u16string& text);
/// The text in UTF-8; a lone surrogate becomes U+FFFD.
[[nodiscard]] std::string toUtf8(std::u16string_view text);
[[nodiscard]] std::u16string fromUtf8(std::string_view bytes);

} // namespace brindlewick
