#include "extract/extraction_options.h"

#include "platform/failure.h"

#include <gtest/gtest.h>

#include <map>

namespace brindlewick {
namespace {

class StoringSettings : public SettingsStore {
public:
    std::map<std::u16string, std::u16string, std::less<>> values;
    bool isFull = false;

    std::u16string GetSetting(std::u16string_view key, std::u16string_view defaultText) const override {
        const auto found = values.find(key);
        return found == values.end() ? std::u16string(defaultText) : found->second;
    }
    void SaveSetting(std::u16string_view key, std::u16string_view value) override {
        if (isFull)
            throw Failure(FailureNumber::diskFull);
        values.insert_or_assign(std::u16string(key), std::u16string(value));
    }
};

TEST(ExtractionOptions, StoresEveryChoiceAtOnce) {
    StoringSettings settings;
    ExtractionOptions options(settings);
    options.chooseMode(ExtractionMode::entireLine);
    options.setIncludeFilename(true);
    EXPECT_EQ(settings.values[u"Option"], u"3");
    EXPECT_EQ(settings.values[u"Check1"], u"1");
    options.setIncludeFilename(false);
    EXPECT_EQ(settings.values[u"Check1"], u"0");
}

TEST(ExtractionOptions, HoldsAChoiceThatCannotBeStored) {
    StoringSettings settings;
    settings.isFull = true;
    ExtractionOptions options(settings);
    EXPECT_THROW(options.chooseMode(ExtractionMode::all), Failure);
    EXPECT_THROW(options.setIncludeFilename(true), Failure);
    EXPECT_EQ(options.mode(), ExtractionMode::all);
    EXPECT_TRUE(options.includeFilename());
}

TEST(ModeFromSetting, CountsLeadingDigits) {
    const std::pair<std::u16string, int> cases[] = {
        {u"1", 1}, {u"4", 4}, {u" 3", 3}, {u"2abc", 2}, {u"2.0", 2}, {u"+2", 2},  {u"2e", 2}, {u"0.2e1", 2},
        {u"", 0},  {u"7", 0}, {u"0", 0},  {u"abc", 0},  {u"-1", 0},  {u"1.5", 0}, {u"22", 0}, {u"1e99", 0},
    };
    for (const auto& [stored, mode] : cases)
        EXPECT_EQ(static_cast<int>(modeFromSetting(stored)), mode) << mode;
}

TEST(FlagFromSetting, IsStrict) {
    EXPECT_EQ(flagFromSetting(u" 1 "), 1);
    EXPECT_EQ(flagFromSetting(u"-1"), -1);
    for (const std::u16string stored : {u"", u"yes", u"1x", u"40000"})
        EXPECT_THROW(static_cast<void>(flagFromSetting(stored)), Failure);
}

TEST(ExplainModes, ShowsTheCaptionsAsTheyStand) {
    EXPECT_EQ(explainModes({u"A", u"B", u"C", u"D"}),
              u"A - will extract all characters including tag name\r\n\r\n"
              u"B - will extract only value characters without tag name\r\n\r\n"
              u"C - will extract only strings containing tag name\r\n\r\n"
              u"D - will extract all characters including tags names without filters\r\n\r\n"
              u"If you need more extraction features please email support@brindlewick.example and I will add "
              u"them if "
              u"you give an example of what you have (before) and what you want for results (after).");
}

} // namespace
} // namespace brindlewick
