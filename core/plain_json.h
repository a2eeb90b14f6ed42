// A shortcut for plain JSON, which needs no change in the line and is copied as it is. Most JSON is plain.
#pragma once

#include "core/unit_buffer.h"

#include <cstddef>
#include <cstring>
#include <string_view>

namespace brindlewick {

/// True when `text` starts with the word. As many units as the word has must be readable.
inline bool startsWithWord(const char16_t* text, std::u16string_view word) noexcept {
    return std::memcmp(text, word.data(), word.size() * sizeof(char16_t)) == 0;
}

/// The length of a plain number at `from`: one without "+", exponent, leading zero, bare point or signed
/// zero, and with few enough digits to need no rounding. 0 for any other, and for one that reaches `end`.
std::size_t plainNumberLength(const char16_t* from, const char16_t* end);

/// How much of an object has been read.
enum class PlainMember {
    none,
    key,         ///< up to its first value: `{"key":`
    wholeObject, ///< its first member, and the end of the object
};

/// Reads an object's beginning, or all of it, if its first member has a plain key and a plain, short value:
/// appends it to `line` and moves `at` past it. The result is the same as the grammar's. Most fragments are
/// one such member; reading it in a single pass makes records a third faster than the grammar alone.
PlainMember readPlainMember(const char16_t*& at, const char16_t* end, UnitBuffer& line);

} // namespace brindlewick
