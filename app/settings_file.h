// The settings store of the window: an INI file in the user's configuration folder.
#pragma once

#include "platform/settings_store.h"

namespace brindlewick {

/// `Tessaly/Brindlewick.ini` under the user's configuration folder (on Linux $XDG_CONFIG_HOME), section
/// [Brindlewick]. Every write replaces the file atomically before it returns.
class SettingsFile : public SettingsStore {
public:
    std::u16string GetSetting(std::u16string_view key, std::u16string_view defaultText) const override;
    /// Fails with permissionDenied, pathNotFound, diskFull or deviceIoError.
    void SaveSetting(std::u16string_view key, std::u16string_view value) override;
};

} // namespace brindlewick
