// The settings store of the program: an INI file in the user's configuration folder.
//
// It does not use QSettings: a write that fails there is not reported and leaves the file cut at 4,096 bytes.
#pragma once

#include "platform/settings_store.h"

namespace brindlewick {

/// Section [Brindlewick] of `Tessaly/Brindlewick.ini` in the user's configuration folder ($XDG_CONFIG_HOME on
/// Linux, %LOCALAPPDATA% on Windows). Every write replaces the file atomically before it returns.
///
/// The file is UTF-8 with one "key=value" a line and may be edited by hand. Blanks around key and value,
/// comment lines (";" or "#"), other sections and a byte-order mark are ignored and kept. If a key occurs
/// twice, the first line counts.
///
/// A value is taken literally, backslashes and commas included, unless it is in double quotes. In quotes the
/// escapes \\ \" \n \r \t and \uXXXX (four hexadecimal digits for one UTF-16 unit) are replaced. A value is
/// written in quotes only if it has control characters, lone surrogates, a blank at either end or a leading
/// quote. So every text is restored exactly.
///
/// Both operations take time linear in the file's size. Nothing is cached, so other programs' changes are
/// seen. A save changes the line of its key alone, and programs that save at the same time take turns by a
/// lock file, so none undoes the other's. After two seconds of waiting for the lock a save goes on without
/// it.
class SettingsFile : public SettingsStore {
public:
    /// Returns the default if the file or its folder is missing, too. Fails with permissionDenied if the file
    /// may not be read or is not a regular file, with outOfMemory if it is too large, and with deviceIoError.
    [[nodiscard]] std::u16string GetSetting(std::u16string_view key,
                                            std::u16string_view defaultText) const override;
    /// Fails as GetSetting does and with pathNotFound or diskFull; the file is not changed then. A key that
    /// has other characters than ASCII letters and digits fails with invalidProcedureCall.
    void SaveSetting(std::u16string_view key, std::u16string_view value) override;
};

} // namespace brindlewick
