// The settings file.
#include "app/settings_text.h"
#include "fuzz/fuzz_driver.h"

#include <algorithm>
#include <iterator>

namespace brindlewick::fuzz {

namespace {

/// The input is the file, and its last bytes are the value that is saved.
const Subject settings("settings", [](std::string_view input) {
    static constexpr std::u16string_view keys[] = {u"Option", u"Tags", u"Check1", u"Snapshot", u"LastFolder"};
    const std::u16string value =
        unitsOf(input.substr(input.size() - std::min<std::size_t>(input.size(), 24)));
    const std::u16string_view key = keys[input.size() % std::size(keys)];
    const std::string changed = textWithSetting(input, key, value);
    check(settingInText(changed, key) == value, "what was saved is read");
    for (const std::u16string_view other : keys)
        check(other == key || settingInText(changed, other) == settingInText(input, other),
              "other keys stay as they are");
    check(textWithSetting(changed, key, value) == changed, "saving the same again changes nothing");
});

} // namespace

} // namespace brindlewick::fuzz
