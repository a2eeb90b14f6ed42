// Tables of literals or generated texts, and a progress indicator that records its calls.
#pragma once

#include "output/export_progress.h"
#include "output/listview_table.h"

#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace brindlewick::testing {

struct PlainRow {
    std::vector<std::u16string> cells;
    bool isChecked = true;
};

struct PlainTable : ListviewTable {
    std::vector<std::u16string> headers;
    std::vector<PlainRow> rows;

    PlainTable(std::vector<std::u16string> theHeaders, std::vector<PlainRow> theRows)
        : headers(std::move(theHeaders)), rows(std::move(theRows)) {}

    std::size_t columnCount() const override { return headers.size(); }
    std::u16string_view header(std::size_t column) const override { return headers[column]; }
    std::size_t rowCount() const override { return rows.size(); }
    std::u16string_view cell(std::size_t row, std::size_t column) const override {
        return rows.at(row).cells.at(column);
    }
    bool isChecked(std::size_t row) const override { return rows.at(row).isChecked; }
};

/// Rows with texts of 0 to 20 code units that need care, a third of the rows unchecked.
inline PlainTable generatedTable(std::vector<std::u16string> headers, std::size_t rowCount,
                                 std::size_t seed) {
    static constexpr char16_t units[] = u"ab ,\t\r\n\"\u00E9\u20AC\u0416 "; // and the final NUL
    std::mt19937 random(static_cast<unsigned>(seed));
    PlainTable table(std::move(headers), {});
    for (std::size_t row = 0; row < rowCount; ++row) {
        PlainRow made;
        made.isChecked = random() % 3 != 0;
        for (std::size_t column = 0; column < table.headers.size(); ++column) {
            std::u16string text;
            for (auto left = random() % 21; left > 0; --left)
                text += units[random() % std::size(units)];
            made.cells.push_back(std::move(text));
        }
        table.rows.push_back(std::move(made));
    }
    return table;
}

/// The generated texts in the single-byte character set.
inline std::string asBytes(std::u16string_view text) {
    std::string bytes;
    for (const char16_t unit : text)
        bytes += unit == u'\u20AC' ? '\x80' : unit == u'\u0416' ? '?' : static_cast<char>(unit);
    return bytes;
}

inline std::u16string fromAscii(std::string_view text) {
    return {text.begin(), text.end()};
}

struct RecordingProgress : ProgressIndicator {
    std::vector<std::u16string> seen; ///< captions, and values as "=value"

    void setValue(int value) override { seen.push_back(fromAscii("=" + std::to_string(value))); }
    void setCaption(std::u16string_view caption) override { seen.emplace_back(caption); }
};

} // namespace brindlewick::testing
