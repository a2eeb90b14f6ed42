// The record of the sample files, its scrambling, and the button that adds them.
#include "app/sample_files.h"

#include "platform/failure.h"
#include "platform/native_path.h"
#include "support/fake_settings.h"
#include "support/fake_user.h"
#include "support/temporary_folder.h"

#include <filesystem>
#include <gmock/gmock.h>

namespace brindlewick::testing {
namespace {

using ::testing::ElementsAre;

TEST(Scrambling, IsReversibleForEveryTextAndRejectsOtherRecords) {
    const std::u16string texts[] = {
        u"",
        u"/opt/brindlewick/Samples/books.json|/opt/brindlewick/Samples/cities.json",
        u"brambles",
        std::u16string(u"\0\r\n=;[]%\"\\ ", 11),
        u"\uFFFF\u0416\U0001F600",
        {u'\xD800', u'x', u'\xDC80'},
        std::u16string(10'000, u'|')};
    for (const std::u16string& text : texts) {
        const std::u16string record = scrambled(text);
        EXPECT_EQ(unscrambled(record), text);
        EXPECT_EQ(record.empty(), text.empty()); // the next start builds an empty record again
        EXPECT_EQ(record.find_first_not_of(u"0123456789abcdef"), std::u16string::npos);
    }
    EXPECT_NE(scrambled(u"aa").substr(0, 4), scrambled(u"aa").substr(4));
    for (const std::u16string_view noRecord : {u"a", u"abcde", u"wxyz", u"00 0", u"00G0", u"000\u0660"})
        EXPECT_EQ(unscrambled(noRecord), u"");
}

struct Samples : ::testing::Test {
    TemporaryFolder folder;
    FakeUser user;
    FakeSettings settings;
    TextList files;
    TextList tags;
    int modesSelected = 0;
    std::function<void()> selectMode2 = [this] { ++modesSelected; };
    SampleFiles samples{user, settings, files, tags, folder.text(), [this] { selectMode2(); }};

    std::u16string sample(std::u16string_view name) const {
        return (folder.text() + pathSeparator + u"Samples" + pathSeparator).append(name);
    }
};

constexpr std::u16string_view question = u"Would you like this software to open the folder where these "
                                         u"sample files are stored (so that you can view them "
                                         u"before working with them)?";

TEST_F(Samples, AreRecordedOnceAndLoadedWhileTheyAreThere) {
    samples.RecordSampleFiles();
    EXPECT_EQ(settings.values.at(u"Snapshot"), u""); // no folder
    folder.makeFolder("Samples/aa");
    samples.RecordSampleFiles();
    EXPECT_EQ(settings.values.at(u"Snapshot"), u"");
    for (const char* name : {"Samples/b.json", "Samples/A.json", "Samples/no dot", "Samples/gone"})
        folder.write(name, "{}");
    samples.RecordSampleFiles();
    EXPECT_EQ(unscrambled(settings.values.at(u"Snapshot")), sample(u"A.json") + u"|" + sample(u"b.json") +
                                                                u"|" + sample(u"gone") + u"|" +
                                                                sample(u"no dot"));
    std::filesystem::remove(folder.path() / "Samples" / "gone");
    folder.write("Samples/new.json", "{}");
    files.append(sample(u"B.JSON")); // another letter case is another row
    files.append(sample(u"no dot"));
    samples.PushButton13_Click();
    samples.PushButton13_Click();
    EXPECT_THAT(files.texts(),
                ElementsAre(sample(u"B.JSON"), sample(u"no dot"), sample(u"A.json"), sample(u"b.json")));
    EXPECT_THAT(tags.texts(), ElementsAre(u"name", u"name"));
    EXPECT_EQ(modesSelected, 2);
    EXPECT_THAT(user.questions, ElementsAre(question, question));
    EXPECT_TRUE(user.openedFolders.empty() && user.errors.empty());
}

TEST_F(Samples, QuestionIsAskedWithoutAnyFileAndYesOpensTheFolder) {
    settings.SaveSetting(u"Snapshot", u"no record at all");
    user.yesNoAnswers = {true};
    samples.LoadSampleFiles(files);
    EXPECT_TRUE(files.empty());
    EXPECT_THAT(user.questions, ElementsAre(question));
    EXPECT_THAT(user.openedFolders, ElementsAre(sample(u"")));
}

TEST_F(Samples, ButtonReportsAFailureAndGoesOn) {
    selectMode2 = [] { throw Failure(FailureNumber::permissionDenied); };
    samples.PushButton13_Click();
    EXPECT_TRUE(user.hasOneReport(u"Permission denied", u"Form1.PushButton13_Click"));
    EXPECT_EQ(tags.size(), 1u);
    EXPECT_EQ(user.questions.size(), 1u);
}

} // namespace
} // namespace brindlewick::testing
