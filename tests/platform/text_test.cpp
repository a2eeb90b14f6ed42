#include "platform/text.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace brindlewick {
namespace {

TEST(DecimalText, HoldsEveryDigitOfTheLargestNumbers) {
    EXPECT_EQ(decimalText(0), u"0");
    EXPECT_EQ(decimalText(std::numeric_limits<std::int32_t>::min()), u"-2147483648");
    EXPECT_EQ(decimalText(std::numeric_limits<std::uint64_t>::max()), u"18446744073709551615");
}

TEST(TrimmedBlanks, TakesBlanksAloneFromBothEnds) {
    EXPECT_EQ(trimmedBlanks(u"  a b "), u"a b");
    EXPECT_EQ(trimmedBlanks(u"\t a\u00A0 "), u"\t a\u00A0");
    EXPECT_EQ(trimmedBlanks(u"   "), u"");
}

TEST(Hexadecimal, OfEveryUnitIsReadBackInEitherCase) {
    for (unsigned number = 0; number < 0x10000; ++number) {
        const auto unit = static_cast<char16_t>(number);
        for (const std::u16string_view digits : {upperCaseHexadecimal, lowerCaseHexadecimal}) {
            const auto text = hexadecimalDigits(unit, digits);
            ASSERT_EQ(unitFromHexadecimal({text.data(), text.size()}), unit);
        }
        const std::size_t at = std::u16string_view(u"0123456789ABCDEFabcdef").find(unit);
        ASSERT_EQ(hexadecimalValue(unit).has_value(), at != std::u16string_view::npos) << number;
    }
    const auto digits = hexadecimalDigits(0x1AF);
    EXPECT_EQ(std::u16string_view(digits.data(), digits.size()), u"01AF");
    for (const std::u16string_view other : {u"", u"123", u"12345", u"12g4", u" 123"})
        EXPECT_EQ(unitFromHexadecimal(other), std::nullopt);
}

} // namespace
} // namespace brindlewick
