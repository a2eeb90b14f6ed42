#include "core/fragment_line_reader.h"

#include "core/decimal_number.h"
#include "core/json_parser.h"
#include "core/json_value.h"

#include <array>
#include <string>

namespace brindlewick {

namespace {

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

constexpr std::array<std::uint8_t, 128> kinds = makeKinds();

bool is(std::uint8_t kind, char16_t unit) {
    return unit < 128 && (kinds[unit] & kind) != 0;
}

/// Written as it is in a string's text, whichever quote encloses it.
bool isPlain(char16_t unit) {
    return unit < 128 && (kinds[unit] & (escaped | special)) == 0;
}

bool isDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

/// True for a number that is written just as it stands: no "+", exponent, leading zero, bare point or signed
/// zero, and few enough digits to need no rounding.
bool isWrittenAsItStands(std::u16string_view run) {
    constexpr std::size_t digitsThatAlwaysFit = 28;
    const bool isNegative = run.starts_with(u'-');
    run.remove_prefix(isNegative ? 1 : 0);
    if (run.empty() || run.size() > digitsThatAlwaysFit || !isDigit(run[0]) || !isDigit(run.back()))
        return false;
    if (run[0] == u'0' && run.size() > 1 && run[1] != u'.')
        return false;
    int points = 0;
    bool isZero = true;
    for (const char16_t unit : run) {
        if (unit == u'.')
            ++points;
        else if (!isDigit(unit))
            return false;
        else
            isZero = isZero && unit == u'0';
    }
    return points <= 1 && !(isNegative && isZero);
}

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

bool FragmentLineReader::next(std::u16string_view text, std::int32_t& position) {
    text_ = text;
    at_ = position < 1 ? 0 : static_cast<std::size_t>(position - 1);
    nesting_ = 1;
    line_.cutTo(0);
    keys_.clear();
    const std::int32_t start = position;
    bool isTooLong = false;
    try {
        skipIgnorable();
        const bool isLeft = at_ + 1 < text_.size();
        if (isLeft && unit() == u'[')
            readArray();
        else if (isLeft)
            readObject();
        position = static_cast<std::int32_t>(at_ + 1);
        isTooLong = line_.length() > longestText;
        if (!isLeft)
            return false;
    } catch (const Failure&) {
        position = start;
        JsonParser().parse(text, position); // knows where the fragment ends, however long its line
        isTooLong = true;
    }
    if (isTooLong)
        throw Failure(FailureNumber::outOfMemory);
    return true;
}

void FragmentLineReader::skipIgnorable() {
    while (at_ < text_.size() && is(ignorable, text_[at_])) {
        if (text_[at_] == u'/' || text_[at_] == u'*') {
            skipComments();
            return;
        }
        ++at_;
    }
}

/// From a "/" or "*" on: see JsonParser::skipIgnorable. The blanks before it have changed nothing there.
void FragmentLineReader::skipComments() {
    bool slashSeen = false;
    bool inComment = false;
    bool inBlockComment = false;
    for (; at_ < text_.size(); ++at_) {
        switch (text_[at_]) {
        case u'\r':
        case u'\n':
            if (!inBlockComment)
                slashSeen = inComment = false;
            break;
        case u'\t':
        case u' ':
        case u'(':
        case u')':
            break;
        case u'/':
            if (!inBlockComment) {
                inComment = slashSeen;
                slashSeen = !slashSeen;
            } else if (slashSeen) {
                slashSeen = inComment = inBlockComment = false;
            }
            break;
        case u'*':
            if (slashSeen)
                inComment = inBlockComment = true;
            slashSeen = !slashSeen;
            break;
        default:
            if (!inComment)
                return;
        }
    }
}

void FragmentLineReader::readObject() {
    const std::size_t firstKey = keys_.size();
    KeyIndex index;
    skipIgnorable();
    ++at_;
    line_.makeRoom(2);
    line_.put(u'{');
    for (;;) {
        skipIgnorable();
        const char16_t c = unit();
        if (c == u'}')
            ++at_;
        if (c == u'}' || c == u',' || c == u'[' || atEnd())
            break;

        const std::size_t memberStart = line_.length();
        line_.makeRoom(4);
        if (keys_.size() > firstKey)
            line_.put(u',');
        line_.put(u'"');
        const std::size_t keyStart = line_.length();
        readKey();
        const Key key{keyStart, line_.length() - keyStart};
        line_.makeRoom(2);
        line_.put(u"\":");
        const auto keyAt = [&](std::size_t number) {
            const Key& one = keys_[firstKey + number];
            return line_.view().substr(one.start, one.length);
        };
        if (!readValue() ||
            !index.add(line_.view().substr(key.start, key.length), keys_.size() - firstKey, keyAt)) {
            line_.cutTo(memberStart);
            break;
        }
        keys_.push_back(key);
    }
    keys_.resize(firstKey);
    line_.makeRoom(1);
    line_.put(u'}');
}

void FragmentLineReader::readArray() {
    ++at_;
    line_.makeRoom(2);
    line_.put(u'[');
    bool isFirst = true;
    std::size_t lastStart = text_.size();
    for (;;) {
        skipIgnorable();
        const char16_t c = unit();
        if (c == u']') {
            ++at_;
            break;
        }
        if (c == u',') {
            ++at_;
            skipIgnorable();
        } else if (atEnd()) {
            break;
        }
        if (at_ == lastStart && !atEnd())
            break;
        lastStart = at_;
        const std::size_t elementStart = line_.length();
        line_.makeRoom(2);
        if (!isFirst)
            line_.put(u',');
        if (!readValue()) {
            line_.cutTo(elementStart);
            break;
        }
        isFirst = false;
    }
    line_.makeRoom(1);
    line_.put(u']');
}

/// False when the value cannot be had; what was written of it is then the caller's to cut off.
bool FragmentLineReader::readValue() {
    skipIgnorable();
    switch (unit()) {
    case u'{':
    case u'[':
        if (nesting_ == deepestNesting)
            return false;
        ++nesting_;
        if (unit() == u'{')
            readObject();
        else
            readArray();
        --nesting_;
        return true;
    case u'"':
    case u'\'':
        readString();
        return true;
    case u't':
    case u'f':
        if (!readWord(u"true") && !readWord(u"false")) {
            line_.makeRoom(5);
            line_.put(u"false");
        }
        return true;
    case u'n':
        readWord(u"null");
        return true;
    default:
        return readNumber();
    }
}

bool FragmentLineReader::readWord(std::u16string_view word) {
    if (text_.substr(at_, word.size()) != word)
        return false;
    at_ += word.size();
    line_.makeRoom(word.size());
    line_.put(word);
    return true;
}

void FragmentLineReader::readString() {
    const char16_t quote = unit();
    ++at_;
    line_.makeRoom(2);
    line_.put(u'"');
    for (;;) {
        const std::size_t runStart = at_;
        while (at_ < text_.size() && isPlain(text_[at_]))
            ++at_;
        line_.makeRoom(at_ - runStart + 8);
        line_.put(text_.substr(runStart, at_ - runStart));
        if (atEnd())
            break;
        const char16_t c = text_[at_];
        ++at_;
        if (c == quote)
            break;
        if (c == u'\\')
            readEscape();
        else
            putEncoded(c);
    }
    line_.makeRoom(1);
    line_.put(u'"');
}

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
    static constexpr std::u16string_view hexadecimal = u"0123456789ABCDEF";
    line_.makeRoom(6);
    if (unit < 128 && !is(escaped, unit)) {
        line_.put(unit);
        return;
    }
    line_.put(u'\\');
    if (const std::size_t known = units.find(unit); known != std::u16string_view::npos) {
        line_.put(letters[known]);
        return;
    }
    line_.put(u'u');
    for (int shift = 12; shift >= 0; shift -= 4)
        line_.put(hexadecimal[(unit >> shift) & 15]);
}

bool FragmentLineReader::readNumber() {
    const std::size_t start = at_;
    while (at_ < text_.size() && is(inNumber, text_[at_]))
        ++at_;
    if (atEnd())
        return true;
    const std::u16string_view run = text_.substr(start, at_ - start);
    if (run.empty())
        return false;
    if (isWrittenAsItStands(run)) {
        line_.makeRoom(run.size());
        line_.put(run);
        return true;
    }
    const DecimalReading reading = readDecimal(run);
    if (reading.failure)
        return false;
    std::u16string digits;
    appendDecimal(reading.number, digits);
    line_.makeRoom(digits.size());
    line_.put(digits);
    return true;
}

void FragmentLineReader::readKey() {
    bool inDouble = false;
    bool inSingle = false;
    while (at_ < text_.size()) {
        const std::size_t runStart = at_;
        while (at_ < text_.size() && !is(inKey, text_[at_]))
            ++at_;
        line_.makeRoom(at_ - runStart + 1);
        line_.put(text_.substr(runStart, at_ - runStart));
        if (atEnd())
            return;
        const char16_t c = text_[at_];
        ++at_;
        if (c == u':') {
            if (!inDouble && !inSingle)
                return;
            line_.put(c);
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
