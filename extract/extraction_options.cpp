#include "extract/extraction_options.h"

#include "core/decimal_number.h"
#include "platform/error_report.h"
#include "platform/text.h"

#include <algorithm>
#include <limits>

namespace brindlewick {

namespace {

// Code units: enough for the number of every mode, also with 28 decimal places.
constexpr std::size_t maxNumberLength = 64;

bool isEqual(const DecimalNumber& number, std::uint32_t whole) {
    if (number.negative || number.high != 0)
        return false;
    std::uint64_t rest = number.low;
    for (int place = 0; place < number.scale; ++place) {
        if (rest % 10 != 0)
            return false;
        rest /= 10;
    }
    return rest == whole;
}

} // namespace

void ExtractionOptions::chooseMode(ExtractionMode mode) {
    mode_ = mode;
    const auto digit = static_cast<char16_t>(u'0' + static_cast<std::int32_t>(mode));
    settings_.SaveSetting(u"Option", {&digit, 1});
}

void ExtractionOptions::setIncludeFilename(bool include) {
    includeFilename_ = include;
    settings_.SaveSetting(u"Check1", include ? u"1" : u"0");
}

ExtractionMode modeFromSetting(std::u16string_view stored) {
    // The longest prefix that is a number: u"2abc" is 2, u"1.0" is 1.
    const std::size_t start = std::min(stored.find_first_not_of(u" \t\r\n"), stored.size());
    const std::size_t end = std::min(stored.find_first_not_of(u"+-0123456789.eE", start), stored.size());
    for (std::size_t length = std::min<std::size_t>(end - start, maxNumberLength); length > 0; --length) {
        const DecimalReading reading = readDecimal(stored.substr(start, length));
        if (reading.failure)
            continue;
        for (const ModeEntry& entry : extractionModes)
            if (isEqual(reading.number, static_cast<std::uint32_t>(entry.mode)))
                return entry.mode;
        return ExtractionMode::none;
    }
    return ExtractionMode::none;
}

std::int32_t flagFromSetting(std::u16string_view stored) {
    const std::u16string_view text = trimmedBlanks(stored);
    if (text.empty())
        throw Failure(FailureNumber::typeMismatch);
    const std::int32_t number = decimalAsInteger(text);
    if (number < std::numeric_limits<std::int16_t>::min() ||
        number > std::numeric_limits<std::int16_t>::max())
        throw Failure(FailureNumber::overflow);
    return number;
}

std::u16string explainModes(const PerMode<std::u16string>& captions) {
    std::u16string text;
    for (std::size_t place = 0; place < captions.size(); ++place)
        text.append(captions[place])
            .append(u" - ")
            .append(extractionModes[place].explanation)
            .append(u"\r\n\r\n");
    return text.append(u"If you need more extraction features please email ")
        .append(supportAddress)
        .append(u" and I will add them if you give an example of what you have (before) and what you want "
                u"for results (after).");
}

} // namespace brindlewick
