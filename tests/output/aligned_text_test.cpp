// The aligned file, byte for byte.
#include "output/aligned_text.h"

#include "output/plain_table.h"
#include "support/fake_user.h"
#include "support/temporary_folder.h"

#include <algorithm>
#include <gmock/gmock.h>

namespace brindlewick::testing {
namespace {

using ::testing::ElementsAre;

struct Case {
    const char* rule;
    PlainTable table;
    std::string expected;
};

class AlignedText : public ::testing::TestWithParam<Case> {};

TEST_P(AlignedText, IsWrittenByteForByte) {
    const TemporaryFolder folder;
    FakeUser user;
    folder.write("out.txt", std::string(1000, '#')); // a longer file is replaced whole
    SaveListviewProperlySpaced(user, GetParam().table, folder.text("out.txt"), nullptr);
    EXPECT_EQ(folder.read("out.txt"), GetParam().expected);
    EXPECT_THAT(user.errors, ElementsAre());
}

const std::vector<std::u16string> two{u"Filename", u"Results"};
const std::vector<std::u16string> one{u"Results"};

INSTANTIATE_TEST_SUITE_P(
    Rules, AlignedText,
    ::testing::Values(
        Case{"NoRows", {two, {}}, "Filename\tResults\t\r\n"},
        Case{"NoRowsOneColumn", {one, {}}, "Results\t\r\n"},
        Case{"OneColumn", {one, {{{u"abcdefgh"}}, {{u""}}}}, "Results \t\r\nabcdefgh\t\r\n        \t\r\n"},
        Case{"PaddedToTheHeader",
             {two, {{{u"a.json", u"x"}}}},
             "Filename\tResults\t\r\na.json  \tx      \t\r\n"},
        Case{"PaddedToTheLongest",
             {two, {{{u"a.json", u"x"}}, {{u"longer.json", u"12345678"}}}},
             "Filename   \tResults \t\r\na.json     \tx       \t\r\nlonger.json\t12345678\t\r\n"},
        Case{"UntickedRowsCountForTheWidthAlone",
             {one, {{{u"1234567890"}, false}, {{u"x"}}, {{u"y"}, false}}},
             "Results   \t\r\nx         \t\r\n"},
        Case{"AllUnticked", {one, {{{u"x"}, false}}}, "Results\t\r\n"},
        Case{"TabsAndLineBreaksStay", {one, {{{u"a\tb\r\nc,\"d"}}}}, "Results  \t\r\na\tb\r\nc,\"d\t\r\n"},
        Case{"BlanksOfACellStay", {one, {{{u" x  "}}}}, "Results\t\r\n x     \t\r\n"},
        Case{"NulIsWritten",
             {one, {{{std::u16string(7, u'\0')}}}},
             "Results\t\r\n" + std::string(7, '\0') + "\t\r\n"},
        Case{"OutsideTheCharacterSet",
             {one, {{{u"\u0416\u00E9\u20AC\U0001F600"}}}},
             "Results\t\r\n?\xE9\x80??  \t\r\n"},
        Case{
            "ThreeColumns", {{u"A", u"B", u"C"}, {{{u"1", u"", u"333"}}}}, "A\tB\tC  \t\r\n1\t \t333\t\r\n"}),
    [](const auto& test) { return test.param.rule; });

TEST(AlignedTextOfALargeTable, EqualsThePlainModel) {
    const PlainTable table = generatedTable({u"A header of twenty-two", u"B"}, 20'000);
    std::vector<std::size_t> widths{22, 1};
    for (const PlainRow& row : table.rows)
        for (std::size_t column : {0u, 1u})
            widths[column] = std::max(widths[column], row.cells[column].size());
    std::string expected;
    const auto add = [&](const std::vector<std::u16string>& cells) {
        for (std::size_t column : {0u, 1u})
            expected +=
                asBytes(cells[column]) + std::string(widths[column] - cells[column].size(), ' ') + "\t";
        expected += "\r\n";
    };
    add(table.headers);
    for (const PlainRow& row : table.rows)
        if (row.isTicked)
            add(row.cells);

    const TemporaryFolder folder;
    FakeUser user;
    SaveListviewProperlySpaced(user, table, folder.text("out.txt"), nullptr);
    EXPECT_TRUE(folder.read("out.txt") == expected);
    EXPECT_GE(user.yields, 40'000u);
    EXPECT_THAT(user.progressTexts, ElementsAre(u"Writing rows"));
    const auto ticked =
        std::count_if(table.rows.begin(), table.rows.end(), [](auto& row) { return row.isTicked; });
    EXPECT_EQ(user.summaries.at(0), fromAscii(std::to_string(ticked) + " rows written"));
}

TEST(AlignedTextProgress, FollowsTickedRowsAndCaptionsEveryThousandth) {
    const TemporaryFolder folder;
    FakeUser user;
    RecordingProgress progress;
    PlainTable table{one, std::vector<PlainRow>(2001, {{u"x"}})};
    table.rows[1999].isTicked = false;
    SaveListviewProperlySpaced(user, table, folder.text("out.txt"), &progress);
    std::vector<std::u16string> captions;
    for (const std::u16string& seen : progress.seen)
        if (!seen.starts_with(u"="))
            captions.push_back(seen);
    EXPECT_THAT(captions, ElementsAre(u"Writing file: out.txt", u"Writing file: out.txt (1000)", u"Done."));
    EXPECT_EQ(progress.seen.size(), 1 + 2000 + 1 + 2u);
    EXPECT_EQ(progress.seen[1000], u"=49");
    EXPECT_EQ(progress.seen[progress.seen.size() - 2], u"=100");
}

TEST(AlignedTextRows, MayGoWhileEventsAreHandled) {
    const TemporaryFolder folder;
    FakeUser user;
    PlainTable table{one, {{{u"a"}}, {{u"b"}}, {{u"c"}}}};
    user.whenYielding = [&] {
        if (user.yields == 5) // the second row is about to be written
            table.rows.clear();
    };
    SaveListviewProperlySpaced(user, table, folder.text("out.txt"), nullptr);
    EXPECT_EQ(folder.read("out.txt"), "Results\t\r\na      \t\r\n");
    EXPECT_THAT(user.errors, ElementsAre());
}

} // namespace
} // namespace brindlewick::testing
