// Windows-1252 uses tables. UTF-8 is decoded in blocks of ASCII, and character by character between them.
#include "platform/text_encoding.h"

#include "platform/text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace brindlewick {

namespace {

constexpr std::size_t firstSpecial = 0x80; // only bytes 80 to 9F differ from their code units
constexpr std::array<char16_t, 32> specials = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

consteval std::array<char16_t, 256> makeTable() {
    std::array<char16_t, 256> table{};
    for (std::size_t byte = 0; byte < table.size(); ++byte)
        table[byte] = static_cast<char16_t>(byte);
    for (std::size_t at = 0; at < specials.size(); ++at)
        table[firstSpecial + at] = specials[at];
    return table;
}

constexpr char16_t replacement = u'\uFFFD';
/// "?" for the units that Windows-1252 lacks, with marks above the byte so that these units can be counted.
constexpr std::uint16_t noByte = '?' + 0x100;
constexpr std::uint16_t noByteLowSurrogate = '?' + 0x1000;

using ByteTable = std::array<std::uint16_t, 65536>;

/// The byte of every code unit, perhaps with a mark.
const ByteTable& byteTable() noexcept {
    static const ByteTable table = [] {
        ByteTable bytes;
        bytes.fill(noByte);
        std::fill(bytes.begin() + 0xDC00, bytes.begin() + 0xE000, noByteLowSurrogate);
        for (std::size_t byte = 0; byte < 256; ++byte)
            bytes[windows1252ToUtf16[byte]] = static_cast<std::uint16_t>(byte);
        return bytes;
    }();
    return table;
}

/// What the first byte of a UTF-8 sequence says about the rest.
struct Sequence {
    std::size_t continuationBytes;
    /// The range of the second byte, which excludes overlong forms, surrogates and values above U+10FFFF.
    unsigned char secondFrom;
    unsigned char secondTo;
    std::uint32_t firstBits;
};

bool sequenceOf(unsigned char first, Sequence& sequence) {
    if (first >= 0xC2 && first <= 0xDF)
        sequence = {1, 0x80, 0xBF, first & 0x1FU};
    else if (first >= 0xE0 && first <= 0xEF)
        sequence = {2, static_cast<unsigned char>(first == 0xE0 ? 0xA0 : 0x80),
                    static_cast<unsigned char>(first == 0xED ? 0x9F : 0xBF), first & 0x0FU};
    else if (first >= 0xF0 && first <= 0xF4)
        sequence = {3, static_cast<unsigned char>(first == 0xF0 ? 0x90 : 0x80),
                    static_cast<unsigned char>(first == 0xF4 ? 0x8F : 0xBF), first & 0x07U};
    else
        return false;
    return true;
}

constexpr std::size_t blockLength = 16; // bytes

bool isAsciiBlock(const char* bytes) {
    std::uint64_t words[2];
    std::memcpy(words, bytes, sizeof words);
    return ((words[0] | words[1]) & 0x8080808080808080U) == 0;
}

/// Copies each byte of a block to one code unit.
void widenBlock(const char* bytes, char16_t* target) {
    unsigned char block[blockLength]; // a copy, which cannot overlap the target
    std::memcpy(block, bytes, sizeof block);
    for (std::size_t at = 0; at < blockLength; ++at)
        target[at] = block[at];
}

constexpr std::size_t unitBlockLength = 8; // code units

bool isAsciiBlock(const char16_t* text) {
    std::uint64_t words[2];
    static_assert(sizeof words == unitBlockLength * sizeof *text);
    std::memcpy(words, text, sizeof words);
    return ((words[0] | words[1]) & 0xFF80FF80FF80FF80U) == 0;
}

/// Copies each code unit of a block to one byte.
void narrowBlock(const char16_t* text, char* target) {
    char block[unitBlockLength]; // a copy, which cannot overlap the text
    for (std::size_t at = 0; at < unitBlockLength; ++at)
        block[at] = static_cast<char>(text[at]);
    std::memcpy(target, block, sizeof block);
}

std::size_t countPairs(std::u16string_view text) {
    std::size_t pairs = 0;
    for (std::size_t at = 1; at < text.size(); ++at)
        pairs += isHighSurrogate(text[at - 1]) && isLowSurrogate(text[at]) ? 1 : 0;
    return pairs;
}

/// Decodes ASCII up to the first other byte; returns its length.
std::size_t decodeAscii(std::string_view bytes, char16_t* target) {
    std::size_t at = 0;
    for (; at + blockLength <= bytes.size() && isAsciiBlock(bytes.data() + at); at += blockLength)
        widenBlock(bytes.data() + at, target + at);
    for (; at < bytes.size() && static_cast<unsigned char>(bytes[at]) < 0x80; ++at)
        target[at] = static_cast<unsigned char>(bytes[at]);
    return at;
}

/// Decodes one character or one maximal ill-formed subpart and advances `target`; returns the length in
/// bytes.
std::size_t decodeOne(std::string_view bytes, char16_t*& target) {
    Sequence sequence{};
    if (!sequenceOf(static_cast<unsigned char>(bytes[0]), sequence)) {
        *target++ = replacement;
        return 1;
    }
    std::uint32_t codePoint = sequence.firstBits;
    for (std::size_t at = 1; at <= sequence.continuationBytes; ++at) {
        const unsigned char from = at == 1 ? sequence.secondFrom : 0x80;
        const unsigned char to = at == 1 ? sequence.secondTo : 0xBF;
        const auto byte =
            at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : static_cast<unsigned char>(0);
        if (byte < from || byte > to) {
            *target++ = replacement;
            return at;
        }
        codePoint = (codePoint << 6) | (byte & 0x3FU);
    }
    if (codePoint >= 0x10000) {
        *target++ = static_cast<char16_t>(0xD7C0 + (codePoint >> 10));
        *target++ = static_cast<char16_t>(0xDC00 + (codePoint & 0x3FF));
    } else {
        *target++ = static_cast<char16_t>(codePoint);
    }
    return sequence.continuationBytes + 1;
}

} // namespace

constinit const std::array<char16_t, 256> windows1252ToUtf16 = makeTable();

void decodeWindows1252(std::string_view bytes, char16_t* target) {
    std::size_t at = 0;
    for (; at + blockLength <= bytes.size(); at += blockLength) {
        if (isAsciiBlock(bytes.data() + at)) {
            widenBlock(bytes.data() + at, target + at);
            continue;
        }
        for (std::size_t one = at; one < at + blockLength; ++one)
            target[one] = windows1252ToUtf16[static_cast<unsigned char>(bytes[one])];
    }
    for (; at < bytes.size(); ++at)
        target[at] = windows1252ToUtf16[static_cast<unsigned char>(bytes[at])];
}

void appendFromWindows1252(std::string_view bytes, std::u16string& text) {
    const std::size_t start = text.size();
    text.resize(start + bytes.size());
    decodeWindows1252(bytes, text.data() + start);
}

std::size_t appendAsWindows1252(std::u16string_view text, std::string& bytes) {
    const ByteTable& table = byteTable();
    const std::size_t start = bytes.size();
    bytes.resize(start + text.size());
    char* const target = bytes.data() + start;
    std::size_t replaced = 0;
    std::size_t lowSurrogates = 0;
    for (std::size_t at = 0; at < text.size();) {
        // The last block overlaps the one before it.
        const std::size_t end = std::min(at + unitBlockLength, text.size());
        const std::size_t block = end - std::min(end, unitBlockLength);
        if (end - block == unitBlockLength && isAsciiBlock(text.data() + block)) {
            narrowBlock(text.data() + block, target + block);
            at = end;
            continue;
        }
        unsigned marks = 0; // a hexadecimal digit for each mark
        const auto encode = [&](std::size_t count) {
            for (std::size_t unit = at; unit < at + count; ++unit) {
                const unsigned entry = table[text[unit]];
                target[unit] = static_cast<char>(entry);
                marks += entry >> 8;
            }
        };
        if (end - at == unitBlockLength) // a constant, so that the loop is unrolled
            encode(unitBlockLength);
        else
            encode(end - at);
        at = end;
        replaced += marks & 15;
        lowSurrogates += marks >> 4;
    }
    return lowSurrogates == 0 ? replaced : replaced + lowSurrogates - countPairs(text);
}

char windows1252Byte(char16_t unit) noexcept {
    return static_cast<char>(byteTable()[unit]);
}

std::size_t decodeUtf8(std::string_view bytes, char16_t* target) {
    const char16_t* const start = target;
    while (!bytes.empty()) {
        const std::size_t ascii = decodeAscii(bytes, target);
        target += ascii;
        bytes.remove_prefix(ascii);
        while (!bytes.empty() && static_cast<unsigned char>(bytes[0]) >= 0x80)
            bytes.remove_prefix(decodeOne(bytes, target));
    }
    return static_cast<std::size_t>(target - start);
}

void appendFromUtf8(std::string_view bytes, std::u16string& text) {
    const std::size_t start = text.size();
    text.resize(start + bytes.size());
    text.resize(start + decodeUtf8(bytes, text.data() + start));
}

std::string toUtf8(std::u16string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    const auto put = [&bytes](std::uint32_t byte) { bytes.push_back(static_cast<char>(byte)); };
    for (std::size_t at = 0; at < text.size(); ++at) {
        std::uint32_t codePoint = text[at];
        if (isHighSurrogate(text[at]) && at + 1 < text.size() && isLowSurrogate(text[at + 1]))
            codePoint = 0x10000 + ((codePoint - 0xD800) << 10) + (text[++at] - 0xDC00U);
        else if (isHighSurrogate(text[at]) || isLowSurrogate(text[at]))
            codePoint = replacement;
        if (codePoint < 0x80) {
            put(codePoint);
        } else if (codePoint < 0x800) {
            put(0xC0 | (codePoint >> 6));
            put(0x80 | (codePoint & 0x3F));
        } else {
            if (codePoint >= 0x10000) {
                put(0xF0 | (codePoint >> 18));
                put(0x80 | ((codePoint >> 12) & 0x3F));
            } else {
                put(0xE0 | (codePoint >> 12));
            }
            put(0x80 | ((codePoint >> 6) & 0x3F));
            put(0x80 | (codePoint & 0x3F));
        }
    }
    return bytes;
}

std::u16string fromUtf8(std::string_view bytes) {
    std::u16string text;
    appendFromUtf8(bytes, text);
    return text;
}

} // namespace brindlewick
