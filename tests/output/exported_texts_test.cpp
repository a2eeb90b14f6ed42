// Both files, byte by byte, and the clipboard text, compared with a simple model. Literal cases are in
// output_handlers_test.cpp.
#include "output/aligned_text.h"
#include "output/clipboard_text.h"
#include "output/comma_delimited_text.h"
#include "output/plain_table.h"
#include "support/failure_of.h"
#include "support/fake_user.h"
#include "support/temporary_folder.h"

#include <algorithm>
#include <functional>
#include <gmock/gmock.h>

namespace brindlewick::testing {
namespace {

using ::testing::ElementsAre;

struct Exports {
    std::string aligned;
    std::string commas;
    std::u16string copied;
    std::size_t copiedRows = 0;

    bool operator==(const Exports&) const = default;
};

Exports exportsOf(const PlainTable& table, FakeUser& user) {
    const TemporaryFolder folder;
    folder.write("aligned", std::string(1000, '#')); // replaces a longer file completely
    SaveListviewProperlySpaced(user, table, folder.text("aligned"), nullptr);
    SaveListviewAsCommaDelimToFile(user, table, folder.text("commas"), nullptr);
    ClipboardText copy = clipboardText(user, table);
    EXPECT_TRUE(user.errors.empty() && user.questions.empty());
    return {folder.read("aligned"), folder.read("commas"), std::move(copy.text), copy.rows};
}

/// The exports of a table, built in the simplest way.
Exports simpleModel(const PlainTable& table) {
    const std::size_t columns = table.headers.size();
    std::vector<std::size_t> widths(columns);
    for (const PlainRow& row : table.rows)
        for (std::size_t column = 0; column < columns; ++column)
            widths[column] = std::max(widths[column], row.cells[column].size());
    const auto padded = [&](const std::vector<std::u16string>& cells, bool withHeaders) {
        std::u16string line;
        for (std::size_t column = 0; column < columns; ++column) {
            const std::size_t header = withHeaders ? table.headers[column].size() : 0;
            const std::size_t width = std::max(widths[column], header);
            line += cells[column] + std::u16string(width - cells[column].size(), u' ') + u"\t";
        }
        return line;
    };
    Exports made;
    made.aligned = asBytes(padded(table.headers, true)) + "\r\n";
    for (std::size_t column = 0; columns > 1 && column < columns; ++column)
        made.commas += asBytes(table.headers[column]) + (column + 1 < columns ? "," : ",\r\n");
    for (const PlainRow& row : table.rows) {
        for (std::size_t column = 0; column < columns; ++column)
            made.commas += (column > 0 ? "," : "") + asBytes(row.cells[column]);
        made.commas += columns == 1 && &row != &table.rows.back() ? ",\r\n" : "\r\n";
        if (!row.isChecked)
            continue;
        made.aligned += asBytes(padded(row.cells, true)) + "\r\n";
        if (columns == 0)
            continue;
        std::u16string line = padded(row.cells, false);
        line.pop_back();
        made.copied += line.substr(0, line.find_last_not_of(u' ') + 1) + u"\r\n";
        ++made.copiedRows;
    }
    return made;
}

std::u16string rowsWritten(std::size_t rows) {
    return fromAscii(std::to_string(rows) + (rows == 1 ? " row written" : " rows written"));
}

TEST(ExportedTexts, EqualTheSimpleModel) {
    const std::vector<std::u16string> headers{u"A header of twenty-two", u"", u"C"};
    for (std::size_t round = 0; round < 200; ++round) {
        const std::size_t columns = round % 4;
        const std::size_t rows = round == 199 ? 20'000 : round % 7;
        const PlainTable table = generatedTable({headers.data(), headers.data() + columns}, rows, round);
        const auto checked =
            std::count_if(table.rows.begin(), table.rows.end(), std::mem_fn(&PlainRow::isChecked));
        FakeUser user;
        EXPECT_TRUE(exportsOf(table, user) == simpleModel(table)) << round;
        // Both exports measure the columns, the copy all but the last; the copy also computes its length.
        EXPECT_EQ(user.yields, rows * (columns == 0 ? 2 : columns + (columns - 1) + 4));
        EXPECT_THAT(user.summaries,
                    ElementsAre(rowsWritten(static_cast<std::size_t>(checked)), rowsWritten(rows)));
    }
}

TEST(ClipboardText, PadsNoLastColumnAndFailsBeforeItIsTooLong) {
    FakeUser user;
    PlainTable table({u"A", u"B"}, std::vector<PlainRow>(200'000, {{u"y", u"y"}}));
    table.rows[0].cells[1] = std::u16string(2'000'000, u'x');
    table.rows[1].isChecked = false;
    const std::u16string text = clipboardText(user, table).text;
    EXPECT_EQ(text.size(), 199'999u * 5 + 2'000'000 - 1);
    EXPECT_EQ(text.capacity(), text.size());
    user.progressTexts.clear();
    std::swap(table.rows[0].cells[0], table.rows[0].cells[1]);
    EXPECT_EQ(failureOf([&] { CopyListviewToClipboard(user, table); }), FailureNumber::outOfMemory);
    EXPECT_TRUE(user.clipboardTexts.empty() && user.progressTexts.empty());
}

TEST(SelectedRows, AreCopiedCheckedOrNot) {
    FakeUser user;
    PlainTable table({u"A", u"B"}, {{{u"a", u" x "}}, {{u"bb", u""}, false}, {{u"c", u"y"}}, {{u"d", u"z"}}});
    CopyRowsToClipboard(user, table, {});
    EXPECT_TRUE(user.clipboardTexts.empty());
    const RowRange ranges[] = {{0, 1}, {3, 3}};
    CopyRowsToClipboard(user, table, ranges);
    EXPECT_THAT(user.clipboardTexts, ElementsAre(u"a\t x \r\nbb\t\r\nd\tz\r\n"));
}

} // namespace
} // namespace brindlewick::testing
