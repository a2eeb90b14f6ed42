// How the lines of a list file become entries, for every mixture of line ends and at block borders.
#include "lists/list_file.h"

#include "lists/text_lists.h"
#include "support/failure_of.h"
#include "support/fake_user.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace brindlewick {
namespace {

using namespace std::literals;
using testing::Texts;

Texts entriesOf(std::string_view bytes) {
    const testing::TemporaryFolder folder;
    testing::FakeUser user;
    TextList list;
    ReadListFile(user, folder.write("list.txt", bytes), list);
    EXPECT_TRUE(user.messages.empty());
    return list.texts();
}

TEST(ReadListFile, CutsAtEveryLineEnd) {
    const std::pair<std::string, Texts> cases[] = {
        {"", {}},
        {"a\rb\r", {u"a", u"b"}},
        {"\r\n", {u""}},
        {"\r\r", {u"", u""}},
        {"a\r\r\nb", {u"a", u"", u"b"}},
        {"a\nb\n", {u"a", u"b", u""}},
        {"a\n\r\n", {u"a", u""}},
        {"a\n\r\nb", {u"a", u"", u"b"}},
        {"\r\n\n", {u"", u"", u""}},
        {"a\r\nb\nc\n", {u"a", u"b", u"c", u""}},
        {" a \t\r\n\xEF\xBB\xBF\x80\x81\xE9\0b\x1A c"s,
         {u" a \t", u"\u00EF\u00BB\u00BF\u20AC\u0081\u00E9\0b\x1A c"s}},
    };
    for (const auto& [bytes, expected] : cases)
        EXPECT_EQ(entriesOf(bytes), expected) << ::testing::PrintToString(bytes);
}

TEST(ReadListFile, KeepsLinesWholeAcrossBlocksInOnePass) {
    for (std::size_t length = 65534; length <= 65537; ++length)
        EXPECT_EQ(entriesOf(std::string(length, 'x') + "\r\nb\n"),
                  (Texts{std::u16string(length, u'x'), u"b", u""}));
    EXPECT_EQ(entriesOf(std::string(20'000'000, 'x') + std::string(2'000'000, '\n')).size(), 2'000'001u);
}

TEST(ReadListFile, AppendsWhatCanBeRead) {
    const testing::TemporaryFolder folder;
    testing::FakeUser user;
    TextList list = testing::listOf({u"x"});
    ReadListFile(user, folder.text("none.txt"), list);
    EXPECT_EQ(user.messages, Texts{u"File not found"});
    EXPECT_EQ(testing::failureOf([&] { ReadListFile(user, folder.text(), list); }),
              FailureNumber::permissionDenied);
    ReadListFile(user, folder.write("list.txt", "a\r\nx\r\n"), list);
    EXPECT_EQ(list.texts(), (Texts{u"x", u"a", u"x"}));
}

} // namespace
} // namespace brindlewick
