#include "lists/list_drag.h"

namespace brindlewick {

namespace {

// The list scrolls up above this band of the screen and down below it, in pixels. Deliberate: the band does
// not move with the window.
constexpr int bandTop = 305;
constexpr int bandBottom = 365; // the first pixel below the band

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
    if (screenRow < bandTop) {
        if (row > 0)
            outcome.scrollTo = row - 1;
    } else if (screenRow >= bandBottom && row + 1 < list_.size()) {
        outcome.scrollTo = row + 1;
    }
    return outcome;
}

} // namespace brindlewick
