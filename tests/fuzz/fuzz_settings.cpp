// Feeds the settings file: whatever it holds, what is saved can be read, and nothing else in it changes.
#include "app/settings_text.h"
#include "fuzz/fuzz_driver.h"
#include "platform/text_encoding.h"

namespace brindlewick::fuzz {

namespace {

using namespace std::string_view_literals;

constexpr std::u16string_view keys[] = {u"Option", u"Tags", u"Check1", u"Snapshot", u"LastFolder"};

} // namespace

std::string makeInput(Random& random) {
    std::string bytes(random.oneOf({"", "\xEF\xBB\xBF", "[Brindlewick]\n"}));
    for (std::size_t lines = random.below(12); lines > 0; --lines) {
        bytes += random.oneOf({"[Brindlewick]", "[General]", "Option=2", "Tags=a\\x1fb", " Check1 = 1 ",
                               "; note", "# note", "Option", "=", "Snapshot=\xC3\xA9\xFF", "Tags=\"x\"",
                               "[Brindlewick", ""});
        bytes += random.oneOf({"\n", "\n", "\r\n", "\r", ""});
    }
    bend(bytes, 4, random);
    return bytes;
}

void runOn(std::string_view input) {
    // The input is the file, and its end the value: every code unit can come up, halves of surrogate pairs
    // too.
    std::u16string value;
    const std::string_view tail = input.substr(input.size() - std::min<std::size_t>(input.size(), 24));
    for (std::size_t at = 0; at + 1 < tail.size(); at += 2)
        value.push_back(static_cast<char16_t>(static_cast<unsigned char>(tail[at]) |
                                              (static_cast<unsigned char>(tail[at + 1]) << 8)));
    const std::u16string_view key = keys[input.size() % std::size(keys)];

    const std::string changed = textWithSetting(input, key, value);
    check(settingInText(changed, key) == value, "what was saved is read");
    for (const std::u16string_view other : keys)
        check(other == key || settingInText(changed, other) == settingInText(input, other),
              "other keys stay as they are");
    check(textWithSetting(changed, key, value) == changed, "saving the same again changes nothing");
}

} // namespace brindlewick::fuzz
