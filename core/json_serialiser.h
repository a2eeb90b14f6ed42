// Writes JSON values back as one normalised line, the text that tags are matched against.
#pragma once

#include "core/json_value.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace brindlewick {

class cStringBuilder;

/// The value on one line: no blanks between its parts, members in order of insertion, keys unchanged, string
/// values in printable ASCII, numbers in positional form with "." as the decimal separator. An empty value is
/// written as nothing. Fails with outOfMemory for a line longer than `maxTextLength`.
std::u16string serialize(const JsonValue& value);

/// The text as it is written between quotes: a backslash before `"` `\` `/` and for the five control
/// characters with a short escape; all else outside U+0020 to U+007E as \uXXXX in upper-case hexadecimal,
/// each surrogate by itself.
std::u16string encodeString(std::u16string_view text);

/// An array of one or more dimensions with explicit bounds, as a scripting host may pass; the reader never
/// makes one. Elements are in row order.
struct NativeArray {
    struct Bounds {
        std::int32_t lower = 0;
        std::int32_t upper = -1;
    };
    std::vector<Bounds> dimensions;
    std::vector<JsonValue> elements;
};

/// Writes the array from the given dimension (from 1) on; a caller passes dimension 1 and two empty texts.
/// The digits of an element's indexes, joined by commas, are used as a single index. So only elements of
/// one-dimensional arrays with an index of one digit are found; for others only the comma is written. This is
/// kept.
std::u16string serializeNativeArray(const NativeArray& array, std::int32_t dimension,
                                    std::u16string_view indexText, std::u16string& path);

} // namespace brindlewick
