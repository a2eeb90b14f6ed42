// The input file list's gestures: dropped files, and rows dragged inside the list.
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

    /// Takes the paths of a drop, in its order.
    void setDropHandler(std::function<void(const std::vector<std::u16string>&)> handler);
    /// The pointer shown while an entry is clicked.
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
