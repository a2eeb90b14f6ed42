#include "core/decimal_number.h"

#include <algorithm>
#include <limits>

namespace brindlewick {

namespace {

__extension__ using Wide = unsigned __int128;

constexpr Wide maxMagnitude = (Wide{1} << 96) - 1;
constexpr int maxDigits = 29; // of a 96-bit magnitude

// Only the sign of an exponent beyond this matters: no text has enough digits to compensate for it.
constexpr std::int64_t maxExponent = std::int64_t{1} << 40;

bool isDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

/// The significant digits of a number's text: without the decimal point.
class Digits {
public:
    Digits(std::u16string_view text, std::size_t pointAt) : text_(text), pointAt_(pointAt) {
        length_ = static_cast<std::int64_t>(text.size()) - (pointAt < text.size() ? 1 : 0);
    }
    std::int64_t length() const { return length_; }
    unsigned operator[](std::int64_t index) const {
        auto at = static_cast<std::size_t>(index);
        if (at >= pointAt_)
            ++at;
        return static_cast<unsigned>(text_[at] - u'0');
    }
    bool anyNonZeroFrom(std::int64_t index) const {
        for (; index < length_; ++index)
            if ((*this)[index] != 0)
                return true;
        return false;
    }

private:
    std::u16string_view text_;
    std::size_t pointAt_;
    std::int64_t length_;
};

/// The parts of a number's text; `mantissa` consists of digits and at most one point.
struct Parts {
    bool negative = false;
    std::u16string_view mantissa;
    std::int64_t exponent = 0;
};

std::optional<Parts> takeApart(std::u16string_view text) {
    Parts parts;
    std::size_t at = 0;
    const auto takeSign = [&] {
        const bool minus = at < text.size() && text[at] == u'-';
        if (minus || (at < text.size() && text[at] == u'+'))
            ++at;
        return minus;
    };
    const auto takeDigits = [&] {
        const std::size_t start = at;
        while (at < text.size() && isDigit(text[at]))
            ++at;
        return at - start;
    };

    parts.negative = takeSign();
    const std::size_t start = at;
    std::size_t digits = takeDigits();
    if (at < text.size() && text[at] == u'.') {
        ++at;
        digits += takeDigits();
    }
    if (digits == 0)
        return std::nullopt;
    parts.mantissa = text.substr(start, at - start);

    if (at < text.size() && (text[at] == u'e' || text[at] == u'E')) {
        ++at;
        const bool minus = takeSign();
        const std::size_t exponentStart = at;
        if (takeDigits() == 0)
            return std::nullopt;
        for (const char16_t digit : text.substr(exponentStart, at - exponentStart))
            parts.exponent = std::min(parts.exponent * 10 + (digit - u'0'), maxExponent);
        if (minus)
            parts.exponent = -parts.exponent;
    }
    if (at != text.size())
        return std::nullopt;
    return parts;
}

/// The first `kept` digits from `first` as a number, rounded half to even by the digits after them.
Wide rounded(const Digits& digits, std::int64_t first, std::int64_t kept) {
    Wide value = 0;
    if (kept < 0)
        return value; // less than a twentieth of the last place
    const std::int64_t available = std::min(kept, digits.length() - first);
    for (std::int64_t index = 0; index < available; ++index)
        value = value * 10 + digits[first + index];
    for (std::int64_t index = available; index < kept; ++index)
        value *= 10;
    const std::int64_t next = first + kept;
    if (next < digits.length()) {
        const unsigned digit = digits[next];
        if (digit > 5 || (digit == 5 && (value % 2 == 1 || digits.anyNonZeroFrom(next + 1))))
            ++value;
    }
    return value;
}

DecimalNumber decimalOf(Wide magnitude, std::int64_t scale, bool negative) {
    DecimalNumber number;
    number.low = static_cast<std::uint64_t>(magnitude);
    number.high = static_cast<std::uint32_t>(magnitude >> 64);
    number.scale = static_cast<std::uint8_t>(scale);
    number.negative = negative && magnitude != 0;
    return number;
}

Wide magnitudeOf(const DecimalNumber& number) {
    return (Wide{number.high} << 64) | number.low;
}

} // namespace

DecimalReading readDecimal(std::u16string_view text) {
    const std::optional<Parts> parts = takeApart(text);
    if (!parts)
        return {{}, FailureNumber::typeMismatch};

    const std::size_t point = std::min(parts->mantissa.find(u'.'), parts->mantissa.size());
    const Digits digits(parts->mantissa, point);
    std::int64_t first = 0;
    while (first < digits.length() && digits[first] == 0)
        ++first;

    const std::int64_t fractionDigits = digits.length() - static_cast<std::int64_t>(point);
    const std::int64_t scale =
        std::clamp<std::int64_t>(fractionDigits - parts->exponent, -maxExponent, maxExponent);
    const std::int64_t maxScale = std::clamp<std::int64_t>(scale, 0, maxDecimalScale);
    if (first == digits.length())
        return {decimalOf(0, maxScale, false), std::nullopt};

    const std::int64_t wholeDigits = digits.length() - first - scale; // before the point; may be negative
    if (wholeDigits > maxDigits)
        return {{}, FailureNumber::overflow};
    for (std::int64_t tried = std::min(maxScale, maxDigits - wholeDigits); tried >= 0; --tried) {
        const Wide magnitude = rounded(digits, first, wholeDigits + tried);
        if (magnitude <= maxMagnitude)
            return {decimalOf(magnitude, tried, parts->negative), std::nullopt};
    }
    return {{}, FailureNumber::overflow};
}

void appendDecimal(const DecimalNumber& number, std::u16string& text) {
    char16_t reversed[maxDigits + 3];
    std::size_t length = 0;
    int places = 0;
    const auto put = [&](unsigned digit) {
        reversed[length++] = static_cast<char16_t>(u'0' + digit);
        if (++places == number.scale)
            reversed[length++] = u'.';
    };
    Wide magnitude = magnitudeOf(number);
    for (; (magnitude >> 64) != 0; magnitude /= 10)
        put(static_cast<unsigned>(magnitude % 10));
    for (auto rest = static_cast<std::uint64_t>(magnitude); rest != 0; rest /= 10)
        put(static_cast<unsigned>(rest % 10));
    while (places <= number.scale)
        put(0);
    if (number.negative)
        text.push_back(u'-');
    while (length > 0)
        text.push_back(reversed[--length]);
}

std::int32_t decimalAsInteger(std::u16string_view text) {
    const DecimalReading reading = readDecimal(text);
    if (reading.failure)
        throw Failure(*reading.failure);
    Wide unit = 1;
    for (int place = 0; place < reading.number.scale; ++place)
        unit *= 10;
    const Wide magnitude = magnitudeOf(reading.number);
    Wide whole = magnitude / unit;
    const Wide twiceRest = (magnitude % unit) * 2;
    if (twiceRest > unit || (twiceRest == unit && whole % 2 == 1))
        ++whole;
    const Wide limit = Wide{std::numeric_limits<std::int32_t>::max()} + (reading.number.negative ? 1 : 0);
    if (whole > limit)
        throw Failure(FailureNumber::overflow);
    const auto value = static_cast<std::int64_t>(whole);
    return static_cast<std::int32_t>(reading.number.negative ? -value : value);
}

} // namespace brindlewick
