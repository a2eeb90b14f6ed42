// What the buttons and keys of the tag list do, and how the list is kept between runs.
#pragma once

#include "lists/text_list.h"
#include "platform/user_interface.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace brindlewick {

/// Each handler reports its own failures and goes on; what was appended before a failure stays.
class TagHandlers {
public:
    TagHandlers(UserInterface& user, TextList& tags) noexcept : user_(user), tags_(tags) {}

    void PushButton3_Click();                                       ///< "Add Tag"
    void PushButton4_Click();                                       ///< "Load Tags From Text File"
    void PushButton8_Click(std::optional<std::size_t> selectedRow); ///< "Delete Selected Tag"
    void PushButton10_Click();                                      ///< "Clear List"
    /// `deleteKeyCode` removes the selected row unless an operation is under way.
    void ListView3_KeyDown(int keyCode, std::optional<std::size_t> selectedRow);

private:
    UserInterface& user_;
    TextList& tags_;
};

/// Every tag followed by "||MySeparator12||". Fails with overflow for more than 32,767 tags: the row counter
/// is a signed 16-bit number.
std::u16string tagsToSetting(const TextList& tags);
/// Appends the pieces between separators that are not empty, as they stand. Fails with overflow, after the
/// first 32,768 pieces, when the text splits into more.
void appendTagsFromSetting(std::u16string_view stored, TextList& tags);

} // namespace brindlewick
