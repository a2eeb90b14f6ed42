#include "core/line_syntax.h"

namespace brindlewick::line_syntax {

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

} // namespace brindlewick::line_syntax
