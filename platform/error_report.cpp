#include "platform/error_report.h"

#include "platform/text.h"

namespace brindlewick {

void ReportApplicationError(UserInterface& user, std::u16string_view location,
                            std::u16string_view description, std::uint_least32_t line) {
    std::u16string text(description);
    text.append(u"\r\n").append(location).append(u"at line ").append(decimalText(line));
    text.append(u"\r\rPlease email screenshot of this message to ").append(supportAddress);
    user.showApplicationError(text);
}

void Guard::report(FailureNumber number, std::uint_least32_t line) const noexcept {
    try {
        std::u16string location = u"in ";
        location.append(program_).append(u".").append(routine_).append(u" ");
        ReportApplicationError(user_, location, descriptionOf(number), line);
    } catch (...) {
        // The report itself failed, most likely for want of memory. All that is left is to go on.
    }
}

void Guard::reportCurrentException(std::uint_least32_t line) const noexcept {
    report(currentFailure(), line);
}

} // namespace brindlewick
