// The report that every routine makes of a run-time failure, and the guard that makes it.
#pragma once

#include "platform/failure.h"
#include "platform/user_interface.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace brindlewick {

inline constexpr std::u16string_view supportAddress = u"support@brindlewick.example";

/// The report's text: description, CR LF, the routine's location text, "at line " and the source line in
/// decimal, two CRs, and where to send it.
std::u16string applicationErrorText(std::u16string_view location, std::u16string_view description,
                                    std::uint_least32_t line);

/// Builds the report's text and shows it. The one place where a failure reaches the user.
void ReportApplicationError(UserInterface& user, std::u16string_view location,
                            std::u16string_view description, std::uint_least32_t line);

/// Runs the steps of one routine. A step that fails is reported under the routine's location text and the
/// source line at which the step stands; the routine then goes on with its next step.
///
///     Guard guard(user, u"in Corvane2021/08/31.Form1.PushButton3_Click ");
///     guard([&] { answer = user.askText(prompt, u""); });
///     guard([&] { tags.append(answer); });
class Guard {
public:
    /// `location` must outlive the guard; it is the routine's literal and ends in one blank.
    Guard(UserInterface& user, std::u16string_view location) noexcept : user_(user), location_(location) {}

    /// True when the step ended without a failure. No exception leaves the guard: an exhausted memory
    /// is outOfMemory, any other foreign exception invalidProcedureCall. `line` is left to its
    /// default, the line of the call (std::source_location is missing from Clang 14).
    template <class Step>
    bool operator()(Step&& step, std::uint_least32_t line = __builtin_LINE()) const {
        try {
            std::forward<Step>(step)();
            return true;
        } catch (...) {
            reportCurrentException(line);
            return false;
        }
    }

private:
    void reportCurrentException(std::uint_least32_t line) const noexcept;

    UserInterface& user_;
    std::u16string_view location_;
};

} // namespace brindlewick
