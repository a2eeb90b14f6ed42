// The handlers of the input file list's buttons and gestures.
#pragma once

#include "lists/text_list.h"
#include "platform/settings_store.h"
#include "platform/user_interface.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace brindlewick {

/// Each handler reports its own failures and continues. What was appended before a failure stays.
class InputFileHandlers {
public:
    InputFileHandlers(UserInterface& user, SettingsStore& settings, TextList& inputFiles) noexcept
        : user_(user), settings_(settings), inputFiles_(inputFiles) {}

    void PushButton1_Click();  ///< "Add JSON Files"
    void PushButton5_Click();  ///< "Add All JSON Files In Folder"
    void PushButton16_Click(); ///< "Load JSON Files From Text File"
    void PushButton14_Click(); ///< "Clear List"
    /// Removes the selected row unless the user interface is busy.
    void ListView1_DblClick(std::optional<std::size_t> selectedRow);
    /// Appends dropped files, and the files of dropped folders, in the order of the drop; also while busy.
    /// `elsewhere` is the number of dropped files that have no path here.
    void ListView1_OLEDragDrop(const std::vector<std::u16string>& items, std::size_t elsewhere = 0);

private:
    UserInterface& user_;
    SettingsStore& settings_;
    TextList& inputFiles_;
};

} // namespace brindlewick
