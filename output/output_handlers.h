// The handlers of the buttons under the results table.
#pragma once

#include "extract/results_table.h"
#include "output/clipboard_text.h"
#include "output/export_progress.h"
#include "output/listview_table.h"
#include "platform/error_report.h"
#include "platform/user_interface.h"

#include <cstddef>
#include <functional>
#include <span>
#include <string_view>

namespace brindlewick {

/// Each handler reports its own failures and continues.
class OutputHandlers {
public:
    OutputHandlers(UserInterface& user, ResultsTable& table) noexcept : user_(user), table_(table) {}

    void PushButton6_Click();  ///< "Save Results As Text File"
    void PushButton12_Click(); ///< "Save As Comma Delimited"
    void PushButton11_Click(); ///< "Copy Results To Clipboard"
    void PushButton9_Click();  ///< "Clear List": removes the rows, keeps the columns
    /// Copies the rows. Ignored while such a copy is being made.
    void ListView2_Copy(std::span<const RowRange> ranges);

private:
    using Writer = void (&)(UserInterface&, const ListviewTable&, std::u16string_view, ProgressIndicator*);
    void save(std::u16string_view routine, Writer write);
    bool copy(const Guard& guard, bool takesUncheckedRows, const std::function<std::size_t()>& copyRows);

    UserInterface& user_;
    ResultsTable& table_;
    bool isCopyingRows_ = false;
};

} // namespace brindlewick
