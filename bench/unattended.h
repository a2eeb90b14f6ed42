// A user and a settings store for programs that run by themselves.
#pragma once

#include "platform/settings_store.h"
#include "platform/text_encoding.h"
#include "platform/user_interface.h"

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

namespace brindlewick {

/// A user who answers nothing: failures go to standard error, one line each.
class UnattendedUser : public UserInterface {
public:
    void showMessage(std::u16string_view) override {}
    void showApplicationError(std::u16string_view text) override {
        std::string line;
        for (const char unit : toUtf8(text)) {
            const bool isBreak = unit == '\r' || unit == '\n';
            if (!isBreak)
                line.push_back(unit);
            else if (!line.empty() && line.back() != ' ')
                line.push_back(' ');
        }
        std::fprintf(stderr, "%s\n", line.c_str());
    }
    bool askYesNo(std::u16string_view, YesNo) override { return false; }
    std::u16string askText(std::u16string_view, std::u16string_view, ProposedAnswer) override { return {}; }
    std::u16string chooseFilesToOpen(const FileDialog&) override { return {}; }
    std::u16string chooseFileToSave(const FileDialog&) override { return {}; }
    std::u16string browseForFolder(std::u16string_view, std::u16string_view) override { return {}; }
    void setPointer(PointerShape) override {}
    void yield() override {}
    void showProgress(std::u16string_view, std::uint64_t, std::uint64_t) override {}
    void endProgress(std::u16string_view) override {}
    void setClipboardText(std::u16string_view) override {}
    bool openFolder(std::u16string_view) override { return false; }
};

/// Settings that last as long as the process.
class ForgetfulSettings : public SettingsStore {
public:
    std::u16string GetSetting(std::u16string_view, std::u16string_view defaultText) const override {
        return std::u16string(defaultText);
    }
    void SaveSetting(std::u16string_view, std::u16string_view) override {}
};

} // namespace brindlewick
