// Feeds runs of digits, signs, points and exponents to the decimal reader, and holds it against arithmetic on
// the digits as text.
#include "core/decimal_number.h"
#include "fuzz/fuzz_driver.h"
#include "platform/text_encoding.h"

#include <algorithm>

namespace brindlewick::fuzz {

namespace {

constexpr std::string_view digits = "0123456789";
constexpr std::string_view firstTooLarge = "79228162514264337593543950336"; // 2^96

std::string_view taken(std::string_view& rest, std::string_view from) {
    const std::string_view run = rest.substr(0, std::min(rest.find_first_not_of(from), rest.size()));
    rest.remove_prefix(run.size());
    return run;
}

bool takeOne(std::string_view& rest, std::string_view from) {
    if (rest.empty() || from.find(rest.front()) == from.npos)
        return false;
    rest.remove_prefix(1);
    return true;
}

std::string withoutLeadingZeros(std::string_view number) {
    return std::string(number.substr(std::min(number.find_first_not_of('0'), number.size())));
}

/// The number without its last `count` digits, rounded half to even.
std::string rounded(const std::string& number, std::size_t count) {
    const std::string padded =
        number.size() <= count ? std::string(count + 1 - number.size(), '0') + number : number;
    std::string kept = padded.substr(0, padded.size() - count);
    const std::string dropped = padded.substr(kept.size());
    const std::string half = count == 0 ? "" : "5" + std::string(count - 1, '0');
    const bool isOdd = (kept.back() - '0') % 2 != 0;
    if (dropped > half || (dropped == half && count > 0 && isOdd)) {
        std::size_t nines = kept.find_last_not_of('9');
        if (nines == kept.npos)
            kept.insert(nines = 0, 1, '0');
        ++kept[nines];
        std::fill(kept.begin() + static_cast<std::ptrdiff_t>(nines) + 1, kept.end(), '0');
    }
    return withoutLeadingZeros(kept);
}

bool fits(const std::string& number) {
    return number.size() < firstTooLarge.size() ||
           (number.size() == firstTooLarge.size() && number < firstTooLarge);
}

std::string plainForm(std::string number, std::size_t scale, bool isNegative) {
    if (number.size() <= scale)
        number.insert(0, scale + 1 - number.size(), '0');
    isNegative = isNegative && number.find_first_not_of('0') != number.npos;
    if (scale > 0)
        number.insert(number.size() - scale, 1, '.');
    return (isNegative ? "-" : "") + number;
}

std::string expectedText(std::string_view rest) {
    const bool isNegative = rest.starts_with('-');
    takeOne(rest, "+-");
    const std::string_view whole = taken(rest, digits);
    const std::string_view fraction = takeOne(rest, ".") ? taken(rest, digits) : "";
    std::int64_t exponent = 0;
    bool isNumber = !whole.empty() || !fraction.empty();
    if (takeOne(rest, "eE")) {
        const bool isDown = rest.starts_with('-');
        takeOne(rest, "+-");
        const std::string_view size = taken(rest, digits);
        isNumber = isNumber && !size.empty();
        const std::string bare = withoutLeadingZeros(size);
        exponent = bare.size() > 9 ? 1'000'000'000 : bare.empty() ? 0 : std::stoll(bare);
        exponent = isDown ? -exponent : exponent;
    }
    if (!isNumber || !rest.empty())
        return "mismatch";

    std::string number = withoutLeadingZeros(std::string(whole) + std::string(fraction));
    std::int64_t scale = static_cast<std::int64_t>(fraction.size()) - exponent;
    if (number.empty())
        return plainForm(
            "", static_cast<std::size_t>(std::clamp<std::int64_t>(scale, 0, largestDecimalScale)), false);
    if (scale < 0) {
        if (static_cast<std::int64_t>(number.size()) - scale > 29)
            return "overflow";
        number.append(static_cast<std::size_t>(-scale), '0');
        scale = 0;
    }
    // More digits than these behind the point all round to nothing.
    if (scale > static_cast<std::int64_t>(number.size()) + largestDecimalScale)
        return plainForm("", largestDecimalScale, false);
    for (std::int64_t kept = std::min<std::int64_t>(scale, largestDecimalScale); kept >= 0; --kept) {
        const auto dropped = static_cast<std::size_t>(scale - kept);
        if (number.size() > dropped + firstTooLarge.size())
            continue;
        if (const std::string candidate = rounded(number, dropped); fits(candidate))
            return plainForm(candidate, static_cast<std::size_t>(kept), isNegative);
    }
    return "overflow";
}

} // namespace

std::string makeInput(Random& random) {
    if (random.below(500) == 0)
        return hostile({"0", "9", ".", "e", "-", "0.0", "1e9"}, random);
    std::string bytes(random.oneOf({"", "", "-", "+"}));
    bytes += random.oneOf({"", "0", "000", "7", "79228162514264337593543950335",
                           "7922816251426433759354395033", "99999999999999999999999999999"});
    for (std::size_t left = random.below(4) == 0 ? random.below(34) : 0; left > 0; --left)
        bytes += static_cast<char>('0' + random.below(10));
    if (random.below(3) > 0) {
        bytes += '.';
        bytes +=
            random.oneOf({"", "5", "50", "49999999999999999999999999999999", "0000000000000000000000000000"});
        for (std::size_t left = random.below(32); left > 0; --left)
            bytes += random.below(3) == 0 ? '5' : static_cast<char>('0' + random.below(10));
    }
    if (random.below(2) == 0)
        bytes.append(random.oneOf({"e", "E", "e-", "e+"})).append(std::to_string(random.below(60)));
    bend(bytes, random.below(4) == 0 ? 3 : 0, random);
    return bytes;
}

void runOn(std::string_view input) {
    std::u16string run;
    appendFromWindows1252(input, run);
    const DecimalReading reading = readDecimal(run);
    std::u16string text;
    if (!reading.failure)
        appendDecimal(reading.number, text);
    const std::string read = !reading.failure                              ? toUtf8(text)
                             : *reading.failure == FailureNumber::overflow ? "overflow"
                                                                           : "mismatch";
    check(read == expectedText(input), "the number is the one that its digits say");
}

} // namespace brindlewick::fuzz
