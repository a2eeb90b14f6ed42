// Letter case, the same on every platform and in every locale.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace brindlewick {

/// The form in which two code units that differ in letter case alone are equal: the simple lower-case mapping
/// of the simple upper-case mapping, one UTF-16 code unit to one (surrogates map to themselves). Source:
/// UnicodeData.txt, fields 12 and 13, Unicode 14.
char16_t foldCase(char16_t unit) noexcept;
std::u16string foldedCase(std::u16string_view text);
/// foldCase for all 65,536 code units, for scanning loops.
const char16_t* foldCaseTable() noexcept;

/// True when the name matches a pattern of "*" (any run), "?" (any one unit) and literal characters, without
/// regard to case. "*.*" matches every name, one without a dot included. Linear in the name's length times
/// the pattern's.
bool matchesPattern(std::u16string_view name, std::u16string_view pattern) noexcept;

} // namespace brindlewick
