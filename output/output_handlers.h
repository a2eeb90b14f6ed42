// What the buttons under the results table do.
#pragma once

#include "extract/results_table.h"
#include "platform/user_interface.h"

namespace brindlewick {

/// Each handler reports its own failures and goes on.
class OutputHandlers {
public:
    OutputHandlers(UserInterface& user, ResultsTable& table) noexcept : user_(user), table_(table) {}

    void PushButton6_Click();  ///< "Save Results As Text File"
    void PushButton12_Click(); ///< "Save As Comma Delimited"
    void PushButton11_Click(); ///< "Copy Results To Clipboard"
    void PushButton9_Click();  ///< "Clear List": the rows go, the columns stay

private:
    UserInterface& user_;
    ResultsTable& table_;
};

} // namespace brindlewick
