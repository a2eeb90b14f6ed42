#include "extract/tag_search.h"

#include "core/unit_block.h"
#include "platform/letter_case.h"

#include <algorithm>

namespace brindlewick {

namespace {

// Code units of a tag that are compared. The limit bounds the cost of a tag that nearly occurs everywhere.
constexpr std::size_t maxBeginning = 16;

std::uint8_t narrowed(std::size_t unit) {
    return static_cast<std::uint8_t>(unit >= 0x8000 ? 0 : std::min<std::size_t>(unit, 0xFF));
}

template <std::size_t count>
UnitBlock::Answer anyOf(const UnitBlock& block, const std::array<std::uint8_t, 3>& forms) {
    const UnitBlock::Answer two = block.equal(forms[0]) | block.equal(forms[1]);
    return count == 2 ? two : two | block.equal(forms[2]);
}

} // namespace

std::optional<TagSearch> TagSearch::of(std::u16string_view tag) {
    TagSearch search;
    search.beginning_ = foldedCase(tag.substr(0, maxBeginning));
    search.secondAt_ = tag.size() > 1 ? 1 : 0;
    search.isExact_ = tag.size() <= maxBeginning;
    const std::optional<Forms> first = formsOf(search.beginning_[0]);
    const std::optional<Forms> second = formsOf(search.beginning_[search.secondAt_]);
    if (!first || !second)
        return std::nullopt;
    search.first_ = *first;
    search.second_ = *second;
    return search;
}

std::optional<TagSearch::Forms> TagSearch::formsOf(char16_t folded) {
    const char16_t* const fold = foldCaseTable();
    Forms forms{};
    std::size_t count = 0;
    for (std::size_t unit = 0; unit < 65536; ++unit) {
        if (fold[unit] != folded)
            continue;
        const std::uint8_t form = narrowed(unit);
        if (std::find(forms.begin(), forms.begin() + count, form) != forms.begin() + count)
            continue;
        if (count == forms.size())
            return std::nullopt;
        forms[count++] = form;
    }
    std::fill(forms.begin() + count, forms.end(), forms[0]);
    return forms;
}

bool TagSearch::mayStandAt(std::u16string_view text, std::size_t at) const {
    if (text.size() - at < beginning_.size())
        return false;
    const char16_t* const fold = foldCaseTable();
    return std::equal(beginning_.begin(), beginning_.end(), text.begin() + at,
                      [fold](char16_t tagUnit, char16_t unit) { return tagUnit == fold[unit]; });
}

void TagSearch::appendCandidates(const LineBatch& batch, std::vector<std::uint32_t>& lines) const {
    // Most letters have two forms.
    if (first_[2] == first_[0] && second_[2] == second_[0])
        search<2>(batch, lines);
    else
        search<3>(batch, lines);
}

template <std::size_t formCount>
void TagSearch::search(const LineBatch& batch, std::vector<std::uint32_t>& lines) const {
    const std::u16string_view text = batch.text;
    // Copies, so that the compiler keeps the repeated bytes in registers.
    const Forms first = first_;
    const Forms second = second_;
    const std::size_t secondAt = secondAt_;
    std::size_t line = 0;
    std::size_t at = 0;
    // True if the tag may be at `place`, within one line. Appends the line and moves past it.
    const auto noteLine = [&](std::size_t place) {
        if (!mayStandAt(text, place))
            return false;
        while (batch.ends[line] <= place)
            ++line;
        if (place + beginning_.size() > batch.ends[line])
            return false;
        lines.push_back(static_cast<std::uint32_t>(line));
        at = batch.ends[line];
        return true;
    };
    while (at + secondAt + blockLength <= text.size()) {
        unsigned places = (anyOf<formCount>(UnitBlock(&text[at]), first) &
                           anyOf<formCount>(UnitBlock(&text[at + secondAt]), second))
                              .bits();
        bool isNoted = false;
        for (; places != 0 && !isNoted; places &= places - 1)
            isNoted = noteLine(at + firstOf(places));
        if (!isNoted)
            at += blockLength;
    }
    while (at < text.size())
        if (!noteLine(at))
            ++at;
}

} // namespace brindlewick
