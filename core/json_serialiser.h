// Writes JSON values back as one normalised line, the text that tags are matched against.
#pragma once

#include "core/json_value.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace brindlewick {

class cStringBuilder;

/// The value on one line: no blanks between its parts, members in order of insertion, keys as they stand,
/// string values in printable ASCII, numbers in plain positional form with "." as the decimal separator.
/// An empty value is written as nothing. Fails with outOfMemory for a line longer than `maxTextLength`.
std::u16string serialize(const JsonValue& value);

/// The text as it stands between the quotes: `"` `\` `/` and the five short control characters after a
/// backslash, everything else outside U+0020 to U+007E as \uXXXX in upper-case hexadecimal, surrogates one by
/// one.
std::u16string encodeString(std::u16string_view text);

/// An array of one or more dimensions with bounds of its own, as a scripting host may hand over; the reader
/// never makes one. Elements are held in row order.
struct NativeArray {
    struct Bounds {
        std::int32_t lower = 0;
        std::int32_t upper = -1;
    };
    std::vector<Bounds> dimensions;
    std::vector<JsonValue> elements;
};

/// Writes the array from the given dimension (from 1) on; a caller starts with dimension 1 and two empty
/// texts. An element is looked up by its index digits with commas between them, taken as one index, so only
/// one-dimensional indexes of a single digit are found; the others leave their comma alone behind.
std::u16string serializeNativeArray(const NativeArray& array, std::int32_t dimension,
                                    std::u16string_view indexText, std::u16string& path);

} // namespace brindlewick
