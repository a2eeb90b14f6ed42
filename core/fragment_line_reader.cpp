#include "core/fragment_line_reader.h"

#include "core/json_value.h"
#include "core/line_syntax.h"
#include "core/unit_block.h"

#include <algorithm>
#include <cstring>

namespace brindlewick {

namespace {

using namespace line_syntax;

// Nothing that is read looks farther ahead than the letters of "false" or the digits of an escape.
constexpr std::size_t farthestLook = 8;
// Lines that share the buffer with one that may have longestText units.
constexpr std::size_t longestBatchBefore = std::size_t{1} << 20;

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

void FragmentLineReader::skipIgnorable() {
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

} // namespace brindlewick
