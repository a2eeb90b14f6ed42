// The option buttons and what "?" and "Help" show. Stored choices are tested with the window.
#include "extract/option_handlers.h"

#include "platform/failure.h"
#include "support/fake_settings.h"
#include "support/scripted_user.h"

namespace brindlewick::testing {
namespace {

TEST(OptionHandlers, ShowTheirTextsAndKeepAChoiceThatCannotBeStored) {
    ScriptedUser user;
    FakeSettings settings;
    ExtractionOptions options(settings);
    OptionHandlers handlers(user, options);
    settings.failureWhenSaving = FailureNumber::diskFull;
    handlers.Option4_Click();
    handlers.Check1_Click(true);
    handlers.PushButton15_Click({u"A", u"B", u"C", u"D"});
    handlers.PushButton2_Click();
    EXPECT_EQ(options.mode(), ExtractionMode::all);
    EXPECT_TRUE(options.includeFilename());
    EXPECT_EQ(user.takeTranscript(), R"(report: Disk full in Form1.Option4_Click
report: Disk full in Form1.Check1_Click
message: A - will extract all characters including tag name\r\n\r\nB - will extract only value characters without tag name\r\n\r\nC - will extract only strings containing tag name\r\n\r\nD - will extract all characters including tags names without filters\r\n\r\nIf you need more extraction features please email support@brindlewick.example and I will add them if you give an example of what you have (before) and what you want for results (after).
message: If you need some extraction features added to this software, please email support@brindlewick.example
)");
}

TEST(ModeFromSetting, CountsLeadingDigits) {
    const std::pair<std::u16string, int> cases[] = {
        {u"1", 1}, {u"4", 4}, {u" 3", 3}, {u"2abc", 2}, {u"2.0", 2}, {u"+2", 2},  {u"2e", 2}, {u"0.2e1", 2},
        {u"", 0},  {u"7", 0}, {u"0", 0},  {u"abc", 0},  {u"-1", 0},  {u"1.5", 0}, {u"22", 0}, {u"1e99", 0},
    };
    for (const auto& [stored, mode] : cases)
        EXPECT_EQ(static_cast<int>(modeFromSetting(stored)), mode) << mode;
    EXPECT_EQ(flagFromSetting(u" 1 "), 1);
    EXPECT_EQ(flagFromSetting(u"-1"), -1);
    for (const std::u16string_view stored : {u"", u"yes", u"1x", u"40000"})
        EXPECT_THROW(static_cast<void>(flagFromSetting(stored)), Failure);
}

} // namespace
} // namespace brindlewick::testing
