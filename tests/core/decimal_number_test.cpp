#include "core/decimal_number.h"

#include "platform/text_encoding.h"

#include <gtest/gtest.h>

namespace brindlewick {
namespace {

std::string textOf(std::u16string_view run) {
    const DecimalReading reading = readDecimal(run);
    if (reading.failure)
        return *reading.failure == FailureNumber::overflow ? "overflow" : "mismatch";
    std::u16string text;
    appendDecimal(reading.number, text);
    return toUtf8(text);
}

struct Case {
    std::u16string run;
    const char* text;
};

class DecimalText : public ::testing::TestWithParam<Case> {};

TEST_P(DecimalText, IsExact) {
    EXPECT_EQ(textOf(GetParam().run), GetParam().text) << toUtf8(GetParam().run);
}

INSTANTIATE_TEST_SUITE_P(KeepsTheScale, DecimalText,
                         ::testing::Values(Case{u"1.50", "1.50"}, Case{u"1.5e3", "1500"},
                                           Case{u"1.50e1", "15.0"}, Case{u"2e-3", "0.002"}, Case{u"5.", "5"},
                                           Case{u".5", "0.5"}, Case{u"+7", "7"}, Case{u"-7.10", "-7.10"},
                                           Case{u"007", "7"}, Case{u"0.00", "0.00"}, Case{u"-0.0", "0.0"},
                                           Case{u"-0", "0"}, Case{u"0e5", "0"}, Case{u"0e-3", "0.000"},
                                           Case{u"1E+2", "100"}));

INSTANTIATE_TEST_SUITE_P(
    RoundsHalfToEvenToTheLargestScaleThatFits, DecimalText,
    ::testing::Values(Case{u"79228162514264337593543950335", "79228162514264337593543950335"},
                      Case{u"79228162514264337593543950335.4", "79228162514264337593543950335"},
                      Case{u"7922816251426433759354395033.55", "7922816251426433759354395034"},
                      Case{u"7.9228162514264337593543950335", "7.9228162514264337593543950335"},
                      Case{u"7.9228162514264337593543950336", "7.922816251426433759354395034"},
                      Case{u"0.00000000000000000000000000005", "0.0000000000000000000000000000"},
                      Case{u"0.000000000000000000000000000050000000001", "0.0000000000000000000000000001"},
                      Case{u"0.00000000000000000000000000015", "0.0000000000000000000000000002"},
                      Case{u"0.00000000000000000000000000025", "0.0000000000000000000000000002"},
                      Case{u"9999999999999999999999999999.95", "10000000000000000000000000000"},
                      Case{u"1e-99", "0.0000000000000000000000000000"},
                      Case{u"-1e-99", "0.0000000000000000000000000000"},
                      Case{u"1e-99999999999999999999", "0.0000000000000000000000000000"}));

INSTANTIATE_TEST_SUITE_P(
    Fails, DecimalText,
    ::testing::Values(Case{u"", "mismatch"}, Case{u"+", "mismatch"}, Case{u".", "mismatch"},
                      Case{u"1e", "mismatch"}, Case{u"1e+", "mismatch"}, Case{u"1e2e3", "mismatch"},
                      Case{u"1-2", "mismatch"}, Case{u"--1", "mismatch"}, Case{u"1.2.3", "mismatch"},
                      Case{u"e5", "mismatch"}, Case{u"79228162514264337593543950336", "overflow"},
                      Case{u"79228162514264337593543950335.5", "overflow"}, Case{u"1e29", "overflow"},
                      Case{u"-1e99999999999999999999", "overflow"}, Case{u"0.1e31", "overflow"}));

TEST(DecimalAsInteger, RoundsHalfToEvenAndChecksTheRange) {
    EXPECT_EQ(decimalAsInteger(u"2.5"), 2);
    EXPECT_EQ(decimalAsInteger(u"3.5"), 4);
    EXPECT_EQ(decimalAsInteger(u"-2147483648"), -2147483647 - 1);
    EXPECT_THROW(decimalAsInteger(u"2147483647.5"), Failure);
    EXPECT_THROW(decimalAsInteger(u"one"), Failure);
}

} // namespace
} // namespace brindlewick
