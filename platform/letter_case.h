// Comparison without regard to letter case, the same on every system and in every locale.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace brindlewick {

/// Gives the same code unit for all letters that differ only in case: the simple lower-case mapping of the
/// simple upper-case mapping. Surrogates map to themselves. Source: UnicodeData.txt, fields 12 and 13,
/// Unicode 14.
[[nodiscard]] char16_t foldCase(char16_t unit) noexcept;
/// The text with every code unit folded.
[[nodiscard]] std::u16string foldedCase(std::u16string_view text);
/// foldCase for all 65,536 code units, for loops over long texts.
[[nodiscard]] const char16_t* foldCaseTable() noexcept;

/// True if the name matches the pattern without regard to case. In a pattern, "*" matches any units, "?"
/// exactly one; "*.*" matches every name, even one without a dot. The time is proportional to the product of
/// the lengths.
[[nodiscard]] bool matchesPattern(std::u16string_view name, std::u16string_view pattern) noexcept;

} // namespace brindlewick
