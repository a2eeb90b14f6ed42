#include "extract/results_table.h"

#include <gtest/gtest.h>

namespace brindlewick {
namespace {

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

} // namespace
} // namespace brindlewick
