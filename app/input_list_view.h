// The view of the input file list: takes dropped files and moves rows by dragging.
#pragma once

#include "app/rows_view.h"
#include "lists/list_drag.h"

#include <QCursor>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace brindlewick {

class InputListView : public RowsView {
public:
    explicit InputListView(TextList& list, QWidget* parent = nullptr);

    /// Sets the function that is called with the paths of dropped files, in the drop's order.
    void setDropHandler(std::function<void(const std::vector<std::u16string>&)> handler);
    /// Sets the pointer that is shown while the left button is held on an entry.
    void setDragPointer(const QCursor& pointer) { dragPointer_ = pointer; }

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    ListDrag drag_;
    std::function<void(const std::vector<std::u16string>&)> dropHandler_;
    std::optional<QCursor> dragPointer_;
};

} // namespace brindlewick
