// The results table as the writers see it.
#include "output/listview_table.h"

#include "support/fake_user.h"

#include <gtest/gtest.h>

namespace brindlewick::testing {
namespace {

TEST(ResultsListviewOf, BothLayoutsShowsColumnsCellsAndTicks) {
    for (const bool withFilename : {false, true}) {
        ResultsTable table;
        table.setColumns(withFilename);
        table.beginFile(u"/data/a.json");
        table.appendRow(table.store(u"x"), withFilename);
        table.appendRow(table.store(u"longer"), withFilename);
        table.setChecked(1, false);

        const ResultsListview listview(table);
        FakeUser user;
        ASSERT_EQ(listview.columnCount(), withFilename ? 2u : 1u);
        EXPECT_EQ(listview.header(0), withFilename ? u"Filename" : u"Results");
        EXPECT_EQ(listview.rowCount(), 2u);
        EXPECT_EQ(listview.cell(0, 0), withFilename ? u"/data/a.json" : u"x");
        EXPECT_TRUE(listview.isChecked(0));
        EXPECT_FALSE(listview.isChecked(1));
        const std::size_t last = listview.columnCount() - 1;
        EXPECT_EQ(listview.header(last), u"Results");
        EXPECT_EQ(listview.cell(1, last), u"longer");
        EXPECT_EQ(longestCell(user, listview, last), 6u); // the unticked row counts
        EXPECT_EQ(user.yields, 2u);
    }
}

} // namespace
} // namespace brindlewick::testing
