#include "platform/letter_case.h"

#include <array>
#include <cstdint>

namespace brindlewick {

namespace {

/// Every `stride`th code unit from `first` to `last` folds to itself plus `distance`.
struct FoldRange {
    std::uint16_t first;
    std::uint16_t last;
    std::uint16_t stride;
    std::int32_t distance;
};

// Written by make_letter_case_table.pl.
constexpr FoldRange foldRanges[] = {
#include "letter_case_table.inc"
};

using FoldTable = std::array<char16_t, 65536>;

FoldTable makeTable() {
    FoldTable table{};
    for (std::size_t unit = 0; unit < table.size(); ++unit)
        table[unit] = static_cast<char16_t>(unit);
    for (const FoldRange& range : foldRanges)
        for (std::uint32_t unit = range.first; unit <= range.last; unit += range.stride)
            table[unit] = static_cast<char16_t>(static_cast<std::int32_t>(unit) + range.distance);
    return table;
}

} // namespace

const char16_t* foldCaseTable() noexcept {
    static const FoldTable table = makeTable();
    return table.data();
}

char16_t foldCase(char16_t unit) noexcept {
    return foldCaseTable()[unit];
}

std::u16string foldedCase(std::u16string_view text) {
    std::u16string folded(text);
    const char16_t* const table = foldCaseTable();
    for (char16_t& unit : folded)
        unit = table[unit];
    return folded;
}

bool matchesPattern(std::u16string_view name, std::u16string_view pattern) noexcept {
    if (pattern == u"*.*")
        return true;
    std::size_t inName = 0;
    std::size_t inPattern = 0;
    std::size_t afterStar = std::u16string_view::npos; // in the pattern, after the last "*" so far
    std::size_t starEnd = 0;                           // in the name, the end of what that "*" matches
    while (inName < name.size()) {
        if (inPattern < pattern.size() && pattern[inPattern] == u'*') {
            afterStar = ++inPattern;
            starEnd = inName;
        } else if (inPattern < pattern.size() &&
                   (pattern[inPattern] == u'?' || foldCase(pattern[inPattern]) == foldCase(name[inName]))) {
            ++inName;
            ++inPattern;
        } else if (afterStar != std::u16string_view::npos) {
            inName = ++starEnd;
            inPattern = afterStar;
        } else {
            return false;
        }
    }
    while (inPattern < pattern.size() && pattern[inPattern] == u'*')
        ++inPattern;
    return inPattern == pattern.size();
}

} // namespace brindlewick
