// What the two file writers have in common: captions, shares, the status bar, and how they fail.
#include "output/export_steps.h"

#include "output/aligned_text.h"
#include "output/comma_delimited_text.h"
#include "output/plain_table.h"
#include "support/fake_user.h"
#include "support/temporary_folder.h"

#include <algorithm>
#include <gmock/gmock.h>

namespace brindlewick::testing {
namespace {

TEST(ExportTexts, NameTheFileAndTheRows) {
    struct {
        std::u16string path, caption;
    } const cases[] = {
        {u"C:\\out\\rows.txt", u"Writing file: rows.txt"},
        {u"/out/rows.txt", u"Writing file: rows.txt"},
        {u"rows.txt", u"Writing file: rows.txt"},
        {u"", u"Writing file: "},
    };
    for (const auto& [path, caption] : cases) {
        EXPECT_EQ(writingCaption(path), caption);
        EXPECT_EQ(writingCaption(path, 12000), caption + u" (12000)");
    }
    EXPECT_EQ(rowsDone(0, u"written"), u"0 rows written");
    EXPECT_EQ(rowsDone(1, u"copied"), u"1 row copied");
    EXPECT_EQ(rowsDone(5'000'000, u"copied"), u"5000000 rows copied");
}

TEST(ExportShare, StaysBetween0And100) {
    struct {
        std::size_t row, rows;
        int percent;
    } const cases[] = {
        {1, 1, 100}, {1, 1000, 0}, {999, 1000, 99}, {50, 200, 25}, {5'000'000, 5'000'000, 100}};
    for (const auto& [row, rows, percent] : cases)
        EXPECT_EQ(percentDone(row, rows), percent) << row << " of " << rows;
}

struct Failing {
    std::string path; ///< in the test's folder, unless it begins with "/"
    std::u16string description;
};

class ExportFailure : public ::testing::TestWithParam<Failing> {};

TEST_P(ExportFailure, IsReportedOnceAndTakesProgressBack) {
    const struct {
        decltype(&SaveListviewProperlySpaced) save;
        std::u16string location;
        bool zeroesValue;
    } writers[] = {{SaveListviewProperlySpaced, u"SaveListviewProperlySpaced", true},
                   {SaveListviewAsCommaDelimToFile, u"SaveListviewAsCommaDelimToFile", false}};
    const TemporaryFolder folder;
    if (GetParam().path.starts_with('/') && !std::filesystem::exists(GetParam().path))
        GTEST_SKIP() << "no device that is always full";
    for (const auto& [save, location, zeroesValue] : writers) {
        FakeUser user;
        RecordingProgress progress;
        user.yesNoAnswers = {true};
        save(user, PlainTable{{u"H"}, std::vector<PlainRow>(3, {{std::u16string(1 << 19, u'x')}})},
             folder.text(GetParam().path), &progress);
        ASSERT_EQ(user.errors.size(), 1u);
        EXPECT_TRUE(user.errors[0].starts_with(
            GetParam().description + u"\r\nin Corvane2021/08/31.Extract1." + location + u" at line "));
        const auto caption = std::find(progress.seen.begin(), progress.seen.end(), u"Progress Bar");
        ASSERT_NE(caption, progress.seen.end());
        EXPECT_EQ(*(caption - 1) == u"=0", zeroesValue);
        EXPECT_EQ(progress.seen.back(), u"Done."); // the routine went on
        EXPECT_THAT(user.summaries, ::testing::ElementsAre(u"Not all rows were written"));
    }
}

INSTANTIATE_TEST_SUITE_P(FullDeviceMissingFolderAndAFolder, ExportFailure,
                         ::testing::Values(Failing{"/dev/full", u"Disk full"},
                                           Failing{"nowhere/at/all.txt", u"Path not found"},
                                           Failing{"", u"Permission denied"}));

TEST(ExportStatus, IsToldEveryThousandRows) {
    struct : FakeUser {
        std::vector<std::uint64_t> told;
        void showProgress(std::u16string_view, std::uint64_t done, std::uint64_t) override {
            told.push_back(done);
        }
    } user;
    for (std::size_t row = 1; row <= 2500; ++row)
        showRows(user, u"Writing rows", row, 2500);
    EXPECT_THAT(user.told, ::testing::ElementsAre(1000, 2000));
}

} // namespace
} // namespace brindlewick::testing
