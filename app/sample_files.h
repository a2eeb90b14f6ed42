// The sample files: recorded at the first start, added to the input files by a button.
#pragma once

#include "lists/text_list.h"
#include "platform/settings_store.h"
#include "platform/user_interface.h"

#include <functional>
#include <string>
#include <string_view>

namespace brindlewick {

/// Scrambles any text for the settings store, with a fixed key.
[[nodiscard]] std::u16string scrambled(std::u16string_view text);
/// The inverse; empty for a text that `scrambled` does not return.
[[nodiscard]] std::u16string unscrambled(std::u16string_view text);

class SampleFiles {
public:
    /// `programFolder` contains the folder "Samples". `selectMode2` has the effect of a click on `Option2`.
    SampleFiles(UserInterface& user, SettingsStore& settings, TextList& inputFiles, TextList& tags,
                std::u16string programFolder, std::function<void()> selectMode2);

    /// Stores the paths of the sample files under "Snapshot". Fails as SettingsStore does.
    void RecordSampleFiles();
    /// Appends the recorded files that exist and are not in `list`, then offers to open their folder.
    void LoadSampleFiles(TextList& list);
    void PushButton13_Click(); ///< "Load Sample/Example Files"

private:
    UserInterface& user_;
    SettingsStore& settings_;
    TextList& inputFiles_;
    TextList& tags_;
    std::u16string programFolder_;
    std::function<void()> selectMode2_;
};

} // namespace brindlewick
