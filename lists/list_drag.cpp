// Reordering by dragging inside the input file list: the dragged text travels row by row.
#include "lists/list_drag.h"

namespace brindlewick {

namespace {

// The band in which the list does not scroll, in pixels of the screen. It does not follow the window: odd,
// and kept.
constexpr int firstRestingScreenRow = 305;
constexpr int firstScreenRowBelowRest = 365;

} // namespace

ListDrag::Outcome ListDrag::ListView1_MouseMove(std::optional<std::size_t> rowUnderPointer,
                                                std::optional<std::size_t> selectedRow, int screenRow) {
    Outcome outcome;
    if (!dragging_ || !rowUnderPointer || *rowUnderPointer >= list_.size())
        return outcome;
    const std::size_t row = *rowUnderPointer;
    if (selectedRow && *selectedRow < list_.size() && list_[*selectedRow] != list_[row]) {
        list_.exchange(*selectedRow, row);
        outcome.select = row;
    }
    if (screenRow < firstRestingScreenRow) {
        if (row > 0)
            outcome.scrollTo = row - 1;
    } else if (screenRow >= firstScreenRowBelowRest && row + 1 < list_.size()) {
        outcome.scrollTo = row + 1;
    }
    return outcome;
}

} // namespace brindlewick
