// The settings store of the window: an INI file in the user's configuration folder.
#pragma once

#include "platform/settings_store.h"

namespace brindlewick {

/// `Tessaly/Brindlewick.ini` under the user's configuration folder (on Linux $XDG_CONFIG_HOME, on Windows
/// %LOCALAPPDATA%), section [Brindlewick]. Every write replaces the file atomically before it returns.
///
/// The file is UTF-8, one "key=value" a line, and may be edited by hand: blanks around key and value, comment
/// lines (";" or "#"), other sections and a byte-order mark are passed over and kept. A value is the text as
/// it stands, backslashes and commas included, except when it is one whole pair of double quotes: then \\ \"
/// \n \r \t and \uXXXX (one UTF-16 unit, four hexadecimal digits) inside it stand for what they say. Values
/// are written in quotes only when they need it: control characters, lone surrogates, blanks at an end, a
/// leading quote. So any text comes back unit for unit. Of two lines with one key the first counts.
///
/// Both operations take time linear in the file; nothing is cached, so other programs' edits are seen. Two
/// programs that save in the same instant: the later one wins.
class SettingsFile : public SettingsStore {
public:
    /// Gives the default for a missing file or folder too. Fails with permissionDenied when the file may not
    /// be read or is none, and with deviceIoError.
    std::u16string GetSetting(std::u16string_view key, std::u16string_view defaultText) const override;
    /// Fails with permissionDenied, pathNotFound, diskFull or deviceIoError, the file being as it was; with
    /// invalidProcedureCall for a key that is not made of ASCII letters and digits.
    void SaveSetting(std::u16string_view key, std::u16string_view value) override;
};

} // namespace brindlewick
