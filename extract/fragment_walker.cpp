#include "extract/fragment_walker.h"

#include "platform/failure.h"

#include <algorithm>
#include <array>

namespace brindlewick {

namespace {

constexpr char16_t separator = u' '; // after every part of a text

enum Stripped : std::uint8_t {
    quote = 1,
    openBrace = 2,
    closeBrace = 4,
    openBracket = 8,
    closeBracket = 16,
};

// What is stripped from a text.
constexpr std::uint8_t fromKey = quote | openBrace | openBracket | closeBracket;
constexpr std::uint8_t fromObjectKey = quote | openBrace | closeBrace;
constexpr std::uint8_t fromValue = quote | openBrace | closeBrace | closeBracket;
constexpr std::uint8_t fromPart = fromValue | openBracket;

consteval std::array<std::uint8_t, 128> makeKinds() {
    std::array<std::uint8_t, 128> kinds{};
    kinds[u'"'] = quote;
    kinds[u'{'] = openBrace;
    kinds[u'}'] = closeBrace;
    kinds[u'['] = openBracket;
    kinds[u']'] = closeBracket;
    return kinds;
}

constexpr std::array<std::uint8_t, 128> kinds = makeKinds();

/// Appends the text without the stripped units, and then without blanks (U+0020) at its beginning and end.
void appendWithout(std::uint8_t stripped, std::u16string_view text, UnitBuffer& target) {
    target.makeRoom(text.size());
    char16_t* const start = target.end();
    char16_t* to = start;
    for (const char16_t unit : text) {
        const bool isStripped = unit < kinds.size() && (kinds[unit] & stripped) != 0;
        const bool isLeadingBlank = unit == u' ' && to == start;
        *to = unit;
        to += isStripped || isLeadingBlank ? 0 : 1;
    }
    while (to > start && to[-1] == u' ')
        --to;
    target.advance(static_cast<std::size_t>(to - start));
}

} // namespace

void FragmentWalker::clearTexts() noexcept {
    keyText_.cutTo(0);
    valueText_.cutTo(0);
}

void FragmentWalker::walk(std::u16string_view line) {
    for (;;) {
        const std::size_t colon = line.find(u':');
        walkElement(line.substr(0, colon));
        if (colon == std::u16string_view::npos)
            return;
        line.remove_prefix(colon + 1);
    }
}

void FragmentWalker::walkElement(std::u16string_view element) {
    if (element.starts_with(u'{'))
        walkObjectElement(element);
    else if (element.starts_with(u'['))
        walkArrayElement(element);
    else
        walkOtherElement(element);
}

/// A "{" and the key after it open one level, also after several braces; braces alone are a value.
void FragmentWalker::walkObjectElement(std::u16string_view element) {
    if (element.find(u',') != std::u16string_view::npos) {
        addParts(element);
        return;
    }
    const std::size_t start = keyText_.length();
    appendWithout(fromObjectKey, element, keyText_);
    if (keyText_.length() > start)
        repeatKey(start, 1);
    else
        addValue(element, fromValue);
}

void FragmentWalker::walkArrayElement(std::u16string_view element) {
    openLevels(element);
    addParts(element);
    arraySeen_ = true;
}

/// Before the first array of a run, the whole element is one part, including its commas and the next member's
/// key. After it, the element is cut at its commas, and an element without commas is lost.
void FragmentWalker::walkOtherElement(std::u16string_view element) {
    openLevels(element);
    if (!arraySeen_)
        addValue(element, fromValue);
    else if (element.find(u',') != std::u16string_view::npos)
        addParts(element);
}

/// Every "{" opens a level, and the whole element is the key of each.
void FragmentWalker::openLevels(std::u16string_view element) {
    const auto levels = static_cast<std::size_t>(std::count(element.begin(), element.end(), u'{'));
    if (levels == 0)
        return;
    const std::size_t start = keyText_.length();
    appendWithout(fromKey, element, keyText_);
    repeatKey(start, levels);
}

/// Repeats the key text from `start` on, so that it is there `count` times (at least 1), each with a
/// separator. Checks the length first, because it may be the square of the element's.
void FragmentWalker::repeatKey(std::size_t start, std::size_t count) {
    const std::size_t length = keyText_.length() - start;
    if (count > (maxTextLength - start) / (length + 1)) {
        keyText_.cutTo(start);
        throw Failure(FailureNumber::outOfMemory);
    }
    keyText_.makeRoom((length + 1) * count);
    keyText_.put(separator);
    while (--count > 0)
        keyText_.put(keyText_.view().substr(start, length + 1));
}

/// Adds every part between commas, without brackets.
void FragmentWalker::addParts(std::u16string_view element) {
    for (;;) {
        const std::size_t comma = element.find(u',');
        addValue(element.substr(0, comma), fromPart);
        if (comma == std::u16string_view::npos)
            return;
        element.remove_prefix(comma + 1);
    }
}

void FragmentWalker::addValue(std::u16string_view text, std::uint8_t stripped) {
    appendWithout(stripped, text, valueText_);
    valueText_.makeRoom(1);
    valueText_.put(separator);
    if (valueText_.length() > maxTextLength)
        throw Failure(FailureNumber::outOfMemory);
}

} // namespace brindlewick
