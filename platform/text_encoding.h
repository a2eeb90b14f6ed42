// Bytes to UTF-16 and back.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace brindlewick {

/// The system's single-byte character set: Windows-1252, with the five bytes that have no character there
/// (81, 8D, 8F, 90, 9D) standing for the C1 control of the same value. Indexed by byte.
/// Source: the WHATWG Encoding Standard, index-windows-1252, which has the same five.
extern const std::array<char16_t, 256> windows1252ToUtf16;

/// Decodes the bytes, one code unit each.
void decodeSingleByte(std::string_view bytes, char16_t* target);
/// Appends the bytes, one code unit each.
void appendFromSingleByte(std::string_view bytes, std::u16string& text);
/// Appends the text, one byte for every code unit; "?" for a unit that the set does not hold.
void appendAsSingleByte(std::u16string_view text, std::string& bytes);
/// The byte for a code unit, '?' when the set does not hold it.
char singleByteOf(char16_t unit) noexcept;

/// Decodes into `target`, which has room for a code unit a byte, and gives the number of units written. Every
/// maximal ill-formed subpart becomes one U+FFFD, as the WHATWG Encoding Standard's UTF-8 decoder does. A
/// byte-order mark is decoded like any other character.
std::size_t decodeUtf8(std::string_view bytes, char16_t* target);
/// Appends the decoded text.
void appendFromUtf8(std::string_view bytes, std::u16string& text);
/// UTF-8 for the text; a lone surrogate becomes U+FFFD.
std::string toUtf8(std::u16string_view text);
std::u16string fromUtf8(std::string_view bytes);

} // namespace brindlewick
