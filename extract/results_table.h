// The results table: rows in the order produced, each a text, the file it comes from and a check mark.
//
// A row takes 16 bytes. Identical rows in succession share one copy of their text, and all rows of a file
// share its path. What is stored never moves, so the table grows without copying rows.
#pragma once

#include "core/unit_buffer.h"
#include "platform/undo_list.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace brindlewick {

struct TableColumn {
    enum class Content : std::uint8_t { filename, result };

    std::u16string_view caption;
    int widthInTwips; ///< 1440 to the inch
    Content content;
};

/// Called on the window's thread, inside the operation that changes the table.
class ResultsTableListener {
public:
    virtual ~ResultsTableListener() = default;
    virtual void tableWillBeReset() = 0; ///< rows or columns are about to be cleared
    virtual void tableWasReset() = 0;
    /// A row was appended, the first since announceNextAppend().
    virtual void rowWasAppended() = 0;
};

class ResultsTable {
public:
    /// A text that several rows may share. Valid until the rows are cleared.
    class Text {
        friend class ResultsTable;
        Text(const char16_t* units, std::size_t length)
            : units_(units), length_(static_cast<std::uint32_t>(length)) {}
        const char16_t* units_;
        std::uint32_t length_;
    };

    /// `undoList`, if there is one, must not undo changes of a table that has been destroyed.
    explicit ResultsTable(UndoList* undoList = nullptr);
    ~ResultsTable();
    ResultsTable(const ResultsTable&) = delete;
    ResultsTable& operator=(const ResultsTable&) = delete;

    /// Replaces the columns: "Filename" and "Results" (3500 twips each), or "Results" alone (7000 twips).
    void setColumns(bool withFilename);
    /// Removes all rows and all columns, and discards the rows that clearRows() has removed.
    void clearAll();
    /// Removes all rows and keeps the columns. Can be undone until clearAll() is called. Copies no row.
    void clearRows();
    /// Removes the rows from `rowCount` on, for example when their file turns out to be unreadable.
    void truncateRows(std::size_t rowCount);

    /// Sets the file path of the rows that are appended from now on.
    void beginFile(std::u16string_view path);
    /// Stores a text for any number of rows. Fails with outOfMemory when it is longer than `maxTextLength`.
    [[nodiscard]] Text store(std::u16string_view text);
    /// The same, but takes over the memory of a long text: `text` is then empty.
    [[nodiscard]] Text store(UnitBuffer& text);
    /// Appends a row, ticked. With the file name, the first cell is the current file's path and the second
    /// the text; without it, the first cell is the text and a second column stays empty.
    void appendRow(Text text, bool withFilename);

    [[nodiscard]] std::size_t rowCount() const noexcept { return rows_.count; }
    [[nodiscard]] std::span<const TableColumn> columns() const noexcept { return columns_; }
    /// The text of a cell; `row` and `column` from 0. Valid until the rows are cleared.
    [[nodiscard]] std::u16string_view cell(std::size_t row, std::size_t column) const;
    /// The whole text of a row, and the path of its file. Valid as for `cell`, the path until the next
    /// beginFile.
    [[nodiscard]] std::u16string_view text(std::size_t row) const;
    [[nodiscard]] std::u16string_view filePath(std::size_t row) const;
    /// Rows have the same number if they come from the same file.
    [[nodiscard]] std::size_t fileNumber(std::size_t row) const;
    [[nodiscard]] bool isChecked(std::size_t row) const;
    void setChecked(std::size_t row, bool checked);
    /// How many rows are ticked. Linear in the rows.
    [[nodiscard]] std::size_t checkedCount() const noexcept;

    /// There is at most one listener; nullptr removes it. Its first appended row is announced.
    void setListener(ResultsTableListener* listener) noexcept {
        listener_ = listener;
        announceNextAppend();
    }
    /// Announces the next appended row, and no row after it until this is called again. So a listener that
    /// calls this whenever it has caught up gets one call for a batch of rows.
    void announceNextAppend() noexcept { announcesAppend_ = listener_ != nullptr; }

private:
    struct Row {
        const char16_t* units;
        std::uint32_t length;
        std::uint32_t file : 30;
        std::uint32_t withFilename : 1;
        std::uint32_t checked : 1;
    };
    static_assert(sizeof(Row) <= 16);

    /// The rows and the memory of their texts.
    struct Rows {
        std::vector<std::unique_ptr<Row[]>> blocks;
        std::size_t count = 0;
        std::vector<std::u16string> files;
        std::vector<std::unique_ptr<char16_t[]>> arenas;
        std::vector<UnitBuffer> longTexts; ///< each with memory of its own
        char16_t* arenaNext = nullptr;
        std::size_t arenaLeft = 0; ///< code units
    };

    bool restoreRows();
    Text storeLong(UnitBuffer&& text);

    static constexpr std::size_t rowsPerBlock = std::size_t{1} << 16;

    const Row& at(std::size_t row) const { return rows_.blocks[row / rowsPerBlock][row % rowsPerBlock]; }
    Row& at(std::size_t row) { return rows_.blocks[row / rowsPerBlock][row % rowsPerBlock]; }

    std::span<const TableColumn> columns_;
    Rows rows_;
    std::optional<Rows> cleared_; ///< by clearRows()
    UndoList* undoList_;
    ResultsTableListener* listener_ = nullptr;
    bool announcesAppend_ = false;
};

} // namespace brindlewick
