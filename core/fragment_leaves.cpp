// What the fast reader's values and keys are made of: strings, numbers, words, names.
#include "core/fragment_line_reader.h"

#include "core/decimal_number.h"
#include "core/line_syntax.h"
#include "core/unit_block.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace brindlewick {

namespace {

using namespace line_syntax;

unsigned hexadecimalValue(std::u16string_view digits) {
    unsigned value = 0;
    for (const char16_t unit : digits) {
        const char16_t lower = unit | 0x20;
        if (isDigit(unit))
            value = value * 16 + (unit - u'0');
        else if (lower >= u'a' && lower <= u'f' && unit < 128)
            value = value * 16 + (lower - u'a' + 10U);
        else
            break;
    }
    return value;
}

} // namespace

template <char16_t quote>
void FragmentLineReader::readString() {
    ++at_;
    lines_.makeRoom(2);
    lines_.put(u'"');
    const std::size_t start = lines_.length();
    for (;;) {
        if (isMeasuring_)
            lines_.cutTo(start);
        unsigned stops = 0;
        while (stops == 0 && hasBlock(at_)) {
            const UnitBlock block(&text_[at_]);
            lines_.makeRoom(blockLength);
            block.storeTo(lines_.end());
            stops = stopsInString<quote>(block).bits();
            const std::size_t plain = stops == 0 ? blockLength : firstOf(stops);
            lines_.advance(plain);
            at_ += plain;
        }
        if (stops == 0) { // near the text's end
            for (; at_ < text_.size() && isPlain(text_[at_]); ++at_) {
                lines_.makeRoom(1);
                lines_.put(text_[at_]);
            }
            if (atEnd())
                break;
        }
        const char16_t c = text_[at_];
        ++at_;
        if (c == quote)
            break;
        if (c == u'\\')
            readEscape();
        else
            putEncoded(c);
        // Text beyond ASCII: one unit that needs care follows another.
        for (; !isMeasuring_ && at_ < text_.size() && text_[at_] >= 128; ++at_)
            putEncoded(text_[at_]);
    }
    lines_.makeRoom(1);
    lines_.put(u'"');
}

template void FragmentLineReader::readString<u'"'>();
template void FragmentLineReader::readString<u'\''>();

void FragmentLineReader::readEscape() {
    static constexpr std::u16string_view letters = u"\"\\/'bfnrt";
    static constexpr std::u16string_view meanings = u"\"\\/'\b\f\n\r\t";
    const char16_t letter = unit();
    if (const std::size_t known = letters.find(letter); known != std::u16string_view::npos) {
        putEncoded(meanings[known]);
        ++at_;
    } else if (letter == u'u') {
        ++at_;
        putEncoded(static_cast<char16_t>(hexadecimalValue(text_.substr(std::min(at_, text_.size()), 4))));
        at_ = std::min(at_ + 4, text_.size());
    }
}

void FragmentLineReader::putEncoded(char16_t unit) {
    static constexpr std::u16string_view units = u"\"\\/\b\f\n\r\t";
    static constexpr std::u16string_view letters = u"\"\\/bfnrt";
    static constexpr char16_t hexadecimal[] = u"0123456789ABCDEF";
    lines_.makeRoom(6);
    if (unit < 128 && !is(escaped, unit)) {
        lines_.put(unit);
        return;
    }
    lines_.put(u'\\');
    if (unit < 128) {
        if (const std::size_t known = units.find(unit); known != std::u16string_view::npos) {
            lines_.put(letters[known]);
            return;
        }
    }
    lines_.put(u'u');
    for (int shift = 12; shift >= 0; shift -= 4)
        lines_.put(hexadecimal[(unit >> shift) & 15]);
}

bool FragmentLineReader::readNumber() {
    const std::size_t start = at_;
    if (const std::size_t length =
            plainNumberLength(text_.data() + std::min(at_, text_.size()), text_.data() + text_.size());
        length > 0) {
        lines_.makeRoom(length);
        lines_.put(text_.substr(at_, length));
        at_ += length;
        return true;
    }
    while (at_ < text_.size() && is(inNumber, text_[at_]))
        ++at_;
    if (atEnd())
        return true;
    const std::u16string_view run = text_.substr(start, at_ - start);
    if (run.empty())
        return false;
    const DecimalReading reading = readDecimal(run);
    if (reading.failure)
        return false;
    std::u16string digits;
    appendDecimal(reading.number, digits);
    lines_.makeRoom(digits.size());
    lines_.put(digits);
    return true;
}

/// Reads the key that most have: in double quotes, of ASCII without blanks or other quotes, the colon right
/// behind it. False, with nothing done, for any other.
bool FragmentLineReader::readPlainKey() {
    if (unit() != u'"')
        return false;
    const std::size_t keyStart = lines_.length();
    for (std::size_t at = at_ + 1; hasBlock(at);) {
        const UnitBlock block(&text_[at]);
        lines_.makeRoom(blockLength);
        block.storeTo(lines_.end());
        const unsigned stops = stopsInKey(block).bits();
        if (stops != 0) {
            at += firstOf(stops);
            lines_.advance(firstOf(stops));
            if (text_[at] != u'"' || at + 1 == text_.size() || text_[at + 1] != u':')
                break;
            at_ = at + 2;
            return true;
        }
        lines_.advance(blockLength);
        at += blockLength;
    }
    lines_.cutTo(keyStart);
    return false;
}

void FragmentLineReader::readKey() {
    bool inDouble = false;
    bool inSingle = false;
    while (at_ < text_.size()) {
        const std::size_t runStart = at_;
        while (at_ < text_.size() && !is(inKey, text_[at_]))
            ++at_;
        lines_.makeRoom(at_ - runStart + 1);
        lines_.put(text_.substr(runStart, at_ - runStart));
        if (atEnd())
            return;
        const char16_t c = text_[at_];
        ++at_;
        if (c == u':') {
            if (!inDouble && !inSingle)
                return;
            lines_.put(c);
        } else if (c == u'"' || c == u'\'') {
            bool& inQuotes = c == u'"' ? inDouble : inSingle;
            inQuotes = !inQuotes;
            if (!inQuotes) {
                skipIgnorable();
                if (unit() != u':')
                    return;
            }
        }
    }
}

} // namespace brindlewick
