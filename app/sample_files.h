// The example files beside the executable: recorded at the first start, loaded by a button.
#pragma once

#include "lists/text_list.h"
#include "platform/settings_store.h"
#include "platform/user_interface.h"

#include <functional>
#include <string>
#include <string_view>

namespace brindlewick {

/// Scrambles and unscrambles the stored record: reversible, any text, keyed with a fixed word.
std::u16string scrambled(std::u16string_view text);
std::u16string unscrambled(std::u16string_view text);

class SampleFiles {
public:
    /// `programFolder` holds the "Samples" folder. `selectMode2` makes the window choose mode 2 as a user
    /// would.
    SampleFiles(UserInterface& user, SettingsStore& settings, TextList& inputFiles, TextList& tags,
                std::u16string programFolder, std::function<void()> selectMode2);

    /// Records the samples' paths under "Snapshot". Fails when the store cannot be written.
    void RecordSampleFiles();
    /// Adds the recorded files that still exist and are not listed yet, then offers to open their folder.
    void LoadSampleFiles(TextList& list);
    /// "Load Sample/Example Files".
    void PushButton13_Click();

private:
    UserInterface& user_;
    SettingsStore& settings_;
    TextList& inputFiles_;
    TextList& tags_;
    std::u16string programFolder_;
    std::function<void()> selectMode2_;
};

} // namespace brindlewick
