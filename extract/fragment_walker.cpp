#include "extract/fragment_walker.h"

#include "platform/failure.h"

#include <algorithm>
#include <cstdint>

namespace brindlewick {

namespace {

constexpr char16_t separator = u' '; // after every part of a text

enum Unwanted : std::uint8_t {
    none = 0,
    quote = 1,
    openBrace = 2,
    closeBrace = 4,
    openBracket = 8,
    closeBracket = 16,
};

constexpr std::uint8_t kindOf(char16_t unit) {
    switch (unit) {
    case u'"':
        return quote;
    case u'{':
        return openBrace;
    case u'}':
        return closeBrace;
    case u'[':
        return openBracket;
    case u']':
        return closeBracket;
    default:
        return none;
    }
}

constexpr std::uint8_t keyUnwanted = quote | openBrace | openBracket | closeBracket;
constexpr std::uint8_t levelUnwanted = keyUnwanted;
constexpr std::uint8_t valueUnwanted = quote | openBrace | closeBrace;
constexpr std::uint8_t looseValueUnwanted = valueUnwanted | closeBracket;
/// As appendValueCleaning, with brackets removed first.
constexpr std::uint8_t partUnwanted = valueUnwanted | openBracket | closeBracket;

void appendWithout(std::uint8_t unwanted, std::u16string_view text, std::u16string& target) {
    const std::size_t start = target.size();
    for (const char16_t unit : text) {
        const bool isLeadingBlank = unit == u' ' && target.size() == start;
        if ((kindOf(unit) & unwanted) == 0 && !isLeadingBlank)
            target.push_back(unit);
    }
    while (target.size() > start && target.back() == u' ')
        target.pop_back();
}

} // namespace

void appendKeyCleaning(std::u16string_view text, std::u16string& target) {
    appendWithout(keyUnwanted, text, target);
}

void appendLevelCleaning(std::u16string_view text, std::u16string& target) {
    appendWithout(levelUnwanted, text, target);
}

void appendValueCleaning(std::u16string_view text, std::u16string& target) {
    appendWithout(valueUnwanted, text, target);
}

void appendLooseValueCleaning(std::u16string_view text, std::u16string& target) {
    appendWithout(looseValueUnwanted, text, target);
}

void FragmentWalker::clearTexts() noexcept {
    keyText_.clear();
    valueText_.clear();
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
    name_.clear();
    appendValueCleaning(element, name_);
    if (!name_.empty()) {
        openLevels(name_, 1);
        return;
    }
    appendLooseValueCleaning(element, valueText_);
    finishValuePiece();
}

void FragmentWalker::walkArrayElement(std::u16string_view element) {
    name_.clear();
    appendLevelCleaning(element, name_);
    openLevels(name_, static_cast<std::size_t>(std::count(element.begin(), element.end(), u'{')));
    addParts(element);
    arraySeen_ = true;
}

/// Before the first array of a run, the whole element is one part, including its commas and the next member's
/// key. After it, the element is cut at its commas, and an element without commas is lost.
void FragmentWalker::walkOtherElement(std::u16string_view element) {
    name_.clear();
    appendKeyCleaning(element, name_);
    openLevels(name_, static_cast<std::size_t>(std::count(element.begin(), element.end(), u'{')));
    if (!arraySeen_) {
        appendLooseValueCleaning(element, valueText_);
        finishValuePiece();
    } else if (element.find(u',') != std::u16string_view::npos) {
        addParts(element);
    }
}

/// Writes the name once for every level. Checks the length first, because it may be the square of the
/// element's.
void FragmentWalker::openLevels(std::u16string_view name, std::size_t count) {
    if (count > (maxTextLength - keyText_.size()) / (name.size() + 1))
        throw Failure(FailureNumber::outOfMemory);
    for (; count > 0; --count) {
        keyText_.append(name);
        keyText_.push_back(separator);
    }
}

/// Adds every part between commas, without brackets.
void FragmentWalker::addParts(std::u16string_view element) {
    for (;;) {
        const std::size_t comma = element.find(u',');
        appendWithout(partUnwanted, element.substr(0, comma), valueText_);
        finishValuePiece();
        if (comma == std::u16string_view::npos)
            return;
        element.remove_prefix(comma + 1);
    }
}

void FragmentWalker::finishValuePiece() {
    valueText_.push_back(separator);
    if (valueText_.size() > maxTextLength)
        throw Failure(FailureNumber::outOfMemory);
}

} // namespace brindlewick
