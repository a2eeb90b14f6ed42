#include "core/json_value.h"

#include <algorithm>
#include <random>

namespace brindlewick {

namespace {

constexpr std::size_t fewMembers = 8; // are compared one by one

/// Seeded anew in every process, so that no file can be made whose keys all collide.
std::size_t hashOf(std::u16string_view key) {
    static const std::uint64_t seed = (std::uint64_t{std::random_device{}()} << 32) | std::random_device{}();
    std::uint64_t hash = seed;
    for (const char16_t unit : key) {
        hash = (hash ^ unit) * 0x9E3779B97F4A7C15U; // 2^64 divided by the golden ratio
        hash ^= hash >> 32;
    }
    return static_cast<std::size_t>(hash);
}

} // namespace

bool JsonObject::add(std::u16string key, JsonValue value) {
    if (contains(key))
        return false;
    members_.push_back({std::move(key), std::move(value)});
    if (members_.size() <= fewMembers)
        return true;
    if (members_.size() * 2 > index_.size())
        growIndex();
    else
        enter(members_.size() - 1);
    return true;
}

bool JsonObject::contains(std::u16string_view key) const {
    if (index_.empty())
        return std::any_of(members_.begin(), members_.end(),
                           [key](const Member& member) { return member.key == key; });
    const std::size_t mask = index_.size() - 1;
    for (std::size_t slot = hashOf(key) & mask; index_[slot] != 0; slot = (slot + 1) & mask)
        if (members_[index_[slot] - 1].key == key)
            return true;
    return false;
}

void JsonObject::enter(std::size_t member) {
    const std::size_t mask = index_.size() - 1;
    std::size_t slot = hashOf(members_[member].key) & mask;
    while (index_[slot] != 0)
        slot = (slot + 1) & mask;
    index_[slot] = static_cast<std::uint32_t>(member + 1);
}

/// Keeps the index a power of two at most half full.
void JsonObject::growIndex() {
    index_.assign(std::max(index_.size() * 2, fewMembers * 4), 0);
    for (std::size_t member = 0; member < members_.size(); ++member)
        enter(member);
}

} // namespace brindlewick
