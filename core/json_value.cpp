#include "core/json_value.h"

namespace brindlewick {

bool JsonObject::add(std::u16string key, JsonValue value) {
    const auto keyAt = [this](std::size_t number) -> std::u16string_view { return members_[number].key; };
    if (!index_.add(key, members_.size(), keyAt))
        return false;
    members_.push_back({std::move(key), std::move(value)});
    return true;
}

} // namespace brindlewick
