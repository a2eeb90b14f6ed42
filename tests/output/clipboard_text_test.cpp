// The clipboard text, unit for unit.
#include "output/clipboard_text.h"

#include "output/plain_table.h"
#include "platform/failure.h"
#include "support/fake_user.h"

#include <algorithm>
#include <gmock/gmock.h>

namespace brindlewick::testing {
namespace {

using namespace std::string_literals;
using ::testing::ElementsAre;

struct Case {
    const char* rule;
    std::size_t columns;
    std::vector<PlainRow> rows;
    std::u16string expected;
};

class ClipboardTextOf : public ::testing::TestWithParam<Case> {};

TEST_P(ClipboardTextOf, IsBuiltUnitForUnit) {
    FakeUser user;
    // Headers longer than every cell: they count for nothing.
    const PlainTable table{std::vector<std::u16string>(GetParam().columns, std::u16string(40, u'h')),
                           GetParam().rows};
    const ClipboardText copy = clipboardText(user, table);
    EXPECT_EQ(copy.text, GetParam().expected);
    EXPECT_EQ(copy.rows, static_cast<std::size_t>(std::count_if(table.rows.begin(), table.rows.end(),
                                                                [](auto& row) { return row.isTicked; })));
}

INSTANTIATE_TEST_SUITE_P(
    Rules, ClipboardTextOf,
    ::testing::Values(
        Case{"OneColumn", 1, {{{u"abc"}}, {{u"de"}}}, u"abc\r\nde\r\n"},
        Case{"TwoColumns", 2, {{{u"a.json", u"x"}}, {{u"bb.json", u"y"}}}, u"a.json \tx\r\nbb.json\ty\r\n"},
        Case{
            "UntickedRowsCountForTheWidthAlone", 2, {{{u"a", u"x"}}, {{u"bbb", u"y"}, false}}, u"a  \tx\r\n"},
        Case{"NothingTicked", 1, {{{u"x"}, false}}, u""},
        Case{"BlanksAtTheEndOfTheLastCellGo", 2, {{{u"a ", u" x  "}}}, u"a \t x\r\n"},
        Case{"EmptyLastCellKeepsTheTab", 2, {{{u"a", u""}}, {{u"bb", u"y"}}}, u"a \t\r\nbb\ty\r\n"},
        Case{"LastCellOfBlanksKeepsTheTab", 2, {{{u"a", u"   "}}}, u"a\t\r\n"},
        Case{"OneColumnOfBlanks", 1, {{{u"   "}}, {{u""}}}, u"\r\n\r\n"},
        Case{"BlanksBeforeATabOfTheCellStay", 1, {{{u"x \t "}}}, u"x \t\r\n"},
        Case{"EmptyFirstCell", 2, {{{u"", u"x"}}, {{u"", u"y"}}}, u"\tx\r\n\ty\r\n"},
        Case{"ThreeColumns", 3, {{{u"1", u"", u""}}, {{u"", u"22", u"3"}}}, u"1\t  \t\r\n \t22\t3\r\n"},
        Case{"EveryUnitIsKept", 1, {{{u"\U0001F600\0\r\n\"\u0416"s}}}, u"\U0001F600\0\r\n\"\u0416\r\n"s},
        Case{"NoColumns", 0, {{{}, false}}, u""}),
    [](const auto& test) { return test.param.rule; });

TEST(ClipboardTextOfALargeTable, EqualsThePlainModelAndIsAllocatedOnce) {
    for (const std::size_t columns : {1u, 2u, 3u}) {
        const PlainTable table = generatedTable(std::vector<std::u16string>(columns, u"H"), 20'000);
        std::u16string expected;
        for (const PlainRow& row : table.rows) {
            if (!row.isTicked)
                continue;
            std::u16string line;
            for (const std::u16string& cell : row.cells)
                line += cell + std::u16string(20 - cell.size(), u' ') + u"\t";
            line.pop_back();
            while (!line.empty() && line.back() == u' ')
                line.pop_back();
            expected += line + u"\r\n";
        }
        FakeUser user;
        const ClipboardText copy = clipboardText(user, table);
        EXPECT_TRUE(copy.text == expected) << columns << " columns";
        EXPECT_EQ(copy.text.capacity(), copy.text.size());
        EXPECT_GE(user.yields, 40'000u);
    }
}

/// As many rows as told: one cell of `longest` units in the column told, short cells everywhere else.
struct HostileTable : ListviewTable {
    HostileTable(std::size_t rows, std::size_t longest, std::size_t longColumn)
        : rows_(rows), longColumn_(longColumn), long_(longest, u'x') {}

    std::size_t columnCount() const override { return 2; }
    std::u16string_view header(std::size_t) const override { return u"H"; }
    std::size_t rowCount() const override { return rows_; }
    std::u16string_view cell(std::size_t row, std::size_t column) const override {
        return row == 0 && column == longColumn_ ? std::u16string_view(long_) : u"y";
    }
    bool isChecked(std::size_t) const override { return true; }

private:
    std::size_t rows_;
    std::size_t longColumn_;
    std::u16string long_;
};

TEST(ClipboardTextOfAHostileTable, NeverBuildsThePaddingOfTheLastColumn) {
    FakeUser user;
    const ClipboardText copy = clipboardText(user, HostileTable(200'000, 2'000'000, 1));
    EXPECT_EQ(copy.text.size(), 200'000u * 5 + 2'000'000 - 1);
}

TEST(ClipboardTextOfAHostileTable, IsRefusedWhenItWouldBeTooLong) {
    FakeUser user;
    try {
        CopyListviewToClipboard(user, HostileTable(1'000'000, 2'000'000, 0));
        FAIL();
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.number(), FailureNumber::outOfMemory);
    }
    EXPECT_THAT(user.clipboardTexts, ElementsAre());
    EXPECT_THAT(user.progressTexts, ElementsAre()); // no row was built
}

TEST(ClipboardCopy, LeavesTheClipboardAloneWithoutRowsButNotWithoutTicks) {
    FakeUser user;
    EXPECT_EQ(CopyListviewToClipboard(user, PlainTable{{u"H"}, {}}), 0u);
    EXPECT_THAT(user.clipboardTexts, ElementsAre());
    EXPECT_EQ(CopyListviewToClipboard(user, PlainTable{{u"H"}, {{{u"x"}, false}}}), 0u);
    EXPECT_THAT(user.clipboardTexts, ElementsAre(u""));
}

} // namespace
} // namespace brindlewick::testing
