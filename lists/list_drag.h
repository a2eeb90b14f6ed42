// Reordering by dragging inside the input file list: the dragged text travels row by row.
#pragma once

#include "lists/text_list.h"

#include <cstddef>
#include <optional>

namespace brindlewick {

class ListDrag {
public:
    explicit ListDrag(TextList& list) noexcept : list_(list) {}

    void ListView1_MouseDown() noexcept { dragging_ = true; }
    void ListView1_MouseUp() noexcept { dragging_ = false; }
    bool isDragging() const noexcept { return dragging_; }

    /// What the view has to do after a move: select a row, scroll a row into view.
    struct Outcome {
        std::optional<std::size_t> select;
        std::optional<std::size_t> scrollTo;
    };
    /// `screenRow` is the pointer's position on the screen in pixels from the top.
    Outcome ListView1_MouseMove(std::optional<std::size_t> rowUnderPointer,
                                std::optional<std::size_t> selectedRow, int screenRow);

private:
    TextList& list_;
    bool dragging_ = false;
};

} // namespace brindlewick
