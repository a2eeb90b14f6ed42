#include "extract/row_finder.h"

#include "platform/letter_case.h"

#include <algorithm>
#include <bit>

namespace brindlewick {

namespace {

constexpr std::size_t rowWork = 16; // the cost of a row, in compared code units
constexpr std::size_t wordBits = 64;

std::vector<std::uint32_t> bordersOf(std::u16string_view text) {
    std::vector<std::uint32_t> borders(text.size());
    std::uint32_t border = 0;
    for (std::size_t at = 1; at < text.size(); ++at) {
        while (border > 0 && text[at] != text[border])
            border = borders[border - 1];
        border += text[at] == text[border];
        borders[at] = border;
    }
    return borders;
}

/// The bits from `begin` to `end`, not included, of the word that has the bits from `wordBegin` on.
constexpr std::uint64_t maskOf(std::size_t wordBegin, std::size_t begin, std::size_t end) {
    std::uint64_t mask = ~std::uint64_t{0};
    if (begin > wordBegin)
        mask &= ~std::uint64_t{0} << (begin - wordBegin);
    if (end < wordBegin + wordBits)
        mask &= ~(~std::uint64_t{0} << (end - wordBegin));
    return mask;
}

} // namespace

void RowFinder::start(std::u16string_view text, std::size_t firstRow) {
    hits_.clear();
    hitCount_ = 0;
    known_.clear();
    wanted_ = foldedCase(text);
    borders_ = bordersOf(wanted_);
    firstRow_ = below_ = std::min(firstRow, table_.rowCount());
    above_ = column_ = at_ = matched_ = 0;
    isAbove_ = false;
}

bool RowFinder::isDone() const noexcept {
    return wanted_.empty() || (below_ >= table_.rowCount() && above_ >= firstRow_);
}

void RowFinder::advance(std::size_t work) {
    known_.resize(table_.columns().size());
    while (work > 0 && !isDone()) {
        const bool isBetweenRows = column_ == 0 && at_ == 0;
        if (isBetweenRows)
            isAbove_ = below_ >= table_.rowCount();
        std::size_t& row = isAbove_ ? above_ : below_;
        if (!searchRow(row, work))
            return;
        column_ = at_ = matched_ = 0;
        ++row;
        work -= std::min(work, rowWork);
    }
}

bool RowFinder::searchRow(std::size_t row, std::size_t& work) {
    for (; column_ < known_.size(); ++column_) {
        KnownCell& known = known_[column_];
        const std::size_t file = table_.fileNumber(row);
        const std::u16string_view cell = table_.cell(row, column_);
        // The address alone does not suffice: a file's path may get the address of an earlier one.
        const bool isKnown =
            file == known.file && cell.data() == known.text.data() && cell.size() == known.text.size();
        if (!isKnown) {
            searchCell(cell, work);
            const bool isHit = matched_ == wanted_.size();
            if (!isHit && at_ < cell.size())
                return false;
            known = {file, cell, isHit};
            at_ = matched_ = 0;
        }
        if (known.isHit) {
            addHit(row);
            return true;
        }
    }
    return true;
}

void RowFinder::searchCell(std::u16string_view cell, std::size_t& work) {
    if (cell.size() < wanted_.size()) {
        at_ = cell.size();
        return;
    }
    const char16_t* const folded = foldCaseTable();
    const std::size_t begin = at_;
    const std::size_t end = at_ + std::min(work, cell.size() - at_);
    while (at_ < end && matched_ < wanted_.size()) {
        if (matched_ == 0) {
            while (at_ < end && folded[cell[at_]] != wanted_.front())
                ++at_;
            if (at_ == end)
                break;
        }
        const char16_t unit = folded[cell[at_++]];
        while (matched_ > 0 && unit != wanted_[matched_])
            matched_ = borders_[matched_ - 1];
        matched_ += unit == wanted_[matched_];
    }
    work -= at_ - begin;
}

void RowFinder::addHit(std::size_t row) {
    const std::size_t word = row / wordBits;
    if (word >= hits_.size())
        hits_.resize(word + 1);
    hits_[word] |= std::uint64_t{1} << row % wordBits;
    ++hitCount_;
}

bool RowFinder::isHit(std::size_t row) const noexcept {
    const std::size_t word = row / wordBits;
    return word < hits_.size() && (hits_[word] >> row % wordBits & 1) != 0;
}

std::size_t RowFinder::hitsBefore(std::size_t row) const noexcept {
    std::size_t count = 0;
    for (std::size_t word = 0; word < hits_.size() && word * wordBits < row; ++word)
        count += static_cast<std::size_t>(std::popcount(hits_[word] & maskOf(word * wordBits, 0, row)));
    return count;
}

std::optional<std::size_t> RowFinder::hitFrom(std::size_t row) const noexcept {
    const std::size_t end = table_.rowCount();
    // The rows from `firstRow_` on are searched in succession.
    if (const auto hit = firstHitIn(row, end); hit && (isDone() || row >= firstRow_))
        return hit;
    return isDone() ? firstHitIn(0, row) : std::nullopt;
}

std::optional<std::size_t> RowFinder::hitBefore(std::size_t row) const noexcept {
    if (const auto hit = lastHitIn(0, row); hit && (isDone() || (*hit >= firstRow_ && row <= below_)))
        return hit;
    return isDone() ? lastHitIn(row, table_.rowCount()) : std::nullopt;
}

std::optional<std::size_t> RowFinder::firstHitIn(std::size_t begin, std::size_t end) const noexcept {
    for (std::size_t word = begin / wordBits; word < hits_.size() && word * wordBits < end; ++word)
        if (const std::uint64_t bits = hits_[word] & maskOf(word * wordBits, begin, end); bits != 0)
            return word * wordBits + static_cast<std::size_t>(std::countr_zero(bits));
    return std::nullopt;
}

std::optional<std::size_t> RowFinder::lastHitIn(std::size_t begin, std::size_t end) const noexcept {
    for (std::size_t word = std::min(hits_.size(), (end + wordBits - 1) / wordBits);
         word-- > begin / wordBits;)
        if (const std::uint64_t bits = hits_[word] & maskOf(word * wordBits, begin, end); bits != 0)
            return word * wordBits + wordBits - 1 - static_cast<std::size_t>(std::countl_zero(bits));
    return std::nullopt;
}

} // namespace brindlewick
