#include "app/display_text.h"

#include "app/qt_text.h"

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
        const bool isCutInPair = shown.back() >= 0xD800 && shown.back() <= 0xDBFF;
        if (isCutInPair)
            shown.pop_back();
        shown += u"\u2026";
    }
    return toQString(shown);
}

} // namespace brindlewick
