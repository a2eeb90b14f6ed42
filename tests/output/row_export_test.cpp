// What the two files share: captions, values, the status bar, failures, and rows that vanish.
#include "output/aligned_text.h"
#include "output/clipboard_text.h"
#include "output/comma_delimited_text.h"
#include "output/plain_table.h"
#include "support/fake_user.h"
#include "support/temporary_folder.h"

#include <algorithm>
#include <gmock/gmock.h>

namespace brindlewick::testing {
namespace {

using ::testing::ElementsAre;

const struct Writer {
    decltype(&SaveListviewProperlySpaced) save;
    std::u16string location;
    bool zeroesValue;                     ///< of the indicator, after a failure
    std::size_t yieldsBeforeSecondRow;    ///< of a table of three rows and one column
    std::string cutShort;                 ///< the file when the rows go then
    std::vector<std::u16string> captions; ///< for 2,000 rows, the last one unchecked
} writers[] = {
    {SaveListviewProperlySpaced,
     u"SaveListviewProperlySpaced",
     true,
     5,
     "Results\t\r\na      \t\r\n",
     {u"Writing file: out.txt", u"Writing file: out.txt (1000)", u"Done."}},
    {SaveListviewAsCommaDelimToFile,
     u"SaveListviewAsCommaDelimToFile",
     false,
     2,
     "a,\r\n",
     {u"Writing file: out.txt", u"Writing file: out.txt (1000)", u"Writing file: out.txt (2000)", u"Done."}},
};

TEST(ExportFailure, IsReportedOnceAndResetsTheIndicator) {
    const struct {
        std::string path; ///< in the test's folder, unless it begins with "/"
        std::size_t rowLength;
        std::u16string description;
    } cases[] = {
        {"/dev/full", 1 << 19, u"Disk full"},
        {"/dev/full", 1, u"Disk full"}, // fails only when the file is closed
        {"nowhere/at/all.txt", 1, u"Path not found"},
        {"", 1, u"Permission denied"},
    };
    const TemporaryFolder folder;
    for (const auto& [path, rowLength, description] : cases)
        for (const Writer& writer : writers) {
            if (path.starts_with('/') && !std::filesystem::exists(path))
                continue; // this system has no such device
            FakeUser user;
            RecordingProgress progress;
            user.yesNoAnswers = {true};
            const PlainTable table({u"H"}, std::vector<PlainRow>(3, {{std::u16string(rowLength, u'x')}}));
            writer.save(user, table, folder.text(path), &progress);
            EXPECT_TRUE(user.hasOneReport(description, u"Extract1." + writer.location));
            const auto caption = std::find(progress.seen.begin(), progress.seen.end(), u"Progress Bar");
            ASSERT_NE(caption, progress.seen.end());
            EXPECT_EQ(*(caption - 1) == u"=0", writer.zeroesValue);
            EXPECT_TRUE(
                std::count(progress.seen.begin(), progress.seen.end(), u"Done.")); // the export continued
            EXPECT_THAT(user.summaries, ElementsAre(u"Not all rows were written"));
        }
}

TEST(ExportProgress, FollowsTheRowsAndShowsEveryThousandth) {
    struct : FakeUser {
        std::vector<std::uint64_t> shown;
        void showProgress(std::u16string_view text, std::uint64_t done, std::uint64_t rows) override {
            shown.push_back(done);
            FakeUser::showProgress(text, done, rows);
        }
    } user;
    const TemporaryFolder folder;
    PlainTable table({u"Results"}, std::vector<PlainRow>(2000, {{u"x"}}));
    table.rows.back().isChecked = false;
    for (const Writer& writer : writers) {
        RecordingProgress progress;
        std::filesystem::remove(folder.path() / "out.txt");
        writer.save(user, table, folder.text("out.txt"), &progress);
        std::vector<std::u16string> captions;
        std::vector<std::u16string> values;
        for (const std::u16string& seen : progress.seen)
            (seen.starts_with(u'=') ? values : captions).push_back(seen);
        EXPECT_EQ(captions, writer.captions);
        EXPECT_EQ(values.size(), 2000u);
        EXPECT_EQ(values[999], u"=50");
        EXPECT_EQ(values.back(), u"=100");
    }
    static_cast<void>(clipboardText(user, table));
    EXPECT_THAT(user.shown, ElementsAre(1000, 2000, 1000, 2000, 1000, 2000));
    EXPECT_THAT(user.progressTexts, ElementsAre(u"Writing rows", u"Copying rows"));
}

TEST(ExportedRows, MayBeRemovedWhileEventsAreHandled) {
    const TemporaryFolder folder;
    for (const Writer& writer : writers) {
        FakeUser user;
        PlainTable table{{u"Results"}, {{{u"a"}}, {{u"b"}}, {{u"c"}}}};
        user.yesNoAnswers = {true};
        user.whenYielding = [&] {
            if (user.yields == writer.yieldsBeforeSecondRow)
                table.rows.clear();
        };
        writer.save(user, table, folder.text("out.txt"), nullptr);
        EXPECT_EQ(folder.read("out.txt"), writer.cutShort);
        EXPECT_TRUE(user.errors.empty());
    }
}

} // namespace
} // namespace brindlewick::testing
