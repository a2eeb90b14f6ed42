// What the two file writers have in common: how a step fails and what they tell while they write.
#pragma once

#include "output/progress_indicator.h"
#include "platform/error_report.h"
#include "platform/user_interface.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace brindlewick {

/// The caption and the status bar follow every this many rows.
inline constexpr std::size_t rowsBetweenReports = 1000;

/// What happens to the progress indicator's value when a step fails; its caption always becomes "Progress
/// Bar".
enum class ValueOnFailure { kept, zero };

/// Runs the steps of one export. A step that fails takes the progress indicator back first and is then
/// reported as Guard reports it. Nothing is set up per step, so a row may be a step of its own.
class ExportSteps {
public:
    /// `routine` is as Guard takes it; `progress` may be null.
    ExportSteps(UserInterface& user, std::u16string_view routine, ProgressIndicator* progress,
                ValueOnFailure valueOnFailure) noexcept
        : guard_(user, routine), progress_(progress), valueOnFailure_(valueOnFailure) {}

    /// True when the step ended without a failure. `line` is left to its default.
    template <class Step>
    bool operator()(Step&& step, std::uint_least32_t line = __builtin_LINE()) {
        const bool isDone = guard_(
            [&] {
                try {
                    std::forward<Step>(step)();
                } catch (...) {
                    takeProgressBack();
                    throw;
                }
            },
            line);
        hasFailed_ = hasFailed_ || !isDone;
        return isDone;
    }

    /// True once any step has failed.
    bool hasFailed() const noexcept { return hasFailed_; }

private:
    void takeProgressBack();

    Guard guard_;
    ProgressIndicator* progress_;
    ValueOnFailure valueOnFailure_;
    bool hasFailed_ = false;
};

/// "Writing file: " and the file-name part of the path; with `row` (from 1), that and " (row)".
std::u16string writingCaption(std::u16string_view path);
std::u16string writingCaption(std::u16string_view path, std::size_t row);
/// The share of `row` (from 1) in `rowCount`, in whole percent.
int percentDone(std::size_t row, std::size_t rowCount);

/// Tells the status bar every `rowsBetweenReports` rows; `row` counts from 1.
void showRows(UserInterface& user, std::u16string_view doing, std::size_t row, std::size_t rowCount);
/// "1 row written", "12 rows copied".
std::u16string rowsDone(std::size_t rows, std::u16string_view done);

} // namespace brindlewick
