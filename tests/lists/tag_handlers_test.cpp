// The buttons and the Delete key of the tag list, and the list as a setting.
#include "lists/tag_handlers.h"

#include "lists/text_lists.h"
#include "platform/busy_scope.h"
#include "support/failure_of.h"
#include "support/fake_user.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace brindlewick {
namespace {

using namespace std::literals;
using testing::failureOf;
using testing::listOf;
using testing::Texts;

class Tags : public ::testing::Test {
protected:
    testing::FakeUser user;
    TextList tags;
    TagHandlers handlers{user, tags};
};

TEST_F(Tags, AreAddedUnchangedAndLoadedFromFiles) {
    const testing::TemporaryFolder folder;
    folder.write("1.txt", "a\r\n\r\n b ");
    folder.write("sub.txt/x", "");
    user.textAnswers = {u"</name>", u"", u" a ", u" a "};
    for (int press = 0; press < 5; ++press)
        handlers.PushButton3_Click();
    user.filesToOpen = {u"", folder.text() + u"\0none.txt\0sub.txt\0001.txt"s};
    for (int press = 0; press < 2; ++press)
        handlers.PushButton4_Click();
    EXPECT_EQ(tags.texts(), (Texts{u"</name>", u" a ", u" a ", u"a", u"", u" b "}));
    EXPECT_EQ(user.prompts.at(0), u"Enter tag to add: ");
    EXPECT_EQ(user.proposedAnswers.at(0), u"");
    EXPECT_EQ(user.dialogTitles.at(0), u"Load List(s) - Hold Ctrl to select multiple list files");
    EXPECT_EQ(user.dialogFilters.at(0), u"Text Files (*.txt)|*.txt|All Files (*.*)|*.*|");
    EXPECT_EQ(user.messages, Texts{u"File not found"});
    EXPECT_TRUE(user.hasOneReport(u"Permission denied", u"Form1.PushButton4_Click"));
}

TEST_F(Tags, AreRemovedByButtonAndByKeyUnlessBusy) {
    handlers.PushButton8_Click(0);
    handlers.ListView3_KeyDown(46, 0);
    EXPECT_TRUE(user.errors.empty());
    tags = listOf({u"a", u"b", u"c", u"d"});
    {
        const Guard guard(user, u"");
        const BusyScope busy(user, guard);
        handlers.ListView3_KeyDown(46, 0);
    }
    handlers.PushButton8_Click(std::nullopt);
    handlers.ListView3_KeyDown(46, std::nullopt);
    handlers.ListView3_KeyDown(8, 0);
    EXPECT_EQ(tags.size(), 4u);
    handlers.PushButton8_Click(1);
    handlers.ListView3_KeyDown(46, 2);
    EXPECT_EQ(tags.texts(), (Texts{u"a", u"c"}));
    handlers.PushButton10_Click();
    EXPECT_TRUE(tags.empty());
}

const std::u16string mark = u"||MySeparator12||";

TEST(TagSetting, JoinsTagsAndRestoresNonEmptyPieces) {
    EXPECT_EQ(tagsToSetting(listOf({})), u"");
    EXPECT_EQ(tagsToSetting(listOf({u"a", u"", u" b"})), u"a" + mark + mark + u" b" + mark);
    const std::pair<std::u16string, Texts> cases[] = {
        {u"", {u"first"}},
        {mark, {u"first"}},
        {u"a" + mark + mark + u" a " + mark, {u"first", u"a", u" a "}},
        {u"a||MySeparator12|" + mark, {u"first", u"a", u"|MySeparator12||"}},
        {u"|" + mark + u"|", {u"first", u"|", u"|"}},
        {u"A||myseparator12||B", {u"first", u"A||myseparator12||B"}},
    };
    for (const auto& [stored, expected] : cases) {
        TextList restored = listOf({u"first"});
        appendTagsFromSetting(stored, restored);
        EXPECT_EQ(restored.texts(), expected);
    }
}

TEST(TagSetting, OverflowsA16BitCounter) {
    const TextList most = listOf(Texts(32767, u"t"));
    const std::u16string stored = tagsToSetting(most); // 32,768 pieces, the last one empty
    EXPECT_EQ(failureOf([] { static_cast<void>(tagsToSetting(listOf(Texts(32768, u"t")))); }),
              FailureNumber::overflow);
    TextList restored;
    appendTagsFromSetting(stored, restored);
    EXPECT_EQ(restored.texts(), most.texts());
    EXPECT_EQ(failureOf([&] { appendTagsFromSetting(stored + u"x" + mark + u"y", restored); }),
              FailureNumber::overflow);
    EXPECT_EQ(restored.size(), 32767u + 32768);
    EXPECT_EQ(restored.texts().back(), u"x");
}

} // namespace
} // namespace brindlewick
