// The fast reader's shortest way: an object's first member with a plain key and a plain value.
#include "core/fragment_line_reader.h"
#include "core/line_syntax.h"
#include "core/unit_block.h"

#include <algorithm>

namespace brindlewick {

namespace {

using namespace line_syntax;

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

} // namespace

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

} // namespace brindlewick
