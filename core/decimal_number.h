// Exact decimal numbers: a 96-bit magnitude, a sign and a scale of 0 to 28 decimal places.
#pragma once

#include "platform/failure.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brindlewick {

/// The value is magnitude times 10 to the power of minus scale. Zero has no sign.
struct DecimalNumber {
    std::uint64_t low = 0;  ///< the magnitude's lower 64 bits
    std::uint32_t high = 0; ///< its upper 32 bits
    std::uint8_t scale = 0; ///< 0 to 28
    bool negative = false;

    friend bool operator==(const DecimalNumber&, const DecimalNumber&) = default;
};

inline constexpr int maxDecimalScale = 28;

/// A number, or why the text is not one: typeMismatch for text of another form, overflow for a magnitude that
/// no scale can represent. Returned, not thrown, because lenient text contains many values that fail.
struct DecimalReading {
    DecimalNumber number;
    std::optional<FailureNumber> failure;
};

/// Reads the whole text as `[+-]? (digits [. digits*] | . digits) ([eE] [+-]? digits)?`. The scale is the
/// number of fraction digits less the exponent, and is kept (1.50 has scale 2); a negative scale is
/// multiplied out. A number that needs more than 28 fraction digits or 96 bits is rounded half to even, to
/// the largest scale that fits. Linear in the text.
DecimalReading readDecimal(std::u16string_view text);

/// Appends the positional form: "-" if negative, at least one digit before the point, `scale` digits after
/// it.
void appendDecimal(const DecimalNumber& number, std::u16string& text);

/// The text's number rounded half to even to a whole one. Fails with typeMismatch, and with overflow when it
/// leaves the signed 32-bit range.
std::int32_t decimalAsInteger(std::u16string_view text);

} // namespace brindlewick
