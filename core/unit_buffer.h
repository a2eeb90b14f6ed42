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

/// makeRoom comes first, for as many code units as may follow; `put` does not check. Memory after the last
/// unit is not initialised.
class UnitBuffer {
public:
    /// More than any memory.
    static constexpr std::size_t unlimited = std::numeric_limits<std::size_t>::max() / 8;

    /// No more room is made once there are more than `maxLength` code units.
    explicit UnitBuffer(std::size_t maxLength) noexcept : maxLength_(maxLength) {}

    /// Makes room for `count` more code units. Fails with outOfMemory when the buffer is too long.
    void makeRoom(std::size_t count) {
        if (capacity_ - length_ < count) [[unlikely]]
            grow(count);
    }
    void put(char16_t unit) noexcept { units_[length_++] = unit; }
    void put(std::u16string_view text) noexcept {
        std::copy(text.begin(), text.end(), end());
        length_ += text.size();
    }
    /// Where the next code unit goes. A caller that writes there then calls `advance`.
    char16_t* end() noexcept { return units_.get() + length_; }
    void advance(std::size_t count) noexcept { length_ += count; }

    std::size_t length() const noexcept { return length_; }
    std::u16string_view view() const noexcept { return {units_.get(), length_}; }
    void cutTo(std::size_t length) noexcept { length_ = length; }
    void dropFront(std::size_t count) noexcept {
        std::copy(units_.get() + count, units_.get() + length_, units_.get());
        length_ -= count;
    }

    /// Frees the memory after the last unit.
    void dropRoom() {
        if (length_ > 0)
            resize(length_);
    }

private:
    void grow(std::size_t count) {
        // `count` is an upper bound, so only the units that were put decide.
        if (length_ > maxLength_)
            throw Failure(FailureNumber::outOfMemory);
        resize(std::max(std::min(capacity_ * 2, maxLength_), length_ + count + 1024));
    }

    void resize(std::size_t capacity) {
        // realloc, because the system moves large blocks without copying them.
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
    std::size_t maxLength_;
};

} // namespace brindlewick
