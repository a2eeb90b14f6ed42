// A user who counts what is shown, answers Yes and asks for no memory.
#pragma once

#include "platform/user_interface.h"

#include <string>

namespace brindlewick::testing {

class CountingUser : public UserInterface {
public:
    int messages = 0;
    int reports = 0;
    int reportsOfMemory = 0; ///< among them
    PointerShape pointer = PointerShape::standard;

    void showMessage(std::u16string_view) override { ++messages; }
    void showApplicationError(std::u16string_view text) override {
        ++reports;
        reportsOfMemory += text.starts_with(u"Out of memory") ? 1 : 0;
    }
    bool askYesNo(std::u16string_view, YesNo) override { return true; }
    std::u16string askText(std::u16string_view, std::u16string_view, ProposedAnswer) override { return {}; }
    std::u16string chooseFilesToOpen(const FileDialog&) override { return {}; }
    std::u16string chooseFileToSave(const FileDialog&) override { return {}; }
    std::u16string browseForFolder(std::u16string_view, std::u16string_view) override { return {}; }
    void setPointer(PointerShape shape) override { pointer = shape; }
    void yield() override {}
    void showProgress(std::u16string_view, std::uint64_t, std::uint64_t) override {}
    void endProgress(std::u16string_view) override {}
    void setClipboardText(std::u16string_view) override {}
    void openFolder(std::u16string_view) override {}
};

} // namespace brindlewick::testing
