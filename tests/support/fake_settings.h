// A settings store in memory; it can be told to fail when written.
#pragma once

#include "platform/failure.h"
#include "platform/settings_store.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace brindlewick::testing {

class FakeSettings : public SettingsStore {
public:
    std::map<std::u16string, std::u16string, std::less<>> values;
    std::optional<FailureNumber> failureWhenSaving;

    std::u16string GetSetting(std::u16string_view key, std::u16string_view defaultText = {}) const override {
        const auto found = values.find(key);
        return found == values.end() ? std::u16string(defaultText) : found->second;
    }
    void SaveSetting(std::u16string_view key, std::u16string_view value) override {
        if (failureWhenSaving)
            throw Failure(*failureWhenSaving);
        values.insert_or_assign(std::u16string(key), std::u16string(value));
    }
};

} // namespace brindlewick::testing
