// What the mode buttons, the file-name box and the two buttons that explain things do.
#pragma once

#include "extract/extraction_options.h"
#include "platform/user_interface.h"

#include <array>
#include <string>

namespace brindlewick {

/// Each handler reports its own failures, which only the settings store can cause.
class OptionHandlers {
public:
    OptionHandlers(UserInterface& user, ExtractionOptions& options) noexcept
        : user_(user), options_(options) {}

    void Option1_Click();
    void Option2_Click();
    void Option3_Click();
    void Option4_Click();
    void Check1_Click(bool ticked);
    /// The "?" button; takes the four modes' captions as they stand, mode 1 first.
    void PushButton15_Click(const std::array<std::u16string, 4>& captions);
    void PushButton2_Click(); ///< "Help"

private:
    UserInterface& user_;
    ExtractionOptions& options_;
};

} // namespace brindlewick
