#include "app/display_text.h"

#include "app/qt_text.h"
#include "platform/text.h"

namespace brindlewick {

namespace {

constexpr std::size_t shownLength = 500; // code units; more than the widest screen has room for

} // namespace

QString displayText(std::u16string_view text) {
    std::u16string shown(text.substr(0, shownLength));
    for (char16_t& unit : shown)
        if (unit < 32 || unit == 127)
            unit = u' ';
    if (shown.size() < text.size()) {
        if (isHighSurrogate(shown.back())) // the pair was cut
            shown.pop_back();
        shown += u"\u2026";
    }
    return toQString(shown);
}

} // namespace brindlewick
