// The values that the lenient JSON reader makes: a tagged value, ordered objects and arrays.
#pragma once

#include "core/decimal_number.h"
#include "core/key_index.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace brindlewick {

class JsonObject;
class JsonArray;

/// The maximum nesting of objects and arrays. It bounds the stack that reading, writing and destroying take.
inline constexpr int maxNesting = 1024;

struct JsonNull {};

/// Empty (std::monostate), null, boolean, number, text, object or array. Objects and arrays are shared by
/// reference.
using JsonValue = std::variant<std::monostate, JsonNull, bool, DecimalNumber, std::u16string,
                               std::shared_ptr<JsonObject>, std::shared_ptr<JsonArray>>;

/// An ordered map with unique keys, compared code unit by code unit; members keep the order of adding.
class JsonObject {
public:
    struct Member {
        std::u16string key;
        JsonValue value;
    };

    JsonObject() = default;
    JsonObject(const JsonObject&) = delete;
    JsonObject& operator=(const JsonObject&) = delete;

    /// False, without a change, when the key exists. Constant time on average, whatever the number of
    /// members.
    bool add(std::u16string key, JsonValue value);
    const std::vector<Member>& members() const noexcept { return members_; }

private:
    std::vector<Member> members_;
    KeyIndex index_;
};

/// An ordered list of values.
class JsonArray {
public:
    JsonArray() = default;
    JsonArray(const JsonArray&) = delete;
    JsonArray& operator=(const JsonArray&) = delete;

    void append(JsonValue value) { elements_.push_back(std::move(value)); }
    const std::vector<JsonValue>& elements() const noexcept { return elements_; }

private:
    std::vector<JsonValue> elements_;
};

} // namespace brindlewick
