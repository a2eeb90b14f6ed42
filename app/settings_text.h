// Finds and replaces values in the text of a settings file. settings_file.h describes the format.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace brindlewick {

/// The value of `key` in section [Brindlewick] of the file's bytes; none if the key is missing. Takes time
/// linear in the file's size.
[[nodiscard]] std::optional<std::u16string> settingInText(std::string_view file, std::u16string_view key);

/// The file's bytes with `key` set to `value` in that section. All other lines keep their bytes. Takes time
/// linear in the file's size.
[[nodiscard]] std::string textWithSetting(std::string_view file, std::u16string_view key,
                                          std::u16string_view value);

} // namespace brindlewick
