// Small rules on UTF-16 text: numbers in digits, blanks, hexadecimal digits, surrogates, the status bar's
// texts.
#pragma once

#include <array>
#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

namespace brindlewick {

/// The number in decimal digits, after "-" if it is negative.
template <std::integral Number>
[[nodiscard]] std::u16string decimalText(Number number) {
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

// The texts of the status bar.

/// The number in decimal digits, grouped: u"1,095,878".
[[nodiscard]] std::u16string groupedText(std::uint64_t number);
/// The number, grouped, and what it counts: u"1 row", u"2,000 rows".
[[nodiscard]] std::u16string countText(std::uint64_t count, std::u16string_view one,
                                       std::u16string_view many);
/// The same, but empty for 0.
[[nodiscard]] std::u16string unlessNone(std::uint64_t count, std::u16string_view one,
                                        std::u16string_view many);
/// The clauses that are not empty, with "; " between them.
[[nodiscard]] std::u16string joinedClauses(std::initializer_list<std::u16string> clauses);

/// The text without the blanks (U+0020 alone) at its beginning and end.
[[nodiscard]] constexpr std::u16string_view trimmedBlanks(std::u16string_view text) noexcept {
    const std::size_t first = text.find_first_not_of(u' ');
    if (first == std::u16string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

inline constexpr std::u16string_view upperCaseHexadecimal = u"0123456789ABCDEF";
inline constexpr std::u16string_view lowerCaseHexadecimal = u"0123456789abcdef";

/// The value (0 to 15) of a hexadecimal digit in either case; none for any other code unit.
[[nodiscard]] constexpr std::optional<unsigned> hexadecimalValue(char16_t digit) noexcept {
    if (digit >= u'0' && digit <= u'9')
        return digit - unsigned{u'0'};
    const unsigned lower = digit | 0x20U;
    if (lower >= u'a' && lower <= u'f')
        return lower - u'a' + 10;
    return std::nullopt;
}

/// The code unit in four hexadecimal digits.
[[nodiscard]] constexpr std::array<char16_t, 4>
hexadecimalDigits(char16_t unit, std::u16string_view digits = upperCaseHexadecimal) noexcept {
    return {digits[unit >> 12], digits[(unit >> 8) & 15], digits[(unit >> 4) & 15], digits[unit & 15]};
}

/// The code unit that four hexadecimal digits give; none for any other text.
[[nodiscard]] constexpr std::optional<char16_t> unitFromHexadecimal(std::u16string_view digits) noexcept {
    if (digits.size() != 4)
        return std::nullopt;
    unsigned unit = 0;
    for (const char16_t digit : digits) {
        const std::optional<unsigned> value = hexadecimalValue(digit);
        if (!value)
            return std::nullopt;
        unit = unit * 16 + *value;
    }
    return static_cast<char16_t>(unit);
}

/// The first half of a surrogate pair.
[[nodiscard]] constexpr bool isHighSurrogate(char16_t unit) noexcept {
    return (unit & 0xFC00) == 0xD800;
}
/// The second half of a surrogate pair.
[[nodiscard]] constexpr bool isLowSurrogate(char16_t unit) noexcept {
    return (unit & 0xFC00) == 0xDC00;
}

} // namespace brindlewick
