// The comma-delimited file, byte for byte.
#include "output/comma_delimited_text.h"

#include "output/plain_table.h"
#include "support/fake_user.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

namespace brindlewick::testing {
namespace {

using ::testing::ElementsAre;

const std::vector<std::u16string> two{u"Filename", u"Results"};
const std::vector<std::u16string> one{u"Results"};

struct Case {
    const char* rule;
    PlainTable table;
    std::string expected;
};

class CommaDelimitedText : public ::testing::TestWithParam<Case> {};

TEST_P(CommaDelimitedText, IsWrittenByteForByte) {
    const TemporaryFolder folder;
    FakeUser user;
    SaveListviewAsCommaDelimToFile(user, GetParam().table, folder.text("out.txt"), nullptr);
    EXPECT_EQ(folder.read("out.txt"), GetParam().expected);
    EXPECT_THAT(user.questions, ElementsAre());
    EXPECT_THAT(user.errors, ElementsAre());
}

INSTANTIATE_TEST_SUITE_P(
    Rules, CommaDelimitedText,
    ::testing::Values(
        Case{"TwoColumns",
             {two, {{{u"a.json", u"x"}}, {{u"b.json", u"y"}}}},
             "Filename,Results,\r\na.json,x\r\nb.json,y\r\n"},
        Case{"OneColumn", {one, {{{u"x"}}, {{u"y"}}, {{u"z"}}}}, "x,\r\ny,\r\nz\r\n"},
        Case{"OneRow", {one, {{{u"x"}}}}, "x\r\n"}, Case{"NoRows", {two, {}}, "Filename,Results,\r\n"},
        Case{"NoRowsOneColumn", {one, {}}, ""},
        Case{"UntickedRowsToo", {one, {{{u"x"}, false}, {{u"y"}, false}}}, "x,\r\ny\r\n"},
        Case{"EmptyCells", {two, {{{u"", u""}}}}, "Filename,Results,\r\n,\r\n"},
        Case{"NothingIsQuoted", {one, {{{u"a,\"b\"\t\r\nc "}}}}, "a,\"b\"\t\r\nc \r\n"},
        Case{"OutsideTheCharacterSet", {one, {{{u"\u0416\u00E9\u20AC\U0001F600"}}}}, "?\xE9\x80??\r\n"},
        Case{"ThreeColumns", {{u"A", u"B", u"C"}, {{{u"1", u"2", u"3"}}}}, "A,B,C,\r\n1,2,3\r\n"}),
    [](const auto& test) { return test.param.rule; });

class CommaDelimitedLargeTable : public ::testing::TestWithParam<std::vector<std::u16string>> {};

TEST_P(CommaDelimitedLargeTable, EqualsThePlainModel) {
    const PlainTable table = generatedTable(GetParam(), 20'000);
    const bool hasHeader = table.headers.size() > 1;
    std::string expected = hasHeader ? "A,B,\r\n" : "";
    for (const PlainRow& row : table.rows)
        expected += asBytes(row.cells[0]) + (hasHeader ? "," + asBytes(row.cells[1]) + "\r\n" : ",\r\n");
    if (!hasHeader)
        expected.erase(expected.size() - 3, 1);

    const TemporaryFolder folder;
    FakeUser user;
    SaveListviewAsCommaDelimToFile(user, table, folder.text("out.txt"), nullptr);
    EXPECT_TRUE(folder.read("out.txt") == expected);
    EXPECT_EQ(user.yields, 20'000u);
    EXPECT_THAT(user.summaries, ElementsAre(u"20000 rows written"));
}

INSTANTIATE_TEST_SUITE_P(Layouts, CommaDelimitedLargeTable,
                         ::testing::Values(std::vector<std::u16string>{u"A"},
                                           std::vector<std::u16string>{u"A", u"B"}));

TEST(CommaDelimitedFile, IsReplacedOnYesAlone) {
    for (const bool yes : {false, true}) {
        const TemporaryFolder folder;
        FakeUser user;
        RecordingProgress progress;
        user.yesNoAnswers = {yes};
        const std::u16string path = folder.write("out.txt", "what was there");
        SaveListviewAsCommaDelimToFile(user, PlainTable{one, {{{u"x"}}}}, path, &progress);
        EXPECT_EQ(folder.read("out.txt"), yes ? "x\r\n" : "what was there");
        EXPECT_THAT(user.questions, ElementsAre(u"Are you sure you wish to overwrite " + path + u" ?"));
        EXPECT_EQ(progress.seen.empty(), !yes);
    }
}

TEST(CommaDelimitedProgress, FollowsEveryRow) {
    const TemporaryFolder folder;
    FakeUser user;
    RecordingProgress progress;
    const PlainTable table{one, std::vector<PlainRow>(1000, {{u"x"}, false})};
    SaveListviewAsCommaDelimToFile(user, table, folder.text("out.txt"), &progress);
    ASSERT_EQ(progress.seen.size(), 1 + 1000 + 2u);
    EXPECT_EQ(progress.seen[0], u"Writing file: out.txt");
    EXPECT_EQ(progress.seen[500], u"=50");
    EXPECT_THAT(std::vector(progress.seen.end() - 3, progress.seen.end()),
                ElementsAre(u"=100", u"Writing file: out.txt (1000)", u"Done."));
}

} // namespace
} // namespace brindlewick::testing
