// Feeds the reader of list files with every mix of line ends.
#include "fuzz/fuzz_driver.h"
#include "lists/list_file.h"
#include "platform/text_encoding.h"
#include "support/counting_user.h"
#include "support/temporary_folder.h"

#include <algorithm>
#include <vector>

namespace brindlewick::fuzz {

namespace {

using namespace std::string_view_literals;

/// First cut into lines, where CR or CR LF ends one, then every line at its bare LFs.
std::vector<std::u16string> entriesOf(std::string_view bytes) {
    std::u16string text;
    appendFromWindows1252(bytes, text);
    std::vector<std::u16string> entries;
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t end = std::min(text.find(u'\r', at), text.size());
        std::u16string_view line = std::u16string_view(text).substr(at, end - at);
        for (std::size_t cut = line.find(u'\n'); cut != line.npos; cut = line.find(u'\n')) {
            entries.emplace_back(line.substr(0, cut));
            line.remove_prefix(cut + 1);
        }
        entries.emplace_back(line);
        at = end + 1;
        if (at < text.size() && text[at] == u'\n')
            ++at;
    }
    return entries;
}

} // namespace

std::string makeInput(Random& random) {
    std::string bytes;
    if (random.below(32) == 0) // the reader's blocks end at 65,536 bytes
        bytes =
            repeated(random.oneOf({"a", "a\n", "a\r", "ab\r\n", "\r\n", "\n\r"}), 65530 + random.below(12));
    for (std::size_t left = random.below(12); left > 0; --left) {
        bytes += random.oneOf({"C:\\data\\a.json", "name", " ", "", "\xE9", "\0"sv, "\x1A", "\t"});
        bytes += random.oneOf({"\r\n", "\r\n", "\n", "\r", "\n\r", "\r\r\n", ""});
    }
    bend(bytes, 3, random);
    return bytes;
}

void runOn(std::string_view input) {
    static const testing::TemporaryFolder folder;
    testing::CountingUser user;
    TextList list;
    ReadListFile(user, folder.write("list.txt", input), list);
    check(user.messages + user.reports == 0, "nothing is reported");
    check(list.texts() == entriesOf(input), "the entries are those of the lines");
}

} // namespace brindlewick::fuzz
