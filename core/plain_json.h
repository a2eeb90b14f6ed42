// JSON that is written just as it is read, which most is: found, and copied, without a look at its parts.
#pragma once

#include "core/unit_buffer.h"

#include <cstddef>
#include <cstring>
#include <string_view>

namespace brindlewick {

/// True when the word is at `text`, where as many units can be read.
inline bool startsWithWord(const char16_t* text, std::u16string_view word) noexcept {
    return std::memcmp(text, word.data(), word.size() * sizeof(char16_t)) == 0;
}

/// The length of a number at `from` that is written just as it is read: no "+", exponent, leading zero, bare
/// point or signed zero, and few enough digits to need no rounding. 0 for any other, and for one that `end`
/// cuts off.
std::size_t plainNumberLength(const char16_t* from, const char16_t* end);

/// How much of an object has been taken.
enum class PlainMember {
    none,
    key,         ///< up to its first value: `{"key":`
    wholeObject, ///< its first member, and where it ended
};

/// Takes an object's beginning, or all of it, where its first member has a plain key and a plain, short
/// value: appends it to `line` and moves `at` past it. Most objects end after such a member, and so do most
/// fragments; taking one in a single pass over its units makes records a third faster than the grammar alone.
/// What it takes, the grammar would read alike.
PlainMember readPlainMember(const char16_t*& at, const char16_t* end, UnitBuffer& line);

} // namespace brindlewick
