// The record of the sample files, its scrambling, and the button that loads them.
#include "app/sample_files.h"

#include "platform/failure.h"
#include "platform/native_path.h"
#include "support/fake_user.h"
#include "support/temporary_folder.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <map>

namespace brindlewick::testing {
namespace {

using ::testing::ElementsAre;

TEST(Scrambling, IsUndoneForEveryText) {
    const std::u16string cases[] = {
        u"",
        u"a",
        u"/opt/brindlewick/Samples/books.json|/opt/brindlewick/Samples/cities.json",
        u"brambles",
        std::u16string(u"\0\r\n=;[]%\"\\ ", 11),
        u"\uFFFF\u0000\u0416\U0001F600",
        {u'\xD800', u'x', u'\xDC80'},
        std::u16string(10'000, u'|'),
    };
    for (const std::u16string& text : cases) {
        const std::u16string record = scrambled(text);
        EXPECT_EQ(unscrambled(record), text);
        EXPECT_EQ(record.empty(), text.empty()); // an empty record is made again at the next start
        EXPECT_EQ(record.find_first_not_of(u"0123456789abcdef"), std::u16string::npos);
    }
    EXPECT_NE(scrambled(u"aa").substr(0, 4), scrambled(u"aa").substr(4));
}

TEST(Scrambling, GivesNothingForATextThatIsNoRecord) {
    for (const std::u16string_view text : {u"a", u"abcde", u"wxyz", u"00 0", u"00G0", u"000\u0660"})
        EXPECT_EQ(unscrambled(text), u"");
}

struct MapStore : SettingsStore {
    std::map<std::u16string, std::u16string, std::less<>> values;

    std::u16string GetSetting(std::u16string_view key, std::u16string_view defaultText) const override {
        const auto found = values.find(key);
        return found == values.end() ? std::u16string(defaultText) : found->second;
    }
    void SaveSetting(std::u16string_view key, std::u16string_view value) override {
        values.insert_or_assign(std::u16string(key), value);
    }
};

struct Samples : ::testing::Test {
    TemporaryFolder folder;
    FakeUser user;
    MapStore settings;
    TextList files;
    TextList tags;
    int modesSelected = 0;
    std::function<void()> selectMode2 = [this] { ++modesSelected; };
    SampleFiles samples{user, settings, files, tags, folder.text(), [this] { selectMode2(); }};

    std::u16string sample(std::u16string_view name) const {
        return (folder.text() + pathSeparator + u"Samples" + pathSeparator).append(name);
    }
    void makeSamples() {
        folder.write("Samples/b.json", "{}");
        folder.write("Samples/A.json", "{}");
        folder.write("Samples/no dot", "");
        std::filesystem::create_directory(folder.path() / "Samples" / "aa");
    }
    std::u16string record() const { return unscrambled(settings.GetSetting(u"Snapshot", u"")); }
};

constexpr std::u16string_view question = u"Would you like this software to open the folder where these "
                                         u"sample files are stored (so that you can view them "
                                         u"before working with them)?";

TEST_F(Samples, AreRecordedInTheOrderOfTheListing) {
    makeSamples();
    samples.RecordSampleFiles();
    EXPECT_EQ(record(), sample(u"A.json") + u"|" + sample(u"b.json") + u"|" + sample(u"no dot"));
}

TEST_F(Samples, LeaveAnEmptyRecordWithoutAFolderOrFiles) {
    samples.RecordSampleFiles();
    EXPECT_EQ(settings.values.at(u"Snapshot"), u"");
    std::filesystem::create_directory(folder.path() / "Samples");
    samples.RecordSampleFiles();
    EXPECT_EQ(settings.values.at(u"Snapshot"), u"");
}

TEST_F(Samples, AreLoadedOnceHoweverOftenTheButtonIsPressed) {
    makeSamples();
    samples.RecordSampleFiles();
    files.append(sample(u"B.JSON")); // another letter case is another row
    files.append(sample(u"no dot"));
    samples.PushButton13_Click();
    samples.PushButton13_Click();
    EXPECT_THAT(files.texts(),
                ElementsAre(sample(u"B.JSON"), sample(u"no dot"), sample(u"A.json"), sample(u"b.json")));
    EXPECT_THAT(tags.texts(), ElementsAre(u"name", u"name"));
    EXPECT_EQ(modesSelected, 2);
    EXPECT_THAT(user.questions, ElementsAre(question, question));
    EXPECT_THAT(user.openedFolders, ElementsAre());
    EXPECT_THAT(user.errors, ElementsAre());
}

TEST_F(Samples, GoneSinceTheRecordAreSkippedAndNewOnesAreNotLoaded) {
    makeSamples();
    samples.RecordSampleFiles();
    std::filesystem::remove(folder.path() / "Samples" / "A.json");
    folder.write("Samples/new.json", "{}");
    samples.LoadSampleFiles(files);
    EXPECT_THAT(files.texts(), ElementsAre(sample(u"b.json"), sample(u"no dot")));
}

TEST_F(Samples, QuestionIsAskedWithoutAnyFileAndYesOpensTheFolder) {
    for (const std::u16string_view stored : {u"", u"no record at all"}) {
        settings.SaveSetting(u"Snapshot", stored);
        user.yesNoAnswers = {true};
        samples.LoadSampleFiles(files);
    }
    EXPECT_TRUE(files.empty());
    EXPECT_THAT(user.questions, ElementsAre(question, question));
    EXPECT_THAT(user.openedFolders, ElementsAre(sample(u""), sample(u"")));
}

TEST_F(Samples, ButtonReportsAFailureAndGoesOn) {
    selectMode2 = [] { throw Failure(FailureNumber::permissionDenied); };
    samples.PushButton13_Click();
    ASSERT_EQ(user.errors.size(), 1u);
    EXPECT_TRUE(user.errors[0].starts_with(
        u"Permission denied\r\nin Corvane2021/08/31.Form1.PushButton13_Click at line "));
    EXPECT_EQ(tags.size(), 1u);
    EXPECT_EQ(user.questions.size(), 1u);
}

TEST_F(Samples, ButtonIsIgnoredWhileAnOperationIsUnderWay) {
    user.setPointer(PointerShape::hourglass);
    samples.PushButton13_Click();
    EXPECT_TRUE(tags.empty() && user.questions.empty() && modesSelected == 0);
}

} // namespace
} // namespace brindlewick::testing
