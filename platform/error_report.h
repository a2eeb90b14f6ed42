// The report of a run-time failure, and the guard that every routine uses to make it.
#pragma once

#include "platform/failure.h"
#include "platform/user_interface.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace brindlewick {

inline constexpr std::u16string_view supportAddress = u"support@brindlewick.example";

/// The program's name in location texts.
inline constexpr std::u16string_view programInReports = u"Corvane2021/08/31";

/// Shows the report: `description`, CR LF, `location`, "at line " and the source line in decimal, two CRs,
/// and where to send it. `location` is the routine's location text, for example u"in
/// Corvane2021/08/31.Form1.PushButton3_Click ".
void ReportApplicationError(UserInterface& user, std::u16string_view location,
                            std::u16string_view description, std::uint_least32_t line);

/// Runs the steps of one routine. A step that fails is reported with the routine's name and the step's source
/// line; the routine then goes on with its next step.
///
///     Guard guard(user, u"Form1.PushButton3_Click");
///     guard([&] { answer = user.askText(prompt, u"", ProposedAnswer::isReplaced); });
///     guard([&] { tags.append(answer); });
class Guard {
public:
    /// `routine` is an object and its routine; both texts are literals, since the guard copies neither.
    Guard(UserInterface& user, std::u16string_view routine,
          std::u16string_view program = programInReports) noexcept
        : user_(user), routine_(routine), program_(program) {}

    /// Runs the step; true when it ended without a failure. No exception leaves the guard: std::bad_alloc and
    /// std::length_error are reported as outOfMemory, any other but Failure as invalidProcedureCall.
    /// `line` is left to its default, the line of the call (Clang 14 lacks std::source_location).
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

    /// Reports a failure that was not thrown. `line` is left to its default, the line of the call.
    void report(FailureNumber number, std::uint_least32_t line = __builtin_LINE()) const noexcept;

private:
    void reportCurrentException(std::uint_least32_t line) const noexcept;

    UserInterface& user_;
    std::u16string_view routine_;
    std::u16string_view program_;
};

} // namespace brindlewick
