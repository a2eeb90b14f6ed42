#include "core/key_index.h"

#include <random>

namespace brindlewick {

std::size_t hashOfKey(std::u16string_view key) noexcept {
    static const std::uint64_t seed = (std::uint64_t{std::random_device{}()} << 32) | std::random_device{}();
    std::uint64_t hash = seed;
    for (const char16_t unit : key) {
        hash = (hash ^ unit) * 0x9E3779B97F4A7C15U; // 2^64 divided by the golden ratio
        hash ^= hash >> 32;
    }
    return static_cast<std::size_t>(hash);
}

} // namespace brindlewick
