#include "platform/error_report.h"

#include "platform/text.h"

#include <new>
#include <stdexcept>

namespace brindlewick {

namespace {

/// The number for the exception that is being handled.
FailureNumber currentFailure() noexcept {
    try {
        throw;
    } catch (const Failure& failure) {
        return failure.number();
    } catch (const std::bad_alloc&) {
        return FailureNumber::outOfMemory;
    } catch (const std::length_error&) {
        return FailureNumber::outOfMemory;
    } catch (...) {
        return FailureNumber::invalidProcedureCall;
    }
}

} // namespace

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
