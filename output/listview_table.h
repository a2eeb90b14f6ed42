// The table that the exports read, and the results table as one. Rows and columns count from 0; lengths are
// UTF-16 code units.
#pragma once

#include "extract/results_table.h"
#include "platform/user_interface.h"

#include <cstddef>
#include <string_view>

namespace brindlewick {

class ListviewTable {
public:
    virtual ~ListviewTable() = default;

    virtual std::size_t columnCount() const = 0;
    virtual std::u16string_view header(std::size_t column) const = 0;
    virtual std::size_t rowCount() const = 0;
    /// Empty when the row has no text in the column. Valid until the table changes, so not across a yield.
    virtual std::u16string_view cell(std::size_t row, std::size_t column) const = 0;
    virtual bool isChecked(std::size_t row) const = 0;
};

/// `table` must outlive it.
class ResultsListview final : public ListviewTable {
public:
    explicit ResultsListview(const ResultsTable& table) noexcept : table_(table) {}

    std::size_t columnCount() const override { return table_.columns().size(); }
    std::u16string_view header(std::size_t column) const override { return table_.columns()[column].caption; }
    std::size_t rowCount() const override { return table_.rowCount(); }
    std::u16string_view cell(std::size_t row, std::size_t column) const override {
        return table_.cell(row, column);
    }
    bool isChecked(std::size_t row) const override { return table_.isChecked(row); }

private:
    const ResultsTable& table_;
};

/// The length of the longest text in a column, unchecked rows included, the header excluded; 0 without rows.
/// Yields once per row.
[[nodiscard]] std::size_t longestCell(UserInterface& user, const ListviewTable& table, std::size_t column);

} // namespace brindlewick
