// How the lines of a list file become entries, for every mixture of line ends and at block borders.
#include "lists/list_file.h"

#include "platform/failure.h"
#include "support/fake_user.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace brindlewick {
namespace {

using namespace std::literals;
using Texts = std::vector<std::u16string>;

Texts entriesOf(std::string_view bytes) {
    const testing::TemporaryFolder folder;
    testing::FakeUser user;
    TextList list;
    ReadListFile(user, folder.write("list.txt", bytes), list);
    EXPECT_TRUE(user.messages.empty());
    return list.texts();
}

struct Case {
    std::string bytes;
    Texts expected;
};

class ListFileEntries : public ::testing::TestWithParam<Case> {};

TEST_P(ListFileEntries, AreAsExpected) {
    EXPECT_EQ(entriesOf(GetParam().bytes), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(CarriageReturns, ListFileEntries,
                         ::testing::Values(Case{"", {}}, Case{"a", {u"a"}}, Case{"a\r\nb", {u"a", u"b"}},
                                           Case{"a\r\nb\r\n", {u"a", u"b"}}, Case{"a\rb\r", {u"a", u"b"}},
                                           Case{"\r\n", {u""}}, Case{"\r", {u""}}, Case{"\r\r", {u"", u""}},
                                           Case{"a\r\r\nb", {u"a", u"", u"b"}},
                                           Case{"a\r\n\r\nb", {u"a", u"", u"b"}}));
INSTANTIATE_TEST_SUITE_P(BareLineFeeds, ListFileEntries,
                         ::testing::Values(Case{"a\nb", {u"a", u"b"}}, Case{"a\nb\n", {u"a", u"b", u""}},
                                           Case{"\n", {u"", u""}}, Case{"a\n\nb", {u"a", u"", u"b"}}));
INSTANTIATE_TEST_SUITE_P(Mixtures, ListFileEntries,
                         ::testing::Values(Case{"a\nb\r\nc", {u"a", u"b", u"c"}},
                                           Case{"a\n\r\n", {u"a", u""}}, Case{"a\n\r\nb", {u"a", u"", u"b"}},
                                           Case{"a\r\n\nb", {u"a", u"", u"b"}},
                                           Case{"\r\n\n", {u"", u"", u""}},
                                           Case{"a\r\nb\nc\n", {u"a", u"b", u"c", u""}}));
INSTANTIATE_TEST_SUITE_P(Characters, ListFileEntries,
                         ::testing::Values(Case{" a \t\r\n", {u" a \t"}},
                                           Case{"\x80\x81\xE9", {u"\u20AC\u0081\u00E9"}},
                                           Case{"\xEF\xBB\xBF", {u"\u00EF\u00BB\u00BF"}},
                                           Case{"a\0b\x1A c"s, {u"a\0b\x1A c"s}}));

TEST(ReadListFile, KeepsLinesWholeAcrossBlocks) {
    for (std::size_t length = 65530; length <= 65540; ++length) {
        const std::string line(length, 'x');
        const std::u16string text(length, u'x');
        EXPECT_EQ(entriesOf(line + "\r\nb"), (Texts{text, u"b"})) << length;
        EXPECT_EQ(entriesOf(line + "\nb\n"), (Texts{text, u"b", u""})) << length;
    }
}

TEST(ReadListFile, TakesOneLongLineAndManyBareLineFeedsInOnePass) {
    EXPECT_EQ(entriesOf(std::string(20'000'000, 'x')).at(0).size(), 20'000'000u);
    EXPECT_EQ(entriesOf(std::string(2'000'000, '\n')).size(), 2'000'001u);
}

TEST(ReadListFile, AppendsBehindWhatIsThere) {
    const testing::TemporaryFolder folder;
    testing::FakeUser user;
    TextList list;
    list.append(u"x");
    ReadListFile(user, folder.write("list.txt", "a\r\nx\r\n"), list);
    EXPECT_EQ(list.texts(), (Texts{u"x", u"a", u"x"}));
}

TEST(ReadListFile, TellsOfAMissingFile) {
    const testing::TemporaryFolder folder;
    testing::FakeUser user;
    TextList list;
    ReadListFile(user, folder.text("none.txt"), list);
    EXPECT_EQ(user.messages, Texts{u"File not found"});
    EXPECT_TRUE(list.empty());
}

TEST(ReadListFile, FailsForAFolder) {
    const testing::TemporaryFolder folder;
    testing::FakeUser user;
    TextList list;
    EXPECT_THROW(ReadListFile(user, folder.text(), list), Failure);
    EXPECT_TRUE(list.empty());
}

} // namespace
} // namespace brindlewick
