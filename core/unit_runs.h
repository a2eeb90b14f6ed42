// What single code units mean in JSON text, and how far a run of units without a meaning extends, sixteen at
// a time.
#pragma once

#include "core/unit_block.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace brindlewick {

/// The meanings of a code unit below 128, as bits. Units from 128 on only have `escaped`.
enum UnitKind : std::uint8_t {
    ignorable = 1, ///< a blank, a line end, a parenthesis, or the beginning of a comment
    inNumber = 2,  ///< may be part of a number
    escaped = 4,   ///< is written as an escape
    inKey = 8,     ///< has a meaning inside a key
};

consteval std::array<std::uint8_t, 128> makeUnitKinds() {
    std::array<std::uint8_t, 128> kinds{};
    const auto mark = [&kinds](std::u16string_view units, std::uint8_t kind) {
        for (const char16_t unit : units)
            kinds[unit] |= kind;
    };
    for (std::size_t control = 0; control < 32; ++control)
        kinds[control] |= escaped;
    mark(u"\"\\/\x7F", escaped);
    mark(u"\r\n\t ()/*", ignorable);
    mark(u"+-0123456789.eE", inNumber);
    mark(u"\"':\r\n\t ", inKey);
    return kinds;
}

inline constexpr std::array<std::uint8_t, 128> unitKinds = makeUnitKinds();

inline bool isKind(std::uint8_t kind, char16_t unit) noexcept {
    return unit < 128 && (unitKinds[unit] & kind) != 0;
}

inline bool isDigit(char16_t unit) noexcept {
    return unit >= u'0' && unit <= u'9';
}

inline bool isBlank(char16_t unit) noexcept {
    return unit == u' ' || unit == u'\n' || unit == u'\r' || unit == u'\t';
}

/// The units that end a run inside a key in double quotes.
struct KeyStops {
    static UnitBlock::Answer in(const UnitBlock& block) {
        return block.belowOrHigh(u' ' + 1) | block.equal('"') | block.equal('\'') | block.equal(':');
    }
    static bool is(char16_t unit) {
        return unit <= u' ' || unit > 127 || unit == u'"' || unit == u'\'' || unit == u':';
    }
};

/// The units that end a run inside a string in `quote`s: those that need an escape, and the quote.
template <char16_t quote>
struct StringStops {
    static UnitBlock::Answer in(const UnitBlock& block) {
        const UnitBlock::Answer stops = block.belowOrHigh(u' ') | block.equal(0x7F) | block.equal('"') |
                                        block.equal('\\') | block.equal('/');
        return quote == u'"' ? stops : stops | block.equal(quote);
    }
    static bool is(char16_t unit) { return unit > 127 || isKind(escaped, unit) || unit == quote; }
};

/// Where the run from `from` ends: at the first unit that stops it, or at `end`.
template <class Stops>
const char16_t* runEnd(const char16_t* from, const char16_t* end) {
    for (; static_cast<std::size_t>(end - from) >= blockLength; from += blockLength)
        if (const unsigned stops = Stops::in(UnitBlock(from)).bits(); stops != 0)
            return from + firstOf(stops);
    while (from < end && !Stops::is(*from))
        ++from;
    return from;
}

/// Skips up to a block of blanks (U+0020) at `line`. A whole block must be readable there.
inline const char16_t* pastIndentation(const char16_t* line) {
    const unsigned others = ~UnitBlock(line).equal(' ').bits();
    return line + std::min(firstOf(others), blockLength);
}

/// Called by pastIgnorable.
const char16_t* pastIgnorableRun(const char16_t* from, const char16_t* end);

/// Skips blanks, line ends, parentheses and comments. A lone "/" or "*" outside a comment counts as a blank,
/// and a "*" and a later "/" close a block comment even with other units between them. Both are odd, and
/// kept.
inline const char16_t* pastIgnorable(const char16_t* from, const char16_t* end) {
    return from < end && isKind(ignorable, *from) ? pastIgnorableRun(from, end) : from;
}

} // namespace brindlewick
