// Reordering the input file list by dragging: the dragged text moves row by row.
#pragma once

#include "lists/text_list.h"

#include <cstddef>
#include <optional>

namespace brindlewick {

class ListDrag {
public:
    explicit ListDrag(TextList& list) noexcept : list_(list) {}

    void ListView1_MouseDown() noexcept {
        list_.beginUndoStep();
        dragging_ = true;
    }
    void ListView1_MouseUp() noexcept { dragging_ = false; }
    [[nodiscard]] bool isDragging() const noexcept { return dragging_; }

    /// The row that the view selects, and the row that it scrolls into view.
    struct Outcome {
        std::optional<std::size_t> select;
        std::optional<std::size_t> scrollTo;
    };
    /// Exchanges the texts of the selected row and the row under the pointer if they differ. `screenRow` is
    /// the pointer's distance from the top of the screen, in pixels.
    [[nodiscard]] Outcome ListView1_MouseMove(std::optional<std::size_t> rowUnderPointer,
                                              std::optional<std::size_t> selectedRow, int screenRow);

private:
    TextList& list_;
    bool dragging_ = false;
};

} // namespace brindlewick
