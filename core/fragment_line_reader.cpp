#include "core/fragment_line_reader.h"

#include "core/decimal_number.h"
#include "core/json_value.h"
#include "core/unit_block.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string>

namespace brindlewick {

namespace {

// Nothing that is read looks farther ahead than the letters of "false" or the digits of an escape.
constexpr std::size_t farthestLook = 8;
// Lines that share the buffer with one that may have longestText units.
constexpr std::size_t longestBatchBefore = std::size_t{1} << 20;

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

/// The length of a number at `from` that is written just as it stands: no "+", exponent, leading zero, bare
/// point or signed zero, and few enough digits to need no rounding. 0 for any other, and for one at the end.
std::size_t plainNumberLength(const char16_t* from, const char16_t* end) {
    constexpr std::ptrdiff_t longest = 28;
    const auto pastDigits = [end](const char16_t* at) {
        while (at < end && isDigit(*at))
            ++at;
        return at;
    };
    const bool isNegative = from < end && *from == u'-';
    const char16_t* const whole = from + (isNegative ? 1 : 0);
    const char16_t* at = pastDigits(whole);
    if (at == whole || (*whole == u'0' && (at > whole + 1 || isNegative)))
        return 0;
    if (at < end && *at == u'.') {
        const char16_t* const fraction = at + 1;
        at = pastDigits(fraction);
        if (at == fraction)
            return 0;
    }
    if (at == end || is(inNumber, *at) || at - from > longest)
        return 0;
    return static_cast<std::size_t>(at - from);
}

template <std::size_t size>
bool startsWithWord(const char16_t* text, const char16_t (&word)[size]) {
    return std::memcmp(text, word, (size - 1) * sizeof(char16_t)) == 0; // without the end of the literal
}

/// The length of a value without quotes or brackets that is written just as it stands; 0 for any other. As
/// many units as "false" has can be looked at.
std::size_t plainValueLength(const char16_t* from, const char16_t* end) {
    switch (*from) {
    case u't':
        return startsWithWord(from, u"true") ? 4 : 0;
    case u'f':
        return startsWithWord(from, u"false") ? 5 : 0;
    case u'n':
        return startsWithWord(from, u"null") ? 4 : 0;
    default:
        return plainNumberLength(from, end);
    }
}

bool isBlank(char16_t unit) {
    return unit == u' ' || unit == u'\n' || unit == u'\r' || unit == u'\t';
}

/// From the first unit of a line past blanks; a block can be read there.
const char16_t* pastIndentation(const char16_t* line) {
    const unsigned others = ~UnitBlock(line).equal(' ').bits();
    return line + std::min(firstOf(others), blockLength);
}

/// Where a run of the units ends that a key in double quotes takes as they are.
UnitBlock::Answer stopsInKey(const UnitBlock& block) {
    return block.belowOrHigh(u' ' + 1) | block.equal('"') | block.equal('\'') | block.equal(':');
}

/// Where a run of the units ends that a string writes as they are.
template <char16_t quote>
UnitBlock::Answer stopsInString(const UnitBlock& block) {
    const UnitBlock::Answer stops =
        block.belowOrHigh(u' ') | block.equal(0x7F) | block.equal('"') | block.equal('\\') | block.equal('/');
    return quote == u'"' ? stops : stops | block.equal(quote);
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

FragmentLineReader::FragmentLineReader(std::size_t longestLine)
    : lines_(longestLine + std::min(16 * longestLine, longestBatchBefore)), longestLine_(longestLine) {}

void FragmentLineReader::startBatch() noexcept {
    lines_.cutTo(0);
    lineStart_ = 0;
    ends_.clear();
}

FragmentReading FragmentLineReader::next(std::u16string_view text, std::int32_t& position, bool isWhole) {
    return readBatch(text, position, isWhole, 0);
}

FragmentReading FragmentLineReader::readBatch(std::u16string_view text, std::int32_t& position, bool isWhole,
                                              std::size_t batchLength) {
    if (lines_.length() > longestBatchBefore)
        startBatch();
    nesting_ = 1; // a failure may have left these anywhere
    isMeasuring_ = false;
    keys_.clear();
    text_ = text;
    at_ = position < 1 ? 0 : static_cast<std::size_t>(position - 1);
    const auto isNearCut = [&] { return !isWhole && at_ + farthestLook > text.size(); };
    std::size_t start = at_;
    FragmentReading reading = FragmentReading::line;
    try {
        do {
            start = at_;
            lineStart_ = lines_.length();
            reading = readFragment();
            if (isNearCut())
                reading = FragmentReading::needsText;
            if (reading == FragmentReading::line)
                ends_.push_back(static_cast<std::uint32_t>(lines_.length()));
        } while (reading == FragmentReading::line && lines_.length() < batchLength);
    } catch (const Failure&) {
        // The same once more, without its line, to know where the fragment ends.
        isMeasuring_ = true;
        nesting_ = 1;
        keys_.clear();
        lines_.cutTo(lineStart_);
        at_ = start;
        readFragment();
        isMeasuring_ = false;
        reading = isNearCut() ? FragmentReading::needsText : FragmentReading::tooLong;
    }
    if (reading != FragmentReading::line)
        lines_.cutTo(lineStart_);
    position = static_cast<std::int32_t>((reading == FragmentReading::needsText ? start : at_) + 1);
    return reading;
}

inline FragmentReading FragmentLineReader::readFragment() {
    skipIgnorable();
    if (at_ + 1 >= text_.size())
        return FragmentReading::end;
    if (text_[at_] == u'[')
        readArray();
    else
        readObject();
    return lines_.length() - lineStart_ > longestLine_ ? FragmentReading::tooLong : FragmentReading::line;
}

inline void FragmentLineReader::countValue() {
    if (--valuesUntilPause_ > 0)
        return;
    valuesUntilPause_ = valuesBetweenPauses;
    if (pause_)
        pause_();
}

bool FragmentLineReader::hasBlock(std::size_t at) const noexcept {
    return at + blockLength <= text_.size();
}

inline void FragmentLineReader::skipIgnorable() {
    if (at_ < text_.size() && is(ignorable, text_[at_]))
        skipIgnorableRun();
}

void FragmentLineReader::skipIgnorableRun() {
    while (at_ < text_.size() && is(ignorable, text_[at_])) {
        const char16_t c = text_[at_];
        if (c == u'/' || c == u'*') {
            skipComments();
            return;
        }
        ++at_;
        // Where a line ends, an indented one may begin.
        while (c == u'\n' && hasBlock(at_)) {
            const unsigned others = ~UnitBlock(&text_[at_]).equal(' ').bits();
            at_ += std::min(firstOf(others), blockLength);
            if ((others & 0xFFFF) != 0)
                break;
        }
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

inline void FragmentLineReader::readObject() {
    const std::size_t objectStart = lines_.length();
    if (const FirstMember firstMember = readFirstMember(); firstMember != FirstMember::alone)
        readMembers(objectStart, firstMember);
}

void FragmentLineReader::readMembers(std::size_t objectStart, FirstMember firstMember) {
    const std::size_t firstKey = keys_.size();
    KeyIndex index;
    if (firstMember == FirstMember::unknown) {
        ++at_;
        lines_.makeRoom(2);
        lines_.put(u'{');
    }
    bool isKeyRead = firstMember == FirstMember::keyRead;
    for (;;) {
        std::size_t memberStart = objectStart + 1;
        if (!isKeyRead) {
            skipIgnorable();
            const char16_t c = unit();
            if (c == u'}')
                ++at_;
            if (c == u'}' || c == u',' || c == u'[' || atEnd())
                break;
            memberStart = lines_.length();
            lines_.makeRoom(4);
            if (keys_.size() > firstKey)
                lines_.put(u',');
            lines_.put(u'"');
            if (!readPlainKey())
                readKey();
            lines_.makeRoom(2);
            lines_.put(u"\":");
        }
        isKeyRead = false;
        const std::size_t keyStart = memberStart + (keys_.size() > firstKey ? 2 : 1);
        const Key key{keyStart, lines_.length() - 2 - keyStart};
        const auto keyAt = [&](std::size_t number) {
            const Key& one = keys_[firstKey + number];
            return lines_.view().substr(one.start, one.length);
        };
        if (!readValue() ||
            !index.add(lines_.view().substr(key.start, key.length), keys_.size() - firstKey, keyAt)) {
            lines_.cutTo(memberStart);
            break;
        }
        keys_.push_back(key);
        countValue();
        if (isMeasuring_)
            lines_.cutTo(key.start + key.length);
    }
    keys_.resize(firstKey);
    lines_.makeRoom(1);
    lines_.put(u'}');
}

/// Most objects, and so most fragments, end behind their first member, whose key and value are plain and
/// short. Such a one is read here without a look at the ends of the text and of the line. What is not plain
/// is left to the rest of the reader: the value alone, or the whole object.
FragmentLineReader::FirstMember FragmentLineReader::readFirstMember() {
    constexpr std::size_t longest = 480;            // code units of the member's text
    constexpr std::size_t margin = 2 * blockLength; // that can be looked at behind any place up to `limit`
    if (text_.size() - at_ < longest / 4)
        return FirstMember::unknown;
    const char16_t* from = text_.data() + at_;
    const char16_t* const limit = from + std::min(text_.size() - at_ - margin, longest);
    lines_.makeRoom(longest + 2 * margin);
    char16_t* to = lines_.end();
    const auto skipBlanks = [&from, limit] {
        while (*from <= u' ' && from < limit && isBlank(*from))
            from = *from == u'\n' ? pastIndentation(from + 1) : from + 1;
    };
    // Copies up to the first unit that `stopsIn` finds; false when that is too far.
    const auto copyTo = [&from, &to, limit](const auto& stopsIn) {
        while (from < limit) {
            const UnitBlock block(from);
            block.storeTo(to);
            const unsigned stops = stopsIn(block).bits();
            const std::size_t plain = stops == 0 ? blockLength : firstOf(stops);
            from += plain;
            to += plain;
            if (stops != 0)
                return true;
        }
        return false;
    };

    *to++ = u'{';
    *to++ = u'"';
    ++from; // whatever stands there
    skipBlanks();
    if (*from == u'{') { // an object that begins in a fragment of its own has its brace in the key
        *to++ = *from++;
        skipBlanks();
    }
    if (*from++ != u'"' || !copyTo([](const UnitBlock& block) { return stopsInKey(block); }) ||
        from[0] != u'"' || from[1] != u':')
        return FirstMember::unknown;
    from += 2;
    *to++ = u'"';
    *to++ = u':';
    skipBlanks();
    const char16_t* const value = from;
    const std::size_t lengthBeforeValue = static_cast<std::size_t>(to - lines_.end());

    bool isRead = false;
    if (*from == u'"') {
        *to++ = *from++;
        isRead = copyTo([](const UnitBlock& block) { return stopsInString<u'"'>(block); }) && *from == u'"';
        *to++ = *from++;
    } else if (const std::size_t length = plainValueLength(from, limit + margin); length > 0) {
        UnitBlock(from).storeTo(to);
        UnitBlock(from + blockLength).storeTo(to + blockLength);
        from += length;
        to += length;
        isRead = true;
    }
    if (isRead && from < limit) {
        skipBlanks();
        const char16_t c = *from;
        if (from < limit && (c == u'}' || c == u',' || c == u'[')) {
            from += c == u'}' ? 1 : 0;
            *to++ = u'}';
            lines_.advance(static_cast<std::size_t>(to - lines_.end()));
            at_ = static_cast<std::size_t>(from - text_.data());
            return FirstMember::alone;
        }
    }
    lines_.advance(lengthBeforeValue);
    at_ = static_cast<std::size_t>(value - text_.data());
    return FirstMember::keyRead;
}

void FragmentLineReader::readArray() {
    ++at_;
    lines_.makeRoom(2);
    lines_.put(u'[');
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
        const std::size_t elementStart = lines_.length();
        lines_.makeRoom(2);
        if (!isFirst)
            lines_.put(u',');
        if (!readValue()) {
            lines_.cutTo(elementStart);
            break;
        }
        isFirst = false;
        countValue();
        if (isMeasuring_)
            lines_.cutTo(elementStart);
    }
    lines_.makeRoom(1);
    lines_.put(u']');
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
        readString<u'"'>();
        return true;
    case u'\'':
        readString<u'\''>();
        return true;
    case u't':
    case u'f':
        if (!readWord(u"true") && !readWord(u"false")) {
            lines_.makeRoom(5);
            lines_.put(u"false");
        }
        return true;
    case u'n':
        readWord(u"null");
        return true;
    default:
        return readNumber();
    }
}

template <std::size_t size>
bool FragmentLineReader::readWord(const char16_t (&word)[size]) {
    constexpr std::size_t length = size - 1;
    if (text_.size() - at_ < length || !startsWithWord(&text_[at_], word))
        return false;
    at_ += length;
    lines_.makeRoom(length);
    std::memcpy(lines_.end(), word, length * sizeof(char16_t));
    lines_.advance(length);
    return true;
}

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
