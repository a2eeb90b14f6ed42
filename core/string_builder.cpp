#include "core/string_builder.h"

#include "core/decimal_number.h"
#include "platform/failure.h"
#include "platform/letter_case.h"
#include "platform/text.h"

#include <algorithm>
#include <limits>

namespace brindlewick {

namespace {

constexpr std::int64_t maxCount = std::numeric_limits<std::int32_t>::max();

std::int32_t checkedCount(std::int64_t count) {
    if (count > maxCount || count < -maxCount - 1)
        throw Failure(FailureNumber::overflow);
    return static_cast<std::int32_t>(count);
}

std::int64_t byteLength(std::u16string_view text) {
    return static_cast<std::int64_t>(text.size()) * 2;
}

/// The 1-based position of `wanted` in `text` from the 1-based `start`; 0 when it does not occur or the start
/// is beyond the end.
std::int64_t positionOf(std::u16string_view wanted, std::u16string_view text, std::int64_t start) {
    if (start > static_cast<std::int64_t>(text.size()))
        return 0;
    const std::size_t found = text.find(wanted, static_cast<std::size_t>(start - 1));
    return found == std::u16string_view::npos ? 0 : static_cast<std::int64_t>(found) + 1;
}

} // namespace

void cStringBuilder::setChunkSize(std::int32_t iChunkSize) {
    chunkSize_ = checkedCount(std::int64_t{iChunkSize} * bytesPerUnit);
}

void cStringBuilder::TheString(std::u16string_view sThis) {
    if (sThis.empty()) {
        Clear();
        return;
    }
    const std::int32_t needed = checkedCount(byteLength(sThis));
    const std::int32_t capacity = grownTo(needed);
    content_.assign(sThis);
    capacity_ = capacity;
    used_ = needed;
}

void cStringBuilder::Clear() noexcept {
    content_.clear();
    content_.shrink_to_fit();
    used_ = 0;
    capacity_ = 0;
}

void cStringBuilder::Append(std::u16string_view sThis) {
    const std::int32_t needed = usedWith(sThis);
    const std::int32_t capacity = grownTo(needed);
    content_.append(sThis);
    capacity_ = capacity;
    used_ = needed;
}

void cStringBuilder::AppendNL(std::u16string_view sThis) {
    Append(sThis);
    Append(u"\r\n");
}

void cStringBuilder::Insert(std::int32_t iIndex, std::u16string_view sThis) {
    if (iIndex < 0 || iIndex > Length())
        throw Failure(FailureNumber::subscriptOutOfRange);
    const std::int32_t needed = usedWith(sThis);
    const std::int32_t capacity = grownTo(needed);
    content_.insert(static_cast<std::size_t>(iIndex), sThis);
    capacity_ = capacity;
    used_ = needed;
}

void cStringBuilder::Remove(std::int32_t iIndex, std::int32_t lLen) {
    if (iIndex < 0 || lLen < 0 || std::int64_t{iIndex} + lLen > Length())
        throw Failure(FailureNumber::subscriptOutOfRange);
    content_.erase(static_cast<std::size_t>(iIndex), static_cast<std::size_t>(lLen));
    used_ -= lLen * bytesPerUnit;
}

std::int32_t cStringBuilder::Find(std::u16string_view sToFind, std::int32_t lStartIndex,
                                  TextComparison compare) const {
    std::u16string text;
    std::u16string wanted;
    std::int64_t start = lStartIndex;
    if (lStartIndex >= 1) {
        // A hit begins inside the content, so only as much of the tail matters as the wanted text is long.
        const auto tail = static_cast<std::size_t>(Capacity() - Length());
        text = content_ + std::u16string(std::min(tail, sToFind.size()), u' ');
        wanted = sToFind;
    } else {
        start = decimalAsInteger(trimmedBlanks(content_));
        if (start < 1)
            throw Failure(FailureNumber::invalidProcedureCall);
        text = sToFind;
        wanted = compare == TextComparison::text ? u"1" : u"0";
    }
    if (lStartIndex >= 1 && compare == TextComparison::text) {
        text = foldedCase(text);
        wanted = foldedCase(wanted);
    }
    const std::int64_t position = positionOf(wanted, text, start);
    return position < Length() ? static_cast<std::int32_t>(position) : 0;
}

void cStringBuilder::HeapMinimize() noexcept {
    if (chunkSize_ <= 0 || capacity_ - used_ <= chunkSize_)
        return;
    const std::int32_t chunksTooMany = (capacity_ - used_ - 1) / chunkSize_;
    capacity_ -= chunksTooMany * chunkSize_;
    content_.shrink_to_fit();
}

std::int32_t cStringBuilder::usedWith(std::u16string_view sThis) const {
    return checkedCount(used_ + byteLength(sThis));
}

std::int32_t cStringBuilder::grownTo(std::int32_t needed) const {
    if (needed <= capacity_)
        return capacity_;
    if (chunkSize_ < bytesPerUnit)
        throw Failure(FailureNumber::outOfMemory);
    const std::int64_t missing = std::int64_t{needed} - capacity_;
    const std::int64_t chunks = (missing + chunkSize_ - 1) / chunkSize_;
    return checkedCount(capacity_ + chunks * chunkSize_);
}

} // namespace brindlewick
