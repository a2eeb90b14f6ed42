// Finds the rows of the results table that contain a text, in small slices of work.
//
// Letter case does not matter. The time grows linearly with the table's texts; a text that several rows in
// succession share is searched once. The hits take one bit a row.
#pragma once

#include "extract/results_table.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brindlewick {

class RowFinder {
public:
    /// The table must outlive this object.
    explicit RowFinder(const ResultsTable& table) noexcept : table_(table) {}

    /// Clears the hits and starts a search for `text`; no row contains the empty text. The rows from
    /// `firstRow` on are searched first, then those before it. Rows that are appended later are searched too.
    /// Call this again when rows were removed, before any other operation.
    void start(std::u16string_view text, std::size_t firstRow);
    /// Continues the search. Returns after about `work` compared code units, possibly in the middle of a
    /// text, or when isDone().
    void advance(std::size_t work);
    /// True if every row that the table has now was searched.
    [[nodiscard]] bool isDone() const noexcept;

    /// A row is a hit if one of its cells contains the text.
    [[nodiscard]] bool isHit(std::size_t row) const noexcept;
    [[nodiscard]] std::size_t hitCount() const noexcept { return hitCount_; }
    /// The number of hits before `row`.
    [[nodiscard]] std::size_t hitsBefore(std::size_t row) const noexcept;
    /// The first hit from `row` on; if there is none, the first of all. None if there is no hit, or if rows
    /// that are not searched yet may contain a nearer one.
    [[nodiscard]] std::optional<std::size_t> hitFrom(std::size_t row) const noexcept;
    /// The last hit before `row`; if there is none, the last of all. None as for hitFrom.
    [[nodiscard]] std::optional<std::size_t> hitBefore(std::size_t row) const noexcept;

private:
    /// A cell and whether it contains the text.
    struct KnownCell {
        std::size_t file = 0;
        std::u16string_view text;
        bool isHit = false;
    };

    /// Continues in the row; true when the row is done.
    bool searchRow(std::size_t row, std::size_t& work);
    /// Continues in the cell until the text is found, the cell ends, or `work` is used up.
    void searchCell(std::u16string_view cell, std::size_t& work);
    void addHit(std::size_t row);
    [[nodiscard]] std::optional<std::size_t> firstHitIn(std::size_t begin, std::size_t end) const noexcept;
    [[nodiscard]] std::optional<std::size_t> lastHitIn(std::size_t begin, std::size_t end) const noexcept;

    const ResultsTable& table_;
    std::u16string wanted_; ///< with its case folded
    /// For every place in `wanted_`, how many units that end there are also the beginning of `wanted_`, as in
    /// the algorithm of Knuth, Morris and Pratt.
    std::vector<std::uint32_t> borders_;

    std::size_t firstRow_ = 0;
    std::size_t below_ = 0; ///< rows from `firstRow_` to this one, not included, are searched
    std::size_t above_ = 0; ///< rows before this one are searched
    // The place in the row that is being searched.
    bool isAbove_ = false;
    std::size_t column_ = 0;
    std::size_t at_ = 0;      ///< code unit in the cell
    std::size_t matched_ = 0; ///< units of `wanted_` that end at `at_`
    std::vector<KnownCell> known_;

    std::vector<std::uint64_t> hits_; ///< a bit for every row, 0 beyond the last hit
    std::size_t hitCount_ = 0;
};

} // namespace brindlewick
