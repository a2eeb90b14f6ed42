#include "core/unit_runs.h"

namespace brindlewick {

namespace {

/// Skips comments; at a "/" or "*".
const char16_t* pastComments(const char16_t* at, const char16_t* end) {
    bool slashSeen = false;
    bool inComment = false;
    bool inBlockComment = false;
    for (; at < end; ++at) {
        switch (*at) {
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
                return at;
        }
    }
    return at;
}

} // namespace

const char16_t* pastIgnorableRun(const char16_t* from, const char16_t* end) {
    while (from < end && isKind(ignorable, *from)) {
        const char16_t c = *from;
        if (c == u'/' || c == u'*')
            return pastComments(from, end);
        ++from;
        // An indented line often follows a line end.
        while (c == u'\n' && static_cast<std::size_t>(end - from) >= blockLength) {
            const char16_t* const line = from;
            from = pastIndentation(line);
            if (from != line + blockLength)
                break;
        }
    }
    return from;
}

} // namespace brindlewick
