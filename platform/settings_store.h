// Settings kept between runs: short texts under fixed keys.
#pragma once

#include <string>
#include <string_view>

namespace brindlewick {

class SettingsStore {
public:
    virtual ~SettingsStore() = default;

    /// The text stored under `key`, or `defaultText` if nothing was stored.
    [[nodiscard]] virtual std::u16string GetSetting(std::u16string_view key,
                                                    std::u16string_view defaultText = {}) const = 0;
    /// Stores `value` at once. Fails if the store cannot be written.
    virtual void SaveSetting(std::u16string_view key, std::u16string_view value) = 0;
};

} // namespace brindlewick
