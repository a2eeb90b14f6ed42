// A reusable buffer of code units that is written without a check per unit.
#pragma once

#include "platform/failure.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <memory>
#include <new>
#include <string_view>

namespace brindlewick {

/// Room is made first, for as many code units as may follow; then they are put without looking. What lies
/// behind the units put is never initialised.
class UnitBuffer {
public:
    /// Far beyond any memory.
    static constexpr std::size_t unlimited = std::numeric_limits<std::size_t>::max() / 8;

    /// Beyond `longest` code units no more room is made.
    explicit UnitBuffer(std::size_t longest) noexcept : longest_(longest) {}

    /// Makes room for `count` more code units. Fails with outOfMemory when the buffer is longer than it may
    /// be.
    void makeRoom(std::size_t count) {
        if (capacity_ - length_ < count) [[unlikely]]
            grow(count);
    }
    void put(char16_t unit) noexcept { units_[length_++] = unit; }
    void put(std::u16string_view text) noexcept {
        std::copy(text.begin(), text.end(), end());
        length_ += text.size();
    }
    /// Where the next code unit goes: who writes there says how many with `advance`.
    char16_t* end() noexcept { return units_.get() + length_; }
    void advance(std::size_t count) noexcept { length_ += count; }

    std::size_t length() const noexcept { return length_; }
    std::u16string_view view() const noexcept { return {units_.get(), length_}; }
    void cutTo(std::size_t length) noexcept { length_ = length; }
    void dropFront(std::size_t count) noexcept {
        std::copy(units_.get() + count, units_.get() + length_, units_.get());
        length_ -= count;
    }

private:
    void grow(std::size_t count) {
        // What is asked for is an upper bound, so only what was put can be too long.
        if (length_ > longest_)
            throw Failure(FailureNumber::outOfMemory);
        const std::size_t capacity = std::max(std::min(capacity_ * 2, longest_), length_ + count + 1024);
        // Not new memory and a copy: the system moves large blocks without touching them.
        void* const units = std::realloc(units_.get(), capacity * sizeof(char16_t));
        if (units == nullptr)
            throw std::bad_alloc();
        static_cast<void>(units_.release());
        units_.reset(static_cast<char16_t*>(units));
        capacity_ = capacity;
    }

    struct Free {
        void operator()(char16_t* units) const noexcept { std::free(units); }
    };

    std::unique_ptr<char16_t[], Free> units_;
    std::size_t length_ = 0;
    std::size_t capacity_ = 0;
    std::size_t longest_;
};

} // namespace brindlewick
