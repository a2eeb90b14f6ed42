// The results table: rows in the order produced, each a text, the file it comes from and a check mark.
//
// Lean by design: a row is 16 bytes; the text of a run of identical rows is stored once, and a file's path
// once for all its rows. Nothing moves once it is stored, so a million rows are never copied to grow.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace brindlewick {

struct TableColumn {
    std::u16string_view caption;
    int widthInTwips = 0; ///< 1440 to the inch
};

/// Told of changes to the table before they can be seen. Appended rows are not announced one by one: whoever
/// shows the table compares rowCount() with what it has shown.
class ResultsTableListener {
public:
    virtual ~ResultsTableListener() = default;
    virtual void tableWillBeReset() = 0; ///< rows or columns are about to be cleared
    virtual void tableWasReset() = 0;
};

class ResultsTable {
public:
    /// A text that several rows may share. Valid until the rows are cleared.
    class Text {
        friend class ResultsTable;
        const char16_t* units_ = nullptr;
        std::uint32_t length_ = 0;
    };

    ResultsTable();
    ~ResultsTable();
    ResultsTable(const ResultsTable&) = delete;
    ResultsTable& operator=(const ResultsTable&) = delete;

    /// Replaces the columns: "Filename" and "Results" (3500 twips each), or "Results" alone (7000 twips).
    void setColumns(bool withFilename);
    /// Takes all rows and all columns away.
    void clearAll();
    /// Takes all rows away; the columns stay.
    void clearRows();
    /// Takes the rows from `rowCount` on away, as when the file they come from turns out to be unreadable.
    void truncateRows(std::size_t rowCount);

    /// Makes `path` the file of the rows that follow.
    void beginFile(std::u16string_view path);
    /// Stores a text once. Fails with outOfMemory when it is longer than `longestText`.
    Text store(std::u16string_view text);
    /// Appends a row, ticked. With the file name, the first cell is the current file's path and the second
    /// the text; without it, the first cell is the text and a second column stays empty.
    void appendRow(Text text, bool withFilename);

    std::size_t rowCount() const noexcept { return rowCount_; }
    const std::vector<TableColumn>& columns() const noexcept { return columns_; }
    /// The text of a cell; `row` and `column` from 0. Valid until the rows are cleared.
    std::u16string_view cell(std::size_t row, std::size_t column) const;
    bool isChecked(std::size_t row) const;
    void setChecked(std::size_t row, bool checked);

    /// At most one listener, the model behind the window's view; nullptr takes it off.
    void setListener(ResultsTableListener* listener) noexcept { listener_ = listener; }

private:
    struct Row {
        const char16_t* units;
        std::uint32_t length;
        std::uint32_t file : 30;
        std::uint32_t withFilename : 1;
        std::uint32_t checked : 1;
    };
    static_assert(sizeof(Row) <= 16);

    void discardRows();

    static constexpr std::size_t rowsPerBlock = std::size_t{1} << 16;

    const Row& at(std::size_t row) const { return blocks_[row / rowsPerBlock][row % rowsPerBlock]; }
    Row& at(std::size_t row) { return blocks_[row / rowsPerBlock][row % rowsPerBlock]; }

    std::vector<TableColumn> columns_;
    std::vector<std::unique_ptr<Row[]>> blocks_;
    std::size_t rowCount_ = 0;
    std::vector<std::u16string> files_;
    std::vector<std::unique_ptr<char16_t[]>> arenas_;
    char16_t* arenaNext_ = nullptr;
    std::size_t arenaLeft_ = 0; ///< code units
    ResultsTableListener* listener_ = nullptr;
};

} // namespace brindlewick
