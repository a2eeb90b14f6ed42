// Checks whether a key is new among many in constant time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace brindlewick {

/// Seeded at random in every process, so that nobody can make a file whose keys all collide.
std::size_t hashOfKey(std::u16string_view key) noexcept;

/// An open-addressed set of key numbers (0, 1, 2, ... in the order of adding). The owner stores the keys and
/// returns them by number. A few keys are compared one by one.
class KeyIndex {
public:
    /// Adds the key with the number `count`. False, without a change, if one of the `count` keys before is
    /// equal. `keyAt(number)` returns a key that was added before. Constant time on average.
    template <class KeyAt>
    bool add(std::u16string_view key, std::size_t count, const KeyAt& keyAt) {
        if (count < fewKeys) {
            for (std::size_t number = 0; number < count; ++number)
                if (keyAt(number) == key)
                    return false;
            return true;
        }
        if (slots_.size() <= count * 2) {
            slots_.assign(count * 4, 0);
            for (std::size_t number = 0; number < count; ++number)
                slots_[slotFor(keyAt(number), keyAt)] = static_cast<std::uint32_t>(number + 1);
        }
        std::uint32_t& slot = slots_[slotFor(key, keyAt)];
        if (slot != 0)
            return false;
        slot = static_cast<std::uint32_t>(count + 1);
        return true;
    }

private:
    static constexpr std::size_t fewKeys = 8;

    /// The slot of an equal key, or the free one where the key belongs.
    template <class KeyAt>
    std::size_t slotFor(std::u16string_view key, const KeyAt& keyAt) const {
        std::size_t slot = hashOfKey(key) % slots_.size();
        while (slots_[slot] != 0 && keyAt(slots_[slot] - 1) != key)
            slot = slot + 1 == slots_.size() ? 0 : slot + 1;
        return slot;
    }

    std::vector<std::uint32_t> slots_; ///< number plus 1, or 0
};

} // namespace brindlewick
