#include "extract/results_table.h"

#include <gtest/gtest.h>

namespace brindlewick {
namespace {

TEST(ResultsTable, HasTheColumnsOfItsLayout) {
    ResultsTable table;
    table.setColumns(true);
    ASSERT_EQ(table.columns().size(), 2U);
    EXPECT_EQ(table.columns()[0].caption, u"Filename");
    EXPECT_EQ(table.columns()[1].caption, u"Results");
    EXPECT_EQ(table.columns()[1].widthInTwips, 3500);
    table.setColumns(false);
    ASSERT_EQ(table.columns().size(), 1U);
    EXPECT_EQ(table.columns()[0].widthInTwips, 7000);
    table.clearAll();
    EXPECT_TRUE(table.columns().empty());
}

TEST(ResultsTable, KeepsEveryTextAcrossItsBlocks) {
    ResultsTable table;
    table.setColumns(true);
    const std::size_t rows = 200000;
    const std::u16string longText(700000, u'L');
    for (std::size_t row = 0; row < rows; ++row) {
        if (row % 1000 == 0)
            table.beginFile(u"file " + std::u16string(row / 1000, u'f'));
        const std::string digits = std::to_string(row);
        const std::u16string text = row == 70000 ? longText : std::u16string(digits.begin(), digits.end());
        table.appendRow(table.store(text), row % 2 == 0);
    }
    table.setChecked(65536, false);
    ASSERT_EQ(table.rowCount(), rows);
    EXPECT_EQ(table.cell(70000, 1), longText);
    EXPECT_EQ(table.cell(65536, 1), u"65536");
    EXPECT_EQ(table.cell(65537, 0), u"65537"); // appended without the file name
    EXPECT_EQ(table.cell(65537, 1), u"");
    EXPECT_EQ(table.cell(199998, 0), u"file " + std::u16string(199, u'f'));
    EXPECT_FALSE(table.isChecked(65536));
    EXPECT_TRUE(table.isChecked(65537));

    table.truncateRows(65536);
    EXPECT_EQ(table.rowCount(), 65536U);
    table.appendRow(table.store(u"again"), false);
    EXPECT_EQ(table.cell(65536, 0), u"again");
    EXPECT_TRUE(table.isChecked(65536));
    table.clearRows();
    EXPECT_EQ(table.rowCount(), 0U);
    EXPECT_EQ(table.columns().size(), 2U);
}

TEST(ResultsTable, GivesClearedRowsBackUntilTheNextRun) {
    UndoList undoList;
    ResultsTable table(&undoList);
    const auto fill = [&] {
        table.clearAll();
        table.setColumns(false);
        table.beginFile(u"f");
        table.appendRow(table.store(u"a"), false);
        table.setChecked(0, false);
        table.clearRows();
        table.clearRows(); // changes nothing
    };
    fill();
    EXPECT_TRUE(undoList.undoStep());
    ASSERT_EQ(table.rowCount(), 1U);
    EXPECT_EQ(table.cell(0, 0), u"a");
    EXPECT_FALSE(table.isChecked(0));
    fill();
    table.clearAll();
    EXPECT_FALSE(undoList.undoStep());
    EXPECT_EQ(table.rowCount(), 0U);
}

} // namespace
} // namespace brindlewick
