#include "app/qt_text.h"

#include "platform/text.h"

namespace brindlewick {

QString displayText(std::u16string_view text) {
    constexpr std::size_t maxLength = 500; // code units: wider than any screen
    std::u16string shown(text.substr(0, maxLength));
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
