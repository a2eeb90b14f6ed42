// The buttons and the Delete key of the tag list, and the list's way through the settings.
#include "lists/tag_handlers.h"

#include "platform/failure.h"
#include "support/fake_user.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <functional>

namespace brindlewick {
namespace {

using namespace std::literals;
using Texts = std::vector<std::u16string>;

class Tags : public ::testing::Test {
protected:
    testing::FakeUser user;
    TextList tags;
    TagHandlers handlers{user, tags};
};

TEST_F(Tags, AreAddedAsAnswered) {
    user.textAnswers = {u"</name>", u"", u" a ", u" a "};
    for (int press = 0; press < 5; ++press)
        handlers.PushButton3_Click();
    EXPECT_EQ(tags.texts(), (Texts{u"</name>", u" a ", u" a "}));
    EXPECT_EQ(user.prompts.front(), u"Enter tag to add: ");
    EXPECT_EQ(user.proposedAnswers.front(), u"");
}

TEST_F(Tags, AreLoadedFromFiles) {
    const testing::TemporaryFolder folder;
    folder.write("1.txt", "a\r\n\r\n b ");
    folder.write("2.txt", "c\n");
    folder.write("sub.txt/x", "");
    user.filesToOpen = {u"", folder.text() + u"\0none.txt\0002.txt\0sub.txt\0001.txt"s};
    handlers.PushButton4_Click();
    EXPECT_TRUE(tags.empty());
    handlers.PushButton4_Click();
    EXPECT_EQ(tags.texts(), (Texts{u"c", u"", u"a", u"", u" b "}));
    EXPECT_EQ(user.messages, Texts{u"File not found"});
    ASSERT_EQ(user.errors.size(), 1u);
    EXPECT_TRUE(user.errors[0].starts_with(
        u"Permission denied\r\nin Corvane2021/08/31.Form1.PushButton4_Click at line "));
    EXPECT_EQ(user.dialogTitles.front(), u"Load List(s) - Hold Ctrl to select multiple list files");
    EXPECT_EQ(user.dialogFilters.front(), u"Text Files (*.txt)|*.txt|All Files (*.*)|*.*|");
}

TEST_F(Tags, AreRemoved) {
    handlers.PushButton8_Click(0);
    handlers.ListView3_KeyDown(46, 0);
    EXPECT_TRUE(user.errors.empty());
    for (const char16_t* tag : {u"a", u"b", u"c", u"d"})
        tags.append(tag);
    handlers.PushButton8_Click(std::nullopt);
    handlers.ListView3_KeyDown(46, std::nullopt);
    handlers.ListView3_KeyDown(8, 0);
    EXPECT_EQ(tags.size(), 4u);
    handlers.PushButton8_Click(1);
    EXPECT_EQ(tags.texts(), (Texts{u"a", u"c", u"d"}));
    handlers.ListView3_KeyDown(46, 2);
    EXPECT_EQ(tags.texts(), (Texts{u"a", u"c"}));
    handlers.PushButton10_Click();
    EXPECT_TRUE(tags.empty());
}

TEST_F(Tags, StayWhileAnOperationIsUnderWay) {
    tags.append(u"a");
    user.textAnswers = {u"b"};
    user.filesToOpen = {u"/none"};
    user.setPointer(PointerShape::hourglass);
    handlers.PushButton3_Click();
    handlers.PushButton4_Click();
    handlers.PushButton8_Click(0);
    handlers.PushButton10_Click();
    handlers.ListView3_KeyDown(46, 0);
    EXPECT_EQ(tags.texts(), Texts{u"a"});
    EXPECT_TRUE(user.prompts.empty() && user.messages.empty());
}

TextList listOf(const Texts& texts) {
    TextList list;
    for (const std::u16string& text : texts)
        list.append(text);
    return list;
}

const std::u16string mark = u"||MySeparator12||";

TEST(TagSetting, PutsTheSeparatorBehindEveryTag) {
    EXPECT_EQ(tagsToSetting(listOf({})), u"");
    EXPECT_EQ(tagsToSetting(listOf({u"a", u"", u" b"})), u"a" + mark + mark + u" b" + mark);
}

struct RestoreCase {
    std::u16string stored;
    Texts expected;
};

class RestoredTags : public ::testing::TestWithParam<RestoreCase> {};

TEST_P(RestoredTags, AreThePiecesThatHoldText) {
    TextList tags = listOf({u"first"});
    appendTagsFromSetting(GetParam().stored, tags);
    Texts expected{u"first"};
    expected.insert(expected.end(), GetParam().expected.begin(), GetParam().expected.end());
    EXPECT_EQ(tags.texts(), expected);
}

INSTANTIATE_TEST_SUITE_P(Texts, RestoredTags,
                         ::testing::Values(RestoreCase{u"", {}}, RestoreCase{mark, {}},
                                           RestoreCase{u"a" + mark + mark + u"b" + mark, {u"a", u"b"}},
                                           RestoreCase{u" a " + mark + u" a ", {u" a ", u" a "}},
                                           RestoreCase{u"a||MySeparator12|" + mark,
                                                       {u"a", u"|MySeparator12||"}},
                                           RestoreCase{u"|" + mark + u"|", {u"|", u"|"}},
                                           RestoreCase{u"A||myseparator12||B", {u"A||myseparator12||B"}}));

FailureNumber failureOf(const std::function<void()>& operation) {
    try {
        operation();
    } catch (const Failure& failure) {
        return failure.number();
    }
    return FailureNumber{0};
}

TEST(TagSetting, OverflowsA16BitCounter) {
    const TextList most = listOf(Texts(32767, u"t"));
    const TextList tooMany = listOf(Texts(32768, u"t"));
    const std::u16string stored = tagsToSetting(most); // 32,768 pieces, the last one empty
    EXPECT_EQ(failureOf([&] { tagsToSetting(tooMany); }), FailureNumber::overflow);

    TextList restored;
    appendTagsFromSetting(stored, restored);
    EXPECT_EQ(restored.texts(), most.texts());

    TextList cut;
    EXPECT_EQ(failureOf([&] { appendTagsFromSetting(stored + u"x" + mark + u"y", cut); }),
              FailureNumber::overflow);
    EXPECT_EQ(cut.size(), 32768u);
    EXPECT_EQ(cut[32767], u"x");
}

} // namespace
} // namespace brindlewick
