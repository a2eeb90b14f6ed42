// The handlers of the option buttons, the file-name check box, "?" and "Help".
#pragma once

#include "extract/extraction_options.h"
#include "platform/user_interface.h"

#include <array>
#include <string>

namespace brindlewick {

/// Each handler reports its failures. Only the settings store can cause one.
class OptionHandlers {
public:
    OptionHandlers(UserInterface& user, ExtractionOptions& options) noexcept
        : user_(user), options_(options) {}

    void Option1_Click();
    void Option2_Click();
    void Option3_Click();
    void Option4_Click();
    /// The handlers of the option buttons, in the order of `extractionModes`.
    [[nodiscard]] static constexpr PerMode<void (OptionHandlers::*)()> optionClicks() noexcept {
        return std::to_array({&OptionHandlers::Option1_Click, &OptionHandlers::Option2_Click,
                              &OptionHandlers::Option3_Click, &OptionHandlers::Option4_Click});
    }
    void Check1_Click(bool ticked);
    /// The "?" button. `captions` are those that the option buttons show now.
    void PushButton15_Click(const PerMode<std::u16string>& captions);
    void PushButton2_Click(); ///< "Help"

private:
    UserInterface& user_;
    ExtractionOptions& options_;
};

} // namespace brindlewick
