// A reusable buffer that a line is written into without a check per code unit.
#pragma once

#include "platform/failure.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string_view>

namespace brindlewick {

/// Room is made first, for as many code units as may follow; then they are put without looking.
class LineBuffer {
public:
    /// Makes room for `count` more code units. Fails with outOfMemory beyond a line of `longestText`.
    void makeRoom(std::size_t count) {
        if (capacity_ - length_ < count)
            grow(count);
    }
    void put(char16_t unit) noexcept { units_[length_++] = unit; }
    void put(std::u16string_view text) noexcept {
        std::copy(text.begin(), text.end(), units_.get() + length_);
        length_ += text.size();
    }

    std::size_t length() const noexcept { return length_; }
    std::u16string_view view() const noexcept { return {units_.get(), length_}; }
    void cutTo(std::size_t length) noexcept { length_ = length; }

private:
    void grow(std::size_t count) {
        // What is asked for is an upper bound: a line is too long only when what was put is.
        if (length_ > longestText)
            throw Failure(FailureNumber::outOfMemory);
        const std::size_t capacity = std::max(capacity_ * 2, length_ + count + 1024);
        auto units = std::make_unique_for_overwrite<char16_t[]>(capacity);
        std::copy_n(units_.get(), length_, units.get());
        units_ = std::move(units);
        capacity_ = capacity;
    }

    std::unique_ptr<char16_t[]> units_;
    std::size_t length_ = 0;
    std::size_t capacity_ = 0;
};

} // namespace brindlewick
