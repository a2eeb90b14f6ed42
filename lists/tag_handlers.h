// The handlers of the tag list's buttons and keys, and the list as a setting.
#pragma once

#include "lists/text_list.h"
#include "platform/user_interface.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace brindlewick {

/// Each handler reports its own failures and continues. What was appended before a failure stays.
class TagHandlers {
public:
    TagHandlers(UserInterface& user, TextList& tags) noexcept : user_(user), tags_(tags) {}

    /// "Add Tag". `typed` is the beginning of the answer.
    void PushButton3_Click(std::u16string_view typed = {});
    void PushButton4_Click();                                       ///< "Load Tags From Text File"
    void PushButton8_Click(std::optional<std::size_t> selectedRow); ///< "Delete Selected Tag"
    void PushButton10_Click();                                      ///< "Clear List"
    /// Appends each line of the text that is not empty; lines end with CR LF, CR or LF.
    void ListView3_Paste(std::u16string_view text);
    /// `deleteKeyCode` removes the selected row unless the user interface is busy.
    void ListView3_KeyDown(int keyCode, std::optional<std::size_t> selectedRow);

private:
    UserInterface& user_;
    TextList& tags_;
};

/// The tags, each followed by "||MySeparator12||". Fails with overflow for more than 32,767 tags, since rows
/// are counted in a signed 16-bit number, and with outOfMemory for a text longer than `maxTextLength`.
[[nodiscard]] std::u16string tagsToSetting(const TextList& tags);
/// Appends the non-empty pieces between the separators, unchanged. Fails with overflow after the first 32,768
/// pieces when there are more.
void appendTagsFromSetting(std::u16string_view stored, TextList& tags);

} // namespace brindlewick
