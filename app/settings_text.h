// The text of a settings file: finding a key's value in it and putting another in its place.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace brindlewick {

/// The value of `key` in section [Brindlewick] of the file's bytes; none when the key is not there. Linear.
std::optional<std::u16string> settingInText(std::string_view file, std::u16string_view key);

/// The file's bytes with `key` set to `value` there, every other line kept byte for byte. Linear.
std::string textWithSetting(std::string_view file, std::u16string_view key, std::u16string_view value);

} // namespace brindlewick
