#include "core/plain_json.h"

#include "core/unit_block.h"
#include "core/unit_runs.h"

#include <algorithm>

namespace brindlewick {

namespace {

/// The length of a plain value without quotes or brackets; 0 for any other. At least as many units as "false"
/// has must be readable at `from`.
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

std::size_t plainNumberLength(const char16_t* from, const char16_t* end) {
    constexpr std::ptrdiff_t maxLength = 28;
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
    if (at == end || isKind(inNumber, *at) || at - from > maxLength)
        return 0;
    return static_cast<std::size_t>(at - from);
}

PlainMember readPlainMember(const char16_t*& at, const char16_t* end, UnitBuffer& line) {
    constexpr std::ptrdiff_t maxLength = 480;          // code units of the member's text
    constexpr std::ptrdiff_t margin = 2 * blockLength; // readable past any place up to `limit`
    if (end - at < maxLength / 4)
        return PlainMember::none;
    const char16_t* from = at;
    const char16_t* const limit = from + std::min(end - at - margin, maxLength);
    line.makeRoom(maxLength + 2 * margin);
    char16_t* to = line.end();
    const auto skipBlanks = [&from, limit] {
        while (*from <= u' ' && from < limit && isBlank(*from))
            from = *from == u'\n' ? pastIndentation(from + 1) : from + 1;
    };
    // Copies up to the first unit that stops a run; false when that is too far.
    const auto copyRun = [&from, &to, limit](const auto& stopsIn) {
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
    ++from; // any unit
    skipBlanks();
    if (*from == u'{') { // at a "," that starts a fragment, a brace after it is part of the key
        *to++ = *from++;
        skipBlanks();
    }
    if (*from++ != u'"' || !copyRun(KeyStops::in) || from[0] != u'"' || from[1] != u':')
        return PlainMember::none;
    from += 2;
    *to++ = u'"';
    *to++ = u':';
    skipBlanks();
    const char16_t* const value = from;
    const auto lengthBeforeValue = static_cast<std::size_t>(to - line.end());

    bool isRead = false;
    if (*from == u'"') {
        *to++ = *from++;
        isRead = copyRun(StringStops<u'"'>::in) && *from == u'"';
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
            at = from + (c == u'}' ? 1 : 0);
            *to++ = u'}';
            line.advance(static_cast<std::size_t>(to - line.end()));
            return PlainMember::wholeObject;
        }
    }
    at = value;
    line.advance(lengthBeforeValue);
    return PlainMember::key;
}

} // namespace brindlewick
