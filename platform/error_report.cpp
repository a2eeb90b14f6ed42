// Turns whatever ended a step into the one report that the user sees.
#include "platform/error_report.h"

#include <new>
#include <stdexcept>
#include <string>

namespace brindlewick {

namespace {

/// What the exception being handled means to the user.
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

std::u16string applicationErrorText(std::u16string_view location, std::u16string_view description,
                                    std::uint_least32_t line) {
    const std::string digits = std::to_string(line);
    std::u16string text(description);
    text.append(u"\r\n").append(location).append(u"at line ").append(digits.begin(), digits.end());
    text.append(u"\r\rPlease email screenshot of this message to ").append(supportAddress);
    return text;
}

void ReportApplicationError(UserInterface& user, std::u16string_view location,
                            std::u16string_view description, std::uint_least32_t line) {
    user.showApplicationError(applicationErrorText(location, description, line));
}

void Guard::reportCurrentException(std::uint_least32_t line) const noexcept {
    const FailureNumber failure = currentFailure();
    try {
        ReportApplicationError(user_, location_, descriptionOf(failure), line);
    } catch (...) {
        // Nobody is left to tell: without memory for a message box, going on is all that can be done.
    }
}

} // namespace brindlewick
