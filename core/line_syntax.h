// What the code units of JSON text mean to the fast reader, one by one and sixteen at a time.
#pragma once

#include "core/unit_block.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace brindlewick::line_syntax {

// What a code unit below 128 may be; all above are none of these but `escaped`.
enum UnitKind : std::uint8_t {
    ignorable = 1, ///< ends or goes on in skipIgnorable
    inNumber = 2,  ///< may stand in a number
    escaped = 4,   ///< is not written as it is
    special = 8,   ///< means something inside a quoted string
    inKey = 16,    ///< means something inside a key
};

constexpr std::array<std::uint8_t, 128> makeKinds() {
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
    mark(u"\"'\\", special);
    mark(u"\"':\r\n\t ", inKey);
    return kinds;
}

inline constexpr std::array<std::uint8_t, 128> kinds = makeKinds();

inline bool is(std::uint8_t kind, char16_t unit) {
    return unit < 128 && (kinds[unit] & kind) != 0;
}

/// Written as it is in a string's text, whichever quote encloses it.
inline bool isPlain(char16_t unit) {
    return unit < 128 && (kinds[unit] & (escaped | special)) == 0;
}

inline bool isDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

template <std::size_t size>
bool startsWithWord(const char16_t* text, const char16_t (&word)[size]) {
    return std::memcmp(text, word, (size - 1) * sizeof(char16_t)) == 0; // without the end of the literal
}

inline bool isBlank(char16_t unit) {
    return unit == u' ' || unit == u'\n' || unit == u'\r' || unit == u'\t';
}

/// From the first unit of a line past blanks; a block can be read there.
inline const char16_t* pastIndentation(const char16_t* line) {
    const unsigned others = ~UnitBlock(line).equal(' ').bits();
    return line + std::min(firstOf(others), blockLength);
}

/// Where a run of the units ends that a key in double quotes takes as they are.
inline UnitBlock::Answer stopsInKey(const UnitBlock& block) {
    return block.belowOrHigh(u' ' + 1) | block.equal('"') | block.equal('\'') | block.equal(':');
}

/// Where a run of the units ends that a string writes as they are.
template <char16_t quote>
UnitBlock::Answer stopsInString(const UnitBlock& block) {
    const UnitBlock::Answer stops =
        block.belowOrHigh(u' ') | block.equal(0x7F) | block.equal('"') | block.equal('\\') | block.equal('/');
    return quote == u'"' ? stops : stops | block.equal(quote);
}

/// The length of a number at `from` that is written just as it stands: no "+", exponent, leading zero, bare
/// point or signed zero, and few enough digits to need no rounding. 0 for any other, and for one at the end.
std::size_t plainNumberLength(const char16_t* from, const char16_t* end);

} // namespace brindlewick::line_syntax
