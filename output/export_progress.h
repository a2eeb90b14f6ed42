// How far an export is: on the status bar, and on a progress indicator if the caller passes one.
#pragma once

#include "platform/user_interface.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace brindlewick {

class ProgressIndicator {
public:
    virtual ~ProgressIndicator() = default;

    /// In percent, 0 to 100.
    virtual void setValue(int value) = 0;
    virtual void setCaption(std::u16string_view caption) = 0;
};

/// Rows count from 1. Everything but `showRow` concerns the indicator and does nothing without one.
class ExportProgress {
public:
    /// `doing` ("Writing") begins the text on the status bar, which ends with the path. `indicator` may be
    /// null. Its value changes with the rows; with `setsFinalValue` also at the end and after a failure. All
    /// must outlive the object.
    ExportProgress(UserInterface& user, std::u16string_view doing, ProgressIndicator* indicator = nullptr,
                   std::u16string_view path = {}, bool setsFinalValue = false) noexcept
        : user_(user), doing_(doing), indicator_(indicator), path_(path), setsFinalValue_(setsFinalValue) {}

    /// Caption "Writing file: NAME"; then events are handled.
    void begin();
    /// The status bar shows every 1000th row.
    void showRow(std::size_t row, std::size_t rowCount);
    /// The value is the share of rows, in whole percent. Every 1000th row the caption becomes
    /// "Writing file: NAME (ROW)".
    void indicateRow(std::size_t row, std::size_t rowCount);
    /// Value 100 if it is set at the end, caption "Done.".
    void finish();
    /// Value 0 if it is set at the end, caption "Progress Bar".
    void fail();

private:
    std::u16string caption() const;
    void setFinal(int value, std::u16string_view caption);

    UserInterface& user_;
    std::u16string_view doing_;
    ProgressIndicator* indicator_;
    std::u16string_view path_;
    bool setsFinalValue_;
};

/// What an export, or the copy, has done.
struct ExportOutcome {
    std::size_t tableRows = 0;
    std::size_t takenRows = 0;
    std::size_t untickedRows = 0; ///< left out
    std::uint64_t replacedCharacters = 0;
};

/// The text for the status bar: "28 rows written; 3 rows left out because they are not ticked". `done` is
/// "written" or "copied". The path of a written file comes last: "28 rows written; file: PATH".
[[nodiscard]] std::u16string exportSummary(const ExportOutcome& outcome, std::u16string_view done,
                                           std::u16string_view path = {});

} // namespace brindlewick
