// The view of the input file list: moves rows by dragging.
#pragma once

#include "app/cursor_picture.h"
#include "app/rows_view.h"
#include "lists/list_drag.h"

#include <optional>

namespace brindlewick {

class InputListView : public RowsView {
public:
    explicit InputListView(TextList& list, QWidget* parent = nullptr);

    /// Shows, or no longer shows, that files can be dropped.
    void setHighlighted(bool isHighlighted);
    /// Sets the pointer that is shown while the left button is held on an entry.
    void setDragPointer(const CursorPicture& pointer) { dragPointer_ = pointer; }
    /// Ends the dragging of a row.
    void endDrag();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    ListDrag drag_;
    bool isHighlighted_ = false;
    std::optional<CursorPicture> dragPointer_;
};

} // namespace brindlewick
